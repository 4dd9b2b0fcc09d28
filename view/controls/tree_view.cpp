#include "view/controls/tree_view.h"

#include "platform/ui/error_boundary.h"
#include "view/controls/tool_tip.h"
#include "view/controls/tree_accessible.h"
#include "view/controls/tree_delegate.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>

namespace quillon::controls {

using ui::guarded;

TreeView::TreeView(items::Tree &tree, QWidget *parent)
    : QTreeView(parent), tree_(tree), nodes_(tree.nodes()), rows_(tree.rows()) {
    installTreeAccessibility();
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(EditKeyPressed | SelectedClicked);
    auto *const captions = new TreeDelegate(
        nodes_, images_,
        [this](const QModelIndex &index) {
            const items::TreeItem item = nodes_.itemAt(index);
            QString text = item.Text();
            guarded([&] { text = tree_.labelEditText(item); });
            return text;
        },
        [this](const QModelIndex &index, const QString &text) {
            enteredLabel_.emplace(nodes_.itemAt(index), text);
        },
        this);
    captions->proposerFor = [this](const QModelIndex &index) {
        return proposerFor ? proposerFor(nodes_.itemAt(index)) : ui::Proposer();
    };
    setItemDelegate(captions);
    setUpDragging();
    showTree();
}

void TreeView::showTree() {
    setModel(&nodes_);
    const QItemSelectionModel *own = selectionModel();
    setSelectionModel(&tree_.selectionModel());
    delete own;

    connect(&tree_, &items::Tree::shownRowsChanged, this, [this] { scheduleDelayedItemsLayout(); });
    connect(&nodes_, &items::Nodes::appearanceChanged, this,
            [this] { scheduleDelayedItemsLayout(); });
    connect(&nodes_, &items::Nodes::marksChanged, viewport(), qOverload<>(&QWidget::update));
    connect(&tree_, &items::Tree::otherSelectedItemsChanged, this, [this] {
        viewport()->update();
        notifyAccessibility(QAccessible::SelectionWithin, currentIndex());
    });
    connect(&nodes_, &items::Nodes::revealRequested, this,
            [this](const items::TreeItem &item) { scrollTo(nodes_.indexOf(item)); });
    connect(&tree_, &items::Tree::treeVisibleChanged, this, &TreeView::setUpdatesEnabled);
    setUpdatesEnabled(tree_.treeVisible());
    connect(&tree_, &items::Tree::focusRequested, this, [this] { setFocus(); });
    connect(&tree_, &items::Tree::labelEditRequested, this, &TreeView::openLabelEditor);
    connect(&tree_, &items::Tree::labelEditEndRequested, this, &TreeView::endLabelEdit);
}

items::TreeItem TreeView::HitTest(const QPoint &position) const {
    return nodes_.itemAt(indexAt(position));
}

void TreeView::setExpandedAsUser(const items::TreeItem &item, bool expanded) {
    tree_.asUserGesture([&] {
        items::TreeItem(item).setExpanded(expanded);
        notifyAccessibility(QAccessible::StateChanged, nodes_.indexOf(item));
    });
}

// ---- Changes of the model

void TreeView::reset() {
    enteredLabel_.reset();
    QAbstractItemView::reset();
}

void TreeView::rowsInserted(const QModelIndex &parent, int first, int last) {
    scheduleDelayedItemsLayout();
    QAbstractItemView::rowsInserted(parent, first, last);
}

void TreeView::dataChanged(const QModelIndex &topLeft, const QModelIndex &,
                           const QList<int> &roles) {
    // Not one by one as the base does it: thousands of items may change at once.
    scheduleDelayedItemsLayout();
    if (!roles.contains(Qt::FontRole))
        notifyAccessibility(QAccessible::NameChanged, topLeft);
}

void TreeView::currentChanged(const QModelIndex &current, const QModelIndex &previous) {
    focusItem_ = {};
    // The base scrolls to the item, unless it is told not to.
    setAutoScroll(!tree_.isSelectingInPlace() && !isSelectingByMouse_);
    QAbstractItemView::currentChanged(current, previous);
    setAutoScroll(true);
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

void TreeView::openLabelEditor(const items::TreeItem &item) {
    const QModelIndex index = nodes_.indexOf(item);
    scrollTo(index);
    edit(index, AllEditTriggers, nullptr);
}

void TreeView::endLabelEdit() {
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
    const items::TreeItem item = nodes_.itemAt(index);
    if (mayEditLabel(item) && item)
        return QTreeView::edit(nodes_.indexOf(item), trigger, event);
    // To the base, a false would be a fault of the program, which it reports.
    return true;
}

bool TreeView::mayEditLabel(const items::TreeItem &item) {
    bool allowed = false;
    guarded([&] { allowed = tree_.beforeLabelEdit(item); });
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
    if (const auto entered = std::exchange(enteredLabel_, std::nullopt))
        guarded([&] { tree_.enterLabel(entered->first, entered->second); });
}

// ---- Mouse and keyboard

bool TreeView::viewportEvent(QEvent *event) {
    if (event->type() == QEvent::ToolTip) {
        showDescription(*static_cast<QHelpEvent *>(event));
        return true;
    }
    return QTreeView::viewportEvent(event);
}

void TreeView::showDescription(const QHelpEvent &event) {
    QString text;
    const items::TreeItem item = HitTest(event.pos());
    if (item && describe)
        guarded([&] { text = describe(item); });
    // What is wrong comes ahead of what it is.
    const QString reasons = nodes_.markReasons(item);
    if (!reasons.isEmpty())
        text = text.isEmpty() ? reasons : reasons + QStringLiteral("\n\n") + text;
    showPlainToolTip(event.globalPos(), text, *viewport());
}

void TreeView::mousePressEvent(QMouseEvent *event) {
    const QPoint position = event->position().toPoint();
    const items::TreeItem pressed = HitTest(position);
    const Slot branch = event->button() == Qt::LeftButton ? branchAt(position) : 0;
    isPressSpent_ = branch != 0;
    isPressOnSelected_ = event->button() == Qt::LeftButton && !isPressSpent_ && pressed &&
                         pressed == tree_.SelectedItem();
    pressForSeveral_.reset();
    pressPosition_ = position;
    pressModifiers_ = event->modifiers();
    isPressBesideCaptions_ =
        event->button() == Qt::LeftButton && !isPressSpent_ && isBesideCaptions(position);
    if (isPressSpent_)
        setExpandedAsUser(nodes_.item(branch), !nodes_.item(branch).Expanded());
    else if (isForSeveral(*event, pressed))
        pressForSeveral(*event, pressed);
    else
        tree_.asUserGesture([&] { QTreeView::mousePressEvent(event); });
    Q_EMIT tree_.mouseDown(pressed);
}

void TreeView::mouseMoveEvent(QMouseEvent *event) {
    if ((isPressSpent_ && event->buttons() != Qt::NoButton) || moveForSeveral(*event))
        return;
    if (state() != DraggingState)
        tree_.asUserGesture([&] { QTreeView::mouseMoveEvent(event); });
    else if (event->buttons().testFlag(Qt::LeftButton))
        // Returns after the drag: what it has selected on its way was not clicked.
        QTreeView::mouseMoveEvent(event);
}

void TreeView::mouseReleaseEvent(QMouseEvent *event) {
    isPressBesideCaptions_ = false;
    if (frame_)
        endFrame();
    // The base would take the release for a click on the item.
    if (std::exchange(isPressSpent_, false))
        return;
    if (pressForSeveral_) {
        finishPressForSeveral();
        return;
    }
    tree_.asUserGesture([&] { QTreeView::mouseReleaseEvent(event); });
    const items::TreeItem released = HitTest(event->position().toPoint());
    if (std::exchange(isPressOnSelected_, false) && released && released == tree_.SelectedItem())
        Q_EMIT tree_.NodeClick(released);
}

void TreeView::mouseDoubleClickEvent(QMouseEvent *event) {
    const bool isForItems =
        (event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier)) != Qt::NoModifier;
    if (event->button() == Qt::LeftButton &&
        (isForItems || branchAt(event->position().toPoint()) != 0)) {
        mousePressEvent(event);
        return;
    }
    QAbstractItemView::mouseDoubleClickEvent(event);
    const items::TreeItem item = HitTest(event->position().toPoint());
    if (event->button() == Qt::LeftButton && state() == NoState && expandsOnDoubleClick() &&
        canExpand(nodes_.slotOf(item)))
        setExpandedAsUser(item, !item.Expanded());
}

void TreeView::keyPressEvent(QKeyEvent *event) {
    const items::TreeItem current = nodes_.itemAt(currentIndex());
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
            nodes_.setExpandedSubtree(current, true);
            return;
        default:
            break;
        }
    }
    if (keyForSeveral(*event))
        return;
    // Getting the focus makes the first item current and does not select it. A cursor key would go
    // past it, or nowhere where it is the only one.
    if (!tree_.SelectedItem())
        selectionModel()->clearCurrentIndex();
    tree_.asUserGesture([&] { QAbstractItemView::keyPressEvent(event); });
}

