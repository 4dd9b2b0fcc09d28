#pragma once

#include "platform/xml/engine/allowed_folders.h"

#include <QByteArray>

#include <functional>
#include <optional>

namespace quillon::grammar {

/// The files that a schema consists of: those below some folders, and those that a catalog knows.
/// Nothing is ever fetched.
class SchemaFiles {
public:
    /// Gives the path of a local copy of what an address, or the name of a namespace or a public
    /// identifier, stands for; empty when it knows none.
    using Catalog = std::function<QString(const QString &address)>;

    /// The folder of the schema itself is always one of the folders.
    SchemaFiles(const QString &schemaPath, const QStringList &folders, Catalog catalog = {});

    /// The path, links followed, of the file at an address that stands in a file; empty when there
    /// is none that may be read. `otherName` is a further name for the catalog: the namespace, or
    /// the public identifier.
    QString find(const QString &address, const QString &fromPath, const QString &otherName = {});

    /// The text of a file in UTF-8; nothing when it cannot be read or decoded, or when more has
    /// been read already than a schema consists of.
    std::optional<QByteArray> read(const QString &path);

private:
    QStringList folders_;
    xml::AllowedFolders allowed_;
    Catalog catalog_;
    qint64 size_ = 0;
};

} // namespace quillon::grammar
