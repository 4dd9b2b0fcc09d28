#include "platform/xml/io/shift_state.h"

namespace quillon::xml {

namespace {

using namespace std::string_view_literals;

constexpr char Escape = '\x1B';
constexpr char ShiftOut = '\x0E';
constexpr char ShiftIn = '\x0F';
constexpr std::string_view DesignateAscii = "\x1B(B"sv;

/// Which of G0 to G3 the intermediate bytes of an escape sequence mean; none for the sequences
/// that designate no set, among them the shifts for a single character.
std::size_t slotOf(std::string_view intermediates) {
    if (intermediates == "$")
        return 0;
    if (intermediates.substr(0, 1) == "$")
        intermediates.remove_prefix(1);
    const char which = intermediates.empty() ? '\0' : intermediates.front();
    switch (which) {
    case '(':
        return 0;
    case ')':
    case '-':
        return 1;
    case '*':
    case '.':
        return 2;
    case '+':
    case '/':
        return 3;
    default:
        return std::string_view::npos;
    }
}

} // namespace

void ShiftState::pass(std::string_view bytes) {
    constexpr std::string_view controls = "\x1B\x0E\x0F"sv;
    for (std::size_t at = 0; (at = bytes.find_first_of(controls, at)) != bytes.npos;) {
        if (bytes[at] != Escape) {
            shiftedOut_ = bytes[at] == ShiftOut;
            ++at;
            continue;
        }
        std::size_t last = at + 1;
        while (last < bytes.size() && bytes[last] >= 0x20 && bytes[last] < 0x30)
            ++last;
        if (last >= bytes.size())
            return;
        const std::string_view sequence = bytes.substr(at, last + 1 - at);
        const std::size_t slot = slotOf(sequence.substr(1, sequence.size() - 2));
        if (slot != std::string_view::npos)
            designated_[slot] = sequence == DesignateAscii ? ""sv : sequence;
        at = last + 1;
    }
}

std::string ShiftState::reachedFrom(const ShiftState &other) const {
    std::string bytes;
    if (designated_[0] != other.designated_[0])
        bytes += designated_[0].empty() ? DesignateAscii : designated_[0];
    for (std::size_t slot = 1; slot < designated_.size(); ++slot) {
        // A set too many does no harm, and there is no sequence that takes one back.
        if (!designated_[slot].empty() && designated_[slot] != other.designated_[slot])
            bytes += designated_[slot];
    }
    if (shiftedOut_ != other.shiftedOut_)
        bytes += shiftedOut_ ? ShiftOut : ShiftIn;
    return bytes;
}

} // namespace quillon::xml
