#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/storage/arena.h"

namespace quillon::xml {

/// Parses a whole text into an arena that holds nothing but its empty document node. Everything
/// in it stays verbatim in `source`. Neither opens nor expands anything the text refers to.
/// On failure returns what stopped it; the arena's content is then to be dropped.
ParseError parse(Arena &arena, const Ref<SourceText> &source,
                 const runtime::Progress &progress = {});

} // namespace quillon::xml
