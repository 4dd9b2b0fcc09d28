#include "platform/xml/schema/schema_fault.h"

#include "platform/xml/engine/libxml_handles.h"
#include "platform/xml/engine/libxml_message.h"
#include "resources/schema_fault_texts.h"

#include <QRegularExpression>

namespace quillon::xml {

namespace texts = resources::schema_fault_texts;
namespace xml_texts = resources::xml_texts;

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
    const QString sentence = translated(said.mid(match.capturedLength()), texts::Translations)
                                 .value_or(texts::Other.toString().arg(error.code));
    const QString element = describe(static_cast<const xmlNode *>(error.node));
    const QString attribute = match.captured(1);
    if (element.isEmpty())
        return sentence;
    return attribute.isEmpty() ? texts::AtElement.toString().arg(element, sentence)
                               : texts::AtAttribute.toString().arg(element, sentence, attribute);
}

QString syntaxFault(const xmlError &error) {
    switch (error.code) {
    case XML_ERR_DOCUMENT_EMPTY:
        return xml_texts::NoElement.toString();
    case XML_ERR_DOCUMENT_END:
        return xml_texts::UnexpectedEnd.toString();
    case XML_ERR_INVALID_CHAR:
        return xml_texts::InvalidToken.toString();
    case XML_ERR_INVALID_HEX_CHARREF:
    case XML_ERR_INVALID_DEC_CHARREF:
    case XML_ERR_INVALID_CHARREF:
    case XML_ERR_ENTITYREF_NO_NAME:
    case XML_ERR_ENTITYREF_SEMICOL_MISSING:
    case XML_ERR_PEREF_NO_NAME:
    case XML_ERR_PEREF_SEMICOL_MISSING:
        return texts::BadReference.toString();
    case XML_ERR_UNDECLARED_ENTITY:
    case XML_WAR_UNDECLARED_ENTITY:
        return resources::validation_texts::UndefinedEntity.toString().arg(given(error.str1));
    case XML_ERR_UNKNOWN_ENCODING:
    case XML_ERR_UNSUPPORTED_ENCODING:
    case XML_ERR_INVALID_ENCODING:
    case XML_ERR_ENCODING_NAME:
        return texts::UnknownEncoding.toString();
    case XML_ERR_STRING_NOT_CLOSED:
    case XML_ERR_LITERAL_NOT_FINISHED:
    case XML_ERR_ENTITY_NOT_FINISHED:
        return texts::UnclosedLiteral.toString();
    case XML_ERR_LT_IN_ATTRIBUTE:
    case XML_ERR_ATTRIBUTE_NOT_STARTED:
    case XML_ERR_ATTRIBUTE_NOT_FINISHED:
    case XML_ERR_ATTRIBUTE_WITHOUT_VALUE:
        return texts::BadAttribute.toString();
    case XML_ERR_ATTRIBUTE_REDEFINED:
        return xml_texts::DuplicateAttribute.toString();
    case XML_ERR_CDATA_NOT_FINISHED:
        return xml_texts::UnclosedCData.toString();
    case XML_ERR_COMMENT_NOT_FINISHED:
    case XML_ERR_PI_NOT_FINISHED:
    case XML_ERR_TAG_NOT_FINISHED:
    case XML_ERR_GT_REQUIRED:
        return xml_texts::UnclosedToken.toString();
    case XML_ERR_TAG_NAME_MISMATCH:
        return xml_texts::MismatchedTag.toString();
    case XML_ERR_EXTRA_CONTENT:
        return xml_texts::JunkAfterRoot.toString();
    case XML_ERR_ENTITY_LOOP:
        return xml_texts::EntityLoop.toString();
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
        return texts::BadDeclarationSyntax.toString();
    default:
        return xml_texts::OtherSyntaxError.toString();
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
        return texts::DuplicateInMixed.toString().arg(first, second);
    case XML_DTD_CONTENT_NOT_DETERMINIST:
        return texts::AmbiguousContent.toString().arg(first);
    case XML_DTD_ELEM_REDEFINED:
        return texts::DuplicateElement.toString().arg(first);
    case XML_DTD_ID_FIXED:
        return texts::IdWithDefault.toString().arg(second, first);
    case XML_DTD_ID_SUBSET:
    case XML_DTD_MULTIPLE_ID:
        return texts::SeveralIds.toString().arg(first);
    case XML_DTD_ATTRIBUTE_VALUE:
        return texts::DefaultNotInSet.toString().arg(given(error.str3), second, first);
    case XML_DTD_ATTRIBUTE_DEFAULT:
        return texts::BadDefault.toString().arg(first, second);
    case XML_DTD_INVALID_DEFAULT:
        return texts::BadDefault.toString().arg(second, first);
    case XML_DTD_DUP_TOKEN:
        return texts::DuplicateToken.toString().arg(first);
    case XML_DTD_EMPTY_NOTATION:
        return texts::NotationOfEmpty.toString().arg(second, first);
    case XML_DTD_NOTATION_REDEFINED:
        return texts::DuplicateNotation.toString().arg(first);
    case XML_DTD_UNKNOWN_NOTATION:
        return texts::UndeclaredNotation.toString().arg(second.isEmpty() ? first : second);
    default:
        return texts::Other.toString().arg(error.code);
    }
}

} // namespace quillon::xml
