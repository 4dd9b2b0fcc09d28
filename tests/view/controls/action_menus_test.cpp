#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
#include "tests/support/scripted_dialogs.h"
#include "view/controls/action_menus.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <gtest/gtest.h>
#include <stdexcept>

using namespace quillon;
using namespace quillon::controls;

namespace {

class ActionsTest : public testing::Test {
protected:
    ActionsTest() : menus_(*new ActionMenus(actions_, *window_.menuBar())) {
        window_.show();
        window_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    }

    QAction &action(QStringView name) { return *actions_.action(name); }
    QMenu &menu(QStringView name) { return *action(name).menu(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&window_, key, modifiers);
    }
    /// Opens a menu, notes which of its commands are enabled, and closes it.
    QString enabledIn(QMenu &menu) {
        menu.popup(QPoint(0, 0));
        QStringList names;
        for (const QAction *entry : menu.actions()) {
            if (entry->isEnabled() && entry->isVisible() && !entry->isSeparator() && !entry->menu())
                names.append(entry->objectName());
        }
        menu.close();
        return names.join(u' ');
    }
    ActionSet::Run note(const char *what) {
        return [this, what] { ran_.append(QLatin1String(what)); };
    }
    QString ran() { return std::exchange(ran_, {}).join(u' '); }

    ActionSet actions_;
    QMainWindow window_;
    ActionMenus &menus_;
    QStringList ran_;
};

TEST_F(ActionsTest, StandInTheirMenus) {
    QStringList shown;
    for (const QAction *top : window_.menuBar()->actions()) {
        if (top->isVisible())
            shown.append(
                QStringLiteral("%1 %2").arg(top->objectName()).arg(top->menu()->actions().size()));
    }
    EXPECT_EQ(shown.join(u", "), u"mnuFile 14, mnuEdit 15, mnuView 6, mnuNode 15, mnuTool 15, "
                                 "mnuWindow 1, mnuHelp 2");
    EXPECT_EQ(menu(u"mnuFileMRU").actions().size(), 1);
    EXPECT_EQ(action(u"mnuFileQuit").text(), u"終了(&X)\tAlt+F4");
    EXPECT_EQ(action(u"mnuFileSave").shortcut().toString(), u"Ctrl+S");
    EXPECT_FALSE(action(u"mnuFileSave").icon().isNull());
    EXPECT_TRUE(action(u"mnuViewText").isChecked());
    EXPECT_TRUE(action(u"mnuToolLine2").isSeparator());
    EXPECT_EQ(menus_.contextMenu()->actions(), menu(u"mnuNode").actions());
    EXPECT_THROW(actions_.action(u"mnuNone"), std::out_of_range);
    EXPECT_THROW(menus_.onMenuOpening(u"mnuFileSave", [] {}), std::out_of_range);
}

TEST_F(ActionsTest, AskForTheirStatesWhenTheirMenuOpens) {
    bool can = false;
    actions_.connectAction(u"mnuNodeMoveUp", note("up"), [&] { return can; });
    actions_.connectAction(u"mnuNodeMoveDown", note("down"), [&] { return !can; });
    actions_.connectAction(u"mnuNodeDelete", note("delete"));
    menus_.onMenuOpening(u"mnuNode", [&] { can = !can; });
    menus_.onMenuOpening(u"mnuNode", [&] { action(u"mnuNodeDelete").setEnabled(can); });
    for (QMenu *opened : {&menu(u"mnuNode"), menus_.contextMenu()}) {
        EXPECT_EQ(enabledIn(*opened), u"mnuNodeMoveUp mnuNodeDelete");
        EXPECT_EQ(enabledIn(*opened), u"mnuNodeMoveDown");
    }
    menu(u"mnuNode").popup(QPoint(0, 0));
    QTest::keyClick(&menu(u"mnuNode"), Qt::Key_U);
    EXPECT_EQ(ran(), u"up");
}

TEST_F(ActionsTest, RunByKeyWhateverTheirMenuShowedLast) {
    bool can = false;
    actions_.connectAction(u"mnuFileSave", note("save"), [&] { return can; });
    actions_.connectAction(u"mnuToolPreview", note("preview"));
    actions_.connectAction(u"mnuToolPreviewSel", note("previewSel"));
    press(Qt::Key_F5);
    press(Qt::Key_F5, Qt::ControlModifier);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(ran(), u"preview previewSel");
    EXPECT_EQ(enabledIn(menu(u"mnuFile")), u"");
    can = true;
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(ran(), u"save");
    EXPECT_EQ(enabledIn(menu(u"mnuFile")), u"mnuFileSave");
    can = false;
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(ran(), u"");
}

TEST_F(ActionsTest, LeaveTheKeysOfTheTreeToIt) {
    for (const resources::ActionEntry &entry : resources::actionTable()) {
        if (entry.keyContext == resources::KeyContext::Window)
            continue;
        actions_.connectAction(entry.name, note("stolen"));
        const QKeySequence key(entry.key.toString());
        press(key[0].key(), key[0].keyboardModifiers());
        EXPECT_EQ(ran(), u"") << qPrintable(entry.name.toString());
    }
    EXPECT_EQ(action(u"mnuEditRename").shortcut().toString(), u"F2") << "shown in the menu";
}

TEST_F(ActionsTest, SurviveErrors) {
    test::ScriptedDialogs script;
    actions_.connectAction(u"mnuFileNew", [] { runtime::raise(53); });
    actions_.connectAction(u"mnuFileOpen", note("open"), []() -> bool { runtime::raise(6); });
    for (int i = 0; i < 3; ++i)
        script.answerMessage(ui::message_answer::Ok);
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(enabledIn(menu(u"mnuFile")), u"mnuFileNew");
    press(Qt::Key_O, Qt::ControlModifier);
    ASSERT_EQ(script.messages.size(), 3u);
    EXPECT_EQ(script.messages[0].text, u"ファイルが見つかりません。");
    EXPECT_EQ(script.messages[2].text, u"オーバーフローしました。");
    EXPECT_EQ(ran(), u"");
    actions_.connectAction(u"mnuFileNew", note("new"));
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(ran(), u"new");
}

TEST_F(ActionsTest, MakeMenusFromLists) {
    QMenu &files = menu(u"mnuFileMRU");
    QString chosen;
    const auto open = [&](int index, const QString &tag) {
        chosen = QStringLiteral("%1 %2").arg(index).arg(tag);
        // As the program does after opening a file.
        menus_.setElements(u"mnuFileMRUFiles", {{QStringLiteral("only"), tag}}, {}, 1);
    };
    EXPECT_EQ(enabledIn(files), u"") << "(なし) does nothing";
    const std::vector<ActionMenus::Element> list{{QStringLiteral("&1 a"), QStringLiteral("/a")},
                                                 {QStringLiteral("&2 b"), QStringLiteral("/b")}};
    menus_.setElements(u"mnuFileMRUFiles", list, open, 1);
    EXPECT_EQ(enabledIn(files), u"mnuFileMRUFiles(1) mnuFileMRUFiles(2)");
    EXPECT_FALSE(action(u"mnuFileMRUFiles").isVisible());
    files.actions()[2]->trigger();
    EXPECT_EQ(chosen, u"2 /b");
    EXPECT_EQ(files.actions().size(), 2);
    menus_.setElements(u"mnuFileMRUFiles", {}, open, 1);
    EXPECT_EQ(files.actions().size(), 1);
    EXPECT_TRUE(action(u"mnuFileMRUFiles").isVisible());
    EXPECT_EQ(action(u"mnuFileMRUFiles").text(), u"(なし)");

    const auto edit = [&](int index, const QString &tag) {
        chosen = QStringLiteral("%1 %2").arg(index).arg(tag);
    };
    menus_.setElements(u"mnuToolOpen", list, edit, 0);
    EXPECT_EQ(enabledIn(menu(u"mnuToolOpenEditor")), u"mnuToolOpen mnuToolOpen(1)");
    EXPECT_EQ(action(u"mnuToolOpen").text(), u"&1 a");
    action(u"mnuToolOpen").trigger();
    EXPECT_EQ(chosen, u"0 /a");
    EXPECT_THROW(menus_.setElements(u"mnuFile", list, edit, 0), std::out_of_range);
}

TEST_F(ActionsTest, HaveToolBarButtonsOfTheirOwn) {
    QToolBar bar;
    QToolBar moveBar;
    actions_.fillToolBar(bar);
    actions_.fillMoveToolBar(moveBar);
    QStringList names;
    for (QAction *entry : bar.actions())
        names.append(entry->isSeparator() ? QStringLiteral("|") : entry->text());
    EXPECT_EQ(names.join(u' '), u"新規作成 開く 保存 | 印刷 プレビュー | 切り取り コピー 貼り付け "
                                "削除 | 検索 | 元に戻す やり直す | 検証 |");
    actions_.connectAction(u"mnuFileSave", note("save"), [] { return false; });
    actions_.connectToolButton(u"move", note("move"));
    EXPECT_FALSE(actions_.toolButtonEnabled(u"save"));
    EXPECT_TRUE(actions_.toolButtonEnabled(u"new"));
    actions_.setToolButtonEnabled(u"save", true);
    EXPECT_EQ(enabledIn(menu(u"mnuFile")), u"") << "the states are apart";
    qobject_cast<QToolButton *>(bar.widgetForAction(bar.actions()[2]))->click();
    qobject_cast<QToolButton *>(moveBar.widgetForAction(moveBar.actions()[0]))->click();
    EXPECT_EQ(ran(), u"save move");
    EXPECT_EQ(bar.actions()[2]->toolTip(), u"保存(Ctrl+S)");
    EXPECT_THROW(actions_.setToolButtonEnabled(u"cboPath", true), std::out_of_range);
}

} // namespace
