#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
#include "tests/support/headless_editor.h"

namespace quillon::test {

namespace {

using ui::message_answer::Cancel;
using ui::message_answer::No;
using ui::message_answer::Yes;

/// What can neither be loaded nor shown as text.
const QByteArray NoText(64, '\1');

class CommandsTest : public HeadlessEditor {
protected:
    document::DocumentCommands &commands() { return editor().commands; }
    void modify() {
        state().m_DOM.documentElement().setAttribute("changed", "1");
        commands().DocumentModified();
    }
};

TEST_F(CommandsTest, ANewDocumentMustBeSavedUnderAName) {
    commands().mnuFileNew_Click();
    EXPECT_EQ(title(), "New XML File - Quillon XML Editor");
    EXPECT_EQ(captions({}), QStringList());
    EXPECT_EQ(tree().nodes().Count(), 1);
    state().m_DOM.setDocumentElement(state().m_DOM.createElement("root"));
    commands().DocumentModified();
    EXPECT_EQ(title(), "New XML File * - Quillon XML Editor");
    dialogs.answerFile({path("made.xml"), 0});
    commands().mnuFileSave_Click();
    EXPECT_EQ(read("made.xml"), "<root/>");
    EXPECT_EQ(dialogs.saveRequests.back().filter, "XML File(*.xml)|*.xml|XSL File(*.xsl)|*.xsl");
    EXPECT_EQ(dialogs.saveRequests.back().flags, 2);
    EXPECT_EQ(title(), "made.xml - Quillon XML Editor");
    modify();
    commands().mnuFileSave_Click();
    EXPECT_EQ(read("made.xml"), "<root changed=\"1\"/>");
    EXPECT_TRUE(working().isEmpty()) << "saving makes no copy";
    EXPECT_TRUE(editor().recentFiles.read().isEmpty());
}

TEST_F(CommandsTest, ANewDocumentStartsFromTheStandardOne) {
    write("default.xml", "<standard/>");
    commands().mnuFileNew_Click();
    EXPECT_EQ(xml(), "<standard/>");
    EXPECT_EQ(title(), "New XML File - Quillon XML Editor");
    EXPECT_FALSE(state().m_Opened);
    EXPECT_EQ(editor().recentFiles.read(), QStringList(path("default.xml")));
}

TEST_F(CommandsTest, OpenAsksWhatToDoWithChanges) {
    open("<r/>");
    modify();
    dialogs.answerMessage(Cancel);
    commands().mnuFileOpen_Click();
    EXPECT_EQ(dialogs.messages.back().text, "保存しますか？");
    EXPECT_EQ(dialogs.messages.back().style, 35);
    EXPECT_TRUE(dialogs.openRequests.empty());

    dialogs.answerMessage(No);
    dialogs.answerFile({QString(), 0});
    commands().mnuFileOpen_Click();
    EXPECT_EQ(dialogs.openRequests.back().title, "開く");
    EXPECT_EQ(dialogs.openRequests.back().filter,
              "XMLファイル(*.xml)|*.xml|XSLファイル(*.xsl)|*.xsl|すべてのファイル(*.*)|*.*");
    EXPECT_EQ(dialogs.openRequests.back().flags, 4096);
    EXPECT_TRUE(state().m_Modified) << "cancelled: nothing changes";

    dialogs.answerMessage(Yes);
    dialogs.answerFile({write("next.xml", "<next/>"), 4096 + 1});
    commands().mnuFileOpen_Click();
    EXPECT_EQ(read("doc.xml"), "<r changed=\"1\"/>");
    EXPECT_EQ(title(), "next.xml (読み取り専用) - Quillon XML Editor");
    modify();
    EXPECT_EQ(title(), "next.xml * - Quillon XML Editor") << "the mark comes back later";
    commands().UpdateStatus(state().m_FileName);
    EXPECT_EQ(title(), "next.xml * (読み取り専用) - Quillon XML Editor");

    // Read-only documents are saved under another name; the dialog keeps its last title.
    dialogs.answerFile({path("next.xml"), 0});
    commands().mnuFileSave_Click();
    EXPECT_EQ(dialogs.saveRequests.back().title, "開く");
    EXPECT_EQ(title(), "next.xml - Quillon XML Editor");
    EXPECT_FALSE(state().m_ReadOnly);

    dialogs.answerFile({write("bad.xml", NoText), 0});
    dialogs.answerMessage(ui::message_answer::Ok);
    commands().mnuFileOpen_Click();
    EXPECT_EQ(title(), "Quillon XML Editor") << "the old document has been emptied";
    EXPECT_EQ(tree().nodes().Count(), 0);
}

TEST_F(CommandsTest, AnAbandonedSaveLetsTheCommandGoOn) {
    commands().mnuFileNew_Click();
    state().m_DOM.setDocumentElement(state().m_DOM.createElement("root"));
    commands().DocumentModified();
    dialogs.answerMessage(Yes);
    dialogs.answerFile({QString(), 0});
    commands().mnuFileClose_Click();
    EXPECT_FALSE(state().m_DOM);
    EXPECT_EQ(title(), "Quillon XML Editor");
}

TEST_F(CommandsTest, ReloadDropsChangesWhenTold) {
    open("<r/>");
    modify();
    dialogs.answerMessage(No);
    commands().mnuFileReload_Click();
    EXPECT_EQ(dialogs.messages.back().text, "変更を破棄して再読込しますか？");
    EXPECT_EQ(dialogs.messages.back().style, 292);
    EXPECT_TRUE(state().m_Modified);
    dialogs.answerMessage(Yes);
    commands().mnuFileReload_Click();
    EXPECT_EQ(xml(), "<r/>");
    EXPECT_EQ(title(), "doc.xml - Quillon XML Editor");
    state().m_ReadOnly = true;
    commands().mnuFileReload_Click();
    EXPECT_TRUE(state().m_ReadOnly);
    QFile::remove(path("doc.xml"));
    EXPECT_THROW(commands().mnuFileReload_Click(), runtime::Error);
}

TEST_F(CommandsTest, AFailedReloadLeavesEverythingAsItWas) {
    open("<r>old</r>");
    select("old");
    type("new");
    const QString backup = state().m_BackupPath;
    time = time.addSecs(1);
    const auto expectUnchanged = [&] {
        EXPECT_TRUE(item("new"));
        EXPECT_EQ(xml(), "<r>new</r>");
        EXPECT_EQ(title(), "doc.xml * - Quillon XML Editor");
        EXPECT_EQ(state().m_BackupPath, backup);
        EXPECT_FALSE(state().m_ReadOnly);
        EXPECT_EQ(status(), "");
    };
    QFile::setPermissions(write("doc.xml", NoText), QFile::ReadOwner);
    dialogs.answerMessage(Yes);
    dialogs.answerMessage(ui::message_answer::Ok);
    commands().mnuFileReload_Click();
    EXPECT_EQ(dialogs.messages.back().text, "XMLをパースできません。");
    expectUnchanged();
    QFile::remove(path("doc.xml"));
    dialogs.answerMessage(Yes);
    EXPECT_THROW(commands().mnuFileReload_Click(), runtime::Error);
    expectUnchanged();
    // What is shown can be undone, edited and saved.
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), "<r>old</r>");
    editor().history.RedoCommand();
    select("new");
    type("newer");
    write("doc.xml", "<broken>");
    dialogs.answerMessage(Yes);
    commands().mnuFileSave_Click();
    EXPECT_EQ(dialogs.messages.back().style, 292) << "the file is another one than was opened";
    EXPECT_EQ(read("doc.xml"), "<r>newer</r>");
}

