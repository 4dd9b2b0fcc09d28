#include "edit/undo_history.h"

#include <unordered_map>
#include <unordered_set>

namespace quillon::edit {

using controls::TreeItem;

UndoHistory::UndoHistory(document::DocumentState &state, tree::TreeBuilder &builder,
                         tree::Selection &selection, controls::TreeView &tvw)
    : state_(state), builder_(builder), selection_(selection), tvw_(tvw) {}

clsUndoRedo &UndoHistory::history() {
    if (!m_Undo)
        m_Undo = std::make_unique<clsUndoRedo>();
    return *m_Undo;
}

void UndoHistory::release() {
    m_Undo.reset();
}

void UndoHistory::ResetUndoHistory() {
    m_Undo = std::make_unique<clsUndoRedo>();
    auto info = std::make_shared<clsUndoInfo>();
    info->setXml(state_.m_DOM);
    // The document item counts as expanded, whatever the tree shows.
    info->AddExpand(static_cast<qint32>(state_.m_DOM.node().number()));
    info->setNodeKey(tvw_.nodes().Item(1).Key());
    info->setSelectedNode(selection_.GetSelectedDOMNode().number());
    m_Undo->Action(std::move(info));
    Q_EMIT undoButtonChanged(false);
    Q_EMIT redoButtonChanged(false);
}

void UndoHistory::TakeSnapshot() {
    auto info = std::make_shared<clsUndoInfo>();
    info->setXml(state_.m_DOM);
    tvw_.nodes().forEachExpanded([&](const TreeItem &item) {
        info->AddExpand(static_cast<qint32>(builder_.registry().number(item.sequence())));
    });
    if (const TreeItem selected = tvw_.SelectedItem()) {
        info->setNodeKey(selected.Key());
        info->setSelectedNode(builder_.registry().number(selected.sequence()));
    }
    history().Action(std::move(info));
    // The redo button stays as it is although nothing can be redone now; pressing it finds that
    // out. That is meant so.
    Q_EMIT undoButtonChanged(true);
}

void UndoHistory::restore(const clsUndoInfo &info) {
    const std::vector<quint32> path = selectedPath();
    state_.m_DOM = info.xml().clone();
    builder_.BuildTree(state_.m_DOM, false);
    std::unordered_set<quint32> expand(info.ExpandIndex().begin(), info.ExpandIndex().end());
    std::unordered_map<quint32, std::size_t> depths;
    for (std::size_t depth = 0; depth < path.size(); ++depth)
        depths[path[depth]] = depth;
    std::vector<TreeItem> expanded;
    // The lowest item that still shows a node of the path.
    TreeItem now;
    std::size_t nowDepth = path.size();
    TreeItem then;
    builder_.registry().forEach([&](quint32 sequence, quint32 number) {
        const auto item = [&] { return tvw_.nodes().bySequence(sequence); };
        if (expand.count(number) != 0)
            expanded.push_back(item());
        if (number == info.selectedNode())
            then = item();
        const auto depth = depths.find(number);
        if (depth != depths.end() && depth->second < nowDepth) {
            now = item();
            nowDepth = depth->second;
        }
    });
    for (TreeItem &item : expanded)
        item.setExpanded(true);
    if (const TreeItem item = shownAncestor(now ? now : then)) {
        tvw_.setSelectedItem(item);
        selection_.RefillPane(item);
    }
    tvw_.setTreeVisible(true);
    tvw_.setFocus();
}

std::vector<quint32> UndoHistory::selectedPath() const {
    std::vector<quint32> path;
    for (TreeItem item = tvw_.SelectedItem(); item; item = item.Parent())
        path.push_back(builder_.registry().number(item.sequence()));
    return path;
}

TreeItem UndoHistory::shownAncestor(TreeItem item) const {
    for (TreeItem above = item.Parent(); above; above = above.Parent()) {
        if (!above.Expanded())
            item = above;
    }
    return item;
}

void UndoHistory::UndoCommand() {
    if (const auto info = history().Undo())
        restore(*info);
    Q_EMIT buttonsChanged(selection_.buttonsFor(selection_.GetSelectedDOMNode()));
    Q_EMIT undoButtonChanged(CanUndo());
    Q_EMIT redoButtonChanged(true);
}

void UndoHistory::RedoCommand() {
    if (const auto info = history().Redo())
        restore(*info);
    // Unlike undoing, this leaves the selection's buttons alone and sets the entries of the menu;
    // that is meant so.
    Q_EMIT redoEntryChanged(CanRedo());
    Q_EMIT undoEntryChanged(true);
    Q_EMIT redoButtonChanged(CanRedo());
    Q_EMIT undoButtonChanged(true);
}

} // namespace quillon::edit
