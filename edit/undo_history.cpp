#include "edit/undo_history.h"

#include "platform/xml/dom/document_links.h"

#include <QHash>

#include <algorithm>

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

/// Whether a number is that of a node which stands in a document.
bool stands(const xml::DOMDocument40 &document, quint32 number) {
    const xml::DocumentLinks links(document);
    if (!links.isNode(number))
        return false;
    quint32 top = number;
    while (const quint32 above = links.parent(top))
        top = above;
    return top == links.documentNumber();
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
    const TreeItem parent = tree_.SelectedItem().Parent();
    // Looked through only if need be: there may be very many.
    const bool mayBeReplaced = parent && info.xml() && !stands(info.xml(), path.front());
    const std::vector<quint32> siblings =
        mayBeReplaced ? childNumbers(parent, registry) : std::vector<quint32>();
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
            height == 1 ? replacedChild(item, siblings, path.front(), registry) : TreeItem();
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
