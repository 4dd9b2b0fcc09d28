#pragma once

#include "platform/xml/schema/grammar/grammar_data.h"
#include "platform/xml/schema/grammar/schema_files.h"

namespace quillon::grammar {

/// Reads an XML Schema 1.0, or several of different namespaces, with all that they include, import
/// and redefine. They are not checked: what is wrong with a schema is for those to say who
/// validate by it. What is referred to and not declared takes anything, what cannot be read is left
/// out, and both are noted. Raises Fail for what is no XML Schema, or one whose parts nest too
/// deeply.
Data grammarFromXsd(const QStringList &paths, SchemaFiles &files);

} // namespace quillon::grammar
