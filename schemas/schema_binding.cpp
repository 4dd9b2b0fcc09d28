#include "schemas/schema_binding.h"

#include "platform/runtime/error.h"
#include "platform/xml/dom/qualified_name.h"
#include "platform/xml/engine/document_type.h"
#include "resources/schema_link_texts.h"
#include "schemas/document_references.h"

#include <QStringList>

#include <utility>

namespace quillon::schemas {

using xml::DOMDocument40;
using xml::Node;
using xml::NodeType;
namespace texts = resources::schema_link_texts;

namespace {

const QString InstanceNamespace = QStringLiteral("http://www.w3.org/2001/XMLSchema-instance");
const QString XdrPrefix = QStringLiteral("x-schema:");
const QString ModelTarget = QStringLiteral("xml-model");

[[noreturn]] void refuse(QStringView reason) {
    throw runtime::Error(runtime::error_number::Fail, reason.toString());
}

QString quoted(const QString &text) {
    const QChar mark = text.contains(u'"') ? u'\'' : u'"';
    return mark + text + mark;
}

QString escaped(const QString &text) {
    return text.toHtmlEscaped();
}

/// The prefix that stands for xsi at an element; null when none does.
QString instancePrefix(const Node &element) {
    for (const Node &attribute : element.attributes().all()) {
        const QString name = attribute.nodeName();
        if (xml::prefixOf(name) == QLatin1String("xmlns") &&
            attribute.nodeValue() == InstanceNamespace)
            return xml::localNameOf(name);
    }
    return {};
}

QString freePrefix(const Node &element) {
    const QString base = QStringLiteral("xsi");
    QString prefix = base;
    for (int number = 1; element.getAttribute(QStringLiteral("xmlns:") + prefix); ++number)
        prefix = base + QString::number(number);
    return prefix;
}

/// The declaration that names an external DTD and keeps what is declared within.
QString documentTypeMarkup(const DOMDocument40 &document, const QString &location) {
    const DocumentTypeParts parts = documentTypeParts(xml::documentTypeOf(document));
    QString markup =
        QStringLiteral("<!DOCTYPE %1 SYSTEM ").arg(document.documentElement().nodeName()) +
        quoted(location);
    if (!parts.internalSubset.isEmpty())
        markup += QStringLiteral(" [") + QString::fromUtf8(parts.internalSubset) + u']';
    return markup + u'>';
}

QString languageNamespace(SchemaKind kind) {
    switch (kind) {
    case SchemaKind::Xsd:
        return QStringLiteral("http://www.w3.org/2001/XMLSchema");
    case SchemaKind::RelaxNg:
        return QStringLiteral("http://relaxng.org/ns/structure/1.0");
    case SchemaKind::Schematron:
        return QStringLiteral("http://purl.oclc.org/dsdl/schematron");
    default:
        return {};
    }
}

QString modelData(const BindableSchema &schema) {
    const QString href = QStringLiteral("href=\"%1\"").arg(escaped(schema.location));
    if (schema.kind == SchemaKind::Dtd)
        return href + QStringLiteral(" type=\"application/xml-dtd\"");
    return href + QStringLiteral(" type=\"application/xml\" schematypens=\"%1\"")
                      .arg(languageNamespace(schema.kind));
}

/// The pairs of an attribute, with that of one namespace changed or added.
QString pairsWith(const QString &value, const BindableSchema &schema) {
    QStringList words = value.simplified().split(u' ', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i + 1 < words.size(); i += 2) {
        if (words[i] == schema.targetNamespace) {
            words[i + 1] = schema.location;
            return words.join(u' ');
        }
    }
    return (words << schema.targetNamespace << schema.location).join(u' ');
}

void bindByDocumentType(const DOMDocument40 &document, const QString &location) {
    DOMDocument40 parsed = DOMDocument40::create();
    const QString root = document.documentElement().nodeName();
    if (!parsed.loadXML(documentTypeMarkup(document, location) + u'<' + root +
                        QStringLiteral("/>")))
        refuse(texts::CannotBeWritten);
    Node made;
    for (Node at = parsed.node().firstChild(); at; at = at.nextSibling()) {
        if (at.nodeType() == NodeType::DocumentType)
            made = at;
    }
    for (Node at = document.node().firstChild(); at; at = at.nextSibling()) {
        if (at.nodeType() == NodeType::DocumentType) {
            document.node().replaceChild(made, at);
            return;
        }
    }
    document.node().insertBefore(made, document.documentElement());
}

void bindByAttribute(const Node &root, const QString &localName, const BindableSchema &schema) {
    QString prefix = instancePrefix(root);
    if (prefix.isEmpty()) {
        prefix = freePrefix(root);
        root.setAttribute(QStringLiteral("xmlns:") + prefix, InstanceNamespace);
    }
    const QString name = prefix + u':' + localName;
    root.setAttribute(name, schema.targetNamespace.isEmpty()
                                ? schema.location
                                : pairsWith(root.getAttribute(name).value_or(QString()), schema));
}

void bindByInstruction(const DOMDocument40 &document, const BindableSchema &schema) {
    const Node root = document.documentElement();
    Node before = root;
    for (Node at = document.node().firstChild(); at && at != root; at = at.nextSibling()) {
        if (at.nodeType() == NodeType::DocumentType && before == root)
            before = at;
        if (at.nodeType() != NodeType::ProcessingInstruction || at.nodeName() != ModelTarget)
            continue;
        if (pseudoAttribute(at.nodeValue(), QStringLiteral("schematypens")) ==
            languageNamespace(schema.kind)) {
            at.setNodeValue(modelData(schema));
            return;
        }
    }
    document.node().insertBefore(
        document.createProcessingInstruction(ModelTarget, modelData(schema)), before);
}

void bindByXdrNamespace(const Node &root, const QString &location) {
    const QString present = root.getAttribute(QStringLiteral("xmlns")).value_or(QString());
    if (!xml::prefixOf(root.nodeName()).isEmpty() ||
        !(present.isEmpty() || present.startsWith(XdrPrefix)))
        refuse(texts::HasOtherNamespace);
    root.setAttribute(QStringLiteral("xmlns"), XdrPrefix + location);
}

} // namespace

std::vector<BindingForm> formsFor(const BindableSchema &schema) {
    using enum BindingForm;
    switch (schema.kind) {
    case SchemaKind::Dtd:
        return {DocumentType, ModelInstruction};
    case SchemaKind::Xsd:
        return {schema.targetNamespace.isEmpty() ? NoNamespaceSchemaLocation : SchemaLocation,
                ModelInstruction};
    case SchemaKind::Xdr:
        return {XdrNamespace};
    case SchemaKind::RelaxNg:
    case SchemaKind::Schematron:
        return {ModelInstruction};
    case SchemaKind::Unknown:
        break;
    }
    return {};
}

QString preview(const DOMDocument40 &document, BindingForm form, const BindableSchema &schema) {
    switch (form) {
    case BindingForm::DocumentType:
        return QStringLiteral("<!DOCTYPE %1 SYSTEM %2>")
            .arg(document.documentElement().nodeName(), quoted(schema.location));
    case BindingForm::SchemaLocation:
        return QStringLiteral("xsi:schemaLocation=\"%1 %2\"")
            .arg(escaped(schema.targetNamespace), escaped(schema.location));
    case BindingForm::NoNamespaceSchemaLocation:
        return QStringLiteral("xsi:noNamespaceSchemaLocation=\"%1\"").arg(escaped(schema.location));
    case BindingForm::ModelInstruction:
        return QStringLiteral("<?%1 %2?>").arg(ModelTarget, modelData(schema));
    case BindingForm::XdrNamespace:
        return QStringLiteral("xmlns=\"%1%2\"").arg(XdrPrefix, escaped(schema.location));
    }
    return {};
}

void bindSchema(const DOMDocument40 &document, BindingForm form, const BindableSchema &schema) {
    const Node root = document.documentElement();
    if (!root)
        refuse(texts::NoRootToBind);
    switch (form) {
    case BindingForm::DocumentType:
        return bindByDocumentType(document, schema.location);
    case BindingForm::SchemaLocation:
        return bindByAttribute(root, QStringLiteral("schemaLocation"), schema);
    case BindingForm::NoNamespaceSchemaLocation:
        return bindByAttribute(root, QStringLiteral("noNamespaceSchemaLocation"), schema);
    case BindingForm::ModelInstruction:
        return bindByInstruction(document, schema);
    case BindingForm::XdrNamespace:
        return bindByXdrNamespace(root, schema.location);
    }
}

} // namespace quillon::schemas
