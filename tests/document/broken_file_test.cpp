#include "platform/runtime/error.h"
#include "resources/broken_texts.h"
#include "tests/support/headless_editor.h"
#include "tests/support/patience.h"

#include <QTest>

#include <gmock/gmock.h>

namespace quillon::test {

namespace {

using document::TextFault;
using ui::message_answer::Cancel;
using ui::message_answer::No;
using ui::message_answer::Ok;
using ui::message_answer::Yes;

/// A file that is not well-formed, in a window where it is mended.
class BrokenFileTest : public HeadlessEditor {
protected:
    document::BrokenFile &broken() { return editor().broken; }
    document::DocumentCommands &commands() { return editor().commands; }
    QByteArray text() { return txtEdit().utf8(); }

    void waitUntilJudged() {
        ASSERT_TRUE(QTest::qWaitFor([&] { return broken().isJudged(); }, Patience));
    }
    /// Opens a file as the Open command does.
    void openBroken(const QByteArray &bytes, const QString &name = "doc.xml") {
        dialogs.answerFile({write(name, bytes), 0});
        dialogs.answerMessage(Ok);
        commands().mnuFileOpen_Click();
        EXPECT_EQ(dialogs.messages.back().text, "XMLをパースできません。");
        waitUntilJudged();
    }
    void edit(const QByteArray &old, const QByteArray &now) {
        QByteArray edited = text();
        ASSERT_TRUE(edited.contains(old)) << edited.toStdString();
        txtEdit().setText(edited.replace(edited.indexOf(old), old.size(), now));
        waitUntilJudged();
    }
    void answerSaveQuestion(int answer) { dialogs.answerMessage(answer); }
};

TEST_F(BrokenFileTest, IsShownWhereItIsBroken) {
    openBroken("<r>\n <a>\n <c>あ\n</r>\n");
    EXPECT_EQ(text(), "<r>\n <a>\n <c>あ\n</r>\n");
    EXPECT_EQ(title(), "doc.xml (修正中) - Quillon XML Editor");
    EXPECT_EQ(tree().nodes().Count(), 0);
    EXPECT_EQ(txtEdit().language, ui::TextBox::Language::Xml);
    ASSERT_TRUE(broken().fault());
    const TextFault fault = *broken().fault();
    ASSERT_EQ(txtEdit().marks.size(), 1u);
    EXPECT_TRUE(txtEdit().marks[0].isBroken);
    EXPECT_EQ(txtEdit().marks[0].at, fault.at.start);
    EXPECT_EQ(txtEdit().marks[0].reason, fault.at.sentence);
    EXPECT_TRUE(status().contains(fault.at.sentence)) << status().toStdString();
    EXPECT_TRUE(txtEdit().hasFocus);
    EXPECT_EQ(txtEdit().caretAt, fault.at.start + fault.at.length);
    EXPECT_TRUE(editor().recentFiles.read().isEmpty()) << "no tree of it is shown";
    EXPECT_FALSE(state().m_Modified);
}

TEST_F(BrokenFileTest, BecomesTheDocumentInPlaceWithNothingButTheFixInItsBytes) {
    const QByteArray duplicates = "\xEE\xF9\x87\x90\x81\xCA";
    const QByteArray sjis = "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\r\n<r t='" + duplicates;
    openBroken(sjis + "'>\r\n<a>\n</r>");
    edit("<a>", "<a/>");
    EXPECT_TRUE(item("a"));
    EXPECT_EQ(title(), "doc.xml * - Quillon XML Editor");
    EXPECT_EQ(status(), resources::broken_texts::Mended.toString());
    EXPECT_TRUE(txtEdit().marks.empty());
    EXPECT_EQ(txtEdit().utf8(), xml());
    EXPECT_TRUE(state().m_Modified);
    EXPECT_FALSE(commands().canUndoAll()) << "there is no document that it was opened as";
    EXPECT_FALSE(editor().history.CanUndo());
    EXPECT_FALSE(txtEdit().canUndo()) << "the document's own history starts here";
    EXPECT_EQ(editor().recentFiles.read(), QStringList(path("doc.xml")));
    EXPECT_EQ(window->opened, 1);
    // What is typed on is typed into the document.
    edit("<a/>", "<a><b/></a>");
    EXPECT_TRUE(item("b"));
    editor().history.UndoCommand();
    EXPECT_FALSE(item("b"));
    EXPECT_TRUE(item("a"));
    EXPECT_FALSE(editor().history.CanUndo());
    commands().mnuFileSave_Click();
    EXPECT_EQ(read("doc.xml"), sjis + "'>\r\n<a/>\n</r>");
    EXPECT_EQ(title(), "doc.xml - Quillon XML Editor");
}

TEST_F(BrokenFileTest, IsMendedByKeyAndUndoneInThePane) {
    openBroken("<r><a></r>");
    const std::vector<xml::SyntaxMend> mends = broken().mends();
    ASSERT_FALSE(mends.empty());
    edit("<a>", "<a x=1>");
    ASSERT_TRUE(txtEdit().canUndo());
    txtEdit().undo();
    waitUntilJudged();
    EXPECT_EQ(text(), "<r><a></r>");
    txtEdit().setText(QByteArray("<r><b></r>"));
    broken().mend(mends.front());
    EXPECT_EQ(text(), "<r><b></r>") << "the text has changed since these were found";
    txtEdit().undo();
    waitUntilJudged();
    broken().mend(broken().mends().front());
    waitUntilJudged();
    EXPECT_FALSE(state().isBroken);
    EXPECT_TRUE(item("a"));
}

TEST_F(BrokenFileTest, IsSavedAsItIsAfterAWord) {
    openBroken("<r>\r\n<a>\xFF\n</r>");
    edit("<a>", "<b>");
    EXPECT_EQ(title(), "doc.xml * (修正中) - Quillon XML Editor");
    answerSaveQuestion(No);
    commands().mnuFileSave_Click();
    EXPECT_EQ(read("doc.xml"), "<r>\r\n<a>\xFF\n</r>");
    EXPECT_TRUE(state().m_Modified);
    answerSaveQuestion(Yes);
    commands().mnuFileSave_Click();
    EXPECT_EQ(read("doc.xml"), "<r>\r\n<b>\xFF\n</r>");
    EXPECT_EQ(title(), "doc.xml (修正中) - Quillon XML Editor");
    answerSaveQuestion(Yes);
    dialogs.answerFile({path("other.xml"), 0});
    commands().mnuFileSaveAs_Click();
    EXPECT_EQ(read("other.xml"), "<r>\r\n<b>\xFF\n</r>");
    EXPECT_EQ(title(), "other.xml (修正中) - Quillon XML Editor");
    // What is typed last counts before it has been judged.
    QByteArray mended = text();
    mended.replace(mended.indexOf("<b>") + 3, xml::ByteCharacters::Length, "</b>");
    txtEdit().setText(mended);
    commands().mnuFileSave_Click();
    EXPECT_EQ(read("other.xml"), "<r>\r\n<b></b>\n</r>");
    EXPECT_FALSE(state().isBroken);
}

TEST_F(BrokenFileTest, IsAskedAboutLikeAnyDocument) {
    openBroken("<r>");
    edit("<r>", "<s>");
    for (const auto leave : {&document::DocumentCommands::mnuFileClose_Click,
                             &document::DocumentCommands::mnuFileNew_Click,
                             &document::DocumentCommands::mnuFileOpen_Click}) {
        dialogs.answerMessage(Cancel);
        (commands().*leave)();
        EXPECT_EQ(dialogs.messages.back().text, "保存しますか？");
        EXPECT_EQ(text(), "<s>");
    }
    dialogs.answerMessage(Cancel);
    EXPECT_FALSE(close());
    // Saved, but not as it is.
    dialogs.answerMessage(Yes);
    answerSaveQuestion(No);
    EXPECT_FALSE(close());
    dialogs.answerMessage(No);
    commands().mnuFileReload_Click();
    EXPECT_EQ(text(), "<s>");
    write("doc.xml", "<r>\n");
    editor().commands.checkFileOnDisk();
    EXPECT_EQ(status(), resources::texts::FileChangedOnDisk.toString());
    answerSaveQuestion(Yes);
    dialogs.answerMessage(No);
    commands().mnuFileSave_Click();
    EXPECT_EQ(dialogs.messages.back().text, resources::texts::OverwriteChangedFile.toString());
    EXPECT_EQ(read("doc.xml"), "<r>\n");
    // Mended elsewhere.
    write("doc.xml", "<r/>");
    dialogs.answerMessage(Yes);
    commands().mnuFileReload_Click();
    EXPECT_EQ(xml(), "<r/>");
    EXPECT_EQ(title(), "doc.xml - Quillon XML Editor");
    EXPECT_EQ(txtEdit().utf8(), "<r/>");
    // And broken there.
    write("doc.xml", "<r>");
    dialogs.answerMessage(Ok);
    commands().mnuFileReload_Click();
    EXPECT_EQ(title(), "doc.xml (修正中) - Quillon XML Editor");
    EXPECT_EQ(text(), "<r>");
    commands().mnuFileClose_Click();
    EXPECT_EQ(title(), "Quillon XML Editor");
    EXPECT_EQ(text(), "");
    waitUntilJudged();
    EXPECT_EQ(status(), "");
}

TEST_F(BrokenFileTest, BytesThatDoNotDecodeAreFaultsWithMends) {
    struct Case {
        QByteArray bytes;
        QByteArray shown;
        const char *mend;
        QByteArray saved;
    };
    const QByteArray sjis = "<r>\x93\xFA\x96\x7B</r>";
    for (const Case &c : {
             Case{sjis, "", "エンコードの宣言を 'Shift_JIS' に変更",
                  "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n" + sjis},
             Case{"<?xml version='1.0' encoding='utf-8'?>" + sjis, "",
                  "エンコードの宣言を 'Shift_JIS' に変更",
                  "<?xml version='1.0' encoding='Shift_JIS'?>" + sjis},
             Case{"<?xml version='1.0' encoding='nobody'?>" + sjis, "",
                  "エンコードの宣言を 'Shift_JIS' に変更",
                  "<?xml version='1.0' encoding='Shift_JIS'?>" + sjis},
             Case{"<r>日\x8F本</r>", "", "読めないバイト (8F) を削除", "<r>日本</r>"},
         }) {
        openBroken(c.bytes);
        ASSERT_TRUE(broken().fault());
        const std::vector<xml::SyntaxMend> mends = broken().mends();
        const auto mend = std::ranges::find(mends, QString(c.mend), &xml::SyntaxMend::title);
        ASSERT_NE(mend, mends.end()) << c.mend << status().toStdString();
        broken().mend(*mend);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !state().isBroken; }, Patience)) << c.mend;
        EXPECT_TRUE(xml().contains("日本")) << xml().toStdString();
        EXPECT_EQ(txtEdit().utf8(), xml());
        commands().mnuFileSave_Click();
        EXPECT_EQ(read("doc.xml"), c.saved);
        commands().mnuFileClose_Click();
    }
}

