#pragma once

#include "platform/xml/schema_error.h"

#include <QStringList>

namespace quillon::xml {

/// Validates a document by the DTD that its DOCTYPE declaration names. What the declaration and
/// the DTD refer to is read from these folders only, never from elsewhere and never from the
/// network; relative names start from the first.
/// Gives the errors found, at most MaxSchemaErrors, in the order in which they were found; empty
/// for a valid document. Raises Fail, with a reason, for a DTD of which a part cannot be read and
/// for entities that expand beyond bounds.
std::vector<SchemaError> validateByDtd(const DOMDocument40 &document, const QStringList &folders);

/// The same by an XML Schema without a target namespace. What it includes and imports, and what
/// the document names in xsi:schemaLocation, is read from the schema's own folder and from those
/// given only. Raises
/// Fail also for a schema that has a target namespace or is no schema.
std::vector<SchemaError> validateByXsd(const DOMDocument40 &document, const QString &schemaPath,
                                       const QStringList &otherFolders = {});

} // namespace quillon::xml
