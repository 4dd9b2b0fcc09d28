#pragma once

#include <array>
#include <string>
#include <string_view>

namespace quillon::xml {

/// The character sets that are in force somewhere in a text in a 7-bit encoding after ISO 2022,
/// such as ISO-2022-JP. Text in any other encoding never leaves the initial state.
class ShiftState {
public:
    /// Goes on over the bytes of whole characters and whole escape sequences.
    void pass(std::string_view bytes);
    /// The bytes that lead here from another state; none when nothing needs to change.
    std::string reachedFrom(const ShiftState &other) const;

    bool operator==(const ShiftState &other) const {
        return designated_ == other.designated_ && shiftedOut_ == other.shiftedOut_;
    }
    bool operator!=(const ShiftState &other) const { return !(*this == other); }

private:
    /// The escape sequences by which G0 to G3 got their sets; empty for the initial set.
    std::array<std::string, 4> designated_;
    /// G1 is in use instead of G0.
    bool shiftedOut_ = false;
};

} // namespace quillon::xml
