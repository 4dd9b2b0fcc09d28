#pragma once

#include "tree/tree_builder.h"

namespace quillon::tree {

/// Removes nodes together with their tree items.
class NodeRemoval : public QObject {
    Q_OBJECT

public:
    NodeRemoval(TreeBuilder &builder, items::Tree &tree) : builder_(builder), tree_(tree) {}

    /// Removes the node an item shows, the item and all below it. Nothing happens for no item,
    /// for the document item and where mayDelete() refuses. A kind that cannot be deleted is named
    /// in a message box; its item goes all the same and the document counts as modified, though the
    /// node stays: building the tree anew shows it again.
    void DeleteNode(const items::TreeItem &item);

    /// Removes the nodes of several items, none of which is below another, as one change. All of
    /// them must be of kinds that can be deleted and, as mayDelete() says, may go.
    void DeleteNodes(const std::vector<items::TreeItem> &items);
    /// The same as part of a change that the caller tells of.
    void removeNodes(const std::vector<items::TreeItem> &items);

    /// Whether the node of an item may go. A document type has to stay, which a message box says,
    /// while anything refers to an entity: the file could not be opened any more.
    bool mayDelete(const items::TreeItem &item) const;

    /// Removes the item of a node that has gone already, and all below it.
    void removeItem(const items::TreeItem &item);

    /// Takes an item and all its descendants out of the registry.
    void UnregisterTreeItem(const items::TreeItem &item);

Q_SIGNALS:
    void documentModified();

private:
    void removeFromDom(const items::TreeItem &item);

    TreeBuilder &builder_;
    items::Tree &tree_;
};

} // namespace quillon::tree
