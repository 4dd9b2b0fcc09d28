#pragma once

#include "platform/xml/schema/schema_error.h"

#include <QStringList>

namespace quillon::xml {

/// Validates a document by the DTD that its DOCTYPE declaration names, which is the file
/// `schemaPath`. What the declaration and the DTD refer to is looked up in `partFolders`, then in
/// the DTD's own folder; nothing is read from elsewhere or from the network. Gives the errors
/// found, at most one more than MaxSchemaErrors, in the order in which they were found; empty for a
/// valid document. Raises Fail, with a reason, when a part of the DTD cannot be read, and for
/// entities that expand beyond bounds.
std::vector<SchemaError> validateByDtd(const DOMDocument40 &document, const QString &schemaPath,
                                       const QStringList &partFolders = {});

/// The same by an XML Schema without a target namespace: what it includes and imports, and what the
/// document names in xsi:schemaLocation, are its parts. Raises Fail also for a schema that has a
/// target namespace or is no schema.
std::vector<SchemaError> validateByXsd(const DOMDocument40 &document, const QString &schemaPath,
                                       const QStringList &partFolders = {});

} // namespace quillon::xml
