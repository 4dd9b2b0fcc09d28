#include "tree/node_transfer.h"

#include "platform/runtime/error.h"
#include "resources/texts.h"
#include "tree/fragment.h"

#include <QStringList>

namespace quillon::tree {

using xml::DOMDocument40;
using xml::Node;
using xml::NodeType;

namespace {

// The parts of NodeFormat. The version goes with any change that older programs would misread.
constexpr QLatin1String RootName("quillon-node");
constexpr QLatin1String ListName("quillon-nodes");
constexpr QLatin1String ScopeName("scope");
constexpr QLatin1String ContentName("content");
constexpr QLatin1String KindName("kind");
constexpr QLatin1String VersionName("version");
constexpr QLatin1String Version("1");

constexpr QLatin1String Declaration("xmlns");

/// The kinds whose markup travels; of others only the kind does.
bool isCarried(NodeType kind) {
    return kind != NodeType::ProcessingInstruction && kind != NodeType::DocumentType &&
           kind != NodeType::Document && kind != NodeType::None;
}

/// The prefix that an attribute declares, "" for the default namespace; nothing for an attribute
/// that is no declaration.
std::optional<QString> declaredPrefix(const QString &attributeName) {
    if (attributeName == Declaration)
        return QString();
    constexpr QLatin1String Start("xmlns:");
    const QString prefix = attributeName.mid(Start.size());
    return attributeName.startsWith(Start) && !prefix.contains(QLatin1Char(':'))
               ? std::optional(prefix)
               : std::nullopt;
}

QString declarationOf(const QString &prefix) {
    return prefix.isEmpty() ? QString(Declaration) : QStringLiteral("xmlns:") + prefix;
}

bool isNameByte(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '-' || c == '.' || c == ':' || static_cast<unsigned char>(c) >= 0x80;
}

/// Whether a prefix is in use: in names, and wherever else names may stand, as in the XPath of a
/// stylesheet. A declaration too many does no harm; one too few does.
bool usesPrefix(const QByteArray &markup, const QString &prefix) {
    const QByteArray wanted = prefix.toUtf8() + ':';
    for (qsizetype at = markup.indexOf(wanted); at >= 0; at = markup.indexOf(wanted, at + 1)) {
        if (at > 0 && !isNameByte(markup[at - 1]))
            return true;
    }
    return false;
}

/// Whether there are tags without a prefix.
bool usesDefaultNamespace(const QByteArray &markup) {
    for (qsizetype at = markup.indexOf('<'); at >= 0; at = markup.indexOf('<', at + 1)) {
        qsizetype end = at + 1;
        while (end < markup.size() && isNameByte(markup[end]))
            ++end;
        const auto name = QByteArrayView(markup).sliced(at + 1, end - at - 1);
        if (!name.isEmpty() && !name.contains(':'))
            return true;
    }
    return false;
}

bool uses(const QByteArray &markup, const QString &prefix) {
    return prefix.isEmpty() ? usesDefaultNamespace(markup) : usesPrefix(markup, prefix);
}

/// What an element uses of `scope` and does not declare itself.
Namespaces borrowed(const Node &element, const QByteArray &markup, const Namespaces &scope) {
    Namespaces found;
    for (const auto &[prefix, uri] : scope) {
        if (!element.getAttributeNode(declarationOf(prefix)) && uses(markup, prefix))
            found.emplace(prefix, uri);
    }
    return found;
}

/// An element that holds nothing but declarations.
Node declarations(const Namespaces &scope) {
    const Node element = DOMDocument40::create().createElement(ScopeName);
    for (const auto &[prefix, uri] : scope)
        element.setAttribute(declarationOf(prefix), uri);
    return element;
}

/// The same as they stand in a start tag, each after a blank.
QByteArray declarationMarkup(const Namespaces &scope) {
    return scope.empty() ? QByteArray()
                         : declarations(scope).xml().mid(1 + ScopeName.size()).chopped(2);
}

/// What references to entities stand for, wherever they do, in document order.
QStringList expandedValues(const Node &top) {
    QStringList values;
    const auto add = [&](const Node &node) {
        if (node.nodeType() == NodeType::EntityReference)
            values.append(node.text());
        for (int i = 0, count = node.attributes().length(); i < count; ++i) {
            const Node attribute = node.attributes().item(i);
            if (attribute.specified())
                values.append(attribute.nodeValue());
        }
    };
    for (Node at = top; at;) {
        add(at);
        Node next = at.firstChild();
        for (; !next && at && !(at == top); at = at.parentNode())
            next = at.nextSibling();
        at = next;
    }
    return values;
}

/// The root element of what a packed node is, as it reads among the entities that `target`
/// declares.
Node readAmong(const DOMDocument40 &target, const Node &root) {
    DOMDocument40 here = DOMDocument40::create();
    here.loadXML(entityDeclarationsOf(target) + root.xml());
    const Node read = here.documentElement();
    if (!read || expandedValues(read) != expandedValues(root))
        throw runtime::Error(runtime::error_number::Fail,
                             resources::texts::EntityNotDeclaredHere.toString());
    return read;
}

std::optional<Namespaces> scopeOf(const Node &element) {
    Namespaces scope;
    for (int i = 0, count = element.attributes().length(); i < count; ++i) {
        const Node attribute = element.attributes().item(i);
        if (!attribute.specified())
            continue;
        const auto prefix = declaredPrefix(attribute.nodeName());
        if (!prefix)
            return std::nullopt;
        scope.emplace(*prefix, attribute.nodeValue());
    }
    return scope;
}

/// Character data of any length, which may have been written as more than one node.
bool holdsOnly(const Node &content, NodeType kind) {
    for (Node child = content.firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() != kind)
            return false;
    }
    return true;
}

/// The one node of the kind in question; empty when there is something else.
Node contentOf(const Node &content, const QString &kind) {
    const DOMDocument40 document = content.ownerDocument();
    if (kind == QLatin1String("IXMLDOMAttribute"))
        return content.hasChildNodes() || content.attributes().length() != 1
                   ? Node()
                   : content.attributes().item(0).cloneNode(true);
    const Node only = content.firstChild();
    // White space alone would have to be written in another way at another place.
    if (kind == QLatin1String("IXMLDOMText") && holdsOnly(content, NodeType::Text))
        return only && !only.nextSibling() && !content.text().trimmed().isEmpty()
                   ? only
                   : document.createTextNode(content.text());
    if (kind == QLatin1String("IXMLDOMCDATASection") && only &&
        holdsOnly(content, NodeType::CDATASection))
        return document.createCDATASection(content.text());
    return only && !only.nextSibling() && TypeName(only) == kind ? only : Node();
}

} // namespace

