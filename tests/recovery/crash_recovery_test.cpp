#include "tests/recovery/recovery_fixture.h"
#include "tests/support/patience.h"

namespace quillon::test {

namespace {

TEST_F(CrashRecoveryTest, WhatWasNotSavedComesBackAsADocumentWithoutAFile) {
    open("\xEF\xBB\xBF<r>\r\n <a>old</a></r>");
    EXPECT_EQ(files(kept), QStringList()) << "nothing has been changed";
    change("old", "new");
    change("new", "newer");
    crash();
    restart();
    dialogs.answerMessage(ui::message_answer::Cancel);
    recovery->offer();
    EXPECT_EQ(xml(), "") << "cancelled, it waits for another time";
    dialogs.answerMessage(ui::message_answer::Yes);
    recovery->offer();
    EXPECT_TRUE(dialogs.messages.back().text.startsWith(
        "前回保存されなかった変更があります。復元しますか？\n\n" + path("doc.xml")));
    EXPECT_EQ(dialogs.messages.back().style, 35);
    EXPECT_EQ(title(), "doc.xml (復元) * - Quillon XML Editor");
    EXPECT_EQ(state().m_DOM.serialize(), "\xEF\xBB\xBF<r>\r\n <a>newer</a></r>");
    EXPECT_TRUE(item("newer"));
    EXPECT_EQ(window->opened, 1);
    EXPECT_FALSE(editor().history.CanUndo());
    EXPECT_FALSE(editor().commands.canUndoAll());
    EXPECT_EQ(editor().recentFiles.read(), QStringList(path("doc.xml")));

    EXPECT_EQ(files(left).size(), 3) << "it stays until the document is saved";
    dialogs.answerFile({path("saved.xml"), 0});
    editor().commands.mnuFileSave_Click();
    EXPECT_EQ(read("saved.xml"), "\xEF\xBB\xBF<r>\r\n <a>newer</a></r>");
    EXPECT_EQ(read("doc.xml"), "\xEF\xBB\xBF<r>\r\n <a>old</a></r>");
    EXPECT_FALSE(QFileInfo::exists(left.filePath("recovery")));
}

TEST_F(CrashRecoveryTest, UndoingAndRedoingReachTheCopy) {
    open("<r>old</r>");
    change("old", "new");
    change("new", "newer");
    const QString copy = "kept/recovery/" + files(kept).filter(".xml").value(0);
    QSignalSpy written(recovery.get(), &CrashRecovery::written);
    editor().history.UndoCommand();
    ASSERT_TRUE(written.wait(Patience));
    EXPECT_EQ(read(copy), "<r>new</r>");
    editor().history.RedoCommand();
    ASSERT_TRUE(written.wait(Patience));
    EXPECT_EQ(read(copy), "<r>newer</r>");
}

TEST_F(CrashRecoveryTest, TextThatDoesNotParseComesBackInThePane) {
    open("<r>t<a/><!--c--><b>2</b></r>");
    change("b", "<b>2</b");
    EXPECT_FALSE(state().m_Modified);
    crash();
    restart();
    dialogs.answerMessage(ui::message_answer::Yes);
    recovery->offer();
    EXPECT_EQ(xml(), "<r>t<a/><!--c--><b>2</b></r>");
    EXPECT_EQ(tree().SelectedItem(), item("b"));
    EXPECT_EQ(txtEdit().Text(), "<b>2</b");
    EXPECT_EQ(status(), "構文エラー");
    dialogs.answerMessage(ui::message_answer::Yes);
    EXPECT_TRUE(editor().selection.mayLeavePane());
    EXPECT_EQ(txtEdit().Text(), "<b>2</b>");

    // All that there is of a document that is still empty.
    state().m_Modified = false;
    recovery = start(kept, soon);
    editor().commands.mnuFileNew_Click();
    change("#document", "<!--n--><r>");
    QDir(left.path()).removeRecursively();
    crash();
    restart();
    dialogs.answerMessage(ui::message_answer::Yes);
    recovery->offer();
    EXPECT_EQ(txtEdit().Text(), "<!--n--><r>");
    type("<!--n--><r/>");
    EXPECT_EQ(xml(), "<!--n--><r/>");
}

TEST_F(CrashRecoveryTest, TextThatDoesNotParseIsKeptOnlyUntilItIsGivenUp) {
    open("<r><a/></r>");
    change("a", "<a>");
    EXPECT_EQ(files(kept).filter(".pane").size(), 1);
    dialogs.answerMessage(ui::message_answer::Yes);
    editor().selection.ShowNode(item("r"), true);
    EXPECT_EQ(files(kept), QStringList());
    change("a", "<a/");
    change("a", "<a k='1'/>");
    EXPECT_EQ(files(kept).filter(".pane"), QStringList()) << "by now the document has it";
}

TEST_F(CrashRecoveryTest, ADocumentThatDiesAgainIsRecoveredUnderTheSameName) {
    editor().commands.mnuFileNew_Click();
    editor().loader.LoadXML("<r>text</r>");
    state().m_FileName = "doc.xml (復元)";
    change("text", "changed");
    crash();
    restart();
    dialogs.answerMessage(ui::message_answer::Yes);
    recovery->offer();
    EXPECT_EQ(title(), "doc.xml (復元) * - Quillon XML Editor");
    EXPECT_EQ(xml(), "<r>changed</r>");
}

TEST_F(CrashRecoveryTest, ADocumentThatDiesAgainIsStillSuggestedToBeSavedInItsPlace) {
    open("<r>old</r>");
    change("old", "new");
    crash();
    for (int deaths = 1; deaths <= 2; ++deaths) {
        restart();
        dialogs.answerMessage(ui::message_answer::Yes);
        recovery->offer();
        EXPECT_EQ(title(), "doc.xml (復元) * - Quillon XML Editor");
        dialogs.answerFile({QString(), 0});
        editor().commands.mnuFileSave_Click();
        EXPECT_EQ(dialogs.saveRequests.back().path, path("doc.xml"));
        recovery->keep();
    }
}

TEST_F(CrashRecoveryTest, WhatItsEncodingCannotHoldIsKeptAllTheSame) {
    open("<?xml version='1.0' encoding='Shift_JIS'?><!--old--><r/>");
    change("old", "😀");
    crash();
    restart();
    dialogs.answerMessage(ui::message_answer::Yes);
    recovery->offer();
    EXPECT_TRUE(item("😀"));
}

TEST_F(CrashRecoveryTest, SavingClosingAndEndingLeaveNothing) {
    const auto leavesNothing = [this](const std::function<void()> &action) {
        open("<r>old</r>");
        change("old", "new");
        EXPECT_EQ(files(kept).size(), 3);
        // A change that is still to be written, or is being written, leaves nothing, either.
        type("newer");
        action();
        EXPECT_FALSE(QFileInfo::exists(kept.filePath("recovery")));
    };
    leavesNothing([this] { editor().commands.mnuFileSave_Click(); });
    leavesNothing([this] {
        dialogs.answerMessage(ui::message_answer::No);
        editor().commands.mnuFileClose_Click();
    });
    leavesNothing([this] {
        dialogs.answerMessage(ui::message_answer::Yes);
        editor().commands.mnuFileReload_Click();
    });
    leavesNothing([this] {
        dialogs.answerMessage(ui::message_answer::No);
        editor().commands.mnuFileNew_Click();
    });
}

/// Changes that go away without anybody having given them up, the latest not written yet, and what
/// follows in the same window.

TEST_F(CrashRecoveryTest, WhatGoesWithoutBeingGivenUpIsOfferedAtTheNextStart) {
    using namespace std::chrono_literals;
    const auto keeps = [this](const std::function<void()> &leave, bool isClosed = false) {
        recovery.reset();
        QDir(left.path()).removeRecursively();
        window = makeWindow();
        recovery = start(left, {1h, 1h});
        open("<r>old</r>", "other.xml");
        open("<r>old</r>");
        select("old");
        type("new");
        leave();
        if (!isClosed) {
            // What comes after it gets a copy of its own, in the same second, too.
            open("<r>next</r>", "next.xml");
            select("next");
            type("newer");
            recovery->keep();
            EXPECT_EQ(files(left).filter(".xml").size(), 2);
            editor().commands.mnuFileSave_Click();
        }
        recovery.reset();
        left.create();
        left.leave();
        restart();
        dialogs.answerMessage(ui::message_answer::Yes);
        recovery->offer();
        EXPECT_EQ(xml(), "<r>new</r>");
        EXPECT_TRUE(recovery->find().empty());
        EXPECT_TRUE(dialogs.messages.back().text.contains(path("doc.xml")));
    };
    // A new document or a read-only one is saved by a dialog, which can be given up.
    const auto giveUpSaving = [this] {
        state().m_ReadOnly = true;
        dialogs.answerMessage(ui::message_answer::Yes);
        dialogs.answerFile({QString(), 0});
    };
    keeps([&] {
        giveUpSaving();
        editor().commands.mnuFileNew_Click();
    });
    keeps([&] {
        giveUpSaving();
        editor().commands.mnuFileClose_Click();
    });
    keeps([&] {
        giveUpSaving();
        dialogs.answerFile({path("other.xml"), 0});
        editor().commands.mnuFileOpen_Click();
        EXPECT_EQ(title(), "other.xml - Quillon XML Editor");
    });
    keeps([&] {
        giveUpSaving();
        editor().commands.mnuFileMRUFiles_Click(path("other.xml"));
    });
    keeps(
        [&] {
            giveUpSaving();
            EXPECT_TRUE(close());
        },
        true);
    // Another program opens a file.
    keeps([&] { editor().commands.openUnasked(path("other.xml")); });
    keeps([&] {
        // Nobody is asked about what was undone after it was saved.
        type("newer");
        editor().commands.mnuFileSave_Click();
        editor().history.UndoCommand();
        EXPECT_FALSE(state().m_Modified);
        editor().commands.mnuFileClose_Click();
    });
    // No was the answer to a question whose command was cancelled afterwards.
    keeps([&] {
        dialogs.answerMessage(ui::message_answer::No);
        dialogs.answerFile({QString(), 0});
        editor().commands.mnuFileOpen_Click();
        EXPECT_EQ(xml(), "<r>new</r>");
        editor().commands.openUnasked(path("other.xml"));
    });
}

TEST_F(CrashRecoveryTest, ADocumentThatCannotBeKeptDoesNotGo) {
    QDir(kept.path()).removeRecursively();
    write("kept", "a file where the folder should be");
    open("<r>old</r>");
    select("old");
    type("new");
    state().m_ReadOnly = true;
    const QString other = write("other.xml", "<other/>");
    EXPECT_THROW(editor().commands.openUnasked(other), runtime::Error);
    const auto giveUpSaving = [&] {
        dialogs.answerMessage(ui::message_answer::Yes);
        dialogs.answerFile({QString(), 0});
    };
    giveUpSaving();
    EXPECT_THROW(editor().commands.mnuFileNew_Click(), runtime::Error);
    giveUpSaving();
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_FALSE(close());
    EXPECT_EQ(dialogs.messages.back().style, 48);
    EXPECT_EQ(xml(), "<r>new</r>");
    EXPECT_EQ(title(), "doc.xml * - Quillon XML Editor");
    EXPECT_TRUE(state().m_Modified);
}

TEST_F(CrashRecoveryTest, AFileThatCannotBeOpenedTakesNoChangesAway) {
    open("<r>old</r>");
    change("old", "new");
    write("broken.xml", "<broken>");
    dialogs.answerMessage(ui::message_answer::Ok);
    QSignalSpy written(recovery.get(), &CrashRecovery::written);
    editor().commands.openUnasked(path("broken.xml"));
    ASSERT_TRUE(written.wait(Patience));
    EXPECT_EQ(files(kept).filter(".xml").size(), 1);
    crash();
    restart();
    dialogs.answerMessage(ui::message_answer::Yes);
    recovery->offer();
    EXPECT_EQ(title(), "doc.xml (復元) * - Quillon XML Editor");
    EXPECT_EQ(xml(), "<r>new</r>");
}

TEST_F(CrashRecoveryTest, TextThatIsMendedComesBackToBeMended) {
    const QByteArray ahead = "<?xml version='1.0' encoding='Shift_JIS'?>\r\n";
    dialogs.answerMessage(ui::message_answer::Ok);
    editor().commands.openUnasked(write("doc.xml", ahead + "<r>\x82\xA0\xFF"));
    QSignalSpy written(recovery.get(), &CrashRecovery::written);
    type(QString::fromUtf8(txtEdit().utf8()) + "い");
    ASSERT_TRUE(written.wait(Patience));
    crash();
    restart();
    dialogs.answerMessage(ui::message_answer::Yes);
    recovery->offer();
    EXPECT_TRUE(state().isBroken);
    EXPECT_EQ(title(), "doc.xml (復元) * (修正中) - Quillon XML Editor");
    dialogs.answerMessage(ui::message_answer::Yes);
    dialogs.answerFile({path("saved.xml"), 0});
    editor().commands.mnuFileSave_Click();
    EXPECT_EQ(dialogs.saveRequests.back().path, path("doc.xml"));
    EXPECT_EQ(read("saved.xml"), ahead + "<r>\x82\xA0\xFF\x82\xA2");
    EXPECT_EQ(files(left).filter(".xml"), QStringList()) << "what is saved needs no copy";
    // What another program opens takes nothing away.
    type("<s>");
    editor().commands.openUnasked(write("other.xml", "<other/>"));
    EXPECT_EQ(xml(), "<other/>");
    EXPECT_EQ(files(left).filter(".xml").size(), 1);
}

TEST_F(CrashRecoveryTest, TheLastStateThatCanBeOpenedIsKept) {
    open("<r>old</r>");
    change("old", "new");
    const QStringList before = files(kept);
    select("r");
    dialogs.answerMessage(ui::message_answer::Yes);
    editor().nodeCommands.mnuEditDelete_Click();
    ASSERT_FALSE(state().m_DOM.documentElement());
    QSignalSpy written(recovery.get(), &CrashRecovery::written);
    editor().history.UndoCommand();
    recovery->documentChanged();
    ASSERT_TRUE(written.wait(Patience));
    EXPECT_EQ(files(kept), before);
    EXPECT_EQ(read("kept/recovery/" + before.filter(".xml").value(0)), "<r>new</r>");
}

TEST_F(CrashRecoveryTest, ChangesWithoutAPauseAreWrittenAtIntervals) {
    using namespace std::chrono_literals;
    recovery.reset();
    recovery = start(kept, {1h, 20ms});
    open("<r>old</r>");
    QSignalSpy written(recovery.get(), &CrashRecovery::written);
    select("old");
    QTimer typing;
    QObject::connect(&typing, &QTimer::timeout, [this] { type(txtEdit().Text() + "x"); });
    typing.start(0);
    EXPECT_TRUE(written.wait(Patience));
}

TEST_F(CrashRecoveryTest, WhatIsUnsavedWhenTheSessionEndsIsKeptAtOnce) {
    using namespace std::chrono_literals;
    recovery.reset();
    recovery = start(kept, {1h, 1h});
    open("<r>old</r>");
    recovery->keep();
    EXPECT_EQ(files(kept), QStringList()) << "nothing is unsaved";
    select("old");
    type("new");
    recovery->keep();
    crash();
    restart();
    dialogs.answerMessage(ui::message_answer::Yes);
    recovery->offer();
    EXPECT_EQ(xml(), "<r>new</r>");
    dialogs.answerFile({QString(), 0});
    editor().commands.mnuFileSaveAs_Click();
    EXPECT_EQ(dialogs.saveRequests.back().path, path("doc.xml"));
}

} // namespace

} // namespace quillon::test