TEST_F(BrokenFileTest, CharactersThatTheEncodingLacksAreFaultsWithMends) {
    const QByteArray ahead = "<?xml version='1.0' encoding='Shift_JIS'?>";
    openBroken(ahead + "<r>\x82\xA0");
    edit("あ", "あ한</r>");
    ASSERT_TRUE(broken().fault());
    EXPECT_EQ(broken().fault()->kind, TextFault::Kind::Unencodable);
    answerSaveQuestion(Yes);
    EXPECT_THROW(commands().mnuFileSave_Click(), runtime::Error);
    EXPECT_EQ(read("doc.xml"), ahead + "<r>\x82\xA0");
    ASSERT_EQ(broken().mends().size(), 3u);
    broken().mend(broken().mends().front());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !state().isBroken; }, Patience));
    commands().mnuFileSave_Click();
    EXPECT_EQ(read("doc.xml"), ahead + "<r>\x82\xA0&#xD55C;</r>");
}

TEST_F(BrokenFileTest, WhatIsNoTextIsLeftAlone) {
    const QByteArray binary = QByteArray("\x89PNG\r\n\x1A\n") + QByteArray(64, '\0');
    dialogs.answerFile({write("image.xml", binary), 0});
    dialogs.answerMessage(Ok);
    commands().mnuFileOpen_Click();
    EXPECT_FALSE(state().isBroken);
    EXPECT_EQ(title(), "Quillon XML Editor");
    EXPECT_THROW(commands().mnuFileSave_Click(), runtime::Error);
    // What is being mended stays, and cannot be saved under the other's name.
    openBroken("<r>");
    edit("<r>", "<s>");
    dialogs.answerMessage(Ok);
    commands().openUnasked(path("image.xml"));
    EXPECT_EQ(text(), "<s>");
    answerSaveQuestion(Yes);
    dialogs.answerFile({});
    commands().mnuFileSave_Click();
    EXPECT_EQ(dialogs.saveRequests.back().path, path("doc.xml"));
    EXPECT_EQ(read("image.xml"), binary);
    // Nothing at all is a text.
    dialogs.answerMessage(No);
    commands().mnuFileClose_Click();
    openBroken("");
    txtEdit().setText(QByteArray("<r/>"));
    waitUntilJudged();
    EXPECT_TRUE(item("r"));
}

