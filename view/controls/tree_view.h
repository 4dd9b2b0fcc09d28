#pragma once

#include "platform/items/tree_nodes.h"
#include "platform/items/tree_rows.h"

#include <QAccessible>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QTreeView>

#include <functional>
#include <memory>
#include <optional>

class QMimeData;

namespace quillon::controls {

/// Where in a tree something is dragged or dropped.
struct DragPoint {
    /// The item under the pointer; Nothing beside the items.
    items::TreeItem item;
    Qt::KeyboardModifiers modifiers;
    /// What the source asks for.
    Qt::DropAction proposed = Qt::IgnoreAction;
    /// What the source allows.
    Qt::DropActions possible = Qt::IgnoreAction;
};

/// What a drag offers. Without data there is no drag.
struct DragOffer {
    std::unique_ptr<QMimeData> data;
    /// What may be done with it.
    Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
};

/// What a tree does when items are dragged out of it and data is dragged into it. An error that
/// one of these raises is shown to the user and counts as a refusal.
struct DragHandlers {
    /// The user drags an item. What is offered in its place.
    std::function<DragOffer()> start;
    /// Something dragged comes in. Asking it for data may take a while.
    std::function<void(const QMimeData &)> enter;
    /// It has gone again, or the user has given the drag up.
    std::function<void()> leave;
    /// What a drop at a point would do; Qt::IgnoreAction refuses it. Asked again and again.
    std::function<Qt::DropAction(const DragPoint &)> over;
    /// Takes the data dropped at a point; says what was done with it, Qt::IgnoreAction for
    /// nothing.
    std::function<Qt::DropAction(const DragPoint &, const QMimeData &)> drop;
    /// The drag that `start` began is over, and this was done with what it offered.
    std::function<void(Qt::DropAction)> complete;
};

/// Shows the items of a Nodes collection, which it owns.
///
/// Rows are laid out and painted from TreeRows. QTreeView's own layout recurses over the depth in
/// quadratic time, and each insertion and removal walks the persistent index it keeps for every
/// expanded item: at 100,000 nested levels that is 15 and 40 seconds. What is expanded is said by
/// the items alone; the functions and signals of QTreeView about it are not in use.
class TreeView : public QTreeView {
    Q_OBJECT

public:
    explicit TreeView(QWidget *parent = nullptr);

    items::Nodes &nodes() { return *nodes_; }
    const items::TreeRows &rows() const { return rows_; }

    items::TreeItem SelectedItem() const;
    /// Selects an item, expands its ancestors and scrolls to it; Nothing deselects.
    void setSelectedItem(const items::TreeItem &item);
    /// The item in the row at a point of the viewport, or Nothing.
    items::TreeItem HitTest(const QPoint &position) const;
    /// Lets the user edit the caption of the selected item, unless beforeLabelEdit refuses.
    void StartLabelEdit();
    /// Ends the editing of a caption as the Enter key does; nothing happens when there is none.
    void EndLabelEdit();
    bool isEditingLabel() const { return state() == EditingState; }

    /// False while the program rebuilds the tree: the widget keeps its place and its picture.
    bool treeVisible() const { return !testAttribute(Qt::WA_ForceUpdatesDisabled); }
    void setTreeVisible(bool visible) { setUpdatesEnabled(visible); }

    /// What the user does by clicking an item or its branch; may send NodeClick.
    void selectAsUser(const items::TreeItem &item);
    void setExpandedAsUser(const items::TreeItem &item, bool expanded);

    /// Asked before the editor of a caption opens; false refuses. An error that one of these
    /// three raises is shown to the user, and is a refusal or leaves the caption as it is.
    std::function<bool(items::TreeItem)> beforeLabelEdit;
    /// The text with which the editor opens, all of it selected; without it, the caption.
    std::function<QString(items::TreeItem)> labelEditText;
    /// Gets the text entered, after the editor has closed, and may change it. True sets it as the
    /// caption, false leaves the caption alone. Without it every text is taken.
    std::function<bool(items::TreeItem, QString &newText)> afterLabelEdit;

