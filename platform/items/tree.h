#pragma once

#include "platform/items/tree_drag.h"
#include "platform/items/tree_nodes.h"
#include "platform/items/tree_rows.h"

#include <QItemSelectionModel>

#include <functional>
#include <utility>

namespace quillon::items {

/// A tree as the program knows it: its items, which of them is selected, and what becomes of what
/// the user does to them. A view shows it and follows it; without one everything here works as
/// well, only that nobody sees it.
///
/// At most one item is selected, and it is never out of sight: when it is removed, the selection
/// goes to its next sibling, else to its parent, else to its previous sibling; when an item above
/// it is collapsed, to that one.
class Tree : public QObject {
    Q_OBJECT

public:
    explicit Tree(QObject *parent = nullptr);

    Nodes &nodes() { return nodes_; }
    const Nodes &nodes() const { return nodes_; }
    /// The items whose ancestors are all expanded.
    const TreeRows &rows() const { return rows_; }

    TreeItem SelectedItem() const;
    /// Selects an item, expands its ancestors and asks the view to scroll to it; Nothing deselects.
    void setSelectedItem(const TreeItem &item);
    /// Selects an item in view without scrolling: it must not slip away from under the pointer.
    void selectInPlace(const TreeItem &item);
    /// Whether the present change of the selection is selectInPlace()'s.
    bool isSelectingInPlace() const { return isSelectingInPlace_; }

    /// Runs what the user does with the tree; sends NodeClick if that has selected another item.
    template <typename Gesture>
    void asUserGesture(Gesture &&gesture) {
        const TreeItem before = SelectedItem();
        std::forward<Gesture>(gesture)();
        const TreeItem after = SelectedItem();
        if (after && after != before)
            Q_EMIT NodeClick(after);
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

    /// Items have been expanded or collapsed, so others are shown now.
    void shownRowsChanged();
    void treeVisibleChanged(bool visible);
    void focusRequested();
    void labelEditRequested(const quillon::items::TreeItem &item);
    void labelEditEndRequested();

private:
    TreeStore::Slot currentSlot() const { return Nodes::slotAt(selection_.currentIndex()); }
    void followInsertion(const QModelIndex &parent, int first, int last);
    void passSelectionOn(const QModelIndex &parent, int row);
    void followExpansion(const TreeItem &item, bool expanded);

    Nodes nodes_;
    TreeRows rows_{nodes_.store()};
    QItemSelectionModel selection_;
    bool isSelectingInPlace_ = false;
    bool isVisible_ = true;
};

} // namespace quillon::items
