#include "platform/xml/query/node_path.h"

#include "platform/xml/dom/handle_access.h"
#include "platform/xml/engine/libxml_handles.h"
#include "platform/xml/query/declared_namespaces.h"
#include "platform/xml/storage/values.h"

#include <QList>

#include <algorithm>
#include <array>
#include <optional>

namespace quillon::xml {

namespace {

/// No longer value of an attribute takes the place of a position, and so many are looked at.
constexpr qsizetype LongestKey = 80;
constexpr std::size_t MostKeys = 8;

constexpr std::string_view XmlNamespace = "http://www.w3.org/XML/1998/namespace";

/// Whether XPath takes it for the part of a name, and this kind of path for the whole of it.
bool isPlain(const std::string &name) {
    return xmlValidateNCName(utf8(name.c_str()), 0) == 0;
}

std::string quoted(const std::string &text) {
    if (text.find('\'') == text.npos)
        return '\'' + text + '\'';
    if (text.find('"') == text.npos)
        return '"' + text + '"';
    // XPath has no escapes.
    std::string parts = "concat('";
    for (const char c : text) {
        if (c == '\'')
            parts += "',\"'\",'";
        else
            parts += c;
    }
    return parts + "')";
}

/// How well attributes of a name are suited for a key, best first.
int rankOf(std::string_view name) {
    constexpr std::array<std::string_view, 2> Best = {"xml:id", "id"};
    constexpr std::array<std::string_view, 9> Good = {"id",   "ID",   "Id",   "no",    "No",
                                                      "code", "Code", "番号", "コード"};
    constexpr std::array<std::string_view, 4> Fair = {"key", "name", "キー", "名前"};
    if (const auto best = std::find(Best.begin(), Best.end(), name); best != Best.end())
        return int(best - Best.begin());
    const auto endsWith = [name](std::string_view end) { return name.ends_with(end); };
    if (std::any_of(Good.begin(), Good.end(), endsWith))
        return 2;
    return std::any_of(Fair.begin(), Fair.end(), endsWith) ? 3 : 4;
}

/// Whether a value can be read in the path box, which has one line.
bool canBeShown(const std::string &value) {
    const QString text = QString::fromStdString(value);
    if (text.isEmpty() || text.size() > LongestKey)
        return false;
    const QList<uint> characters = text.toUcs4();
    return std::all_of(characters.begin(), characters.end(), [](uint c) {
        return QChar::isPrint(c) && QChar::category(c) != QChar::Separator_Line &&
               QChar::category(c) != QChar::Separator_Paragraph;
    });
}

class PathWriter {
public:
    explicit PathWriter(const Arena &arena) : arena_(arena), declared_(arena) {}

    std::string pathTo(Number node);

private:
    /// How a step names the elements, or other children, that it is about.
    struct Test {
        std::string text;
        /// The namespace and local name of the elements; nothing where the step compares names as
        /// they are written, or is about other nodes.
        std::optional<std::pair<std::string, std::string>> expanded;
    };
    /// What there is to know of siblings with the same name as written.
    struct SiblingName {
        bool isKnown = false;
        bool hasLocalName = false;
        bool hasPrefix = false;
        /// The number of the name of the attribute that declares the prefix; 0 for none.
        std::uint32_t declaration = 0;
        std::string uriAbove;
    };

    std::string_view nameOf(Number n) const { return arena_.names->utf8(arena_.record(n).name); }
    Number parentOf(Number n) const { return arena_.record(n).parent; }

    void chooseMeaning(Number root);
    bool mayPrefix(const std::string &prefix, const std::string &uri) const;
    Test elementTest(Number element) const;
    bool isOfTest(Number sibling, Number element, const Test &test,
                  std::unordered_map<std::uint32_t, SiblingName> &names) const;
    Number attributeOf(Number element, std::uint32_t name) const;
    bool isKey(Number attribute, Number element, const std::vector<Number> &others) const;
    std::string keyOf(Number element, const std::vector<Number> &others) const;

    std::string elementStep(Number element);
    std::string attributeStep(Number attribute) const;
    std::string characterStep(Number node) const;
    std::string step(Number node);

