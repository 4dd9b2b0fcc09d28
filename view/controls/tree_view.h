#pragma once

#include "platform/items/tree.h"
#include "platform/ui/proposals.h"

#include <QAccessible>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QIcon>
#include <QTreeView>

#include <functional>
#include <optional>

class QHelpEvent;

namespace quillon::controls {

/// Shows a tree, which must outlive it, follows it, and does to it what the user does.
///
/// Rows are laid out and painted from the tree's TreeRows. QTreeView's own layout recurses over the
/// depth in quadratic time, and each insertion and removal walks the persistent index it keeps for
/// every expanded item: at 100,000 nested levels that is 15 and 40 seconds. What is expanded is
/// said by the items alone; the functions and signals of QTreeView about it are not in use.
class TreeView : public QTreeView {
    Q_OBJECT

public:
    explicit TreeView(items::Tree &tree, QWidget *parent = nullptr);

    items::Tree &tree() const { return tree_; }
    const items::TreeRows &rows() const { return rows_; }
    /// The images that the items' numbers mean.
    const QList<QIcon> &imageList() const { return images_; }
    void setImageList(const QList<QIcon> &images) { images_ = images; }

    /// Who knows what can be typed into the caption of an item. None: nothing is proposed.
    std::function<ui::Proposer(const items::TreeItem &item)> proposerFor;
    /// Says in plain text what is known of an item, for its tool-tip. None: there are no tool-tips.
    std::function<QString(const items::TreeItem &item)> describe;

    /// The item in the row at a point of the viewport, or Nothing.
    items::TreeItem HitTest(const QPoint &position) const;
    bool isEditingLabel() const { return state() == EditingState; }
    /// The item that keys go to: the selected one, unless Ctrl and a cursor key have gone on from
    /// it.
    items::TreeItem focusItem() const;
    /// What the user does by clicking the branch of an item; may send the tree's NodeClick.
    void setExpandedAsUser(const items::TreeItem &item, bool expanded);

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

protected:
    using QTreeView::edit;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

    void rowsInserted(const QModelIndex &parent, int first, int last) override;
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
    bool viewportEvent(QEvent *event) override;

private:
    using Slot = items::TreeStore::Slot;

    void showTree();
    void showDescription(const QHelpEvent &event);
    bool canExpand(Slot slot) const { return nodes_.store().firstChild(slot) != 0; }
    /// Tells assistive technology of a change at an item that is shown.
    void notifyAccessibility(QAccessible::Event type, const QModelIndex &index);
    bool mayEditLabel(const items::TreeItem &item);
    void openLabelEditor(const items::TreeItem &item);
    void endLabelEdit();
    void finishLabelEdit();

    // Selecting several items: tree_view_selection.cpp.

    /// Whether a press is about several items. It then does its work when the button is released,
    /// as it may yet turn out to begin a drag.
    bool isForSeveral(const QMouseEvent &event, const items::TreeItem &pressed) const;
    void pressForSeveral(const QMouseEvent &event, const items::TreeItem &pressed);
    void finishPressForSeveral();
    /// Begins what the button that is down is for, a drag or a frame, when the pointer has gone far
    /// enough; false when that is the base's business.
    bool moveForSeveral(const QMouseEvent &event);
    bool keyForSeveral(const QKeyEvent &event);
    /// Whether a point is well behind a caption or below all of them.
    bool isBesideCaptions(const QPoint &position) const;
    void beginFrame();
    /// Has the frame end at dragPosition_ and selects what it spans.
    void followFrame();
    void endFrame();
    void paintFrame(QPainter &painter);
    void startScrollingNearEdges();
    int rowAfter(CursorAction action, int row) const;

    /// Turns dragging on, in both directions. A collapsed item expands after the pointer has rested
    /// on it for autoExpandDelay().
    void setUpDragging();
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

    items::Tree &tree_;
    items::Nodes &nodes_;
    const items::TreeRows &rows_;
    QList<QIcon> images_;
    int rowHeight_ = 1;
    /// Width of the widest row seen since the last layout.
    int contentWidth_ = 0;
    /// The button that is down has done its work, on a branch or by a drag.
    bool isPressSpent_ = false;
    /// The item that is pressed was selected before.
    bool isPressOnSelected_ = false;
    /// A press about several items.
    std::optional<items::TreeItem> pressForSeveral_;
    /// Where the button went down, and with what keys.
    QPoint pressPosition_;
    Qt::KeyboardModifiers pressModifiers_;
    /// The button went down where a frame may begin.
    bool isPressBesideCaptions_ = false;
    /// A frame that is being drawn.
    struct Frame {
        /// Where it begins, from the top left of the contents.
        QPoint origin;
        items::Tree::Selected before;
    };
    std::optional<Frame> frame_;
    bool isSelectingByMouse_ = false;
    /// Where Ctrl and the cursor keys have gone.
    items::TreeItem focusItem_;
    QString searchText_;
    QElapsedTimer searchTimer_;
    /// What was entered in the editor that is closing.
    std::optional<std::pair<items::TreeItem, QString>> enteredLabel_;

    /// Where the pointer of a drag was seen last, in the viewport.
    QPoint dragPosition_;
    items::DragPoint dragPoint_;
    QBasicTimer expandTimer_;
    QBasicTimer scrollTimer_;
};

} // namespace quillon::controls
