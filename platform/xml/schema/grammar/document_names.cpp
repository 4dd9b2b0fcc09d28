#include "platform/xml/schema/grammar/document_names.h"

#include "platform/xml/dom/qualified_name.h"

#include <QHash>

namespace quillon::grammar {

using xml::Node;
using xml::NodeType;

namespace {

bool isDeclaration(const QString &attribute) {
    return attribute == QLatin1String("xmlns") || attribute.startsWith(QLatin1String("xmlns:"));
}

bool declaresNamespaces(const Node &element) {
    for (const Node &attribute : element.attributes().all()) {
        if (isDeclaration(attribute.nodeName()))
            return true;
    }
    return false;
}

/// The value of an attribute of the namespace of xsi:type; null when there is none.
QString instanceAttribute(const Node &element, QLatin1String localName) {
    for (const Node &attribute : element.attributes().all()) {
        const QString name = attribute.nodeName();
        if (xml::localNameOf(name) == localName && name.contains(u':') &&
            xml::namespaceAt(element, xml::prefixOf(name)) == InstanceNamespace)
            return attribute.nodeValue().trimmed();
    }
    return {};
}

/// The type that an element chooses for itself; `declared` when it chooses none that it may.
Index chosenType(const Grammar &grammar, const Node &element, Index declared) {
    if (declared == None || grammar.data().language != Language::Xsd)
        return declared;
    const QString value = instanceAttribute(element, QLatin1String("type"));
    if (value.isNull())
        return declared;
    const Index type = grammar.namedType(
        grammar.symbol(xml::namespaceAt(element, xml::prefixOf(value)), xml::localNameOf(value)));
    return type != None && grammar.isDerived(type, declared) ? type : declared;
}

} // namespace

Symbol symbolOf(const Grammar &grammar, const Node &element) {
    const QString name = element.nodeName();
    if (grammar.data().language == Language::Dtd)
        return grammar.symbol({}, name);
    return grammar.symbol(xml::namespaceAt(element, xml::prefixOf(name)), xml::localNameOf(name));
}

KnownElement knownElement(const Grammar &grammar, const KnownElement *parent, const Node &element,
                          const Symbol &name) {
    KnownElement known;
    if (parent && parent->type != None)
        known.element = grammar.childElement(parent->type, name);
    // Below what is not known, what is declared on its own may be meant again.
    if (known.element == None)
        known.element = grammar.globalElement(name);
    known.type = chosenType(grammar, element,
                            known.element == None ? None : grammar.element(known.element).type);
    return known;
}

KnownElement knownElement(const Grammar &grammar, const Node &element) {
    std::vector<Node> path;
    for (Node at = element; at.nodeType() == NodeType::Element; at = at.parentNode())
        path.push_back(at);
    KnownElement known;
    for (auto at = path.rbegin(); at != path.rend(); ++at)
        known = knownElement(grammar, at == path.rbegin() ? nullptr : &known, *at,
                             symbolOf(grammar, *at));
    return known;
}

bool isNil(const Grammar &grammar, const KnownElement &known, const Node &element) {
    if (known.element == None || grammar.element(known.element).isNillable == 0)
        return false;
    const QString value = instanceAttribute(element, QLatin1String("nil"));
    return value == QLatin1String("true") || value == QLatin1String("1");
}

NamedChildren namedChildren(const Grammar &grammar, const Node &parent) {
    NamedChildren children;
    QHash<QString, Symbol> known;
    for (Node child = parent.firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() != NodeType::Element)
            continue;
        children.nodes.push_back(child);
        if (declaresNamespaces(child)) {
            children.names.push_back(symbolOf(grammar, child));
            continue;
        }
        // Equal names mean the same here.
        const QString name = child.nodeName();
        const auto same = known.constFind(name);
        const Symbol symbol = same == known.constEnd() ? symbolOf(grammar, child) : same.value();
        if (same == known.constEnd())
            known.insert(name, symbol);
        children.names.push_back(symbol);
    }
    return children;
}

NamedAttributes namedAttributes(const Grammar &grammar, const Node &element) {
    NamedAttributes attributes;
    const bool isDtd = grammar.data().language == Language::Dtd;
    for (const Node &attribute : element.attributes().all()) {
        const QString name = attribute.nodeName();
        const QString prefix = xml::prefixOf(name);
        const QString space = prefix.isEmpty() ? QString() : xml::namespaceAt(element, prefix);
        if (!isDtd && (isDeclaration(name) || space == InstanceNamespace))
            continue;
        attributes.nodes.push_back(attribute);
        attributes.names.push_back(isDtd ? grammar.symbol({}, name)
                                         : grammar.symbol(space, xml::localNameOf(name)));
    }
    return attributes;
}

} // namespace quillon::grammar
