#pragma once

#include "app/main_window/command_table.h"
#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

namespace quillon::test {

inline const QByteArray Sample = "<r><a k=\"1\">t</a><b/><c/></r>";

class RecordingShell : public system::Shell {
public:
    void start(const QString &program, const QStringList &arguments) override {
        started.append(program + ' ' + arguments.join(' '));
    }
    void openOnDesktop(const QString &target, const std::function<void()> &) override {
        started.append(target);
    }
    QStringList started;
};

/// A window with the sample, in which each command is run.
class Commands : public EditorWindow {
protected:
    struct Case {
        QStringView command;
        /// Brings about what the command is about, in a window that shows the sample with b
        /// selected, and queues answers for its dialogs.
        std::function<void()> prepare;
        std::function<bool()> hasHappened;
    };

    Commands() { reopen(); }
    void reopen() {
        tree().endLabelEdit();
        form.reset();
        form = std::make_unique<app::frmMain>(app::Environment{
            folder.path(), system::SettingsStore(path("settings.ini")), {}, shell});
    }
    void showSample() {
        open(Sample);
        editor().builder.ExpandSubtree(tree().nodes().Item(1));
        select("b");
        editor().options = {};
    }
    void show() {
        showSample();
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get(), Patience));
        tvw().setFocus();
    }
    void run(QStringView command) {
        QAction &action = *form->actions().action(command);
        for (const app::CommandRow &row : app::commandTable()) {
            if (row.entry.name == command && row.entry.menu.isEmpty())
                return form->actions().run(command);
        }
        action.trigger();
    }
    std::function<bool()> makes(const QByteArray &document) {
        return [this, document] {
            // What has been made is named first.
            tree().endLabelEdit();
            return xml() == document;
        };
    }
    std::function<bool()> copies(const QString &text) {
        return [text] { return QGuiApplication::clipboard()->text() == text; };
    }
    void change() {
        state().m_DOM.documentElement().setAttribute("n", "1");
        editor().commands.DocumentModified();
    }
    QWidget &candidatePanel() { return *form->findChild<QWidget *>("candidatePanel"); }
    /// A document of which its own DTD is known, with b selected.
    void openDeclared() {
        open("<!DOCTYPE r [<!ELEMENT r (b)><!ELEMENT b EMPTY>]><r><b/></r>");
        editor().builder.ExpandSubtree(tree().nodes().Item(1));
        select("b");
        EXPECT_TRUE(QTest::qWaitFor(
            [this] { return editor().candidateFinder.grammar().has_value(); }, Patience));
    }
    QString selected() { return tree().SelectedItem().Text(); }
    bool hasPreview() { return !working().filter("preview.").isEmpty(); }
    void removePreview() {
        for (const QString &name : working().filter("preview."))
            QFile::remove(path("Temp/" + name));
    }

    std::vector<Case> documentCases();
    std::vector<Case> fileCases();
    std::vector<Case> viewCases();
    std::vector<Case> paneCases();
    std::vector<Case> toolCases();
    /// Goes to what stands in the way of another encoding, mends that, and has the next dialog
    /// accepted.
    void changeEncoding();

    std::shared_ptr<RecordingShell> shell = std::make_shared<RecordingShell>();
};

} // namespace quillon::test
