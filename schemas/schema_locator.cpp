#include "schemas/schema_locator.h"

#include "resources/schema_link_texts.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>

namespace quillon::schemas {

namespace texts = resources::schema_link_texts;

namespace {

bool isOfOtherMachine(const QString &location) {
    const QUrl url(location);
    return location.startsWith(QLatin1String("\\\\")) || location.startsWith(QLatin1String("//")) ||
           (url.isLocalFile() && !url.host().isEmpty());
}

bool isAddress(const QString &location) {
    const qsizetype colon = location.indexOf(u':');
    // One letter is the drive of a path of another system.
    return colon > 1 && std::all_of(location.begin(), location.begin() + colon, [](QChar c) {
               return c.unicode() < 0x80 &&
                      (c.isLetterOrNumber() || QStringLiteral("+-.").contains(c));
           });
}

bool isCalledLikeASchema(const QString &path) {
    static const QStringList suffixes{QStringLiteral("xsd"), QStringLiteral("dtd"),
                                      QStringLiteral("rng"), QStringLiteral("rnc"),
                                      QStringLiteral("sch"), QStringLiteral("xdr")};
    return suffixes.contains(QFileInfo(path).suffix().toLower());
}

QString canonicalFile(const QString &path) {
    const QFileInfo file(path);
    return file.isFile() ? file.canonicalFilePath() : QString();
}

/// What an address is for which a file is shipped, by location or namespace.
QString broughtAlong(const SchemaLink &link) {
    const std::pair<const char *, const char *> known[] = {
        {"http://www.w3.org/XML/1998/namespace", ":/schemas/xml.xsd"},
        {"http://www.w3.org/2001/xml.xsd", ":/schemas/xml.xsd"},
        {"http://www.w3.org/1999/xlink", ":/schemas/xlink.xsd"},
        {"http://www.w3.org/1999/xlink.xsd", ":/schemas/xlink.xsd"},
    };
    for (const auto &[name, path] : known) {
        if (link.location == QLatin1String(name) || link.namespaceName == QLatin1String(name))
            return QString::fromLatin1(path);
    }
    return {};
}

} // namespace

void SchemaLocator::locate(SchemaLink &link) const {
    if (take(link, catalogs_.address(link.location)))
        return;
    locateWithoutCatalog(link);
    if (!link.path.isEmpty() || link.namespaceName.isEmpty())
        return;
    SchemaLink byNamespace = link;
    if (locateByNamespace(byNamespace) && !byNamespace.path.isEmpty())
        link = byNamespace;
}

void SchemaLocator::locateDtd(SchemaLink &link, const QString &publicId) const {
    if (!take(link, catalogs_.entity(publicId, link.location)))
        locateWithoutCatalog(link);
}

void SchemaLocator::locateOwn(SchemaLink &link) const {
    link.path = canonicalFile(link.location);
    if (link.path.isEmpty())
        link.problem = texts::MissingFile.toString().arg(link.location);
}

bool SchemaLocator::locateByNamespace(SchemaLink &link) const {
    link.problem.clear();
    link.fetchable.clear();
    return take(link, catalogs_.address(link.namespaceName));
}

QString SchemaLocator::copyOf(const QString &name) const {
    if (const QString path = catalogs_.address(name).path; !path.isEmpty())
        return path;
    return canonicalFile(fetched_.pathOf(name));
}

bool SchemaLocator::take(SchemaLink &link, const Catalogs::Answer &answer) const {
    link.path = answer.path;
    if (!answer.path.isEmpty())
        link.origin = Origin::Catalog;
    else if (!answer.refused.isEmpty())
        link.problem = texts::CatalogLeadsAway.toString().arg(
            link.location.isEmpty() ? link.namespaceName : link.location, answer.refused);
    return !answer.isEmpty();
}

void SchemaLocator::locateWithoutCatalog(SchemaLink &link) const {
    const QString &location = link.location;
    if (isOfOtherMachine(location))
        link.problem = texts::OnOtherMachine.toString().arg(location);
    else if (QUrl(location).isLocalFile())
        locateFile(link, QUrl(location).toLocalFile());
    else if (isAddress(location))
        locateAddress(link);
    else
        locateFile(link, location);
}

void SchemaLocator::locateAddress(SchemaLink &link) const {
    link.path = canonicalFile(fetched_.pathOf(link.location));
    link.origin = Origin::Fetched;
    if (!link.path.isEmpty())
        return;
    link.path = broughtAlong(link);
    link.origin = Origin::BuiltIn;
    if (!link.path.isEmpty())
        return;
    link.origin = Origin::File;
    link.fetchable = FetchedSchemas::fetchable(link.location);
    link.problem = (link.fetchable.isEmpty() ? texts::NotFetchable : texts::OnTheNetwork)
                       .toString()
                       .arg(link.location);
}

void SchemaLocator::locateFile(SchemaLink &link, const QString &name) const {
    if (isAddress(documentPath_)) {
        // Beside it means at another address.
        const QUrl address = QUrl(documentPath_).resolved(QUrl(name));
        SchemaLink there = link;
        there.location = address.toString();
        if (QDir::isRelativePath(name) && isAddress(there.location))
            locateAddress(there);
        there.location = link.location;
        link = there;
        if (link.path.isEmpty() && link.fetchable.isEmpty())
            link.problem = texts::DocumentIsElsewhere.toString().arg(name);
        return;
    }
    if (documentPath_.isEmpty() && QDir::isRelativePath(name)) {
        link.problem = texts::NoFolder.toString().arg(name);
        return;
    }
    const QDir folder(QFileInfo(documentPath_).absolutePath());
    // The name of a file may hold what an address may not, and be written as an address.
    for (const QString &written : {name, QUrl::fromPercentEncoding(name.toUtf8())}) {
        const QString path = canonicalFile(folder.absoluteFilePath(written));
        if (path.isEmpty())
            continue;
        const QString root = folder.canonicalPath();
        const bool isInside =
            !documentPath_.isEmpty() && path.startsWith(root.endsWith(u'/') ? root : root + u'/');
        if (isInside || isCalledLikeASchema(path))
            link.path = path;
        else
            link.problem = texts::OutsideFolder.toString().arg(name);
        return;
    }
    link.problem = texts::MissingFile.toString().arg(name);
}

} // namespace quillon::schemas
