#include "platform/items/tree.h"

namespace quillon::items {

using Slot = TreeStore::Slot;

Tree::Tree(QObject *parent) : QObject(parent) {
    // Ahead of everybody else's connections: nothing that runs on removal must see removed rows,
    // and the selection model must find the selection passed on.
    connect(&nodes_, &Nodes::rowsInserted, this, &Tree::followInsertion);
    connect(&nodes_, &Nodes::rowsAboutToBeRemoved, this, &Tree::passSelectionOn);
    connect(&nodes_, &Nodes::rowsRemoved, this, [this] { rows_.removed(); });
    connect(&nodes_, &Nodes::modelReset, this, [this] { rows_.invalidate(); });
    connect(&nodes_, &Nodes::expansionChanged, this, &Tree::followExpansion);
    selection_.setModel(&nodes_);
}

TreeItem Tree::SelectedItem() const {
    const QModelIndex current = selection_.currentIndex();
    return selection_.isSelected(current) ? nodes_.itemAt(current) : TreeItem();
}

void Tree::setSelectedItem(const TreeItem &item) {
    if (item.isNothing()) {
        selection_.clear();
        return;
    }
    if (item == SelectedItem())
        return;
    nodes_.expandAncestors(item);
    selection_.setCurrentIndex(nodes_.indexOf(item), QItemSelectionModel::ClearAndSelect);
    // A view scrolls by itself for another current item only; this one may have been current.
    Q_EMIT nodes_.revealRequested(item);
}

void Tree::selectInPlace(const TreeItem &item) {
    isSelectingInPlace_ = true;
    selection_.setCurrentIndex(nodes_.indexOf(item), QItemSelectionModel::ClearAndSelect);
    isSelectingInPlace_ = false;
}

void Tree::selectAsUser(const TreeItem &item) {
    asUserGesture([&] { setSelectedItem(item); });
}

void Tree::setTreeVisible(bool visible) {
    if (std::exchange(isVisible_, visible) != visible)
        Q_EMIT treeVisibleChanged(visible);
}

void Tree::StartLabelEdit() {
    if (const TreeItem item = SelectedItem())
        Q_EMIT labelEditRequested(item);
}

void Tree::enterLabel(TreeItem item, QString text) {
    if (afterLabelEdit(item, text))
        item.setText(text);
}

void Tree::followInsertion(const QModelIndex &parent, int first, int last) {
    for (int row = first; row <= last; ++row)
        rows_.inserted(Nodes::slotAt(nodes_.index(row, 0, parent)));
}

void Tree::passSelectionOn(const QModelIndex &parent, int row) {
    const TreeStore &store = nodes_.store();
    const Slot removed = Nodes::slotAt(nodes_.index(row, 0, parent));
    const Slot current = currentSlot();
    if (current == 0 || (current != removed && !store.isAncestor(removed, current)))
        return;
    Slot heir = store.next(removed);
    if (heir == 0)
        heir = store.parent(removed);
    if (heir == 0)
        heir = store.previous(removed);
    setSelectedItem(nodes_.item(heir));
}

void Tree::followExpansion(const TreeItem &item, bool expanded) {
    rows_.invalidate();
    Q_EMIT shownRowsChanged();
    // A selected item that is out of sight would be at the mercy of the next command.
    if (!expanded && nodes_.store().isAncestor(nodes_.slotOf(item), currentSlot()))
        setSelectedItem(item);
}

} // namespace quillon::items
