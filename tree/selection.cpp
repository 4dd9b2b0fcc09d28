#include "tree/selection.h"

#include "platform/ui/message_box.h"
#include "resources/texts.h"

namespace quillon::tree {

namespace style = ui::message_style;
using items::TreeItem;
using xml::Node;
using xml::NodeType;

namespace {

/// What a path starts with: the caption of the document item and a separator.
constexpr qsizetype DocumentPrefixLength = 10;

} // namespace

Selection::Selection(const state::DocumentState &state, const state::ViewOptions &options,
                     const NodeRegistry &registry, items::Tree &tree, PaneContent &pane,
                     ui::PathBox &cboPath, const ui::Clipboard &clipboard)
    : state_(state), options_(options), registry_(registry), tree_(tree), pane_(pane),
      cboPath_(cboPath), clipboard_(clipboard) {}

Node Selection::GetDOMNode(const TreeItem &item) const {
    return item && !registry_.isEmpty() ? registry_.Item(item) : Node();
}

Node Selection::GetSelectedDOMNode() const {
    return GetDOMNode(tree_.SelectedItem());
}

void Selection::ShowNode(const TreeItem &item, bool selectIt) {
    const Node node = GetDOMNode(item);
    if (!node)
        return;
    const bool keepsText = hasUnparsedText() && item == pane_.shownItem;
    if (!keepsText && !mayLeavePane())
        return;
    if (!keepsText)
        fillPane(item, node);
    if (selectIt && !(tree_.SelectedItem() == item))
        tree_.setSelectedItem(item);
    Q_EMIT nodeShown();
    Q_EMIT statusText(keepsText ? resources::texts::SyntaxError.toString() : QString());
}

void Selection::showNothing() {
    cboPath_.setText(QString());
}

bool Selection::hasUnparsedText() const {
    return pane_.isUnparsed && GetDOMNode(pane_.shownItem);
}

bool Selection::mayLeavePane() {
    if (!hasUnparsedText())
        return true;
    constexpr int Ask = style::YesNo + style::Question + style::DefaultButton2;
    const int reply = ui::showMessage(resources::texts::GiveUpUnparsedText.toString(), Ask);
    const TreeItem shown = pane_.shownItem;
    if (reply == ui::message_answer::Yes) {
        pane_.isUnparsed = false;
        refillPane(shown);
        Q_EMIT statusText(QString());
        Q_EMIT unparsedTextGivenUp();
        return true;
    }
    tree_.setSelectedItem(shown);
    pane_.textBox().takeFocus();
    Q_EMIT statusText(resources::texts::SyntaxError.toString());
    return false;
}

void Selection::refillPane(const TreeItem &item) {
    if (const Node node = GetDOMNode(item))
        fillPane(item, node);
}

void Selection::takePaneAs(const TreeItem &item) {
    const Node node = GetDOMNode(item);
    bool isThere = false;
    node.readXml([&](QByteArrayView utf8) { isThere = pane_.textBox().utf8() == utf8; });
    tree_.setSelectedItem(item);
    if (isThere) {
        pane_.shownItem = item;
        pane_.isUnparsed = false;
        showPlaceOfMarkup(item);
    } else {
        fillPane(item, node);
    }
    Q_EMIT nodeShown();
}

void Selection::showPlaceOfMarkup(const TreeItem &item) {
    cboPath_.setText(item.FullPath().mid(DocumentPrefixLength) + QLatin1Char('/'));
    pane_.textBox().setLocked(state_.m_ReadOnly || options_.viewLock);
}

void Selection::fillPane(const TreeItem &item, const Node &node) {
    pane_.shownItem = item;
    ui::TextBox &txtEdit = pane_.textBox();
    switch (node.nodeType()) {
    case NodeType::Element:
    case NodeType::Document:
        node.readXml([this](QByteArrayView utf8) { pane_.fillMarkup(utf8); });
        showPlaceOfMarkup(item);
        break;
    case NodeType::Attribute:
    case NodeType::Text:
    case NodeType::Comment:
    case NodeType::CDATASection:
        pane_.fillValue(node.text());
        txtEdit.setLocked(state_.m_ReadOnly);
        break;
    case NodeType::ProcessingInstruction:
    case NodeType::DocumentType:
        cboPath_.setText(QStringLiteral("/"));
        pane_.fillValue(node.text());
        txtEdit.setLocked(true);
        break;
    default:
        ui::showMessage(TypeName(node) + QStringLiteral(" cannot modify"));
    }
}

bool Selection::canPasteFromClipboard() const {
    const NodeType kind = GetSelectedDOMNode().nodeType();
    const bool isContainer = kind == NodeType::Element || kind == NodeType::Document;
    return !state_.m_ReadOnly && isContainer && !clipboard_.text().isEmpty();
}

} // namespace quillon::tree
