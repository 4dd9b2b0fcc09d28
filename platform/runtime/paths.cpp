#include "platform/runtime/paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

namespace quillon::runtime {

QString programFolder() {
    return QCoreApplication::applicationDirPath();
}

QString applicationFolder() {
    return applicationFolder(programFolder(),
                             QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
}

QString applicationFolder(const QString &executableFolder, const QString &dataFolder) {
    if (QFileInfo(executableFolder).isWritable())
        return executableFolder;
    // When this fails, the first file written there reports it.
    QDir().mkpath(dataFolder);
    return dataFolder;
}

QString workingFolder(const QString &applicationFolder) {
    return applicationFolder + QStringLiteral("/Temp");
}

QString fileName(const QString &path) {
    return path.sliced(path.lastIndexOf(u'/') + 1);
}

QString timeStamp(const QDateTime &time) {
    // The C locale: the digits are 0 to 9 whatever the user's language.
    return QLocale::c().toString(time, QStringLiteral("yyyyMMddHHmmss"));
}

} // namespace quillon::runtime
