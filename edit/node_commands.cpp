#include "edit/node_commands.h"

#include "platform/runtime/strings.h"
#include "platform/ui/message_box.h"
#include "resources/messages.h"
#include "resources/node_texts.h"
#include "resources/texts.h"
#include "tree/node_mime_data.h"

#include <QMimeData>

namespace quillon::edit {

namespace style = ui::message_style;
using items::Relationship;
using items::TreeItem;
using xml::Node;
using xml::NodeType;

namespace {

/// Without the blanks around it.
QString withoutOuterBlanks(const QString &text) {
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && text[start] == QLatin1Char(' '))
        ++start;
    while (end > start && text[end - 1] == QLatin1Char(' '))
        --end;
    return text.mid(start, end - start);
}

bool isMovable(const Node &node) {
    return node && node.nodeType() != NodeType::Attribute &&
           node.parentNode().nodeType() != NodeType::Document;
}

} // namespace

NodeCommands::NodeCommands(const state::DocumentState &state, tree::TreeBuilder &builder,
                           tree::NodeRemoval &removal, tree::NodeInsertion &nodeInsertion,
                           tree::Selection &selection, StructureCommands &structure,
                           items::Tree &tree, ui::Clipboard &clipboard)
    : state_(state), builder_(builder), removal_(removal), nodeInsertion_(nodeInsertion),
      selection_(selection), structure_(structure), tree_(tree), clipboard_(clipboard) {}

EditMenuStates NodeCommands::mnuEdit_Click() const {
    const NodeType kind = selection_.GetSelectedDOMNode().nodeType();
    const bool canCopy = kind != NodeType::Document && tree_.SelectedItem();
    const bool canChange = !state_.m_ReadOnly && canCopy;
    EditMenuStates states;
    // Unlike the button, this neither looks at the clipboard nor allows the document item: a menu
    // that opens must not wait for the program that owns the clipboard.
    states.paste = !state_.m_ReadOnly && kind == NodeType::Element;
    states.copy = canCopy;
    states.cut = states.remove = states.rename = canChange;
    states.find = bool(state_.m_DOM);
    return states;
}

NodeMenuStates NodeCommands::mnuNode_Click() const {
    const Node node = selection_.GetSelectedDOMNode();
    const TreeItem sel = tree_.SelectedItem();
    NodeMenuStates states;
    if (!sel)
        return states;
    states.expand = bool(sel.Child());
    if (sel == tree_.nodes().Item(1)) {
        states.addElement = !builder_.HasRootElement();
    } else {
        states.addElement = states.addOther = node.nodeType() == NodeType::Element;
        states.insert = node.nodeType() != NodeType::Attribute;
    }
    if (tree_.selectedCount() > 1) {
        // Whether they can move, and which of them cannot, the commands say.
        states.moveUp = states.moveDown = true;
    } else if (isMovable(node)) {
        states.moveUp = bool(node.previousSibling());
        states.moveDown = bool(node.nextSibling());
    }
    if (state_.m_ReadOnly)
        states = {.expand = states.expand};
    return states;
}

void NodeCommands::CopyNode(const TreeItem &item) {
    if (item)
        copyItems({item});
}

void NodeCommands::copyItems(const Items &items) {
    tree::DepartingNodes nodes;
    for (const TreeItem &item : items)
        nodes.add(selection_.GetDOMNode(item), selection_.GetDOMNode(item.Parent()));
    auto data = std::make_unique<QMimeData>();
    data->setText(runtime::fromUtf8(nodes.text()));
    data->setData(nodes.format(), nodes.packed());
    clipboard_.setMimeData(std::move(data));
}

NodeCommands::Items NodeCommands::insertClipboard(const TreeItem &item) {
    const QMimeData *data = clipboard_.mimeData();
    if (data && tree::NodeMimeData::hasNodes(*data)) {
        const auto nodes =
            tree::unpackedNodes(tree::NodeMimeData::packedNodes(*data), state_.m_DOM);
        if (!nodes.empty())
            return nodeInsertion_.insertArrivedNodes(item, nodes);
    }
    return nodeInsertion_.insertText(item, withoutOuterBlanks(clipboard_.text()));
}

TreeItem NodeCommands::PasteNode(const TreeItem &item) {
    const Items newItems = insertClipboard(item);
    if (newItems.empty())
        return {};
    if (newItems.size() > 1)
        tree_.selectItems(newItems, newItems.back());
    selection_.ShowNode(newItems.back(), true);
    Q_EMIT documentModified();
    return newItems.back();
}

void NodeCommands::mnuEditCopy_Click() {
    if (const Items items = tree_.topmostSelectedItems(); !items.empty())
        copyItems(items);
    if (!clipboard_.text().isEmpty() &&
        selection_.GetSelectedDOMNode().nodeType() == NodeType::Element)
        Q_EMIT pasteEnabled();
}

