#include "platform/xml/schema/relaxng/relaxng_faults.h"

#include "platform/xml/schema/grammar/attribute_choices.h"
#include "platform/xml/schema/grammar/document_names.h"
#include "resources/validation_texts.h"

#include <algorithm>
#include <iterator>

namespace quillon::xml {

namespace texts = resources::validation_texts;
using grammar::Content;
using grammar::ContentFault;
using grammar::None;
using grammar::Symbol;
using grammar::ValueFit;

namespace {

/// So many elements of one name are compared at a place.
constexpr std::size_t MaxReadings = 8;
/// No more than these are named.
constexpr qsizetype MaxNames = 20;
/// Longer values are cut.
constexpr qsizetype LongestValue = 80;

QString shortened(const QString &value) {
    return value.size() <= LongestValue ? value : value.left(LongestValue) + u'…';
}

bool isBlank(const QString &text) {
    return std::ranges::all_of(
        text, [](QChar c) { return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r'; });
}

/// An element has text of its own that is more than white space.
bool hasText(const Node &element) {
    for (Node child = element.firstChild(); child; child = child.nextSibling()) {
        const NodeType kind = child.nodeType();
        if ((kind == NodeType::Text || kind == NodeType::CDATASection ||
             kind == NodeType::EntityReference) &&
            !isBlank(child.text()))
            return true;
    }
    return false;
}

} // namespace

QStringList RelaxNgFaults::namesOf(const std::vector<Index> &elements) const {
    QStringList names;
    for (const Index element : elements) {
        const QString name = grammar_.text(grammar_.element(element).name.local).toString();
        if (names.contains(name))
            continue;
        if (names.size() == MaxNames) {
            names.append(QStringLiteral("..."));
            break;
        }
        names.append(name);
    }
    return names;
}

std::vector<grammar::Index> RelaxNgFaults::rootElements(const Node &root) const {
    const Symbol name = symbolOf(grammar_, root);
    std::vector<Index> elements;
    for (const Index element : grammar_.globalElements()) {
        if (grammar_.matches(grammar_.element(element), name))
            elements.push_back(element);
    }
    return elements;
}

std::vector<SchemaError> RelaxNgFaults::find(const DOMDocument40 &document) {
    const Node root = document.documentElement();
    std::vector<Pending> pending{{root, rootElements(root)}};
    if (pending.front().elements.empty())
        return {{schema_error::InvalidContent,
                 withExpected(texts::UnexpectedRoot.toString().arg(root.nodeName()),
                              namesOf(grammar_.globalElements())),
                 root}};
    std::vector<SchemaError> errors;
    while (!pending.empty() && errors.size() <= MaxSchemaErrors) {
        const Pending at = std::move(pending.back());
        pending.pop_back();
        Reading best = read(at.node, at.elements.front());
        const std::size_t readings = std::min(at.elements.size(), MaxReadings);
        for (std::size_t i = 1; i < readings && !best.faults.empty(); ++i) {
            if (Reading other = read(at.node, at.elements[i]);
                other.faults.size() < best.faults.size())
                best = std::move(other);
        }
        std::ranges::move(best.faults, std::back_inserter(errors));
        std::ranges::move(best.children, std::back_inserter(pending));
    }
    errors.resize(std::min(errors.size(), MaxSchemaErrors + 1));
    return errors;
}

RelaxNgFaults::Reading RelaxNgFaults::read(const Node &node, Index element) {
    Reading reading;
    const Index type = grammar_.element(element).type;
    if (type == None)
        return reading;
    readAttributes(node, type, reading);
    readContent(node, grammar_.type(type), type, reading);
    return reading;
}

void RelaxNgFaults::readContent(const Node &node, const grammar::Type &type, Index typeIndex,
                                Reading &to) {
    const grammar::NamedChildren children = namedChildren(grammar_, node);
    readText(node, type, !children.nodes.empty(), to);
    const grammar::ContentRun run = matcher_.run(typeIndex, children.names);
    for (const ContentFault &found : run.faults())
        to.faults.push_back(fault(found, node, children.nodes));
    for (std::size_t i = children.nodes.size(); i-- > 0;) {
        std::vector<Index> elements = run.elementsAt(i);
        // One in a wrong place is what it would be in the right one.
        if (elements.empty()) {
            if (const Index known = grammar_.childElement(typeIndex, children.names[i]);
                known != None)
                elements.push_back(known);
        }
        if (!elements.empty())
            to.children.push_back({children.nodes[i], std::move(elements)});
    }
}

void RelaxNgFaults::readText(const Node &node, const grammar::Type &type, bool hasChildren,
                             Reading &to) {
    if (type.content == Content::Mixed || type.content == Content::Any)
        return;
    if (type.content != Content::Text) {
        if (hasText(node))
            to.faults.push_back({schema_error::TextNotAllowed,
                                 texts::TextNotAllowed.toString().arg(node.nodeName()), node});
        return;
    }
    if (hasChildren)
        return;
    const QString text = node.text();
    if (const grammar::ValueVerdict verdict = values_.check(type.text, text);
        verdict.fit == ValueFit::DoesNotFit)
        to.faults.push_back(
            {schema_error::InvalidDatatype,
             texts::InvalidElementValue.toString().arg(node.nodeName(), shortened(text)) +
                 verdict.reason,
             node});
}

SchemaError RelaxNgFaults::fault(const ContentFault &found, const Node &parent,
                                 const std::vector<Node> &children) const {
    const QStringList expected = namesOf(found.expected);
    const bool isAtEnd = found.child >= children.size();
    if (found.kind != ContentFault::Kind::Missing)
        return {schema_error::InvalidContent,
                withExpected(texts::UnexpectedElement.toString().arg(
                                 parent.nodeName(), children[found.child].nodeName()),
                             expected),
                children[found.child]};
    if (!isAtEnd)
        return {schema_error::IncompleteContent,
                withExpected(texts::MissingAhead.toString().arg(parent.nodeName(),
                                                                children[found.child].nodeName()),
                             expected),
                children[found.child]};
    if (children.empty())
        return {schema_error::EmptyElement,
                withExpected(texts::EmptyElement.toString().arg(parent.nodeName()), expected),
                parent};
    return {schema_error::IncompleteContent,
            withExpected(texts::IncompleteContent.toString().arg(parent.nodeName()), expected),
            parent};
}

void RelaxNgFaults::readAttributes(const Node &node, Index type, Reading &to) {
    const grammar::NamedAttributes present = namedAttributes(grammar_, node);
    const grammar::AttributeChoices choices = attributeChoices(grammar_, type, present.names);
    const auto report = [&](qint32 code, const QString &reason, const QString &name) {
        SchemaError &error = to.faults.emplace_back();
        error.errorCode = code;
        error.reason = reason;
        error.node = node;
        error.attribute = name;
    };
    const QString element = node.nodeName();
    for (const grammar::AttributeChoice &choice : choices.attributes) {
        if (choice.isMissing()) {
            const QString name = grammar_.text(choice.attribute->name.local).toString();
            report(schema_error::MissingAttribute,
                   texts::MissingAttribute.toString().arg(name, element), name);
        } else if (choice.present >= 0) {
            const Node attribute = present.nodes[static_cast<std::size_t>(choice.present)];
            const QString value = attribute.nodeValue();
            if (const grammar::ValueVerdict verdict = values_.check(*choice.attribute, value);
                verdict.fit == ValueFit::DoesNotFit)
                report(schema_error::InvalidAttribute,
                       texts::InvalidAttributeValue.toString().arg(element, attribute.nodeName(),
                                                                   shortened(value)) +
                           verdict.reason,
                       attribute.nodeName());
        }
    }
    for (const int place : choices.unexpected) {
        const QString name = present.nodes[static_cast<std::size_t>(place)].nodeName();
        report(schema_error::UndefinedAttribute,
               texts::UndefinedAttribute.toString().arg(name, element), name);
    }
}

} // namespace quillon::xml
