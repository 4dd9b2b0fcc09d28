#pragma once

#include "platform/xml/dom/dom.h"
#include "schemas/schema_link.h"

#include <QByteArray>

namespace quillon::schemas {

/// A schema, in UTF-8, that a document keeps to, as a start for one's own: a DTD, or an XML Schema
/// for the namespace of the root element, which lets in whatever belongs to other namespaces. It
/// says which children and attributes there are, in what order as far as the document has one,
/// which of them may be missing and which may stand more than once; an XML Schema says also which
/// values are numbers, truths and dates. Looks at the whole document. Raises Fail for one without a
/// root element.
QByteArray inferredSchema(const xml::DOMDocument40 &document, SchemaKind kind);

} // namespace quillon::schemas
