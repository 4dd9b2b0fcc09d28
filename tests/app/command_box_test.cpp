#include "app/main_window/command_list.h"
#include "app/main_window/command_table.h"
#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QAbstractItemModel>
#include <QAccessible>
#include <QAction>
#include <QLineEdit>
#include <QTest>
#include <QTreeView>

#include <algorithm>
#include <set>

namespace quillon::test {

namespace {

/// The box that finds commands, opened by its key.
class CommandBoxTest : public EditorWindow {
protected:
    void show() {
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get(), Patience));
        tvw().setFocus();
    }
    void openBox(const QString &typed = {}) {
        QTest::keyClick(&tvw(), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_TRUE(field().hasFocus());
        field().insert(typed);
    }
    QWidget &box() { return *form->findChild<QWidget *>("commandBox"); }
    QLineEdit &field() { return *form->findChild<QLineEdit *>("commandField"); }
    QTreeView &list() { return *form->findChild<QTreeView *>("commandList"); }
    QString remark() { return form->findChild<QLabel *>("commandRemark")->text(); }
    QString selectedText(int role = Qt::DisplayRole) {
        return list().currentIndex().siblingAtColumn(0).data(role).toString();
    }
    void press(Qt::Key key) { QTest::keyClick(&field(), key); }
};

TEST_F(CommandBoxTest, RunsWhatIsChosenWhereTheKeyboardWas) {
    show();
    openBox("ctrl+n");
    EXPECT_EQ(selectedText(), "新規作成");
    QWidget *focus = nullptr;
    bool boxWasShown = true;
    form->actions().connectAction(u"mnuFileNew", [&] {
        focus = QApplication::focusWidget();
        boxWasShown = box().isVisible();
    });
    press(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return focus != nullptr; }, Patience));
    EXPECT_EQ(focus, &tvw());
    EXPECT_FALSE(boxWasShown) << "a box of the command's own needs the keyboard";

    openBox();
    EXPECT_EQ(selectedText(), "新規作成") << "the latest comes first";
    press(Qt::Key_Escape);
    EXPECT_FALSE(box().isVisible());
    EXPECT_TRUE(tvw().hasFocus());
}

TEST_F(CommandBoxTest, SaysWhatCannotBeRunNow) {
    show();
    openBox("再読込");
    EXPECT_EQ(selectedText(Qt::AccessibleTextRole), "再読込、ファイル、今は実行できません");
    bool ran = false;
    form->actions().connectAction(u"mnuFileReload", [&] { ran = true; });
    press(Qt::Key_Return);
    EXPECT_TRUE(box().isVisible());
    EXPECT_EQ(remark(), "「再読込」は今は実行できません。");
    EXPECT_FALSE(ran);
    field().insert("zz");
    EXPECT_EQ(remark(), "見つかりませんでした。");
    press(Qt::Key_Return);
    cboPath().setFocus();
    EXPECT_FALSE(box().isVisible()) << "it does not stay when the keyboard goes elsewhere";
}

TEST_F(CommandBoxTest, HasItsKeysForItself) {
    show();
    openBox();
    const int first = list().currentIndex().row();
    press(Qt::Key_Down);
    EXPECT_EQ(list().currentIndex().row(), first + 1);
    press(Qt::Key_Up);
    EXPECT_EQ(list().currentIndex().row(), first);
    EXPECT_TRUE(field().hasFocus());
    form->resize(400, 300);
    EXPECT_TRUE(form->rect().contains(box().geometry())) << "it fits a small window";
}

TEST(CommandList, HasEveryCommandOnce) {
    const help::Commands commands = app::commandList();
    std::set<std::pair<QString, QString>> names;
    for (const help::Command &command : commands) {
        EXPECT_TRUE(names.emplace(command.menu, command.title).second)
            << command.name.toStdString();
        EXPECT_FALSE(command.title.contains('&')) << command.title.toStdString();
        EXPECT_NE(command.title, command.name) << "a command without a menu needs a name";
    }
    for (const app::CommandRow &row : app::commandTable()) {
        if (!row.run)
            continue;
        const bool isThere = std::ranges::any_of(commands, [&](const help::Command &command) {
            return command.name == row.entry.name ||
                   (!row.entry.caption.isEmpty() &&
                    row.entry.caption.toString().remove('&').startsWith(command.title.left(3)));
        });
        EXPECT_TRUE(isThere || row.entry.name.endsWith(u"ByKey"))
            << row.entry.name.toString().toStdString();
    }
    const auto moveUp = std::ranges::find(commands, QString("mnuNodeMoveUp"), &help::Command::name);
    ASSERT_NE(moveUp, commands.end());
    EXPECT_EQ(moveUp->key, "Alt+↑") << "the key of a row that stands in no menu";
    EXPECT_TRUE(moveUp->isKeyOfTree);
}

} // namespace

} // namespace quillon::test
