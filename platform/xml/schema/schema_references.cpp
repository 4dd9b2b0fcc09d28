#include "platform/xml/schema/schema_references.h"

#include "platform/xml/engine/libxml_handles.h"
#include "platform/xml/engine/libxml_walk.h"
#include "platform/xml/schema/schema_session.h"

#include <algorithm>
#include <libxml/hash.h>
#include <libxml/list.h>
#include <libxml/valid.h>
#include <tuple>

namespace quillon::xml {

namespace {

QString localPart(const QString &expandedName) {
    return expandedName.mid(expandedName.indexOf(u'}') + 1);
}

/// Whether an element has the value, in the form in which keys are compared, as an attribute's or
/// within its text.
bool carries(xmlNode &element, QString value) {
    if (value.endsWith(QLatin1String(".0")))
        value.chop(2);
    for (xmlAttr *attribute = element.properties; attribute; attribute = attribute->next) {
        const xmlChar *text = attribute->children ? attribute->children->content : nullptr;
        if (QString::fromUtf8(bytes(text)) == value)
            return true;
    }
    return QString::fromUtf8(taken(xmlNodeGetContent(&element))).contains(value);
}

/// The texts of the elements that hold nothing else.
QSet<QString> plainTexts(xmlDoc *doc) {
    QSet<QString> texts;
    for (const xmlNode *at = xmlDocGetRootElement(doc); at; at = followingNode(at)) {
        if (at->type == XML_TEXT_NODE && !at->next && at->parent->children == at)
            texts.insert(QString::fromUtf8(bytes(at->content)).trimmed());
    }
    return texts;
}

struct Search {
    xmlDoc *doc;
    std::vector<Reference> found;
    const xmlChar *value;
};

int noteReference(const void *reference, void *search) {
    auto &to = *static_cast<Search *>(search);
    if (const xmlAttr *attribute = static_cast<const xmlRef *>(reference)->attr)
        to.found.push_back({attribute, QString::fromUtf8(bytes(to.value))});
    return 1;
}

void noteIfDangling(void *references, void *search, const xmlChar *value) {
    auto &to = *static_cast<Search *>(search);
    if (xmlGetID(to.doc, value))
        return;
    to.value = value;
    xmlListWalk(static_cast<xmlList *>(references), noteReference, search);
}

} // namespace

qint64 ElementsByLine::find(const xmlError &error) {
    fill();
    const QString name = localPart(QString::fromUtf8(error.str1));
    // The values of the key, the first one in quotes.
    const QString key = QString::fromUtf8(error.str2).section(u'\'', 1, 1);
    qint64 found = -1;
    for (auto [at, end] = elements_.equal_range(error.line); at != end; ++at) {
        if (QString::fromUtf8(bytes(at->second->name)) != name)
            continue;
        const qint64 position = SchemaSession::elementIndex(at->second);
        if (carries(*at->second, key))
            return position;
        if (found < 0)
            found = position;
    }
    return found;
}

void ElementsByLine::fill() {
    if (!elements_.empty())
        return;
    for (xmlNode *at = xmlDocGetRootElement(doc_); at; at = followingNode(at)) {
        if (at->type == XML_ELEMENT_NODE)
            elements_.emplace(at->line, at);
    }
}

std::vector<Reference> danglingReferences(xmlDoc *doc) {
    Search search{doc, {}, nullptr};
    if (doc->refs)
        xmlHashScan(static_cast<xmlHashTable *>(doc->refs), noteIfDangling, &search);
    if (search.found.empty())
        return {};
    // An element may be an identifier, too, which the library does not note.
    const QSet<QString> texts = plainTexts(doc);
    std::erase_if(search.found,
                  [&](const Reference &found) { return texts.contains(found.value); });
    std::ranges::sort(search.found, {}, [](const Reference &found) {
        return std::tuple(SchemaSession::elementIndex(found.attribute->parent),
                          view(found.attribute->name), found.value);
    });
    return std::move(search.found);
}

} // namespace quillon::xml
