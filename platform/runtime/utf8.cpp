#include "platform/runtime/utf8.h"

#include <array>

namespace quillon::runtime {

namespace {

/// The length of the sequence that starts with `lead`.
std::size_t sequenceLength(char lead) {
    const auto c = static_cast<unsigned char>(lead);
    return c < 0x80 ? 1 : c < 0xE0 ? 2 : c < 0xF0 ? 3 : 4;
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

} // namespace

std::string_view characterAt(std::string_view utf8, std::size_t at) {
    return utf8.substr(at, sequenceLength(utf8[at]));
}

char32_t codePoint(std::string_view character) {
    static constexpr std::array<unsigned char, 5> LeadBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t c = static_cast<unsigned char>(character[0]) & LeadBits[character.size()];
    for (const char next : character.substr(1))
        c = c << 6 | (static_cast<unsigned char>(next) & 0x3F);
    return c;
}

std::string_view withoutHalfCharacter(std::string_view utf8) {
    std::size_t last = utf8.size();
    while (last > 0 && isContinuation(utf8[last - 1]))
        --last;
    if (last == 0)
        return {};
    --last;
    return last + sequenceLength(utf8[last]) > utf8.size() ? utf8.substr(0, last) : utf8;
}

} // namespace quillon::runtime
