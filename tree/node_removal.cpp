#include "tree/node_removal.h"

#include "platform/ui/error_boundary.h"
#include "platform/ui/message_box.h"
#include "resources/texts.h"

namespace quillon::tree {

using items::TreeItem;
using xml::Node;
using xml::NodeType;

void NodeRemoval::DeleteNode(const TreeItem &item) {
    if (!item || item == tree_.nodes().Item(1) || !mayDelete(item))
        return;
    removeFromDom(item);
    removeItem(item);
    Q_EMIT documentModified();
    builder_.SyncPreview();
}

void NodeRemoval::DeleteNodes(const std::vector<TreeItem> &items) {
    removeNodes(items);
    Q_EMIT documentModified();
    builder_.SyncPreview();
}

void NodeRemoval::removeNodes(const std::vector<TreeItem> &items) {
    tree_.selectOnlyCurrent();
    // From the last one on: the selection then passes to an item that stays, and what is behind an
    // item in the list of its siblings need not make way for those that go as well.
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        removeFromDom(*item);
        removeItem(*item);
    }
}

void NodeRemoval::removeItem(const TreeItem &item) {
    UnregisterTreeItem(item);
    tree_.nodes().Remove(item);
}

bool NodeRemoval::mayDelete(const TreeItem &item) const {
    const Node node = builder_.registry().Item(item);
    if (node.nodeType() != NodeType::DocumentType)
        return true;
    const QString entity = node.documentNode().referredEntity();
    if (entity.isEmpty())
        return true;
    ui::showMessage(resources::texts::DocumentTypeInUse.toString().arg(entity),
                    ui::message_style::Exclamation);
    return false;
}

void NodeRemoval::removeFromDom(const TreeItem &item) {
    const Node node = builder_.registry().Item(item);
    switch (node.nodeType()) {
    case NodeType::Element:
    case NodeType::Comment:
    case NodeType::Text:
    case NodeType::ProcessingInstruction:
    case NodeType::CDATASection:
    case NodeType::DocumentType:
        ui::ignoringErrors([&] { node.parentNode().removeChild(node); });
        break;
    case NodeType::Attribute:
        builder_.registry().Item(item.Parent()).removeAttribute(node.nodeName());
        break;
    default:
        ui::showMessage(TypeName(node) + QStringLiteral(" cannot delete"));
    }
}

void NodeRemoval::UnregisterTreeItem(const TreeItem &item) {
    builder_.registry().Remove(item);
}

} // namespace quillon::tree