    /// Turns dragging on, in both directions; all handlers must be there. A collapsed item
    /// expands after the pointer has rested on it for autoExpandDelay().
    void setDragHandlers(DragHandlers handlers);
    /// Selects an item in view without scrolling: it must not slip away from under the pointer.
    void selectInPlace(const items::TreeItem &item);

    QRect visualRect(const QModelIndex &index) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint &position) const override;
    void keyboardSearch(const QString &search) override;
    void doItemsLayout() override;
    void reset() override;
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QList<int> &roles = {}) override;

    void expand(const QModelIndex &) = delete;
    void expandAll() = delete;
    void expandRecursively(const QModelIndex &, int = -1) = delete;
    void expandToDepth(int) = delete;
    void collapse(const QModelIndex &) = delete;
    void collapseAll() = delete;
    bool isExpanded(const QModelIndex &) const = delete;
    void setExpanded(const QModelIndex &, bool) = delete;

Q_SIGNALS:
    /// The user has selected another item, by mouse or keyboard, or clicked the selected one.
    void NodeClick(const quillon::items::TreeItem &item);
    /// A mouse button went down at a point of the viewport, on an item or on Nothing. Sent after
    /// the press has done its work.
    void MouseDown(const quillon::items::TreeItem &item, Qt::MouseButton button,
                   const QPoint &position);

protected:
    using QTreeView::edit;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

    void rowsInserted(const QModelIndex &parent, int first, int last) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int first, int last) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;

    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;
    void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;

    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    int horizontalOffset() const override;
    int verticalOffset() const override;
    void paintEvent(QPaintEvent *event) override;

private:
    using Slot = items::TreeStore::Slot;

    /// Runs the handler of something the user does; sends NodeClick if it selected another item.
    template <typename Handler>
    void asUserGesture(Handler &&handler);
    void onExpansionChanged(const items::TreeItem &item, bool expanded);
    bool canExpand(Slot slot) const { return nodes_->store().firstChild(slot) != 0; }
    /// Tells assistive technology of a change at an item that is shown.
    void notifyAccessibility(QAccessible::Event type, const QModelIndex &index);
    bool mayEditLabel(const items::TreeItem &item);
    void finishLabelEdit();

    /// Shows what a drop where the pointer is would do, and returns it.
    Qt::DropAction hover();
    void endHover();
    /// Scrolls while the pointer is near an edge.
    void scrollAtEdges();

    int rowsPerPage() const;
    QRect rowRect(int row) const;
    /// From the icon to the right end of the contents.
    QRect captionRect(int row, int level) const;
    /// The item whose branch indicator is at a point of the viewport, or 0.
    Slot branchAt(const QPoint &position) const;
    /// The space an icon and caption take up.
    int captionWidth(const QStyleOptionViewItem &option, Slot slot) const;
    int rowHeightOf(const QStyleOptionViewItem &option) const;
    /// Lets the contents grow to the width of the rows in the viewport.
    void measureShownRows();
    void updateHorizontalScrollBar();
    template <typename F>
    void forEachRow(int first, int last, F &&f) const;
    void paintRow(QPainter &painter, QStyleOptionViewItem option, int row, Slot slot, int level);
    void paintBranches(QPainter &painter, QStyleOptionViewItem option, Slot slot, int level);

    items::Nodes *nodes_;
    items::TreeRows rows_;
    int rowHeight_ = 1;
    /// Width of the widest row seen since the last layout.
    int contentWidth_ = 0;
    /// The button that is down has done its work, on a branch or by a drag.
    bool isPressSpent_ = false;
    /// The item that is pressed was selected before.
    bool isPressOnSelected_ = false;
    QString searchText_;
    QElapsedTimer searchTimer_;
    /// What was entered in the editor that is closing.
    std::optional<std::pair<items::TreeItem, QString>> enteredLabel_;

    DragHandlers drag_;
    /// Where the pointer of a drag was seen last, in the viewport.
    QPoint dragPosition_;
    DragPoint dragPoint_;
    QBasicTimer expandTimer_;
    QBasicTimer scrollTimer_;
};

} // namespace quillon::controls
