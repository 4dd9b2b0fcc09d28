#pragma once

#include "tests/support/headless_editor.h"

namespace quillon::test {

constexpr auto Sample = "<?xml version='1.0'?><!--note--><!DOCTYPE doc [<!ENTITY e 'x'>]>"
                        "<doc id='1'><a k='v\nw'/><b>one\ntwo</b><![CDATA[raw]]></doc>";

class EditingTest : public HeadlessEditor {
protected:
    tree::LabelEditing &labels() { return editor().labels; }
    /// Applies a label edit to the selected item as the tree would.
    bool rename(const QString &text) {
        QString newString = text;
        const bool accepted = labels().tvw_AfterLabelEdit(tree().SelectedItem(), newString);
        if (accepted)
            tree().SelectedItem().setText(newString);
        return accepted;
    }
    QString selected() { return tree().SelectedItem().Text(); }
    items::TreeItem paste(const QString &target, const QString &text) {
        return editor().nodeInsertion.InsertNodeFromText(item(target), text);
    }
    bool modified() { return std::exchange(state().m_Modified, false); }
};

} // namespace quillon::test