TEST_F(BrokenFileTest, ReadOnlyIsOnlyLookedAt) {
    QFile::setPermissions(write("doc.xml", "<r>"), QFile::ReadOwner);
    dialogs.answerMessage(Ok);
    commands().mnuFileMRUFiles_Click(path("doc.xml"));
    EXPECT_EQ(title(), "doc.xml (修正中) (読み取り専用) - Quillon XML Editor");
    EXPECT_TRUE(txtEdit().Locked());
    answerSaveQuestion(Yes);
    dialogs.answerFile({path("copy.xml"), 0});
    commands().mnuFileSave_Click();
    EXPECT_EQ(read("copy.xml"), "<r>");
    EXPECT_EQ(title(), "copy.xml (修正中) - Quillon XML Editor");
    EXPECT_FALSE(txtEdit().Locked());
}

TEST_F(BrokenFileTest, WhatAnInputMethodHasNotFinishedIsNotJudged) {
    openBroken("<r>");
    txtEdit().composing = true;
    txtEdit().setText(QByteArray("<r/>"));
    QTest::qWait(300);
    EXPECT_TRUE(state().isBroken);
    EXPECT_FALSE(broken().isJudged());
    txtEdit().composing = false;
    ASSERT_TRUE(QTest::qWaitFor([&] { return !state().isBroken; }, Patience));
}

} // namespace

} // namespace quillon::test
