#pragma once

#include "app/main_window/frm_main.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/scripted_printer.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quillon::test {

/// A real main window whose files, settings and clock belong to the test, with dialogs that answer
/// from a script.
class EditorWindow : public testing::Test {
protected:
    /// The parts of the window under the names the program gives them.
    app::Editor &editor() { return form->editor(); }
    state::DocumentState &state() { return editor().state; }
    items::Tree &tree() { return editor().tree; }
    controls::TreeView &tvw() { return *form->findChild<controls::TreeView *>("tvw"); }
    controls::TextBox &txtEdit() { return *form->findChild<controls::TextBox *>("txtEdit"); }
    controls::PathBox &cboPath() { return *form->findChild<controls::PathBox *>("cboPath"); }
    QString status() { return form->findChild<QLabel *>("sbr")->text(); }
    bool button(QStringView key) { return form->actions().toolButtonEnabled(key); }

    QString path(const QString &name) const { return folder.filePath(name); }
    QString write(const QString &name, const QByteArray &bytes) {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
        file.write(bytes);
        return path(name);
    }
    QByteArray read(const QString &name) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }
    QStringList working() const { return QDir(path("Temp")).entryList(QDir::Files, QDir::Name); }

    /// Opens a document as the user would, and shows it.
    void open(const QByteArray &text, const QString &name = "doc.xml") {
        ASSERT_TRUE(form->OpenFile(write(name, text)));
        form->UpdateStatus(path(name));
    }
    /// The first item with a caption; Nothing when there is none.
    items::TreeItem item(const QString &caption) {
        items::Nodes &nodes = tree().nodes();
        for (int i = 1; i <= nodes.Count(); ++i) {
            if (nodes.Item(i).Text() == caption)
                return nodes.Item(i);
        }
        return {};
    }
    void select(const QString &caption) {
        ASSERT_TRUE(item(caption)) << caption.toStdString();
        editor().selection.ShowNode(item(caption), true);
    }
    QStringList captions(const items::TreeItem &parent) {
        QStringList out;
        for (items::TreeItem child = parent.Child(); child; child = child.Next())
            out.append(child.Text());
        return out;
    }
    QStringList expanded() {
        QStringList out;
        tree().nodes().forEachExpanded([&](const items::TreeItem &at) { out.append(at.Text()); });
        return out;
    }
    /// What a user's typing does: the pane holds another text.
    void type(const QString &text) { txtEdit().setText(text); }
    QByteArray xml() { return state().m_DOM.xml(); }

    QTemporaryDir folder;
    QDateTime time = QDateTime::fromString("2001-12-31T23:59:59", Qt::ISODate);
    ScriptedDialogs dialogs;
    ScriptedPrinter printer;
    std::unique_ptr<app::frmMain> form = std::make_unique<app::frmMain>(
        app::Surroundings{folder.path(), system::SettingsStore(folder.filePath("settings.ini")),
                          runtime::Clock{[this] { return time; }}});
};

} // namespace quillon::test
