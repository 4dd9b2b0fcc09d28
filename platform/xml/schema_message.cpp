#include "platform/xml/schema_message.h"

#include "platform/xml/qualified_name.h"
#include "platform/xml/schema_error.h"
#include "resources/validation_texts.h"

#include <QRegularExpression>

#include <libxml/tree.h>

namespace quillon::xml {

namespace text = resources::validation_text;

namespace {

QString toString(const xmlChar *utf8) {
    return QString::fromUtf8(reinterpret_cast<const char *>(utf8));
}

/// The qualified name of the element that an error is about.
QString elementName(const xmlNode *node) {
    if (node && node->type == XML_ATTRIBUTE_NODE)
        node = node->parent;
    if (!node || node->type != XML_ELEMENT_NODE)
        return {};
    const QString name = toString(node->name);
    return node->ns && node->ns->prefix ? toString(node->ns->prefix) + u':' + name : name;
}

QString attributeValue(const xmlNode *node, const QString &name) {
    if (!node || node->type != XML_ELEMENT_NODE)
        return {};
    xmlChar *value =
        xmlGetProp(node, reinterpret_cast<const xmlChar *>(localNameOf(name).toUtf8().constData()));
    const QString result = toString(value);
    xmlFree(value);
    return result;
}

/// The part of a sentence that a pattern's group matches; empty when it does not match.
QString captured(const QString &sentence, const char *pattern) {
    return QRegularExpression(QLatin1String(pattern)).match(sentence).captured(1);
}

QString withExpected(const QString &reason, QString expected) {
    expected.replace(QLatin1String(" ,"), QLatin1String(","));
    return expected.isEmpty() ? reason : reason + u'\n' + text::Expecting.arg(expected);
}

/// What a report of the XML Schema validator is about.
struct XsdReport {
    explicit XsdReport(const xmlError &error) : sentence(libxmlSentence(error)) {
        static const QRegularExpression head(
            QStringLiteral("^Element '(?:\\{[^}]*\\})?([^']*)'"
                           "(?:, attribute '(?:\\{[^}]*\\})?([^']*)')?: "));
        const QRegularExpressionMatch match = head.match(sentence);
        const auto *node = static_cast<const xmlNode *>(error.node);
        element = elementName(node);
        if (element.isEmpty())
            element = match.captured(1);
        attribute = match.captured(2);
        body = sentence.mid(match.capturedLength());
        if (node && node->parent)
            parent =
                elementName(node->type == XML_ATTRIBUTE_NODE ? node->parent->parent : node->parent);
    }

    /// An invalid value, with what is wrong with it.
    SchemaMessage invalidValue(const QString &detail) const {
        QString value = captured(body, "[Vv]alue '([^']*)'");
        if (value.isEmpty())
            value = captured(body, "^'([^']*)'");
        const QString base = attribute.isEmpty()
                                 ? text::InvalidElementValue.arg(element, value)
                                 : text::InvalidAttributeValue.arg(element, attribute, value);
        const qint32 code =
            attribute.isEmpty() ? schema_error::InvalidDatatype : schema_error::InvalidAttribute;
        return {code, base + detail};
    }

    SchemaMessage invalidDatatype() const {
        const QString type = captured(body, "type '([^']*)'");
        if (!attribute.isEmpty() || type.isEmpty())
            return invalidValue({});
        return {schema_error::InvalidDatatype,
                text::InvalidDatatype.arg(captured(body, "^'([^']*)'"), type, element)};
    }

    SchemaMessage invalidContent() const {
        const QString expected = captured(body, "Expected is (?:one of )?\\( (.*) \\)");
        if (body.startsWith(QLatin1String("Missing child")))
            return {schema_error::IncompleteContent,
                    withExpected(text::IncompleteContent.arg(element), expected)};
        return {schema_error::InvalidContent,
                withExpected(text::UnexpectedElement.arg(parent, element), expected)};
    }

