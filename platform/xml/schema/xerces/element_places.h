#pragma once

#include "platform/xml/schema/schema_error.h"

#include <QByteArray>

namespace quillon::xml {

/// Sets lines and columns of errors from the text of their document, in UTF-8, as it would be
/// saved: nodes that have been put in since it was read stand in another text. An error about an
/// attribute stands at its element.
void setPlaces(std::vector<SchemaError> &errors, const DOMDocument40 &document,
               const QByteArray &text);

} // namespace quillon::xml
