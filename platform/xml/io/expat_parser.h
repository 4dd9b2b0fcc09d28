#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/io/internal_subset.h"
#include "platform/xml/io/name_substitutes.h"
#include "platform/xml/storage/node_appender.h"

#include <optional>

namespace quillon::xml {

/// What stands ahead of the root element.
struct Prolog {
    /// Where the last node of it ends.
    std::uint32_t end;
    InternalSubset subset;
};

/// Reads the prolog of a text into nodes, for somebody else to go on with, be it that what follows
/// is faulty. Nothing where the document type is faulty.
std::optional<Prolog> parseProlog(Arena &arena, NodeAppender &nodes, const std::string &text);

/// Reads a whole text into nodes by expat, which is given another text where there is one: there,
/// names of the newer edition are ones of the older.
ParseError parseByExpat(Arena &arena, const Ref<SourceText> &source,
                        const runtime::Progress &progress,
                        const NameSubstitutes *substitutes = nullptr);

} // namespace quillon::xml
