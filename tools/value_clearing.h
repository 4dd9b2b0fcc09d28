#pragma once

#include "platform/xml/dom.h"

namespace quillon::tools {

/// Removes all text and all comments of a document and empties all attribute values. CDATA
/// sections and instructions stay.
void ClearValues(const xml::DOMDocument40 &document);

} // namespace quillon::tools