void TreeView::inputMethodEvent(QInputMethodEvent *event) {
    tree_.asUserGesture([&] { QTreeView::inputMethodEvent(event); });
}

QModelIndex TreeView::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
    const Slot current = items::Nodes::slotAt(currentIndex());
    const int row = rows_.rowOf(current);
    const int last = rows_.count() - 1;
    if (last < 0)
        return {};
    if (row < 0)
        return nodes_.indexOf(rows_.at(0));

    const items::TreeItem item = nodes_.item(current);
    const bool isOpen = canExpand(current) && item.Expanded();
    switch (action) {
    case MoveLeft:
        if (!isOpen)
            return nodes_.indexOf(item.Parent() ? item.Parent() : item);
        setExpandedAsUser(item, false);
        break;
    case MoveRight:
        if (isOpen)
            return nodes_.indexOf(item.Child());
        if (canExpand(current))
            setExpandedAsUser(item, true);
        break;
    default:
        return nodes_.indexOf(rows_.at(rowAfter(action, row)));
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
        const items::TreeItem item = nodes_.item(rows_.at((start + step) % count));
        if (item.Text().startsWith(searchText_, Qt::CaseInsensitive)) {
            tree_.setSelectedItem(item);
            return;
        }
    }
}

QItemSelectionModel::SelectionFlags TreeView::selectionCommand(const QModelIndex &index,
                                                               const QEvent *) const {
    // What selects several items does not come here. A click beside the items changes nothing.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void TreeView::setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command) {
    if (const QModelIndex index = indexAt(rect.topLeft()); index.isValid())
        selectionModel()->select(index, command);
}

} // namespace quillon::controls
