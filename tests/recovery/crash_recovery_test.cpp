#include "platform/runtime/error.h"
#include "recovery/crash_recovery.h"
#include "tests/support/editor_window.h"

#include <QFileInfo>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace quillon::test {

namespace {

using recovery::CrashRecovery;
using recovery::Recoverable;

/// A window with a recovery of its own, which works in another folder than the program's.
class CrashRecoveryTest : public EditorWindow {
protected:
    CrashRecoveryTest() { QDir().mkpath(kept.path()); }

    std::unique_ptr<CrashRecovery> start(const system::WorkingFolder &at,
                                         recovery::RecoveryPace pace = {}) {
        auto made = std::make_unique<CrashRecovery>(state(), editor().commands, at,
                                                    runtime::Clock{[this] { return time; }}, pace);
        made->pane = editor().recovery.pane;
        QObject::connect(&editor().paneEditing, &tree::PaneEditing::unparsedTextChanged, made.get(),
                         &CrashRecovery::documentChanged);
        QObject::connect(&editor().selection, &tree::Selection::unparsedTextGivenUp, made.get(),
                         &CrashRecovery::documentChanged);
        return made;
    }
    /// A change, and what it leads to on the disk.
    void change(const QString &caption, const QString &text) {
        QSignalSpy written(recovery.get(), &CrashRecovery::written);
        select(caption);
        type(text);
        ASSERT_TRUE(written.wait());
    }
    static QStringList files(const system::WorkingFolder &at) {
        return QDir(at.filePath("recovery")).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    /// What a crash would leave: the files, with locks of a process that has ended.
    void crash() {
        QProcess ended;
        ended.start("true", QStringList());
        const QByteArray deadProcess = QByteArray::number(ended.processId());
        ASSERT_TRUE(ended.waitForFinished());
        QDir().mkpath(left.filePath("recovery"));
        for (const QString &name : files(kept)) {
            QFile from(kept.filePath("recovery/" + name));
            QFile to(left.filePath("recovery/" + name));
            ASSERT_TRUE(from.open(QIODevice::ReadOnly) && to.open(QIODevice::WriteOnly));
            QByteArray bytes = from.readAll();
            if (name.endsWith(".lock"))
                bytes.replace(0, bytes.indexOf('\n'), deadProcess);
            to.write(bytes);
        }
    }
    /// The program starts again where it died.
    void restart() {
        recovery.reset();
        form = std::make_unique<app::frmMain>(
            app::Surroundings{folder.path(), system::SettingsStore(path("settings.ini")), {}});
        recovery = start(left, {});
    }

    const recovery::RecoveryPace soon{std::chrono::milliseconds(1), std::chrono::milliseconds(1)};
    const system::WorkingFolder kept{path("kept")};
    const system::WorkingFolder left{path("left")};
    std::unique_ptr<CrashRecovery> recovery = start(kept, soon);
};

TEST_F(CrashRecoveryTest, WhatWasNotSavedComesBackAsADocumentWithoutAFile) {
    open("\xEF\xBB\xBF<r>\r\n <a>old</a></r>");
    EXPECT_EQ(files(kept), QStringList()) << "nothing has been changed";
    change("old", "new");
    change("new", "newer");
    crash();
    restart();
    dialogs.answerMessage(2);
    recovery->offer();
    EXPECT_EQ(xml(), "") << "cancelled, it waits for another time";
    dialogs.answerMessage(6);
    recovery->offer();
    EXPECT_TRUE(dialogs.messages.back().text.startsWith(
        "前回保存されなかった変更があります。復元しますか？\n\n" + path("doc.xml")));
    EXPECT_EQ(dialogs.messages.back().style, 35);
    EXPECT_EQ(form->windowTitle(), "doc.xml (復元) * - Quillon XML Editor");
    EXPECT_EQ(state().m_DOM.serialize(), "\xEF\xBB\xBF<r>\r\n <a>newer</a></r>");
    EXPECT_TRUE(item("newer"));
    EXPECT_TRUE(button(u"save"));
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

TEST_F(CrashRecoveryTest, TextThatDoesNotParseComesBackInThePane) {
    open("<r>t<a/><!--c--><b>2</b></r>");
    change("b", "<b>2</b");
    EXPECT_FALSE(state().m_Modified);
    crash();
    restart();
    dialogs.answerMessage(6);
    recovery->offer();
    EXPECT_EQ(xml(), "<r>t<a/><!--c--><b>2</b></r>");
    EXPECT_EQ(tree().SelectedItem(), item("b"));
    EXPECT_EQ(txtEdit().Text(), "<b>2</b");
    EXPECT_EQ(status(), "構文エラー");
    dialogs.answerMessage(6);
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
    dialogs.answerMessage(6);
    recovery->offer();
    EXPECT_EQ(txtEdit().Text(), "<!--n--><r>");
    type("<!--n--><r/>");
    EXPECT_EQ(xml(), "<!--n--><r/>");
}

TEST_F(CrashRecoveryTest, TextThatDoesNotParseIsKeptOnlyUntilItIsGivenUp) {
    open("<r><a/></r>");
    change("a", "<a>");
    EXPECT_EQ(files(kept).filter(".pane").size(), 1);
    dialogs.answerMessage(6);
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
    dialogs.answerMessage(6);
    recovery->offer();
    EXPECT_EQ(form->windowTitle(), "doc.xml (復元) * - Quillon XML Editor");
    EXPECT_EQ(xml(), "<r>changed</r>");
}

TEST_F(CrashRecoveryTest, ADocumentThatDiesAgainIsStillSuggestedToBeSavedInItsPlace) {
    open("<r>old</r>");
    change("old", "new");
    crash();
    for (int deaths = 1; deaths <= 2; ++deaths) {
        restart();
        dialogs.answerMessage(6);
        recovery->offer();
        EXPECT_EQ(form->windowTitle(), "doc.xml (復元) * - Quillon XML Editor");
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
    dialogs.answerMessage(6);
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
        dialogs.answerMessage(7);
        editor().commands.mnuFileClose_Click();
    });
    leavesNothing([this] {
        dialogs.answerMessage(6);
        editor().commands.mnuFileReload_Click();
    });
    leavesNothing([this] {
        dialogs.answerMessage(7);
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
        form = std::make_unique<app::frmMain>(
            app::Surroundings{folder.path(), system::SettingsStore(path("settings.ini")), {}});
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
        dialogs.answerMessage(6);
        recovery->offer();
        EXPECT_EQ(xml(), "<r>new</r>");
        EXPECT_TRUE(recovery->find().empty());
        EXPECT_TRUE(dialogs.messages.back().text.contains(path("doc.xml")));
    };
    // A new document or a read-only one is saved by a dialog, which can be given up.
    const auto giveUpSaving = [this] {
        state().m_ReadOnly = true;
        dialogs.answerMessage(6);
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
        EXPECT_EQ(form->windowTitle(), "other.xml - Quillon XML Editor");
    });
    keeps([&] {
        giveUpSaving();
        editor().commands.mnuFileMRUFiles_Click(path("other.xml"));
    });
    keeps(
        [&] {
            giveUpSaving();
            EXPECT_TRUE(form->close());
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
        dialogs.answerMessage(7);
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
        dialogs.answerMessage(6);
        dialogs.answerFile({QString(), 0});
    };
    giveUpSaving();
    EXPECT_THROW(editor().commands.mnuFileNew_Click(), runtime::Error);
    giveUpSaving();
    dialogs.answerMessage(1);
    EXPECT_FALSE(form->close());
    EXPECT_EQ(dialogs.messages.back().style, 48);
    EXPECT_EQ(xml(), "<r>new</r>");
    EXPECT_EQ(form->windowTitle(), "doc.xml * - Quillon XML Editor");
    EXPECT_TRUE(state().m_Modified);
}

TEST_F(CrashRecoveryTest, AFileThatCannotBeOpenedTakesNoChangesAway) {
    open("<r>old</r>");
    change("old", "new");
    write("broken.xml", "<broken>");
    dialogs.answerMessage(1);
    QSignalSpy written(recovery.get(), &CrashRecovery::written);
    editor().commands.openUnasked(path("broken.xml"));
    ASSERT_TRUE(written.wait());
    EXPECT_EQ(files(kept).filter(".xml").size(), 1);
    crash();
    restart();
    dialogs.answerMessage(6);
    recovery->offer();
    EXPECT_EQ(form->windowTitle(), "doc.xml (復元) * - Quillon XML Editor");
    EXPECT_EQ(xml(), "<r>new</r>");
}

TEST_F(CrashRecoveryTest, TheLastStateThatCanBeOpenedIsKept) {
    open("<r>old</r>");
    change("old", "new");
    const QStringList before = files(kept);
    select("r");
    dialogs.answerMessage(6);
    editor().nodeCommands.mnuEditDelete_Click();
    ASSERT_FALSE(state().m_DOM.documentElement());
    QSignalSpy written(recovery.get(), &CrashRecovery::written);
    editor().history.UndoCommand();
    recovery->documentChanged();
    ASSERT_TRUE(written.wait());
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
    EXPECT_TRUE(written.wait());
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
    dialogs.answerMessage(6);
    recovery->offer();
    EXPECT_EQ(xml(), "<r>new</r>");
    dialogs.answerFile({QString(), 0});
    editor().commands.mnuFileSaveAs_Click();
    EXPECT_EQ(dialogs.saveRequests.back().path, path("doc.xml"));
}

TEST_F(CrashRecoveryTest, ThatNothingCanBeKeptIsToldOnce) {
    QDir(path("kept")).removeRecursively();
    write("kept", "a file where the folder should be");
    QStringList told;
    QObject::connect(recovery.get(), &CrashRecovery::statusText,
                     [&](const QString &text) { told.append(text); });
    open("<r>old</r>");
    select("old");
    type("new");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !told.isEmpty(); }));
    // It goes on trying, and succeeds when there is a folder.
    QFile::remove(path("kept"));
    QSignalSpy written(recovery.get(), &CrashRecovery::written);
    EXPECT_TRUE(written.wait());
    EXPECT_EQ(told.size(), 1);
}

