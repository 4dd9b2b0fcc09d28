#include "platform/xml/schema/schema_message.h"

#include "platform/xml/dom/qualified_name.h"
#include "platform/xml/engine/libxml_handles.h"
#include "platform/xml/schema/schema_error.h"
#include "platform/xml/schema/schema_fault.h"
#include "resources/validation_texts.h"

#include <QRegularExpression>

#include <libxml/tree.h>

namespace quillon::xml {

namespace texts = resources::validation_texts;

namespace {

/// The qualified name of the element that an error is about.
QString elementName(const xmlNode *node) {
    if (node && node->type == XML_ATTRIBUTE_NODE)
        node = node->parent;
    if (!node || node->type != XML_ELEMENT_NODE)
        return {};
    const QString name = QString::fromUtf8(bytes(node->name));
    return node->ns && node->ns->prefix ? QString::fromUtf8(bytes(node->ns->prefix)) + u':' + name
                                        : name;
}

/// Longer values are cut.
constexpr qsizetype LongestValue = 80;

QString shortened(const QString &value) {
    return value.size() <= LongestValue ? value : value.left(LongestValue) + u'…';
}

QString attributeValue(const xmlNode *node, const QString &name) {
    if (!node || node->type != XML_ELEMENT_NODE)
        return {};
    return shortened(QString::fromUtf8(taken(xmlGetProp(node, utf8(localNameOf(name).toUtf8())))));
}

QString contentOf(const xmlNode *node) {
    if (!node || node->type != XML_ELEMENT_NODE)
        return {};
    return shortened(QString::fromUtf8(taken(xmlNodeGetContent(node))));
}

/// The part of a sentence that a pattern's group matches; empty when it does not match.
QString captured(const QString &sentence, const char *pattern) {
    return QRegularExpression(QLatin1String(pattern)).match(sentence).captured(1);
}

QString withExpected(const QString &reason, QString expected) {
    expected.replace(QLatin1String(" ,"), QLatin1String(","));
    return expected.isEmpty() ? reason : reason + u'\n' + texts::Expecting.toString().arg(expected);
}

/// libxml2's own sentence, which is English.
QString libxmlSentence(const xmlError &error) {
    return QString::fromUtf8(error.message).trimmed();
}

/// What a report of the XML Schema validator is about.
struct XsdReport {
    explicit XsdReport(const xmlError &error) : sentence(libxmlSentence(error)) {
        static const QRegularExpression head(
            QStringLiteral("^Element '(?:\\{[^}]*\\})?([^']*)'"
                           "(?:, attribute '(?:\\{[^}]*\\})?([^']*)')?: "));
        const QRegularExpressionMatch match = head.match(sentence);
        node = static_cast<const xmlNode *>(error.node);
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
        return attribute.isEmpty()
                   ? SchemaMessage{schema_error::InvalidDatatype,
                                   texts::InvalidElementValue.toString().arg(element,
                                                                             contentOf(node)) +
                                       detail}
                   : SchemaMessage{schema_error::InvalidAttribute,
                                   texts::InvalidAttributeValue.toString().arg(
                                       element, attribute, attributeValue(node, attribute)) +
                                       detail};
    }

    SchemaMessage invalidDatatype() const {
        const QString type = captured(body, "type '([^']*)'");
        const QString value =
            attribute.isEmpty() ? contentOf(node) : attributeValue(node, attribute);
        // What may be an ID is none only where it stands for another element already.
        if (type == QLatin1String("xs:ID") && xmlValidateNCName(utf8(value.toUtf8()), 1) == 0)
            return {schema_error::InvalidAttribute,
                    texts::DuplicateId.toString().arg(value.trimmed(), element)};
        if (!attribute.isEmpty() || type.isEmpty())
            return invalidValue({});
        return {schema_error::InvalidDatatype,
                texts::InvalidDatatype.toString().arg(value, type, element)};
    }

    SchemaMessage violatedKey(const xmlError &error) const {
        const auto message = [](const QString &reason) {
            return SchemaMessage{schema_error::InvalidContent, reason};
        };
        const QString key = captured(body, "key-sequence (\\[.*\\])");
        const QString constraint = captured(body, "(?:constraint|keyref) '([^']*)'");
        if (body.startsWith(QLatin1String("No match")))
            return message(texts::UnmatchedKeyRef.toString().arg(element, key, constraint));
        if (body.startsWith(QLatin1String("Duplicate")))
            return message(texts::DuplicateKey.toString().arg(element, key, constraint));
        if (body.startsWith(QLatin1String("Not all")))
            return message(texts::IncompleteKey.toString().arg(element, constraint));
        return other(error);
    }

    SchemaMessage other(const xmlError &error) const {
        return {schema_error::InvalidContent,
                element.isEmpty()
                    ? texts::SchemaViolation.toString().arg(error.code)
                    : texts::OtherSchemaViolation.toString().arg(element).arg(error.code)};
    }

