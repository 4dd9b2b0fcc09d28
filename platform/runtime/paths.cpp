#include "platform/runtime/paths.h"

#include "platform/runtime/file_names.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace quillon::runtime {

namespace {

bool hasOthersWorkingFolder(const QString &folder) {
    const QFileInfo there(workingFolder(folder));
    return there.isDir() && !there.isSymLink() && there.ownerId() != ::geteuid();
}

} // namespace

QString programFolder() {
    return QCoreApplication::applicationDirPath();
}

QString applicationFolder() {
    return applicationFolder(programFolder(),
                             QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
}

QString applicationFolder(const QString &executableFolder, const QString &dataFolder) {
    if (QFileInfo(executableFolder).isWritable() && !hasOthersWorkingFolder(executableFolder))
        return executableFolder;
    // When this fails, the first file written there reports it.
    QDir().mkpath(dataFolder);
    return dataFolder;
}

QString workingFolder(const QString &applicationFolder) {
    return applicationFolder + QStringLiteral("/Temp");
}

QString absolutePath(const QString &path) {
    if (path.isEmpty())
        return path;
    if (path.startsWith(u'/'))
        return QDir::cleanPath(path);
    std::error_code error;
    const std::string here = std::filesystem::current_path(error).native();
    return QDir::cleanPath(decodedPath(QByteArray::fromStdString(here)) + u'/' + path);
}

QString fileName(const QString &path) {
    return path.sliced(path.lastIndexOf(u'/') + 1);
}

QString timeStamp(const QDateTime &time) {
    // The C locale: the digits are 0 to 9 whatever the user's language.
    return QLocale::c().toString(time, QStringLiteral("yyyyMMddHHmmss"));
}

} // namespace quillon::runtime
