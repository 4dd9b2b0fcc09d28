#include "search/replacing.h"

#include "platform/xml/dom/in_place.h"
#include "platform/xml/query/xpath.h"
#include "search/replace_plan.h"

namespace quillon::search {

using xml::Node;
using xml::NodeType;

namespace {

/// The numbers of the elements with attributes among these nodes, in the order of their hits.
std::vector<quint32> elementsOf(const xml::DOMDocument40 &document, const std::vector<Hit> &hits) {
    std::vector<quint32> elements;
    for (const Hit &hit : hits) {
        const quint32 element = xml::ownerElement(document.nodeByNumber(hit.node)).number();
        if (element != 0 && (elements.empty() || elements.back() != element))
            elements.push_back(element);
    }
    return elements;
}

std::vector<xml::ValueChange> valueChanges(const std::vector<Hit> &hits,
                                           const std::vector<Change> &changes,
                                           const PartHits &part) {
    std::vector<xml::ValueChange> out;
    for (std::size_t at = part.first; at < part.end; ++at)
        out.push_back({qsizetype(hits[at].at), qsizetype(hits[at].length), changes[at].after});
    return out;
}

QString nameAfter(QString name, const std::vector<Hit> &hits, const std::vector<Change> &changes,
                  const PartHits &part) {
    for (std::size_t at = part.end; at-- > part.first;)
        name.replace(qsizetype(hits[at].at), qsizetype(hits[at].length), changes[at].after);
    return name;
}

} // namespace

Replacing::Replacing(state::DocumentState &state, const state::ViewOptions &options,
                     tree::TreeBuilder &builder, items::Tree &tree)
    : state_(state), options_(options), builder_(builder), tree_(tree) {}

void Replacing::findObstacles(const std::vector<Hit> &hits, std::vector<Change> &changes,
                              const runtime::Progress &progress) const {
    ReplacePlan(state_.m_DOM, options_.viewLock).findObstacles(hits, changes, progress);
}

Replaced Replacing::replace(const std::vector<Hit> &hits, std::vector<Change> &changes,
                            const runtime::Progress &progress) {
    Replaced result;
    if (state_.m_ReadOnly || hits.empty())
        return result;
    findObstacles(hits, changes, progress);
    std::vector<Hit> goodHits;
    std::vector<Change> goodChanges;
    goodHits.reserve(hits.size());
    goodChanges.reserve(hits.size());
    for (std::size_t at = 0; at < hits.size(); ++at) {
        if (changes[at].obstacle.isEmpty()) {
            goodHits.push_back(hits[at]);
            goodChanges.push_back(changes[at]);
        } else if (result.leftOut++ == 0) {
            result.obstacle = changes[at].obstacle;
        }
    }
    result.made = goodHits.size();
    if (result.made > 0)
        change(goodHits, goodChanges);
    return result;
}

void Replacing::change(const std::vector<Hit> &hits, const std::vector<Change> &changes) {
    const xml::DOMDocument40 &document = state_.m_DOM;
    builder_.showOwnAttributes(elementsOf(document, hits));
    std::vector<bool> isChanged;
    // The attributes of one element get their names at once: they may take each other's.
    Node element;
    std::vector<xml::AttributeName> attributes;
    const auto nameAttributes = [&] {
        if (!attributes.empty())
            xml::changeNames(element, attributes);
        attributes.clear();
    };
    for (const PartHits &part : hitsByPart(hits)) {
        const Hit &hit = hits[part.first];
        const Node node = document.nodeByNumber(hit.node);
        if (isChanged.size() <= hit.node)
            isChanged.resize(hit.node + 1);
        isChanged[hit.node] = true;
        if (hit.part == Part::Value) {
            xml::replaceInValue(node, valueChanges(hits, changes, part));
            continue;
        }
        const QString name = nameAfter(node.nodeName(), hits, changes, part);
        if (node.nodeType() == NodeType::Element) {
            xml::changeName(node, name);
            continue;
        }
        const Node owner = xml::ownerElement(node);
        if (!(owner == element))
            nameAttributes();
        element = owner;
        attributes.push_back({node, name});
    }
    nameAttributes();
    const tree::NodeRegistry &registry = builder_.registry();
    tree_.nodes().renewCaptions([&](const items::TreeItem &item) {
        const quint32 number = registry.number(item);
        return number < isChanged.size() && isChanged[number];
    });
    Q_EMIT documentModified();
    builder_.SyncPreview();
}

} // namespace quillon::search
