#pragma once

#include <QDateTime>
#include <QString>

#include <functional>

namespace quillon::runtime {

/// Where the time of day comes from; tests set their own.
struct Clock {
    std::function<QDateTime()> now = [] { return QDateTime::currentDateTime(); };
};

/// The folder of the executable, links to it followed; what is installed with the program stands
/// there, too. Needs a QCoreApplication. No "/" at the end.
QString programFolder();

/// The folder the program keeps its files in: its own folder where the user may write there and no
/// other user's working folder stands, else the user's data folder, which is created. Needs a
/// QCoreApplication. No "/" at the end.
QString applicationFolder();
/// The same rule for any two folders.
QString applicationFolder(const QString &executableFolder, const QString &dataFolder);

/// The folder for backups, copies and preview files under an application folder. Not created here.
QString workingFolder(const QString &applicationFolder);

/// A path that holds from any folder: one that is relative starts at the current folder. "." and
/// ".." are resolved in the text; an empty path stays empty.
QString absolutePath(const QString &path);

/// The last component of a path: name and extension, no folder.
QString fileName(const QString &path);

/// YYYYMMDDHHmmSS in digits, e.g. "20011231235959".
QString timeStamp(const QDateTime &time);

} // namespace quillon::runtime
