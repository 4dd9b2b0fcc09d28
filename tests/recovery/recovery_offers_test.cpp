#include "tests/recovery/recovery_fixture.h"
#include "tests/support/patience.h"

namespace quillon::test {

namespace {

TEST_F(CrashRecoveryTest, ThatNothingCanBeKeptIsToldOnceUntilItSucceeds) {
    const auto barFolder = [this] {
        QDir(path("kept")).removeRecursively();
        write("kept", "a file where the folder should be");
    };
    barFolder();
    QStringList told;
    QObject::connect(recovery.get(), &CrashRecovery::statusText,
                     [&](const QString &text) { told.append(text); });
    open("<r>old</r>");
    select("old");
    type("new");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !told.isEmpty(); }, Patience));
    // It goes on trying, and succeeds when there is a folder.
    QFile::remove(path("kept"));
    QSignalSpy written(recovery.get(), &CrashRecovery::written);
    EXPECT_TRUE(written.wait(Patience));
    EXPECT_EQ(told.size(), 1);
    barFolder();
    type("newer");
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.size() == 2; }, Patience));
}

TEST_F(CrashRecoveryTest, DeclinedOnesAreDeletedAndTheOthersWait) {
    for (const char *name : {"one.xml", "two.xml", "three.xml"}) {
        time = time.addSecs(1);
        open("<r>old</r>", name);
        change("old", name);
        crash();
        dialogs.answerMessage(ui::message_answer::No);
        editor().commands.mnuFileClose_Click();
    }
    restart();
    dialogs.messages.clear();
    dialogs.answerMessage(ui::message_answer::No);
    dialogs.answerMessage(ui::message_answer::Yes);
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
    write("left/recovery/20011231235959-1.xml", QByteArray(64, '\1'));
    write("left/recovery/20011231235959-1.name", "broken.xml");
    write("left/recovery/20011231235959-2.name", "never written");
    write("left/recovery/.20011231235959-2.xml.Ab12Cd", "<half");
    open("<r/>");
    recovery = start(left);
    dialogs.answerMessage(ui::message_answer::Yes);
    dialogs.answerMessage(ui::message_answer::Ok);
    recovery->offer();
    EXPECT_EQ(dialogs.messages.back().style, 48);
    EXPECT_EQ(xml(), "<r/>");
    EXPECT_EQ(title(), "doc.xml - Quillon XML Editor");
    EXPECT_EQ(files(left), QStringList({"20011231235959-1.name", "20011231235959-1.xml"}));
    // It does not stand in the way of the others.
    write("left/recovery/20001231235959-1.xml", "<good/>");
    write("left/recovery/20001231235959-1.name", "good.xml");
    dialogs.answerMessage(ui::message_answer::Yes);
    dialogs.answerMessage(ui::message_answer::Ok);
    dialogs.answerMessage(ui::message_answer::Yes);
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
    dialogs.answerMessage(ui::message_answer::Yes);
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
