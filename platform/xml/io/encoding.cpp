#include "platform/xml/io/encoding.h"

#include "platform/xml/io/find_originals.h"
#include "resources/xml_texts.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quillon::xml {

namespace texts = resources::xml_texts;

namespace {

using namespace std::string_view_literals;

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF"sv;
constexpr std::string_view Utf16BeMark = "\xFE\xFF"sv;
constexpr std::string_view Utf16LeMark = "\xFF\xFE"sv;
constexpr std::string_view Utf32BeMark = "\0\0\xFE\xFF"sv;
constexpr std::string_view Utf32LeMark = "\xFF\xFE\0\0"sv;

// Names that stand for a wider set in practice than their converter of the same name knows, and
// names that no converter knows.
constexpr std::array<std::pair<std::string_view, std::string_view>, 31> Aliases = {{
    {"utf-8", "UTF-8"},
    {"utf8", "UTF-8"},
    {"unicode-1-1-utf-8", "UTF-8"},
    {"utf-16", "UTF-16"},
    {"utf-16le", "UTF-16LE"},
    {"utf-16be", "UTF-16BE"},
    {"ucs-2", "UTF-16"},
    {"iso-10646-ucs-2", "UTF-16"},
    {"unicode", "UTF-16"},
    {"us-ascii", "ASCII"},
    {"ascii", "ASCII"},
    {"shift_jis", "CP932"},
    {"shift-jis", "CP932"},
    {"sjis", "CP932"},
    {"x-sjis", "CP932"},
    {"ms_kanji", "CP932"},
    {"csshiftjis", "CP932"},
    {"windows-31j", "CP932"},
    {"cswindows31j", "CP932"},
    {"cp932", "CP932"},
    {"euc-jp", "EUC-JP-MS"},
    {"x-euc-jp", "EUC-JP-MS"},
    {"x-euc", "EUC-JP-MS"},
    {"iso-2022-jp", "ISO-2022-JP"},
    {"gb2312", "GBK"},
    {"gbk", "GBK"},
    {"gb18030", "GB18030"},
    {"big5", "BIG5"},
    {"x-x-big5", "BIG5"},
    {"ks_c_5601-1987", "UHC"},
    {"euc-kr", "EUC-KR"},
}};

std::string lower(std::string_view name) {
    std::string out(name);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return out;
}

/// The codec of a text in a UTF-16 that starts, without a mark, with these four bytes: white space
/// or the "<" of markup. Empty for any other start, that of UTF-32 too.
std::string unmarkedUtf16(std::string_view start) {
    const auto startsText = [](char c) { return " \t\r\n<"sv.find(c) != std::string_view::npos; };
    if (start.size() < 4)
        return {};
    if (start[0] == '\0' && startsText(start[1]))
        return "UTF-16BE";
    if (startsText(start[0]) && start[1] == '\0' && start.substr(2) != "\0\0"sv)
        return "UTF-16LE";
    return {};
}

/// The codec that the first bytes tell, and the length of the byte order mark.
std::pair<std::string, std::size_t> sniff(std::string_view bytes) {
    // Not to be taken for UTF-16, whose mark begins alike.
    for (const std::string_view mark : {Utf32LeMark, Utf32BeMark}) {
        if (bytes.substr(0, 4) == mark)
            return {"UTF-32", 4};
    }
    if (bytes.substr(0, 3) == Utf8Mark)
        return {"UTF-8", 3};
    if (bytes.substr(0, 2) == Utf16BeMark)
        return {"UTF-16BE", 2};
    if (bytes.substr(0, 2) == Utf16LeMark)
        return {"UTF-16LE", 2};
    return {unmarkedUtf16(bytes.substr(0, 4)), 0};
}

} // namespace

std::string declaredEncoding(std::string_view utf8) {
    // An instruction may have a name that only begins so.
    if (utf8.substr(0, 5) != "<?xml" || utf8.substr(5, 1).find_first_of(" \t\r\n") != 0)
        return {};
    const std::string_view declaration = utf8.substr(0, utf8.find("?>"));
    const std::size_t at = declaration.find("encoding");
    if (at == declaration.npos)
        return {};
    const std::size_t quote = declaration.find_first_of("\"'", at);
    if (quote == declaration.npos)
        return {};
    const std::size_t end = declaration.find(declaration[quote], quote + 1);
    return std::string(
        declaration.substr(quote + 1, end == declaration.npos ? 0 : end - quote - 1));
}

std::string codecFor(std::string_view declaredName) {
    std::string name = lower(declaredName);
    const auto alias = std::find_if(Aliases.begin(), Aliases.end(),
                                    [&](const auto &entry) { return entry.first == name; });
    if (alias != Aliases.end())
        return std::string(alias->second);
    if (name.rfind("windows-", 0) == 0 && name.find_first_not_of("0123456789", 8) == name.npos)
        name = "cp" + name.substr(8);
    const bool plain =
        name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-_:.") == name.npos;
    if (!plain || name.empty())
        return {};
    // Any other encoding will do that the system knows and in which markup stands as it is. Not so
    // UTF-7, which would hide it, and ISO-2022-KR, which puts a mark of its own ahead of it.
    constexpr auto markup = "<?xml version=\"1.0\"?><!--a&-->"sv;
    const Encoder encoder(name);
    std::string decoded;
    std::string encoded;
    encoder.decode(markup, decoded);
    return decoded == markup && encoder.encode(markup, encoded) && encoded == markup
               ? name
               : std::string();
}

