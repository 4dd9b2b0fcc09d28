#pragma once

#include "platform/items/tree_nodes.h"
#include "platform/xml/dom/dom.h"

#include <QHash>

#include <vector>

namespace quillon::tree {

/// The way from a tree item to its DOM node (`m_dicNode`), and back. All nodes belong to one
/// document, the one that the tree was built from. Of the items that a tree begins with, a
/// DocumentItems, only those are kept here that show another node than they did.
class NodeRegistry {
public:
    explicit NodeRegistry(const items::Nodes &nodes) : nodes_(nodes) {}

    /// Forgets everything. From now on the nodes belong to `document`, and the items to a tree that
    /// begins with that document's items.
    void reset(const xml::DOMDocument40 &document);

    /// Registers, or registers anew, the node an item shows.
    void set(const items::TreeItem &item, const xml::Node &node) { setNumber(item, node.number()); }
    void setNumber(const items::TreeItem &item, quint32 number);
    /// To be called before an item is removed from the tree with all below it.
    void Remove(const items::TreeItem &item);

    /// The node registered for an item; empty when there is none.
    xml::Node Item(const items::TreeItem &item) const;
    /// The number of that node, 0 for none.
    quint32 number(const items::TreeItem &item) const { return numberAt(nodes_.slotOf(item)); }
    /// The item that shows the node with a number, whatever number it is; Nothing when none does.
    items::TreeItem itemOf(quint32 number) const;

    const xml::DOMDocument40 &document() const { return document_; }
    /// True before the first tree is built and after the document was closed.
    bool isEmpty() const { return document_.isNull(); }

private:
    using Slot = items::TreeStore::Slot;

    quint32 numberAt(Slot slot) const;
    /// What itemOf() knows of an item that is not as the tree began with it.
    bool shows(Slot slot, quint32 number) const {
        return nodes_.store().isLive(slot) && numberAt(slot) == number;
    }

    const items::Nodes &nodes_;
    xml::DOMDocument40 document_;
    /// In the tree as it began, the number of a node is its item's slot and this.
    quint32 offset_ = 0;
    /// The nodes of added items, in the order of their slots.
    std::vector<quint32> added_;
    /// The nodes of items that the tree began with, where they have changed.
    QHash<Slot, quint32> changed_;
    /// The items of the nodes in these two, by number.
    QHash<quint32, Slot> slots_;
};

} // namespace quillon::tree
