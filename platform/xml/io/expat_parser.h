#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/storage/node_appender.h"

#include <optional>

namespace quillon::xml {

/// Reads what stands ahead of the root element into nodes, for somebody else to go on with. Returns
/// where they end, be it that what follows is faulty; nothing where there is a document type.
std::optional<std::uint32_t> parseProlog(Arena &arena, NodeAppender &nodes,
                                         const std::string &text);

/// Reads a whole text into nodes by expat.
ParseError parseByExpat(Arena &arena, const Ref<SourceText> &source,
                        const runtime::Progress &progress);

} // namespace quillon::xml
