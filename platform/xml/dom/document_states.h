#pragma once

#include "platform/xml/dom/dom.h"

#include <vector>

namespace quillon::xml {

/// Whether one document is a copy of the other, or both are copies of a third: a number then means
/// the same node in both. False for no document.
bool haveCommonOrigin(const DOMDocument40 &one, const DOMDocument40 &other);

/// True when a node has the same name and value in two documents of common origin. False says
/// nothing: finding out costs as much as comparing two pointers. What is above and below the node
/// may differ either way.
bool isSurelyUnchanged(const DOMDocument40 &one, const DOMDocument40 &other, quint32 number);

/// The nodes that are not the same in two documents of common origin, ascending by number: those
/// that have another name, value, parent, sibling, first or last child or attribute, and those that
/// one of the two does not have. A node of which only something further below has changed is none
/// of them. At most `limit` of them, and one more when there are more. Costs time in proportion to
/// what is changed, and hardly any for the rest.
std::vector<quint32> changedNodes(const DOMDocument40 &before, const DOMDocument40 &now,
                                  std::size_t limit);

/// Whether a node comes ahead of another one of the same document in document order. Attributes
/// come behind their element, ahead of its children. Costs time in proportion to the depth and to
/// the number of siblings between the two.
bool isAhead(const Node &one, const Node &other);

/// Which nodes stand in a document, as opposed to those that have been removed from it. Good until
/// the document is changed. It looks at each node once, however many are asked for and however
/// deep they are.
class StandingNodes {
public:
    explicit StandingNodes(const DOMDocument40 &document);

    /// Whether the number is that of a node that stands in the document; attributes stand where
    /// their element does.
    bool contains(quint32 number);

private:
    enum class Known : quint8 { Nothing, Standing, Gone };

    DOMDocument40 document_;
    /// By the place of a node behind the document node.
    std::vector<Known> known_;
};

} // namespace quillon::xml
