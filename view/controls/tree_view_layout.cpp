#include "view/controls/tree_view.h"

#include <QCursor>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

namespace quillon::controls {

// The vertical scroll bar counts rows, the horizontal one pixels.

int TreeView::horizontalOffset() const {
    return horizontalScrollBar()->value();
}

int TreeView::verticalOffset() const {
    return verticalScrollBar()->value() * rowHeight_;
}

int TreeView::rowsPerPage() const {
    return std::max(1, viewport()->height() / rowHeight_);
}

QRect TreeView::rowRect(int row) const {
    const int fromTop = row - verticalScrollBar()->value();
    return {0, fromTop * rowHeight_, viewport()->width(), rowHeight_};
}

QRect TreeView::captionRect(int row, int level) const {
    QRect rect = rowRect(row);
    const int right = std::max(rect.right(), contentWidth_ - horizontalOffset() - 1);
    rect.setLeft(indentation() * (level + 1) - horizontalOffset());
    rect.setRight(right);
    return rect;
}

QRect TreeView::visualRect(const QModelIndex &index) const {
    const Slot slot = items::Nodes::slotAt(index);
    const int row = rows_.rowOf(slot);
    return row < 0 ? QRect() : captionRect(row, nodes_.store().level(slot));
}

QModelIndex TreeView::indexAt(const QPoint &position) const {
    if (position.y() < 0)
        return {};
    return nodes_.indexOf(rows_.at(verticalScrollBar()->value() + position.y() / rowHeight_));
}

TreeView::Slot TreeView::branchAt(const QPoint &position) const {
    const Slot slot = items::Nodes::slotAt(indexAt(position));
    if (slot == 0 || !canExpand(slot))
        return 0;
    const int left = indentation() * nodes_.store().level(slot) - horizontalOffset();
    return position.x() >= left && position.x() < left + indentation() ? slot : 0;
}

QRegion TreeView::visualRegionForSelection(const QItemSelection &selection) const {
    QRegion region;
    for (const QModelIndex &index : selection.indexes()) {
        if (const int row = rows_.rowOf(items::Nodes::slotAt(index)); row >= 0)
            region += rowRect(row).intersected(viewport()->rect());
    }
    return region;
}

void TreeView::scrollTo(const QModelIndex &index, ScrollHint hint) {
    const Slot slot = items::Nodes::slotAt(index);
    if (slot == 0)
        return;
    nodes_.expandAncestors(nodes_.item(slot));
    executeDelayedItemsLayout();

    const int row = rows_.rowOf(slot);
    const int page = rowsPerPage();
    const int top = verticalScrollBar()->value();
    if (hint == PositionAtTop || (hint == EnsureVisible && row < top))
        verticalScrollBar()->setValue(row);
    else if (hint == PositionAtBottom || (hint == EnsureVisible && row >= top + page))
        verticalScrollBar()->setValue(row - page + 1);
    else if (hint == PositionAtCenter)
        verticalScrollBar()->setValue(row - page / 2);

    // Of a caption only the beginning has to be seen: a long one must not make the view jump.
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const int width = viewport()->width();
    const int left = indentation() * nodes_.store().level(slot);
    const int right = left + indentation() + std::min(captionWidth(option, slot), width / 2);
    const int offset = horizontalOffset();
    if (left < offset)
        horizontalScrollBar()->setValue(left);
    else if (right > offset + width)
        horizontalScrollBar()->setValue(std::min(left, right - width));
}

// ---- Layout

int TreeView::rowHeightOf(const QStyleOptionViewItem &base) const {
    // Western and Japanese characters may come from fonts of different height.
    QStyleOptionViewItem option = base;
    option.text = QStringLiteral("Ág漢↵");
    option.features |= QStyleOptionViewItem::HasDisplay | QStyleOptionViewItem::HasDecoration;
    return std::max(
        1, style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, QSize(), this).height());
}

int TreeView::captionWidth(const QStyleOptionViewItem &option, Slot slot) const {
    return itemDelegate()->sizeHint(option, nodes_.indexOf(slot)).width();
}

