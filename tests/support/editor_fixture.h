#pragma once

#include "app/editor.h"
#include "tests/support/scripted_dialogs.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quillon::test {

/// What tests do with an editor, be it in a window or without one: its files, settings and clock
/// belong to the test, and its dialogs answer from a script.
class EditorFixture : public testing::Test {
protected:
    virtual app::Editor &editor() = 0;
    /// What a user's typing does: the pane holds another text.
    virtual void type(const QString &text) = 0;

    state::DocumentState &state() { return editor().state; }
    items::Tree &tree() { return editor().tree; }
    QByteArray xml() { return state().m_DOM.xml(); }

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

    bool OpenFile(const QString &file) { return editor().loader.OpenFile(file); }
    /// Opens a document as the user would, and shows it.
    void open(const QByteArray &text, const QString &name = "doc.xml") {
        ASSERT_TRUE(OpenFile(write(name, text)));
        editor().commands.UpdateStatus(path(name));
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

    app::Environment environment() {
        return {folder.path(), system::SettingsStore(path("settings.ini")),
                runtime::Clock{[this] { return time; }}};
    }

    QTemporaryDir folder;
    QDateTime time = QDateTime::fromString("2001-12-31T23:59:59", Qt::ISODate);
    ScriptedDialogs dialogs;
};

} // namespace quillon::test
