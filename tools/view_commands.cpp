#include "tools/view_commands.h"

#include "platform/runtime/numbers.h"
#include "platform/ui/dialogs.h"

namespace quillon::tools {

using items::TreeItem;
using xml::NodeType;

ViewCommands::ViewCommands(const state::DocumentState &state, state::ViewOptions &options,
                           tree::TreeBuilder &builder, tree::Selection &selection,
                           items::Tree &tree)
    : state_(state), options_(options), builder_(builder), selection_(selection), tree_(tree) {}

void ViewCommands::mnuViewFont_Click(const QString &name, qint16 size) {
    const auto chosen = ui::dialogs().chooseFont({name, double(size)});
    if (chosen)
        Q_EMIT fontChosen(chosen->family, runtime::toInteger(QString::number(chosen->points)));
}

void ViewCommands::mnuViewText_Click(bool checked) {
    options_.viewText = checked;
    builder_.rebuildTree();
    selection_.ShowNode(tree_.SelectedItem(), true);
}

bool ViewCommands::mnuView_Click() const {
    const NodeType kind = selection_.GetSelectedDOMNode().nodeType();
    return kind == NodeType::Element || kind == NodeType::Document;
}

void ViewCommands::changeSubtree(void (tree::TreeBuilder::*change)(const TreeItem &)) {
    const TreeItem item = tree_.SelectedItem();
    if (!item)
        return;
    tree_.setTreeVisible(false);
    (builder_.*change)(item);
    tree_.setTreeVisible(true);
    tree_.setFocus();
}

void ViewCommands::mnuNodeExpand_Click() {
    changeSubtree(&tree::TreeBuilder::ExpandSubtree);
}

void ViewCommands::mnuNodeCollapse_Click() {
    changeSubtree(&tree::TreeBuilder::CollapseSubtree);
}

} // namespace quillon::tools
