#include "tests/support/editor_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>

namespace quillon::test {

namespace {

/// What the controls of a window show and take while a document is edited.
class EditingWindow : public EditorWindow {
protected:
    QString selected() { return tree().SelectedItem().Text(); }
};

TEST_F(EditingWindow, ButtonsFollowTheNodeShown) {
    open("<!--note--><doc><a/></doc>");
    QGuiApplication::clipboard()->setText("text");
    const auto buttons = [&] {
        QString out;
        for (const QStringView key : {u"copy", u"cut", u"delete", u"paste"})
            out += button(key) ? '1' : '0';
        return out;
    };
    select("#document");
    EXPECT_EQ(buttons(), "0001");
    select("a");
    EXPECT_EQ(buttons(), "1111");
    select("note");
    EXPECT_EQ(buttons(), "1110");
    state().m_ReadOnly = true;
    select("a");
    EXPECT_EQ(buttons(), "1000");
    state().m_ReadOnly = false;
    QGuiApplication::clipboard()->clear();
    select("a");
    EXPECT_EQ(buttons(), "1110");
}

TEST_F(EditingWindow, ALabelIsEditedWithTheKeyboard) {
    form->show();
    open("<doc id='1'>text</doc>");
    form->activateWindow();
    tvw().setFocus();
    select("id=\"1\"");
    const auto edit = [&] {
        QTest::keyClick(&tvw(), Qt::Key_F2);
        return tvw().findChild<QLineEdit *>();
    };
    QLineEdit *line = edit();
    ASSERT_TRUE(line);
    EXPECT_EQ(line->text(), "id");
    EXPECT_EQ(line->selectedText(), "id");
    QTest::keyClicks(line, "key");
    QTest::keyClick(line, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(xml(), "<doc key='1'>text</doc>");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    line = edit();
    ASSERT_TRUE(line);
    QTest::keyClicks(line, "dropped");
    QTest::keyClick(line, Qt::Key_Escape);
    EXPECT_EQ(xml(), "<doc key='1'>text</doc>");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    select("text");
    line = edit();
    ASSERT_TRUE(line);
    QTest::keyClicks(line, "changed");
    txtEdit().setFocus();
    EXPECT_EQ(xml(), "<doc key='1'>changed</doc>") << "losing the focus commits";
    EXPECT_EQ(txtEdit().Text(), "changed");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    // Leaving an editor unchanged edits nothing: the children keep their order.
    open("<doc><a/><b/></doc>");
    tvw().setFocus();
    select("doc");
    line = edit();
    ASSERT_TRUE(line);
    QTest::keyClick(line, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(xml(), "<doc><a/><b/></doc>");
    EXPECT_FALSE(state().m_Modified);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // What was edited is renamed although another item has been clicked meanwhile.
    line = edit();
    ASSERT_TRUE(line);
    QTest::keyClicks(line, "top");
    QTest::mouseClick(tvw().viewport(), Qt::LeftButton, {},
                      tvw().visualRect(tree().nodes().indexOf(item("b"))).center());
    QCoreApplication::processEvents();
    EXPECT_EQ(xml(), "<top><b/><a/></top>");
    EXPECT_EQ(selected(), "b");
    EXPECT_EQ(txtEdit().Text(), "<b/>");
}

} // namespace

} // namespace quillon::test
