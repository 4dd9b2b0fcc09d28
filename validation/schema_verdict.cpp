#include "validation/schema_verdict.h"

#include "platform/xml/schema/verdict/verdict.h"

namespace quillon::validation {

Verdict verdictBy(const std::vector<schemas::SchemaLink> &links, const QString &documentFolder,
                  const xml::PartCatalog &catalog) {
    const QStringList folders =
        documentFolder.isEmpty() ? QStringList() : QStringList(documentFolder);
    std::vector<xml::SchemaForVerdict> judges;
    for (const schemas::SchemaLink &link : links) {
        if (link.isInForce && link.kind != xml::SchemaKind::Unknown)
            judges.push_back({.kind = link.kind,
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
