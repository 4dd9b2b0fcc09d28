#include "tree/counterparts.h"

#include <utility>
#include <vector>

namespace quillon::tree {

using xml::Node;

namespace {

/// Nodes with everything above them.
NodeNumbers withAncestors(const xml::DOMDocument40 &document, const NodeNumbers &numbers) {
    NodeNumbers all;
    for (const quint32 number : numbers) {
        for (Node node = document.nodeByNumber(number); node && all.insert(node.number()).second;)
            node = node.parentNode();
    }
    return all;
}

std::vector<Node> elementsOf(const Node &parent) {
    std::vector<Node> elements;
    for (Node child = parent.firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() == xml::NodeType::Element)
            elements.push_back(child);
    }
    return elements;
}

/// How many elements at the start of two lists read the same.
template <typename Iterator>
std::size_t commonStart(Iterator first, Iterator firstEnd, Iterator second, Iterator secondEnd) {
    std::size_t count = 0;
    while (first != firstEnd && second != secondEnd && (first++)->xml() == (second++)->xml())
        ++count;
    return count;
}

std::vector<std::pair<Node, Node>> pairedElements(const Node &before, const Node &now) {
    const std::vector<Node> old = elementsOf(before);
    const std::vector<Node> others = elementsOf(now);
    std::vector<std::pair<Node, Node>> pairs;
    // As many as before: one of them has been edited. More or fewer: some came or went between
    // those that are still the same at either end.
    std::size_t start = old.size();
    if (old.size() != others.size())
        start = commonStart(old.begin(), old.end(), others.begin(), others.end());
    for (std::size_t at = 0; at < start; ++at)
        pairs.emplace_back(old[at], others[at]);
    const std::size_t end = commonStart(old.rbegin(), old.rend() - std::ptrdiff_t(start),
                                        others.rbegin(), others.rend() - std::ptrdiff_t(start));
    for (std::size_t at = 1; at <= end; ++at)
        pairs.emplace_back(old[old.size() - at], others[others.size() - at]);
    return pairs;
}

} // namespace

NodeNumbers counterparts(const Node &before, const Node &now, const NodeNumbers &wanted) {
    const NodeNumbers onTheWay = withAncestors(before.ownerDocument(), wanted);
    NodeNumbers found;
    std::vector<std::pair<Node, Node>> open{{before, now}};
    while (!open.empty()) {
        const auto [old, other] = open.back();
        open.pop_back();
        if (!onTheWay.contains(old.number()))
            continue;
        if (wanted.contains(old.number()))
            found.insert(other.number());
        for (auto &pair : pairedElements(old, other))
            open.push_back(std::move(pair));
    }
    return found;
}

} // namespace quillon::tree
