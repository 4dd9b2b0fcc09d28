#pragma once

#include "edit/undo_redo.h"
#include "state/document_state.h"
#include "tree/selection.h"
#include "tree/tree_builder.h"

#include <QObject>

namespace quillon::edit {

/// Takes snapshots of the document with the tree's expansion, and restores them.
class UndoHistory : public QObject {
    Q_OBJECT

public:
    UndoHistory(state::DocumentState &state, tree::TreeBuilder &builder, tree::Selection &selection,
                items::Tree &tree);

    /// Forgets everything; the document as it is now becomes the state to start from.
    void ResetUndoHistory();
    /// Records the state that a change has just led to.
    void takeSnapshot();
    /// Drops the history of a document that is closed.
    void release();

    void UndoCommand();
    void RedoCommand();
    bool CanUndo() const { return m_Undo && m_Undo->CanUndo(); }
    bool CanRedo() const { return m_Undo && m_Undo->CanRedo(); }
    /// The state that is shown; none before there is a history.
    clsUndoRedo::Info current() const { return m_Undo ? m_Undo->current() : nullptr; }

Q_SIGNALS:
    /// A state has been recorded.
    void recorded();
    /// Another state is the present one: the history starts anew, or has gone a step back or forth.
    void moved();
    /// A step back may have selected another node.
    void selectionRestored();

private:
    clsUndoRedo &history();
    /// Installs a state. `change` is the later of the two states between which it leads: what was
    /// selected there when the change was made is selected again.
    void restore(const clsUndoInfo &info, const clsUndoInfo &change);
    /// The numbers of the selected node and of those above it, from the bottom up.
    std::vector<quint32> selectedPath() const;
    /// Selects, beside the selected item, those of several nodes' items that are in sight.
    void selectBeside(const std::vector<quint32> &numbers);
    /// The item itself, or the lowest item above it that can be selected without expanding one.
    items::TreeItem shownAncestor(items::TreeItem item) const;

    state::DocumentState &state_;
    tree::TreeBuilder &builder_;
    tree::Selection &selection_;
    items::Tree &tree_;
    std::unique_ptr<clsUndoRedo> m_Undo;
};

} // namespace quillon::edit
