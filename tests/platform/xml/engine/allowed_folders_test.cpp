#include "platform/xml/engine/allowed_folders.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml::test {

namespace {

/// A folder that may be read, in one that may not, where every name leads to a file.
class AllowedFoldersTest : public testing::Test {
protected:
    AllowedFoldersTest() {
        QDir top(path("."));
        for (const char *name : {"in/sub", "in2", "out"})
            EXPECT_TRUE(top.mkpath(name));
        for (const char *name : {"in/a", "in/sub/b", "in2/a", "out/secret", "secret"})
            files.write(name, name);
        EXPECT_TRUE(QFile::link(path("out/secret"), path("in/link")));
        EXPECT_TRUE(QFile::link(path("out"), path("in/folder")));
        EXPECT_TRUE(QFile::link(path("in/sub"), path("in/inner")));
        EXPECT_TRUE(QFile::link(path("in"), path("alias")));
    }
    QString path(const QString &name) const { return files.path(name); }
    /// The file that a name is found to be, from the top folder; empty for none.
    std::string found(const QString &folder, const QString &name) const {
        const QString file = AllowedFolders({path(folder)}).find(name);
        return file.isEmpty()
                   ? std::string()
                   : QDir(QDir(path(".")).canonicalPath()).relativeFilePath(file).toStdString();
    }

    Files files;
};

TEST_F(AllowedFoldersTest, NoNameLeadsOutOfThem) {
    const struct {
        QString name;
        const char *found;
    } cases[] = {
        {"a", "in/a"},
        {"./sub/../a", "in/a"},
        {"sub/b", "in/sub/b"},
        {"inner/b", "in/sub/b"},
        {"../in/a", "in/a"},
        {path("in/a"), "in/a"},
        {path("alias/sub/b"), "in/sub/b"},
        {"../secret", ""},
        {"../in2/a", ""},
        {"sub/../../secret", ""},
        {path("secret"), ""},
        {path("in2/a"), ""},
        {path("in/../secret"), ""},
        {"link", ""},
        {"folder/secret", ""},
        {path("in/link"), ""},
        {path("in/folder/secret"), ""},
        {"sub", ""},
        {"none", ""},
        {"", ""},
    };
    for (const QString folder : {"in", "in/", "alias"}) {
        for (const auto &c : cases)
            EXPECT_EQ(found(folder, c.name), c.found)
                << folder.toStdString() << ": " << c.name.toStdString();
    }
    EXPECT_EQ(found("none", "a"), "");
    EXPECT_TRUE(AllowedFolders(QStringList()).find(path("in/a")).isEmpty());
    EXPECT_TRUE(AllowedFolders(QStringList{""}).find(path("in/a")).isEmpty());
}

} // namespace

} // namespace quillon::xml::test
