#pragma once

#include "platform/ui/error_boundary.h"
#include "tests/support/editor_fixture.h"
#include "tests/support/screen_fakes.h"
#include "tests/support/work_at_once.h"

#include <memory>

namespace quillon::test {

/// The logic of one window, put together as in the program, and what a window would show of it.
class HeadlessWindow {
public:
    HeadlessWindow(app::Environment environment, ui::Clipboard &clipboard)
        : editor(std::move(environment), txtEdit, cboPath, ie, longWork, clipboard) {
        editor.workingFolder.create();
        txtEdit.changed = [this] { ui::guarded([this] { editor.textEditing.txtEdit_Change(); }); };
        QObject::connect(&editor, &app::Editor::statusText,
                         [this](const QString &text) { status = text; });
        QObject::connect(&editor.commands, &document::DocumentCommands::captionChanged,
                         [this](const QString &caption) { title = caption; });
        QObject::connect(&editor.loader, &document::DocumentLoader::documentOpened,
                         [this] { ++opened; });
    }
    /// What every window does when it is closed; false when it stays.
    bool close() {
        bool isClosed = false;
        ui::guarded([&] { isClosed = editor.commands.confirmLeaving(); });
        return isClosed;
    }

    HeadlessWindow(const HeadlessWindow &) = delete;
    HeadlessWindow &operator=(const HeadlessWindow &) = delete;

    TextBoxFake txtEdit;
    PathBoxFake cboPath;
    BrowserFake ie;
    WorkAtOnce longWork;
    app::Editor editor;

    QString status;
    QString title;
    /// How often a document was opened.
    int opened = 0;
};

/// An editor without a window.
class HeadlessEditor : public EditorFixture {
protected:
    app::Editor &editor() override { return window->editor; }
    TextBoxFake &txtEdit() { return window->txtEdit; }
    PathBoxFake &cboPath() { return window->cboPath; }
    QString status() { return window->status; }
    QString title() { return window->title; }
    bool close() { return window->close(); }

    void type(const QString &text) override { txtEdit().setText(text); }
    std::unique_ptr<HeadlessWindow> makeWindow() {
        return std::make_unique<HeadlessWindow>(environment(), clipboard);
    }

    ClipboardFake clipboard;
    std::unique_ptr<HeadlessWindow> window = makeWindow();
};

} // namespace quillon::test
