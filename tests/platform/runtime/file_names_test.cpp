#include "platform/runtime/file_access.h"
#include "platform/runtime/file_names.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace quillon::runtime;

namespace {

TEST(FileNames, EveryByteComesBackAndReadsAsItWasMeant) {
    const struct {
        QByteArray bytes;
        const char *shown;
    } cases[] = {
        {"/tmp/doc.xml", "/tmp/doc.xml"},
        {"/tmp/注文😀.xml", "/tmp/注文😀.xml"},
        {"/注文/\x95\x5c\x8e\xa6.xml", "/注文/表示.xml"}, // Shift_JIS, with a backslash in it
        {"\xc9\xbd\xbc\xa8.xml", "ﾉｽｼｨ.xml"},             // EUC-JP that is Shift_JIS as well
        {"\x8f\xb0\xa1\xff", "\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd"}, // nothing at all
        {"\xf0\x9f\x98", "\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd"}, // a character cut off
        {"\xed\xa0\x80\xff", nullptr},                            // half a surrogate pair
        {"\xee\xbe\x81", nullptr},                                // looks like an escaped byte
        {"", ""},
    };
    for (const auto &c : cases) {
        const QString path = decodedPath(c.bytes);
        EXPECT_EQ(encodedPath(path), c.bytes) << c.bytes.toHex().toStdString();
        EXPECT_EQ(hasForeignBytes(path), path.toUtf8() != c.bytes);
        if (c.shown) {
            EXPECT_EQ(shownPath(path).toStdString(), c.shown);
        }
    }
}

TEST(FileAccess, SaysWhatStandsThereAndWhoMayWriteIt) {
    const QTemporaryDir folder;
    const auto path = [&](const char *name) { return folder.filePath(name); };
    EXPECT_EQ(fileKind(path("none")), FileKind::Missing);
    EXPECT_EQ(fileKind(folder.path()), FileKind::Folder);
    EXPECT_EQ(fileKind("/dev/null"), FileKind::Special);
    QFile file(path("file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(QFile::link(path("file"), path("link")));
    EXPECT_TRUE(isRegularFile(path("link")));
    EXPECT_TRUE(mayWrite(path("file")));
    // Nobody may, root included, who could.
    ASSERT_EQ(::chmod(path("file").toUtf8().constData(), 0444), 0);
    EXPECT_FALSE(mayWrite(path("file")));
    // The owner's right is no help to anybody else, and the others' none to the owner.
    const bool isRoot = ::geteuid() == 0;
    ASSERT_EQ(::chmod(path("file").toUtf8().constData(), 0464), 0);
    EXPECT_EQ(mayWrite(path("file")), isRoot);
    EXPECT_EQ(mayWrite("/etc/passwd"), isRoot);
}

} // namespace
