#pragma once

#include "platform/xml/schema/schema_error.h"

#include <QStringList>

namespace quillon::xml {

/// Validates a document by a RELAX NG schema in the XML or the compact syntax. Its parts are looked
/// up in `partFolders`, then in its own folder; nothing is read from elsewhere or from the network.
/// Gives the errors in document order, at most one more than MaxSchemaErrors; empty for a valid
/// document. libxml2 has the word on whether it is; what is wrong, and where, is found by the
/// schema's grammar. Raises Fail, with file and line, when the schema is none, has faults or lacks
/// a part. Not bounded: for a child process.
std::vector<SchemaError> validateByRelaxNg(const DOMDocument40 &document, const QString &schemaPath,
                                           const QStringList &partFolders = {});

} // namespace quillon::xml
