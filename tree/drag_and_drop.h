#pragma once

#include "tree/node_insertion.h"
#include "tree/node_removal.h"

#include <functional>
#include <optional>

class QMimeData;

namespace quillon::tree {

/// Moves and copies nodes by dragging, and takes XML text and files from other programs. A move
/// inserts a copy, then removes the source, which may be an item of another window.
class DragAndDrop : public QObject {
    Q_OBJECT

public:
    /// Becomes the drag handlers of the tree, which must not be dragged in any more when this goes.
    DragAndDrop(const state::DocumentState &state, TreeBuilder &builder,
                NodeInsertion &nodeInsertion, NodeRemoval &removal, items::Tree &tree);

    /// What the tree is to call while something is dragged.
    items::DragHandlers handlers();
    /// The item that a mouse button went down on, if any, is the one that a drag would take.
    void takeMouseDown(const items::TreeItem &item);

    /// Begins to drag the item pressed last, with the others that are selected if it is one of
    /// several, and offers their nodes, of a read-only document only for copying; without data when
    /// no item was pressed.
    items::DragOffer tvw_OLEStartDrag();
    /// Something dragged comes in.
    void tvw_OLEDragEnter(const QMimeData &data);
    /// Selects the item hovered over and says what a drop would do: elements take a copy while
    /// Ctrl alone is held, else a move; other nodes take nothing, and an element takes none of its
    /// own attributes. Where the source allows no move, and of a file, a copy is taken. Data that
    /// is neither a node nor text nor a file is refused.
    Qt::DropAction tvw_OLEDragOver(const items::DragPoint &point);
    /// Inserts what is dropped under the item at the point, or else under the selected one, or
    /// asks for it to be opened when no document is. Returns what is to become of the source:
    /// Qt::CopyAction if Ctrl is held, alone or not, for a file, and where the source allows no
    /// move; Qt::MoveAction otherwise; Qt::IgnoreAction when nothing was inserted.
    Qt::DropAction tvw_OLEDragDrop(const items::DragPoint &point, const QMimeData &data);
    /// Ends the drag; removes the nodes after a move, or, where another window of this program took
    /// them, as soon as that one has confirmed the move. Several that were moved within the tree
    /// have gone with the drop, so that the move is one change.
    void tvw_OLECompleteDrag(Qt::DropAction effect);
    /// The drag has gone elsewhere or was given up: what was selected before is so again.
    void bringSelectionBack();

    /// Asked ahead of a drop that changes the document, and of a drag that may take a node away,
    /// about what is in the edit pane alone; false stops it.
    std::function<bool()> mayLeavePane = [] { return true; };
    std::function<bool()> hasUnparsedText = [] { return false; };

    /// The item that a mouse button went down on last.
    items::TreeItem m_nodDown;
    /// The item that is dragged out of this tree; Nothing when none is. Of several, the one
    /// pressed.
    items::TreeItem m_nodDrag;

Q_SIGNALS:
    /// A file was dropped while no document was open.
    void openFileRequested(const QString &path);
    /// Text was dropped while no document was open.
    void loadXmlRequested(const QString &text);
    void documentModified();
    /// What was dragged is in another window now.
    void nodesLeft();

private:
    using Items = std::vector<items::TreeItem>;

    void completeMove();
    void remove(const Items &items);
    /// What is dragged: m_nodDrag alone or several items, none of them below another.
    Items draggedItems() const;
    bool holdsEntityReference(const Items &items) const;
    /// Whether what is dragged may not go to an item because of where it comes from.
    bool isOwnPlace(const items::TreeItem &target) const;
    bool insertDropped(const items::TreeItem &target, const QMimeData &data);
    Qt::DropAction takeDropped(const items::DragPoint &point, const QMimeData &data);
    Qt::DropAction openDropped(const QMimeData &data);

    const state::DocumentState &state_;
    TreeBuilder &builder_;
    NodeInsertion &nodeInsertion_;
    NodeRemoval &removal_;
    items::Tree &tree_;
    /// What comes in can be dropped.
    bool isOfUse_ = true;
    bool isFile_ = false;
    /// What was selected before the drag selected what it passes over.
    std::optional<items::Tree::Selected> selectedBefore_;
    /// The drag has entered a window that will confirm a move.
    bool awaitsConfirmation_ = false;
    /// The items that are dragged.
    Items dragged_;
    /// The slots of these items, in their places those of the elements that attributes among them
    /// belong to; ascending. Of no meaning when m_nodDrag has gone.
    std::vector<items::TreeStore::Slot> ownSlots_;
    /// The items moved to another window that has not been heard from yet.
    Items unconfirmed_;
};

} // namespace quillon::tree
