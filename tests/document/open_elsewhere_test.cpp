#include "document/open_elsewhere.h"
#include "tests/support/headless_editor.h"

#include <QSignalSpy>

namespace quillon::test {

namespace {

/// Another window has "other.xml" open.
class OpenElsewhereTest : public HeadlessEditor {
protected:
    void SetUp() override {
        open("<mine/>", "mine.xml");
        editor().windows.join();
        other_->editor.windows.join();
        ASSERT_TRUE(other_->editor.loader.OpenFile(write("other.xml", "<other/>")));
        other_->editor.commands.UpdateStatus(path("other.xml"));
    }
    void modifyOther() {
        other_->editor.state.m_DOM.documentElement().setAttribute("changed", "1");
        other_->editor.commands.DocumentModified();
    }
    /// Whether the other window has been called since it was last looked.
    bool isCalled() {
        QSignalSpy called(&other_->editor.windows, &system::OpenWindows::calledToFront);
        QCoreApplication::processEvents();
        return !called.isEmpty();
    }
    void openRecent() { editor().commands.mnuFileMRUFiles_Click(path("other.xml")); }

    std::unique_ptr<HeadlessWindow> other_ = makeWindow();
};

TEST_F(OpenElsewhereTest, AFileThatIsOpenComesToTheFrontHoweverItIsChosen) {
    dialogs.answerFile({path("./other.xml"), 0});
    editor().commands.mnuFileOpen_Click();
    EXPECT_TRUE(isCalled());
    openRecent();
    EXPECT_TRUE(isCalled());
    editor().commands.openDropped(path("other.xml"));
    EXPECT_TRUE(isCalled());
    EXPECT_EQ(xml(), "<mine/>");
    EXPECT_TRUE(dialogs.choices.empty());

    // What this window has open is loaded again, as ever.
    editor().commands.mnuFileMRUFiles_Click(path("mine.xml"));
    EXPECT_FALSE(isCalled());
    // And so it is by another program's wish, which waits for nobody's answer.
    editor().commands.openUnasked(path("other.xml"));
    EXPECT_FALSE(isCalled());
    EXPECT_EQ(xml(), "<other/>");
}

TEST_F(OpenElsewhereTest, WhereItHasChangesTheUserChooses) {
    modifyOther();
    dialogs.answerChoice(-1);
    openRecent();
    EXPECT_FALSE(isCalled());
    EXPECT_EQ(xml(), "<mine/>");
    EXPECT_TRUE(dialogs.prompts.back().startsWith("「other.xml」"));
    dialogs.answerChoice(0);
    openRecent();
    EXPECT_TRUE(isCalled());
    EXPECT_EQ(xml(), "<mine/>");
    dialogs.answerChoice(1);
    openRecent();
    EXPECT_FALSE(isCalled());
    EXPECT_EQ(xml(), "<other/>");
}

TEST_F(OpenElsewhereTest, WhatIsNotThereAnyMoreIsOpenedHere) {
    ASSERT_TRUE(other_->editor.loader.OpenFile(write("third.xml", "<third/>")));
    other_->editor.commands.UpdateStatus(path("third.xml"));
    openRecent();
    EXPECT_EQ(xml(), "<other/>");
    open("<mine/>", "mine.xml");
    other_.reset();
    editor().commands.mnuFileMRUFiles_Click(path("third.xml"));
    EXPECT_EQ(xml(), "<third/>");
}

} // namespace

} // namespace quillon::test
