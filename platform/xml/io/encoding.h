#pragma once

#include "platform/xml/io/iconv_converter.h"
#include "platform/xml/storage/arena.h"

#include <QString>

#include <string>
#include <string_view>

namespace quillon::xml {

/// The bytes of a file, decoded.
struct Decoded {
    /// The text, with the line ends of the file.
    std::string utf8;
    FileFormat format;
    std::vector<OriginalBytes> originals;
    /// Null when all went well; else a Japanese sentence, and the text up to the fault in utf8.
    QString error;
};

/// Decodes a whole file: by its byte order mark, else by its declaration, else as UTF-8. A
/// UTF-8 text is not looked at (the parser does). The bytes are taken over.
Decoded decodeFile(std::string bytes);

/// The value of `encoding` in a document's XML declaration; empty when there is none.
std::string declaredEncoding(std::string_view utf8);
/// The byte order mark of a codec, as it stands ahead of a file.
std::string_view byteOrderMark(std::string_view codec);
/// The first line end of a text; LF where it has none.
LineEnd lineEndOf(std::string_view utf8);
/// Whether a codec is a UTF-16, which no declaration within the text can tell.
bool isUtf16(std::string_view codec);

/// The name of the codec for an encoding as a declaration names it, e.g. "CP932" for "x-sjis";
/// empty when it is not supported.
std::string codecFor(std::string_view declaredName);

/// Encodes text stretch by stretch. Every stretch starts and ends in the encoding's initial
/// state.
class Encoder {
public:
    /// `codec` as codecFor() gives it.
    explicit Encoder(const std::string &codec);

    const std::string &codec() const { return codec_; }
    /// The text passes through as it is.
    bool isUtf8() const { return passThrough_; }
    /// What a byte means depends on escape sequences that may stand far ahead of it.
    bool hasStates() const { return hasStates_; }
    /// Appends the encoded text to `out`. False, with `out` as it was, when the encoding cannot
    /// hold a character or would read it back as another one.
    bool encode(std::string_view utf8, std::string &out) const;
    /// The same without the second check, for text that is known to come from this encoding.
    bool encodeKnown(std::string_view utf8, std::string &out) const;
    /// Decodes from the initial state, appending to `out`. Returns the number of bytes decoded.
    std::size_t decode(std::string_view bytes, std::string &out) const;

    struct DecodedBytes {
        std::string utf8;
        /// How many of the bytes that makes.
        std::size_t length;
    };
    /// Decodes bytes from the state that the escape sequences `lead` lead to.
    DecodedBytes decodeBehind(const std::string &lead, std::string_view bytes) const;

private:
    bool findStates() const;

    std::string codec_;
    bool passThrough_;
    IconvConverter encoder_;
    IconvConverter decoder_;
    bool hasStates_;
};

} // namespace quillon::xml