    /// Content where the type has none, or text among elements.
    SchemaMessage unwantedContent() const {
        if (body.startsWith(QLatin1String("Character")))
            return {schema_error::TextNotAllowed, texts::TextNotAllowed.toString().arg(element)};
        return {schema_error::InvalidContent, texts::InvalidContent.toString().arg(element)};
    }
    SchemaMessage invalidContent() const {
        const QString expected = captured(body, "Expected is (?:one of )?\\( (.*) \\)");
        if (body.startsWith(QLatin1String("Missing child")))
            return {schema_error::IncompleteContent,
                    withExpected(texts::IncompleteContent.toString().arg(element), expected)};
        return {schema_error::InvalidContent,
                withExpected(texts::UnexpectedElement.toString().arg(parent, element), expected)};
    }

    QString sentence;
    const xmlNode *node = nullptr;
    QString element;
    /// Empty when the report is not about an attribute.
    QString attribute;
    /// The name of the element's parent.
    QString parent;
    /// The sentence without the names ahead of it.
    QString body;
};

/// What a facet asks for; empty for an error about something else.
QString facetDetail(const xmlError &error) {
    const QString second = shortened(QString::fromUtf8(error.str2));
    const auto length = [&](const QString &text) {
        const QString sentence = libxmlSentence(error);
        return text.arg(captured(sentence, "length of '(\\d+)'\\.$"),
                        captured(sentence, "has a length of '(\\d+)'"));
    };
    switch (error.code) {
    case XML_SCHEMAV_CVC_LENGTH_VALID:
        return length(texts::FacetLength.toString());
    case XML_SCHEMAV_CVC_MINLENGTH_VALID:
        return length(texts::FacetMinLength.toString());
    case XML_SCHEMAV_CVC_MAXLENGTH_VALID:
        return length(texts::FacetMaxLength.toString());
    case XML_SCHEMAV_CVC_MININCLUSIVE_VALID:
        return texts::FacetMinInclusive.toString().arg(second);
    case XML_SCHEMAV_CVC_MAXINCLUSIVE_VALID:
        return texts::FacetMaxInclusive.toString().arg(second);
    case XML_SCHEMAV_CVC_MINEXCLUSIVE_VALID:
        return texts::FacetMinExclusive.toString().arg(second);
    case XML_SCHEMAV_CVC_MAXEXCLUSIVE_VALID:
        return texts::FacetMaxExclusive.toString().arg(second);
    case XML_SCHEMAV_CVC_TOTALDIGITS_VALID:
        return texts::FacetTotalDigits.toString().arg(second);
    case XML_SCHEMAV_CVC_FRACTIONDIGITS_VALID:
        return texts::FacetFractionDigits.toString().arg(second);
    case XML_SCHEMAV_CVC_PATTERN_VALID:
        return texts::FacetPattern.toString().arg(second);
    case XML_SCHEMAV_CVC_ENUMERATION_VALID:
        return texts::FacetEnumeration.toString().arg(second);
    default:
        return {};
    }
}

SchemaMessage dtdContentMessage(const QString &element, const QString &sentence) {
    const QString expected = captured(sentence, "expecting (.*), got");
    if (sentence.endsWith(QLatin1String("got")) || sentence.endsWith(QLatin1String("got ")))
        return {schema_error::EmptyElement,
                withExpected(texts::EmptyElement.toString().arg(element), expected)};
    return {schema_error::InvalidContent,
            withExpected(texts::InvalidContent.toString().arg(element), expected)};
}

} // namespace

SchemaMessage dtdMessage(const xmlError &error) {
    const auto *node = static_cast<const xmlNode *>(error.node);
    const QString sentence = libxmlSentence(error);
    const QString element = elementName(node);
    const QString attribute = captured(sentence, "attribute (\\S+)");
    if (sentence.contains(QLatin1String("must be \"")) ||
        sentence.contains(QLatin1String("different from default")))
        return {schema_error::FixedAttribute,
                texts::FixedAttribute.toString().arg(attribute, element)};
    switch (error.code) {
    case XML_DTD_UNKNOWN_ELEM:
        return {schema_error::UndeclaredElement, texts::UndeclaredElement.toString().arg(element)};
    case XML_DTD_ROOT_NAME:
        return {schema_error::WrongRoot, texts::WrongRoot.toString().arg(element)};
    case XML_DTD_CONTENT_MODEL:
        return dtdContentMessage(element, sentence);
    case XML_DTD_NOT_EMPTY:
    case XML_DTD_NOT_PCDATA:
        return {schema_error::InvalidContent, texts::InvalidContent.toString().arg(element)};
    case XML_DTD_INVALID_CHILD:
        return {schema_error::InvalidContent, texts::UnexpectedElement.toString().arg(
                                                  element, captured(sentence, "^Element (\\S+)"))};
    case XML_DTD_UNKNOWN_ATTRIBUTE:
        return {schema_error::UndefinedAttribute,
                texts::UndefinedAttribute.toString().arg(attribute, element)};
    case XML_DTD_MISSING_ATTRIBUTE:
        return {schema_error::MissingAttribute,
                texts::MissingAttribute.toString().arg(attribute, element)};
    case XML_DTD_UNKNOWN_ENTITY:
        return {schema_error::InvalidAttribute,
                texts::UndeclaredEntity.toString().arg(attribute, QString::fromUtf8(error.str2))};
    case XML_DTD_UNKNOWN_NOTATION:
    case XML_DTD_ATTRIBUTE_VALUE:
    case XML_DTD_NOTATION_VALUE:
    case XML_DTD_ENTITY_TYPE:
        if (element.isEmpty())
            return {schema_error::InvalidAttribute, dtdDeclarationFault(error)};
        return {schema_error::InvalidAttribute,
                texts::InvalidAttribute.toString().arg(attribute, element,
                                                       attributeValue(node, attribute))};
    case XML_DTD_UNKNOWN_ID:
        return {schema_error::UndefinedId,
                texts::UndefinedId.toString().arg(attribute, captured(sentence, "\"([^\"]*)\""))};
    case XML_DTD_ID_REDEFINED:
        return {schema_error::InvalidAttribute,
                texts::DuplicateId.toString().arg(captured(sentence, "^ID (\\S+)"), element)};
    default:
        return {schema_error::InvalidContent,
                element.isEmpty() ? dtdDeclarationFault(error)
                                  : texts::DtdViolation.toString().arg(element).arg(error.code)};
    }
}

SchemaMessage xsdMessage(const xmlError &error) {
    const XsdReport report(error);
    if (report.body.startsWith(QLatin1String("Warning:")))
        return {};
    switch (error.code) {
    case XML_SCHEMAV_CVC_ELT_1:
    case XML_SCHEMAV_CVC_WILDCARD:
        return {schema_error::UndeclaredElement,
                texts::UndeclaredElement.toString().arg(report.element)};
    case XML_SCHEMAV_CVC_ELT_2:
    case XML_SCHEMAV_CVC_TYPE_2:
        return {schema_error::InvalidContent,
                texts::AbstractElement.toString().arg(report.element)};
    case XML_SCHEMAV_CVC_ELT_3_1:
    case XML_SCHEMAV_CVC_ELT_3_2_1:
    case XML_SCHEMAV_CVC_ELT_3_2_2:
        return {schema_error::InvalidContent, texts::InvalidNil.toString().arg(report.element)};
    case XML_SCHEMAV_CVC_ELT_4_1:
    case XML_SCHEMAV_CVC_ELT_4_2:
    case XML_SCHEMAV_CVC_ELT_4_3:
        return {schema_error::InvalidAttribute,
                texts::InvalidInstanceType.toString().arg(report.element)};
    case XML_SCHEMAV_ELEMENT_CONTENT:
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_2_4:
        return report.invalidContent();
    case XML_SCHEMAV_CVC_TYPE_3_1_2:
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_2_2:
        return {schema_error::InvalidContent, texts::InvalidContent.toString().arg(report.element)};
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_2_1:
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_2_3:
        return report.unwantedContent();
    case XML_SCHEMAV_CVC_TYPE_3_1_1:
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_1:
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_2:
        return {schema_error::UndefinedAttribute,
                texts::UndefinedAttribute.toString().arg(report.attribute, report.element)};
    case XML_SCHEMAV_CVC_COMPLEX_TYPE_4:
        return {schema_error::MissingAttribute,
                texts::MissingAttribute.toString().arg(captured(report.body, "attribute '([^']*)'"),
                                                       report.element)};
    case XML_SCHEMAV_CVC_AU:
    case XML_SCHEMAV_CVC_ATTRIBUTE_4:
        return {schema_error::FixedAttribute,
                texts::FixedAttribute.toString().arg(report.attribute, report.element)};
    case XML_SCHEMAV_CVC_ELT_5_2_2_2_1:
    case XML_SCHEMAV_CVC_ELT_5_2_2_2_2:
        return {schema_error::InvalidContent, texts::FixedElement.toString().arg(report.element)};
    case XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1:
    case XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_2:
    case XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_3:
        return report.invalidDatatype();
    case XML_SCHEMAV_CVC_IDC:
        return report.violatedKey(error);
    default:
        if (const QString detail = facetDetail(error); !detail.isEmpty())
            return report.invalidValue(detail);
        return report.other(error);
    }
}

} // namespace quillon::xml
