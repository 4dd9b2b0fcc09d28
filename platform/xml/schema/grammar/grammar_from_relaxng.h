#pragma once

#include "platform/xml/dom/dom.h"
#include "platform/xml/schema/grammar/grammar_data.h"
#include "platform/xml/schema/grammar/schema_files.h"

namespace quillon::grammar {

/// An element is that of a RELAX NG schema in XML syntax.
bool isRelaxNg(const xml::Node &root);

/// Reads a RELAX NG schema in XML syntax with all that it includes. What attributes and elements
/// have to do with each other is lost: an attribute is required where every way through the pattern
/// has it. An element whose name is a class of names is a wildcard, and what is in it anything.
/// What is referred to and not defined is left out and noted. Raises Fail for what is no such
/// schema.
Data grammarFromRelaxNg(const QString &path, SchemaFiles &files);

} // namespace quillon::grammar
