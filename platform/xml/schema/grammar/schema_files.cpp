#include "platform/xml/schema/grammar/schema_files.h"

#include "platform/xml/io/encoding.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace quillon::grammar {

namespace {

/// Of all files of a schema.
constexpr qint64 MaxSize = 64 << 20;

} // namespace

SchemaFiles::SchemaFiles(const QString &schemaPath, const QStringList &folders, Catalog catalog)
    : folders_(QStringList(QFileInfo(schemaPath).absolutePath()) + folders), allowed_(folders_),
      catalog_(std::move(catalog)) {}

QString SchemaFiles::find(const QString &address, const QString &fromPath,
                          const QString &otherName) {
    for (const QString &name : {address, otherName}) {
        const QString copy = catalog_ && !name.isEmpty() ? catalog_(name) : QString();
        if (copy.isEmpty() || !QFileInfo(copy).isFile())
            continue;
        // What belongs to it stands beside it.
        folders_.append(QFileInfo(copy).absolutePath());
        allowed_ = xml::AllowedFolders(folders_);
        return QFileInfo(copy).canonicalFilePath();
    }
    if (address.isEmpty())
        return {};
    const QUrl url(address);
    // The host of a file's address would be another machine.
    if (!url.isRelative() && (!url.isLocalFile() || !url.host().isEmpty()))
        return {};
    const QDir folder = QFileInfo(fromPath).absoluteDir();
    // The name of a file may hold what an address may not.
    for (const QString &name :
         {url.isLocalFile() ? url.toLocalFile() : QUrl::fromPercentEncoding(address.toUtf8()),
          address}) {
        if (const QString path = allowed_.find(folder.absoluteFilePath(name)); !path.isEmpty())
            return path;
    }
    return {};
}

std::optional<QByteArray> SchemaFiles::read(const QString &path) {
    QFile file(path);
    if (path.isEmpty() || size_ + file.size() > MaxSize || !file.open(QIODevice::ReadOnly))
        return {};
    size_ += file.size();
    std::string bytes = file.readAll().toStdString();
    // A part of a DTD may leave out the version, a document may not.
    constexpr std::string_view withoutVersion = "<?xml encoding";
    if (bytes.starts_with(withoutVersion))
        bytes.insert(withoutVersion.find(' '), " version='1.0'");
    xml::Decoded decoded = xml::decodeFile(std::move(bytes));
    if (!decoded.error.isNull())
        return {};
    return QByteArray::fromStdString(decoded.utf8);
}

} // namespace quillon::grammar
