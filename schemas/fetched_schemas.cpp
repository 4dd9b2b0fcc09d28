#include "schemas/fetched_schemas.h"

#include "platform/xml/io/atomic_file.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>

namespace quillon::schemas {

namespace {

/// A part of an address as the name of a file or folder; something else where it cannot be one, or
/// would lead elsewhere.
QString asName(const QString &part) {
    constexpr qsizetype Longest = 100;
    const bool isPlain =
        part.size() <= Longest && !part.startsWith(u'.') && std::ranges::all_of(part, [](QChar c) {
            return c.isLetterOrNumber() || c == u'.' || c == u'-' || c == u'_';
        });
    if (isPlain)
        return part;
    // It starts as no plain name does, so that nothing else is called so.
    return u'+' + QString::fromLatin1(
                      QCryptographicHash::hash(part.toUtf8(), QCryptographicHash::Sha256).toHex());
}

} // namespace

QString FetchedSchemas::defaultFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/quillon/schemas");
}

QString FetchedSchemas::fetchable(const QString &address) {
    QUrl url(address.trimmed(), QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty() || !url.userInfo().isEmpty() ||
        (url.scheme() != QLatin1String("https") && url.scheme() != QLatin1String("http")))
        return {};
    if (url.scheme() == QLatin1String("http") && url.port() >= 0)
        return {};
    url.setScheme(QStringLiteral("https"));
    return url.adjusted(QUrl::RemoveFragment).toString(QUrl::FullyEncoded);
}

QString FetchedSchemas::pathOf(const QString &address) const {
    const QUrl url(fetchable(address));
    if (url.isEmpty() || folder_.isEmpty())
        return {};
    QStringList names{url.port() < 0 ? url.host() : u'+' + url.authority()};
    names += url.path().split(u'/', Qt::SkipEmptyParts);
    if (url.hasQuery())
        names.append(u'?' + url.query());
    QString path = folder_;
    for (const QString &name : std::as_const(names))
        path += u'/' + asName(name);
    // A folder and a file may be called alike.
    return names.size() == 1 || url.path().endsWith(u'/') ? path + QStringLiteral("/+") : path;
}

void FetchedSchemas::keep(const QString &address, const QByteArray &content) const {
    const QString path = pathOf(address);
    QDir().mkpath(QFileInfo(path).absolutePath());
    xml::writeFileAtomically(path, {content.constData(), std::size_t(content.size())});
}

qsizetype FetchedSchemas::count() const {
    qsizetype count = 0;
    QDirIterator files(folder_, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    for (; files.hasNext(); files.next())
        ++count;
    return count;
}

void FetchedSchemas::clear() const {
    if (!folder_.isEmpty())
        QDir(folder_).removeRecursively();
}

} // namespace quillon::schemas
