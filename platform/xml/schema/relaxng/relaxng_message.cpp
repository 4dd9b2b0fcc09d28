#include "platform/xml/schema/relaxng/relaxng_message.h"

#include "platform/xml/engine/libxml_handles.h"
#include "platform/xml/schema/schema_error.h"
#include "platform/xml/schema/schema_fault.h"
#include "resources/relaxng_texts.h"
#include "resources/validation_texts.h"

#include <algorithm>
#include <iterator>
#include <libxml/relaxng.h>

namespace quillon::xml {

namespace texts = resources::relaxng_texts;
namespace document_texts = resources::validation_texts;

namespace {

struct Fault {
    int code;
    resources::Text text;
};

constexpr Fault Faults[] = {
    {XML_RNGP_REF_NO_DEF, texts::UndefinedReference},
    {XML_RNGP_DEFINE_MISSING, texts::UndefinedReference},
    {XML_RNGP_PARENTREF_NO_PARENT, texts::UndefinedReference},
    {XML_RNGP_REF_CYCLE, texts::CyclicReference},
    {XML_RNGP_INCLUDE_RECURSE, texts::CyclicInclude},
    {XML_RNGP_EXTERNALREF_RECURSE, texts::CyclicInclude},
    {XML_RNGP_INCLUDE_FAILURE, texts::MissingFile},
    {XML_RNGP_EXTERNAL_REF_FAILURE, texts::MissingFile},
    {XML_RNGP_PARSE_ERROR, texts::MissingFile},
    {XML_RNGP_MISSING_HREF, texts::MissingAddress},
    {XML_RNGP_EXTERNALREF_EMTPY, texts::MissingAddress},
    {XML_RNGP_HREF_ERROR, texts::BadAddress},
    {XML_RNGP_INVALID_URI, texts::BadAddress},
    {XML_RNGP_URI_FRAGMENT, texts::BadAddress},
    {XML_RNGP_URI_NOT_ABSOLUTE, texts::BadAddress},
    {XML_RNGP_GRAMMAR_NO_START, texts::MissingStart},
    {XML_RNGP_START_MISSING, texts::MissingStart},
    {XML_RNGP_START_EMPTY, texts::MissingStart},
    {XML_RNGP_START_CONTENT, texts::MissingStart},
    {XML_RNGP_DEFINE_NAME_MISSING, texts::MissingName},
    {XML_RNGP_INVALID_DEFINE_NAME, texts::MissingName},
    {XML_RNGP_ELEMENT_NAME, texts::MissingName},
    {XML_RNGP_NAME_MISSING, texts::MissingName},
    {XML_RNGP_REF_NO_NAME, texts::MissingName},
    {XML_RNGP_REF_NAME_INVALID, texts::MissingName},
    {XML_RNGP_PARENTREF_NO_NAME, texts::MissingName},
    {XML_RNGP_PARENTREF_NAME_INVALID, texts::MissingName},
    {XML_RNGP_PARAM_NAME_MISSING, texts::MissingName},
    {XML_RNGP_PREFIX_UNDEFINED, texts::MissingName},
    {XML_RNGP_XMLNS_NAME, texts::MissingName},
    {XML_RNGP_XML_NS, texts::MissingName},
    {XML_RNGP_ATTRIBUTE_EMPTY, texts::MissingContent},
    {XML_RNGP_CHOICE_EMPTY, texts::MissingContent},
    {XML_RNGP_DEFINE_EMPTY, texts::MissingContent},
    {XML_RNGP_ELEMENT_EMPTY, texts::MissingContent},
    {XML_RNGP_ELEMENT_NO_CONTENT, texts::MissingContent},
    {XML_RNGP_EMPTY_CONSTRUCT, texts::MissingContent},
    {XML_RNGP_EMPTY, texts::MissingContent},
    {XML_RNGP_EXCEPT_EMPTY, texts::MissingContent},
    {XML_RNGP_GRAMMAR_EMPTY, texts::MissingContent},
    {XML_RNGP_INTERLEAVE_NO_CONTENT, texts::MissingContent},
    {XML_RNGP_ATTRIBUTE_CHILDREN, texts::BadContent},
    {XML_RNGP_ATTRIBUTE_CONTENT, texts::BadContent},
    {XML_RNGP_ELEMENT_CONTENT, texts::BadContent},
    {XML_RNGP_GRAMMAR_CONTENT, texts::BadContent},
    {XML_RNGP_EMPTY_NOT_EMPTY, texts::BadContent},
    {XML_RNGP_NOTALLOWED_NOT_EMPTY, texts::BadContent},
    {XML_RNGP_REF_NOT_EMPTY, texts::BadContent},
    {XML_RNGP_TEXT_HAS_CHILD, texts::BadContent},
    {XML_RNGP_NEED_COMBINE, texts::NeedsCombine},
    {XML_RNGP_DEF_CHOICE_AND_INTERLEAVE, texts::BadCombine},
    {XML_RNGP_START_CHOICE_AND_INTERLEAVE, texts::BadCombine},
    {XML_RNGP_UNKNOWN_COMBINE, texts::BadCombine},
    {XML_RNGP_ATTR_CONFLICT, texts::Conflict},
    {XML_RNGP_GROUP_ATTR_CONFLICT, texts::Conflict},
    {XML_RNGP_ELEM_TEXT_CONFLICT, texts::Conflict},
    {XML_RNGP_ERROR_TYPE_LIB, texts::UnknownType},
    {XML_RNGP_TYPE_MISSING, texts::UnknownType},
    {XML_RNGP_TYPE_NOT_FOUND, texts::UnknownType},
    {XML_RNGP_UNKNOWN_TYPE_LIB, texts::UnknownType},
    {XML_RNGP_TYPE_VALUE, texts::BadValue},
    {XML_RNGP_INVALID_VALUE, texts::BadValue},
    {XML_RNGP_FORBIDDEN_ATTRIBUTE, texts::UnknownElement},
    {XML_RNGP_FOREIGN_ELEMENT, texts::UnknownElement},
    {XML_RNGP_UNKNOWN_ATTRIBUTE, texts::UnknownElement},
    {XML_RNGP_UNKNOWN_CONSTRUCT, texts::UnknownElement},
};

QString nameOf(const xmlNode &element) {
    return QString::fromUtf8(bytes(element.name));
}

/// An element of a schema as its author knows it: with what it is called or refers to.
QString described(const xmlNode *node) {
    while (node && node->type != XML_ELEMENT_NODE)
        node = node->type == XML_ATTRIBUTE_NODE || node->type == XML_TEXT_NODE ? node->parent
                                                                               : nullptr;
    if (!node)
        return QStringLiteral("grammar");
    for (const char *attribute : {"name", "href", "type"}) {
        if (const QByteArray value = taken(xmlGetNoNsProp(node, utf8(attribute))); !value.isEmpty())
            return QStringLiteral("%1 '%2'").arg(nameOf(*node), QString::fromUtf8(value));
    }
    // What the attribute says has been put into an element by then.
    if (const xmlNode *name = node->children; name && view(name->name) == "name")
        return QStringLiteral("%1 '%2'").arg(
            nameOf(*node), QString::fromUtf8(taken(xmlNodeGetContent(name))).trimmed());
    return nameOf(*node);
}

/// The qualified name of the element that a report is about; empty when unknown.
QString elementOf(const xmlError &error) {
    const auto *node = static_cast<const xmlNode *>(error.node);
    while (node && node->type != XML_ELEMENT_NODE)
        node = node->type == XML_ATTRIBUTE_NODE || node->type == XML_TEXT_NODE ? node->parent
                                                                               : nullptr;
    if (!node)
        return {};
    return node->ns && node->ns->prefix
               ? QString::fromUtf8(bytes(node->ns->prefix)) + u':' + nameOf(*node)
               : nameOf(*node);
}

} // namespace

QString relaxNgSchemaFault(const xmlError &error) {
    if (error.domain != XML_FROM_RELAXNGP)
        return schemaFault(error);
    const QString element = described(static_cast<const xmlNode *>(error.node));
    const auto known = std::ranges::find(Faults, error.code, &Fault::code);
    return known != std::end(Faults)
               ? known->text.toString().arg(element)
               : texts::Other.toString().arg(element, QString::number(error.code));
}

SchemaMessage relaxNgMessage(const xmlError &error) {
    const QString element = elementOf(error);
    if (element.isEmpty())
        return {schema_error::InvalidContent,
                document_texts::SchemaViolation.toString().arg(error.code)};
    switch (error.code) {
    case XML_RELAXNG_ERR_INVALIDATTR:
        return {schema_error::UndefinedAttribute, document_texts::UndefinedAttribute.toString().arg(
                                                      QString::fromUtf8(error.str1), element)};
    case XML_RELAXNG_ERR_TEXTWRONG:
        return {schema_error::TextNotAllowed,
                document_texts::TextNotAllowed.toString().arg(element)};
    case XML_RELAXNG_ERR_NOELEM:
        return {schema_error::IncompleteContent,
                document_texts::IncompleteContent.toString().arg(element)};
    case XML_RELAXNG_ERR_ELEMNAME:
    case XML_RELAXNG_ERR_ELEMWRONG:
    case XML_RELAXNG_ERR_EXTRACONTENT:
    case XML_RELAXNG_ERR_CONTENTVALID:
    case XML_RELAXNG_ERR_INTEREXTRA:
    case XML_RELAXNG_ERR_INTERSEQ:
        return {schema_error::InvalidContent,
                document_texts::InvalidContent.toString().arg(element)};
    default:
        return {schema_error::InvalidContent, document_texts::OtherSchemaViolation.toString().arg(
                                                  element, QString::number(error.code))};
    }
}

} // namespace quillon::xml