Namespaces namespacesAt(const Node &node) {
    Namespaces scope;
    for (Node at = node; at.nodeType() == NodeType::Element; at = at.parentNode()) {
        for (int i = 0, count = at.attributes().length(); i < count; ++i) {
            const Node attribute = at.attributes().item(i);
            if (const auto prefix = declaredPrefix(attribute.nodeName()))
                scope.emplace(*prefix, attribute.nodeValue());
        }
    }
    // The nearest declaration has the say, also one that ends the default namespace.
    std::erase_if(scope, [](const auto &entry) { return entry.second.isEmpty(); });
    return scope;
}

DepartingNode::DepartingNode(const Node &node, const Node &place)
    : node_(node), scope_(namespacesAt(place)),
      declarations_(entityDeclarationsOf(node.ownerDocument())) {}

QByteArray DepartingNode::text() const {
    QByteArray markup = node_.xml();
    if (node_.nodeType() == NodeType::Element)
        markup.insert(1 + node_.nodeName().toUtf8().size(),
                      declarationMarkup(borrowed(node_, markup, scope_)));
    return markup;
}

QByteArray DepartingNode::markupToCarry() const {
    return isCarried(node_.nodeType()) ? node_.xml() : QByteArray();
}

QByteArray DepartingNode::packed() const {
    const QByteArray markup = markupToCarry();
    return (markup.contains('&') ? declarations_ : QByteArray()) + envelope(markup);
}

QByteArray DepartingNode::envelope(const QByteArray &markup) const {
    const NodeType kind = node_.nodeType();
    QByteArray packed = QStringLiteral("<%1 %2=\"%3\" %4=\"%5\">")
                            .arg(RootName, VersionName, Version, KindName, TypeName(node_))
                            .toLatin1();
    packed += declarations(scope_).xml();
    if (kind == NodeType::Attribute)
        packed += "<content " + markup + "/>";
    else if (kind == NodeType::Text)
        packed += "<content xml:space=\"preserve\">" + markup + "</content>";
    else
        packed += "<content>" + markup + "</content>";
    return packed + "</" + RootName.data() + '>';
}

