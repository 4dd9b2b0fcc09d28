#include "platform/xml/io/character_scan.h"

#include "platform/xml/storage/name_characters.h"

#include <array>
#include <string_view>

namespace quillon::xml::scan {

namespace {

constexpr char32_t LastCharacter = 0x10FFFF;

constexpr bool isPermitted(char32_t c) {
    if (c < 0x20)
        return c == '\t' || c == '\n' || c == '\r';
    return c < 0xD800 || (c > 0xDFFF && c < 0xFFFE) || (c > 0xFFFF && c <= LastCharacter);
}

/// Which characters of ASCII may stand in a name.
constexpr std::array<bool, 0x80> AsciiNameCharacters = [] {
    std::array<bool, 0x80> result{};
    for (int c = 0; c < 0x80; ++c)
        result[std::size_t(c)] = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                                 (c >= '0' && c <= '9') || c == '_' || c == ':' || c == '-' ||
                                 c == '.';
    return result;
}();

bool startsName(char c) {
    return AsciiNameCharacters[std::size_t(c)] && (c > '9' || c < '-');
}

} // namespace

Wide wideAt(const char *at) {
    // Looks at a byte only when those before it go on.
    const auto byte = [at](int i) { return static_cast<unsigned char>(at[i]); };
    const auto continues = [&](int i) { return (byte(i) & 0xC0) == 0x80; };
    const auto bits = [&](int i) { return char32_t(byte(i) & 0x3F); };
    const unsigned char lead = byte(0);
    if (lead < 0xC2 || lead > 0xF4 || !continues(1))
        return {};
    if (lead < 0xE0)
        return {char32_t(lead & 0x1F) << 6 | bits(1), 2};
    if (!continues(2))
        return {};
    if (lead < 0xF0) {
        const char32_t c = char32_t(lead & 0x0F) << 12 | bits(1) << 6 | bits(2);
        return c >= 0x800 && isPermitted(c) ? Wide{c, 3} : Wide{};
    }
    if (!continues(3))
        return {};
    const char32_t c = char32_t(lead & 0x07) << 18 | bits(1) << 12 | bits(2) << 6 | bits(3);
    return c >= 0x10000 && isPermitted(c) ? Wide{c, 4} : Wide{};
}

const char *skipWide(const char *at) {
    do {
        // Most of what Japanese is written in: no other form of these is possible, and all are
        // permitted.
        const auto lead = static_cast<unsigned char>(at[0]);
        if (lead > 0xE0 && lead < 0xED && (at[1] & 0xC0) == 0x80 && (at[2] & 0xC0) == 0x80) {
            at += 3;
            continue;
        }
        const int length = wideAt(at).length;
        if (length == 0)
            return nullptr;
        at += length;
    } while (static_cast<unsigned char>(*at) >= 0x80);
    return at;
}

const char *skipName(const char *at) {
    const char *const start = at;
    for (;;) {
        if (const auto byte = static_cast<unsigned char>(*at); byte < 0x80) {
            if (at == start ? !startsName(*at) : !AsciiNameCharacters[byte])
                return at;
            ++at;
            continue;
        }
        const Wide wide = wideAt(at);
        if (wide.length == 0 ||
            !(at == start ? isNameStart(wide.character) : isNameCharacter(wide.character)))
            return at;
        at += wide.length;
    }
}

namespace {

/// The end of a reference by number, of which the digits start at `at`.
const char *skipNumber(const char *at, unsigned base) {
    char32_t c = 0;
    const char *const start = at;
    for (;; ++at) {
        const char lower = static_cast<char>(*at | 0x20);
        unsigned digit = base;
        if (*at >= '0' && *at <= '9')
            digit = unsigned(*at - '0');
        else if (base == 16 && lower >= 'a' && lower <= 'f')
            digit = unsigned(lower - 'a') + 10;
        if (digit == base)
            break;
        c = c * base + digit;
        if (c > LastCharacter)
            return nullptr;
    }
    return at != start && *at == ';' && isPermitted(c) ? at + 1 : nullptr;
}

} // namespace

const char *skipReference(const char *at) {
    ++at;
    if (*at == '#')
        return at[1] == 'x' ? skipNumber(at + 2, 16) : skipNumber(at + 1, 10);
    using namespace std::string_view_literals;
    // Compared up to the first byte that differs, so not beyond the end.
    for (const std::string_view entity : {"lt;"sv, "gt;"sv, "amp;"sv, "quot;"sv, "apos;"sv}) {
        if (std::strncmp(at, entity.data(), entity.size()) == 0)
            return at + entity.size();
    }
    return nullptr;
}

} // namespace quillon::xml::scan
