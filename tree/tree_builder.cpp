#include "tree/tree_builder.h"

#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
#include "resources/messages.h"
#include "tree/document_items.h"
#include "tree/node_keys.h"

#include <utility>
#include <vector>

namespace quillon::tree {

using items::TreeItem;
using xml::Node;
using xml::NodeType;

namespace {

/// Adds an item for every node of a walk.
class Mirror final : public xml::NodeVisitor {
public:
    Mirror(items::Nodes &nodes, NodeRegistry &registry, const TreeItem &relItem,
           items::Relationship relationship)
        : nodes_(nodes), registry_(registry), relationship_(relationship), path_{relItem} {}

    void enter(quint32 number, NodeType kind) override {
        const bool top = path_.size() == 1;
        path_.push_back(nodes_.Add(path_.back(), top ? relationship_ : items::Relationship::Child,
                                   takeNodeSequences(1)));
        registry_.setNumber(path_.back(), number);
        if (top)
            topItem_ = path_.back();
        hasReference_ = hasReference_ || kind == NodeType::EntityReference;
    }
    void leave() override { path_.pop_back(); }

    TreeItem topItem() const { return topItem_; }
    bool hasReference() const { return hasReference_; }

private:
    items::Nodes &nodes_;
    NodeRegistry &registry_;
    items::Relationship relationship_;
    std::vector<TreeItem> path_;
    TreeItem topItem_;
    bool hasReference_ = false;
};

} // namespace

TreeBuilder::TreeBuilder(state::DocumentState &state, const state::ViewOptions &options,
                         items::Tree &tree)
    : state_(state), tree_(tree), m_dicNode(tree.nodes()), captions_(m_dicNode, options) {
    tree_.nodes().setCaptionSource(&captions_);
}

void TreeBuilder::BuildTree(const xml::DOMDocument40 &document, bool visibleAfter, Reason reason) {
    if (document.isNull())
        return;
    const bool isOpened = reason == Reason::Opened;
    const auto items = std::make_shared<const DocumentItems>(
        document, isOpened ? DocumentItems::Keys::Taken : DocumentItems::Keys::WhenAsked);
    reportsStrangers_ = reportsStrangers_ || isOpened;
    tree_.setTreeVisible(false);
    m_dicNode.reset(document);
    tree_.nodes().reset(items);
    if (reportsStrangers_ && items->hasReference())
        reportReference();
    tree_.setTreeVisible(visibleAfter);
}

void TreeBuilder::reportReference() {
    if (std::exchange(reportsStrangers_, false))
        ui::showMessage(QStringLiteral("IXMLDOMEntityReference is added to tree"));
}

void TreeBuilder::rebuildTree() {
    const NodeNumbers expanded = expandedNodes();
    std::vector<quint32> path;
    for (TreeItem item = tree_.SelectedItem(); item; item = item.Parent())
        path.push_back(m_dicNode.number(item));
    BuildTree(state_.m_DOM, false, Reason::Changed);
    expandNodes(expanded);
    TreeItem selectedItem;
    for (auto number = path.begin(); number != path.end() && !selectedItem; ++number)
        selectedItem = m_dicNode.itemOf(*number);
    tree_.setSelectedItem(selectedItem);
    tree_.setTreeVisible(true);
}

NodeNumbers TreeBuilder::expandedNodes() const {
    NodeNumbers numbers;
    tree_.nodes().forEachExpanded(
        [&](const TreeItem &item) { numbers.insert(m_dicNode.number(item)); });
    return numbers;
}

void TreeBuilder::expandNodes(const NodeNumbers &numbers) {
    for (const quint32 number : numbers)
        m_dicNode.itemOf(number).setExpanded(true);
}

TreeItem TreeBuilder::AddNodeToTree(TreeItem &relItem, Node &node, bool treeOnly,
                                    Relationship &relationship) {
    if (!treeOnly && !insertIntoDom(relItem, node, relationship))
        return {};
    return mirror(relItem, node, relationship);
}

bool TreeBuilder::insertIntoDom(TreeItem &relItem, Node &node, Relationship &relationship) {
    const bool before = relationship == Relationship::Previous;
    const Node parent = m_dicNode.Item(before ? relItem.Parent() : relItem);
    const Node ref = before ? m_dicNode.Item(relItem) : Node();
    if (parent.nodeType() == NodeType::Document && refuseUnderDocument(node))
        return false;
    if (node.nodeType() == NodeType::Attribute) {
        // The attribute is on its element already; its item goes behind the other attributes.
        node = node.cloneNode(true);
        for (TreeItem child = relItem.Child(); child; child = child.Next()) {
            if (m_dicNode.Item(child).nodeType() != NodeType::Attribute) {
                relItem = child;
                relationship = Relationship::Previous;
                break;
            }
        }
        return true;
    }
    node = parent.insertBefore(node.cloneNode(true), ref);
    if (node.nodeType() == NodeType::Element && parent.nodeType() != NodeType::Document &&
        !m_bNoSync)
        SyncPreview();
    return true;
}

bool TreeBuilder::refuseUnderDocument(const Node &copy) {
    switch (copy.nodeType()) {
    case NodeType::Text:
    case NodeType::Attribute:
    case NodeType::CDATASection:
        return true;
    case NodeType::Element: {
        if (!HasRootElement())
            return false;
        const QString text = resources::messageText(resources::message::RootAlreadyExists);
        Q_EMIT statusText(text);
        ui::showMessage(text, ui::message_style::Exclamation);
        return true;
    }
    default:
        return false;
    }
}

TreeItem TreeBuilder::mirror(const TreeItem &relItem, const Node &node, Relationship relationship) {
    Mirror mirror(tree_.nodes(), m_dicNode, relItem, relationship);
    tree_.nodes().beginBuild();
    try {
        xml::visitSubtree(node, mirror);
    } catch (...) {
        tree_.nodes().endBuild();
        throw;
    }
    tree_.nodes().endBuild();
    if (mirror.hasReference())
        reportReference();
    return mirror.topItem();
}

TreeItem TreeBuilder::AddAttributeToTree(const TreeItem &elemItem, Node &attr, bool treeOnly) {
    QString name;
    if (!treeOnly) {
        const Node element = m_dicNode.Item(elemItem);
        name = attr.nodeName();
        const Node existing = element.getAttributeNode(name);
        if (!existing) {
            attr = element.attributes().setNamedItem(attr);
        } else {
            // The present item keeps its caption; a second one may follow below.
            for (TreeItem child = elemItem.Child(); child; child = child.Next()) {
                if (m_dicNode.Item(child) == existing)
                    child.pinText();
            }
            try {
                existing.setNodeValue(attr.nodeValue());
            } catch (const runtime::Error &) {
                // The text pasted need not be a value; the item that is there is selected all the
                // same.
            }
        }
    }
    for (TreeItem child = elemItem.Child(); child; child = child.Next()) {
        if (child.Text() == name)
            return {};
    }
    TreeItem relItem = elemItem;
    Relationship relationship = Relationship::Child;
    return AddNodeToTree(relItem, attr, treeOnly, relationship);
}

void TreeBuilder::showOwnAttributes(const std::vector<quint32> &elements) {
    for (const quint32 number : elements) {
        const TreeItem item = m_dicNode.itemOf(number);
        const Node element = m_dicNode.Item(item);
        for (TreeItem child = item.Child(); child; child = child.Next()) {
            const Node shown = m_dicNode.Item(child);
            if (shown.nodeType() != NodeType::Attribute)
                continue;
            if (const Node own = element.getAttributeNode(shown.nodeName()))
                m_dicNode.set(child, own);
        }
    }
}

TreeItem TreeBuilder::itemOf(const Node &node) const {
    return node && node.ownerDocument() == m_dicNode.document() ? m_dicNode.itemOf(node.number())
                                                                : TreeItem();
}

bool TreeBuilder::HasRootElement() const {
    for (TreeItem child = tree_.nodes().Item(1).Child(); child; child = child.Next()) {
        if (m_dicNode.Item(child).nodeType() == NodeType::Element)
            return true;
    }
    return false;
}

void TreeBuilder::ExpandSubtree(const TreeItem &item) {
    tree_.nodes().setExpandedSubtree(item, true);
}

void TreeBuilder::CollapseSubtree(const TreeItem &item) {
    tree_.nodes().setExpandedSubtree(item, false);
}

void TreeBuilder::SyncPreview() {
    if (!m_bNoSync)
        Q_EMIT syncPreviewRequested();
}

} // namespace quillon::tree
