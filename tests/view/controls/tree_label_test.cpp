#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
#include "tests/support/patience.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/view/controls/tree_view_fixture.h"

#include <functional>

namespace quillon::test {

namespace {

TEST_F(TreeViewTest, LabelEditsEndByKeyAndFocus) {
    const auto startByF2 = [&] { press(Qt::Key_F2); };
    const auto startByCode = [&] { tree_.StartLabelEdit(); };
    const auto startByClick = [&] {
        QApplication::setDoubleClickInterval(1);
        click(selected());
        EXPECT_TRUE(QTest::qWaitFor([&] { return editor() != nullptr; }, Patience));
        clicks_.clear();
    };
    const auto endByCode = [&] {
        QTest::keyClicks(editor(), "code");
        tree_.endLabelEdit();
    };
    for (const std::function<void()> &start :
         {std::function<void()>(startByF2), std::function<void()>(startByCode),
          std::function<void()>(startByClick)}) {
        named("a2").setText("a2\r\n ");
        tree_.setSelectedItem(named("a2\r\n "));
        start();
        ASSERT_NE(editor(), nullptr);
        EXPECT_EQ(editor()->text(), "a2\r\n ");
        EXPECT_EQ(editor()->selectedText(), "a2\r\n ");
        EXPECT_EQ(editor()->accessibleName(), "名前または値の編集");
        enter("new", Qt::Key_Return);
        EXPECT_EQ(selected(), "new");
        start();
        enter("newer", Qt::Key_Escape);
        EXPECT_EQ(selected(), "new");
        start();
        enter("tab", Qt::Key_Tab);
        EXPECT_EQ(selected(), "tab");
        start();
        QTest::keyClicks(editor(), "focus");
        view_.setFocus();
        EXPECT_EQ(selected(), "focus");
        tree_.StartLabelEdit();
        endByCode();
        EXPECT_FALSE(view_.isEditingLabel());
        EXPECT_EQ(selected(), "code");
        tree_.SelectedItem().setText("a2");
        settle();
    }
    EXPECT_EQ(clicks_, QStringList());
}

TEST_F(TreeViewTest, LabelEditHooksDecide) {
    bool allowed = false;
    QStringList asked;
    tree_.beforeLabelEdit = [&](const items::TreeItem &item) {
        asked << item.Text();
        return allowed;
    };
    tree_.labelEditText = [](const items::TreeItem &item) { return item.Text().toUpper(); };
    tree_.afterLabelEdit = [&](const items::TreeItem &item, QString &text) {
        EXPECT_EQ(editor(), nullptr);
        if (text == "remove")
            tree_.nodes().Remove(item);
        text += '!';
        return !text.startsWith("bad");
    };
    select("a1");
    tree_.StartLabelEdit();
    press(Qt::Key_F2);
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(asked, (QStringList{"a1", "a1"}));
    const auto before = std::exchange(tree_.beforeLabelEdit, [](const items::TreeItem &) -> bool {
        quillon::runtime::raise(quillon::runtime::error_number::Overflow);
    });
    quillon::test::ScriptedDialogs dialogs;
    dialogs.answerMessage(ui::message_answer::Ok);
    tree_.StartLabelEdit();
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(dialogs.messages.size(), 1U) << "an error is shown, and refuses";
    tree_.beforeLabelEdit = before;

    allowed = true;
    tree_.StartLabelEdit();
    EXPECT_EQ(editor()->text(), "A1");
    EXPECT_EQ(editor()->selectedText(), "A1");
    named("a1").setBold(true);
    enter("good", Qt::Key_Return);
    EXPECT_EQ(selected(), "good!");
    tree_.StartLabelEdit();
    QTest::keyClicks(editor(), "b");
    tree_.SelectedItem().setBold(false);
    QApplication::processEvents();
    enter("ad", Qt::Key_Return);
    EXPECT_EQ(selected(), "good!") << "a change of the item meanwhile keeps what was typed";
    tree_.StartLabelEdit();
    enter("remove", Qt::Key_Return);
    EXPECT_EQ(selected(), "a2");
    EXPECT_EQ(asked.size(), 5);

    tree_.labelEditText = [](const items::TreeItem &item) { return item.Text(); };
    tree_.SelectedItem().setText(QString(40'000, 'x'));
    tree_.StartLabelEdit();
    EXPECT_EQ(editor()->text(), tree_.SelectedItem().Text());
    enter("", Qt::Key_Escape);
    tree_.StartLabelEdit();
    tree_.nodes().Clear();
    QApplication::processEvents();
    EXPECT_EQ(editor(), nullptr);
    tree_.StartLabelEdit();
    EXPECT_EQ(asked.size(), 7);
}

} // namespace

} // namespace quillon::test
