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

    /// Whether the node of an item may go. A document type has to stay, which a message box says,
    /// while anything refers to an entity: the file could not be opened any more.
    bool mayDelete(const items::TreeItem &item) const;

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
