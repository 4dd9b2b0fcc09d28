#pragma once

#include <QString>

namespace quillon::system {

/// The folder for backups, copies of stylesheets and schemas, and generated files.
class WorkingFolder {
public:
    explicit WorkingFolder(QString path) : path_(std::move(path)) {}

    const QString &path() const { return path_; }
    /// The path of a file in it; empty when a relative name would leave the folder.
    QString filePath(const QString &relativeName) const;

    /// The same for a file that is to be written: makes the folder where it has gone, as another
    /// instance of the program clears it away when it ends.
    QString fileToWrite(const QString &relativeName) const {
        create();
        return filePath(relativeName);
    }

    /// Makes the folder. One that is there already is no error.
    void create() const;
    /// Removes the folder with everything in it, as far as that is possible.
    void remove() const;

private:
    QString path_;
};

/// Copies a file over another one, which may be read-only. Copying a file onto itself does
/// nothing. Raises FileNotFound, PathNotFound, PermissionDenied, DiskFull or DeviceIo.
void copyFile(const QString &from, const QString &to);

/// Clears the read-only attribute of a file.
void makeWritable(const QString &path);

} // namespace quillon::system
