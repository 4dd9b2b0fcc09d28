#pragma once

#include "platform/xml/schema/schema_error.h"
#include "platform/xml/schema/schema_source.h"

#include <QStringList>

namespace quillon::xml {

/// Validates a document by the DTD that its DOCTYPE declaration names, which is the file
/// `schemaPath`. What the declaration and the DTD refer to is looked up in `partFolders`, then in
/// the DTD's own folder, then in `catalog`; nothing is read from elsewhere or from the network.
/// Gives the errors found, in document order, at most one more than MaxSchemaErrors; empty for a
/// valid document. Raises Fail, with a reason, when a part of the DTD cannot be read, and for
/// entities that expand beyond bounds.
///
/// This and the others work in a bounded child of their own. Where Xerces exceeds its bounds
/// libxml2, which other documents and schemas bring to its knees, decides in this process.
std::vector<SchemaError> validateByDtd(const DOMDocument40 &document, const QString &schemaPath,
                                       const QStringList &partFolders = {},
                                       const PartCatalog &catalog = {});

/// The same by an XML Schema without a target namespace: what it includes and imports, and what the
/// document names in xsi:schemaLocation, are its parts. What it imports and is not there is a
/// warning. Raises Fail also for a schema that has a target namespace or is no schema.
std::vector<SchemaError> validateByXsd(const DOMDocument40 &document, const QString &schemaPath,
                                       const QStringList &partFolders = {});

/// The same by several XML Schemas, each for the elements of its namespace, which may import each
/// other without saying where. What the document names is left alone.
std::vector<SchemaError> validateByXsds(const DOMDocument40 &document,
                                        const std::vector<XsdSource> &schemas,
                                        const QStringList &partFolders = {},
                                        const PartCatalog &catalog = {});

} // namespace quillon::xml
