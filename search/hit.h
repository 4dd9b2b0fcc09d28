#pragma once

#include "platform/xml/dom/dom.h"

#include <QString>

#include <functional>
#include <vector>

namespace quillon::search {

/// The part of a node that something has been found in.
enum class Part : quint8 {
    /// The node as such.
    Node,
    /// Node::nodeName().
    Name,
    /// Node::nodeValue().
    Value,
};

/// One place that a search has found.
struct Hit {
    /// Node::number().
    quint32 node = 0;
    Part part = Part::Node;
    /// Where in the part, 0-based, and how much of it; in UTF-16 units. Without meaning for the
    /// node as such.
    quint32 at = 0;
    quint32 length = 0;

    bool operator==(const Hit &) const = default;
};
static_assert(sizeof(Hit) == 16);

/// What is to become of a hit.
struct Change {
    /// The text that is to take the place of the hit.
    QString after;
    /// Why that cannot be done, in a whole sentence; empty when it can.
    QString obstacle = {};
};

/// What a list of hits comes from.
enum class HitSource {
    /// A search for captions.
    Captions,
    /// A path query.
    Query,
    /// A search in the document.
    Text,
    /// What is wrong in the document: no search, but walked through like what one has found.
    Faults,
};

/// The hits of one search, and what can be asked about them later.
struct Hits {
    HitSource source = HitSource::Text;
    /// What was searched for, as the user entered it.
    QString title;
    /// In document order. Hits in the same part of a node follow one another, and are not
    /// interrupted by others.
    std::vector<Hit> hits;
    /// One for each hit, or none at all.
    std::vector<Change> changes = {};
    /// What is to be read of each hit in the place of the text that it stands in: one each, or none
    /// at all.
    std::vector<QString> notes = {};
    /// What the search finds in one part of a node as it stands now, in the order of the text.
    /// Asked again when the node has changed. Empty: a node is a hit for as long as it stands in
    /// the document. It is called long after the search, so it owns what it needs.
    std::function<std::vector<Hit>(const xml::Node &node, Part part)> findAgain = {};
    /// What is to become of a hit after its node has changed; empty: what was to become of it
    /// before.
    std::function<Change(const xml::Node &node, const Hit &hit)> planAgain = {};
};

/// Hits that are nodes as such, as a query finds them.
Hits nodeHits(HitSource source, const QString &title, const std::vector<xml::Node> &nodes);

} // namespace quillon::search
