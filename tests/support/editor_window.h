#pragma once

#include "app/main_window/frm_main.h"
#include "tests/support/editor_fixture.h"
#include "tests/support/scripted_printer.h"

#include <QLabel>

namespace quillon::test {

/// A real main window.
class EditorWindow : public EditorFixture {
protected:
    /// The parts of the window under the names the program gives them.
    app::Editor &editor() override { return form->editor(); }
    controls::TreeView &tvw() { return *form->findChild<controls::TreeView *>("tvw"); }
    controls::TextBox &txtEdit() { return *form->findChild<controls::TextBox *>("txtEdit"); }
    controls::PathBox &cboPath() { return *form->findChild<controls::PathBox *>("cboPath"); }
    QString status() { return form->findChild<QLabel *>("sbr")->text(); }
    QString title() { return form->windowTitle(); }
    bool button(QStringView key) { return form->actions().toolButtonEnabled(key); }

    void type(const QString &text) override { txtEdit().setText(text); }

    ScriptedPrinter printer;
    std::unique_ptr<app::frmMain> form = std::make_unique<app::frmMain>(environment());
};

} // namespace quillon::test
