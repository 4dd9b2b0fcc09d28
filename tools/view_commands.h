#pragma once

#include "state/document_state.h"
#include "state/view_options.h"
#include "tree/selection.h"
#include "tree/tree_builder.h"

#include <QObject>

namespace quillon::tools {

/// The commands of the View menu.
class ViewCommands : public QObject {
    Q_OBJECT

public:
    ViewCommands(const state::DocumentState &state, state::ViewOptions &options,
                 tree::TreeBuilder &builder, tree::Selection &selection, items::Tree &tree);

    /// Has another font chosen; nothing when the user cancels.
    void mnuViewFont_Click(const QString &name, qint16 size);
    /// Shows or hides the text of nodes in the tree, which is built anew.
    void mnuViewText_Click(bool checked);
    void mnuViewLock_Click(bool checked) { options_.viewLock = checked; }
    void mnuNodeExpand_Click();
    void mnuNodeCollapse_Click();
    /// Whether the selected item can be expanded and collapsed by the View menu.
    bool mnuView_Click() const;

Q_SIGNALS:
    /// Size in points, as a 16-bit number.
    void fontChosen(const QString &name, qint16 size);

private:
    void changeSubtree(void (tree::TreeBuilder::*change)(const items::TreeItem &));

    const state::DocumentState &state_;
    state::ViewOptions &options_;
    tree::TreeBuilder &builder_;
    tree::Selection &selection_;
    items::Tree &tree_;
};

} // namespace quillon::tools
