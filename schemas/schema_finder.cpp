#include "schemas/schema_finder.h"

#include "platform/runtime/error.h"
#include "platform/runtime/file_access.h"
#include "platform/xml/schema/grammar/grammar_bytes.h"
#include "platform/xml/schema/grammar/load_grammar.h"
#include "resources/schema_link_texts.h"
#include "schemas/schema_language.h"
#include "schemas/schema_locator.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDateTime>
#include <QHash>
#include <QIODevice>

#include <algorithm>

namespace quillon::schemas {

namespace texts = resources::schema_link_texts;

namespace {

const QString XdrPrefix = QStringLiteral("x-schema:");

/// The same for sources of which the same would be read.
QString keyOf(const grammar::SchemaSource &source) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString &part : QStringList{source.path, source.namespaceName} + source.furtherPaths)
        hash.addData((part + u'\n').toUtf8());
    hash.addData(source.internalSubset);
    return QString::fromLatin1(hash.result().toHex());
}

/// Collects the links of a document and reads what they lead to.
class Finder {
public:
    Finder(const FinderRequest &request, const IsKnown &isKnown)
        : request_(request), isKnown_(isKnown), fetched_(request.fetchedFolder),
          catalogs_(request.catalogs), locator_(request.documentPath, fetched_, catalogs_) {}

    FoundSchemas run() {
        addChoice();
        addDocumentType();
        addLocations();
        addModels();
        addXdr();
        addRules();
        addCatalog();
        for (SchemaLink &link : found_.links) {
            if (link.problem.isEmpty() && link.kind == SchemaKind::Unknown)
                link.kind = languageOf(link.path);
        }
        putInForce();
        return std::move(found_);
    }

private:
    const DocumentReferences &references() const { return request_.references; }
    void add(SchemaLink link) { found_.links.push_back(std::move(link)); }

    void addChoice();
    void addDocumentType();
    void addLocations();
    void addModels();
    void addXdr();
    void addRules();
    void addCatalog();

    using Links = std::vector<SchemaLink *>;

    void putInForce();
    bool read(const Links &group);
    void readBatch(Links batch);
    grammar::SchemaSource sourceOf(const Links &batch) const;
    /// Why schemas cannot be read together; empty when they can.
    QString faultOf(const Links &batch);
    void keep(const Links &batch);

    const FinderRequest &request_;
    const IsKnown &isKnown_;
    FetchedSchemas fetched_;
    Catalogs catalogs_;
    SchemaLocator locator_;
    FoundSchemas found_;
    /// What has been read, by its key.
    QHash<QString, grammar::Data> read_;
};

void Finder::addChoice() {
    if (request_.choice.isEmpty())
        return;
    SchemaLink link{.foundBy = FoundBy::Choice, .location = request_.choice};
    link.namespaceName = references().rootNamespace;
    locator_.locateOwn(link);
    add(link);
}

void Finder::addDocumentType() {
    const DocumentTypeParts &parts = references().documentType;
    const bool isExternal = !parts.systemId.isEmpty() || !parts.publicId.isEmpty();
    // A subset that declares nothing but entities says nothing of what may stand where.
    if (!isExternal && !parts.internalSubset.contains("<!ELEMENT"))
        return;
    SchemaLink link{.kind = SchemaKind::Dtd,
                    .foundBy = isExternal ? FoundBy::DocumentType : FoundBy::InternalSubset,
                    .location = parts.systemId.isEmpty() ? parts.publicId : parts.systemId};
    link.internalSubset = parts.internalSubset;
    if (isExternal)
        locator_.locateDtd(link, parts.publicId);
    add(link);
}

void Finder::addLocations() {
    for (const LocationPair &pair : references().locations) {
        SchemaLink link{.kind = SchemaKind::Xsd,
                        .foundBy = pair.namespaceName.isEmpty() ? FoundBy::NoNamespaceSchemaLocation
                                                                : FoundBy::SchemaLocation,
                        .location = pair.location,
                        .namespaceName = pair.namespaceName};
        locator_.locate(link);
        add(link);
    }
}

