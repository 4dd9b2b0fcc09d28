#include "tree/label_editing.h"

#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"

namespace quillon::tree {

using items::TreeItem;
using xml::Node;
using xml::NodeType;

namespace {

/// The caption of the document item, which paths in the pane leave out.
constexpr qsizetype DocumentCaptionLength = 9;

} // namespace

LabelEditing::LabelEditing(const state::DocumentState &state, const state::ViewOptions &options,
                           TreeBuilder &builder, items::Tree &tree, PaneContent &pane)
    : state_(state), options_(options), builder_(builder), tree_(tree), pane_(pane) {}

bool LabelEditing::tvw_BeforeLabelEdit() const {
    if (state_.m_ReadOnly)
        return false;
    switch (builder_.registry().Item(tree_.SelectedItem()).nodeType()) {
    case NodeType::Element:
    case NodeType::Attribute:
        return !options_.viewLock;
    case NodeType::Text:
    case NodeType::Comment:
    case NodeType::CDATASection:
        // The caption is the text itself only while text is shown.
        return options_.viewText;
    case NodeType::Document:
    case NodeType::DocumentType:
        return false;
    default:
        // Refused afterwards, with a message that says why.
        return true;
    }
}

QString LabelEditing::editorText(const TreeItem &item) const {
    const Node node = builder_.registry().Item(item);
    return node.nodeType() == NodeType::Attribute ? node.nodeName() : item.Text();
}

bool LabelEditing::tvw_AfterLabelEdit(const TreeItem &item, QString &NewString) {
    if (!item || NewString.isEmpty())
        return false;
    try {
        return apply(item, NewString);
    } catch (const runtime::Error &error) {
        ui::showMessage(error.description(), ui::message_style::Exclamation);
        return false;
    }
}

bool LabelEditing::isShown(const TreeItem &item) const {
    return item == tree_.SelectedItem();
}

bool LabelEditing::apply(const TreeItem &item, QString &NewString) {
    const Node node = builder_.registry().Item(item);
    switch (node.nodeType()) {
    case NodeType::Element:
        renameElement(item, node, NewString);
        return true;
    case NodeType::Attribute:
        renameAttribute(item, node, NewString);
        return true;
    case NodeType::Text:
    case NodeType::Comment:
    case NodeType::CDATASection:
        replaceText(item, node, NewString);
        return true;
    case NodeType::None:
        // The node went while its label was being edited.
        return false;
    default:
        ui::showMessage(TypeName(node) + QStringLiteral(" labeledit is not implemented yet"));
        return false;
    }
}

void LabelEditing::renameElement(const TreeItem &item, const Node &old, const QString &name) {
    const Node placed = old.rename(name);
    if (item != tree_.nodes().Item(1))
        builder_.registry().set(item.Parent(), placed.parentNode());
    builder_.registry().set(item, placed);
    if (isShown(item)) {
        const QString path = item.FullPath().mid(DocumentCaptionLength);
        pane_.fill(path.left(path.lastIndexOf(QLatin1Char('/')) + 1) + placed.nodeName());
    }
    Q_EMIT documentModified();
}

void LabelEditing::renameAttribute(const TreeItem &item, const Node &old, QString &NewString) {
    if (NewString == old.nodeName()) {
        if (options_.viewText)
            NewString = attributeCaption(old.nodeName(), old.text());
        return;
    }
    const Node element = builder_.registry().Item(item.Parent());
    if (element.getAttributeNode(NewString))
        throw runtime::Error(runtime::error_number::Application,
                             QStringLiteral("Already Exists. Cannot change"));
    // The old attribute goes first: when the new name is not valid it stays removed, and only its
    // item is left. Undo brings it back.
    element.removeAttribute(old.nodeName());
    Node renamed;
    try {
        renamed = old.cloneAttribute(NewString);
    } catch (const runtime::Error &) {
        // The document has changed all the same, and undoing brings the attribute back.
        Q_EMIT documentModified();
        throw;
    }
    element.setAttributeNode(renamed);
    builder_.registry().set(item.Parent(), element);
    builder_.registry().set(item, element.getAttributeNode(NewString));
    if (options_.viewText)
        NewString = attributeCaption(renamed.nodeName(), old.text());
    if (isShown(item))
        pane_.fillValue(old.text());
    Q_EMIT documentModified();
}

void LabelEditing::replaceText(const TreeItem &item, const Node &node, const QString &text) {
    node.setText(text);
    if (!pane_.m_bFilling && isShown(item))
        pane_.fillValue(text);
    Q_EMIT documentModified();
}

} // namespace quillon::tree
