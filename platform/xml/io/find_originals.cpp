#include "platform/xml/io/find_originals.h"

#include "platform/xml/io/encoded_text.h"

#include <algorithm>

namespace quillon::xml {

namespace {

/// A stretch of original bytes ends with a line or some markup, and about this long.
constexpr std::size_t ShortStretch = 256;
constexpr std::size_t LongStretch = 4096;
/// No character and no escape sequence is longer.
constexpr std::size_t MaxSequence = 16;

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
        Encoder::DecodedBytes piece;
        for (std::size_t tries = 0;; length += tries++ < MaxSequence ? 1 : length) {
            length = std::min(length, bytes.size() - at);
            piece = encoder.decodeBehind(lead, bytes.substr(at, length));
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

/// The same, with stretches that are found to make the file again when they stand side by side.
/// Those that come out right one by one need not: an encoding may have one code for two characters.
std::optional<std::vector<OriginalBytes>>
provenStretches(const Encoder &encoder, std::string_view bytes, std::string_view utf8) {
    for (const bool all : {false, true}) {
        auto originals = stretches(encoder, bytes, utf8, all);
        if (!originals)
            return std::nullopt;
        EncodedText rebuilt(encoder.codec());
        if (rebuilt.appendRead(utf8, *originals, 0, utf8.size()) && rebuilt.take() == bytes)
            return originals;
    }
    return std::nullopt;
}

/// Three forms of the same text, and up to where they have been looked at.
struct Pieces {
    std::string_view bytes;
    /// What encoding makes of the text.
    std::string_view again;
    std::string_view utf8;

    /// Goes behind what the bytes have in common with what is made again, up to the last ">" in
    /// it. False when all the rest is the same.
    bool skipWhatIsSame() {
        const auto [different, there] =
            std::mismatch(bytes.begin(), bytes.end(), again.begin(), again.end());
        if (different == bytes.end() && there == again.end())
            return false;
        const auto length = static_cast<std::size_t>(different - bytes.begin());
        const std::size_t same = bytes.substr(0, length).rfind('>') + 1;
        const auto ends = std::count(bytes.begin(), bytes.begin() + same, '>');
        utf8.remove_prefix(lengthOf(utf8, static_cast<std::size_t>(ends)));
        bytes.remove_prefix(same);
        again.remove_prefix(same);
        return true;
    }

    /// Cuts off a piece that ends with a ">" and returns it: one that is long enough for what it
    /// costs to look at it.
    Pieces next() {
        std::size_t ends = 0;
        std::size_t length = 0;
        while (length < std::min(LongStretch, bytes.size())) {
            length += lengthOf(bytes.substr(length), 1);
            ++ends;
        }
        Pieces piece;
        for (std::string_view Pieces::*form : {&Pieces::bytes, &Pieces::again, &Pieces::utf8}) {
            std::string_view &all = this->*form;
            piece.*form = all.substr(0, lengthOf(all, ends));
            all.remove_prefix((piece.*form).size());
        }
        return piece;
    }

private:
    /// The length of the beginning of a text that ends with its `ends`th ">", or else of all.
    static std::size_t lengthOf(std::string_view text, std::size_t ends) {
        std::size_t length = 0;
        for (; ends > 0 && length < text.size(); --ends)
            length = std::min(text.find('>', length), text.size() - 1) + 1;
        return length;
    }
};

/// For an encoding without states: looks closely only at the pieces between two ">" that differ.
/// Nothing also where the bytes of that character are not always that character, or it has others.
std::optional<std::vector<OriginalBytes>> originalsInPieces(const Encoder &encoder,
                                                            const Pieces &whole) {
    std::vector<OriginalBytes> originals;
    Pieces rest = whole;
    while (rest.skipWhatIsSame()) {
        if (rest.bytes.empty() || rest.again.empty() || rest.utf8.empty())
            return std::nullopt;
        const auto start = static_cast<std::uint32_t>(rest.utf8.data() - whole.utf8.data());
        const Pieces piece = rest.next();
        auto found = provenStretches(encoder, piece.bytes, piece.utf8);
        if (!found)
            return std::nullopt;
        for (OriginalBytes &original : *found) {
            original.start += start;
            original.end += start;
            originals.push_back(std::move(original));
        }
    }
    return originals;
}

} // namespace

std::optional<std::vector<OriginalBytes>>
findOriginals(const std::string &codec, std::string_view bytes, std::string_view utf8) {
    const Encoder encoder(codec);
    std::string again;
    if (!encoder.hasStates() && encoder.encodeKnown(utf8, again)) {
        if (auto originals = originalsInPieces(encoder, {bytes, again, utf8}))
            return originals;
    }
    return provenStretches(encoder, bytes, utf8);
}

} // namespace quillon::xml