TEST_F(CrashRecoveryTest, DeclinedOnesAreDeletedAndTheOthersWait) {
    for (const char *name : {"one.xml", "two.xml", "three.xml"}) {
        time = time.addSecs(1);
        open("<r>old</r>", name);
        change("old", name);
        crash();
        dialogs.answerMessage(7);
        editor().commands.mnuFileClose_Click();
    }
    restart();
    dialogs.messages.clear();
    dialogs.answerMessage(7);
    dialogs.answerMessage(6);
    recovery->offer();
    EXPECT_TRUE(dialogs.messages[0].text.contains("three.xml")) << "the latest first";
    EXPECT_EQ(xml(), "<r>two.xml</r>");
    EXPECT_EQ(files(left).filter("20020101000002"), QStringList());
    const std::vector<Recoverable> waiting = recovery->find();
    ASSERT_EQ(waiting.size(), 1u);
    EXPECT_EQ(waiting[0].name, path("one.xml"));
    EXPECT_TRUE(recovery->find().empty()) << "another program is offering it";
}

TEST_F(CrashRecoveryTest, WhatIsInUseOrNotOfferedOutlivesTheEndOfAnotherProgram) {
    open("<r>old</r>");
    change("old", "new");
    kept.fileToWrite("20011231235959.bak");
    write("kept/20011231235959.bak", "copy");
    EXPECT_TRUE(start(kept, soon)->find().empty());
    kept.leave();
    EXPECT_EQ(files(kept).size(), 3);
    EXPECT_EQ(QDir(path("kept")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList("recovery"));
    for (const QFileInfo &file : QDir(path("kept/recovery")).entryInfoList(QDir::Files))
        EXPECT_EQ(file.permissions() & (QFile::ReadGroup | QFile::ReadOther), 0)
            << file.fileName().toStdString();
    recovery->discard();
    kept.create();
    kept.leave();
    EXPECT_FALSE(QFileInfo::exists(kept.path()));
}

TEST_F(CrashRecoveryTest, WhatCannotBeOpenedStaysAndWhatIsOfNoUseGoes) {
    QDir().mkpath(path("left/recovery"));
    write("left/recovery/20011231235959-1.xml", "<broken>");
    write("left/recovery/20011231235959-1.name", "broken.xml");
    write("left/recovery/20011231235959-2.name", "never written");
    write("left/recovery/.20011231235959-2.xml.Ab12Cd", "<half");
    open("<r/>");
    recovery = start(left);
    dialogs.answerMessage(6);
    dialogs.answerMessage(1);
    recovery->offer();
    EXPECT_EQ(dialogs.messages.back().style, 48);
    EXPECT_EQ(xml(), "<r/>");
    EXPECT_EQ(form->windowTitle(), "doc.xml - Quillon XML Editor");
    EXPECT_EQ(files(left), QStringList({"20011231235959-1.name", "20011231235959-1.xml"}));
    // It does not stand in the way of the others.
    write("left/recovery/20001231235959-1.xml", "<good/>");
    write("left/recovery/20001231235959-1.name", "good.xml");
    dialogs.answerMessage(6);
    dialogs.answerMessage(1);
    dialogs.answerMessage(6);
    recovery->offer();
    EXPECT_EQ(xml(), "<good/>");
    EXPECT_TRUE(QFile::exists(path("left/recovery/20011231235959-1.xml")));
}

TEST_F(CrashRecoveryTest, OnlyWhatTheProgramHasWrittenIsOffered) {
    QDir().mkpath(path("left/recovery"));
    write("evil.xml", "<evil/>");
    for (const char *name : {"evil.xml", "evil.name", "20011231235959-1.xml"})
        write("left/recovery/" + QString(name), "<evil/>");
    write("left/recovery/20011231235959-2.name", "doc.xml");
    ASSERT_TRUE(QFile::link(path("evil.xml"), path("left/recovery/20011231235959-2.xml")));
    const QStringList before = files(left);
    recovery = start(left);
    EXPECT_TRUE(recovery->find().empty());
    EXPECT_EQ(files(left), before);
    ASSERT_TRUE(QDir(path("left")).rename("recovery", "elsewhere"));
    write("left/elsewhere/20011231235959-1.name", "doc.xml");
    EXPECT_TRUE(QFile::link("elsewhere", path("left/recovery")));
    EXPECT_TRUE(recovery->find().empty()) << "a link is not followed";
    ASSERT_TRUE(QFile::remove(path("left/recovery")));
    ASSERT_TRUE(QDir(path("left")).rename("elsewhere", "recovery"));
    EXPECT_EQ(recovery->find().size(), 1u);
}

TEST_F(CrashRecoveryTest, WhatIsWrittenInItsPlaceIsOfferedAfterACrashHalfWay) {
    open("<r>old</r>");
    // Saving under the name of another file, without a change.
    recovery->keepForSaving(path("other.xml"), "<r>whole</r>");
    crash();
    editor().commands.mnuFileSave_Click();
    EXPECT_FALSE(QFileInfo::exists(kept.filePath("recovery"))) << "the save has been finished";
    write("other.xml", "<r>wh");
    restart();
    dialogs.answerMessage(6);
    recovery->offer();
    EXPECT_TRUE(dialogs.messages.back().text.contains(path("other.xml")));
    EXPECT_EQ(xml(), "<r>whole</r>");
    write("taken", "no folder");
    const system::WorkingFolder unusable(path("taken"));
    EXPECT_THROW(start(unusable)->keepForSaving("a", "<r/>"), runtime::Error);
    // The program's own one is asked for it.
    editor().commands.beforeOverwriting(path("doc.xml"), "<r/>");
    EXPECT_EQ(QDir(path("Temp/recovery")).entryList({"*.xml"}, QDir::Files).size(), 1);
}

} // namespace

} // namespace quillon::test
