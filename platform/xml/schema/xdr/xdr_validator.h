#pragma once

#include "platform/xml/schema/schema_error.h"
#include "platform/xml/schema/xdr/xdr_schema.h"

#include <QString>

#include <vector>

namespace quillon::xdr {

/// Validates documents by XML-Data Reduced schemas. A document names its schemas by namespaces
/// ("x-schema:" and a file name, or "x-schema:#" and the name of a Schema element that stands
/// earlier in the document), or they are added here under any namespace.
class Validator {
public:
    /// Schema files are looked up in these folders only.
    explicit Validator(const QStringList &folders) : schemas_(folders) {}

    /// Makes a schema the one of a namespace; "" is the one of elements without a namespace. Raises
    /// Fail, with the line, when it is no XDR schema or has faults.
    void addSchema(const QString &namespaceName, const xml::DOMDocument40 &schema);

    /// The errors of a document in document order (references to missing ids at the end), at most
    /// one more than xml::MaxSchemaErrors; empty for a valid one. Elements of namespaces without a
    /// schema are not looked at; NoSchemaFound when that goes for all of them. Raises Fail when a
    /// schema that the document names cannot be loaded.
    std::vector<xml::SchemaError> validate(const xml::DOMDocument40 &document);

private:
    SchemaSet schemas_;
};

} // namespace quillon::xdr
