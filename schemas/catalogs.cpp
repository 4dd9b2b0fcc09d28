#include "schemas/catalogs.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <libxml/catalog.h>
#include <libxml/globals.h>
#include <libxml/xmlIO.h>
#include <memory>

namespace quillon::schemas {

namespace {

constexpr qint64 LargestCatalog = 16 << 20;

/// A path for an address that is one of a file of this machine's; empty for any other.
QString localPath(const QString &address) {
    const QUrl url(address);
    if (url.isLocalFile() && url.host().isEmpty())
        return url.toLocalFile();
    return address.startsWith(u'/') && !address.startsWith(QLatin1String("//")) ? address
                                                                                : QString();
}

/// In the place of the function by which libxml2 opens whatever a catalog leads to: it would fetch
/// files, too, and wait for devices.
xmlParserInputBuffer *openLocalFile(const char *address, xmlCharEncoding encoding) {
    const QString path = localPath(QString::fromUtf8(address));
    QFile file(path);
    if (path.isEmpty() || !QFileInfo(path).isFile() || file.size() > LargestCatalog ||
        !file.open(QIODevice::ReadOnly))
        return nullptr;
    const QByteArray bytes = file.readAll();
    return xmlParserInputBufferCreateMem(bytes.constData(), int(bytes.size()), encoding);
}

void saysNothing(void *, const char *, ...) {}

Catalogs::Answer answer(xmlChar *given) {
    const std::unique_ptr<xmlChar, void (*)(void *)> owner(given, xmlFree);
    const QString address = QString::fromUtf8(reinterpret_cast<const char *>(given));
    if (address.isEmpty())
        return {};
    const QString path = localPath(address);
    if (path.isEmpty())
        return {{}, address};
    return {QFileInfo(path).isFile() ? QFileInfo(path).canonicalFilePath() : QString(), {}};
}

const xmlChar *text(const QByteArray &utf8) {
    return utf8.isEmpty() ? nullptr : reinterpret_cast<const xmlChar *>(utf8.constData());
}

} // namespace

void Catalogs::load() {
    if (std::exchange(isLoaded_, true))
        return;
    xmlSetGenericErrorFunc(nullptr, saysNothing);
    xmlParserInputBufferCreateFilenameDefault(openLocalFile);
    xmlInitializeCatalog();
    for (const QString &file : furtherFiles_)
        xmlLoadCatalog(QUrl::fromLocalFile(file).toEncoded().constData());
}

Catalogs::Answer Catalogs::entity(const QString &publicId, const QString &systemId) {
    load();
    const QByteArray publicName = publicId.toUtf8();
    const QByteArray systemName = systemId.toUtf8();
    const Answer known = answer(xmlCatalogResolve(text(publicName), text(systemName)));
    return known.isEmpty() && systemName.size() > 0 ? answer(xmlCatalogResolveURI(text(systemName)))
                                                    : known;
}

Catalogs::Answer Catalogs::address(const QString &name) {
    load();
    const QByteArray utf8 = name.toUtf8();
    if (utf8.isEmpty())
        return {};
    // Schemas are registered as either, and public identifiers are looked up as well.
    Answer known = answer(xmlCatalogResolveURI(text(utf8)));
    if (known.isEmpty())
        known = answer(xmlCatalogResolve(text(utf8), text(utf8)));
    return known;
}

} // namespace quillon::schemas
