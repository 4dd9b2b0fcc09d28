#include "tree/tree_builder.h"

#include "platform/runtime/error.h"
#include "platform/runtime/numbers.h"
#include "platform/ui/message_box.h"
#include "resources/messages.h"

#include <unordered_map>
#include <utility>
#include <vector>

namespace quillon::tree {

using items::TreeItem;
using xml::Node;
using xml::NodeType;

namespace {

/// Counts the keys of the whole process and is never reset.
qint32 g_lNodeSeq = 0;

quint32 newNodeSequence() {
    g_lNodeSeq = runtime::checkedAdd32(g_lNodeSeq, 1);
    return static_cast<quint32>(g_lNodeSeq);
}

/// The kinds that have a place in the tree below an element or the document.
bool isTreeKind(NodeType kind) {
    switch (kind) {
    case NodeType::Element:
    case NodeType::Attribute:
    case NodeType::Comment:
    case NodeType::Text:
    case NodeType::CDATASection:
    case NodeType::ProcessingInstruction:
    case NodeType::DocumentType:
        return true;
    default:
        return false;
    }
}

/// Adds an item for every node of a walk.
class Mirror final : public xml::NodeVisitor {
public:
    Mirror(items::Nodes &nodes, NodeRegistry &registry, const TreeItem &relItem,
           items::Relationship relationship)
        : nodes_(nodes), registry_(registry), relationship_(relationship), path_{relItem} {}

    void enter(quint32 number, NodeType kind) override {
        const quint32 sequence = newNodeSequence();
        const bool top = path_.size() == 1;
        path_.push_back(
            nodes_.Add(path_.back(), top ? relationship_ : items::Relationship::Child, sequence));
        registry_.setNumber(sequence, number);
        if (top)
            topItem_ = path_.back();
        if (!isTreeKind(kind) && kind != NodeType::Document)
            stranger_ = sequence;
    }
    void leave() override { path_.pop_back(); }

    TreeItem topItem() const { return topItem_; }
    /// An item of a kind that has no place in the tree; 0 for none.
    quint32 stranger() const { return stranger_; }

private:
    items::Nodes &nodes_;
    NodeRegistry &registry_;
    items::Relationship relationship_;
    std::vector<TreeItem> path_;
    TreeItem topItem_;
    quint32 stranger_ = 0;
};

} // namespace

QString NewNodeKey() {
    return QString::number(newNodeSequence()) + QStringLiteral("Node");
}

TreeBuilder::TreeBuilder(state::DocumentState &state, const state::ViewOptions &options,
                         items::Tree &tree)
    : state_(state), tree_(tree), captions_(m_dicNode, options) {
    tree_.nodes().setCaptionSource(&captions_);
}

void TreeBuilder::BuildTree(const xml::DOMDocument40 &document, bool visibleAfter, Reason reason) {
    if (document.isNull())
        return;
    if (reason == Reason::Opened)
        reportsStrangers_ = true;
    tree_.setTreeVisible(false);
    tree_.nodes().Clear();
    m_dicNode.reset(document, static_cast<quint32>(g_lNodeSeq) + 1);
    mirror(TreeItem(), document.node(), Relationship::Child);
    tree_.setTreeVisible(visibleAfter);
}

void TreeBuilder::rebuildTree() {
    const NodeNumbers expanded = expandedNodes();
    std::unordered_map<quint32, int> heights;
    for (TreeItem item = tree_.SelectedItem(); item; item = item.Parent())
        heights.emplace(m_dicNode.number(item.sequence()), int(heights.size()));
    BuildTree(state_.m_DOM, false, Reason::Changed);
    TreeItem selectedItem;
    int lowest = int(heights.size());
    m_dicNode.forEach([&](quint32 sequence, quint32 number) {
        if (const auto height = heights.find(number);
            height != heights.end() && height->second < lowest) {
            selectedItem = tree_.nodes().bySequence(sequence);
            lowest = height->second;
        }
    });
    expandNodes(expanded);
    tree_.setSelectedItem(selectedItem);
    tree_.setTreeVisible(true);
}

NodeNumbers TreeBuilder::expandedNodes() const {
    NodeNumbers numbers;
    tree_.nodes().forEachExpanded(
        [&](const TreeItem &item) { numbers.insert(m_dicNode.number(item.sequence())); });
    return numbers;
}

void TreeBuilder::expandNodes(const NodeNumbers &numbers) {
    std::vector<TreeItem> items;
    m_dicNode.forEach([&](quint32 sequence, quint32 number) {
        if (numbers.contains(number))
            items.push_back(tree_.nodes().bySequence(sequence));
    });
    for (TreeItem &item : items)
        item.setExpanded(true);
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
    const bool whole = node.nodeType() == NodeType::Document;
    const quint32 expected = whole ? node.ownerDocument().maxNodeCount() : 0;
    m_dicNode.reserve(expected);
    tree_.nodes().beginBuild(static_cast<int>(expected));
    try {
        xml::visitSubtree(node, mirror);
    } catch (...) {
        tree_.nodes().endBuild();
        throw;
    }
    tree_.nodes().endBuild();
    if (mirror.stranger() != 0 && std::exchange(reportsStrangers_, false))
        ui::showMessage(TypeName(m_dicNode.Item(mirror.stranger())) +
                        QStringLiteral(" is added to tree"));
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
    std::vector<bool> isWanted;
    for (const quint32 number : elements) {
        if (isWanted.size() <= number)
            isWanted.resize(number + 1);
        isWanted[number] = true;
    }
    std::vector<TreeItem> items;
    m_dicNode.forEach([&](quint32 sequence, quint32 number) {
        if (number < isWanted.size() && isWanted[number])
            items.push_back(tree_.nodes().bySequence(sequence));
    });
    for (const TreeItem &item : items) {
        const Node element = m_dicNode.Item(item);
        for (TreeItem child = item.Child(); child; child = child.Next()) {
            const Node shown = m_dicNode.Item(child);
            if (shown.nodeType() != NodeType::Attribute)
                continue;
            if (const Node own = element.getAttributeNode(shown.nodeName()))
                m_dicNode.set(child.sequence(), own);
        }
    }
}

TreeItem TreeBuilder::itemOf(const Node &node) const {
    TreeItem found;
    if (!node || !(node.ownerDocument() == m_dicNode.document()))
        return found;
    m_dicNode.forEach([&](quint32 sequence, quint32 number) {
        if (number == node.number() && !found)
            found = tree_.nodes().bySequence(sequence);
    });
    return found;
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
