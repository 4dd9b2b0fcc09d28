#pragma once

#include "platform/xml/schema/schema_source.h"
#include "schemas/schema_link.h"
#include "validation/whole_check.h"

namespace quillon::validation {

/// What gives the verdict of all schemas that a document is held against; empty where there is
/// none. Parts of them are looked up in the folder of the document, too, and asked of a catalog.
Verdict verdictBy(const std::vector<schemas::SchemaLink> &links, const QString &documentFolder,
                  const xml::PartCatalog &catalog);

} // namespace quillon::validation
