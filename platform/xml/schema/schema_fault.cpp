#include "platform/xml/schema/schema_fault.h"

#include "platform/xml/engine/libxml_handles.h"
#include "platform/xml/engine/libxml_message.h"
#include "resources/schema_fault_texts.h"

#include <QRegularExpression>

#include <algorithm>
#include <iterator>

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

/// What is said of faults of syntax in a schema or DTD.
struct SyntaxFault {
    int code;
    resources::Text text;
};

constexpr SyntaxFault SyntaxFaults[] = {
    {XML_ERR_DOCUMENT_EMPTY, xml_texts::NoElement},
    {XML_ERR_DOCUMENT_END, xml_texts::UnexpectedEnd},
    {XML_ERR_INVALID_CHAR, xml_texts::InvalidToken},
    {XML_ERR_INVALID_HEX_CHARREF, texts::BadReference},
    {XML_ERR_INVALID_DEC_CHARREF, texts::BadReference},
    {XML_ERR_INVALID_CHARREF, texts::BadReference},
    {XML_ERR_ENTITYREF_NO_NAME, texts::BadReference},
    {XML_ERR_ENTITYREF_SEMICOL_MISSING, texts::BadReference},
    {XML_ERR_PEREF_NO_NAME, texts::BadReference},
    {XML_ERR_PEREF_SEMICOL_MISSING, texts::BadReference},
    {XML_ERR_UNKNOWN_ENCODING, texts::UnknownEncoding},
    {XML_ERR_UNSUPPORTED_ENCODING, texts::UnknownEncoding},
    {XML_ERR_INVALID_ENCODING, texts::UnknownEncoding},
    {XML_ERR_ENCODING_NAME, texts::UnknownEncoding},
    {XML_ERR_STRING_NOT_CLOSED, texts::UnclosedLiteral},
    {XML_ERR_LITERAL_NOT_FINISHED, texts::UnclosedLiteral},
    {XML_ERR_ENTITY_NOT_FINISHED, texts::UnclosedLiteral},
    {XML_ERR_LT_IN_ATTRIBUTE, texts::BadAttribute},
    {XML_ERR_ATTRIBUTE_NOT_STARTED, texts::BadAttribute},
    {XML_ERR_ATTRIBUTE_NOT_FINISHED, texts::BadAttribute},
    {XML_ERR_ATTRIBUTE_WITHOUT_VALUE, texts::BadAttribute},
    {XML_ERR_ATTRIBUTE_REDEFINED, xml_texts::DuplicateAttribute},
    {XML_ERR_CDATA_NOT_FINISHED, xml_texts::UnclosedCData},
    {XML_ERR_COMMENT_NOT_FINISHED, xml_texts::UnclosedToken},
    {XML_ERR_PI_NOT_FINISHED, xml_texts::UnclosedToken},
    {XML_ERR_TAG_NOT_FINISHED, xml_texts::UnclosedToken},
    {XML_ERR_GT_REQUIRED, xml_texts::UnclosedToken},
    {XML_ERR_TAG_NAME_MISMATCH, xml_texts::MismatchedTag},
    {XML_ERR_EXTRA_CONTENT, xml_texts::JunkAfterRoot},
    {XML_ERR_ENTITY_LOOP, xml_texts::EntityLoop},
    {XML_ERR_ATTLIST_NOT_STARTED, texts::BadDeclarationSyntax},
    {XML_ERR_ATTLIST_NOT_FINISHED, texts::BadDeclarationSyntax},
    {XML_ERR_MIXED_NOT_STARTED, texts::BadDeclarationSyntax},
    {XML_ERR_MIXED_NOT_FINISHED, texts::BadDeclarationSyntax},
    {XML_ERR_ELEMCONTENT_NOT_STARTED, texts::BadDeclarationSyntax},
    {XML_ERR_ELEMCONTENT_NOT_FINISHED, texts::BadDeclarationSyntax},
    {XML_ERR_CONDSEC_INVALID, texts::BadDeclarationSyntax},
    {XML_ERR_CONDSEC_INVALID_KEYWORD, texts::BadDeclarationSyntax},
    {XML_ERR_CONDSEC_NOT_FINISHED, texts::BadDeclarationSyntax},
    {XML_ERR_EXT_SUBSET_NOT_FINISHED, texts::BadDeclarationSyntax},
    {XML_ERR_DOCTYPE_NOT_FINISHED, texts::BadDeclarationSyntax},
    {XML_ERR_SPACE_REQUIRED, texts::BadDeclarationSyntax},
    {XML_ERR_NAME_REQUIRED, texts::BadDeclarationSyntax},
    {XML_ERR_NMTOKEN_REQUIRED, texts::BadDeclarationSyntax},
    {XML_ERR_URI_REQUIRED, texts::BadDeclarationSyntax},
    {XML_ERR_PUBID_REQUIRED, texts::BadDeclarationSyntax},
};

QString syntaxFault(const xmlError &error) {
    if (error.code == XML_ERR_UNDECLARED_ENTITY || error.code == XML_WAR_UNDECLARED_ENTITY)
        return resources::validation_texts::UndefinedEntity.toString().arg(given(error.str1));
    const auto known = std::ranges::find(SyntaxFaults, error.code, &SyntaxFault::code);
    return (known == std::end(SyntaxFaults) ? xml_texts::OtherSyntaxError : known->text).toString();
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
