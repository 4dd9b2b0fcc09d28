#include "validation/element_faults.h"

#include "platform/xml/schema/grammar/attribute_choices.h"
#include "resources/live_texts.h"
#include "resources/validation_texts.h"

#include <algorithm>
#include <array>

namespace quillon::validation {

namespace texts = resources::validation_texts;
namespace live_texts = resources::live_texts;
using grammar::Content;
using grammar::ContentFault;
using grammar::Grammar;
using grammar::Index;
using grammar::KnownElement;
using grammar::NamedChildren;
using grammar::None;
using xml::Node;
using xml::NodeType;

namespace {

/// More names than these make no sentence.
constexpr std::size_t MostNames = 8;

QString expectedNames(const Grammar &grammar, const std::vector<Index> &expected) {
    QStringList names;
    for (const Index element : expected) {
        const QString name = grammar.text(grammar.element(element).name.local).toString();
        if (!names.contains(name))
            names.append(name);
    }
    const auto more = names.size() - qsizetype(MostNames);
    const QString list = names.mid(0, qsizetype(MostNames)).join(QStringLiteral(", "));
    return more > 0 ? live_texts::AndMore.toString().arg(list).arg(more) : list;
}

QString withExpected(const QString &sentence, const Grammar &grammar,
                     const std::vector<Index> &expected) {
    if (expected.empty())
        return sentence;
    return live_texts::TwoSentences.toString().arg(
        sentence, texts::Expecting.toString().arg(expectedNames(grammar, expected)));
}

Fault faultAt(FaultKind kind, const Node &element, const Node &node, const QString &sentence) {
    return {.kind = kind,
            .isOfGrammar = true,
            .element = element.number(),
            .node = node.number(),
            .sentence = sentence};
}

QString inForm(QString value, grammar::WhiteSpace whiteSpace) {
    return whiteSpace == grammar::WhiteSpace::Collapse ? value.simplified() : value;
}

} // namespace

/// What is wrong with one element: with its tag and its end, and with each of its children.
struct ElementFaults::Found {
    NamedChildren children;
    std::vector<Fault> own;
    /// Ascending by the 0-based place of the child that each of them is seen at.
    std::vector<std::pair<std::size_t, Fault>> ofChildren;
};

bool isExact(grammar::Language language) {
    return language == grammar::Language::Dtd || language == grammar::Language::Xsd;
}

QStringList valuesOf(const Grammar &grammar, Index simpleType) {
    // Values that are not texts may be written in several ways, as 1 and 01.
    static constexpr std::array Textual{
        u"string", u"normalizedString", u"token", u"NMTOKEN", u"Name", u"NCName"};
    if (simpleType == None)
        return {};
    const grammar::SimpleType &type = grammar.data().simpleTypes[simpleType];
    const QStringView builtIn = grammar.text(type.builtIn);
    const bool isTextual = std::ranges::any_of(Textual, [&](auto name) { return builtIn == name; });
    QStringList values;
    if (type.variety != grammar::Variety::Atomic || !isTextual)
        return values;
    for (Index i = 0; i < type.enumeration.count; ++i)
        values +=
            grammar.text(grammar.data().enumerations[type.enumeration.first + i].text).toString();
    return values;
}

bool isOneOf(const QStringList &values, const Grammar &grammar, Index simpleType,
             const QString &value) {
    return values.contains(inForm(value, grammar.data().simpleTypes[simpleType].whiteSpace));
}

std::vector<Node> textIn(const Node &element) {
    std::vector<Node> found;
    for (Node child = element.firstChild(); child; child = child.nextSibling()) {
        const NodeType kind = child.nodeType();
        const bool isText = kind == NodeType::Text && !child.nodeValue().trimmed().isEmpty();
        if (isText || kind == NodeType::CDATASection || kind == NodeType::EntityReference)
            found.push_back(child);
    }
    return found;
}

std::vector<Fault> ElementFaults::of(const Node &element, const KnownElement &known) {
    Found found = find(element, known);
    for (auto &[child, fault] : found.ofChildren)
        found.own.push_back(std::move(fault));
    return std::move(found.own);
}

ElementFaults::Found ElementFaults::find(const Node &element, const KnownElement &known) {
    Found found;
    found.children = grammar::namedChildren(grammar_, element);
    if (known.type == None) {
        const bool isRoot = element.parentNode().nodeType() == NodeType::Document;
        if (isRoot && known.element == None)
            found.own.push_back(
                faultAt(FaultKind::Content, element, element,
                        texts::UndeclaredElement.toString().arg(element.nodeName())));
        return found;
    }
    findInTag(element, known, found);
    if (!grammar::isNil(grammar_, known, element)) {
        findInText(element, known, found);
        findInChildren(element, known, found);
    }
    return found;
}

void ElementFaults::findInTag(const Node &element, const KnownElement &known, Found &found) {
    const grammar::NamedAttributes present = grammar::namedAttributes(grammar_, element);
    const grammar::AttributeChoices choices =
        grammar::attributeChoices(grammar_, known.type, present.names);
    const QString name = element.nodeName();
    for (const grammar::AttributeChoice &choice : choices.attributes) {
        if (choice.isMissing()) {
            const QString missing = grammar_.text(choice.attribute->name.local).toString();
            found.own.push_back(faultAt(FaultKind::Attributes, element, element,
                                        texts::MissingAttribute.toString().arg(missing, name)));
        }
        const QStringList values =
            choice.present < 0 ? QStringList() : valuesOf(grammar_, choice.attribute->type);
        if (values.isEmpty())
            continue;
        const Node &attribute = present.nodes[std::size_t(choice.present)];
        const QString value = attribute.nodeValue();
        if (!isOneOf(values, grammar_, choice.attribute->type, value))
            found.own.push_back(
                faultAt(FaultKind::Value, element, attribute,
                        texts::InvalidAttribute.toString().arg(attribute.nodeName(), name, value)));
    }
    for (const int at : choices.unexpected) {
        const Node &attribute = present.nodes[std::size_t(at)];
        found.own.push_back(
            faultAt(FaultKind::Attributes, element, attribute,
                    texts::UndefinedAttribute.toString().arg(attribute.nodeName(), name)));
    }
}

void ElementFaults::findInText(const Node &element, const KnownElement &known, Found &found) {
    const grammar::Type &type = grammar_.type(known.type);
    if (type.content == Content::Mixed || type.content == Content::Any)
        return;
    const std::vector<Node> text = textIn(element);
    if (type.content != Content::Text) {
        if (!text.empty())
            found.own.push_back(faultAt(FaultKind::Content, element, text.front(),
                                        texts::TextNotAllowed.toString().arg(element.nodeName())));
        return;
    }
    const QStringList values = valuesOf(grammar_, type.text);
    // The default of an element stands for no text at all.
    if (values.isEmpty() || (text.empty() && !element.firstChild()))
        return;
    const QString value = element.text();
    if (!isOneOf(values, grammar_, type.text, value))
        found.own.push_back(
            faultAt(FaultKind::Value, element, element,
                    texts::InvalidElementValue.toString().arg(element.nodeName(), value)));
}

void ElementFaults::findInChildren(const Node &element, const KnownElement &known, Found &found) {
    const std::vector<Node> &nodes = found.children.nodes;
    const grammar::ContentRun run = matcher_.run(known.type, found.children.names);
    const QString name = element.nodeName();
    for (const ContentFault &fault : run.faults()) {
        const bool isAtEnd = fault.child >= nodes.size();
        QString sentence;
        if (fault.kind != ContentFault::Kind::Missing)
            sentence = live_texts::NotHere.toString().arg(nodes[fault.child].nodeName(), name);
        else if (!isAtEnd)
            sentence = live_texts::MissingAhead.toString().arg(nodes[fault.child].nodeName(), name);
        else
            sentence = texts::IncompleteContent.toString().arg(name);
        sentence = withExpected(sentence, grammar_, fault.expected);
        if (isAtEnd)
            found.own.push_back(faultAt(FaultKind::Content, element, element, sentence));
        else
            found.ofChildren.emplace_back(
                fault.child, faultAt(FaultKind::Content, element, nodes[fault.child], sentence));
    }
}

std::vector<Fault> ElementFaults::in(const xml::DOMDocument40 &document) {
    /// An element that is looked at, and how far among its children.
    struct Open {
        KnownElement known;
        Found found;
        std::size_t next = 0;
        std::size_t nextFault = 0;
    };
    std::vector<Fault> faults;
    std::vector<Open> open;
    const auto enter = [&](const Node &element, const KnownElement *parent,
                           const grammar::Symbol &name) {
        Open entered;
        entered.known = grammar::knownElement(grammar_, parent, element, name);
        entered.found = find(element, entered.known);
        std::ranges::move(entered.found.own, std::back_inserter(faults));
        open.push_back(std::move(entered));
    };
    if (const Node root = document.documentElement())
        enter(root, nullptr, grammar::symbolOf(grammar_, root));
    while (!open.empty() && faults.size() <= MostFaults) {
        Open &at = open.back();
        if (at.next == at.found.children.nodes.size()) {
            open.pop_back();
            continue;
        }
        const std::size_t child = at.next++;
        auto &ofChildren = at.found.ofChildren;
        for (; at.nextFault < ofChildren.size() && ofChildren[at.nextFault].first == child;
             ++at.nextFault)
            faults.push_back(std::move(ofChildren[at.nextFault].second));
        const KnownElement known = at.known;
        const Node node = at.found.children.nodes[child];
        enter(node, &known, at.found.children.names[child]);
    }
    if (faults.size() > MostFaults)
        faults.resize(MostFaults + 1);
    return faults;
}

} // namespace quillon::validation
