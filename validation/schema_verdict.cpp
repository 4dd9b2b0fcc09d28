#include "validation/schema_verdict.h"

#include "platform/xml/schema/verdict/verdict.h"

#include <optional>

namespace quillon::validation {

namespace {

std::optional<xml::SchemaKind> kindOf(schemas::SchemaKind kind) {
    switch (kind) {
    case schemas::SchemaKind::Dtd:
        return xml::SchemaKind::Dtd;
    case schemas::SchemaKind::Xsd:
        return xml::SchemaKind::Xsd;
    case schemas::SchemaKind::Xdr:
        return xml::SchemaKind::Xdr;
    case schemas::SchemaKind::RelaxNg:
        return xml::SchemaKind::RelaxNg;
    case schemas::SchemaKind::Schematron:
        return xml::SchemaKind::Schematron;
    case schemas::SchemaKind::Unknown:
        break;
    }
    return {};
}

} // namespace

Verdict verdictBy(const std::vector<schemas::SchemaLink> &links, const QString &documentFolder,
                  const xml::PartCatalog &catalog) {
    const QStringList folders =
        documentFolder.isEmpty() ? QStringList() : QStringList(documentFolder);
    std::vector<xml::SchemaForVerdict> judges;
    for (const schemas::SchemaLink &link : links) {
        const std::optional<xml::SchemaKind> kind = kindOf(link.kind);
        if (link.isInForce && kind)
            judges.push_back({.kind = *kind,
                              .path = link.path,
                              .namespaceName = link.namespaceName,
                              .partFolders = folders,
                              .catalog = catalog});
    }
    if (judges.empty())
        return {};
    return [judges](const xml::DOMDocument40 &document) { return xml::verdict(document, judges); };
}

} // namespace quillon::validation
