#pragma once

#include "platform/xml/dom/dom.h"
#include "platform/xml/schema/grammar/grammar_data.h"
#include "platform/xml/schema/grammar/schema_files.h"

namespace quillon::grammar {

/// An element is that of an XML-Data Reduced schema.
bool isXdr(const xml::Node &root);

/// Reads an XML-Data Reduced schema, and those beside it that it refers to by "x-schema:". The
/// names of its elements are in the namespace `namespaceName`: that of the document's elements
/// which the schema is for. What an open element may have behind its declared content is a
/// wildcard. Raises Fail, with the line, for a schema with faults.
Data grammarFromXdr(const QString &path, const xml::Node &root, SchemaFiles &files,
                    const QString &namespaceName = {});

} // namespace quillon::grammar
