#pragma once

#include "platform/items/tree_item.h"

#include <QMimeData>

#include <functional>
#include <memory>

namespace quillon::items {

/// Where in a tree something is dragged or dropped.
struct DragPoint {
    /// The item under the pointer; Nothing beside the items.
    TreeItem item;
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

/// What a tree does when items are dragged out of it and data is dragged into it; nothing, unless
/// told otherwise. An error that one of these raises is shown to the user and counts as a refusal.
struct DragHandlers {
    /// The user drags an item. What is offered in its place.
    std::function<DragOffer()> start = [] { return DragOffer(); };
    /// Something dragged comes in. Asking it for data may take a while.
    std::function<void(const QMimeData &)> enter = [](const QMimeData &) {};
    /// It has gone again, or the user has given the drag up.
    std::function<void()> leave = [] {};
    /// What a drop at a point would do; Qt::IgnoreAction refuses it. Asked again and again.
    std::function<Qt::DropAction(const DragPoint &)> over = [](const DragPoint &) {
        return Qt::IgnoreAction;
    };
    /// Takes the data dropped at a point; says what was done with it, Qt::IgnoreAction for
    /// nothing.
    std::function<Qt::DropAction(const DragPoint &, const QMimeData &)> drop =
        [](const DragPoint &, const QMimeData &) { return Qt::IgnoreAction; };
    /// The drag that `start` began is over, and this was done with what it offered.
    std::function<void(Qt::DropAction)> complete = [](Qt::DropAction) {};
};

} // namespace quillon::items
