#include "platform/xml/io/encoded_text.h"

#include <algorithm>

namespace quillon::xml {

namespace {

/// A stretch of original bytes ends with a line or some markup, and about this long.
constexpr std::size_t ShortStretch = 256;
constexpr std::size_t LongStretch = 4096;
/// No character and no escape sequence is longer.
constexpr std::size_t MaxSequence = 16;

struct DecodedBytes {
    std::string utf8;
    /// How many of the bytes that makes.
    std::size_t length;
};

DecodedBytes decode(const Encoder &encoder, const std::string &lead, std::string_view bytes) {
    DecodedBytes result;
    const std::size_t length = encoder.decode(lead + std::string(bytes), result.utf8);
    result.length = length - std::min(length, lead.size());
    return result;
}

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
        if (isEnough(decode(encoder, original.lead, bytes.substr(0, middle)).utf8))
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
    return decode(encoder, original.lead, bytes.substr(0, std::max<std::size_t>(tooLong, 1) - 1))
        .length;
}

/// Cuts the file into stretches that decode to stretches of its text. Returns those whose bytes
/// differ from what encoding makes of them, or all; nothing when the file cannot be cut so.
std::optional<std::vector<OriginalBytes>> stretches(const Encoder &encoder, std::string_view bytes,
                                                    std::string_view utf8, bool all) {
    std::vector<OriginalBytes> originals;
    ShiftState state;
    std::size_t position = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t mark = bytes.substr(at, LongStretch).find_first_of("\n>", ShortStretch);
        std::size_t length = mark == bytes.npos ? LongStretch : mark + 1;
        const std::string lead = state.reachedFrom({});
        DecodedBytes piece;
        for (std::size_t tries = 0;; length += tries++ < MaxSequence ? 1 : length) {
            length = std::min(length, bytes.size() - at);
            piece = decode(encoder, lead, bytes.substr(at, length));
            const bool atEnd = at + length == bytes.size();
            const std::size_t next = position + piece.utf8.size();
            // Escape sequences at the very end belong to the last character.
            if (piece.length == length && atEnd == (next == utf8.size()) &&
                utf8.substr(position, piece.utf8.size()) == piece.utf8)
                break;
            if (atEnd)
                return std::nullopt;
        }
        const std::string_view source = bytes.substr(at, length);
        ShiftState after = state;
        after.pass(source);
        std::string encoded;
        if (all || !lead.empty() || after != ShiftState() ||
            !encoder.encodeKnown(piece.utf8, encoded) || encoded != source)
            originals.push_back({static_cast<std::uint32_t>(position),
                                 static_cast<std::uint32_t>(position + piece.utf8.size()),
                                 std::string(source), lead});
        state = after;
        position += piece.utf8.size();
        at += length;
    }
    return originals;
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
        decode(encoder_, state.reachedFrom({}), bytes).utf8 != utf8)
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
    if (decode(encoder_, checkedState_.reachedFrom({}), unchecked).utf8 != text_)
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

std::optional<std::vector<OriginalBytes>>
findOriginals(const std::string &codec, std::string_view bytes, std::string_view utf8) {
    const Encoder encoder(codec);
    std::string again;
    if (!encoder.hasStates() && encoder.encodeKnown(utf8, again) && again == bytes)
        return std::vector<OriginalBytes>();
    // Stretches that come out right one by one need not do so side by side: an encoding may have
    // one code for two characters.
    for (const bool all : {false, true}) {
        auto originals = stretches(encoder, bytes, utf8, all);
        if (!originals)
            return std::nullopt;
        EncodedText rebuilt(codec);
        if (rebuilt.appendRead(utf8, *originals, 0, utf8.size()) && rebuilt.take() == bytes)
            return originals;
    }
    return std::nullopt;
}

} // namespace quillon::xml