bool NodeCommands::mayDeleteAll(const Items &items) const {
    for (const TreeItem &item : items) {
        const Node node = selection_.GetDOMNode(item);
        if (node.nodeType() == NodeType::EntityReference) {
            ui::showMessage(resources::node_texts::ReferenceStays.toString().arg(node.nodeName()),
                            style::Exclamation);
            return false;
        }
        if (!removal_.mayDelete(item))
            return false;
    }
    return true;
}

void NodeCommands::mnuEditCut_Click() {
    const Items items = tree_.topmostSelectedItems();
    if (items.size() > 1) {
        if (!mayDeleteAll(items))
            return;
        copyItems(items);
        removal_.DeleteNodes(items);
    } else {
        const TreeItem item = items.empty() ? TreeItem() : items.front();
        if (!removal_.mayDelete(item))
            return;
        CopyNode(item);
        removal_.DeleteNode(item);
    }
    selection_.ShowNode(tree_.SelectedItem(), true);
}

bool NodeCommands::confirmsDeleting() const {
    constexpr int Ask = style::YesNo + style::Question + style::DefaultButton2;
    const int count = tree_.selectedCount();
    const QString question = count > 1
                                 ? resources::node_texts::ConfirmDeleteSeveral.toString().arg(count)
                                 : resources::messageText(resources::message::ConfirmDelete);
    return !g_bConfirmDelete || ui::showMessage(question, Ask) == ui::message_answer::Yes;
}

void NodeCommands::mnuEditDelete_Click() {
    const Items items = tree_.topmostSelectedItems();
    if (state_.m_ReadOnly || items.empty())
        return;
    if (items.front() == tree_.nodes().Item(1)) {
        ui::showMessage(resources::messageText(resources::message::RootCannotBeDeleted),
                        style::Exclamation);
        return;
    }
    const bool may = items.size() > 1 ? mayDeleteAll(items) : removal_.mayDelete(items.front());
    if (!may || !confirmsDeleting())
        return;
    if (items.size() > 1)
        removal_.DeleteNodes(items);
    else
        removal_.DeleteNode(items.front());
    selection_.ShowNode(tree_.SelectedItem(), true);
}

void NodeCommands::mnuEditPaste_Click() {
    if (!state_.m_ReadOnly && tree_.SelectedItem())
        PasteNode(tree_.SelectedItem());
}

void NodeCommands::mnuEditRename_Click() {
    tree_.StartLabelEdit();
}

void NodeCommands::selectMarked() {
    const Items marked = tree_.nodes().boldItems();
    if (marked.empty())
        return;
    const TreeItem present = tree_.SelectedItem();
    tree_.selectItems(marked, present.Bold() ? present : marked.front());
    if (!present.Bold())
        tree_.selectItems(marked, tree_.selectedItems().front());
    selection_.ShowNode(tree_.SelectedItem(), true);
}

void NodeCommands::moveSelected(TreeItem relItem, Relationship relationship) {
    const TreeItem old = tree_.SelectedItem();
    Node copy = selection_.GetSelectedDOMNode();
    if (copy.nodeType() == NodeType::EntityReference) {
        // It cannot be deleted, so there would be two of it.
        ui::showMessage(resources::texts::EntityReferenceStays.toString().arg(copy.nodeName()),
                        style::Exclamation);
        return;
    }
    TreeItem newItem = builder_.AddNodeToTree(relItem, copy, false, relationship);
    if (!newItem)
        return;
    // Selected first, the node that has moved is what undoing and redoing come back to. The tree
    // scrolls there once, when it has its new shape.
    tree_.selectInPlace(newItem);
    removal_.DeleteNode(old);
    newItem.EnsureVisible();
    selection_.ShowNode(newItem, true);
}

void NodeCommands::mnuNodeMoveUp_Click() {
    if (tree_.selectedCount() > 1) {
        structure_.moveSelected(StructureCommands::Direction::Up);
        return;
    }
    const Node node = selection_.GetSelectedDOMNode();
    if (!isMovable(node) || !node.previousSibling())
        return;
    // Below a renamed element the items stand in another order than their nodes.
    const TreeItem previous = tree_.SelectedItem().Previous();
    if (previous && selection_.GetDOMNode(previous).nodeType() != NodeType::Attribute)
        moveSelected(previous, Relationship::Previous);
}

void NodeCommands::mnuNodeMoveDown_Click() {
    if (tree_.selectedCount() > 1) {
        structure_.moveSelected(StructureCommands::Direction::Down);
        return;
    }
    const Node node = selection_.GetSelectedDOMNode();
    if (!isMovable(node) || !node.nextSibling())
        return;
    if (!node.nextSibling().nextSibling()) {
        moveSelected(tree_.SelectedItem().Parent(), Relationship::Child);
        return;
    }
    // Ahead of the sibling after the next one.
    int siblings = 0;
    for (TreeItem item = tree_.SelectedItem().Next(); item; item = item.Next()) {
        if (selection_.GetDOMNode(item).nodeType() == NodeType::Attribute)
            continue;
        if (++siblings == 2) {
            moveSelected(item, Relationship::Previous);
            return;
        }
    }
}

} // namespace quillon::edit
