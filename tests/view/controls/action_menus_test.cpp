#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
#include "tests/support/patience.h"
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
using quillon::test::Patience;

namespace {

using Kind = ActionKind;

const std::vector<ActionRow> Rows = {
    {.name = u"file", .caption = u"File", .kind = Kind::Menu},
    {u"new", u"file", u"新規作成(&N)", u"Ctrl+N"},
    {u"open", u"file", u"Open", u"Ctrl+O"},
    {u"save", u"file", u"Save", u"Ctrl+S"},
    {.name = u"line", .menu = u"file", .kind = Kind::Separator},
    {.name = u"recent", .menu = u"file", .caption = u"Recent", .kind = Kind::Menu},
    {.name = u"recentFiles", .menu = u"recent", .caption = u"(なし)", .kind = Kind::Array},
    {u"quit", u"file", u"Quit\tAlt+F4", u"Alt+F4", KeyContext::WindowManager},
    {.name = u"node", .caption = u"Node", .kind = Kind::Menu},
    {u"up", u"node", u"&Up"},
    {u"down", u"node", u"Down (&U)"},
    {u"delete", u"node", u"Delete\tCtrl+D", u"Ctrl+D", KeyContext::Tree},
    {u"rename", u"node", u"Rename", u"F2", KeyContext::Tree},
    {.name = u"tool", .caption = u"Tool", .kind = Kind::Menu},
    {u"preview", u"tool", u"Preview", u"F5"},
    {u"previewSel", u"tool", u"Preview node", u"Ctrl+F5"},
    {.name = u"text", .menu = u"tool", .caption = u"Text", .checkable = true, .checked = true},
    {.name = u"editors", .menu = u"tool", .caption = u"Editors", .kind = Kind::Menu},
    {.name = u"editor", .menu = u"editors", .caption = u"Editor", .kind = Kind::Array},
    {.name = u"hidden", .caption = u"Hidden", .kind = Kind::Menu, .visible = false},
    {.name = u"context", .menu = u"node", .kind = Kind::ContextMenu},
    {.name = u"toParent", .menu = u"context", .caption = u"&Parent", .hidesWhenDisabled = true},
    {.name = u"move"},
};

class ActionsTest : public testing::Test {
protected:
    ActionsTest() : menus_(*new ActionMenus(actions_, *window_.menuBar())) {
        window_.show();
        window_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window_, Patience));
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

    ActionSet actions_{Rows};
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
    EXPECT_EQ(shown.join(u", "), u"file 6, node 4, tool 4");
    EXPECT_EQ(menu(u"recent").actions().size(), 1);
    EXPECT_EQ(action(u"quit").text(), u"Quit\tAlt+F4");
    EXPECT_TRUE(action(u"quit").shortcut().isEmpty()) << "it stands in the caption";
    EXPECT_EQ(action(u"save").shortcut().toString(), u"Ctrl+S");
    EXPECT_TRUE(action(u"text").isChecked());
    EXPECT_TRUE(action(u"line").isSeparator());
    EXPECT_EQ(menu(u"context").actions(), menu(u"node").actions() << &action(u"toParent"));
    EXPECT_THROW(actions_.action(u"none"), std::out_of_range);
    EXPECT_THROW(menus_.onMenuOpening(u"save", [] {}), std::out_of_range);
}

TEST_F(ActionsTest, AskForTheirStatesWhenTheirMenuOpens) {
    bool can = false;
    actions_.connectAction(u"up", note("up"), [&] { return can; });
    actions_.connectAction(u"down", note("down"), [&] { return !can; });
    actions_.connectAction(u"delete", note("delete"));
    actions_.connectAction(u"editors", {}, [&] { return can; });
    menus_.onMenuOpening(u"node", [&] { can = !can; });
    menus_.onMenuOpening(u"node", [&] { action(u"delete").setEnabled(can); });
    for (QMenu *opened : {&menu(u"node"), &menu(u"context")}) {
        EXPECT_EQ(enabledIn(*opened), u"up delete");
        EXPECT_EQ(enabledIn(*opened), u"down");
    }
    // The key of an entry that does not apply goes to the one that shares it.
    for (const char *name : {"up", "down"}) {
        menu(u"node").popup(QPoint(0, 0));
        QTest::keyClick(&menu(u"node"), Qt::Key_U);
        EXPECT_EQ(ran(), name);
    }
    enabledIn(menu(u"tool"));
    EXPECT_FALSE(action(u"editors").isEnabled());
}

TEST_F(ActionsTest, HideInAContextMenuWhatDoesNotApply) {
    bool can = false;
    actions_.connectAction(u"toParent", note("toParent"), [&] { return can; });
    EXPECT_EQ(enabledIn(menu(u"context")), u"");
    EXPECT_FALSE(action(u"toParent").isVisible());
    can = true;
    EXPECT_EQ(enabledIn(menu(u"context")), u"toParent");
    EXPECT_EQ(action(u"toParent").text(), u"&Parent");
}

TEST_F(ActionsTest, RunByKeyWhateverTheirMenuShowedLast) {
    bool can = false;
    actions_.connectAction(u"save", note("save"), [&] { return can; });
    actions_.connectAction(u"preview", note("preview"));
    actions_.connectAction(u"previewSel", note("previewSel"));
    press(Qt::Key_F5);
    press(Qt::Key_F5, Qt::ControlModifier);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(ran(), u"preview previewSel");
    EXPECT_EQ(enabledIn(menu(u"file")), u"");
    can = true;
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(ran(), u"save");
    EXPECT_EQ(enabledIn(menu(u"file")), u"save");
    can = false;
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(ran(), u"");
}

