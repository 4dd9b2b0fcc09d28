#include "platform/system/open_windows.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using quillon::system::OpenWindows;
using quillon::system::WindowNote;

namespace {

class OpenWindowsTest : public testing::Test {
protected:
    QString newFile(const char *name) {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return file.fileName();
    }
    QString path(const QString &name) const { return temporary_.filePath(name); }
    static QString captions(const OpenWindows &windows) {
        QStringList all;
        for (const OpenWindows::Other &other : windows.others())
            all.append(other.note.caption);
        return all.join(u'|');
    }

    QTemporaryDir temporary_;
    const QString folder_ = path("windows");
};

TEST_F(OpenWindowsTest, KnowEachOtherWhileTheyAreOpen) {
    OpenWindows one(folder_);
    one.tell({"b.xml", path("b.xml"), false});
    EXPECT_EQ(captions(one), "");
    one.join();
    {
        OpenWindows two(folder_);
        two.join();
        two.tell({"a.xml *", path("a.xml"), true});
        OpenWindows unseen(folder_);
        EXPECT_EQ(captions(unseen), "a.xml *|b.xml");
        EXPECT_EQ(captions(two), "b.xml");
        EXPECT_EQ(one.others().front().note, two.note());
        two.tell({"c.xml", {}, false});
        EXPECT_EQ(captions(one), "c.xml");
    }
    EXPECT_EQ(captions(one), "");
}

TEST_F(OpenWindowsTest, FindAFileByAnyNameOfIt) {
    const QString file = newFile("ふ.xml");
    ASSERT_TRUE(QFile::link(file, path("symbolic.xml")));
    ASSERT_EQ(::link(QFile::encodeName(file).constData(),
                     QFile::encodeName(path("hard.xml")).constData()),
              0);
    OpenWindows one(folder_);
    one.join();
    one.tell({"ふ.xml", file, false});
    const OpenWindows asking(folder_);
    ASSERT_TRUE(QDir(temporary_.path()).mkdir("x"));
    for (const QString &name :
         {file, path("symbolic.xml"), path("hard.xml"), path("./x/../ふ.xml")})
        EXPECT_EQ(asking.othersWith(name).size(), 1U) << name.toStdString();
    EXPECT_EQ(asking.othersWith(newFile("other.xml")).size(), 0U);
    EXPECT_EQ(asking.othersWith(path("missing.xml")).size(), 0U);
    one.tell({"New", {}, true});
    EXPECT_EQ(asking.othersWith(file).size(), 0U);
}

TEST_F(OpenWindowsTest, CallEachOtherToTheFrontAndWaitForNobody) {
    OpenWindows one(folder_);
    one.join();
    one.tell({"a", {}, false});
    const OpenWindows asking(folder_);
    const OpenWindows::Other other = asking.others().front();
    QSignalSpy called(&one, &OpenWindows::calledToFront);
    // It does nothing meanwhile, as if it hung; more calls come than it has room for.
    for (int i = 0; i < 10'000; ++i)
        EXPECT_TRUE(asking.callToFront(other));
    EXPECT_EQ(captions(asking), "a");
    EXPECT_TRUE(called.wait());
    EXPECT_EQ(called.count(), 1);
}

TEST_F(OpenWindowsTest, DoWithoutTheDead) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        OpenWindows dying(folder_);
        dying.join();
        dying.tell({"dead", path("d.xml"), true});
        // Without running any destructor, as a crash does.
        _exit(QDir(folder_).entryList(QDir::Files | QDir::System).size() == 2 ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    const OpenWindows asking(folder_);
    EXPECT_EQ(captions(asking), "");
    EXPECT_TRUE(QDir(folder_).isEmpty());
}

TEST_F(OpenWindowsTest, TakeNobodyElsesWordForIt) {
    OpenWindows one(folder_);
    one.join();
    one.tell({"a", {}, false});
    QFile note(folder_ + "/" + QDir(folder_).entryList({"*.window"}).front());
    ASSERT_TRUE(note.open(QIODevice::WriteOnly));
    note.write("no note");
    note.close();
    const OpenWindows asking(folder_);
    EXPECT_EQ(captions(asking), "");
    // A folder that cannot be used is no reason to say anything.
    newFile("file");
    OpenWindows without(path("file"));
    without.join();
    without.tell({"b", {}, false});
    EXPECT_EQ(captions(without), "");
}

} // namespace
