#pragma once

#include <cstddef>
#include <string_view>

/// Looking at single characters of text that is known to be UTF-8.
namespace quillon::runtime {

/// The bytes of the character that starts at a position within a text.
std::string_view characterAt(std::string_view utf8, std::size_t at);

/// The code point of a character, given as its bytes.
char32_t codePoint(std::string_view character);

/// A text of which only the beginning is there, without the half of a character at its end.
std::string_view withoutHalfCharacter(std::string_view utf8);

} // namespace quillon::runtime
