#pragma once

#include <QDateTime>
#include <QString>

namespace quillon::document {

/// A file and what tells its present content from another one.
struct FileOnDisk {
    QString path;
    QDateTime modified;
    /// In bytes; negative when there is no such file.
    qint64 size = -1;

    static FileOnDisk of(const QString &path);
    /// Whether the file still exists and its content has been replaced since.
    bool hasChanged() const;
};

} // namespace quillon::document
