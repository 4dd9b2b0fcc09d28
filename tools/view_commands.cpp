#include "tools/view_commands.h"

#include "platform/runtime/numbers.h"
#include "platform/ui/dialogs.h"

namespace quillon::tools {

using items::TreeItem;
using xml::NodeType;

ViewCommands::ViewCommands(const state::DocumentState &state, state::ViewOptions &options,
                           tree::TreeBuilder &builder, tree::Selection &selection,
                           controls::TreeView &tvw)
    : state_(state), options_(options), builder_(builder), selection_(selection), tvw_(tvw) {}

void ViewCommands::mnuViewFont_Click(const QString &name, qint16 size) {
    const auto chosen = ui::dialogs().chooseFont({name, double(size)});
    if (chosen)
        Q_EMIT fontChosen(chosen->family, runtime::toInteger(QString::number(chosen->points)));
}

void ViewCommands::mnuViewText_Click(bool checked) {
    options_.viewText = checked;
    builder_.RebuildTree();
    selection_.ShowNode(tvw_.SelectedItem(), true);
}

bool ViewCommands::mnuView_Click() const {
    const NodeType kind = selection_.GetSelectedDOMNode().nodeType();
    return kind == NodeType::Element || kind == NodeType::Document;
}

void ViewCommands::changeSubtree(void (tree::TreeBuilder::*change)(const TreeItem &)) {
    const TreeItem item = tvw_.SelectedItem();
    if (!item)
        return;
    tvw_.setTreeVisible(false);
    (builder_.*change)(item);
    tvw_.setTreeVisible(true);
    tvw_.setFocus();
}

void ViewCommands::mnuNodeExpand_Click() {
    changeSubtree(&tree::TreeBuilder::ExpandSubtree);
}

void ViewCommands::mnuNodeCollapse_Click() {
    changeSubtree(&tree::TreeBuilder::CollapseSubtree);
}

} // namespace quillon::tools
