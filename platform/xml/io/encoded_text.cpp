#include "platform/xml/io/encoded_text.h"

#include <algorithm>

namespace quillon::xml {

namespace {

/// The shortest beginning of a stretch's bytes whose text `isEnough`, which holds for all longer
/// ones, too; all bytes when there is none.
template <typename Predicate>
std::size_t shortestLength(const Encoder &encoder, const OriginalBytes &original,
                           const Predicate &isEnough) {
    const std::string_view bytes = original.bytes;
    std::size_t from = 0;
    std::size_t to = bytes.size();
    while (from < to) {
        const std::size_t middle = from + (to - from) / 2;
        if (isEnough(encoder.decodeBehind(original.lead, bytes.substr(0, middle)).utf8))
            to = middle;
        else
            from = middle + 1;
    }
    return from;
}

/// The length of the beginning of a stretch's bytes that is `end` bytes of text.
std::size_t lengthUpTo(const Encoder &encoder, const OriginalBytes &original, std::size_t end) {
    return shortestLength(encoder, original,
                          [&](const std::string &utf8) { return utf8.size() >= end; });
}

/// The same together with the escape sequences that follow, up to the next character.
std::size_t lengthBefore(const Encoder &encoder, const OriginalBytes &original, std::size_t start) {
    const std::string_view bytes = original.bytes;
    const std::size_t tooLong = shortestLength(
        encoder, original, [&](const std::string &utf8) { return utf8.size() > start; });
    return encoder
        .decodeBehind(original.lead, bytes.substr(0, std::max<std::size_t>(tooLong, 1) - 1))
        .length;
}

} // namespace

EncodedText::EncodedText(const std::string &codec, std::string mark)
    : encoder_(codec), bytes_(std::move(mark)), checkedLength_(bytes_.size()) {}

bool EncodedText::canHold(std::string_view utf8) const {
    std::string ignored;
    return encoder_.encode(utf8, ignored);
}

void EncodedText::enter(const ShiftState &state) {
    if (encoder_.hasStates())
        bytes_ += state.reachedFrom(state_);
}

void EncodedText::note(std::size_t before, std::string_view utf8) {
    if (!encoder_.hasStates())
        return;
    state_.pass(std::string_view(bytes_).substr(before));
    text_ += utf8;
}

bool EncodedText::append(std::string_view utf8) {
    if (utf8.empty())
        return true;
    const std::size_t before = bytes_.size();
    enter({});
    if (!encoder_.encode(utf8, bytes_)) {
        bytes_.resize(before);
        return false;
    }
    note(before, utf8);
    return true;
}

bool EncodedText::appendKnown(std::string_view utf8) {
    const std::size_t before = bytes_.size();
    enter({});
    if (!encoder_.encodeKnown(utf8, bytes_))
        return false;
    note(before, utf8);
    return true;
}

bool EncodedText::appendOriginal(const OriginalBytes &original, std::size_t start, std::size_t end,
                                 std::string_view utf8) {
    std::string_view bytes = original.bytes;
    const std::size_t first = start == 0 ? 0 : lengthBefore(encoder_, original, start);
    const std::size_t last =
        end == original.end - original.start ? bytes.size() : lengthUpTo(encoder_, original, end);
    ShiftState state;
    state.pass(original.lead);
    state.pass(bytes.substr(0, first));
    bytes = bytes.substr(first, std::max(first, last) - first);
    if (utf8.size() != original.end - original.start &&
        encoder_.decodeBehind(state.reachedFrom({}), bytes).utf8 != utf8)
        return append(utf8);
    const std::size_t before = bytes_.size();
    enter(state);
    bytes_ += bytes;
    note(before, utf8);
    return true;
}

bool EncodedText::appendRead(std::string_view text, const std::vector<OriginalBytes> &originals,
                             std::size_t start, std::size_t end) {
    auto original = std::ranges::upper_bound(originals, start, {}, &OriginalBytes::end);
    while (start < end) {
        const std::size_t gapEnd =
            original == originals.end() ? end : std::min<std::size_t>(end, original->start);
        if (start < gapEnd) {
            if (!appendKnown(text.substr(start, gapEnd - start)))
                return false;
            start = gapEnd;
            continue;
        }
        const std::size_t partEnd = std::min<std::size_t>(end, original->end);
        if (!appendOriginal(*original, start - original->start, partEnd - original->start,
                            text.substr(start, partEnd - start)))
            return false;
        start = partEnd;
        ++original;
    }
    return true;
}

void EncodedText::appendUndecodable(std::string_view bytes) {
    checkText();
    bytes_ += bytes;
    checkedLength_ = bytes_.size();
    if (!encoder_.hasStates())
        return;
    state_.pass(bytes);
    checkedState_ = state_;
}

void EncodedText::checkText() {
    if (!encoder_.hasStates())
        return;
    const std::string_view unchecked = std::string_view(bytes_).substr(checkedLength_);
    if (encoder_.decodeBehind(checkedState_.reachedFrom({}), unchecked).utf8 != text_)
        readsBack_ = false;
    checkedLength_ = bytes_.size();
    checkedState_ = state_;
    text_.clear();
}

std::optional<std::string> EncodedText::take() {
    checkText();
    if (!readsBack_)
        return std::nullopt;
    return std::move(bytes_);
}

} // namespace quillon::xml