TEST_F(ActionsTest, LeaveTheKeysOfTheTreeToIt) {
    for (const ActionRow &row : Rows) {
        if (row.keyContext == KeyContext::Window)
            continue;
        actions_.connectAction(row.name, note("stolen"));
        const QKeySequence key(row.key.toString());
        press(key[0].key(), key[0].keyboardModifiers());
        EXPECT_EQ(ran(), u"") << qPrintable(row.name.toString());
    }
    EXPECT_EQ(action(u"rename").shortcut().toString(), u"F2") << "shown in the menu";
}

TEST_F(ActionsTest, SurviveErrors) {
    test::ScriptedDialogs script;
    actions_.connectAction(u"new", [] { runtime::raise(53); });
    actions_.connectAction(u"open", note("open"), []() -> bool { runtime::raise(6); });
    for (int i = 0; i < 3; ++i)
        script.answerMessage(ui::message_answer::Ok);
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(enabledIn(menu(u"file")), u"new");
    press(Qt::Key_O, Qt::ControlModifier);
    ASSERT_EQ(script.messages.size(), 3u);
    EXPECT_EQ(script.messages[0].text, u"ファイルが見つかりません。");
    EXPECT_EQ(script.messages[2].text, u"オーバーフローしました。");
    EXPECT_EQ(ran(), u"");
    actions_.connectAction(u"new", note("new"));
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(ran(), u"new");
}

TEST_F(ActionsTest, MakeMenusFromLists) {
    QMenu &files = menu(u"recent");
    QString chosen;
    const auto open = [&](int index, const QString &tag) {
        chosen = QStringLiteral("%1 %2").arg(index).arg(tag);
        // As the program does after opening a file.
        menus_.setElements(u"recentFiles", {{QStringLiteral("only"), tag}}, {}, 1);
    };
    EXPECT_EQ(enabledIn(files), u"") << "(なし) does nothing";
    const std::vector<ActionMenus::Element> list{{QStringLiteral("&1 a"), QStringLiteral("/a")},
                                                 {QStringLiteral("&2 b"), QStringLiteral("/b")}};
    menus_.setElements(u"recentFiles", list, open, 1);
    EXPECT_EQ(enabledIn(files), u"recentFiles(1) recentFiles(2)");
    EXPECT_FALSE(action(u"recentFiles").isVisible());
    files.actions()[2]->trigger();
    EXPECT_EQ(chosen, u"2 /b");
    EXPECT_EQ(files.actions().size(), 2);
    menus_.setElements(u"recentFiles", {}, open, 1);
    EXPECT_EQ(files.actions().size(), 1);
    EXPECT_TRUE(action(u"recentFiles").isVisible());
    EXPECT_EQ(action(u"recentFiles").text(), u"(なし)");

    const auto edit = [&](int index, const QString &tag) {
        chosen = QStringLiteral("%1 %2").arg(index).arg(tag);
    };
    menus_.setElements(u"editor", list, edit, 0);
    EXPECT_EQ(enabledIn(menu(u"editors")), u"editor editor(1)");
    EXPECT_EQ(action(u"editor").text(), u"&1 a");
    action(u"editor").trigger();
    EXPECT_EQ(chosen, u"0 /a");
    EXPECT_THROW(menus_.setElements(u"file", list, edit, 0), std::out_of_range);
}

TEST_F(ActionsTest, HaveToolBarButtonsOfTheirOwn) {
    actions_.connectAction(u"save", note("save"), [] { return false; });
    actions_.connectAction(u"move", note("move"));
    actions_.addButton(u"delete", {u"delete", u"Delete (Ctrl+D)", 2, 1});
    actions_.addButton(u"save", {u"save", u"Save (Ctrl+S)", 1, 2});
    actions_.addButton(u"new", {u"new", u"新規作成(Ctrl+N)", 1, 1});
    actions_.addButton(u"move", {u"move", u"Move", 3, 1});
    actions_.connectAction(u"new", note("new"));
    QToolBar bar;
    QToolBar moveBar;
    actions_.fillToolBar(bar, 1, 2);
    actions_.fillToolBar(moveBar, 3, 3);
    QStringList names;
    for (const QAction *entry : bar.actions())
        names.append(entry->isSeparator() ? QStringLiteral("|") : entry->objectName());
    EXPECT_EQ(names.join(u' '), u"new save | delete");
    EXPECT_EQ(bar.actions()[0]->text(), u"新規作成");
    EXPECT_EQ(bar.actions()[0]->toolTip(), u"新規作成(Ctrl+N)");
    EXPECT_FALSE(bar.actions()[0]->icon().isNull());
    EXPECT_FALSE(action(u"new").icon().isNull()) << "the menu shows it, too";
    EXPECT_TRUE(actions_.toolButtonEnabled(u"new"));
    EXPECT_FALSE(actions_.toolButtonEnabled(u"save"));
    actions_.setToolButtonEnabled(u"save", true);
    actions_.setToolButtonEnabled(u"delete", true);
    EXPECT_FALSE(actions_.toolButtonEnabled(u"delete")) << "there is nothing to run";
    EXPECT_EQ(enabledIn(menu(u"file")), u"new") << "the states are apart";
    qobject_cast<QToolButton *>(bar.widgetForAction(bar.actions()[1]))->click();
    qobject_cast<QToolButton *>(moveBar.widgetForAction(moveBar.actions()[0]))->click();
    EXPECT_EQ(ran(), u"save move");
    EXPECT_THROW(actions_.setToolButtonEnabled(u"cboPath", true), std::out_of_range);
}

} // namespace
