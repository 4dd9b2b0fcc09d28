#pragma once

#include "schemas/catalogs.h"
#include "schemas/fetched_schemas.h"
#include "schemas/schema_link.h"

namespace quillon::schemas {

/// Finds the file of a schema that a document names: in the catalogs, beside the document, among
/// what was fetched and what is shipped. What it says must not lead just anywhere: outside of the
/// document's folder only files with the names of schemas are taken. To be used in a child process
/// only, as the catalogs are.
class SchemaLocator {
public:
    /// `documentPath`: an absolute path or an address; empty for a document that is in no file yet.
    SchemaLocator(QString documentPath, const FetchedSchemas &fetched, Catalogs &catalogs)
        : documentPath_(std::move(documentPath)), fetched_(fetched), catalogs_(catalogs) {}

    /// Sets the path of a link and where it comes from, or its problem and what could be fetched,
    /// going by location and namespace.
    void locate(SchemaLink &link) const;
    /// The same for a DTD, whose location is its system identifier.
    void locateDtd(SchemaLink &link, const QString &publicId) const;
    /// A file that the user has named.
    void locateOwn(SchemaLink &link) const;
    /// By its namespace alone. False when no catalog knows that.
    bool locateByNamespace(SchemaLink &link) const;

    /// The local copy of what a schema names, going by catalogs and what was fetched; empty for
    /// none.
    QString copyOf(const QString &name) const;

private:
    bool take(SchemaLink &link, const Catalogs::Answer &answer) const;
    void locateWithoutCatalog(SchemaLink &link) const;
    void locateAddress(SchemaLink &link) const;
    void locateFile(SchemaLink &link, const QString &name) const;

    QString documentPath_;
    const FetchedSchemas &fetched_;
    Catalogs &catalogs_;
};

} // namespace quillon::schemas
