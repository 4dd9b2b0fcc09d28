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

TEST_F(CommandsWindow, ALargeFileIsSeenWhileItIsRead) {
    const QByteArray large = "<big>" + QByteArray("<row k='1'>v</row>").repeated(250'000);
    auto *const first = form->findChild<controls::TreeView *>(QStringLiteral("firstScreen"));
    const auto isShown = [&] { return !first->isHidden(); };
    int times = 0;
    QStringList seen;
    QObject::connect(&editor().loader, &document::DocumentLoader::opening, [&] {
        ++times;
        seen.clear();
        for (int row = 0; isShown() && row < 4; ++row)
            seen += first->tree().nodes().Item(row + 1).Text();
        EXPECT_FALSE(isShown() && first->hasFocus());
    });
    open("<r><kept><deep/></kept></r>");
    open(large + "</big>");
    EXPECT_EQ(times, 1);
    EXPECT_TRUE(seen.isEmpty()) << "a window that is not seen stays so";
    EXPECT_FALSE(form->isVisible());
    QObject::connect(form.get(), &app::frmMain::opensLargeFile, form.get(), &QWidget::show);
    open(large + "</big>");
    EXPECT_FALSE(seen.isEmpty()) << "shown by who wants it to be seen";
    times = 1;

    form->activateWindow();
    open("<r><kept><deep/></kept></r>");
    tree().nodes().Item(3).setExpanded(true);
    select("deep");
    txtEdit().setFocus();
    const QString pane = txtEdit().Text();
    for (const char *end : {"</wrong>", "</big>"}) {
        const bool isGood = end == QByteArray("</big>");
        if (!isGood)
            dialogs.answerMessage(ui::message_answer::Ok);
        EXPECT_EQ(OpenFile(write("large.xml", large + end)), isGood);
        EXPECT_EQ(seen, QStringList({"#document", "big", "row", "k=\"1\""})) << end;
        EXPECT_FALSE(isShown());
        EXPECT_EQ(first->tree().nodes().Count(), 0);
        if (isGood)
            continue;
        EXPECT_EQ(expanded(), QStringList({"#document", "r", "kept"}));
        EXPECT_EQ(tree().SelectedItem().Text(), "deep");
        EXPECT_EQ(txtEdit().Text(), pane);
    }
    EXPECT_EQ(times, 3);
    EXPECT_EQ(tree().nodes().Item(2).Text(), "big");
    EXPECT_EQ(xml(), large + "</big>");
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
