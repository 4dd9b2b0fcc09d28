#include "document/recent_files.h"

#include "platform/runtime/file_access.h"

namespace quillon::document {

namespace {

constexpr int MaxRead = 10;

QString section() {
    return QStringLiteral("MRU");
}

QString keyOf(qsizetype position) {
    return QStringLiteral("File%1").arg(position);
}

} // namespace

QStringList RecentFiles::read() const {
    QStringList files;
    for (int i = 1; i <= MaxRead; ++i) {
        const QString path = store_.GetSetting(section(), keyOf(i));
        if (path.isEmpty())
            break;
        if (runtime::isRegularFile(path) && !files.contains(path, Qt::CaseInsensitive))
            files.append(path);
    }
    return files;
}

void RecentFiles::write(const QStringList &files) const {
    for (qsizetype i = 0; i < files.size(); ++i)
        store_.SaveSetting(section(), keyOf(i + 1), files[i]);
}

void RecentFiles::add(const QString &path) const {
    QStringList files = read();
    files.removeIf(
        [&](const QString &file) { return file.compare(path, Qt::CaseInsensitive) == 0; });
    files.prepend(path);
    write(files);
}

} // namespace quillon::document