void Finder::addModels() {
    for (const ModelInstruction &model : references().models) {
        SchemaLink link{.kind = languageOf(model),
                        .foundBy = FoundBy::ModelInstruction,
                        .location = model.href};
        if (model.href.isEmpty())
            link.problem = texts::NoLocation.toString();
        else if (link.kind == SchemaKind::Unknown && !model.schemaTypeNamespace.isEmpty())
            link.problem =
                texts::UnknownLanguage.toString().arg(model.href, model.schemaTypeNamespace);
        else
            locator_.locate(link);
        add(link);
    }
}

void Finder::addXdr() {
    const QString &space = references().rootNamespace;
    if (!space.startsWith(XdrPrefix))
        return;
    SchemaLink link{.kind = SchemaKind::Xdr,
                    .foundBy = FoundBy::XdrNamespace,
                    .location = space.sliced(XdrPrefix.size()),
                    .namespaceName = space};
    if (link.location.startsWith(u'#'))
        link.problem = texts::InDocument.toString().arg(link.location);
    else
        locator_.locate(link);
    add(link);
}

void Finder::addRules() {
    for (const SchemaRule &rule : request_.rules) {
        if (!rule.fits(request_.documentPath, references().rootName, references().rootNamespace))
            continue;
        SchemaLink link{.foundBy = FoundBy::Rule, .location = rule.path};
        link.namespaceName = references().rootNamespace;
        locator_.locateOwn(link);
        add(link);
    }
}

void Finder::addCatalog() {
    SchemaLink link{.foundBy = FoundBy::Catalog, .location = references().rootNamespace};
    link.namespaceName = references().rootNamespace;
    if (!link.namespaceName.isEmpty() && locator_.locateByNamespace(link))
        add(link);
}

/// The first of those that go together of which any can be read decides; Schematron, which only
/// adds to the others, always counts.
void Finder::putInForce() {
    std::vector<SchemaLink> &links = found_.links;
    const auto groupOf = [](const SchemaLink &link) {
        return link.foundBy == FoundBy::NoNamespaceSchemaLocation ? FoundBy::SchemaLocation
                                                                  : link.foundBy;
    };
    bool isDecided = false;
    for (std::size_t at = 0; at < links.size();) {
        Links group;
        const FoundBy by = groupOf(links[at]);
        // Of several rules that fit it is the first one that holds.
        const std::size_t most = by == FoundBy::Rule ? 1 : links.size();
        for (; at < links.size() && groupOf(links[at]) == by && group.size() < most; ++at)
            group.push_back(&links[at]);
        for (SchemaLink *link : group)
            link->isInForce = link->problem.isEmpty() && link->kind == SchemaKind::Schematron;
        std::erase_if(group, [](const SchemaLink *link) {
            return !link->problem.isEmpty() || link->isInForce;
        });
        if (!isDecided && !group.empty())
            isDecided = read(group);
    }
}

/// Whether any of a group can be read. The grammar is that of the first, with those of further
/// namespaces where it is an XML Schema.
bool Finder::read(const Links &group) {
    std::vector<Links> batches;
    for (SchemaLink *link : group) {
        const auto together = std::ranges::find_if(batches, [&](const Links &batch) {
            return link->kind == SchemaKind::Xsd && batch.front()->kind == SchemaKind::Xsd;
        });
        if (together == batches.end())
            batches.push_back({link});
        else
            together->push_back(link);
    }
    for (const Links &batch : batches)
        readBatch(batch);
    return std::ranges::any_of(group, &SchemaLink::isInForce);
}

