#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/schema/grammar/grammar.h"
#include "platform/xml/schema/grammar/schema_files.h"

namespace quillon::grammar {

/// What is to be read.
struct SchemaSource {
    /// The schema's language is known by its root element; what has none is a DTD. Empty for a DTD
    /// that is nothing but an internal subset.
    QString path;
    /// What a document has between the brackets of its DOCTYPE, in UTF-8.
    QByteArray internalSubset = {};
    /// For XML-Data Reduced: the namespace of the elements of documents, e.g. "x-schema:order.xdr".
    QString namespaceName = {};
    /// Besides the folder of the schema itself.
    QStringList folders = {};
    SchemaFiles::Catalog catalog = {};
};

/// Reads a schema in a bounded child process: whoever has written it, it can neither end this one
/// nor hold it up for longer than some seconds. Raises Fail for what is no schema, and Cancelled
/// when `progress` says so.
Grammar loadGrammar(const SchemaSource &source, const runtime::Progress &progress = {});

} // namespace quillon::grammar
