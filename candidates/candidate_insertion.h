#pragma once

#include "candidates/candidate_finder.h"
#include "tree/node_relocation.h"
#include "tree/pane_content.h"
#include "tree/selection.h"

#include <QObject>

namespace quillon::candidates {

/// Puts what may stand at the selected node there, as one change: with all that is mandatory, and
/// where there is a choice, asking. Then the new node is selected, and what has a value to be typed
/// has the keyboard in the pane. In a read-only document it does nothing.
class CandidateInsertion : public QObject {
    Q_OBJECT

public:
    CandidateInsertion(const state::DocumentState &state, CandidateFinder &finder,
                       tree::TreeBuilder &builder, tree::NodeRemoval &removal,
                       tree::Selection &selection, items::Tree &tree, tree::PaneContent &pane);

    /// What may stand around the selected node, and the attributes of its element: of the selected
    /// one, or of the one that it belongs to. The children for an attribute are its element's.
    EntryList elements(Position position) const;
    EntryList attributes() const;

    /// Inserts one of what elements() gives for that position; false when nothing was inserted.
    /// Raises Fail for a name that XML does not allow.
    bool insertElement(const Entry &entry, Position position);
    /// The same with several, one after the other, as one change; all of them or none.
    bool insertElements(const std::vector<Entry> &entries, Position position);
    /// The same with an attribute, which gets its default or fixed value or the first of those that
    /// it may have.
    bool addAttribute(const Entry &entry);

Q_SIGNALS:
    void documentModified();

private:
    bool isPossible(const items::TreeItem &item, const Entry &entry);
    /// The item from which a position is seen.
    items::TreeItem itemFor(Position position) const;
    /// The item of the element whose attributes are meant.
    items::TreeItem elementItem() const;
    /// Puts an attribute in the place of one that is only there by default, and returns its item.
    items::TreeItem writeDefault(const items::TreeItem &item, const xml::Node &attribute);
    QByteArray markupOf(const Entry &entry, const xml::Node &parent) const;
    std::size_t choose(const grammar::OpenChoice &choice) const;
    /// Gives the keyboard to the pane where something is missing in what it shows.
    void awaitText();

    const state::DocumentState &state_;
    CandidateFinder &finder_;
    tree::TreeBuilder &builder_;
    tree::Selection &selection_;
    items::Tree &tree_;
    tree::PaneContent &pane_;
    tree::NodeRelocation relocation_;
};

} // namespace quillon::candidates