LineEnd lineEndOf(std::string_view utf8) {
    const std::size_t first = utf8.find_first_of("\r\n");
    if (first == utf8.npos || utf8[first] == '\n')
        return LineEnd::LF;
    return first + 1 < utf8.size() && utf8[first + 1] == '\n' ? LineEnd::CRLF : LineEnd::CR;
}

std::string_view byteOrderMark(std::string_view codec) {
    if (codec == "UTF-8")
        return Utf8Mark;
    return codec == "UTF-16BE" ? Utf16BeMark : Utf16LeMark;
}

bool isUtf16(std::string_view codec) {
    return codec.substr(0, 6) == "UTF-16";
}

Decoded decodeFile(std::string bytes) {
    Decoded result;
    const auto [sniffed, markLength] = sniff(bytes);
    result.format.byteOrderMark = markLength != 0;
    if (sniffed == "UTF-32") {
        result.error = texts::UnknownEncoding.toString().arg(QString::fromStdString(sniffed));
        return result;
    }
    const std::string_view content = std::string_view(bytes).substr(markLength);
    std::string declared;
    std::string codec = sniffed;
    if (sniffed.empty()) {
        declared = declaredEncoding(content);
        codec = declared.empty() ? "UTF-8" : codecFor(declared);
        if (codec.empty())
            result.error = texts::UnknownEncoding.toString().arg(QString::fromStdString(declared));
        else if (isUtf16(codec))
            result.error = texts::EncodingSwitch.toString();
        if (!result.error.isNull())
            return result;
    }
    result.format.codec = codec;
    if (codec == "UTF-8") {
        if (markLength != 0)
            bytes.erase(0, markLength);
        result.utf8 = std::move(bytes);
    } else {
        const IconvConverter converter("UTF-8", codec);
        if (converter.convert(content, result.utf8) != content.size()) {
            result.error = texts::BadBytes.toString().arg(QString::fromStdString(codec));
            return result;
        }
        if (!isUtf16(codec)) {
            auto originals = findOriginals(codec, content, result.utf8);
            if (!originals) {
                result.error = texts::BadBytes.toString().arg(QString::fromStdString(codec));
                return result;
            }
            result.originals = std::move(*originals);
        }
    }
    result.format.declared = declaredEncoding(result.utf8);
    result.format.lineEnd = lineEndOf(result.utf8);
    return result;
}

namespace {

/// The converter for "UTF-16" would write a byte order mark, which is the caller's business.
std::string withoutMark(const std::string &codec) {
    return codec == "UTF-16" ? "UTF-16LE" : codec;
}

} // namespace

Encoder::Encoder(const std::string &codec)
    : codec_(withoutMark(codec)), passThrough_(codec_ == "UTF-8"), encoder_(codec_, "UTF-8"),
      decoder_("UTF-8", codec_), hasStates_(findStates()) {}

bool Encoder::findStates() const {
    // Where there are states, two characters outside ASCII share the way into one and back.
    constexpr std::array samples = {"あ"sv, "漢"sv, "汉"sv, "한"sv, "é"sv, "Я"sv};
    return !passThrough_ && std::ranges::any_of(samples, [&](std::string_view sample) {
        std::string one;
        std::string two;
        return encodeKnown(sample, one) && encodeKnown(std::string(sample).append(sample), two) &&
               two != one + one;
    });
}

bool Encoder::encodeKnown(std::string_view utf8, std::string &out) const {
    if (passThrough_) {
        out += utf8;
        return true;
    }
    const std::size_t before = out.size();
    if (encoder_.isOpen() && encoder_.convert(utf8, out) == utf8.size())
        return true;
    out.resize(before);
    return false;
}

bool Encoder::encode(std::string_view utf8, std::string &out) const {
    const std::size_t before = out.size();
    if (!encodeKnown(utf8, out))
        return false;
    if (passThrough_)
        return true;
    std::string back;
    const std::string_view written = std::string_view(out).substr(before);
    if (decode(written, back) == written.size() && back == utf8)
        return true;
    out.resize(before);
    return false;
}

std::size_t Encoder::decode(std::string_view bytes, std::string &out) const {
    return decoder_.convert(bytes, out);
}

Encoder::DecodedBytes Encoder::decodeBehind(const std::string &lead, std::string_view bytes) const {
    DecodedBytes result;
    const std::size_t length = decode(lead + std::string(bytes), result.utf8);
    result.length = length - std::min(length, lead.size());
    return result;
}

} // namespace quillon::xml
