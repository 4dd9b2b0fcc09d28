#pragma once

#include <QDateTime>
#include <QString>

namespace quillon::runtime {

/// What stands at a path, symbolic links followed.
enum class FileKind {
    /// Nothing, or nothing that this user may know of.
    Missing,
    Regular,
    Folder,
    /// A device, pipe or socket: opening one may wait for ever or have an effect of its own.
    Special,
};
FileKind fileKind(const QString &path);
bool isRegularFile(const QString &path);

/// The size in bytes of what stands at a path; 0 when nothing does.
qint64 fileSize(const QString &path);
/// When it was last written, to the millisecond; invalid when nothing stands there.
QDateTime fileModified(const QString &path);

/// Whether this user may write what stands at a path. A file that nobody is given the right to
/// write is not to be written by root, either, who could.
bool mayWrite(const QString &path);

} // namespace quillon::runtime
