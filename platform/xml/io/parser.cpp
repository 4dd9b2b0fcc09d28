#include "platform/xml/io/parser.h"

#include "platform/runtime/error.h"
#include "platform/xml/io/character_scan.h"
#include "platform/xml/io/expat_parser.h"
#include "platform/xml/io/scanner.h"
#include "platform/xml/storage/name_characters.h"
#include "resources/runtime_errors.h"
#include "resources/xml_texts.h"

namespace quillon::xml {

namespace texts = resources::xml_texts;

namespace {

/// Whether a text starts with a sign of its encoding, by which expat would go although told that
/// the text is in UTF-8, and has lost its mark. No text may go on so.
bool startsWithEncodingSign(std::string_view text) {
    const std::string_view start = text.substr(0, 2);
    return start.find('\0') != start.npos || start == "\xFE\xFF" || start == "\xFF\xFE" ||
           text.substr(0, 3) == "\xEF\xBB\xBF";
}

constexpr std::uint8_t InvalidToken = 0x08;

/// An error of a number, counted from Base, without a place.
ParseError failure(std::uint8_t number, const QString &reason) {
    ParseError error;
    error.errorCode = parse_error_code::Base + number;
    error.reason = reason;
    return error;
}

ScanResult readByScanner(Arena &arena, const Ref<SourceText> &source,
                         const runtime::Progress &progress) {
    NodeAppender nodes(arena, source);
    const std::optional<Prolog> prolog = parseProlog(arena, nodes, source->utf8);
    if (!prolog)
        return ScanResult::NotUnderstood;
    const ScanResult result =
        scanElements(arena, nodes, source->utf8, prolog->end, prolog->subset, progress);
    if (result == ScanResult::Read)
        arena.entities = prolog->subset.entities;
    return result;
}

/// Whether expat has objected to a character that may stand in names by the newer edition.
bool isAtNewerName(const ParseError &error, const std::string &text) {
    if (error.errorCode != parse_error_code::Base + InvalidToken)
        return false;
    const scan::Wide wide = scan::wideAt(text.data() + error.filepos);
    return wide.length != 0 && isNameCharacter(wide.character);
}

} // namespace

ParseError parse(Arena &arena, const Ref<SourceText> &source, const runtime::Progress &progress) {
    if (source->utf8.size() > static_cast<std::size_t>(MaxFileSize))
        return failure(0, texts::TooLarge.toString());
    if (startsWithEncodingSign(source->utf8)) {
        ParseError error = failure(InvalidToken, texts::InvalidToken.toString());
        error.line = error.linepos = 1;
        return error;
    }
    const ScanResult scanned = readByScanner(arena, source, progress);
    if (scanned == ScanResult::Read)
        return {};
    if (scanned == ScanResult::Stopped)
        return failure(0, resources::runtimeErrorText(runtime::error_number::Cancelled));
    arena.dropNodes();
    const ParseError error = parseByExpat(arena, source, progress);
    if (!isAtNewerName(error, source->utf8))
        return error;
    const std::optional<NameSubstitutes> substitutes = NameSubstitutes::of(source->utf8);
    if (!substitutes)
        return error;
    arena.dropNodes();
    return parseByExpat(arena, source, progress, &*substitutes);
}

} // namespace quillon::xml
