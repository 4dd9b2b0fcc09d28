#include "platform/runtime/paths.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace quillon::runtime;

namespace {

TEST(ApplicationFolder, IsTheExecutablesFolderOnlyWhereThatCanBeWritten) {
    const QTemporaryDir folder;
    const QString data = folder.filePath(QStringLiteral("share/quillon"));
    EXPECT_EQ(applicationFolder(folder.path(), data), folder.path());
    EXPECT_FALSE(QDir(data).exists());

    EXPECT_EQ(applicationFolder(folder.filePath(QStringLiteral("missing")), data), data);
    EXPECT_TRUE(QDir(data).exists());
    EXPECT_EQ(workingFolder(data), data + QStringLiteral("/Temp"));
}

TEST(Paths, FileNameIsTheLastComponent) {
    EXPECT_EQ(fileName(QStringLiteral("/home/user/注文.v2.xml")), QStringLiteral("注文.v2.xml"));
    EXPECT_EQ(fileName(QStringLiteral("New XML File")), QStringLiteral("New XML File"));
    EXPECT_EQ(fileName(QStringLiteral("a/")), QString());
}

TEST(TimeStamp, IsFourteenDigits) {
    EXPECT_EQ(timeStamp(QDateTime({2001, 2, 3}, {4, 5, 6})), QStringLiteral("20010203040506"));
    EXPECT_EQ(timeStamp(QDateTime({2001, 12, 31}, {23, 59, 59})), QStringLiteral("20011231235959"));
}

} // namespace
