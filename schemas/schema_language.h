#pragma once

#include "schemas/document_references.h"
#include "schemas/schema_link.h"

namespace quillon::schemas {

/// The language of a schema, going by what its file starts with, else by its name.
SchemaKind languageOf(const QString &path);
/// Whether what stands at an address may be a schema, going by what it starts with; one that is no
/// XML also by its name.
bool isSchema(const QByteArray &content, const QString &address);
/// The target namespace of an XML Schema; empty for none and for any other file.
QString targetNamespaceOf(const QString &path);

/// What an instruction says of the language; Unknown when it leaves that to the file, or names one
/// that is not known.
SchemaKind languageOf(const ModelInstruction &model);

} // namespace quillon::schemas
