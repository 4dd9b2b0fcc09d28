#pragma once

#include "platform/items/tree_drag.h"
#include "platform/items/tree_nodes.h"
#include "platform/items/tree_rows.h"

#include <QItemSelectionModel>

#include <functional>
#include <utility>
#include <vector>

namespace quillon::items {

/// A tree as the program knows it: its items, which of them is selected, and what becomes of what
/// the user does to them. A view shows it and follows it; without one everything here works as
/// well, only that nobody sees it.
///
/// Most of the program knows one selected item, SelectedItem(). It is never out of sight: when it
/// is removed, the selection goes to its next sibling, else to its parent, else to its previous
/// sibling; when an item above it is collapsed, to that one. The user may select others beside it,
/// which are in sight as well: they are no longer selected when they go or an item above them is
/// collapsed, nor when the program selects an item.
class Tree : public QObject {
    Q_OBJECT

public:
    explicit Tree(QObject *parent = nullptr);

    Nodes &nodes() { return nodes_; }
    const Nodes &nodes() const { return nodes_; }
    /// The items whose ancestors are all expanded.
    const TreeRows &rows() const { return rows_; }

    TreeItem SelectedItem() const;
    /// Selects an item and no other, expands its ancestors and asks the view to scroll to it;
    /// Nothing deselects.
    void setSelectedItem(const TreeItem &item);
    /// Selects an item in view without scrolling: it must not slip away from under the pointer.
    void selectInPlace(const TreeItem &item);
    /// Whether the present change of the selection is selectInPlace()'s.
    bool isSelectingInPlace() const { return isSelectingInPlace_; }

    /// SelectedItem() and the others selected beside it, in the order of the tree.
    std::vector<TreeItem> selectedItems() const;
    /// The same without those that are below another of them.
    std::vector<TreeItem> topmostSelectedItems() const;
    bool isSelected(const TreeItem &item) const;
    int selectedCount() const;
    /// Selects some items and no others, expands what is above them and asks the view to scroll to
    /// `current`, which becomes SelectedItem() and need not be among the items.
    void selectItems(const std::vector<TreeItem> &items, const TreeItem &current);
    /// What is selected, to be brought back while its items are there and in sight.
    struct Selected {
        TreeItem current;
        BitRow others;
    };
    Selected selected() const { return {SelectedItem(), others_}; }
    /// Brings it back without scrolling; nothing happens when the current item has gone.
    void bringBack(const Selected &before);

    // What the user does to select several items, each of them in sight. The item that is named
    // becomes SelectedItem().

    /// Selects an item beside what is selected, or does so no longer. The last one stays selected.
    void toggleSelected(const TreeItem &item);
    /// Selects the rows from the anchor to an item: alone, or beside `before`. The anchor is the
    /// item that was selected last by other means.
    void extendSelection(const TreeItem &to, const Selected &before = {});
    /// The same from another item on, which becomes the anchor.
    void selectRange(const TreeItem &from, const TreeItem &to, const Selected &before = {});
    /// Makes an item that is selected the current one; the others stay selected.
    void makeCurrent(const TreeItem &item);
    /// Selects SelectedItem() alone.
    void selectOnlyCurrent();

    /// Runs what the user does with the tree; sends NodeClick if that has selected another item.
    template <typename Gesture>
    void asUserGesture(Gesture &&gesture) {
        const TreeItem before = SelectedItem();
        const int countBefore = selectedCount();
        std::forward<Gesture>(gesture)();
        const TreeItem after = SelectedItem();
        if (after && after != before)
            Q_EMIT NodeClick(after);
        const int count = selectedCount();
        if (count > 1 ? count != countBefore || after != before : countBefore > 1)
            Q_EMIT severalSelected(count);
    }
    /// What the user does by clicking an item.
    void selectAsUser(const TreeItem &item);

    /// False while the program rebuilds the tree: the view keeps its place and its picture.
    bool treeVisible() const { return isVisible_; }
    void setTreeVisible(bool visible);
    /// Gives the view the keyboard.
    void setFocus() { Q_EMIT focusRequested(); }

    /// Lets the user edit the caption of the selected item, unless beforeLabelEdit refuses.
    void StartLabelEdit();
    /// Ends the editing of a caption as the Enter key does; nothing happens when there is none.
    void endLabelEdit() { Q_EMIT labelEditEndRequested(); }

    /// Asked before the editor of a caption opens; false refuses. An error that one of these
    /// three raises is shown to the user, and is a refusal or leaves the caption as it is.
    std::function<bool(const TreeItem &)> beforeLabelEdit = [](const TreeItem &) { return true; };
    /// The text with which the editor opens, all of it selected.
    std::function<QString(const TreeItem &)> labelEditText = [](const TreeItem &item) {
        return item.Text();
    };
    /// Gets the text entered, after the editor has closed, and may change it. True sets it as the
    /// caption, false leaves the caption alone.
    std::function<bool(const TreeItem &, QString &newText)> afterLabelEdit =
        [](const TreeItem &, QString &) { return true; };
    /// What a view does with the text entered for an item; raises what afterLabelEdit raises.
    void enterLabel(TreeItem item, QString text);

    DragHandlers dragHandlers;

    /// For views: the selected item is the current one of this. The program asks SelectedItem().
    QItemSelectionModel &selectionModel() { return selection_; }

Q_SIGNALS:
    /// The user has selected another item, by mouse or keyboard, or clicked the selected one.
    void NodeClick(const quillon::items::TreeItem &item);
    /// A mouse button went down on an item or on Nothing. Sent after the press has done its work.
    void mouseDown(const quillon::items::TreeItem &item);

    /// The user has selected several items, others than before, or one again. Sent after NodeClick.
    void severalSelected(int count);
    /// Others are selected beside SelectedItem() than before.
    void otherSelectedItemsChanged();

    /// Items have been expanded or collapsed, so others are shown now.
    void shownRowsChanged();
    void treeVisibleChanged(bool visible);
    void focusRequested();
    void labelEditRequested(const quillon::items::TreeItem &item);
    void labelEditEndRequested();

private:
    using Slot = TreeStore::Slot;

    Slot currentSlot() const { return Nodes::slotAt(selection_.currentIndex()); }
    void followInsertion(const QModelIndex &parent, int first, int last);
    void passSelectionOn(const QModelIndex &parent, int row);
    void followExpansion(const TreeItem &item, bool expanded);
    void followCurrent();
    /// Selects `current` and the others beside it, all of which are in sight.
    void select(BitRow others, Slot current);
    BitRow noOthers() const;
    /// Selects neither this item nor what is below it, but for SelectedItem().
    void dropOthersFrom(Slot top);
    void dropHiddenOthers();
    void expandAbove(const std::vector<TreeItem> &items);

    Nodes nodes_;
    TreeRows rows_{nodes_.store()};
    QItemSelectionModel selection_;
    /// The slots of what is selected beside the selected item; that one's is not among them.
    BitRow others_;
    /// Where extending the selection starts from.
    TreeItem anchor_;
    bool isSelectingSeveral_ = false;
    bool isSelectingInPlace_ = false;
    bool isVisible_ = true;
};

} // namespace quillon::items
