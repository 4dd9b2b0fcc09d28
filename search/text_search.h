#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/dom/part_walk.h"
#include "search/hit.h"
#include "search/text_pattern.h"

#include <optional>
#include <vector>

namespace quillon::search {

/// Looks for a pattern in parts of the nodes of a document.
class TextSearch {
public:
    /// `parts`: a sum of xml::part_kind. The pattern must outlive the search.
    TextSearch(const TextPattern &pattern, unsigned parts) : pattern_(pattern), parts_(parts) {}

    /// All hits in these nodes and below them, in document order. The nodes come in document order
    /// themselves, none below another. Raises Cancelled when the progress function says so, and as
    /// TextPattern::findAll() does.
    std::vector<Hit> findAll(const std::vector<xml::Node> &tops,
                             const runtime::Progress &progress) const;

    /// The first hit there in a node or behind it; of all there are when the node is not among
    /// these. In the node itself only hits count that are in the part `from` names, from its place
    /// on, or in a later part. Raises as findAll() does.
    std::optional<Hit> findFrom(const std::vector<xml::Node> &tops, const xml::Node &start,
                                const Hit &from, const runtime::Progress &progress) const;

    /// The hits in one part of a node.
    std::vector<Hit> findIn(const xml::Node &node, Part part) const;

private:
    const TextPattern &pattern_;
    unsigned parts_;
};

} // namespace quillon::search
