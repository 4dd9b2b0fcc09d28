#pragma once

#include "platform/xml/schema/schema_error.h"

#include <QByteArray>

namespace quillon::xml {

/// Errors as bytes, for their way out of a child process. Their nodes, which are elements of the
/// document, are told by their places in it.
QByteArray toBytes(const std::vector<SchemaError> &errors, const DOMDocument40 &document);

/// The errors that toBytes() wrote, with their nodes in a document that has the same elements in
/// the same order. Bytes that it did not write give the errors up to where they go wrong.
std::vector<SchemaError> schemaErrorsFrom(const QByteArray &bytes, const DOMDocument40 &document);

} // namespace quillon::xml
