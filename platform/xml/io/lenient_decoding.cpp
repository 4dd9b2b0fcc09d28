#include "platform/xml/io/lenient_decoding.h"

#include "platform/xml/io/encoding.h"
#include "platform/xml/io/shift_state.h"

#include <algorithm>

namespace quillon::xml {

namespace {

/// What is decoded at a time grows from the one to the other as long as all goes well.
constexpr std::size_t LeastChunk = 64;
constexpr std::size_t MostChunk = 4096;

constexpr char32_t LastFirst = 0xF700;
constexpr char32_t LeastFirst = 0xE000;

/// The length of the character that starts at a place; 0 where none does.
std::size_t utf8Length(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t offset) -> unsigned {
        return at + offset < text.size() ? static_cast<unsigned char>(text[at + offset]) : 0;
    };
    const unsigned lead = byte(0);
    if (lead < 0x80)
        return 1;
    if (lead < 0xC2 || lead > 0xF4)
        return 0;
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    // Neither longer than need be nor a half of a pair, nor beyond the last character.
    const unsigned least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (byte(1) < least || byte(1) > most)
        return 0;
    for (std::size_t offset = 2; offset < length; ++offset) {
        if (byte(offset) < 0x80 || byte(offset) > 0xBF)
            return 0;
    }
    return length;
}

/// Decodes with certain characters for the bytes that do not; false where the text has one of them
/// itself.
class Decoder {
public:
    Decoder(const std::string &codec, std::string_view content, bool keepsAll,
            ByteCharacters characters)
        : encoder_(codec), content_(content), keepsAll_(keepsAll) {
        text_.bytes = characters;
    }

    bool run() { return encoder_.isUtf8() ? takeUtf8() : takeOther(); }
    LenientText take() {
        if (!hasUndecodable_)
            text_.bytes = {};
        return std::move(text_);
    }

private:
    bool append(std::string_view decoded) {
        text_.utf8 += decoded;
        return text_.bytes.find(decoded) == decoded.npos;
    }
    void appendUndecodable(std::string_view bytes) {
        hasUndecodable_ = true;
        for (const char byte : bytes)
            text_.bytes.append(byte, text_.utf8);
    }

    bool takeUtf8() {
        std::size_t start = 0;
        for (std::size_t at = 0; at < content_.size();) {
            const std::size_t length = utf8Length(content_, at);
            if (length == 0) {
                if (!append(content_.substr(start, at - start)))
                    return false;
                appendUndecodable(content_.substr(at, 1));
                start = at + 1;
            }
            at += std::max<std::size_t>(length, 1);
        }
        return append(content_.substr(start));
    }

    bool takeOther() {
        std::size_t size = LeastChunk;
        for (std::size_t at = 0; at < content_.size();) {
            const std::string_view chunk = content_.substr(at, size);
            const std::string lead = state_.reachedFrom({});
            std::string decoded;
            std::size_t length = encoder_.decode(lead + std::string(chunk), decoded);
            length -= std::min(length, lead.size());
            if (decoded.empty()) {
                // Nothing at all, or sequences that lead to another state and no further.
                length = std::max(length, undecodableLength(at));
                appendUndecodable(content_.substr(at, length));
                state_.pass(content_.substr(at, length));
                size = LeastChunk;
            } else {
                noteOriginal(chunk.substr(0, length), decoded, lead);
                if (!append(decoded))
                    return false;
                size = std::min(MostChunk, 2 * size);
            }
            at += length;
        }
        return true;
    }

    /// What goes with a byte that does not decode: where each character has two, the next one.
    std::size_t undecodableLength(std::size_t at) const {
        const std::string_view two = content_.substr(at, 2);
        const bool isPair = isUtf16(encoder_.codec()) ||
                            (state_ != ShiftState() && std::ranges::all_of(two, [](char c) {
                                 return c > ' ' && c < '\x7F';
                             }));
        return isPair ? two.size() : 1;
    }

    void noteOriginal(std::string_view source, const std::string &decoded,
                      const std::string &lead) {
        ShiftState after = state_;
        if (encoder_.hasStates())
            after.pass(source);
        std::string encoded;
        if (keepsAll_ || !lead.empty() || after != ShiftState() ||
            !encoder_.encodeKnown(decoded, encoded) || encoded != source) {
            const std::size_t start = text_.utf8.size();
            text_.originals.push_back({static_cast<std::uint32_t>(start),
                                       static_cast<std::uint32_t>(start + decoded.size()),
                                       std::string(source), lead});
        }
        state_ = after;
    }

    Encoder encoder_;
    std::string_view content_;
    bool keepsAll_;
    ShiftState state_;
    LenientText text_;
    bool hasUndecodable_ = false;
};

} // namespace

std::optional<LenientText> decodeLeniently(const std::string &codec, std::string_view bytes,
                                           bool keepsAll) {
    for (char32_t first = LastFirst; first >= LeastFirst; first -= ByteCharacters::Count) {
        Decoder decoder(codec, bytes, keepsAll, ByteCharacters(first));
        if (decoder.run())
            return decoder.take();
    }
    return std::nullopt;
}

} // namespace quillon::xml
