#pragma once

#include "tree/selection.h"
#include "tree/tree_builder.h"

namespace quillon::tree {

/// Editing captions in place: renames elements and attributes, replaces the text of text nodes,
/// comments and CDATA sections.
class LabelEditing : public QObject {
    Q_OBJECT

public:
    LabelEditing(const state::DocumentState &state, const state::ViewOptions &options,
                 TreeBuilder &builder, items::Tree &tree, PaneContent &pane);

    /// Whether the selected item's caption may be edited.
    bool tvw_BeforeLabelEdit() const;
    /// What the editor starts with, all of it selected: the bare name of an attribute, also where
    /// its caption shows the value; else the caption.
    QString editorText(const items::TreeItem &item) const;
    /// Applies a new caption to an item's node. False keeps the old caption; else the item shows
    /// NewString, which may have been changed. Failures are shown in a message box. The item is
    /// the one that was edited, also when another has been selected meanwhile.
    bool tvw_AfterLabelEdit(const items::TreeItem &item, QString &NewString);

Q_SIGNALS:
    void documentModified();

private:
    bool apply(const items::TreeItem &item, QString &NewString);
    void renameElement(const items::TreeItem &item, const xml::Node &old, const QString &name);
    void renameAttribute(const items::TreeItem &item, const xml::Node &old, QString &NewString);
    void replaceText(const items::TreeItem &item, const xml::Node &node, const QString &text);
    /// Whether the pane shows this item.
    bool isShown(const items::TreeItem &item) const;

    const state::DocumentState &state_;
    const state::ViewOptions &options_;
    TreeBuilder &builder_;
    items::Tree &tree_;
    PaneContent &pane_;
};

} // namespace quillon::tree
