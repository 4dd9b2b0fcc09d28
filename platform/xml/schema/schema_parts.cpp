#include "platform/xml/schema/schema_parts.h"

#include "platform/xml/io/encoding.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace quillon::xml {

namespace {

/// The text of an external entity in UTF-8; null when it cannot be decoded.
QByteArray decoded(std::string bytes) {
    // An external entity may leave out the version, a document may not.
    constexpr std::string_view withoutVersion = "<?xml encoding";
    if (bytes.starts_with(withoutVersion))
        bytes.insert(withoutVersion.find(' '), " version='1.0'");
    Decoded decoded = decodeFile(std::move(bytes));
    if (!decoded.error.isNull())
        return {};
    QByteArray text = QByteArray::fromStdString(decoded.utf8);
    declareUtf8(text);
    return text;
}

} // namespace

QString builtInSchemaFor(const QString &namespaceName) {
    if (namespaceName == QLatin1String("http://www.w3.org/XML/1998/namespace"))
        return BuiltInSchemas + QStringLiteral("xml.xsd");
    if (namespaceName == QLatin1String("http://www.w3.org/1999/xlink"))
        return BuiltInSchemas + QStringLiteral("xlink.xsd");
    return {};
}

void declareUtf8(QByteArray &text) {
    const std::string name = declaredEncoding(std::string_view(text.constData(), text.size()));
    if (!name.empty())
        text.replace(text.indexOf(name.c_str(), text.indexOf("encoding")),
                     static_cast<qsizetype>(name.size()), "UTF-8");
}

SchemaParts::SchemaParts(const QString &schemaPath, const QStringList &partFolders)
    : folder_(QFileInfo(QFileInfo(schemaPath).absolutePath()).canonicalFilePath()),
      schemaName_(QFileInfo(schemaPath).fileName()), schemaFolder_({folder_}),
      partFolders_(partFolders + QStringList(folder_)) {}

QString SchemaParts::addressOf(const QString &fileName) const {
    return QString::fromLatin1(QUrl::fromLocalFile(folder_ + u'/' + fileName).toEncoded());
}

QString SchemaParts::find(const QString &address) const {
    if (address.startsWith(BuiltInSchemas))
        return QStringLiteral(":/schemas/") + address.mid(BuiltInSchemas.size());
    const QUrl url(address);
    const QString path = url.isLocalFile() ? url.toLocalFile() : folder_ + u'/' + address;
    const QString name = QDir(folder_).relativeFilePath(path);
    return (name == schemaName_ ? schemaFolder_ : partFolders_).find(name);
}

QByteArray SchemaParts::read(const QString &path) {
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return {};
    return decoded(file.readAll().toStdString());
}

} // namespace quillon::xml
