#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/schema/grammar/grammar.h"
#include "platform/xml/schema/grammar/schema_files.h"

namespace quillon::grammar {

/// What is to be read.
struct SchemaSource {
    /// The schema's language is known by its root element; what has none is a DTD, or RELAX NG in
    /// the compact syntax when the file is called *.rnc. Empty for a DTD that is nothing but an
    /// internal subset.
    QString path;
    /// What a document has between the brackets of its DOCTYPE, in UTF-8.
    QByteArray internalSubset = {};
    /// For XML-Data Reduced: the namespace of the elements of documents, e.g. "x-schema:order.xdr".
    QString namespaceName = {};
    /// Of XML Schemas: those of further namespaces of which a document is made.
    QStringList furtherPaths = {};
    /// Besides the folders of the schemas themselves.
    QStringList folders = {};
    SchemaFiles::Catalog catalog = {};
};

/// Reads a schema in this process, which had better be a bounded child. Raises Fail for what is no
/// schema.
Data readGrammar(const SchemaSource &source);

/// The same in a bounded child process: whoever has written it, it can neither end this one
/// nor hold it up for longer than some seconds. Raises Cancelled, too, when `progress` says so.
Grammar loadGrammar(const SchemaSource &source, const runtime::Progress &progress = {});

} // namespace quillon::grammar
