#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QLineEdit>
#include <QTest>

namespace quillon::test {

namespace {

/// What the controls of a window have to do with the commands on documents.
class CommandsWindow : public EditorWindow {};

TEST_F(CommandsWindow, SavingIsOfferedWhileThereIsADocument) {
    editor().commands.mnuFileNew_Click();
    EXPECT_TRUE(button(u"save"));
    editor().commands.mnuFileClose_Click();
    EXPECT_FALSE(button(u"save"));
}

TEST_F(CommandsWindow, AFailureIsShownAndTheProgramGoesOn) {
    open("<r/>");
    state().m_FileName = path("gone/doc.xml");
    dialogs.answerMessage(ui::message_answer::Ok);
    form->actions().action(u"mnuFileSave")->trigger();
    EXPECT_EQ(dialogs.messages.back().style, 48);
    EXPECT_TRUE(dialogs.messages.back().text.contains("フォルダー"));
}

TEST_F(CommandsWindow, TheKeyboardReachesTheTreeOfANewDocument) {
    form->show();
    form->activateWindow();
    txtEdit().setFocus();
    editor().commands.mnuFileNew_Click();
    ASSERT_TRUE(QTest::qWaitFor([this] { return tvw().hasFocus(); }, Patience));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(tree().SelectedItem(), tree().nodes().Item(1));
}

TEST_F(CommandsWindow, ACaptionBeingTypedBelongsToTheDocumentThatIsSaved) {
    form->show();
    open("<r><old/></r>");
    select("old");
    tree().StartLabelEdit();
    QTest::keyClicks(tvw().viewport()->findChild<QLineEdit *>(), "new");
    form->actions().action(u"mnuFileSave")->trigger();
    EXPECT_EQ(read("doc.xml"), "<r><new/></r>");
    // The first editor goes.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    tree().StartLabelEdit();
    QTest::keyClicks(tvw().viewport()->findChild<QLineEdit *>(), "newer");
    dialogs.answerMessage(ui::message_answer::Cancel);
    form->close();
    EXPECT_EQ(dialogs.messages.back().text, "保存しますか？");
    EXPECT_EQ(xml(), "<r><newer/></r>");
}

TEST_F(CommandsWindow, ACaptionBeingTypedIsKeptWhenAnotherProgramOpensAFile) {
    form->show();
    open("<r><old/></r>");
    select("old");
    tree().StartLabelEdit();
    QTest::keyClicks(tvw().viewport()->findChild<QLineEdit *>(), "new");
    editor().commands.openUnasked(write("other.xml", "<other/>"));
    EXPECT_EQ(xml(), "<other/>");
    const QStringList kept = QDir(path("Temp/recovery")).entryList({"*.xml"}, QDir::Files);
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(read("Temp/recovery/" + kept[0]), "<r><new/></r>");
}

} // namespace

} // namespace quillon::test
