#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace quillon::runtime {

/// A stretch that two texts have in common: where it starts in the one and in the other.
struct CommonStretch {
    std::size_t before = 0;
    std::size_t after = 0;
    std::size_t length = 0;

    bool operator==(const CommonStretch &) const = default;
};

/// What an edited text in UTF-8 has kept of the text before, in order and not overlapping; nothing
/// is cut within a character. Lines and pieces of markup are compared, and what differs in them
/// from its two ends. Where more than some thousand of them differ, only the beginning and the end
/// that the texts have in common count as kept.
std::vector<CommonStretch> commonStretches(std::string_view before, std::string_view after);

} // namespace quillon::runtime