void Finder::readBatch(Links batch) {
    QString fault = faultOf(batch);
    if (!fault.isEmpty() && batch.size() > 1) {
        // The others will do without those that are to blame.
        for (SchemaLink *link : batch)
            link->problem = faultOf({link});
        std::erase_if(batch, [](const SchemaLink *link) { return !link->problem.isEmpty(); });
        fault = batch.empty() ? QString() : faultOf(batch);
    }
    for (SchemaLink *link : batch) {
        link->problem = fault;
        link->isInForce = fault.isEmpty();
    }
    if (found_.key.isEmpty() && fault.isEmpty() && !batch.empty())
        keep(batch);
}

grammar::SchemaSource Finder::sourceOf(const Links &batch) const {
    const SchemaLink &first = *batch.front();
    grammar::SchemaSource source{.path = first.path,
                                 .internalSubset = first.internalSubset,
                                 .namespaceName = first.namespaceName};
    for (const SchemaLink *link : batch) {
        if (link->path != source.path && !source.furtherPaths.contains(link->path))
            source.furtherPaths.append(link->path);
        if (link->origin == Origin::Fetched && !source.folders.contains(request_.fetchedFolder))
            source.folders.append(request_.fetchedFolder);
    }
    // Schemas that import each other without saying from where find each other by namespace.
    source.catalog = [this, batch](const QString &name) {
        for (const SchemaLink *link : batch) {
            if (batch.size() > 1 && (name == link->namespaceName || name == link->location))
                return link->path;
        }
        return locator_.copyOf(name);
    };
    return source;
}

QString Finder::faultOf(const Links &batch) {
    const grammar::SchemaSource source = sourceOf(batch);
    const QString key = keyOf(source);
    if (isKnown_(key) || read_.contains(key))
        return {};
    try {
        read_.insert(key, grammar::readGrammar(source));
    } catch (const runtime::Error &error) {
        return error.description();
    }
    return {};
}

void Finder::keep(const Links &batch) {
    found_.key = keyOf(sourceOf(batch));
    const auto read = read_.constFind(found_.key);
    if (read == read_.constEnd())
        return; // known
    found_.grammar = grammar::toBytes(*read);
    for (const grammar::Index path : read->files)
        found_.files.push_back(stampOf(read->strings.at(path).toString()));
    for (const grammar::Index name : read->missing)
        found_.missing.append(read->strings.at(name).toString());
}

} // namespace

FileStamp stampOf(const QString &path) {
    return {path, runtime::fileSize(path), runtime::fileModified(path).toMSecsSinceEpoch()};
}

FoundSchemas findSchemas(const FinderRequest &request, const IsKnown &isKnown) {
    FinderRequest whole = request;
    const bool hasDeeper =
        request.document && addDeeperLocations(request.document, whole.references);
    FoundSchemas found = Finder(whole, isKnown).run();
    found.hasDeeper = hasDeeper;
    return found;
}

QByteArray packed(const FoundSchemas &found) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << found.key << found.grammar << found.missing << found.hasDeeper
           << quint32(found.links.size());
    for (const SchemaLink &link : found.links)
        stream << link.kind << link.foundBy << link.origin << link.location << link.namespaceName
               << link.path << link.internalSubset << link.problem << link.fetchable
               << link.isInForce;
    for (const FileStamp &file : found.files)
        stream << file.path << file.size << file.modified;
    return bytes;
}

FoundSchemas unpacked(const QByteArray &bytes) {
    FoundSchemas found;
    QDataStream stream(bytes);
    quint32 links = 0;
    stream >> found.key >> found.grammar >> found.missing >> found.hasDeeper >> links;
    for (quint32 i = 0; i < links && stream.status() == QDataStream::Ok; ++i) {
        SchemaLink link;
        stream >> link.kind >> link.foundBy >> link.origin >> link.location >> link.namespaceName >>
            link.path >> link.internalSubset >> link.problem >> link.fetchable >> link.isInForce;
        found.links.push_back(std::move(link));
    }
    while (!stream.atEnd() && stream.status() == QDataStream::Ok) {
        FileStamp file;
        stream >> file.path >> file.size >> file.modified;
        found.files.push_back(std::move(file));
    }
    return found;
}

} // namespace quillon::schemas
