#include "platform/xml/schema/grammar/xsd_components.h"

#include "platform/xml/dom/qualified_name.h"
#include "platform/xml/schema/grammar/node_lines.h"
#include "platform/xml/schema/schema_error.h"
#include "resources/validation_texts.h"

#include <QFileInfo>

namespace quillon::grammar {

using xml::Node;
namespace texts = resources::validation_texts;

namespace {

const QString XlinkNamespace = QStringLiteral("http://www.w3.org/1999/xlink");

/// What the program brings along for namespaces that nearly every schema imports from far away.
QString broughtAlong(const QString &namespaceName) {
    if (namespaceName == XmlNamespace)
        return QStringLiteral(":/schemas/xml.xsd");
    return namespaceName == XlinkNamespace ? QStringLiteral(":/schemas/xlink.xsd") : QString();
}

QString value(const Node &node, const char *attribute) {
    return node.getAttribute(QString::fromLatin1(attribute)).value_or(QString()).trimmed();
}

std::optional<ComponentKind> componentKind(const QString &kind) {
    if (kind == QLatin1String("element"))
        return ComponentKind::Element;
    if (kind == QLatin1String("attribute"))
        return ComponentKind::Attribute;
    if (kind == QLatin1String("complexType") || kind == QLatin1String("simpleType"))
        return ComponentKind::Type;
    if (kind == QLatin1String("group"))
        return ComponentKind::Group;
    if (kind == QLatin1String("attributeGroup"))
        return ComponentKind::AttributeGroup;
    return {};
}

} // namespace

QString XsdComponents::kindOf(const Node &node) const {
    if (node.nodeType() != xml::NodeType::Element)
        return {};
    const QString name = node.nodeName();
    return xml::namespaceAt(node, xml::prefixOf(name)) == SchemaNamespace ? xml::localNameOf(name)
                                                                          : QString();
}

int XsdComponents::find(ComponentKind kind, const ExpandedName &name) const {
    return places_.value(key(kind, name), -1);
}

ExpandedName XsdComponents::expanded(const Node &at, const QString &qualifiedName,
                                     int document) const {
    const QString name = qualifiedName.trimmed();
    QString space = xml::namespaceAt(at, xml::prefixOf(name));
    const XsdDocument &file = documents_[static_cast<std::size_t>(document)];
    if (space.isEmpty() && file.isChameleon)
        space = file.targetNamespace;
    return {space, xml::localNameOf(name)};
}

void XsdComponents::load(const QStringList &paths) {
    for (const QString &path : paths) {
        const QString canonical = QFileInfo(path).canonicalFilePath();
        if (readDocument(canonical.isEmpty() ? path : canonical, {}, false) < 0)
            xml::raiseSchemaError(QFileInfo(path).fileName(), 0, texts::SchemaNotFound.toString());
    }
    // The list grows while it is read. Without recursion: files may include each other in a row.
    for (int document = 0; document < static_cast<int>(documents_.size()); ++document)
        readTop(document);
    // What is redefined twice is so by the outer file last.
    for (auto at = redefinitions_.rbegin(); at != redefinitions_.rend(); ++at)
        redefine(at->first, at->second);
}

int XsdComponents::readDocument(const QString &path, const QString &includingNamespace,
                                bool isInclude) {
    const std::optional<QByteArray> text = files_.read(path);
    if (!text)
        return -1;
    xml::DOMDocument40 parsed = xml::DOMDocument40::create();
    const QString name = QFileInfo(path).fileName();
    if (!parsed.loadXML(*text))
        xml::raiseSchemaError(name, parsed.parseError().line, parsed.parseError().reason);
    XsdDocument document;
    document.path = path;
    document.root = parsed.documentElement();
    if (kindOf(document.root) != QLatin1String("schema"))
        xml::raiseSchemaError(name, 0, texts::NotAnXsd.toString());
    document.targetNamespace = value(document.root, "targetNamespace");
    if (isInclude && document.targetNamespace.isEmpty()) {
        document.targetNamespace = includingNamespace;
        document.isChameleon = !includingNamespace.isEmpty();
    }
    const QString qualified = QStringLiteral("qualified");
    document.qualifiesElements = value(document.root, "elementFormDefault") == qualified;
    document.qualifiesAttributes = value(document.root, "attributeFormDefault") == qualified;
    document.lines = linesOfElements(parsed);
    builder_.data.files.push_back(builder_.string(path));
    read_.insert(path + u'\n' + document.targetNamespace);
    documents_.push_back(document);
    return static_cast<int>(documents_.size()) - 1;
}

void XsdComponents::readTop(int document) {
    const Node root = documents_[static_cast<std::size_t>(document)].root;
    forEachPart(root, [&](const Node &child, const QString &kind) {
        if (const std::optional<ComponentKind> component = componentKind(kind))
            add(*component, child, document, false);
        else if (kind == QLatin1String("include") || kind == QLatin1String("import") ||
                 kind == QLatin1String("redefine"))
            readReference(child, kind, document);
    });
}

void XsdComponents::readReference(const Node &node, const QString &kind, int document) {
    const bool isImport = kind == QLatin1String("import");
    if (kind == QLatin1String("redefine"))
        redefinitions_.push_back({node, document});
    const QString location = value(node, "schemaLocation");
    const QString imported = isImport ? value(node, "namespace") : QString();
    const XsdDocument from = documents_[static_cast<std::size_t>(document)];
    QString path = files_.find(location, from.path, imported);
    if (path.isEmpty() && isImport)
        path = broughtAlong(imported);
    if (path.isEmpty()) {
        builder_.noteMissing(location.isEmpty() ? imported : location);
        return;
    }
    // A file without a namespace may be included under several.
    const QString own = isImport ? imported : from.targetNamespace;
    const QString request = path + u'\n' + own;
    if (read_.contains(request))
        return;
    // Whatever namespace it turns out to have: a file that names itself wrongly is read once, too.
    read_.insert(request);
    if (readDocument(path, from.targetNamespace, !isImport) < 0)
        builder_.noteMissing(location);
}

void XsdComponents::redefine(const Node &node, int document) {
    forEachPart(node, [&](const Node &child, const QString &kind) {
        if (const std::optional<ComponentKind> component = componentKind(kind))
            add(*component, child, document, true);
    });
}

void XsdComponents::add(ComponentKind kind, const Node &node, int document, bool redefines) {
    const QString &space = documents_[static_cast<std::size_t>(document)].targetNamespace;
    XsdComponent component{kind, {space, value(node, "name")}, node, document};
    const int known = find(kind, component.name);
    if (component.name.local.isEmpty() || (known >= 0 && !redefines))
        return;
    component.original = known;
    places_.insert(key(kind, component.name), static_cast<int>(components_.size()));
    components_.push_back(component);
}

} // namespace quillon::grammar
