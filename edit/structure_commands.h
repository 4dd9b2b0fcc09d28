#pragma once

#include "state/document_state.h"
#include "tree/node_relocation.h"
#include "tree/selection.h"

#include <QObject>

namespace quillon::edit {

/// Which of these commands apply to what is selected. Where several nodes are, all do: the command
/// says itself what it cannot be done with.
struct StructureStates {
    bool duplicate = false;
    /// Raise, lower, enclose.
    bool move = false;
    bool unwrap = false;
    bool sort = false;
};

/// The commands that change how nodes stand to each other. Each works on all that is selected, as
/// one change; where it cannot be done with one of the nodes a message box says so, and nothing is
/// changed. What is below a selected node goes with it. In a read-only document they do nothing.
class StructureCommands : public QObject {
    Q_OBJECT

public:
    enum class Direction { Up, Down };

    StructureCommands(const state::DocumentState &state, tree::TreeBuilder &builder,
                      tree::NodeRemoval &removal, tree::Selection &selection, items::Tree &tree);

    StructureStates states() const;

    /// Moves several nodes past the sibling ahead of them or behind them.
    void moveSelected(Direction direction);
    /// Puts copies behind the nodes, those of siblings that stand together behind the last of them,
    /// and selects the copies.
    void duplicateSelected();
    /// Moves nodes out of their parents, to behind these.
    void raiseSelected();
    /// Moves nodes into the elements ahead of them, as their last children. Comments and
    /// instructions between them stay.
    void lowerSelected();
    /// Asks for a name and puts the nodes, which are siblings, into a new element in the place of
    /// the first, which it selects. Raises Fail for a name that is none.
    void encloseSelected();
    /// Puts the children of elements in their places, and selects them. Asks before attributes are
    /// lost with that.
    void unwrapSelected();

Q_SIGNALS:
    void documentModified();

private:
    using Items = std::vector<items::TreeItem>;

    /// What is selected, for a command that says `refusal` where one is an attribute, the document,
    /// the document type or the XML declaration: nothing in that case, or when read-only.
    Items movableItems(QStringView refusal) const;
    xml::Node nodeOf(const items::TreeItem &item) const { return selection_.GetDOMNode(item); }
    /// The element that an item would be lowered into; Nothing for none.
    items::TreeItem elementAhead(const items::TreeItem &item) const;
    bool mayStandOutsideRoot(const items::TreeItem &item) const;
    bool mayEnclose(const Items &items) const;
    bool mayUnwrap(const Items &items) const;
    Items unwrap(const items::TreeItem &item);
    /// Selects what has come of the items, tells of the change and shows the current one.
    void finish(const Items &items, const items::TreeItem &current);
    /// The one of the items that is current or above it, as a place in the list.
    std::size_t placeOfCurrent(const Items &items) const;

    const state::DocumentState &state_;
    tree::TreeBuilder &builder_;
    tree::NodeRemoval &removal_;
    tree::Selection &selection_;
    items::Tree &tree_;
    tree::NodeRelocation relocation_;
};

} // namespace quillon::edit
