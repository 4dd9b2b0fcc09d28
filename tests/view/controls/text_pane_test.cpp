#include "tests/support/patience.h"
#include "view/controls/text_pane.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon::test {

namespace {

using controls::TextBox;
using controls::TextPane;

class TextPaneTest : public testing::Test {
protected:
    TextPaneTest() {
        for (const char *key : {"Ctrl+F", "F3", "Shift+F3"}) {
            auto *shortcut = new QShortcut(QKeySequence(QLatin1String(key)), &window);
            QObject::connect(shortcut, &QShortcut::activated, [this] { ++others; });
        }
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window, Patience));
        box.setFocus();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void open() { press(Qt::Key_F, Qt::ControlModifier); }
    QLineEdit &field() { return *window.findChild<QLineEdit *>("findField"); }
    QString message() { return window.findChild<QLabel *>("findMessage")->text(); }
    /// Where the selection starts, and what is selected.
    QString found() { return QString::number(box.SelStart()) + box.selectedText(); }

    /// What the window's own commands have got of the keys.
    int others = 0;
    TextBox &box = *new TextBox;
    TextPane window{box};
};

TEST_F(TextPaneTest, FindsWhatIsTypedAndGoesOn) {
    box.setText(QString("ab Ab\nあい ab"));
    EXPECT_FALSE(field().isVisible());
    open();
    ASSERT_TRUE(field().hasFocus());
    QTest::keyClicks(&field(), "a");
    EXPECT_EQ(found(), "0a");
    QTest::keyClicks(&field(), "b");
    EXPECT_EQ(found(), "0ab") << "more of the same place";
    press(Qt::Key_F3);
    EXPECT_EQ(found(), "3Ab");
    press(Qt::Key_Return);
    EXPECT_EQ(found(), "10ab") << "a line end counts two, a kana one";
    EXPECT_EQ(message(), "");
    press(Qt::Key_F3);
    EXPECT_EQ(found(), "0ab");
    EXPECT_EQ(message(), "先頭に戻りました。");
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(found(), "10ab");
    EXPECT_EQ(message(), "末尾に戻りました。");
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(found(), "3Ab");
    window.findChild<QCheckBox *>()->click();
    EXPECT_EQ(found(), "10ab");
    QTest::keyClicks(&field(), "x");
    EXPECT_EQ(message(), "見つかりませんでした。");
    press(Qt::Key_Backspace);
    EXPECT_EQ(message(), "");
    EXPECT_EQ(others, 0);
}

TEST_F(TextPaneTest, TheKeysGoOnWithoutTheBarAndOpenItWhereThereIsNothingToFind) {
    box.setText(QString("one two one"));
    press(Qt::Key_F3);
    EXPECT_TRUE(field().hasFocus());
    QTest::keyClicks(&field(), "one");
    press(Qt::Key_Escape);
    EXPECT_FALSE(field().isVisible());
    EXPECT_TRUE(box.hasFocus());
    press(Qt::Key_F3);
    EXPECT_EQ(found(), "8one");
    box.setText(QString("another text"));
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_TRUE(field().isVisible()) << "or nobody would know";
    EXPECT_EQ(message(), "見つかりませんでした。");
    box.setFocus();
    box.select(8, 4);
    open();
    EXPECT_EQ(field().text(), "text") << "what is selected is what is meant";
    EXPECT_EQ(field().selectedText(), "text");
    press(Qt::Key_Return);
    EXPECT_EQ(found(), "8text");
    EXPECT_EQ(others, 0);
}

TEST_F(TextPaneTest, ALockedTextCanBeSearched) {
    box.setText(QString("x.*y [a"));
    box.setLocked(true);
    open();
    QTest::keyClicks(&field(), ".*");
    EXPECT_EQ(found(), "1.*") << "a text and no pattern";
    press(Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field(), "[A");
    EXPECT_EQ(found(), "5[a");
    EXPECT_EQ(box.Text(), "x.*y [a");
}

} // namespace

} // namespace quillon::test
