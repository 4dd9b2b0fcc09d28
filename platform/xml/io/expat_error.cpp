#include "platform/xml/io/expat_error.h"

#include "platform/xml/io/expat_position.h"
#include "resources/xml_texts.h"

#include <algorithm>

namespace quillon::xml {

namespace texts = resources::xml_texts;
using parse_error_code::Base;

namespace {

struct Reason {
    XML_Error code;
    /// Of the error, counted from Base.
    std::uint8_t number;
    resources::Text text;
};

constexpr Reason Reasons[] = {
    {XML_ERROR_NO_ELEMENTS, 0x58, texts::NoElement},
    {XML_ERROR_INVALID_TOKEN, 0x08, texts::InvalidToken},
    {XML_ERROR_PARTIAL_CHAR, 0x14, texts::UnexpectedEnd},
    {XML_ERROR_UNCLOSED_TOKEN, 0x59, texts::UnclosedToken},
    {XML_ERROR_TAG_MISMATCH, 0x6D, texts::MismatchedTag},
    {XML_ERROR_DUPLICATE_ATTRIBUTE, parse_error_code::DuplicateAttribute - Base,
     texts::DuplicateAttribute},
    {XML_ERROR_JUNK_AFTER_DOC_ELEMENT, 0x55, texts::JunkAfterRoot},
    {XML_ERROR_NO_MEMORY, 0x01, texts::TooLongToken},
    {XML_ERROR_UNDEFINED_ENTITY, parse_error_code::UndefinedEntity - Base, texts::UndefinedEntity},
    {XML_ERROR_RECURSIVE_ENTITY_REF, 0x03, texts::EntityLoop},
    {XML_ERROR_AMPLIFICATION_LIMIT_BREACH, 0x03, texts::EntityLimit},
    {XML_ERROR_MISPLACED_XML_PI, 0x07, texts::MisplacedDeclaration},
    {XML_ERROR_XML_DECL, 0x07, texts::BadDeclaration},
    {XML_ERROR_UNCLOSED_CDATA_SECTION, 0x64, texts::UnclosedCData},
    {XML_ERROR_SYNTAX, 0x56, texts::OtherSyntaxError},
};

} // namespace

ParseError errorOf(XML_Parser parser, const std::string &text, bool inElement) {
    const XML_Error code = XML_GetErrorCode(parser);
    ParseError error;
    const auto *const reason = std::ranges::find(Reasons, code, &Reason::code);
    if (reason != std::end(Reasons)) {
        error.reason = reason->text.toString();
        error.errorCode = Base + reason->number;
    } else {
        error.reason = texts::OtherSyntaxError.toString();
        error.errorCode = Base + code;
    }
    // The end of the text without a root is reported like the end inside one.
    if (code == XML_ERROR_NO_ELEMENTS && inElement)
        error.reason = texts::UnexpectedEnd.toString();
    error.line = expat::line(parser);
    error.linepos = expat::column(parser) + 1;
    error.filepos = std::max<qint64>(expat::byteIndex(parser), 0);
    const std::size_t at = std::min(static_cast<std::size_t>(error.filepos), text.size());
    const std::size_t before = at == 0 ? text.npos : text.rfind('\n', at - 1);
    const std::size_t lineStart = before == text.npos ? 0 : before + 1;
    const std::size_t lineEnd = std::min(text.find_first_of("\r\n", lineStart), text.size());
    error.srcText =
        QString::fromUtf8(text.data() + lineStart, static_cast<qsizetype>(lineEnd - lineStart));
    return error;
}

} // namespace quillon::xml
