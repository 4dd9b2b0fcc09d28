#include "view/controls/tree_view.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionRubberBand>

#include <algorithm>

namespace quillon::controls {

namespace {

constexpr auto SelectionKeys = Qt::ShiftModifier | Qt::ControlModifier;
constexpr auto AllKeys = SelectionKeys | Qt::AltModifier | Qt::MetaModifier;

} // namespace

// ---- Mouse

bool TreeView::isForSeveral(const QMouseEvent &event, const items::TreeItem &pressed) const {
    if (!pressed)
        return false;
    const Qt::KeyboardModifiers keys = event.modifiers() & AllKeys;
    const bool isOneOfSeveral = tree_.selectedCount() > 1 && tree_.isSelected(pressed);
    if (keys == Qt::NoModifier)
        return isOneOfSeveral &&
               (event.button() == Qt::LeftButton || event.button() == Qt::RightButton);
    // With nothing beside it, the selected item is clicked as without a key.
    return event.button() == Qt::LeftButton && (keys & ~SelectionKeys) == Qt::NoModifier &&
           (isOneOfSeveral || pressed != tree_.SelectedItem());
}

void TreeView::pressForSeveral(const QMouseEvent &event, const items::TreeItem &pressed) {
    if (event.button() == Qt::RightButton)
        tree_.asUserGesture([&] { tree_.makeCurrent(pressed); });
    else
        pressForSeveral_ = pressed;
}

void TreeView::finishPressForSeveral() {
    const items::TreeItem pressed = *std::exchange(pressForSeveral_, std::nullopt);
    const bool extends = pressModifiers_.testFlag(Qt::ShiftModifier);
    const bool keeps = pressModifiers_.testFlag(Qt::ControlModifier);
    isPressOnSelected_ = false;
    isSelectingByMouse_ = true;
    tree_.asUserGesture([&] {
        if (extends)
            tree_.extendSelection(pressed, keeps ? tree_.selected() : items::Tree::Selected());
        else if (keeps)
            tree_.toggleSelected(pressed);
        else
            tree_.selectInPlace(pressed);
    });
    isSelectingByMouse_ = false;
}

bool TreeView::moveForSeveral(const QMouseEvent &event) {
    if (!event.buttons().testFlag(Qt::LeftButton))
        return false;
    dragPosition_ = event.position().toPoint();
    if (frame_) {
        followFrame();
        startScrollingNearEdges();
        return true;
    }
    if (!pressForSeveral_ && !isPressBesideCaptions_)
        return false;
    if ((dragPosition_ - pressPosition_).manhattanLength() < QApplication::startDragDistance())
        return true;
    const auto pressed = std::exchange(pressForSeveral_, std::nullopt);
    if (std::exchange(isPressBesideCaptions_, false)) {
        beginFrame();
        return true;
    }
    // What is not selected is dragged alone.
    if (!tree_.isSelected(*pressed))
        tree_.asUserGesture([&] { tree_.selectInPlace(*pressed); });
    startDrag(Qt::CopyAction | Qt::MoveAction);
    return true;
}

// ---- The frame

bool TreeView::isBesideCaptions(const QPoint &position) const {
    const QModelIndex index = indexAt(position);
    if (!index.isValid())
        return true;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const int width = captionWidth(option, items::Nodes::slotAt(index));
    // Whoever aims at a short caption may miss its end.
    return position.x() >= visualRect(index).left() + width + 2 * indentation();
}

void TreeView::beginFrame() {
    isPressOnSelected_ = false;
    frame_.emplace(pressPosition_ + QPoint(horizontalOffset(), verticalOffset()), tree_.selected());
    followFrame();
}

void TreeView::followFrame() {
    const int last = rows_.count() - 1;
    const int from = frame_->origin.y() / rowHeight_;
    const int to = (std::max(0, dragPosition_.y() + verticalOffset())) / rowHeight_;
    viewport()->update();
    if (std::min(from, to) > last)
        tree_.bringBack(frame_->before);
    else {
        isSelectingByMouse_ = true;
        tree_.selectRange(
            nodes_.item(rows_.at(std::min(from, last))), nodes_.item(rows_.at(std::min(to, last))),
            (pressModifiers_ & SelectionKeys) != Qt::NoModifier ? frame_->before
                                                                : items::Tree::Selected());
        isSelectingByMouse_ = false;
    }
}

void TreeView::endFrame() {
    const items::TreeItem before = frame_->before.current;
    frame_.reset();
    scrollTimer_.stop();
    viewport()->update();
    isPressSpent_ = true;
    // The pane is filled once, not for each item on the way.
    if (const items::TreeItem now = tree_.SelectedItem(); now && now != before)
        Q_EMIT tree_.NodeClick(now);
    if (const int count = tree_.selectedCount(); count > 1)
        Q_EMIT tree_.severalSelected(count);
}

void TreeView::paintFrame(QPainter &painter) {
    QStyleOptionRubberBand option;
    option.initFrom(viewport());
    option.shape = QRubberBand::Rectangle;
    option.opaque = false;
    option.rect =
        QRect(frame_->origin - QPoint(horizontalOffset(), verticalOffset()), dragPosition_)
            .normalized();
    style()->drawControl(QStyle::CE_RubberBand, &option, &painter, this);
}

// ---- Keyboard

items::TreeItem TreeView::focusItem() const {
    return focusItem_ && rows_.isShown(nodes_.slotOf(focusItem_)) ? focusItem_
                                                                  : tree_.SelectedItem();
}

int TreeView::rowAfter(CursorAction action, int row) const {
    const int last = rows_.count() - 1;
    switch (action) {
    case MoveUp:
    case MovePrevious:
        return std::max(row - 1, 0);
    case MoveDown:
    case MoveNext:
        return std::min(row + 1, last);
    case MovePageUp:
        return std::max(row - rowsPerPage(), 0);
    case MovePageDown:
        return std::min(row + rowsPerPage(), last);
    case MoveHome:
        return 0;
    case MoveEnd:
        return last;
    default:
        return row;
    }
}

bool TreeView::keyForSeveral(const QKeyEvent &event) {
    static const std::pair<int, CursorAction> cursorKeys[] = {
        {Qt::Key_Up, MoveUp},         {Qt::Key_Down, MoveDown},
        {Qt::Key_PageUp, MovePageUp}, {Qt::Key_PageDown, MovePageDown},
        {Qt::Key_Home, MoveHome},     {Qt::Key_End, MoveEnd}};
    const items::TreeItem from = focusItem();
    const Qt::KeyboardModifiers keys = event.modifiers() & AllKeys;
    if (!from || (keys & ~SelectionKeys) != Qt::NoModifier)
        return false;
    if (event.key() == Qt::Key_Space && keys == Qt::ControlModifier) {
        tree_.asUserGesture([&] { tree_.toggleSelected(from); });
        return true;
    }
    const auto key = std::find_if(std::begin(cursorKeys), std::end(cursorKeys),
                                  [&](const auto &entry) { return entry.first == event.key(); });
    const bool isSideways = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
    if (keys == Qt::NoModifier && (isSideways || key != std::end(cursorKeys)))
        tree_.selectOnlyCurrent();
    if (key == std::end(cursorKeys) || (keys == Qt::NoModifier && !focusItem_))
        return false;
    const items::TreeItem to =
        nodes_.item(rows_.at(rowAfter(key->second, rows_.rowOf(nodes_.slotOf(from)))));
    if (keys == Qt::NoModifier) {
        tree_.selectAsUser(to);
        focusItem_ = {};
        return true;
    }
    if (keys == Qt::ControlModifier) {
        focusItem_ = to;
        scrollTo(nodes_.indexOf(to));
        viewport()->update();
        notifyAccessibility(QAccessible::Focus, nodes_.indexOf(to));
        return true;
    }
    const bool keeps = keys.testFlag(Qt::ControlModifier);
    tree_.asUserGesture(
        [&] { tree_.extendSelection(to, keeps ? tree_.selected() : items::Tree::Selected()); });
    return true;
}

} // namespace quillon::controls
