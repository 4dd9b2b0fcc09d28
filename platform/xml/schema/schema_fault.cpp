#include "platform/xml/schema/schema_fault.h"

#include "platform/xml/engine/libxml_handles.h"
#include "platform/xml/engine/libxml_message.h"
#include "resources/schema_fault_texts.h"

#include <QRegularExpression>

namespace quillon::xml {

namespace fault = resources::schema_fault;
namespace xml_text = resources::xml_text;

namespace {

QString given(const char *utf8) {
    return QString::fromUtf8(utf8);
}

QString attributeOf(const xmlNode &node, const char *name) {
    return QString::fromUtf8(taken(xmlGetNoNsProp(&node, utf8(name))));
}

/// An element of a schema as its author knows it: with the name that it declares or refers to.
QString describe(const xmlNode *node) {
    if (!node || node->type != XML_ELEMENT_NODE)
        return {};
    const QString tag = QStringLiteral("xs:") + QString::fromUtf8(bytes(node->name));
    QString name = attributeOf(*node, "name");
    if (name.isEmpty())
        name = attributeOf(*node, "ref");
    return name.isEmpty() ? tag : QStringLiteral("%1 '%2'").arg(tag, name);
}

QString xsdFault(const xmlError &error) {
    static const QRegularExpression namespaceOfName(QStringLiteral("'\\{[^}']*\\}"));
    static const QRegularExpression head(
        QStringLiteral("^(?:Element|element decl\\.|attribute decl\\.|attribute use|complex type|"
                       "simple type|local \\w+ type|facet|key|keyRef|unique|model group|particle|"
                       "notation)(?: [^:]*?)?(?:, attribute '([^']*)')?: "));
    const QString said =
        given(error.message).trimmed().replace(namespaceOfName, QStringLiteral("'"));
    const QRegularExpressionMatch match = head.match(said);
    const QString sentence = translated(said.mid(match.capturedLength()), fault::Translations)
                                 .value_or(fault::Other.toString().arg(error.code));
    const QString element = describe(static_cast<const xmlNode *>(error.node));
    const QString attribute = match.captured(1);
    if (element.isEmpty())
        return sentence;
    return attribute.isEmpty() ? fault::AtElement.toString().arg(element, sentence)
                               : fault::AtAttribute.toString().arg(element, sentence, attribute);
}

QString syntaxFault(const xmlError &error) {
    switch (error.code) {
    case XML_ERR_DOCUMENT_EMPTY:
        return xml_text::NoElement;
    case XML_ERR_DOCUMENT_END:
        return xml_text::UnexpectedEnd;
    case XML_ERR_INVALID_CHAR:
        return xml_text::InvalidToken;
    case XML_ERR_INVALID_HEX_CHARREF:
    case XML_ERR_INVALID_DEC_CHARREF:
    case XML_ERR_INVALID_CHARREF:
    case XML_ERR_ENTITYREF_NO_NAME:
    case XML_ERR_ENTITYREF_SEMICOL_MISSING:
    case XML_ERR_PEREF_NO_NAME:
    case XML_ERR_PEREF_SEMICOL_MISSING:
        return fault::BadReference;
    case XML_ERR_UNDECLARED_ENTITY:
    case XML_WAR_UNDECLARED_ENTITY:
        return resources::validation_text::UndefinedEntity.arg(given(error.str1));
    case XML_ERR_UNKNOWN_ENCODING:
    case XML_ERR_UNSUPPORTED_ENCODING:
    case XML_ERR_INVALID_ENCODING:
    case XML_ERR_ENCODING_NAME:
        return fault::UnknownEncoding;
    case XML_ERR_STRING_NOT_CLOSED:
    case XML_ERR_LITERAL_NOT_FINISHED:
    case XML_ERR_ENTITY_NOT_FINISHED:
        return fault::UnclosedLiteral;
    case XML_ERR_LT_IN_ATTRIBUTE:
    case XML_ERR_ATTRIBUTE_NOT_STARTED:
    case XML_ERR_ATTRIBUTE_NOT_FINISHED:
    case XML_ERR_ATTRIBUTE_WITHOUT_VALUE:
        return fault::BadAttribute;
    case XML_ERR_ATTRIBUTE_REDEFINED:
        return xml_text::DuplicateAttribute;
    case XML_ERR_CDATA_NOT_FINISHED:
        return xml_text::UnclosedCData;
    case XML_ERR_COMMENT_NOT_FINISHED:
    case XML_ERR_PI_NOT_FINISHED:
    case XML_ERR_TAG_NOT_FINISHED:
    case XML_ERR_GT_REQUIRED:
        return xml_text::UnclosedToken;
    case XML_ERR_TAG_NAME_MISMATCH:
        return xml_text::MismatchedTag;
    case XML_ERR_EXTRA_CONTENT:
        return xml_text::JunkAfterRoot;
    case XML_ERR_ENTITY_LOOP:
        return xml_text::EntityLoop;
    case XML_ERR_ATTLIST_NOT_STARTED:
    case XML_ERR_ATTLIST_NOT_FINISHED:
    case XML_ERR_MIXED_NOT_STARTED:
    case XML_ERR_MIXED_NOT_FINISHED:
    case XML_ERR_ELEMCONTENT_NOT_STARTED:
    case XML_ERR_ELEMCONTENT_NOT_FINISHED:
    case XML_ERR_CONDSEC_INVALID:
    case XML_ERR_CONDSEC_INVALID_KEYWORD:
    case XML_ERR_CONDSEC_NOT_FINISHED:
    case XML_ERR_EXT_SUBSET_NOT_FINISHED:
    case XML_ERR_DOCTYPE_NOT_FINISHED:
    case XML_ERR_SPACE_REQUIRED:
    case XML_ERR_NAME_REQUIRED:
    case XML_ERR_NMTOKEN_REQUIRED:
    case XML_ERR_URI_REQUIRED:
    case XML_ERR_PUBID_REQUIRED:
        return fault::BadDeclarationSyntax;
    default:
        return xml_text::OtherSyntaxError;
    }
}

} // namespace

QString schemaFault(const xmlError &error) {
    switch (error.domain) {
    case XML_FROM_SCHEMASP:
        return xsdFault(error);
    case XML_FROM_VALID:
    case XML_FROM_DTD:
        return dtdDeclarationFault(error);
    default:
        return syntaxFault(error);
    }
}

QString dtdDeclarationFault(const xmlError &error) {
    const QString first = given(error.str1);
    const QString second = given(error.str2);
    switch (error.code) {
    case XML_DTD_CONTENT_ERROR:
        return fault::DuplicateInMixed.arg(first, second);
    case XML_DTD_CONTENT_NOT_DETERMINIST:
        return fault::AmbiguousContent.arg(first);
    case XML_DTD_ELEM_REDEFINED:
        return fault::DuplicateElement.arg(first);
    case XML_DTD_ID_FIXED:
        return fault::IdWithDefault.arg(second, first);
    case XML_DTD_ID_SUBSET:
    case XML_DTD_MULTIPLE_ID:
        return fault::SeveralIds.arg(first);
    case XML_DTD_ATTRIBUTE_VALUE:
        return fault::DefaultNotInSet.arg(given(error.str3), second, first);
    case XML_DTD_ATTRIBUTE_DEFAULT:
        return fault::BadDefault.arg(first, second);
    case XML_DTD_INVALID_DEFAULT:
        return fault::BadDefault.arg(second, first);
    case XML_DTD_DUP_TOKEN:
        return fault::DuplicateToken.arg(first);
    case XML_DTD_EMPTY_NOTATION:
        return fault::NotationOfEmpty.arg(second, first);
    case XML_DTD_NOTATION_REDEFINED:
        return fault::DuplicateNotation.arg(first);
    case XML_DTD_UNKNOWN_NOTATION:
        return fault::UndeclaredNotation.arg(second.isEmpty() ? first : second);
    default:
        return fault::Other.toString().arg(error.code);
    }
}

} // namespace quillon::xml
