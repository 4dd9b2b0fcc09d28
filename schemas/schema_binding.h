#pragma once

#include "platform/xml/dom/dom.h"
#include "schemas/schema_link.h"

#include <vector>

namespace quillon::schemas {

/// How a document can name its schema.
enum class BindingForm : quint8 {
    DocumentType,
    SchemaLocation,
    NoNamespaceSchemaLocation,
    ModelInstruction,
    XdrNamespace
};

/// A schema as it can be named.
struct BindableSchema {
    QString path;
    SchemaKind kind = SchemaKind::Unknown;
    /// Of an XML Schema; empty for none.
    QString targetNamespace = {};
    /// As it is to be written in the document.
    QString location = {};
};

/// The forms in which a document can name a schema, the usual one first.
std::vector<BindingForm> formsFor(const BindableSchema &schema);

/// What will be written, as markup, to be shown.
QString preview(const xml::DOMDocument40 &document, BindingForm form, const BindableSchema &schema);

/// Names the schema in the document, in the place of what names one of the same kind in the same
/// form for the same namespace. Raises Fail, with the reason, when there is no place for it; the
/// document is then as it was.
void bindSchema(const xml::DOMDocument40 &document, BindingForm form, const BindableSchema &schema);

} // namespace quillon::schemas
