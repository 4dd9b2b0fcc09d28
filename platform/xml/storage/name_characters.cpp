#include "platform/xml/storage/name_characters.h"

#include <algorithm>
#include <iterator>

namespace quillon::xml {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

/// Ascending.
constexpr Range StartRanges[] = {
    {':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},
    {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
    {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
    {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};

constexpr Range FurtherRanges[] = {
    {'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040},
};

template <std::size_t Count>
bool isIn(const Range (&ranges)[Count], char32_t character) {
    const auto *const range = std::ranges::lower_bound(ranges, character, {}, &Range::last);
    return range != std::end(ranges) && character >= range->first;
}

} // namespace

bool isNameStart(char32_t character) {
    return isIn(StartRanges, character);
}

bool isNameCharacter(char32_t character) {
    return isIn(StartRanges, character) || isIn(FurtherRanges, character);
}

} // namespace quillon::xml
