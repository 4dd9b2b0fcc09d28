#include "platform/ui/error_boundary.h"
#include "view/controls/tree_view.h"

#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QScrollBar>

namespace quillon::controls {

using ui::guarded;

namespace {

constexpr int ExpandDelayMs = 800;
constexpr int ScrollIntervalMs = 80;

/// One step towards the edge that a position is near.
void scrollAtEdge(QScrollBar &bar, int position, int extent, int margin) {
    if (position < margin)
        bar.triggerAction(QScrollBar::SliderSingleStepSub);
    else if (position >= extent - margin)
        bar.triggerAction(QScrollBar::SliderSingleStepAdd);
}

void answer(QDropEvent &event, Qt::DropAction action) {
    event.setDropAction(action);
    event.setAccepted(action != Qt::IgnoreAction);
}

} // namespace

void TreeView::setUpDragging() {
    setDragEnabled(true);
    setAcceptDrops(true);
    setAutoExpandDelay(ExpandDelayMs);
}

// ---- The source

void TreeView::startDrag(Qt::DropActions) {
    // After a drag that Escape has ended the button may still be down.
    isPressSpent_ = true;
    items::DragOffer offer;
    guarded([&] { offer = tree_.dragHandlers.start(); });
    if (!offer.data)
        return;
    auto *drag = new QDrag(this);
    drag->setMimeData(offer.data.release());
    Qt::DropAction done = drag->exec(offer.actions, Qt::MoveAction);
    // A text box of this program that took the text has taken in no node.
    if (drag->target() && !qobject_cast<TreeView *>(drag->target()->parent()))
        done = Qt::CopyAction;
    guarded([&] { tree_.dragHandlers.complete(done); });
}

// ---- The target

void TreeView::dragEnterEvent(QDragEnterEvent *event) {
    // Refused here, a drag would not be heard of again; each point answers for itself.
    event->acceptProposedAction();
    guarded([&] { tree_.dragHandlers.enter(*event->mimeData()); });
}

void TreeView::dragMoveEvent(QDragMoveEvent *event) {
    dragPosition_ = event->position().toPoint();
    dragPoint_.modifiers = event->modifiers();
    dragPoint_.proposed = event->proposedAction();
    dragPoint_.possible = event->possibleActions();
    answer(*event, hover());
    startScrollingNearEdges();
}

void TreeView::startScrollingNearEdges() {
    const int margin = autoScrollMargin();
    if (viewport()->rect().adjusted(margin, margin, -margin, -margin).contains(dragPosition_))
        scrollTimer_.stop();
    else if (!scrollTimer_.isActive())
        scrollTimer_.start(ScrollIntervalMs, this);
}

Qt::DropAction TreeView::hover() {
    const items::TreeItem before = std::exchange(dragPoint_.item, HitTest(dragPosition_));
    const items::TreeItem &item = dragPoint_.item;
    if (item != before) {
        expandTimer_.stop();
        if (item && !item.Expanded() && canExpand(nodes_.slotOf(item)))
            expandTimer_.start(autoExpandDelay(), this);
    }
    Qt::DropAction action = Qt::IgnoreAction;
    guarded([&] { action = tree_.dragHandlers.over(dragPoint_); });
    return action;
}

void TreeView::dragLeaveEvent(QDragLeaveEvent *) {
    endHover();
    guarded([&] { tree_.dragHandlers.leave(); });
}

void TreeView::dropEvent(QDropEvent *event) {
    endHover();
    const items::DragPoint point{HitTest(event->position().toPoint()), event->modifiers(),
                                 event->proposedAction(), event->possibleActions()};
    Qt::DropAction done = Qt::IgnoreAction;
    guarded([&] { done = tree_.dragHandlers.drop(point, *event->mimeData()); });
    answer(*event, done);
}

void TreeView::endHover() {
    expandTimer_.stop();
    scrollTimer_.stop();
    dragPoint_ = {};
}

void TreeView::timerEvent(QTimerEvent *event) {
    if (event->timerId() == expandTimer_.timerId()) {
        expandTimer_.stop();
        setExpandedAsUser(dragPoint_.item, true);
    } else if (event->timerId() == scrollTimer_.timerId()) {
        scrollAtEdges();
    } else {
        QTreeView::timerEvent(event);
    }
}

void TreeView::scrollAtEdges() {
    const QSize size = viewport()->size();
    const int margin = autoScrollMargin();
    scrollAtEdge(*verticalScrollBar(), dragPosition_.y(), size.height(), margin);
    scrollAtEdge(*horizontalScrollBar(), dragPosition_.x(), size.width(), margin);
    // Another item has come under the pointer, which may never move again before the drop.
    if (frame_)
        followFrame();
    else
        hover();
}

} // namespace quillon::controls
