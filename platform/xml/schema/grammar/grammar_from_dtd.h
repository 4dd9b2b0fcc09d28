#pragma once

#include "platform/xml/schema/grammar/grammar_data.h"
#include "platform/xml/schema/grammar/schema_files.h"

namespace quillon::grammar {

/// Reads a DTD with all its parts. `path` is the external subset, empty for none; `internalSubset`
/// is what stands between the brackets of the document's DOCTYPE, in UTF-8, and outranks it. Names
/// are whole qualified names, without namespaces; any element may be the root. The comment right
/// ahead of a declaration documents it; the line of a declaration is the one it ends in. Parts that
/// cannot be read are left out and noted. Raises Fail, with file and line, for what is no DTD.
Data grammarFromDtd(const QString &path, const QByteArray &internalSubset, SchemaFiles &files);

} // namespace quillon::grammar
