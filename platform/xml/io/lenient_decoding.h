#pragma once

#include "platform/xml/io/byte_characters.h"
#include "platform/xml/storage/source_text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::xml {

/// The text of bytes that need not all decode.
struct LenientText {
    std::string utf8;
    /// Those that stand for the bytes which do not decode; none where all do.
    ByteCharacters bytes;
    /// The stretches of the others that encoding would not give back.
    std::vector<OriginalBytes> originals;
};

/// Decodes by a codec as codecFor() gives it. With `keepsAll` all bytes are originals: an encoding
/// may give back stretches one by one and not side by side. Nothing when the text leaves no
/// characters for bytes.
std::optional<LenientText> decodeLeniently(const std::string &codec, std::string_view bytes,
                                           bool keepsAll = false);

} // namespace quillon::xml
