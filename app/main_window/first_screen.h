#pragma once

#include "platform/items/tree.h"
#include "state/document_state.h"
#include "tree/tree_builder.h"
#include "view/controls/tree_view.h"

namespace quillon::app {

/// How a document begins, in the place of the tree while the rest of it is read. Nothing can be
/// done with it, and the tree below is left as it is.
class FirstScreen : public QObject {
    Q_OBJECT

public:
    /// The tree must outlive this.
    FirstScreen(const state::ViewOptions &options, controls::TreeView &tree);

    /// Shows a document over the tree, as far as that is on the screen, and has it painted at once.
    void show(const xml::DOMDocument40 &head);
    /// Shows the tree again; nothing where that is seen.
    void hide();
    bool isShown() const { return !view_.isHidden(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    controls::TreeView &shownTree_;
    state::DocumentState state_;
    items::Tree tree_;
    tree::TreeBuilder builder_;
    controls::TreeView view_;
};

} // namespace quillon::app
