#pragma once

#include "tree/label_editing.h"
#include "tree/node_removal.h"
#include "tree/selection.h"

namespace quillon::tree {

/// Carries what is typed into the edit pane over to the document, change by change.
class TextEditing : public QObject {
    Q_OBJECT

public:
    TextEditing(state::DocumentState &state, const state::ViewOptions &options,
                TreeBuilder &builder, NodeRemoval &removal, LabelEditing &labels,
                Selection &selection, items::Tree &tree, PaneContent &pane);

    /// Applies the pane's text to the selected node. Text that does not parse changes nothing and
    /// is told in the status bar.
    void txtEdit_Change();
    /// Whether that is being done, and what the document tells of comes of it.
    bool isCarryingOver() const { return isCarryingOver_; }

    /// The text that the pane holds and the document does not, with the place of its element, to be
    /// kept outside of the program; empty when there is none.
    QByteArray unparsedText() const;
    /// Shows the element that such a text belongs to, with the text as if it had been typed. Where
    /// there is no such element, the document is shown with it.
    void restoreUnparsedText(const QByteArray &kept);

Q_SIGNALS:
    /// The pane holds another text of a file that is being mended.
    void brokenTextChanged();
    /// The pane holds such a text, or another one than before.
    void unparsedTextChanged();
    void statusText(const QString &text);
    void documentModified();

private:
    void changeText(const items::TreeItem &item);
    void changeAttribute(const items::TreeItem &item, const xml::Node &node);
    void replaceDocument();
    void replaceElement(items::TreeItem item, const xml::Node &node);
    void removeOld(const items::TreeItem &item);
    items::TreeItem replaceRoot(const items::TreeItem &item, const xml::Node &newRoot);
    void reportSyntaxError();

    bool isCarryingOver_ = false;
    state::DocumentState &state_;
    const state::ViewOptions &options_;
    TreeBuilder &builder_;
    NodeRemoval &removal_;
    LabelEditing &labels_;
    Selection &selection_;
    items::Tree &tree_;
    PaneContent &pane_;
};

} // namespace quillon::tree
