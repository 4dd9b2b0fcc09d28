#include "tree/node_insertion.h"

#include "platform/runtime/like.h"
#include "platform/runtime/strings.h"
#include "platform/ui/message_box.h"
#include "tree/fragment.h"

namespace quillon::tree {

using items::TreeItem;
using runtime::like;
using runtime::mid;
using xml::Node;
using xml::NodeType;

Node NodeInsertion::nodeFromText(const QString &text) const {
    if (const Node root = parsedFragment(state_.m_DOM, text.toUtf8()).documentElement())
        return root;
    const xml::DOMDocument40 &document = state_.m_DOM;
    if (like(text, u"<!--*-->"))
        return document.createComment(mid(text, 5, text.size() - 7).toString());
    // The patterns are tried in this order, and the first that matches decides: an attribute goes
    // ahead of instructions and CDATA sections.
    if (like(text, u"*=\"*\"")) {
        const qsizetype at = runtime::instr(text, u"=\"");
        const Node attribute = document.createAttribute(text.left(at - 1));
        attribute.setNodeValue(text.mid(at + 1, text.size() - at - 2));
        return attribute;
    }
    if (like(text, u"<[?]*[?]>"))
        return {};
    if (like(text, u"<![[]CDATA[[]*]]>"))
        return document.createCDATASection(mid(text, 10, text.size() - 12).toString());
    return document.createTextNode(text);
}

TreeItem NodeInsertion::InsertNodeFromText(const TreeItem &target, const QString &text) {
    if (!target)
        return {};
    const Node node = nodeFromText(text);
    return node ? insertAt(target, node) : TreeItem();
}

TreeItem NodeInsertion::insertAttribute(const TreeItem &target, Node attribute) {
    const QString name = attribute.nodeName();
    const QString value = attribute.nodeValue();
    const std::optional<QString> before = builder_.registry().Item(target).getAttribute(name);
    if (const TreeItem added = builder_.AddAttributeToTree(target, attribute, false))
        return added;
    TreeItem present = target.Child();
    while (present && present.Text() != name)
        present = present.Next();
    return before == value ? TreeItem() : present;
}

TreeItem NodeInsertion::insertArrivedNode(const TreeItem &target, const ArrivedNode &arrived) {
    if (!target || !arrived.node)
        return {};
    const Namespaces here = namespacesAt(builder_.registry().Item(target));
    arrived.adaptTo(here);
    const TreeItem item = insertAt(target, arrived.node);
    if (item && arrived.node.nodeType() == NodeType::Attribute)
        declareAt(target, arrived.node.nodeName(), arrived.scope, here);
    return item;
}

void NodeInsertion::declareAt(const TreeItem &target, const QString &name, const Namespaces &scope,
                              const Namespaces &here) {
    const QString prefix = name.section(QLatin1Char(':'), 0, -2);
    const auto declared = scope.find(prefix);
    if (prefix.isEmpty() || declared == scope.end() || here.contains(prefix))
        return;
    Node declaration = state_.m_DOM.createAttribute(QStringLiteral("xmlns:") + prefix);
    declaration.setNodeValue(declared->second);
    builder_.AddAttributeToTree(target, declaration, false);
}

TreeItem NodeInsertion::insertAt(const TreeItem &target, Node node) {
    const Node parent = builder_.registry().Item(target);
    TreeItem relItem = target;
    items::Relationship relationship = items::Relationship::Child;
    switch (parent.nodeType()) {
    case NodeType::Document:
        if (node.nodeType() != NodeType::Comment && node.nodeType() != NodeType::Element)
            return {};
        tree_.setTreeVisible(true);
        return builder_.AddNodeToTree(relItem, node, false, relationship);
    case NodeType::Element:
        if (node.nodeType() == NodeType::Attribute)
            return insertAttribute(target, node);
        return builder_.AddNodeToTree(relItem, node, false, relationship);
    case NodeType::Attribute:
    case NodeType::Comment:
    case NodeType::Text:
    case NodeType::CDATASection:
    case NodeType::ProcessingInstruction:
        return {};
    default:
        ui::showMessage(TypeName(parent));
        return {};
    }
}

} // namespace quillon::tree
