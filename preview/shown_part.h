#pragma once

#include "platform/xml/dom/dom.h"
#include "platform/xml/transform/document_part.h"

#include <QDataStream>

#include <functional>
#include <unordered_set>

namespace quillon::preview {

/// How many nodes are above a node.
int depthOf(const xml::Node &node);

/// The part of a document that a page shows where the whole is too large: what stands around a
/// node, and what has been asked for since. It knows nodes by their numbers and keeps no document.
/// Most of what it does goes over all siblings of what is shown, of which there may be millions.
class ShownPart {
public:
    /// Elements nested deeper are not shown: the browser nests those of a page no deeper than 512.
    static constexpr int DeepestShown = 500;

    /// At which end of a run of nodes that are left out some of them are wanted.
    enum class End { First, Last };

    /// What is around a node that is no attribute: the nodes above it, what is below it, and its
    /// siblings nearest to it with what is below them; where these are few, those of the nodes
    /// above, too.
    static ShownPart around(const xml::Node &node);

    /// Whether a node that is no attribute is among what is shown.
    bool shows(const xml::Node &node) const;
    /// Whether a run of nodes that are left out begins with a node.
    bool leavesOut(const xml::Node &first) const;
    /// Shows more of such a run, and gives what the page is to take in: the way to it, and in place
    /// of all that the page has already, runs to keep. Nothing where the run is too deep to be
    /// shown.
    xml::DocumentPart extend(const xml::Node &first, End end);
    /// The document has become another state of itself: what was shown and is still there is shown.
    /// Few nodes between such are, too, so that what has been inserted there is.
    void follow(const xml::DOMDocument40 &document);
    /// How many nodes are shown, about.
    std::size_t size() const { return shown_.size(); }
    bool isEmpty() const { return shown_.empty(); }

    /// The same for a stylesheet.
    xml::DocumentPart runs(const xml::DOMDocument40 &document) const;

    /// For the way out of another process.
    friend QDataStream &operator<<(QDataStream &stream, const ShownPart &part);
    friend QDataStream &operator>>(QDataStream &stream, ShownPart &part);

private:
    using KindOf = std::function<xml::ChildRun::Kind(const xml::Node &child)>;

    void take(const xml::Node &node);
    void takeBelow(const xml::Node &top);
    void takeSiblings(const xml::Node &node);
    void takeFrom(const xml::Node &first, End end);
    /// Takes the nodes between those that are shown, where they are few.
    void closeGaps(const xml::Node &parent);
    xml::ChildRun::Kind kindOf(const xml::Node &parent, const xml::Node &child) const;
    static std::vector<xml::ChildRun> runsOf(const xml::Node &parent, const KindOf &kindOf);

    /// Every node that is shown, down to those below which everything is.
    std::unordered_set<quint32> shown_;
    /// The nodes of whose children some are left out.
    std::unordered_set<quint32> partial_;
    /// What may still be taken; in nodes, of which long ones count as several.
    int budget_ = 0;
};

} // namespace quillon::preview