TEST_F(CommandsTest, UndoingAllFromABrokenCopyLeavesEverythingAsItWas) {
    open("<r>old</r>");
    select("old");
    type("new");
    write("Temp/20011231235959.bak", "<broken>");
    time = time.addSecs(1);
    dialogs.answerMessage(Yes);
    dialogs.answerMessage(ui::message_answer::Ok);
    commands().mnuEditUndoAll_Click();
    EXPECT_EQ(title(), "doc.xml * - Quillon XML Editor");
    EXPECT_TRUE(editor().history.CanUndo());
    EXPECT_TRUE(item("new"));
    commands().mnuFileSave_Click();
    EXPECT_EQ(read("doc.xml"), "<r>new</r>");
}

TEST_F(CommandsTest, WhatAFailedLoadLeavesInAnEmptyWindowIsNotSaved) {
    write("doc.xml", NoText);
    dialogs.answerMessage(ui::message_answer::Ok);
    commands().openUnasked(path("doc.xml"));
    EXPECT_EQ(title(), "doc.xml - Quillon XML Editor");
    EXPECT_THROW(commands().mnuFileSave_Click(), runtime::Error);
    EXPECT_THROW(commands().mnuFileSaveAs_Click(), runtime::Error);
    commands().DocumentModified();
    EXPECT_FALSE(state().m_Modified);
    EXPECT_EQ(read("doc.xml"), NoText);
}

