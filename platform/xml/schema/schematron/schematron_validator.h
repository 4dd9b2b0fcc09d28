#pragma once

#include "platform/xml/schema/schema_error.h"

#include <QStringList>

namespace quillon::xml {

/// What a Schematron schema, ISO's or that of the older namespace, or the rules embedded in a
/// schema of another language, say of a document: what its author has put in words, with the
/// element and attribute concerned, in the order of its patterns; at most one more than
/// MaxSchemaErrors. What the author calls a hint or a warning is one. `phase` names the phase, all
/// patterns are "#ALL"; it is the schema's own when empty.
///
/// Expressions are those of XSLT 1.0, with what EXSLT adds. Parts of the schema, and what
/// document() reads, are looked up in its own folder and in `partFolders`. Raises Fail, with the
/// line, when the schema is none, has faults or cannot be carried out. It is neither bounded, nor
/// does it leave libxslt as it was: for a child process only.
std::vector<SchemaError> validateBySchematron(const DOMDocument40 &document,
                                              const QString &schemaPath,
                                              const QStringList &partFolders = {},
                                              const QString &phase = {});

} // namespace quillon::xml
