#pragma once

#include "platform/xml/storage/source_text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::xml {

/// Finds the stretches of a file whose bytes are not the ones that EncodedText would make of their
/// text, so that with them it makes the whole file again. `codec` as codecFor() gives it, `bytes`
/// the file without a byte order mark, `utf8` what it decodes to. Nothing when that cannot be done.
std::optional<std::vector<OriginalBytes>>
findOriginals(const std::string &codec, std::string_view bytes, std::string_view utf8);

} // namespace quillon::xml
