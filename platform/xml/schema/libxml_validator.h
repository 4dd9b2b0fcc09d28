#pragma once

#include "platform/xml/schema/schema_error.h"
#include "platform/xml/schema/schema_source.h"

#include <QStringList>

namespace quillon::xml {

/// What libxml2 says of a document: for schemas and documents that are too much for the validator
/// that is asked first (xerces/schema_validator.h), whose functions take, give and raise the same.
/// Errors come in the order in which they are found. Neither time nor memory are bounded here.
std::vector<SchemaError> libxmlVerdictByDtd(const DOMDocument40 &document,
                                            const QString &schemaPath,
                                            const QStringList &partFolders = {});

/// What the document names in xsi:schemaLocation is a part of the schemas, too.
std::vector<SchemaError> libxmlVerdictByXsd(const DOMDocument40 &document,
                                            const std::vector<XsdSource> &schemas,
                                            const QStringList &partFolders = {});

} // namespace quillon::xml
