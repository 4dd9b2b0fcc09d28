#include "edit/undo_history.h"

#include <QHash>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace quillon::edit {

using items::TreeItem;

namespace {

/// Numbers of nodes, to be looked for among millions of others.
class NodeSet {
public:
    explicit NodeSet(const std::vector<std::vector<quint32>> &lists) {
        for (const std::vector<quint32> &numbers : lists) {
            for (const quint32 number : numbers) {
                if (bits_.size() <= number)
                    bits_.resize(std::size_t(number) + 1);
                bits_[number] = true;
            }
        }
    }
    bool contains(quint32 number) const { return number < bits_.size() && bits_[number]; }

private:
    std::vector<bool> bits_;
};

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

/// The same for all items below an item.
std::vector<quint32> childNumbers(const TreeItem &parent, const tree::NodeRegistry &registry) {
    QHash<QString, quint32> attributes;
    for (const xml::Node &attribute : registry.Item(parent).attributes().all())
        attributes.insert(attribute.nodeName(), attribute.number());
    std::vector<quint32> numbers;
    for (TreeItem child = parent.Child(); child; child = child.Next()) {
        const xml::Node node = registry.Item(child);
        const bool isAttribute = node.nodeType() == xml::NodeType::Attribute;
        numbers.push_back(isAttribute ? attributes.value(node.nodeName(), node.number())
                                      : node.number());
    }
    return numbers;
}

/// The child item in the place of the one node that has been replaced; Nothing when there is more
/// that differs.
TreeItem replacedChild(const TreeItem &parent, const std::vector<quint32> &before, quint32 node,
                       const tree::NodeRegistry &registry) {
    const std::vector<quint32> now = childNumbers(parent, registry);
    const auto [old, other] = std::ranges::mismatch(before, now);
    if (before.size() != now.size() || old == before.end() || *old != node ||
        !std::equal(old + 1, before.end(), other + 1))
        return {};
    TreeItem child = parent.Child();
    for (auto at = now.begin(); at != other; ++at)
        child = child.Next();
    return child;
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
        info->AddExpand(static_cast<qint32>(builder_.registry().number(item.sequence())));
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
    const std::vector<quint32> siblings =
        childNumbers(tree_.SelectedItem().Parent(), builder_.registry());
    state_.m_DOM = info.xml().clone();
    builder_.BuildTree(state_.m_DOM, false, tree::TreeBuilder::Reason::Changed);
    const std::unordered_set<quint32> expand(info.ExpandIndex().begin(), info.ExpandIndex().end());
    const std::unordered_set<quint32> several(change.selectedNodes().begin(),
                                              change.selectedNodes().end());
    std::vector<TreeItem> severalItems;
    std::unordered_map<quint32, std::size_t> heights;
    for (std::size_t height = 0; height < path.size(); ++height)
        heights[path[height]] = height;
    std::vector<TreeItem> expanded;
    TreeItem changedItem;
    // The lowest item that still shows a node of the path. A document that was replaced whole from
    // the pane has no number in common with the one before, but both are the first item.
    TreeItem lowest = path.empty() ? TreeItem() : tree_.nodes().Item(1);
    std::size_t lowestHeight = path.size();
    const NodeSet concerned({path,
                             {info.ExpandIndex().begin(), info.ExpandIndex().end()},
                             change.selectedNodes(),
                             {change.selectedNode()}});
    builder_.registry().forEach([&](quint32 sequence, quint32 number) {
        if (!concerned.contains(number))
            return;
        const auto item = [&] { return tree_.nodes().bySequence(sequence); };
        if (expand.count(number) != 0)
            expanded.push_back(item());
        if (number == change.selectedNode())
            changedItem = item();
        if (several.count(number) != 0)
            severalItems.push_back(item());
        const auto height = heights.find(number);
        if (height != heights.end() && height->second < lowestHeight) {
            lowest = item();
            lowestHeight = height->second;
        }
    });
    for (TreeItem &item : expanded)
        item.setExpanded(true);
    // A node that was renamed is another one, in the place of the one before.
    if (lowestHeight == 1) {
        const TreeItem replaced =
            replacedChild(lowest, siblings, path.front(), builder_.registry());
        lowest = replaced ? replaced : lowest;
    }
    if (const TreeItem item = shownAncestor(changedItem ? changedItem : lowest)) {
        tree_.setSelectedItem(item);
        if (item == changedItem)
            selectBeside(severalItems);
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

void UndoHistory::selectBeside(const std::vector<TreeItem> &items) {
    std::vector<TreeItem> shown;
    for (const TreeItem &item : items) {
        if (shownAncestor(item) == item)
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
