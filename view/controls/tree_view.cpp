#include "view/controls/tree_view.h"

#include "platform/ui/error_boundary.h"
#include "view/controls/tree_accessible.h"
#include "view/controls/tree_delegate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>

namespace quillon::controls {

using ui::guarded;

TreeView::TreeView(QWidget *parent)
    : QTreeView(parent), nodes_(new items::Nodes(this)), rows_(nodes_->store()) {
    installTreeAccessibility();
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(EditKeyPressed | SelectedClicked);
    setItemDelegate(new TreeDelegate(
        [this](const QModelIndex &index) {
            const items::TreeItem item = nodes_->itemAt(index);
            QString text = item.Text();
            if (labelEditText)
                guarded([&] { text = labelEditText(item); });
            return text;
        },
        [this](const QModelIndex &index, const QString &text) {
            enteredLabel_.emplace(nodes_->itemAt(index), text);
        },
        this));

    // Ahead of the base's connections: nothing that runs on removal must see the removed rows.
    connect(nodes_, &items::Nodes::rowsRemoved, this, [this] { rows_.removed(); });
    connect(nodes_, &items::Nodes::expansionChanged, this, &TreeView::onExpansionChanged);
    connect(nodes_, &items::Nodes::appearanceChanged, this,
            [this] { scheduleDelayedItemsLayout(); });
    connect(nodes_, &items::Nodes::revealRequested, this,
            [this](const items::TreeItem &item) { scrollTo(nodes_->indexOf(item)); });
    setModel(nodes_);
}

items::TreeItem TreeView::SelectedItem() const {
    const QModelIndex current = currentIndex();
    return selectionModel()->isSelected(current) ? nodes_->itemAt(current) : items::TreeItem();
}

void TreeView::setSelectedItem(const items::TreeItem &item) {
    if (item.isNothing()) {
        selectionModel()->clear();
        return;
    }
    if (item == SelectedItem())
        return;
    nodes_->expandAncestors(item);
    const QModelIndex index = nodes_->indexOf(item);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    // The base does so for another current item only; this one may have been current already.
    scrollTo(index);
}

items::TreeItem TreeView::HitTest(const QPoint &position) const {
    return nodes_->itemAt(indexAt(position));
}

template <typename Handler>
void TreeView::asUserGesture(Handler &&handler) {
    const items::TreeItem before = SelectedItem();
    std::forward<Handler>(handler)();
    const items::TreeItem after = SelectedItem();
    if (after && after != before)
        Q_EMIT NodeClick(after);
}

void TreeView::selectAsUser(const items::TreeItem &item) {
    asUserGesture([&] { setSelectedItem(item); });
}

void TreeView::setExpandedAsUser(const items::TreeItem &item, bool expanded) {
    asUserGesture([&] {
        items::TreeItem(item).setExpanded(expanded);
        notifyAccessibility(QAccessible::StateChanged, nodes_->indexOf(item));
    });
}

void TreeView::onExpansionChanged(const items::TreeItem &item, bool expanded) {
    rows_.invalidate();
    scheduleDelayedItemsLayout();
    // A selected item that is out of sight would be at the mercy of the next command.
    const Slot current = items::Nodes::slotAt(currentIndex());
    if (!expanded && nodes_->store().isAncestor(nodes_->slotOf(item), current))
        setSelectedItem(item);
}

// ---- Changes of the model

void TreeView::reset() {
    rows_.invalidate();
    enteredLabel_.reset();
    QAbstractItemView::reset();
}

void TreeView::rowsInserted(const QModelIndex &parent, int first, int last) {
    for (int row = first; row <= last; ++row)
        rows_.inserted(items::Nodes::slotAt(nodes_->index(row, 0, parent)));
    scheduleDelayedItemsLayout();
    QAbstractItemView::rowsInserted(parent, first, last);
}

void TreeView::rowsAboutToBeRemoved(const QModelIndex &parent, int first, int last) {
    const items::TreeStore &store = nodes_->store();
    const Slot removed = items::Nodes::slotAt(nodes_->index(first, 0, parent));
    const Slot current = items::Nodes::slotAt(currentIndex());
    if (current != 0 && (current == removed || store.isAncestor(removed, current))) {
        Slot heir = store.next(removed);
        if (heir == 0)
            heir = store.parent(removed);
        if (heir == 0)
            heir = store.previous(removed);
        setSelectedItem(nodes_->item(heir));
    }
    QAbstractItemView::rowsAboutToBeRemoved(parent, first, last);
}

void TreeView::dataChanged(const QModelIndex &topLeft, const QModelIndex &,
                           const QList<int> &roles) {
    // Not one by one as the base does it: thousands of items may change at once.
    scheduleDelayedItemsLayout();
    if (!roles.contains(Qt::FontRole))
        notifyAccessibility(QAccessible::NameChanged, topLeft);
}

void TreeView::currentChanged(const QModelIndex &current, const QModelIndex &previous) {
    QAbstractItemView::currentChanged(current, previous);
    notifyAccessibility(QAccessible::Focus, current);
}

void TreeView::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) {
    QAbstractItemView::selectionChanged(selected, deselected);
    notifyAccessibility(QAccessible::SelectionAdd, selected.indexes().value(0));
    notifyAccessibility(QAccessible::SelectionRemove, deselected.indexes().value(0));
}

