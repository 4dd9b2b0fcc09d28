#include "schemas/schema_language.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <algorithm>

namespace quillon::schemas {

namespace {

/// Enough for comments ahead of the root element.
constexpr qint64 LongestStart = 256 << 10;

const QString CompactSuffix = QStringLiteral(".rnc");

SchemaKind ofNamespace(QStringView space) {
    const std::pair<const char *, SchemaKind> known[] = {
        {"http://www.w3.org/2001/XMLSchema", SchemaKind::Xsd},
        {"urn:schemas-microsoft-com:xml-data", SchemaKind::Xdr},
        {"http://relaxng.org/ns/structure/1.0", SchemaKind::RelaxNg},
        {"http://purl.oclc.org/dsdl/schematron", SchemaKind::Schematron},
        {"http://www.ascc.net/xml/schematron", SchemaKind::Schematron},
    };
    for (const auto &[name, kind] : known) {
        if (space == QLatin1String(name))
            return kind;
    }
    return SchemaKind::Unknown;
}

SchemaKind ofStart(const QByteArray &start) {
    QXmlStreamReader reader(start);
    if (reader.readNextStartElement())
        return ofNamespace(reader.namespaceUri());
    return start.contains("<!ELEMENT") || start.contains("<!ENTITY") ? SchemaKind::Dtd
                                                                     : SchemaKind::Unknown;
}

SchemaKind ofName(const QString &path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    const std::pair<const char *, SchemaKind> known[] = {
        {"dtd", SchemaKind::Dtd},        {"mod", SchemaKind::Dtd},     {"ent", SchemaKind::Dtd},
        {"xsd", SchemaKind::Xsd},        {"xdr", SchemaKind::Xdr},     {"rng", SchemaKind::RelaxNg},
        {"sch", SchemaKind::Schematron}, {"rnc", SchemaKind::RelaxNg},
    };
    for (const auto &[name, kind] : known) {
        if (suffix == QLatin1String(name))
            return kind;
    }
    return SchemaKind::Unknown;
}

} // namespace

SchemaKind languageOf(const QString &path) {
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return ofName(path);
    const SchemaKind kind = ofStart(file.read(LongestStart));
    const SchemaKind named = ofName(path);
    // What is no XML may speak of declarations in a comment.
    const bool isVague = kind == SchemaKind::Unknown || kind == SchemaKind::Dtd;
    return isVague && named != SchemaKind::Unknown ? named : kind;
}

bool isSchema(const QByteArray &content, const QString &address) {
    const SchemaKind kind =
        ofStart(content.first(std::min<qsizetype>(content.size(), LongestStart)));
    return kind != SchemaKind::Unknown ||
           (address.endsWith(CompactSuffix) && !content.trimmed().startsWith('<'));
}

QString targetNamespaceOf(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader reader(file.read(LongestStart));
    return reader.readNextStartElement() && ofNamespace(reader.namespaceUri()) == SchemaKind::Xsd
               ? reader.attributes().value(QLatin1String("targetNamespace")).trimmed().toString()
               : QString();
}

SchemaKind languageOf(const ModelInstruction &model) {
    if (const SchemaKind kind = ofNamespace(model.schemaTypeNamespace); kind != SchemaKind::Unknown)
        return kind;
    if (model.type == QLatin1String("application/relax-ng-compact-syntax"))
        return SchemaKind::RelaxNg;
    return model.type == QLatin1String("application/xml-dtd") ? SchemaKind::Dtd
                                                              : SchemaKind::Unknown;
}

} // namespace quillon::schemas
