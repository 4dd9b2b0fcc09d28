#pragma once

#include "platform/xml/dom/dom.h"

namespace quillon::tools {

/// Removes all text and all comments of a document and empties all attribute values. CDATA
/// sections and instructions stay, and so do namespace declarations: emptied ones would make the
/// document unreadable for others.
void ClearValues(const xml::DOMDocument40 &document);

} // namespace quillon::tools
