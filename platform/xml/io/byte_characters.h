#pragma once

#include <string>
#include <string_view>

namespace quillon::xml {

/// 256 characters of private use, each of which stands for a byte that does not decode. In UTF-8
/// each of them takes three bytes.
class ByteCharacters {
public:
    static constexpr char32_t Count = 256;
    static constexpr std::size_t Length = 3;

    /// None.
    ByteCharacters() = default;
    /// The ones from `first` on, a multiple of Count between U+E000 and U+F700.
    explicit ByteCharacters(char32_t first) : first_(first) {}

    /// The one that stands for the byte 0; 0 where there are none.
    char32_t first() const { return first_; }
    void append(char byte, std::string &utf8) const;
    /// Where the first of them stands in a text, from a place on; npos where there is none.
    std::size_t find(std::string_view utf8, std::size_t from = 0) const;
    /// The byte that the one at a place stands for.
    char byteAt(std::string_view utf8, std::size_t at) const;

private:
    char32_t first_ = 0;
};

} // namespace quillon::xml