TEST_F(CommandsTest, WhatIsShownUnderTheNameOfABrokenFileIsNotSavedOverIt) {
    open("<r/>");
    modify();
    write("broken.xml", "<broken>");
    dialogs.answerMessage(ui::message_answer::Ok);
    time = time.addSecs(1);
    commands().openUnasked(path("broken.xml"));
    EXPECT_EQ(title(), "broken.xml * - Quillon XML Editor");
    dialogs.answerMessage(Yes);
    commands().mnuEditUndoAll_Click();
    dialogs.answerFile({path("doc.xml"), 0});
    commands().mnuFileSave_Click();
    EXPECT_EQ(dialogs.saveRequests.back().path, path("doc.xml"));
    EXPECT_EQ(read("broken.xml"), "<broken>");
    modify();
    commands().mnuFileSave_Click();
    EXPECT_EQ(read("doc.xml"), "<r changed=\"1\"/>");
    // From then on its name is the one that it was saved under.
    dialogs.answerMessage(ui::message_answer::Ok);
    commands().openUnasked(path("broken.xml"));
    dialogs.answerFile({path("other.xml"), 0});
    commands().mnuFileSave_Click();
    dialogs.answerFile({});
    commands().mnuFileSaveAs_Click();
    EXPECT_EQ(dialogs.saveRequests.back().path, path("other.xml"));
}

TEST_F(CommandsTest, ANewDocumentHasNoStateToGoBackToAndNoFile) {
    for (const bool isStandard : {false, true}) {
        open("<r/>");
        if (isStandard)
            write("default.xml", "<standard/>");
        commands().mnuFileNew_Click();
        if (!isStandard)
            state().m_DOM.setDocumentElement(state().m_DOM.createElement("root"));
        modify();
        EXPECT_FALSE(commands().canUndoAll());
        state().m_Opened = true;
        dialogs.answerFile({QString(), 0});
        commands().mnuFileSave_Click();
        EXPECT_FALSE(QFile::exists("New XML File")) << "a relative name is no file";
        dialogs.answerMessage(No);
        commands().mnuFileClose_Click();
    }
    open("<r/>");
    commands().mnuFileClose_Click();
    EXPECT_EQ(state().m_BackupPath, "");
}

TEST_F(CommandsTest, AFailedSaveKeepsEverything) {
    const QByteArray sjis = "<?xml version='1.0' encoding='Shift_JIS'?><r/>";
    open(sjis);
    const xml::Node root = state().m_DOM.documentElement();
    const xml::Node comment = root.appendChild(state().m_DOM.createComment("é"));
    commands().DocumentModified();
    const auto failure = [&](const QString &file) {
        try {
            commands().SaveFile(file);
        } catch (const runtime::Error &error) {
            return error.description();
        }
        return QString();
    };
    EXPECT_TRUE(failure(path("doc.xml")).contains("é"));
    EXPECT_EQ(read("doc.xml"), sjis);
    root.removeChild(comment);
    EXPECT_TRUE(failure("/dev/full").contains("デバイス"));
    EXPECT_TRUE(failure(path("gone/doc.xml")).contains("フォルダー"));
    EXPECT_TRUE(state().m_Modified);
    EXPECT_EQ(title(), "doc.xml * - Quillon XML Editor");
    EXPECT_EQ(state().m_FileName, path("doc.xml"));
}

TEST_F(CommandsTest, AFileChangedByOthersIsNotOverwrittenUnasked) {
    open("<r/>");
    modify();
    QFile::remove(path("doc.xml"));
    write("doc.xml", "<theirs/>");
    commands().checkFileOnDisk();
    EXPECT_TRUE(status().contains("変更されました"));
    dialogs.answerMessage(No);
    commands().mnuFileSave_Click();
    EXPECT_EQ(read("doc.xml"), "<theirs/>");
    EXPECT_TRUE(state().m_Modified);
    // Nor does the document go then.
    for (const auto &leave : {&document::DocumentCommands::mnuFileNew_Click,
                              &document::DocumentCommands::mnuFileOpen_Click,
                              &document::DocumentCommands::mnuFileClose_Click}) {
        dialogs.answerMessage(Yes);
        dialogs.answerMessage(No);
        (commands().*leave)();
        EXPECT_EQ(xml(), "<r changed=\"1\"/>");
    }
    dialogs.answerMessage(Yes);
    dialogs.answerMessage(No);
    EXPECT_FALSE(close());
    const auto asked = dialogs.messages.size();
    dialogs.answerMessage(Yes);
    commands().mnuFileSave_Click();
    EXPECT_EQ(read("doc.xml"), "<r changed=\"1\"/>");
    modify();
    commands().mnuFileSave_Click();
    EXPECT_EQ(dialogs.messages.size(), asked + 1) << "its own saving is no change by others";
}

TEST_F(CommandsTest, AReadOnlyFileIsReplacedWithoutAQuestion) {
    const QString file = write("doc.xml", "<r/>");
    QFile::setPermissions(file, QFile::ReadOwner);
    ASSERT_TRUE(OpenFile(file));
    dialogs.answerFile({file, 0});
    commands().mnuFileSave_Click();
    EXPECT_EQ(read("doc.xml"), "<r/>");
    EXPECT_TRUE(QFileInfo(file).permission(QFile::WriteOwner));
}

} // namespace

} // namespace quillon::test
