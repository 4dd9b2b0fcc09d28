#pragma once

#include "platform/xml/storage/arena.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::xml {

/// What is to stand in the place of a stretch of a value. UTF-8; an empty stretch inserts.
struct TextChange {
    std::size_t at;
    std::size_t length;
    std::string_view text;
};

/// A value with what of it still stands in the source.
struct ChangedValue {
    std::string value;
    std::vector<KeptStretch> kept;
};

/// The value of a node with stretches of it replaced, ascending and not overlapping. What stands
/// between them is kept as it is written wherever the whole then reads back as this value.
ChangedValue changedValue(const Arena &arena, Number node, std::span<const TextChange> changes);

} // namespace quillon::xml
