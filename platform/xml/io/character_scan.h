#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

/// Going over the bytes of a text that is to be XML, many times faster than by characters. A text
/// is followed by a byte 0, which ends everything; it may hold such bytes itself.
namespace quillon::xml::scan {

inline bool isBlank(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

inline const char *skipBlanks(const char *at) {
    while (isBlank(*at))
        ++at;
    return at;
}

/// Eight bytes, the first of which is the lowest.
inline std::uint64_t eightBytes(const char *at) {
    std::uint64_t bytes;
    std::memcpy(&bytes, at, sizeof bytes);
    if constexpr (std::endian::native == std::endian::big)
        bytes = __builtin_bswap64(bytes);
    return bytes;
}

constexpr std::uint64_t eightTimes(unsigned char byte) {
    return 0x0101'0101'0101'0101 * std::uint64_t(byte);
}

/// Marks, by its highest bit, the lowest byte that is not one of the printing characters of ASCII
/// other than `Stops`. Bytes above that may be marked, too.
template <char... Stops>
std::uint64_t unusualBytes(std::uint64_t bytes) {
    constexpr std::uint64_t High = eightTimes(0x80);
    // A byte that is 0 now borrows from its highest bit; one above 0x80 has had it before.
    const auto zeroBytes = [](std::uint64_t word) { return (word - eightTimes(1)) & ~word; };
    const std::uint64_t unusual = (bytes - eightTimes(0x20)) | bytes;
    return (unusual | ... | zeroBytes(bytes ^ eightTimes(static_cast<unsigned char>(Stops)))) &
           High;
}

/// A character outside ASCII.
struct Wide {
    char32_t character;
    /// Of its bytes; 0 where they are none that XML permits.
    int length;
};

Wide wideAt(const char *at);

/// The place behind one or more characters outside ASCII; null where there is none at `at` that
/// XML permits, in the only form that UTF-8 has for it.
const char *skipWide(const char *at);

/// Goes over characters that XML permits up to one of `Stops`, or to one that is not permitted, or
/// to the end. Null where bytes are no UTF-8.
template <char... Stops>
const char *skipCharacters(const char *at, const char *end) {
    for (;;) {
        while (end - at >= 8) {
            const std::uint64_t unusual = unusualBytes<Stops...>(eightBytes(at));
            if (unusual != 0) {
                at += std::countr_zero(unusual) / 8;
                break;
            }
            at += 8;
        }
        if (((*at == Stops) || ...))
            return at;
        if (static_cast<unsigned char>(*at) >= 0x80) {
            at = skipWide(at);
            if (!at)
                return nullptr;
        } else if (static_cast<unsigned char>(*at) < 0x20 && !isBlank(*at)) {
            return at;
        } else {
            ++at;
        }
    }
}

/// Where the name ends that starts at `at`: there where there is none.
const char *skipName(const char *at);

/// Where the reference at `at` ends, a "&", if it is one to a character that XML permits or to one
/// of the five entities that are always there; null for any other.
const char *skipReference(const char *at);

} // namespace quillon::xml::scan
