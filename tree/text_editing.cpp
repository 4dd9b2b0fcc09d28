#include "tree/text_editing.h"

#include "platform/runtime/error.h"
#include "platform/runtime/strings.h"
#include "platform/ui/message_box.h"
#include "resources/texts.h"
#include "tree/fragment.h"

#include <QByteArrayList>
#include <QScopedValueRollback>
#include <QSignalBlocker>

namespace quillon::tree {

using items::TreeItem;
using xml::Node;
using xml::NodeType;

namespace {

Node nextElement(Node node) {
    while (node && node.nodeType() != NodeType::Element)
        node = node.nextSibling();
    return node;
}

/// The way down from the document to an element: which of its parent's elements each one is,
/// 0-based. Other nodes may be counted otherwise when the document is read again.
QByteArray pathOf(const Node &element) {
    QByteArrayList path;
    for (Node at = element; at.nodeType() == NodeType::Element; at = at.parentNode()) {
        int place = 0;
        for (Node n = nextElement(at.parentNode().firstChild()); n && !(n == at);
             n = nextElement(n.nextSibling()))
            ++place;
        path.prepend(QByteArray::number(place));
    }
    return path.join('/');
}

/// The element at the end of such a way; the document where it leads nowhere.
Node nodeAt(const Node &document, const QByteArray &path) {
    Node at = document;
    for (const QByteArray &step : path.isEmpty() ? QByteArrayList() : path.split('/')) {
        Node child = nextElement(at.firstChild());
        for (int place = step.toInt(); place > 0 && child; --place)
            child = nextElement(child.nextSibling());
        if (!child)
            return document;
        at = child;
    }
    return at;
}

} // namespace

TextEditing::TextEditing(state::DocumentState &state, const state::ViewOptions &options,
                         TreeBuilder &builder, NodeRemoval &removal, LabelEditing &labels,
                         Selection &selection, items::Tree &tree, PaneContent &pane)
    : state_(state), options_(options), builder_(builder), removal_(removal), labels_(labels),
      selection_(selection), tree_(tree), pane_(pane) {}

void TextEditing::txtEdit_Change() {
    if (state_.isBroken && !pane_.m_bFilling)
        Q_EMIT brokenTextChanged();
    const TreeItem item = tree_.SelectedItem();
    if (pane_.m_bFilling || !item)
        return;
    if (pane_.shownItem != item) {
        selection_.refillPane(item);
        return;
    }
    const Node node = selection_.GetSelectedDOMNode();
    const QScopedValueRollback carrying(isCarryingOver_, true);
    switch (node.nodeType()) {
    case NodeType::Text:
    case NodeType::Comment:
    case NodeType::CDATASection:
        changeText(item);
        break;
    case NodeType::Attribute:
        changeAttribute(item, node);
        break;
    case NodeType::Document:
        replaceDocument();
        break;
    case NodeType::Element:
    case NodeType::ProcessingInstruction:
        // An instruction alone is no document, so its text never parses and stays unparsed text.
        replaceElement(item, node);
        break;
    case NodeType::None:
        break;
    default:
        ui::showMessage(TypeName(node) + QStringLiteral(" edit is not implemented yet"));
    }
}

void TextEditing::changeText(const TreeItem &item) {
    QString text = runtime::CRLFtoLF(pane_.textBox().Text());
    if (options_.viewText)
        TreeItem(item).setText(text);
    pane_.m_bFilling = true;
    // An empty text is refused there: emptying the pane leaves the node as it was until something
    // is typed in its place.
    labels_.tvw_AfterLabelEdit(item, text);
    pane_.m_bFilling = false;
}

void TextEditing::changeAttribute(const TreeItem &item, const Node &node) {
    const QString text = runtime::CRLFtoLF(pane_.textBox().Text());
    const Node element = builder_.registry().Item(item.Parent());
    try {
        element.setAttribute(node.nodeName(), text);
        // An attribute that was added is shown by a copy of its own, which has to keep up.
        if (node != element.getAttributeNode(node.nodeName()))
            Node(node).setNodeValue(text);
    } catch (const runtime::Error &) {
        return;
    }
    if (options_.viewText)
        TreeItem(item).setText(attributeCaption(node.nodeName(), text));
    Q_EMIT documentModified();
}

void TextEditing::reportSyntaxError() {
    pane_.isUnparsed = true;
    Q_EMIT unparsedTextChanged();
    Q_EMIT statusText(resources::texts::SyntaxError.toString());
}

QByteArray TextEditing::unparsedText() const {
    if (!selection_.hasUnparsedText())
        return {};
    return pathOf(builder_.registry().Item(pane_.shownItem)) + '\n' + pane_.textBox().utf8();
}

void TextEditing::restoreUnparsedText(const QByteArray &kept) {
    const qsizetype end = kept.indexOf('\n');
    if (end < 0)
        return;
    const Node node = nodeAt(state_.m_DOM.node(), kept.first(end));
    selection_.ShowNode(builder_.itemOf(node), true);
    pane_.textBox().setText(kept.sliced(end + 1));
}

void TextEditing::replaceDocument() {
    xml::DOMDocument40 parsed = xml::DOMDocument40::create();
    if (!parsed.loadXML(pane_.textBox().utf8()))
        return reportSyntaxError();
    parsed.takeFileFormat(state_.m_DOM);
    const NodeNumbers expanded =
        counterparts(state_.m_DOM.node(), parsed.node(), builder_.expandedNodes());
    state_.m_DOM = parsed;
    builder_.BuildTree(state_.m_DOM, true, TreeBuilder::Reason::Changed);
    builder_.expandNodes(expanded);
    const TreeItem first = tree_.nodes().Item(1);
    tree_.setSelectedItem(first);
    pane_.shownItem = first;
    pane_.isUnparsed = false;
    Q_EMIT documentModified();
    Q_EMIT statusText(QString());
}

void TextEditing::replaceElement(TreeItem item, const Node &node) {
    const xml::DOMDocument40 parsed = parsedFragment(state_.m_DOM, pane_.textBox().utf8());
    if (!parsed.documentElement())
        return reportSyntaxError();
    NodeNumbers expanded = builder_.expandedNodes();
    builder_.m_bNoSync = true;
    tree_.setTreeVisible(false);
    TreeItem newItem;
    if (node == state_.m_DOM.documentElement()) {
        // m_bNoSync stays set from here on: see there.
        newItem = replaceRoot(item, parsed.documentElement());
    } else {
        Node copy = parsed.documentElement();
        items::Relationship relationship = items::Relationship::Previous;
        TreeItem relItem = item;
        newItem = builder_.AddNodeToTree(relItem, copy, false, relationship);
        builder_.m_bNoSync = false;
        removeOld(item);
    }
    tree_.setSelectedItem(newItem);
    pane_.shownItem = newItem;
    pane_.isUnparsed = false;
    expanded.merge(counterparts(node, selection_.GetDOMNode(newItem), expanded));
    builder_.expandNodes(expanded);
    tree_.setTreeVisible(true);
    Q_EMIT documentModified();
    Q_EMIT statusText(QString());
}

void TextEditing::removeOld(const TreeItem &item) {
    // What counts as modified, and as the state to come back to, is the document with the new
    // element in place, shown as it was. The removal on its own is no such state.
    const QSignalBlocker untilReplaced(removal_);
    removal_.DeleteNode(item);
}

TreeItem TextEditing::replaceRoot(const TreeItem &item, const Node &newRoot) {
    removeOld(item);
    state_.m_DOM.setDocumentElement(newRoot);
    builder_.BuildTree(state_.m_DOM, false, TreeBuilder::Reason::Changed);
    const Node root = state_.m_DOM.documentElement();
    for (TreeItem child = tree_.nodes().Item(1).Child(); child; child = child.Next()) {
        if (selection_.GetDOMNode(child) == root)
            return child;
    }
    return {};
}

} // namespace quillon::tree
