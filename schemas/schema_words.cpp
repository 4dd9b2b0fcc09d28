#include "schemas/schema_words.h"

#include "resources/schema_link_texts.h"

#include <QFileInfo>

#include <algorithm>
#include <vector>

namespace quillon::schemas {

namespace texts = resources::schema_link_texts;

namespace {

QStringView finder(FoundBy by) {
    switch (by) {
    case FoundBy::Choice:
        return texts::ByChoice;
    case FoundBy::InternalSubset:
        return texts::ByInternalSubset;
    case FoundBy::DocumentType:
        return texts::ByDocumentType;
    case FoundBy::SchemaLocation:
        return texts::BySchemaLocation;
    case FoundBy::NoNamespaceSchemaLocation:
        return texts::ByNoNamespaceSchemaLocation;
    case FoundBy::ModelInstruction:
        return texts::ByModelInstruction;
    case FoundBy::XdrNamespace:
        return texts::ByXdrNamespace;
    case FoundBy::Rule:
        return texts::ByRule;
    case FoundBy::Catalog:
        return texts::ByCatalog;
    }
    return {};
}

} // namespace

QString nameOf(const SchemaLink &link) {
    if (!link.path.isEmpty())
        return QFileInfo(link.path).fileName();
    if (link.foundBy == FoundBy::InternalSubset)
        return texts::InternalSubsetName.toString();
    const QString name = link.location.section(u'/', -1);
    return name.isEmpty() ? link.location : name;
}

QString foundByWords(const SchemaLink &link) {
    const QString by = finder(link.foundBy).toString();
    if (link.foundBy == FoundBy::Catalog)
        return by;
    switch (link.origin) {
    case Origin::File:
        return by;
    case Origin::Catalog:
        return texts::ThroughCatalog.toString().arg(by);
    case Origin::Fetched:
        return texts::Fetched.toString().arg(by);
    case Origin::BuiltIn:
        return texts::BuiltIn.toString().arg(by);
    }
    return by;
}

QString languageName(SchemaKind kind) {
    switch (kind) {
    case SchemaKind::Unknown:
        break;
    case SchemaKind::Dtd:
        return QStringLiteral("DTD");
    case SchemaKind::Xsd:
        return QStringLiteral("XML Schema");
    case SchemaKind::Xdr:
        return QStringLiteral("XDR");
    case SchemaKind::RelaxNg:
        return QStringLiteral("RELAX NG");
    case SchemaKind::Schematron:
        return QStringLiteral("Schematron");
    }
    return texts::LanguageUnknown.toString();
}

QString linkWords(const SchemaLink &link) {
    return texts::LinkWords.toString().arg(nameOf(link), foundByWords(link));
}

QString stateWord(const SchemaLink &link) {
    if (link.problem.isEmpty())
        return (link.isInForce ? texts::InForce : texts::Unused).toString();
    return (link.fetchable.isEmpty() ? texts::Useless : texts::Unfetched).toString();
}

QString stateWords(const SchemaLink &link) {
    if (!link.problem.isEmpty())
        return link.problem;
    return (link.isInForce ? texts::InForce : texts::NotAsked).toString();
}

QString summary(const std::vector<SchemaLink> &links) {
    const auto inForce = std::ranges::count_if(links, &SchemaLink::isInForce);
    const auto first = std::ranges::find_if(links, &SchemaLink::isInForce);
    if (inForce == 1)
        return linkWords(*first);
    if (inForce > 1)
        return texts::AndOthers.toString().arg(linkWords(*first)).arg(inForce - 1);
    if (links.empty())
        return texts::NoSchema.toString();
    return texts::Unusable.toString().arg(linkWords(links.front()),
                                          links.front().problem.simplified());
}

QString shortSummary(const std::vector<SchemaLink> &links) {
    if (links.empty() || std::ranges::any_of(links, &SchemaLink::isInForce))
        return summary(links);
    return texts::LinkWords.toString().arg(nameOf(links.front()), stateWord(links.front()));
}

} // namespace quillon::schemas
