#pragma once

#include "platform/xml/schema/schema_error.h"
#include "platform/xml/schema/schema_kind.h"
#include "platform/xml/schema/schema_source.h"

#include <QStringList>

namespace quillon::xml {

/// A schema by which a document is to be judged. One of an unknown kind says nothing.
struct SchemaForVerdict {
    SchemaKind kind = SchemaKind::Xsd;
    /// Empty for a DTD that is nothing but the document's internal subset.
    QString path = {};
    /// For XSD and XDR: the namespace of the elements that it is for; empty for none.
    QString namespaceName = {};
    /// Where its parts are looked up, besides its own folder.
    QStringList partFolders = {};
    /// For DTD and XSD: what is not there is asked of it.
    PartCatalog catalog = {};
    /// For Schematron: the phase; empty for the schema's own.
    QString phase = {};
};

/// What a document has against it by any number of schemas of any kind: in document order, what
/// has no place at the end; what several schemas say of one place in the same way is said once. At
/// most one more than MaxSchemaErrors of each schema. A schema that cannot be used is a warning,
/// UnusableSchema, with the reason in it, and the others are used all the same.
///
/// Schemas come from strangers, and what libraries do with them is not bounded here: to be run in a
/// child process. toBytes() (schema_error_bytes.h) brings the errors back.
std::vector<SchemaError> verdict(const DOMDocument40 &document,
                                 const std::vector<SchemaForVerdict> &schemas);

} // namespace quillon::xml