    const Arena &arena_;
    const DeclaredNamespaces declared_;
    /// What is declared around the node of the next step.
    NamespaceScope scope_ = {{"xml", std::string(XmlNamespace)}};
    /// The namespace that names without a prefix stand for in the whole path.
    std::string meaning_;
};

void PathWriter::chooseMeaning(Number root) {
    const NameParts name(nameOf(root));
    NamespaceScope scope;
    declared_.add(root, scope);
    // When the root element has no prefix, either its name or nothing is found without a namespace,
    // and so in every other one. Else the same holds where the whole document has but one.
    const bool isFirstStep = name.prefix.empty() && isPlain(name.local);
    if (isFirstStep || declared_.isTheOnly("", scope[""]))
        meaning_ = scope[""];
}

bool PathWriter::mayPrefix(const std::string &prefix, const std::string &uri) const {
    // A prefix means the same from every context only where it does so all over the document.
    if (prefix == "xml")
        return uri == XmlNamespace;
    return !uri.empty() && isPlain(prefix) && declared_.isTheOnly(prefix, uri);
}

PathWriter::Test PathWriter::elementTest(Number element) const {
    const NameParts name(nameOf(element));
    NamespaceScope own;
    declared_.add(element, own);
    const auto uriOf = [&](const NamespaceScope &scope) -> std::optional<std::string> {
        const auto found = scope.find(name.prefix);
        return found == scope.end() ? std::nullopt : std::optional(found->second);
    };
    const std::string uri = uriOf(own).value_or(uriOf(scope_).value_or(""));
    const bool isUsable = isPlain(name.local) &&
                          (name.prefix.empty() ? uri == meaning_ : mayPrefix(name.prefix, uri));
    if (isUsable)
        return {std::string(nameOf(element)), std::pair(uri, name.local)};
    return {"*[name()=" + quoted(std::string(nameOf(element))) + "]", {}};
}

bool PathWriter::isOfTest(Number sibling, Number element, const Test &test,
                          std::unordered_map<std::uint32_t, SiblingName> &names) const {
    const std::uint32_t written = arena_.record(sibling).name;
    if (!test.expanded)
        return written == arena_.record(element).name;
    SiblingName &name = names[written];
    if (!name.isKnown) {
        name.isKnown = true;
        const NameParts parts(nameOf(sibling));
        name.hasLocalName = parts.local == test.expanded->second;
        name.hasPrefix = !parts.prefix.empty();
        name.declaration = arena_.names->find(name.hasPrefix ? "xmlns:" + parts.prefix : "xmlns");
        const auto above = scope_.find(parts.prefix);
        if (above != scope_.end())
            name.uriAbove = above->second;
    }
    if (!name.hasLocalName)
        return false;
    const Number own = name.declaration != 0 ? attributeOf(sibling, name.declaration) : 0;
    const std::string uri = own != 0 ? valueOf(arena_, own) : name.uriAbove;
    // With a prefix that is not declared, the prefix is part of the name.
    return uri == test.expanded->first && !(name.hasPrefix && uri.empty());
}

Number PathWriter::attributeOf(Number element, std::uint32_t name) const {
    Number a = arena_.part(element).firstAttribute;
    while (a != 0 && arena_.record(a).name != name)
        a = arena_.record(a).next;
    return a;
}

bool PathWriter::isKey(Number attribute, Number element, const std::vector<Number> &others) const {
    const std::string value = valueOf(arena_, attribute);
    if (!canBeShown(value))
        return false;
    const std::uint32_t name = arena_.record(attribute).name;
    std::string buffer;
    return std::none_of(others.begin(), others.end(), [&](Number other) {
        const Number same = other == element ? 0 : attributeOf(other, name);
        return same != 0 && valueView(arena_, same, buffer) == value;
    });
}

std::string PathWriter::keyOf(Number element, const std::vector<Number> &others) const {
    std::vector<std::pair<int, Number>> candidates;
    for (Number a = arena_.part(element).firstAttribute; a != 0; a = arena_.record(a).next) {
        const std::string name(nameOf(a));
        const bool isXmlId = name == "xml:id" && scope_.at("xml") == XmlNamespace;
        if (isXmlId || (!declared_.isDeclaration(arena_.record(a).name) && isPlain(name)))
            candidates.emplace_back(rankOf(name), a);
    }
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    candidates.resize(std::min(candidates.size(), MostKeys));
    for (const auto &[rank, attribute] : candidates) {
        if (isKey(attribute, element, others))
            return "[@" + std::string(nameOf(attribute)) + '=' +
                   quoted(valueOf(arena_, attribute)) + ']';
    }
    return {};
}

std::string PathWriter::elementStep(Number element) {
    const Test test = elementTest(element);
    std::unordered_map<std::uint32_t, SiblingName> names;
    std::vector<Number> alike;
    std::size_t position = 0;
    for (Number s = arena_.part(parentOf(element)).firstChild; s != 0; s = arena_.record(s).next) {
        if (arena_.record(s).kind != NodeType::Element || !isOfTest(s, element, test, names))
            continue;
        alike.push_back(s);
        if (s == element)
            position = alike.size();
    }
    declared_.add(element, scope_);
    if (alike.size() == 1)
        return test.text;
    const std::string key = keyOf(element, alike);
    return test.text + (key.empty() ? '[' + std::to_string(position) + ']' : key);
}

std::string PathWriter::attributeStep(Number attribute) const {
    const std::string written(nameOf(attribute));
    if (declared_.isDeclaration(arena_.record(attribute).name)) {
        if (valueOf(arena_, attribute).empty())
            return {};
        const std::string prefix = declaredPrefix(written);
        return isPlain(prefix) ? "namespace::" + prefix
                               : "namespace::*[name()=" + quoted(prefix) + ']';
    }
    const NameParts name(written);
    const auto uri = scope_.find(name.prefix);
    const bool isUsable =
        isPlain(name.local) &&
        (name.prefix.empty() || (uri != scope_.end() && mayPrefix(name.prefix, uri->second)));
    std::size_t alike = 0;
    for (Number a = arena_.part(parentOf(attribute)).firstAttribute; a != 0;
         a = arena_.record(a).next) {
        const NameParts other(nameOf(a));
        alike += !other.prefix.empty() && other.local == name.local;
    }
    // Two prefixes may stand for one namespace.
    if (isUsable && (name.prefix.empty() || alike == 1))
        return '@' + written;
    return "@*[name()=" + quoted(written) + ']';
}

std::string PathWriter::characterStep(Number node) const {
    const NodeType kind = arena_.record(node).kind;
    std::string test;
    std::array<NodeType, 3> alike = {kind, kind, kind};
    switch (kind) {
    case NodeType::Text:
    case NodeType::CDATASection:
    case NodeType::EntityReference:
        test = "text()";
        alike = {NodeType::Text, NodeType::CDATASection, NodeType::EntityReference};
        break;
    case NodeType::Comment:
        test = "comment()";
        break;
    case NodeType::ProcessingInstruction:
        if (nameOf(node) == "xml")
            return {};
        test = "processing-instruction(" + quoted(std::string(nameOf(node))) + ')';
        break;
    default:
        return {};
    }
    std::size_t count = 0;
    std::size_t position = 0;
    for (Number s = arena_.part(parentOf(node)).firstChild; s != 0; s = arena_.record(s).next) {
        const Record &sibling = arena_.record(s);
        if (std::find(alike.begin(), alike.end(), sibling.kind) == alike.end() ||
            (kind == NodeType::ProcessingInstruction && sibling.name != arena_.record(node).name))
            continue;
        ++count;
        if (s == node)
            position = count;
    }
    return count == 1 ? test : test + '[' + std::to_string(position) + ']';
}

std::string PathWriter::step(Number node) {
    switch (arena_.record(node).kind) {
    case NodeType::Element:
        return elementStep(node);
    case NodeType::Attribute:
        return attributeStep(node);
    default:
        return characterStep(node);
    }
}

std::string PathWriter::pathTo(Number node) {
    const Number top = arena_.documentNumber();
    std::vector<Number> chain;
    for (; node != top && node != 0; node = parentOf(node))
        chain.push_back(node);
    if (node == 0)
        return {};
    if (chain.empty())
        return "/";
    if (arena_.record(chain.back()).kind == NodeType::Element)
        chooseMeaning(chain.back());
    std::string path;
    for (auto at = chain.rbegin(); at != chain.rend(); ++at) {
        const std::string next = step(*at);
        if (next.empty())
            return {};
        path += '/' + next;
    }
    return path;
}

} // namespace

QString pathTo(const Node &node) {
    if (node.isNull())
        return {};
    return QString::fromStdString(PathWriter(HandleAccess::arena(node)).pathTo(node.number()));
}

} // namespace quillon::xml
