#include "document/recent_files.h"

#include "platform/runtime/file_access.h"

namespace quillon::document {

using settings::RecentFileList;

QStringList RecentFiles::read() const {
    return read(true);
}

QStringList RecentFiles::gone() const {
    return read(false);
}

QStringList RecentFiles::read(bool existing) const {
    QStringList files;
    for (int i = 0; i < RecentFileList.most; ++i) {
        const QString path = RecentFileList.read(store_, i);
        if (path.isEmpty())
            break;
        if (runtime::isRegularFile(path) == existing &&
            !files.contains(path, Qt::CaseInsensitive))
            files.append(path);
    }
    return files;
}

void RecentFiles::write(const QStringList &files) const {
    for (qsizetype i = 0; i < files.size(); ++i)
        RecentFileList.write(store_, i, files[i]);
}

void RecentFiles::add(const QString &path) const {
    QStringList files = read();
    files.removeIf(
        [&](const QString &file) { return file.compare(path, Qt::CaseInsensitive) == 0; });
    files.prepend(path);
    write(files);
}

} // namespace quillon::document
