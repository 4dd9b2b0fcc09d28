#include "platform/runtime/error.h"
#include "platform/system/working_folder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace quillon::system;
using quillon::runtime::Error;

namespace {

class WorkingFolderTest : public testing::Test {
protected:
    QString path(const QString &name) const { return temporary.filePath(name); }
    QString write(const QString &at, const QByteArray &bytes) const {
        QFile file(at);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << at.toStdString();
        file.write(bytes);
        return at;
    }
    QByteArray read(const QString &at) const {
        QFile file(at);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << at.toStdString();
        return file.readAll();
    }
    QStringList names() const {
        return QDir(path("Temp")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    static unsigned mode(const QString &at) {
        struct stat status {};
        EXPECT_EQ(::stat(at.toUtf8().constData(), &status), 0);
        return status.st_mode & 07777;
    }
    QString failure(const WorkingFolder &used) const {
        try {
            used.create();
        } catch (const Error &error) {
            return error.description();
        }
        return {};
    }

    const QTemporaryDir temporary;
    const WorkingFolder folder{path("Temp")};
};

TEST_F(WorkingFolderTest, IsItsOwnersAlone) {
    folder.create();
    EXPECT_EQ(mode(path("Temp")), 0700u);
    ASSERT_EQ(::chmod(path("Temp").toUtf8().constData(), 0755), 0);
    const QString copy = folder.fileToWrite("a.xsl");
    EXPECT_EQ(mode(path("Temp")), 0700u);
    const QString original = write(path("a.xsl"), "sheet");
    ASSERT_EQ(::chmod(original.toUtf8().constData(), 0444), 0);
    EXPECT_TRUE(copyFile(original, copy));
    EXPECT_EQ(mode(copy), 0600u);
    EXPECT_TRUE(copyFile(original, copy)) << "once more over the first";
    EXPECT_TRUE(copyFile(copy, copy));
    EXPECT_EQ(read(copy), "sheet");
    EXPECT_FALSE(copyFile(write(path("b"), "b"), copy, ExistingFile::Keep));
    EXPECT_THROW(copyFile(path("b"), path("c"), ExistingFile::Replace, 0), Error);
    EXPECT_FALSE(QFile::exists(path("c")));
    EXPECT_THROW(copyFile("/dev/zero", path("c")), Error);
}

TEST_F(WorkingFolderTest, WhatCannotBeUsedIsNamed) {
    ASSERT_TRUE(QDir(temporary.path()).mkdir("theirs"));
    ASSERT_TRUE(QFile::link(path("theirs"), path("Temp")));
    EXPECT_TRUE(failure(folder).contains(path("Temp"))) << "a link is not followed";
    EXPECT_EQ(QDir(path("theirs")).count(), 2u);
    QFile::remove(path("Temp"));
    write(path("Temp"), "a file in its place");
    EXPECT_TRUE(failure(folder).contains(path("Temp")));
    EXPECT_EQ(read(path("Temp")), "a file in its place");
    // Somebody else's folder: as root, of a user; as a user, of root.
    ASSERT_EQ(::geteuid() == 0 ? ::chown(path("theirs").toUtf8().constData(), 54'321, 54'321) : 0,
              0);
    const WorkingFolder others(::geteuid() == 0 ? path("theirs") : QString("/usr"));
    EXPECT_TRUE(failure(others).contains(others.path()));
}

TEST_F(WorkingFolderTest, OnlyWhatTheProgramHasWrittenGoes) {
    QDir().mkpath(path("Temp/theirs"));
    write(path("Temp/theirs/file"), "x");
    write(path("Temp/notes.txt"), "x");
    write(path("Temp/mine.xsl"), "x");
    write(folder.fileToWrite("20011231235959.bak"), "x");
    write(folder.fileToWrite("mine.xsl"), "over a file that was not ours");
    write(folder.fileToWrite("a b\n.xsl"), "x");
    write(folder.fileToWrite("a b\n.xsl"), "x");
    QDir().mkpath(path("Temp/recovery"));
    write(path("Temp/recovery/kept"), "x");
    folder.leave();
    EXPECT_EQ(names(), QStringList({"mine.xsl", "notes.txt", "recovery", "theirs"}));
    EXPECT_TRUE(QFile::exists(path("Temp/theirs/file")));
    QDir(path("Temp")).removeRecursively();
    write(folder.fileToWrite("preview.htm"), "x");
    QDir().mkpath(path("Temp/recovery"));
    folder.leave();
    EXPECT_FALSE(QDir(path("Temp")).exists());
}

TEST_F(WorkingFolderTest, TheLastWindowClearsWhicheverInstanceItBelongsTo) {
    int go[2], ready[2];
    ASSERT_TRUE(::pipe(go) == 0 && ::pipe(ready) == 0);
    const pid_t other = ::fork();
    if (other == 0) {
        const WorkingFolder theirs(path("Temp"));
        write(theirs.fileToWrite("theirs.bak"), "x");
        char c = 0;
        const bool told = ::write(ready[1], "r", 1) == 1 && ::read(go[0], &c, 1) == 1;
        theirs.leave();
        ::_exit(told ? 0 : 1);
    }
    char c = 0;
    ASSERT_EQ(::read(ready[0], &c, 1), 1);
    const WorkingFolder second(path("Temp"));
    write(folder.fileToWrite("first.bak"), "x");
    second.create();
    folder.leave();
    EXPECT_TRUE(names().contains("first.bak")) << "another window of this program is open";
    second.leave();
    EXPECT_TRUE(names().contains("theirs.bak")) << "another program is running";
    ASSERT_EQ(::write(go[1], "g", 1), 1);
    int status = 0;
    ASSERT_EQ(::waitpid(other, &status, 0), other);
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(QDir(path("Temp")).exists());

    // Whoever comes to a folder that has been taken away makes it anew, and uses that one.
    write(folder.fileToWrite("first.bak"), "x");
    QDir(path("Temp")).removeRecursively();
    write(folder.fileToWrite("again.bak"), "x");
    second.create();
    second.leave();
    EXPECT_TRUE(names().contains("again.bak"));
}

TEST_F(WorkingFolderTest, ItsOwnNamesAreNotForCopies) {
    for (const char *name : {"", "recovery", "Recovery", "recovery/1.xml", ".in-use", ".files",
                             "20011231235959.bak", "x.BAK", "preview.htm", "preview.xml",
                             "document.xml", "_document.xml", "../a.xsl", "/etc/passwd", ".", ".."})
        EXPECT_FALSE(WorkingFolder::isFree(name)) << name;
    for (const char *name : {"a.xsl", "表示.xsl", "preview.xsl", "http:a.xsl"})
        EXPECT_TRUE(WorkingFolder::isFree(name)) << name;
}

} // namespace
