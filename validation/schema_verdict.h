#pragma once

#include "schemas/schema_link.h"
#include "validation/whole_check.h"

namespace quillon::validation {

/// What gives the verdict of all schemas that a document is held against; empty where there is
/// none. Parts of them are looked up in the folder of the document, too.
Verdict verdictBy(const std::vector<schemas::SchemaLink> &links, const QString &documentFolder);

} // namespace quillon::validation
