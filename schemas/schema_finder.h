#pragma once

#include "platform/xml/schema/grammar/grammar_data.h"
#include "schemas/document_references.h"
#include "schemas/schema_link.h"
#include "schemas/schema_settings.h"

#include <functional>
#include <optional>
#include <vector>

namespace quillon::schemas {

/// What is known of a document whose schemas are wanted.
struct FinderRequest {
    /// Looked through for what stands below the root element; empty when that is not wanted.
    xml::DOMDocument40 document = {};
    DocumentReferences references = {};
    /// An absolute path or an address; empty for a document that is in no file yet.
    QString documentPath = {};
    /// The schema that the user has chosen for it; empty for none.
    QString choice = {};
    std::vector<SchemaRule> rules = {};
    QStringList catalogs = {};
    /// Where schemas are that have been fetched.
    QString fetchedFolder = {};
};

/// The state of a file that a grammar was read from.
struct FileStamp {
    QString path;
    qint64 size = 0;
    qint64 modified = 0;

    bool operator==(const FileStamp &) const = default;
};
FileStamp stampOf(const QString &path);

/// Tells whether the grammar of a key is at hand already.
using IsKnown = std::function<bool(const QString &key)>;

/// What has been found for a document.
struct FoundSchemas {
    /// In the order in which they were asked for.
    std::vector<SchemaLink> links;
    /// By what the grammar is known: the same for the same schemas. Empty when there is none.
    QString key;
    /// As toBytes() gives it; empty also when it is known.
    QByteArray grammar;
    std::vector<FileStamp> files;
    /// What the schemas want and what was not there.
    QStringList missing;
    /// The document names schemas below its root element, too.
    bool hasDeeper = false;
};

/// Finds all schemas that are named, and reads the first that can be used. To be used in a child
/// process only: schemas and catalogs come from strangers.
FoundSchemas findSchemas(const FinderRequest &request, const IsKnown &isKnown);

/// For the way from the child process.
QByteArray packed(const FoundSchemas &found);
FoundSchemas unpacked(const QByteArray &bytes);

} // namespace quillon::schemas
