#include "platform/xml/io/byte_characters.h"

namespace quillon::xml {

void ByteCharacters::append(char byte, std::string &utf8) const {
    const char32_t character = first_ + static_cast<unsigned char>(byte);
    utf8 += static_cast<char>(0xE0 | character >> 12);
    utf8 += static_cast<char>(0x80 | (character >> 6 & 0x3F));
    utf8 += static_cast<char>(0x80 | (character & 0x3F));
}

std::size_t ByteCharacters::find(std::string_view utf8, std::size_t from) const {
    if (first_ == 0)
        return utf8.npos;
    const auto lead = static_cast<char>(0xE0 | first_ >> 12);
    const unsigned second = 0x80 | (first_ >> 6 & 0x3F);
    for (std::size_t at = from; (at = utf8.find(lead, at)) != utf8.npos; ++at) {
        // All of them share the lead byte, and have one of four behind it.
        const bool isWhole = at + Length <= utf8.size();
        if (isWhole && static_cast<unsigned char>(utf8[at + 1]) - second < Count / 64)
            return at;
    }
    return utf8.npos;
}

char ByteCharacters::byteAt(std::string_view utf8, std::size_t at) const {
    return static_cast<char>((utf8[at + 1] & 0x03) << 6 | (utf8[at + 2] & 0x3F));
}

} // namespace quillon::xml
