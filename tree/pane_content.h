#pragma once

#include "platform/items/tree_item.h"
#include "platform/ui/text_box.h"

namespace quillon::tree {

/// The text box that shows and edits the selected node (`txtEdit`), with the flag that tells the
/// program's own writing from the user's.
class PaneContent {
public:
    explicit PaneContent(ui::TextBox &txtEdit) : txtEdit_(txtEdit) {}

    ui::TextBox &textBox() const { return txtEdit_; }

    /// Writes the pane without an edit being seen in it.
    void fill(const QString &text) {
        m_bFilling = true;
        txtEdit_.setText(text);
        m_bFilling = false;
        isUnparsed = false;
    }
    /// The same for the markup of a node: UTF-8, coloured as XML.
    void fillMarkup(QByteArrayView utf8) {
        m_bFilling = true;
        txtEdit_.setLanguage(ui::TextBox::Language::Xml);
        txtEdit_.setText(utf8);
        m_bFilling = false;
        isUnparsed = false;
    }
    /// The same for the value of a node.
    void fillValue(const QString &text) {
        txtEdit_.setLanguage(ui::TextBox::Language::Plain);
        fill(text);
    }

    /// Set while the program itself writes the pane, or calls the label edit handler on its
    /// behalf.
    bool m_bFilling = false;

    /// The item whose content the pane holds. While a drag passes over the tree another one is
    /// selected, and what is typed must not go there.
    items::TreeItem shownItem;

    /// What was typed last does not parse: it is nowhere but in the pane.
    bool isUnparsed = false;

private:
    ui::TextBox &txtEdit_;
};

} // namespace quillon::tree
