#pragma once

#include "platform/xml/dom/dom.h"

namespace quillon::document {

/// How the document in a large file begins, as a document of its own, in which everything that is
/// open at its end is closed: to be shown while the file is read. Of the file, only the first
/// quarter of a megabyte is looked at. Nothing for a file that is read about as quickly, and
/// wherever that beginning is unusual in any way.
xml::DOMDocument40 documentHead(const QString &path);

} // namespace quillon::document
