#include "edit/undo_history.h"

namespace quillon::edit {

using items::TreeItem;

namespace {

/// The number of the node that an item shows, as it stands in the document. The item of an
/// attribute that was added, or of one below a renamed element, shows another node than the
/// document has; what counts is the attribute of that name on the element.
quint32 documentNumber(const TreeItem &item, const tree::NodeRegistry &registry) {
    const xml::Node node = registry.Item(item);
    if (node.nodeType() == xml::NodeType::Attribute) {
        const xml::Node element = registry.Item(item.Parent());
        if (const xml::Node attribute = element.getAttributeNode(node.nodeName()))
            return attribute.number();
    }
    return node.number();
}

/// The numbers of the nodes that the items on both sides of an item show; 0 for none.
struct Neighbours {
    quint32 previous;
    quint32 next;
};

Neighbours neighboursOf(const TreeItem &item, const tree::NodeRegistry &registry) {
    return {documentNumber(item.Previous(), registry), documentNumber(item.Next(), registry)};
}

/// The child item that stands alone between two others; Nothing when there is none, or more.
TreeItem childBetween(const TreeItem &parent, const Neighbours &neighbours,
                      const tree::NodeRegistry &registry) {
    const TreeItem child =
        neighbours.previous != 0 ? registry.itemOf(neighbours.previous).Next() : parent.Child();
    const bool isBetween = child && child.Parent() == parent &&
                           documentNumber(child.Next(), registry) == neighbours.next;
    return isBetween ? child : TreeItem();
}

} // namespace

UndoHistory::UndoHistory(state::DocumentState &state, tree::TreeBuilder &builder,
                         tree::Selection &selection, items::Tree &tree)
    : state_(state), builder_(builder), selection_(selection), tree_(tree) {}

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
    info->setNodeKey(tree_.nodes().Item(1).Key());
    info->setSelectedNode(selection_.GetSelectedDOMNode().number());
    m_Undo->Action(std::move(info));
    Q_EMIT moved();
}

void UndoHistory::takeSnapshot() {
    auto info = std::make_shared<clsUndoInfo>();
    info->setXml(state_.m_DOM);
    tree_.nodes().forEachExpanded([&](const TreeItem &item) {
        info->AddExpand(static_cast<qint32>(builder_.registry().number(item)));
    });
    if (const TreeItem selected = tree_.SelectedItem()) {
        info->setNodeKey(selected.Key());
        info->setSelectedNode(documentNumber(selected, builder_.registry()));
        if (tree_.selectedCount() > 1) {
            std::vector<quint32> numbers;
            for (const TreeItem &item : tree_.selectedItems())
                numbers.push_back(documentNumber(item, builder_.registry()));
            info->setSelectedNodes(std::move(numbers));
        }
    }
    history().Action(std::move(info));
    Q_EMIT recorded();
}

void UndoHistory::restore(const clsUndoInfo &info, const clsUndoInfo &change) {
    const std::vector<quint32> path = selectedPath();
    const tree::NodeRegistry &registry = builder_.registry();
    const Neighbours neighbours = neighboursOf(tree_.SelectedItem(), registry);
    state_.m_DOM = info.xml().clone();
    builder_.BuildTree(state_.m_DOM, false, tree::TreeBuilder::Reason::Changed);
    for (const qint32 number : info.ExpandIndex())
        registry.itemOf(quint32(number)).setExpanded(true);
    // The lowest item that still shows a node of the path. A document that was replaced whole from
    // the pane has no number in common with the one before, but both are the first item.
    TreeItem lowest = path.empty() ? TreeItem() : tree_.nodes().Item(1);
    for (std::size_t height = 0; height < path.size(); ++height) {
        const TreeItem item = registry.itemOf(path[height]);
        if (!item)
            continue;
        // A node that was renamed is another one, in the place of the one before.
        const TreeItem replaced =
            height == 1 ? childBetween(item, neighbours, registry) : TreeItem();
        lowest = replaced ? replaced : item;
        break;
    }
    const TreeItem changedItem = registry.itemOf(change.selectedNode());
    if (const TreeItem item = shownAncestor(changedItem ? changedItem : lowest)) {
        tree_.setSelectedItem(item);
        if (item == changedItem)
            selectBeside(change.selectedNodes());
        selection_.refillPane(item);
    }
    tree_.setTreeVisible(true);
    tree_.setFocus();
    builder_.SyncPreview();
}

std::vector<quint32> UndoHistory::selectedPath() const {
    std::vector<quint32> path;
    for (TreeItem item = tree_.SelectedItem(); item; item = item.Parent())
        path.push_back(documentNumber(item, builder_.registry()));
    return path;
}

void UndoHistory::selectBeside(const std::vector<quint32> &numbers) {
    std::vector<TreeItem> shown;
    for (const quint32 number : numbers) {
        const TreeItem item = builder_.registry().itemOf(number);
        if (item && shownAncestor(item) == item)
            shown.push_back(item);
    }
    if (!shown.empty())
        tree_.selectItems(shown, tree_.SelectedItem());
}

TreeItem UndoHistory::shownAncestor(TreeItem item) const {
    for (TreeItem above = item.Parent(); above; above = above.Parent()) {
        if (!above.Expanded())
            item = above;
    }
    return item;
}

void UndoHistory::UndoCommand() {
    const clsUndoRedo::Info left = history().current();
    if (const auto info = history().Undo())
        restore(*info, *left);
    Q_EMIT selectionRestored();
    Q_EMIT moved();
}

void UndoHistory::RedoCommand() {
    if (const auto info = history().Redo())
        restore(*info, *info);
    // The selection's buttons are left as they are; only undoing sets them.
    Q_EMIT moved();
}

} // namespace quillon::edit
