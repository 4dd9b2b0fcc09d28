#include "tree/node_insertion.h"

#include "platform/runtime/like.h"
#include "platform/runtime/strings.h"
#include "platform/ui/message_box.h"
#include "resources/messages.h"
#include "resources/node_texts.h"
#include "tree/fragment.h"

#include <QSet>

namespace quillon::tree {

using items::TreeItem;
using runtime::like;
using runtime::mid;
using xml::Node;
using xml::NodeType;

namespace {

NodeInsertion::Items listOf(const TreeItem &item) {
    return item ? NodeInsertion::Items{item} : NodeInsertion::Items();
}

} // namespace

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

std::vector<ArrivedNode> NodeInsertion::nodesFromText(const QString &text) const {
    std::vector<ArrivedNode> nodes;
    const bool isMarkup = text.trimmed().startsWith(QLatin1Char('<'));
    if (!isMarkup || parsedFragment(state_.m_DOM, text.toUtf8()).documentElement())
        return nodes;
    const QByteArray markup = "<list>" + text.toUtf8() + "</list>";
    const Node list = parsedFragment(state_.m_DOM, markup).documentElement();
    int elements = 0;
    for (Node child = list.firstChild(); child; child = child.nextSibling()) {
        const NodeType kind = child.nodeType();
        elements += kind == NodeType::Element;
        if (kind == NodeType::Text || kind == NodeType::EntityReference)
            return {};
        nodes.push_back({kind == NodeType::ProcessingInstruction ? Node() : child, {}});
    }
    return elements > 1 ? nodes : std::vector<ArrivedNode>();
}

TreeItem NodeInsertion::InsertNodeFromText(const TreeItem &target, const QString &text) {
    const Node node = target ? nodeFromText(text) : Node();
    return node ? insertTextNode(target, node) : TreeItem();
}

NodeInsertion::Items NodeInsertion::insertText(const TreeItem &target, const QString &text) {
    const std::vector<ArrivedNode> nodes = nodesFromText(text);
    return target && !nodes.empty() ? insertSeveral(target, nodes, Origin::Text)
                                    : listOf(InsertNodeFromText(target, text));
}

TreeItem NodeInsertion::insertTextNode(const TreeItem &target, const Node &node) {
    if (node.nodeType() == NodeType::Element)
        leaveOutDeclared(node, namespacesAt(builder_.registry().Item(target)));
    return insertAt(target, node);
}

NodeInsertion::Items NodeInsertion::insertArrivedNodes(const TreeItem &target,
                                                       const std::vector<ArrivedNode> &nodes) {
    if (!target || nodes.empty())
        return {};
    return nodes.size() == 1 ? listOf(insertArrivedNode(target, nodes.front()))
                             : insertSeveral(target, nodes, Origin::Nodes);
}

QString NodeInsertion::refusal(const Node &target, const std::vector<ArrivedNode> &nodes) const {
    namespace texts = resources::node_texts;
    const bool isDocument = target.nodeType() == NodeType::Document;
    QSet<QString> attributes;
    int elements = 0;
    for (const ArrivedNode &arrived : nodes) {
        const NodeType kind = arrived.node.nodeType();
        if (!arrived.node)
            return texts::InstructionsAreNotInserted.toString();
        if (isDocument && kind != NodeType::Element && kind != NodeType::Comment)
            return texts::OnlyElementsAndComments.toString();
        elements += kind == NodeType::Element;
        if (kind != NodeType::Attribute)
            continue;
        const QString name = arrived.node.nodeName();
        if (attributes.contains(name))
            return texts::SameAttributeTwice.toString().arg(name);
        attributes.insert(name);
    }
    if (isDocument && elements > 0 && builder_.HasRootElement())
        return resources::messageText(resources::message::RootAlreadyExists);
    return isDocument && elements > 1 ? texts::OnlyOneRoot.toString() : QString();
}

NodeInsertion::Items NodeInsertion::insertSeveral(const TreeItem &target,
                                                  const std::vector<ArrivedNode> &nodes,
                                                  Origin origin) {
    const Node parent = builder_.registry().Item(target);
    if (parent.nodeType() == NodeType::Element || parent.nodeType() == NodeType::Document) {
        if (const QString reason = refusal(parent, nodes); !reason.isEmpty()) {
            ui::showMessage(reason, ui::message_style::Exclamation);
            return {};
        }
    }
    Items items;
    const TreeBuilder::PreviewPause pause(builder_);
    for (const ArrivedNode &node : nodes) {
        if (const TreeItem item = origin == Origin::Text ? insertTextNode(target, node.node)
                                                         : insertArrivedNode(target, node))
            items.push_back(item);
    }
    return items;
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
