#include "platform/xml/schema/schema_session.h"

#include "platform/runtime/error.h"
#include "resources/validation_texts.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <libxml/SAX2.h>
#include <libxml/parserInternals.h>
#include <limits>

namespace quillon::xml {

namespace {

/// The loader that libxml2 calls has no argument of ours.
SchemaSession *current = nullptr;

constexpr quint64 BaseExpansion = 16 << 20;
constexpr quint64 ExpansionPerByte = 4;
constexpr int MaxEntityDepth = 100;

void addSaturated(quint64 &sum, quint64 value) {
    sum = value > std::numeric_limits<quint64>::max() - sum ? std::numeric_limits<quint64>::max()
                                                            : sum + value;
}

} // namespace

SchemaSession::SchemaSession(const QString &schemaPath, const QStringList &partFolders)
    : parts_(schemaPath, partFolders), loaderBefore_(xmlGetExternalEntityLoader()),
      reportBefore_(xmlStructuredError), reportContextBefore_(xmlStructuredErrorContext) {
    current = this;
    xmlSetExternalEntityLoader(openEntity);
    xmlSetStructuredErrorFunc(this, [](void *session, xmlError *error) {
        const Report &receiver = static_cast<SchemaSession *>(session)->report;
        if (receiver && error)
            receiver(*error);
    });
}

SchemaSession::~SchemaSession() {
    xmlSetStructuredErrorFunc(reportContextBefore_, reportBefore_);
    xmlSetExternalEntityLoader(loaderBefore_);
    current = nullptr;
}

xmlParserInput *SchemaSession::open(const QString &path, const QByteArray &url,
                                    xmlParserCtxt *context) const {
    QByteArray text = SchemaParts::read(path);
    if (prepare && !text.isNull())
        text = prepare(text, QString::fromUtf8(url));
    if (text.isNull() || text.size() > std::numeric_limits<int>::max())
        return nullptr;
    xmlParserInputBuffer *buffer = xmlParserInputBufferCreateMem(
        text.constData(), static_cast<int>(text.size()), XML_CHAR_ENCODING_NONE);
    xmlParserInput *input = xmlNewIOInputStream(context, buffer, XML_CHAR_ENCODING_NONE);
    if (input)
        input->filename =
            reinterpret_cast<char *>(xmlStrdup(reinterpret_cast<const xmlChar *>(url.constData())));
    return input;
}

xmlParserInput *SchemaSession::openEntity(const char *url, const char *, xmlParserCtxt *context) {
    const QString name = QString::fromUtf8(url);
    xmlParserInput *input = current->open(current->parts_.find(name), url, context);
    if (!input && current->missing_.isNull())
        current->missing_ = QFileInfo(QUrl(name).path()).fileName();
    return input;
}

xmlParserInput *SchemaSession::resolveEntity(void *context, const xmlChar *publicId,
                                             const xmlChar *systemId) {
    // The name of a file that was chosen may hold what an address may not.
    const QString name = QString::fromUtf8(reinterpret_cast<const char *>(systemId));
    auto *parser = static_cast<xmlParserCtxt *>(context);
    if (xmlParserInput *input =
            current->open(current->parts_.find(name), current->addressOf(name), parser))
        return input;
    return current->original_.resolveEntity(context, publicId, systemId);
}

void SchemaSession::startElement(void *context, const xmlChar *name, const xmlChar *prefix,
                                 const xmlChar *uri, int namespaceCount, const xmlChar **namespaces,
                                 int attributeCount, int defaultCount, const xmlChar **attributes) {
    current->original_.startElementNs(context, name, prefix, uri, namespaceCount, namespaces,
                                      attributeCount, defaultCount, attributes);
    // The content of an entity is parsed in a context of its own.
    if (context != current->context_ || !current->context_->node)
        return;
    xmlNode &node = *current->context_->node;
    node._private = reinterpret_cast<void *>(++current->elementCount_);
    // For every report libxml2 looks through all that stands ahead of the node for marks that are
    // not made here. Nothing else follows this link.
    node.prev = nullptr;
}

xmlEntity *SchemaSession::getEntity(void *context, const xmlChar *name) {
    xmlEntity *entity = current->original_.getEntity(context, name);
    if (entity && entity->etype != XML_INTERNAL_PREDEFINED_ENTITY)
        current->expand(current->expandedSize(entity, 0), context);
    return entity;
}

xmlEntity *SchemaSession::getParameterEntity(void *context, const xmlChar *name) {
    xmlEntity *entity = current->original_.getParameterEntity(context, name);
    // Each one that stands in another comes here by itself.
    if (entity)
        current->expand(static_cast<quint64>(std::max(entity->length, 0)) + 1, context);
    return entity;
}

void SchemaSession::expand(quint64 size, void *context) {
    addSaturated(expanded_, size);
    if (expanded_ > expansionLimit_) {
        xmlStopParser(static_cast<xmlParserCtxt *>(context));
        xmlStopParser(context_);
    }
}

QByteArray SchemaSession::contentOf(const xmlEntity *entity) const {
    if (entity->etype != XML_EXTERNAL_GENERAL_PARSED_ENTITY)
        return reinterpret_cast<const char *>(entity->content);
    QFile file(parts_.find(QString::fromUtf8(reinterpret_cast<const char *>(entity->URI))));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

quint64 SchemaSession::expandedSize(const xmlEntity *entity, int depth) {
    if (depth > MaxEntityDepth)
        return std::numeric_limits<quint64>::max();
    if (const auto known = sizes_.constFind(entity); known != sizes_.constEnd())
        return *known;
    // Stands for entities that contain themselves, too.
    sizes_.insert(entity, std::numeric_limits<quint64>::max());
    const QByteArray content = contentOf(entity);
    auto size = static_cast<quint64>(content.size()) + 1;
    for (qsizetype at = content.indexOf('&'); at >= 0; at = content.indexOf('&', at + 1)) {
        const qsizetype end = content.indexOf(';', at);
        if (end < 0)
            break;
        const QByteArray name = content.mid(at + 1, end - at - 1);
        const xmlEntity *inner =
            xmlGetDocEntity(context_->myDoc, reinterpret_cast<const xmlChar *>(name.constData()));
        if (inner && inner->etype != XML_INTERNAL_PREDEFINED_ENTITY)
            addSaturated(size, expandedSize(inner, depth + 1));
    }
    sizes_.insert(entity, size);
    return size;
}

XmlDocument SchemaSession::parse(QByteArray utf8, bool loadDtd) {
    const std::unique_ptr<xmlParserCtxt, Releaser<xmlFreeParserCtxt>> context(xmlNewParserCtxt());
    context_ = context.get();
    elementCount_ = 0;
    expanded_ = 0;
    expansionLimit_ = BaseExpansion + ExpansionPerByte * static_cast<quint64>(utf8.size());
    sizes_.clear();
    declareUtf8(utf8);
    original_ = *context_->sax;
    context_->sax->startElementNs = startElement;
    context_->sax->getEntity = getEntity;
    context_->sax->getParameterEntity = getParameterEntity;
    context_->sax->resolveEntity = resolveEntity;
    // XML_PARSE_HUGE lets documents nest deeply; the expansion of entities is bounded here instead.
    int options = XML_PARSE_NONET | XML_PARSE_HUGE | XML_PARSE_BIG_LINES | XML_PARSE_NOENT;
    options |= loadDtd ? XML_PARSE_DTDLOAD : 0;
    XmlDocument doc(xmlCtxtReadMemory(context_, utf8.constData(), static_cast<int>(utf8.size()),
                                      addressOf(DocumentName).constData(), "UTF-8", options));
    context_ = nullptr;
    if (expanded_ > expansionLimit_)
        throw runtime::Error(runtime::error_number::Fail,
                             resources::validation_texts::ExpansionLimit.toString());
    return doc;
}

qint64 SchemaSession::elementIndex(const xmlError &error) const {
    auto *node = static_cast<const xmlNode *>(error.node);
    return elementIndex(node || !context_ ? node : context_->node);
}

qint64 SchemaSession::elementIndex(const xmlNode *node) {
    while (node && !(node->type == XML_ELEMENT_NODE && node->_private)) {
        // A document has other members than a node where the parent would be.
        if (node->type != XML_ELEMENT_NODE && node->type != XML_ATTRIBUTE_NODE &&
            node->type != XML_TEXT_NODE && node->type != XML_ENTITY_REF_NODE)
            return -1;
        node = node->parent;
    }
    return node ? reinterpret_cast<qint64>(node->_private) - 1 : -1;
}

} // namespace quillon::xml
