#include "edit/node_creation.h"

#include "platform/runtime/numbers.h"

#include <unordered_set>

namespace quillon::edit {

using items::Relationship;
using items::TreeItem;
using xml::DOMDocument40;
using xml::Node;
using xml::NodeType;

namespace {

const QString ElementBase = QStringLiteral("Element");
const QString AttributeBase = QStringLiteral("Attribute");
const QString TextBase = QStringLiteral("Text");
const QString CommentBase = QStringLiteral("Comment");
const QString CDataBase = QStringLiteral("CDATA");

struct HashOfString {
    std::size_t operator()(const QString &text) const { return qHash(text); }
};

} // namespace

NodeCreation::NodeCreation(const state::DocumentState &state, tree::TreeBuilder &builder,
                           tree::Selection &selection, items::Tree &tree)
    : state_(state), builder_(builder), selection_(selection), tree_(tree) {}

QString NodeCreation::MakeUniqueName(const TreeItem &parentItem, const QString &baseText) const {
    std::unordered_set<QString, HashOfString> taken;
    for (TreeItem child = parentItem.Child(); child; child = child.Next()) {
        const QString caption = child.Text();
        if (caption.startsWith(baseText))
            taken.insert(caption.section(QLatin1Char('='), 0, 0));
    }
    qint16 counter = 0;
    QString candidate;
    do {
        counter = runtime::checkedAdd16(counter, 1);
        candidate = baseText + QString::number(counter);
    } while (taken.count(candidate) != 0);
    return candidate;
}

NodeType NodeCreation::selectedKind() const {
    return selection_.GetSelectedDOMNode().nodeType();
}

bool NodeCreation::addChild(bool documentToo, Create create, const QString &baseText) {
    TreeItem item = tree_.SelectedItem();
    const NodeType kind = selectedKind();
    if (state_.m_ReadOnly || !item ||
        !(kind == NodeType::Element || (documentToo && kind == NodeType::Document)))
        return false;
    Node node = (state_.m_DOM.*create)(MakeUniqueName(item, baseText));
    Relationship relationship = Relationship::Child;
    const TreeItem newItem = builder_.AddNodeToTree(item, node, false, relationship);
    if (!newItem)
        return false;
    selection_.ShowNode(newItem, true);
    tree_.StartLabelEdit();
    Q_EMIT documentModified();
    return true;
}

void NodeCreation::insert(Create create, const QString &baseText) {
    TreeItem item = tree_.SelectedItem();
    if (state_.m_ReadOnly || !item || item == tree_.nodes().Item(1))
        return;
    Node node = (state_.m_DOM.*create)(MakeUniqueName(item.Parent(), baseText));
    Relationship relationship = Relationship::Previous;
    const TreeItem newItem = builder_.AddNodeToTree(item, node, false, relationship);
    if (!newItem)
        return;
    selection_.ShowNode(newItem, true);
    tree_.StartLabelEdit();
    Q_EMIT documentModified();
}

void NodeCreation::mnuNodeAddElement_Click() {
    if (addChild(true, &DOMDocument40::createElement, ElementBase))
        Q_EMIT previewRequested(state_.m_DOM.node());
}

void NodeCreation::mnuNodeAddText_Click() {
    addChild(false, &DOMDocument40::createTextNode, TextBase);
}

void NodeCreation::mnuNodeAddComment_Click() {
    addChild(true, &DOMDocument40::createComment, CommentBase);
}

void NodeCreation::mnuNodeAddCDATA_Click() {
    addChild(true, &DOMDocument40::createCDATASection, CDataBase);
}

void NodeCreation::mnuNodeAddAttribute_Click() {
    const TreeItem item = tree_.SelectedItem();
    if (state_.m_ReadOnly || !item || selectedKind() != NodeType::Element)
        return;
    Node attr = state_.m_DOM.createAttribute(MakeUniqueName(item, AttributeBase));
    const TreeItem newItem = builder_.AddAttributeToTree(item, attr, false);
    if (!newItem)
        return;
    // The label is opened ahead of showing the node, unlike in the other commands; that is meant
    // so.
    tree_.setSelectedItem(newItem);
    tree_.StartLabelEdit();
    selection_.ShowNode(newItem, true);
    Q_EMIT documentModified();
}

void NodeCreation::mnuNodeInsElement_Click() {
    insert(&DOMDocument40::createElement, ElementBase);
}

void NodeCreation::mnuNodeInsText_Click() {
    insert(&DOMDocument40::createTextNode, TextBase);
}

void NodeCreation::mnuNodeInsComment_Click() {
    insert(&DOMDocument40::createComment, CommentBase);
}

void NodeCreation::mnuNodeInsCDATA_Click() {
    insert(&DOMDocument40::createCDATASection, CDataBase);
}

bool NodeCreation::canAddAttributeToParent() const {
    return !state_.m_ReadOnly && selectedKind() != NodeType::Element &&
           selection_.GetDOMNode(tree_.SelectedItem().Parent()).nodeType() == NodeType::Element;
}

void NodeCreation::AddAttributeToParent() {
    if (!canAddAttributeToParent())
        return;
    tree_.setSelectedItem(tree_.SelectedItem().Parent());
    mnuNodeAddAttribute_Click();
}

} // namespace quillon::edit