QByteArray DepartingNodes::text() const {
    QByteArrayList texts;
    for (const DepartingNode &node : nodes_)
        texts.append(node.text());
    return texts.join('\n');
}

QByteArray DepartingNodes::packed() const {
    if (nodes_.size() == 1)
        return nodes_.front().packed();
    QByteArray declarations;
    QByteArray list;
    for (const DepartingNode &node : nodes_) {
        const QByteArray markup = node.markupToCarry();
        if (markup.contains('&'))
            declarations = node.declarations_;
        list += node.envelope(markup);
    }
    const QByteArray name(ListName.data(), ListName.size());
    return declarations + '<' + name + ' ' + VersionName.data() + "=\"" + Version.data() + "\">" +
           list + "</" + name + '>';
}

void leaveOutDeclared(const Node &element, const Namespaces &place) {
    for (const Node &attribute : element.attributes().all()) {
        const auto prefix = declaredPrefix(attribute.nodeName());
        if (!prefix || !attribute.specified())
            continue;
        const auto here = place.find(*prefix);
        const bool isSame = here != place.end() ? here->second == attribute.nodeValue()
                                                : attribute.nodeName() == Declaration &&
                                                      attribute.nodeValue().isEmpty();
        if (isSame)
            element.removeAttribute(attribute.nodeName());
    }
}

void declareAnew(const Node &element, const Namespaces &before, const Namespaces &place) {
    Namespaces wanted = before;
    // An element outside all namespaces must not be drawn into one.
    wanted.emplace(QString(), QString());
    for (const auto &[prefix, uri] : borrowed(element, element.xml(), wanted)) {
        const auto here = place.find(prefix);
        if (uri != (here == place.end() ? QString() : here->second))
            element.setAttribute(declarationOf(prefix), uri);
    }
}

void ArrivedNode::adaptTo(const Namespaces &place) const {
    if (node.nodeType() != NodeType::Element)
        return;
    leaveOutDeclared(node, place);
    declareAnew(node, scope, place);
}

namespace {

/// What a packed node is; nothing for what packed() cannot have written.
std::optional<ArrivedNode> arrivedNode(const Node &root) {
    if (root.nodeName() != RootName || root.getAttribute(VersionName) != Version)
        return std::nullopt;
    const Node scope = root.firstChild();
    const Node content = scope.nextSibling();
    const auto namespaces = scopeOf(scope);
    if (scope.nodeName() != ScopeName || !namespaces || content.nodeName() != ContentName ||
        content.nextSibling())
        return std::nullopt;
    const QString kind = root.getAttribute(KindName).value_or(QString());
    if (kind == QLatin1String("IXMLDOMProcessingInstruction") ||
        kind == QLatin1String("IXMLDOMDocumentType"))
        return ArrivedNode{Node(), *namespaces};
    const Node node = contentOf(content, kind);
    return node ? std::optional(ArrivedNode{node, *namespaces}) : std::nullopt;
}

/// The root element of what is packed. Raises as unpackedNodes() does.
Node unpackedRoot(const QByteArray &packed, const DOMDocument40 &target) {
    DOMDocument40 parsed = DOMDocument40::create();
    parsed.loadXML(packed);
    const Node root = parsed.documentElement();
    const bool isOurs = root.nodeName() == RootName || root.nodeName() == ListName;
    return isOurs && !entityDeclarationsOf(parsed).isEmpty() ? readAmong(target, root) : root;
}

} // namespace

std::vector<ArrivedNode> unpackedNodes(const QByteArray &packed, const DOMDocument40 &target) {
    const Node root = unpackedRoot(packed, target);
    if (root.nodeName() == RootName) {
        const auto node = arrivedNode(root);
        return node ? std::vector{*node} : std::vector<ArrivedNode>();
    }
    std::vector<ArrivedNode> nodes;
    if (root.nodeName() != ListName || root.getAttribute(VersionName) != Version)
        return nodes;
    for (Node child = root.firstChild(); child; child = child.nextSibling()) {
        const auto node = arrivedNode(child);
        if (!node)
            return {};
        nodes.push_back(*node);
    }
    return nodes;
}

} // namespace quillon::tree