template <typename F>
void TreeView::forEachRow(int first, int last, F &&f) const {
    const items::TreeStore &store = nodes_.store();
    Slot above = 0;
    int level = 0;
    for (int row = first; row <= last; ++row) {
        const Slot slot = rows_.at(row);
        if (slot == 0)
            return;
        // From one row to the next, so that only the first one has to climb all the way up.
        if (above == 0)
            level = store.level(slot);
        else if (store.parent(slot) == above)
            ++level;
        else
            for (; store.parent(above) != store.parent(slot); above = store.parent(above))
                --level;
        f(row, slot, level);
        above = slot;
    }
}

void TreeView::measureShownRows() {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const int top = verticalScrollBar()->value();
    forEachRow(top, top + rowsPerPage(), [&](int, Slot slot, int level) {
        const int width = indentation() * (level + 1) + captionWidth(option, slot);
        contentWidth_ = std::max(contentWidth_, width);
    });
}

void TreeView::doItemsLayout() {
    contentWidth_ = 0;
    QAbstractItemView::doItemsLayout();
}

void TreeView::updateGeometries() {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    rowHeight_ = rowHeightOf(option);
    const int page = rowsPerPage();
    verticalScrollBar()->setRange(0, std::max(0, rows_.count() - page));
    verticalScrollBar()->setPageStep(page);
    verticalScrollBar()->setSingleStep(1);
    measureShownRows();
    updateHorizontalScrollBar();
    QAbstractItemView::updateGeometries();
}

void TreeView::updateHorizontalScrollBar() {
    const int width = viewport()->width();
    horizontalScrollBar()->setRange(0, std::max(0, contentWidth_ - width));
    horizontalScrollBar()->setPageStep(width);
    horizontalScrollBar()->setSingleStep(indentation());
}

void TreeView::scrollContentsBy(int, int dy) {
    if (dy != 0) {
        measureShownRows();
        updateHorizontalScrollBar();
    }
    viewport()->update();
    updateEditorGeometries();
}

// ---- Painting

void TreeView::paintEvent(QPaintEvent *event) {
    executeDelayedItemsLayout();
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const int top = verticalScrollBar()->value();
    forEachRow(top + event->rect().top() / rowHeight_, top + event->rect().bottom() / rowHeight_,
               [&](int row, Slot slot, int level) { paintRow(painter, option, row, slot, level); });
    if (frame_)
        paintFrame(painter);
}

void TreeView::paintRow(QPainter &painter, QStyleOptionViewItem option, int row, Slot slot,
                        int level) {
    const QModelIndex index = nodes_.indexOf(slot);
    option.rect = rowRect(row);
    const bool isHovered =
        viewport()->underMouse() && option.rect.contains(viewport()->mapFromGlobal(QCursor::pos()));
    const items::TreeItem item = nodes_.item(slot);
    const bool isFocused =
        hasFocus() && (focusItem_ ? item == focusItem_ : index == currentIndex());
    option.state.setFlag(QStyle::State_Selected, tree_.isSelected(item));
    option.state.setFlag(QStyle::State_HasFocus, isFocused);
    option.state.setFlag(QStyle::State_MouseOver, isHovered);
    style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &option, &painter, this);
    paintBranches(painter, option, slot, level);
    option.rect = captionRect(row, level);
    itemDelegate()->paint(&painter, option, index);
}

void TreeView::paintBranches(QPainter &painter, QStyleOptionViewItem option, Slot slot, int level) {
    const items::TreeStore &store = nodes_.store();
    const auto state = option.state & ~QStyle::State_MouseOver;
    const bool isParent = canExpand(slot);
    const bool isOpen = isParent && store.isExpanded(slot);
    option.rect.setWidth(indentation());
    // Outwards from the item's own branch, up to the left edge of the viewport.
    for (Slot at = slot; at != items::TreeStore::Root; at = store.parent(at), --level) {
        option.rect.moveLeft(indentation() * level - horizontalOffset());
        if (option.rect.right() < 0)
            break;
        if (option.rect.left() >= viewport()->width())
            continue;
        option.state = state;
        option.state.setFlag(QStyle::State_Sibling, store.next(at) != 0);
        option.state.setFlag(QStyle::State_Item, at == slot);
        option.state.setFlag(QStyle::State_Children, at == slot && isParent);
        option.state.setFlag(QStyle::State_Open, at == slot && isOpen);
        style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, &painter, this);
    }
}

} // namespace quillon::controls
