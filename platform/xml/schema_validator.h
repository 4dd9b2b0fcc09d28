#pragma once

#include "platform/xml/schema_error.h"

namespace quillon::xml {

/// Validates a document by the DTD that its DOCTYPE declaration names. What the declaration and
/// the DTD refer to is read from that folder only, never from elsewhere and never from the network.
/// Gives the errors found, at most MaxSchemaErrors, in the order in which they were found; empty
/// for a valid document. Raises Fail, with a reason, for a DTD that cannot be read and for entities
/// that expand beyond bounds.
std::vector<SchemaError> validateByDtd(const DOMDocument40 &document, const QString &folder);

/// The same by an XML Schema without a target namespace. What it includes and imports, and what
/// the document names in xsi:schemaLocation, is read from the schema's own folder only. Raises
/// Fail also for a schema that has a target namespace or is no schema.
std::vector<SchemaError> validateByXsd(const DOMDocument40 &document, const QString &schemaPath);

} // namespace quillon::xml
