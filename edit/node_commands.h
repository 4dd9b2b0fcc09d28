#pragma once

#include "edit/structure_commands.h"
#include "platform/ui/clipboard.h"
#include "state/document_state.h"
#include "tree/node_insertion.h"
#include "tree/node_removal.h"
#include "tree/selection.h"

#include <QObject>

namespace quillon::edit {

/// Which entries of the Edit menu apply.
struct EditMenuStates {
    bool paste = false;
    bool copy = false;
    bool cut = false;
    bool remove = false;
    bool rename = false;
    bool find = false;
};

/// Which entries of the Node menu apply.
struct NodeMenuStates {
    bool expand = false;
    bool addElement = false;
    /// Attribute, comment, text and CDATA section.
    bool addOther = false;
    bool insert = false;
    bool moveUp = false;
    bool moveDown = false;
};

/// Removes, moves, renames and transfers nodes: what is selected, all of it or, where something
/// cannot be done with one of several nodes, nothing. The clipboard holds the nodes in this
/// program's own format and their markup as plain text.
class NodeCommands : public QObject {
    Q_OBJECT

public:
    NodeCommands(const state::DocumentState &state, tree::TreeBuilder &builder,
                 tree::NodeRemoval &removal, tree::NodeInsertion &nodeInsertion,
                 tree::Selection &selection, StructureCommands &structure, items::Tree &tree,
                 ui::Clipboard &clipboard);

    EditMenuStates mnuEdit_Click() const;
    NodeMenuStates mnuNode_Click() const;

    void CopyNode(const items::TreeItem &item);
    /// Pastes the clipboard's nodes, or else its text, at an item; returns the item of the new
    /// node, the last of several, or none when nothing was inserted, which leaves the document as
    /// it was.
    items::TreeItem PasteNode(const items::TreeItem &item);

    void mnuEditCopy_Click();
    void mnuEditCut_Click();
    void mnuEditDelete_Click();
    void mnuEditPaste_Click();
    void mnuEditRename_Click();
    /// Selects the items that are bold, with the selected one as the current if it is among them,
    /// else the first.
    void selectMarked();
    void mnuNodeMoveUp_Click();
    void mnuNodeMoveDown_Click();

    /// Asks before a node is deleted. Nothing clears it.
    bool g_bConfirmDelete = true;

Q_SIGNALS:
    void documentModified();
    /// The clipboard holds something that can be pasted into the selected element.
    void pasteEnabled();

private:
    using Items = std::vector<items::TreeItem>;

    void copyItems(const Items &items);
    Items insertClipboard(const items::TreeItem &item);
    /// Whether all of several nodes can be deleted; a message box says which cannot.
    bool mayDeleteAll(const Items &items) const;
    bool confirmsDeleting() const;
    /// Puts a copy of the selected node at the place named, removes the node and shows the copy.
    void moveSelected(items::TreeItem relItem, items::Relationship relationship);

    const state::DocumentState &state_;
    tree::TreeBuilder &builder_;
    tree::NodeRemoval &removal_;
    tree::NodeInsertion &nodeInsertion_;
    tree::Selection &selection_;
    StructureCommands &structure_;
    items::Tree &tree_;
    ui::Clipboard &clipboard_;
};

} // namespace quillon::edit
