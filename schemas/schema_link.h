#pragma once

#include "platform/xml/schema/schema_kind.h"

#include <QByteArray>
#include <QString>

namespace quillon::schemas {

using xml::SchemaKind;

/// What names a schema, in the order in which they are asked.
enum class FoundBy : quint8 {
    /// The user, for this document.
    Choice,
    InternalSubset,
    DocumentType,
    SchemaLocation,
    NoNamespaceSchemaLocation,
    ModelInstruction,
    /// A default namespace that starts with "x-schema:".
    XdrNamespace,
    /// One of the user's rules.
    Rule,
    /// A catalog that knows the namespace of the root element.
    Catalog
};

/// Where the file of a schema comes from.
enum class Origin : quint8 { File, Catalog, Fetched, BuiltIn };

/// A schema that a document has, or is said to have.
struct SchemaLink {
    SchemaKind kind = SchemaKind::Unknown;
    FoundBy foundBy = FoundBy::Choice;
    /// As it is written: a path, an address, or a public identifier; empty for an internal subset.
    QString location;
    /// The namespace of the elements that it is for; empty for none.
    QString namespaceName = {};
    /// The file; empty when there is none.
    QString path = {};
    Origin origin = Origin::File;
    /// For a DTD: what the document has between the brackets of its DOCTYPE, in UTF-8.
    QByteArray internalSubset = {};
    /// Why the schema cannot be used, as a sentence; empty when it can.
    QString problem = {};
    /// The address from which the user may have it fetched; empty for none.
    QString fetchable = {};
    /// The document is held against it. False also for one that could be used, where another one
    /// goes first.
    bool isInForce = false;

    bool operator==(const SchemaLink &) const = default;
};

} // namespace quillon::schemas
