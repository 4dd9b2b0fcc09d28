#include "platform/runtime/error.h"
#include "platform/runtime/file_names.h"
#include "tests/support/headless_editor.h"

#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

namespace quillon::test {

namespace {

class LoaderTest : public HeadlessEditor {
protected:
    std::string openError(const QString &file) {
        try {
            OpenFile(file);
        } catch (const runtime::Error &error) {
            return error.what();
        }
        return {};
    }
};

TEST_F(LoaderTest, AnOpenedFileIsShownBackedUpAndRemembered) {
    const QByteArray text = "<?xml version='1.0'?>\n<r a='1'><b><c/></b></r>\n";
    open(text);
    EXPECT_EQ(title(), "doc.xml - Quillon XML Editor");
    EXPECT_EQ(state().m_BackupPath, path("Temp/20011231235959.bak"));
    EXPECT_EQ(read("Temp/20011231235959.bak"), text);
    EXPECT_EQ(expanded(), QStringList({"#document", "xml", "r"}));
    EXPECT_EQ(tree().SelectedItem(), tree().nodes().Item(1));
    EXPECT_FALSE(state().m_Modified);
    EXPECT_TRUE(state().m_Opened);
    EXPECT_FALSE(state().m_ReadOnly);
    EXPECT_FALSE(editor().history.CanUndo());
    EXPECT_EQ(window->opened, 1);
    EXPECT_EQ(editor().recentFiles.read(), QStringList(path("doc.xml")));
    // The same second gives the same copy.
    open("<other/>");
    EXPECT_EQ(working(), QStringList("20011231235959.bak"));
    EXPECT_EQ(read("Temp/20011231235959.bak"), "<other/>");
    EXPECT_FALSE(OpenFile(""));
    EXPECT_EQ(xml(), "<other/>");
}

TEST_F(LoaderTest, WhatDoesNotParseIsToldAndStillCopied) {
    const QString readOnly = write("bad.xml", "<r>");
    QFile::setPermissions(readOnly, QFile::ReadOwner);
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_FALSE(OpenFile(readOnly));
    EXPECT_TRUE(state().m_DOM) << "an empty window gets an empty document";
    EXPECT_EQ(xml(), "");
    EXPECT_FALSE(state().m_ReadOnly);
    QFile::setPermissions(readOnly, QFile::ReadOwner | QFile::WriteOwner);
    open("<r><kept/></r>");
    time = time.addSecs(1);
    for (const char *bad : {"<r>", "", "<!-- no root -->"}) {
        dialogs.answerMessage(ui::message_answer::Ok);
        EXPECT_FALSE(OpenFile(write("bad.xml", bad)));
        EXPECT_EQ(dialogs.messages.back().text, "XMLをパースできません。");
        EXPECT_EQ(dialogs.messages.back().style, 48);
        EXPECT_EQ(dialogs.messages.back().title, "Quillon XML Editor");
        EXPECT_EQ(read("Temp/20020101000000.bak"), bad);
        EXPECT_EQ(xml(), "<r><kept/></r>") << "what is shown stays the document";
        EXPECT_TRUE(item("kept"));
        EXPECT_EQ(state().m_BackupPath, path("Temp/20011231235959.bak"));
    }
    EXPECT_EQ(editor().recentFiles.read(), QStringList(path("doc.xml")));
    EXPECT_EQ(status(), "");
}

TEST_F(LoaderTest, AFileThatIsStoppedLeavesTheWindowAsItWas) {
    open("<r><kept/></r>");
    editor().commands.DocumentModified();
    const QString large = write("large.xml", "<r>" + QByteArray("<a/>").repeated(40'000) + "</r>");
    window->longWork.isStopWanted = true;
    EXPECT_NE(openError(large), "");
    EXPECT_EQ(xml(), "<r><kept/></r>");
    EXPECT_TRUE(item("kept"));
    EXPECT_EQ(title(), "doc.xml * - Quillon XML Editor");
    EXPECT_EQ(working(), QStringList("20011231235959.bak"));
    EXPECT_EQ(editor().recentFiles.read(), QStringList(path("doc.xml")));
    EXPECT_EQ(status(), "");
    window->longWork.isStopWanted = false;
    EXPECT_TRUE(OpenFile(large));
}

TEST_F(LoaderTest, AFileThatCannotBeReadOrCopiedRaises) {
    EXPECT_EQ(openError(path("none.xml")), "ファイルが見つかりません。");
    open("<r/>");
    ASSERT_EQ(::mkfifo(path("pipe.xml").toUtf8().constData(), 0600), 0);
    for (const QString &special : {folder.path(), path("pipe.xml"), QString("/dev/zero")})
        EXPECT_NE(openError(special).find(special.toStdString()), std::string::npos);
    EXPECT_EQ(xml(), "<r/>") << "refused before anything has been changed";
    state().m_ReadOnly = true;
    EXPECT_EQ(openError(path("none.xml")), "ファイルが見つかりません。");
    state().m_ReadOnly = false;
    QDir(path("Temp")).removeRecursively();
    EXPECT_EQ(openError(write("doc.xml", "<r/>")), "") << "the folder is made again";
    QDir(path("Temp")).removeRecursively();
    write("Temp", "a file in its place");
    EXPECT_NE(openError(path("doc.xml")).find(path("Temp").toStdString()), std::string::npos);
}

TEST_F(LoaderTest, TheReadOnlyAttributeMakesTheDocumentReadOnly) {
    const QString file = write("doc.xml", "<r/>");
    QFile::setPermissions(file, QFile::ReadOwner);
    ASSERT_TRUE(OpenFile(file));
    EXPECT_TRUE(state().m_ReadOnly);
    editor().commands.UpdateStatus(file);
    EXPECT_EQ(title(), "doc.xml (読み取り専用) - Quillon XML Editor");
    // A copy in the same second goes over the first one although that is read-only, too.
    ASSERT_TRUE(OpenFile(file));
    // Set beforehand it stays, whatever the file says.
    ASSERT_TRUE(OpenFile(write("other.xml", "<r/>")));
    EXPECT_TRUE(state().m_ReadOnly);
    state().m_ReadOnly = false;
    ASSERT_TRUE(OpenFile(path("other.xml")));
    EXPECT_FALSE(state().m_ReadOnly);
}

TEST_F(LoaderTest, StylesheetsAreCopiedIntoTheWorkingFolderOnly) {
    const struct {
        const char *instruction;
        QStringList copied;
    } cases[] = {
        {"<?xml-stylesheet type='text/xsl' href='a.xsl'?>", {"a.xsl"}},
        {"<?xml-stylesheet href=\"a.xsl\"?><?xml-stylesheet href=\"b.xsl\"?>", {"a.xsl", "b.xsl"}},
        {"<?xml-stylesheet href=|a.xsl|?>", {"a.xsl"}},
        {"<?xml-stylesheet href='missing.xsl'?>", {}},
        {"<?xml-stylesheet href='sub\\c.xsl'?>", {}},
        {"<?xml-stylesheet href='sub/c.xsl'?>", {}},
        {"<?xml-stylesheet href='../a.xsl'?>", {}},
        {"<?xml-stylesheet href='Temp/../../a.xsl'?>", {}},
        {"<?xml-stylesheet href=''?>", {}},
        {"<?other href='a.xsl'?>", {}},
    };
    // The names that lead out lead to a file at the source, and at the target to this folder.
    for (const char *name : {"own/docs/sub", "own/docs/Temp"})
        QDir(folder.path()).mkpath(name);
    for (const char *name : {"own/docs/a.xsl", "own/docs/b.xsl", "own/docs/sub/c.xsl", "own/a.xsl"})
        write(name, name);
    QFile::setPermissions(path("own/docs/a.xsl"), QFile::ReadOwner);
    for (const auto &c : cases) {
        for (const QString &name : working())
            QFile::remove(path("Temp/" + name));
        ASSERT_TRUE(OpenFile(write("own/docs/doc.xml", QByteArray(c.instruction) + "<r/>")));
        QStringList copied = working();
        copied.removeAll("20011231235959.bak");
        EXPECT_EQ(copied, c.copied) << c.instruction;
        if (!copied.isEmpty()) {
            EXPECT_TRUE(QFileInfo(path("Temp/a.xsl")).permission(QFile::WriteOwner));
        }
        EXPECT_FALSE(QFile::exists(path("a.xsl"))) << c.instruction;
    }
}

TEST_F(LoaderTest, ADocumentPlantsNothingInTheWorkingFolder) {
    QDir(folder.path()).mkpath("docs/recovery");
    for (const char *name : {"secret.xsl", "docs/a.xsl", "docs/recovery/20010101000000-1.xml",
                             "docs/recovery", "docs/20000101000000.bak", "docs/preview.htm",
                             "docs/document.xml", "docs/.files", "docs/big.xsl"}) {
        if (!QFileInfo(path(name)).isDir())
            write(name, "planted");
    }
    ASSERT_TRUE(QFile::link("../secret.xsl", path("docs/out.xsl")));
    ASSERT_TRUE(QFile::link("a.xsl", path("docs/in.xsl")));
    ASSERT_TRUE(QFile::link("/dev/zero", path("docs/endless.xsl")));
    ASSERT_EQ(::mkfifo(path("docs/pipe.xsl").toUtf8().constData(), 0600), 0);
    QFile big(path("docs/big.xsl"));
    ASSERT_TRUE(big.resize(qint64(40) << 30));
    QDir().mkpath(path("Temp/recovery"));
    QByteArray instructions;
    for (const QByteArray &href :
         {QByteArray("out.xsl"), QByteArray("in.xsl"), QByteArray("endless.xsl"),
          QByteArray("pipe.xsl"), QByteArray("big.xsl"), path("secret.xsl").toUtf8(),
          QByteArray("../secret.xsl"), QByteArray("recovery/20010101000000-1.xml"),
          QByteArray("recovery"), QByteArray("20000101000000.bak"), QByteArray("preview.htm"),
          QByteArray("document.xml"), QByteArray(".files"), QByteArray("/dev/zero")})
        instructions += "<?xml-stylesheet href='" + href + "'?>";
    ASSERT_TRUE(OpenFile(write("docs/doc.xml", instructions + "<r/>")));
    EXPECT_EQ(working(), QStringList({"20011231235959.bak", "in.xsl"}));
    EXPECT_TRUE(QDir(path("Temp/recovery")).isEmpty(QDir::Files | QDir::Hidden));
    QFile list(path("Temp/.files"));
    ASSERT_TRUE(list.open(QIODevice::ReadOnly));
    EXPECT_FALSE(list.readAll().contains("planted"));
}

TEST_F(LoaderTest, ADocumentWithAFaultyInstructionIsOpenAllTheSame) {
    int opened = 0;
    for (const QByteArray &data : {QByteArray("href='a.xsl"), QByteArray("abcdefg"),
                                   "href='a.xsl' " + QByteArray(32'800, 'x')}) {
        open("<before/>");
        dialogs.answerMessage(ui::message_answer::Ok);
        open("<?xml-stylesheet " + data + "?><?xml-stylesheet href='b.xsl'?><r><a/></r>");
        EXPECT_TRUE(dialogs.messages.back().text.contains("<?xml-stylesheet " + data.left(7)));
        EXPECT_EQ(dialogs.messages.back().style, 48);
        EXPECT_LT(dialogs.messages.back().text.size(), 500);
        EXPECT_EQ(title(), "doc.xml - Quillon XML Editor");
        EXPECT_TRUE(expanded().contains("r"));
        EXPECT_EQ(window->opened, opened += 2);
        EXPECT_TRUE(state().m_Opened);
        select("a");
        state().m_DOM.documentElement().setAttribute("b", "1");
        editor().commands.DocumentModified();
        editor().commands.mnuFileSave_Click();
        EXPECT_TRUE(read("doc.xml").endsWith("<r b=\"1\"><a/></r>"));
    }
    EXPECT_EQ(dialogs.messages.size(), 3u) << "one is told of, the other is none";
    open("<?xml-stylesheet abcdXa.xslX?><r/>");
    EXPECT_EQ(dialogs.messages.size(), 3u) << "the delimiter is at the fifth character";
    dialogs.answerMessage(ui::message_answer::Ok);
    open("<?xml-stylesheet first?><?xml-stylesheet second?><r/>");
    EXPECT_TRUE(dialogs.messages.back().text.contains("first"));
}

TEST_F(LoaderTest, WindowsThatOpenInTheSameSecondKeepACopyEach) {
    open("<first/>");
    const auto other = makeWindow();
    document::DocumentLoader &second = other->editor.loader;
    ASSERT_TRUE(second.OpenFile(write("second.xml", "<second/>")));
    EXPECT_EQ(read("Temp/20011231235959.bak"), "<first/>");
    EXPECT_EQ(read("Temp/20011231235959-2.bak"), "<second/>");
    // Each goes over its own.
    ASSERT_TRUE(second.OpenFile(write("third.xml", "<third/>")));
    open("<fourth/>");
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_FALSE(OpenFile(write("bad.xml", "<r>"))) << "the document before stays, and its copy";
    EXPECT_EQ(read("Temp/20011231235959.bak"), "<fourth/>");
    EXPECT_EQ(read("Temp/20011231235959-3.bak"), "<r>");
    EXPECT_EQ(read("Temp/20011231235959-2.bak"), "<third/>");
    editor().commands.DocumentModified();
    dialogs.answerMessage(ui::message_answer::Yes);
    editor().commands.mnuEditUndoAll_Click();
    EXPECT_EQ(xml(), "<fourth/>");
}

TEST_F(LoaderTest, NamesNeedNotBeUtf8) {
    const QString file = path(runtime::decodedPath("\x95\x5c\x8e\xa6[*].xml"));
    xml::DOMDocument40 made = xml::DOMDocument40::create();
    made.loadXML(QByteArray("<made/>"));
    made.save(file);
    ASSERT_TRUE(OpenFile(file));
    editor().commands.UpdateStatus(file);
    EXPECT_EQ(title(), "表示[*].xml - Quillon XML Editor");
    EXPECT_EQ(read("Temp/20011231235959.bak"), "<made/>");
    EXPECT_EQ(editor().recentFiles.read(), QStringList(file));
    state().m_DOM.documentElement().setAttribute("a", "1");
    editor().commands.DocumentModified();
    editor().commands.mnuFileSave_Click();
    ASSERT_TRUE(OpenFile(file));
    EXPECT_EQ(xml(), "<made a=\"1\"/>");
    // The dialog is given what can be read; Qt does not find the file to clear it away.
    dialogs.answerFile({QString(), 0});
    editor().commands.mnuFileSaveAs_Click();
    EXPECT_EQ(dialogs.saveRequests.back().path, path("表示[*].xml"));
    EXPECT_EQ(::unlink(runtime::encodedPath(file).constData()), 0);
}

TEST_F(LoaderTest, TextIsLoadedWithoutACopyOrAMessage) {
    open("<r/>");
    state().m_Modified = true;
    editor().loader.LoadXML("<t>x</t>");
    EXPECT_FALSE(editor().commands.canUndoAll());
    EXPECT_EQ(xml(), "<t>x</t>");
    EXPECT_EQ(title(), "#document * - Quillon XML Editor");
    EXPECT_EQ(tree().nodes().Count(), 3);
    EXPECT_FALSE(tree().nodes().Item(1).Expanded());
    editor().loader.LoadXML("<t>");
    EXPECT_EQ(tree().nodes().Count(), 1);
    EXPECT_EQ(xml(), "");
}

TEST_F(LoaderTest, RecentFilesKeepTenAndForgetWhatIsGone) {
    for (int i = 1; i <= 11; ++i)
        open("<r/>", QString("%1.xml").arg(i));
    const document::RecentFiles &recent = editor().recentFiles;
    EXPECT_EQ(recent.read().size(), 10);
    EXPECT_EQ(recent.read().first(), path("11.xml"));
    EXPECT_EQ(recent.read().last(), path("2.xml"));
    open("<r/>", "5.xml");
    EXPECT_EQ(recent.read().first(), path("5.xml"));
    EXPECT_EQ(recent.read().count(path("5.xml")), 1);
    QFile::remove(path("11.xml"));
    EXPECT_FALSE(recent.read().contains(path("11.xml")));
    recent.add(path("5.XML"));
    EXPECT_FALSE(recent.read().contains(path("5.xml")));
}

} // namespace

} // namespace quillon::test
