#pragma once

#include "platform/xml/io/encoding.h"
#include "platform/xml/io/shift_state.h"
#include "platform/xml/storage/source_text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::xml {

/// The bytes of a file while they are put together, stretch by stretch, from text made here and
/// from text that was read. Where the encoding has shift states every stretch starts in the one it
/// needs, whatever stands ahead of it.
class EncodedText {
public:
    /// `codec` as codecFor() gives it; `mark` goes ahead of everything.
    explicit EncodedText(const std::string &codec, std::string mark = {});

    const std::string &codec() const { return encoder_.codec(); }
    /// Makes room for so many bytes, which spares copies while they become more.
    void reserve(std::size_t size) { bytes_.reserve(size); }
    bool isUtf8() const { return encoder_.isUtf8(); }

    /// Whether the encoding holds the text and reads it back as it is.
    bool canHold(std::string_view utf8) const;
    /// Appends text made here. False, with nothing appended, when the encoding cannot hold it.
    bool append(std::string_view utf8);
    /// Appends the stretch from `start` to `end` of a text that was read in this encoding, in the
    /// bytes it was read from. False when that fails; what has been put together is then useless.
    bool appendRead(std::string_view text, const std::vector<OriginalBytes> &originals,
                    std::size_t start, std::size_t end);
    /// Appends bytes as they are, which no text reads back as.
    void appendUndecodable(std::string_view bytes);
    /// Hands the bytes over; nothing when shift states make them read back as another text than
    /// the one appended.
    std::optional<std::string> take();

private:
    bool appendKnown(std::string_view utf8);
    bool appendOriginal(const OriginalBytes &original, std::size_t start, std::size_t end,
                        std::string_view utf8);
    /// Puts the bytes that lead to a state ahead of what is appended next.
    void enter(const ShiftState &state);
    /// Notes what has been appended from `before` on.
    void note(std::size_t before, std::string_view utf8);
    /// Compares what has been appended since the last time with what it reads back as.
    void checkText();

    Encoder encoder_;
    std::string bytes_;
    // All of these are kept up to date only where the encoding has shift states.
    ShiftState state_;
    /// Up to where the bytes are checked, the state there, and the text from there on.
    std::size_t checkedLength_;
    ShiftState checkedState_;
    std::string text_;
    bool readsBack_ = true;
};

} // namespace quillon::xml
