#include "platform/items/tree.h"

namespace quillon::items {

Tree::Tree(QObject *parent) : QObject(parent) {
    // Ahead of everybody else's connections: nothing that runs on removal must see removed rows,
    // and the selection model must find the selection passed on.
    connect(&nodes_, &Nodes::rowsInserted, this, &Tree::followInsertion);
    connect(&nodes_, &Nodes::rowsAboutToBeRemoved, this, &Tree::passSelectionOn);
    connect(&nodes_, &Nodes::rowsRemoved, this, [this] { rows_.removed(); });
    connect(&nodes_, &Nodes::modelReset, this, [this] {
        rows_.invalidate();
        others_ = BitRow();
    });
    connect(&nodes_, &Nodes::expansionChanged, this, &Tree::followExpansion);
    selection_.setModel(&nodes_);
    connect(&selection_, &QItemSelectionModel::currentChanged, this, &Tree::followCurrent);
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
    selectOnlyCurrent();
    if (item == SelectedItem())
        return;
    nodes_.expandAncestors(item);
    selection_.setCurrentIndex(nodes_.indexOf(item), QItemSelectionModel::ClearAndSelect);
    // A view scrolls by itself for another current item only; this one may have been current.
    Q_EMIT nodes_.revealRequested(item);
}

void Tree::selectInPlace(const TreeItem &item) {
    selectOnlyCurrent();
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
    dropOthersFrom(removed);
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
    if (expanded)
        return;
    // A selected item that is out of sight would be at the mercy of the next command.
    const Slot collapsed = nodes_.slotOf(item);
    if (others_.count() != 0)
        dropHiddenOthers();
    if (nodes_.store().isAncestor(collapsed, currentSlot()))
        others_.count() == 0 ? setSelectedItem(item) : select(others_, collapsed);
}

} // namespace quillon::items