void TreeView::notifyAccessibility(QAccessible::Event type, const QModelIndex &index) {
    if (!QAccessible::isActive() || !index.isValid())
        return;
    const int row = rows_.rowOf(items::Nodes::slotAt(index));
    if (row < 0)
        return;
    if (type == QAccessible::StateChanged) {
        QAccessible::State changed;
        changed.expanded = true;
        QAccessibleStateChangeEvent event(this, changed);
        event.setChild(row);
        QAccessible::updateAccessibility(&event);
        return;
    }
    QAccessibleEvent event(this, type);
    event.setChild(row);
    QAccessible::updateAccessibility(&event);
}

// ---- Editing of captions

void TreeView::StartLabelEdit() {
    const QModelIndex index = nodes_->indexOf(SelectedItem());
    if (!index.isValid())
        return;
    scrollTo(index);
    edit(index, AllEditTriggers, nullptr);
}

void TreeView::EndLabelEdit() {
    QWidget *editor = isEditingLabel() ? indexWidget(currentIndex()) : nullptr;
    if (!editor)
        return;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
}

bool TreeView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) {
    // A slow second click comes here twice; it is the second time, with all triggers, that opens
    // the editor.
    const bool opens = trigger == AllEditTriggers || trigger == EditKeyPressed;
    // The item went on to be dragged before the time of a slow click was over.
    if (opens && state() == DraggingState)
        return true;
    if (!opens || !index.isValid() || state() == EditingState)
        return QTreeView::edit(index, trigger, event);
    const items::TreeItem item = nodes_->itemAt(index);
    if (mayEditLabel(item) && item)
        return QTreeView::edit(nodes_->indexOf(item), trigger, event);
    // To the base, a false would be a fault of the program, which it reports.
    return true;
}

bool TreeView::mayEditLabel(const items::TreeItem &item) {
    bool allowed = !beforeLabelEdit;
    if (beforeLabelEdit)
        guarded([&] { allowed = beforeLabelEdit(item); });
    return allowed;
}

void TreeView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) {
    // The Tab key ends the edit; it does not start the next one.
    if (hint == QAbstractItemDelegate::EditNextItem ||
        hint == QAbstractItemDelegate::EditPreviousItem)
        hint = QAbstractItemDelegate::NoHint;
    QTreeView::closeEditor(editor, hint);
    finishLabelEdit();
}

void TreeView::finishLabelEdit() {
    // Only now, with the editor gone, since afterLabelEdit may show a dialog or rebuild the tree.
    const auto entered = std::exchange(enteredLabel_, std::nullopt);
    if (!entered)
        return;
    auto [item, text] = *entered;
    guarded([&] {
        if (!afterLabelEdit || afterLabelEdit(item, text))
            item.setText(text);
    });
}

// ---- Mouse and keyboard

void TreeView::mousePressEvent(QMouseEvent *event) {
    const QPoint position = event->position().toPoint();
    const items::TreeItem pressed = HitTest(position);
    const Slot branch = event->button() == Qt::LeftButton ? branchAt(position) : 0;
    isPressSpent_ = branch != 0;
    isPressOnSelected_ =
        event->button() == Qt::LeftButton && !isPressSpent_ && pressed && pressed == SelectedItem();
    if (isPressSpent_)
        setExpandedAsUser(nodes_->item(branch), !nodes_->item(branch).Expanded());
    else
        asUserGesture([&] { QTreeView::mousePressEvent(event); });
    Q_EMIT MouseDown(pressed, event->button(), position);
}

void TreeView::mouseMoveEvent(QMouseEvent *event) {
    if (isPressSpent_ && event->buttons() != Qt::NoButton)
        return;
    if (state() != DraggingState)
        asUserGesture([&] { QTreeView::mouseMoveEvent(event); });
    else if (event->buttons().testFlag(Qt::LeftButton))
        // Returns after the drag: what it has selected on its way was not clicked.
        QTreeView::mouseMoveEvent(event);
}

