#pragma once

#include "tree/node_removal.h"

#include <unordered_set>

namespace quillon::tree {

/// A place for a node, in the tree and in the document.
struct Place {
    items::TreeItem parent;
    /// The item and the node it stands ahead of; none at the end. Below a renamed element items
    /// stand in another order than their nodes, so neither can be told from the other.
    items::TreeItem before;
    xml::Node ref;
};

/// Moves nodes within their document. They stay the nodes they were, with their numbers, and what
/// was expanded below stays expanded.
class NodeRelocation {
public:
    NodeRelocation(TreeBuilder &builder, NodeRemoval &removal, items::Tree &tree)
        : builder_(builder), removal_(removal), tree_(tree) {}

    Place ahead(const items::TreeItem &item) const;
    Place behind(const items::TreeItem &item) const;
    Place lastIn(const items::TreeItem &parent) const;

    /// Moves a node, which is no attribute, and returns its new item; the old one is gone. An
    /// element declares anew what it loses of its namespaces, and what is below it is indented as
    /// deep as its new line. Raises what insertBefore() raises, with nothing changed.
    items::TreeItem move(const items::TreeItem &item, const Place &place);
    /// The same into the place of another node, which then stands nowhere. Its item stays.
    items::TreeItem moveInPlaceOf(const items::TreeItem &item, const items::TreeItem &old);
    /// Puts a new node in a place and returns its item.
    items::TreeItem insert(const xml::Node &node, const Place &place);
    /// Shows a new node that stands in a place of the document already.
    items::TreeItem show(const xml::Node &node, const Place &place);
    /// Shows a node that has been moved in the document already in its new place in the tree.
    items::TreeItem follow(const items::TreeItem &item, const Place &place);
    /// Shows the child nodes of an element, which have been put into another order.
    void showChildrenAnew(const items::TreeItem &parent);

private:
    std::unordered_set<quint32> expandedBelow(const items::TreeItem &item) const;
    void expandBelow(const items::TreeItem &item, const std::unordered_set<quint32> &numbers);

    TreeBuilder &builder_;
    NodeRemoval &removal_;
    items::Tree &tree_;
};

} // namespace quillon::tree
