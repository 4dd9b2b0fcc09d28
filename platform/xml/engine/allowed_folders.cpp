#include "platform/xml/engine/allowed_folders.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace quillon::xml {

namespace {

/// With a "/" at the end, so that another folder whose name begins alike is told apart.
QString rootOf(const QString &folder) {
    return folder.isEmpty() || folder.endsWith(u'/') ? folder : folder + u'/';
}

} // namespace

AllowedFolders::AllowedFolders(const QStringList &folders) {
    for (const QString &folder : folders) {
        if (!folder.isEmpty())
            folders_.append(QDir::cleanPath(QFileInfo(folder).absoluteFilePath()));
    }
}

QString AllowedFolders::allowed(const QString &path) const {
    const QString canonical = QFileInfo(path).canonicalFilePath();
    if (canonical.isEmpty() || !QFileInfo(canonical).isFile())
        return {};
    const bool isInside = std::ranges::any_of(folders_, [&](const QString &folder) {
        const QString root = rootOf(QFileInfo(folder).canonicalFilePath());
        return !root.isEmpty() && canonical.startsWith(root);
    });
    return isInside ? canonical : QString();
}

QString AllowedFolders::find(const QString &name) const {
    const QString path = QDir::cleanPath(name);
    QStringList names;
    if (QDir::isRelativePath(path)) {
        names.append(path);
    } else {
        if (QString found = allowed(path); !found.isEmpty())
            return found;
        for (const QString &folder : folders_) {
            for (const QString &root :
                 {rootOf(folder), rootOf(QFileInfo(folder).canonicalFilePath())}) {
                if (!root.isEmpty() && path.startsWith(root))
                    names.append(path.mid(root.size()));
            }
        }
    }
    for (const QString &relative : std::as_const(names)) {
        for (const QString &folder : folders_) {
            if (QString found = allowed(rootOf(folder) + relative); !found.isEmpty())
                return found;
        }
    }
    return {};
}

} // namespace quillon::xml
