#pragma once

#include "completion/text_context.h"
#include "platform/ui/text_structure.h"
#include "search/hit_navigation.h"
#include "tree/selection.h"
#include "tree/tree_builder.h"

#include <QObject>

namespace quillon::source {

/// What can be done with the text of the pane as a source: pairs of tags, renaming them, and the
/// ways from a place in it to an item of the tree and back.
class PaneSource : public QObject {
    Q_OBJECT

public:
    PaneSource(const state::DocumentState &state, const state::ViewOptions &options,
               const tree::TreeBuilder &builder, tree::Selection &selection, items::Tree &tree,
               const tree::PaneContent &pane, search::HitNavigation &navigation);

    /// What belongs together in the pane's text. It must not outlive this.
    ui::TextStructure structure();

    /// Asks for another name for the element around the caret, and writes it into both tags. A name
    /// that is none raises an error and changes nothing.
    void mnuPaneRenameTags_Click();

    /// Selects the item of what the caret is in: an element, an attribute, a text or another node.
    /// False when the user keeps text in the pane that does not parse.
    bool goToItem();
    /// Shows the source that the selected node stands in, with the caret where it stands: that of
    /// the node that goToItem() was called in, else that of its parent. False as for goToItem().
    bool goToPlace();

Q_SIGNALS:
    void statusText(const QString &text);

private:
    items::TreeItem shownItem() const { return pane_.shownItem; }
    bool isMarkup() const;
    xml::Node nodeAt(const xml::Node &shown, QByteArrayView text, qsizetype caret);

    const state::DocumentState &state_;
    const state::ViewOptions &options_;
    const tree::TreeBuilder &builder_;
    tree::Selection &selection_;
    items::Tree &tree_;
    const tree::PaneContent &pane_;
    search::HitNavigation &navigation_;
    /// Of the text in the pane.
    completion::TextContexts contexts_;
    /// The number of the node whose source goToItem() was called in.
    quint32 origin_ = 0;
};

} // namespace quillon::source