    QString sentence;
    QString element;
    /// Empty when the report is not about an attribute.
    QString attribute;
    /// The name of the element's parent.
    QString parent;
    /// The sentence without the names ahead of it.
    QString body;
};

QString facetDetail(int code) {
    switch (code) {
    case XML_SCHEMAV_CVC_LENGTH_VALID:
    case XML_SCHEMAV_CVC_MINLENGTH_VALID:
    case XML_SCHEMAV_CVC_MAXLENGTH_VALID:
        return text::FacetLength;
    case XML_SCHEMAV_CVC_MININCLUSIVE_VALID:
    case XML_SCHEMAV_CVC_MAXINCLUSIVE_VALID:
    case XML_SCHEMAV_CVC_MINEXCLUSIVE_VALID:
    case XML_SCHEMAV_CVC_MAXEXCLUSIVE_VALID:
        return text::FacetRange;
    case XML_SCHEMAV_CVC_TOTALDIGITS_VALID:
    case XML_SCHEMAV_CVC_FRACTIONDIGITS_VALID:
        return text::FacetDigits;
    case XML_SCHEMAV_CVC_PATTERN_VALID:
        return text::FacetPattern;
    case XML_SCHEMAV_CVC_ENUMERATION_VALID:
        return text::FacetEnumeration;
    default:
        return {};
    }
}

SchemaMessage dtdContentMessage(const QString &element, const QString &sentence) {
    const QString expected = captured(sentence, "expecting (.*), got");
    if (sentence.endsWith(QLatin1String("got")) || sentence.endsWith(QLatin1String("got ")))
        return {schema_error::EmptyElement,
                withExpected(text::EmptyElement.arg(element), expected)};
    return {schema_error::InvalidContent,
            withExpected(text::InvalidContent.arg(element), expected)};
}

} // namespace

QString libxmlSentence(const xmlError &error) {
    return QString::fromUtf8(error.message).trimmed();
}

SchemaMessage dtdMessage(const xmlError &error) {
    const auto *node = static_cast<const xmlNode *>(error.node);
    const QString sentence = libxmlSentence(error);
    const QString element = elementName(node);
    const QString attribute = captured(sentence, "attribute (\\S+)");
    if (sentence.contains(QLatin1String("must be \"")) ||
        sentence.contains(QLatin1String("different from default")))
        return {schema_error::FixedAttribute, text::FixedAttribute.arg(attribute, element)};
    switch (error.code) {
    case XML_DTD_UNKNOWN_ELEM:
        return {schema_error::UndeclaredElement, text::UndeclaredElement.arg(element)};
    case XML_DTD_ROOT_NAME:
        return {schema_error::WrongRoot, text::WrongRoot.arg(element)};
    case XML_DTD_CONTENT_MODEL:
        return dtdContentMessage(element, sentence);
    case XML_DTD_NOT_EMPTY:
    case XML_DTD_NOT_PCDATA:
        return {schema_error::InvalidContent, text::InvalidContent.arg(element)};
    case XML_DTD_INVALID_CHILD:
        return {schema_error::InvalidContent,
                text::UnexpectedElement.arg(element, captured(sentence, "^Element (\\S+)"))};
    case XML_DTD_UNKNOWN_ATTRIBUTE:
        return {schema_error::UndefinedAttribute, text::UndefinedAttribute.arg(attribute, element)};
    case XML_DTD_MISSING_ATTRIBUTE:
        return {schema_error::MissingAttribute, text::MissingAttribute.arg(attribute, element)};
    case XML_DTD_ATTRIBUTE_VALUE:
    case XML_DTD_NOTATION_VALUE:
    case XML_DTD_UNKNOWN_NOTATION:
    case XML_DTD_UNKNOWN_ENTITY:
    case XML_DTD_ENTITY_TYPE:
        return {schema_error::InvalidAttribute,
                text::InvalidAttribute.arg(attribute, element, attributeValue(node, attribute))};
    case XML_DTD_UNKNOWN_ID:
        return {schema_error::UndefinedId,
                text::UndefinedId.arg(attribute, captured(sentence, "\"([^\"]*)\""))};
    case XML_DTD_ID_REDEFINED:
        return {schema_error::InvalidAttribute,
                text::DuplicateId.arg(captured(sentence, "^ID (\\S+)"), element)};
    default:
        return {schema_error::InvalidContent, text::DtdViolation.arg(element, sentence)};
    }
}

SchemaMessage xsdMessage(const xmlError &error) {
    const XsdReport report(error);
    if (report.body.startsWith(QLatin1String("Warning:")))
        return {};
    switch (error.code) {
    case XML_SCHEMAV_CVC_ELT_1:
    case XML_SCHEMAV_CVC_WILDCARD:
        return {schema_error::UndeclaredElement, text::UndeclaredElement.arg(report.element)};
    case XML_SCHEMAV_CVC_ELT_2:
    case XML_SCHEMAV_CVC_TYPE_2:
        return {schema_error::InvalidContent, text::AbstractElement.arg(report.element)};
    case XML_SCHEMAV_CVC_ELT_3_1:
    case XML_SCHEMAV_CVC_ELT_3_2_1:
    case XML_SCHEMAV_CVC_ELT_3_2_2:
        return {schema_error::InvalidContent, text::InvalidNil.arg(report.element)};
    case XML_SCHEMAV_CVC_ELT_4_1:
    case XML_SCHEMAV_CVC_ELT_4_2:
    case XML_SCHEMAV_CVC_ELT_4_3:
        return {schema_error::InvalidAttribute, text::InvalidInstanceType.arg(report.element)};
    case XML_SCHEMAV_ELEMENT_CONTENT:
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_2_4:
        return report.invalidContent();
    case XML_SCHEMAV_CVC_TYPE_3_1_2:
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_2_2:
        return {schema_error::InvalidContent, text::InvalidContent.arg(report.element)};
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_2_1:
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_2_3:
        if (!report.body.startsWith(QLatin1String("Character")))
            return {schema_error::InvalidContent, text::InvalidContent.arg(report.element)};
        return {schema_error::TextNotAllowed, text::TextNotAllowed.arg(report.element)};
    case XML_SCHEMAV_CVC_TYPE_3_1_1:
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_1:
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_2:
        return {schema_error::UndefinedAttribute,
                text::UndefinedAttribute.arg(report.attribute, report.element)};
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_4:
        return {schema_error::MissingAttribute,
                text::MissingAttribute.arg(captured(report.body, "attribute '([^']*)'"),
                                           report.element)};
    case XML_SCHEMAV_CVC_AU:
    case XML_SCHEMAV_CVC_ATTRIBUTE_4:
        return {schema_error::FixedAttribute,
                text::FixedAttribute.arg(report.attribute, report.element)};
    case XML_SCHEMAV_CVC_ELT_5_2_2_2_1:
    case XML_SCHEMAV_CVC_ELT_5_2_2_2_2:
        return {schema_error::InvalidContent, text::FixedElement.arg(report.element)};
    case XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1:
    case XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_2:
    case XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_3:
        return report.invalidDatatype();
    case XML_SCHEMAV_CVC_IDC:
        return {schema_error::InvalidContent, text::IdentityConstraint.arg(report.element)};
    default:
        if (const QString detail = facetDetail(error.code); !detail.isEmpty())
            return report.invalidValue(detail);
        return {schema_error::InvalidContent,
                text::OtherSchemaViolation.arg(report.element, report.body)};
    }
}

} // namespace quillon::xml
