#pragma once

#include "search/hit.h"
#include "search/span.h"

#include <QHash>

#include <optional>

namespace quillon::search {

/// What rows of hits can be put in order by.
enum class HitOrder {
    Document,
    Kind,
    Path,
    Text,
    After,
};

/// What is to be read of one hit.
struct HitRow {
    /// The kind of node, in Japanese.
    QString kind;
    /// tree::imageKeyOf() of the node; empty when it is gone.
    QString image;
    /// The way from the top to the node, e.g. "/orders/order[2]/@id". Of one with many steps the
    /// last ones, behind "…".
    QString path;
    /// The text that the hit stands in, or as much as there is room for around it, in one line.
    QString text;
    /// Where the hit stands in that text; nothing for a node as such.
    Span mark;
    /// The same text after the change, and where the new part stands in it.
    QString after;
    Span afterMark;
    /// Why the change cannot be made; empty when it can.
    QString obstacle;
};

/// One step of a path without its place among siblings, e.g. "order", "@id", "text()".
QString stepTo(const xml::Node &node);

/// Reads rows from a document. Good until the document changes: it remembers places among siblings,
/// so that going through rows does not count them each time.
class HitRowReader {
public:
    /// A row in which nothing can be read, for no node.
    HitRow read(const xml::Node &node, const Hit &hit, const Change *change) const;
    /// Only the text of it, before or after the change.
    QString text(const xml::Node &node, const Hit &hit) const;
    QString after(const xml::Node &node, const Hit &hit, const Change &change) const;
    QString path(const xml::Node &node) const;

private:
    /// A node among its siblings: how many of those up to it, itself included, have its step.
    struct Place {
        xml::Node node;
        int number = 0;
    };

    QString placedStep(const xml::Node &node, const xml::Node &parent) const;
    int placeOf(const xml::Node &node, const xml::Node &parent, const QString &step) const;
    bool isFollowed(const xml::Node &node, const QString &step) const;

    /// The places found last, by parent and step; whether first ones are followed, by node.
    mutable QHash<std::pair<quint32, QString>, Place> places_;
    mutable QHash<quint32, bool> followed_;
};

} // namespace quillon::search
