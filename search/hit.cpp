#include "search/hit.h"

namespace quillon::search {

Hits nodeHits(HitSource source, const QString &title, const std::vector<xml::Node> &nodes) {
    Hits hits{source, title, {}};
    hits.hits.reserve(nodes.size());
    for (const xml::Node &node : nodes)
        hits.hits.push_back({node.number(), Part::Node, 0, 0});
    return hits;
}

} // namespace quillon::search