void TreeView::mouseReleaseEvent(QMouseEvent *event) {
    // The base would take the release for a click on the item.
    if (std::exchange(isPressSpent_, false))
        return;
    asUserGesture([&] { QTreeView::mouseReleaseEvent(event); });
    const items::TreeItem released = HitTest(event->position().toPoint());
    if (std::exchange(isPressOnSelected_, false) && released && released == SelectedItem())
        Q_EMIT NodeClick(released);
}

void TreeView::mouseDoubleClickEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton && branchAt(event->position().toPoint()) != 0) {
        mousePressEvent(event);
        return;
    }
    QAbstractItemView::mouseDoubleClickEvent(event);
    const items::TreeItem item = HitTest(event->position().toPoint());
    if (event->button() == Qt::LeftButton && state() == NoState && expandsOnDoubleClick() &&
        canExpand(nodes_->slotOf(item)))
        setExpandedAsUser(item, !item.Expanded());
}

void TreeView::keyPressEvent(QKeyEvent *event) {
    const items::TreeItem current = nodes_->itemAt(currentIndex());
    const auto others = event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (current && others == Qt::NoModifier) {
        switch (event->key()) {
        case Qt::Key_Plus:
            setExpandedAsUser(current, true);
            return;
        case Qt::Key_Minus:
            setExpandedAsUser(current, false);
            return;
        case Qt::Key_Asterisk:
            nodes_->setExpandedSubtree(current, true);
            return;
        default:
            break;
        }
    }
    // Getting the focus makes the first item current and does not select it. A cursor key would go
    // past it, or nowhere where it is the only one.
    if (!SelectedItem())
        selectionModel()->clearCurrentIndex();
    asUserGesture([&] { QAbstractItemView::keyPressEvent(event); });
}

void TreeView::inputMethodEvent(QInputMethodEvent *event) {
    asUserGesture([&] { QTreeView::inputMethodEvent(event); });
}

QModelIndex TreeView::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
    const Slot current = items::Nodes::slotAt(currentIndex());
    const int row = rows_.rowOf(current);
    const int last = rows_.count() - 1;
    const auto indexAtRow = [&](int to) {
        return nodes_->indexOf(rows_.at(std::clamp(to, 0, last)));
    };
    if (last < 0)
        return {};
    if (row < 0)
        return indexAtRow(0);

    const items::TreeItem item = nodes_->item(current);
    const bool isOpen = canExpand(current) && item.Expanded();
    switch (action) {
    case MoveUp:
    case MovePrevious:
        return indexAtRow(row - 1);
    case MoveDown:
    case MoveNext:
        return indexAtRow(row + 1);
    case MovePageUp:
        return indexAtRow(row - rowsPerPage());
    case MovePageDown:
        return indexAtRow(row + rowsPerPage());
    case MoveHome:
        return indexAtRow(0);
    case MoveEnd:
        return indexAtRow(last);
    case MoveLeft:
        if (!isOpen)
            return nodes_->indexOf(item.Parent() ? item.Parent() : item);
        setExpandedAsUser(item, false);
        break;
    case MoveRight:
        if (isOpen)
            return nodes_->indexOf(item.Child());
        if (canExpand(current))
            setExpandedAsUser(item, true);
        break;
    }
    return currentIndex();
}

void TreeView::keyboardSearch(const QString &search) {
    // Each caption looked at has to be made first; a miss must not stop the program for seconds.
    constexpr int Furthest = 100'000;

    if (!searchTimer_.isValid() || searchTimer_.hasExpired(QApplication::keyboardInputInterval()))
        searchText_.clear();
    searchTimer_.start();
    const bool isFirst = searchText_.isEmpty();
    searchText_ += search;
    const int count = rows_.count();
    if (count == 0)
        return;
    // The first character goes on to the next match, further ones may keep the item.
    const int row = rows_.rowOf(items::Nodes::slotAt(currentIndex()));
    const int start = row < 0 ? 0 : row + (isFirst ? 1 : 0);
    for (int step = 0; step < std::min(count, Furthest); ++step) {
        const items::TreeItem item = nodes_->item(rows_.at((start + step) % count));
        if (item.Text().startsWith(searchText_, Qt::CaseInsensitive)) {
            setSelectedItem(item);
            return;
        }
    }
}

QItemSelectionModel::SelectionFlags TreeView::selectionCommand(const QModelIndex &index,
                                                               const QEvent *) const {
    // Whatever modifier is held: one item is selected, and a click beside the items changes
    // nothing.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void TreeView::setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command) {
    if (const QModelIndex index = indexAt(rect.topLeft()); index.isValid())
        selectionModel()->select(index, command);
}

} // namespace quillon::controls
