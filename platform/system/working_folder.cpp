#include "platform/system/working_folder.h"

#include "platform/runtime/error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace quillon::system {

namespace error_number = runtime::error_number;

QString WorkingFolder::filePath(const QString &relativeName) const {
    const QString folder = QDir::cleanPath(path_);
    const QString path = QDir::cleanPath(folder + QLatin1Char('/') + relativeName);
    return path.startsWith(folder + QLatin1Char('/')) ? path : QString();
}

void WorkingFolder::create() const {
    QDir().mkpath(path_);
}

void WorkingFolder::remove() const {
    QDir(path_).removeRecursively();
}

void copyFile(const QString &from, const QString &to) {
    const QFileInfo source(from);
    const QFileInfo target(to);
    if (!source.isFile())
        runtime::raise(error_number::FileNotFound);
    if (to.isEmpty() || !target.absoluteDir().exists())
        runtime::raise(error_number::PathNotFound);
    if (source.canonicalFilePath() == target.canonicalFilePath())
        return;
    QFile::remove(to);
    std::error_code error;
    std::filesystem::copy_file(QFile::encodeName(from).toStdString(),
                               QFile::encodeName(to).toStdString(), error);
    if (!error)
        return;
    QFile::remove(to);
    if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted)
        runtime::raise(error_number::PermissionDenied);
    runtime::raise(error == std::errc::no_space_on_device ? error_number::DiskFull
                                                          : error_number::DeviceIo);
}

void makeWritable(const QString &path) {
    QFile::setPermissions(path, QFile::permissions(path) | QFile::ReadOwner | QFile::WriteOwner);
}

} // namespace quillon::system
