#include "platform/runtime/error.h"
#include "platform/runtime/file_names.h"
#include "platform/xml/io/access_rights.h"
#include "tests/platform/xml/xml_test_support.h"
#include "tests/support/as_user.h"

#include <QFileInfo>

#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/xattr.h>

namespace quillon::xml::test {

namespace {

using quillon::test::asUser;

constexpr uid_t User = 54'321;
constexpr gid_t OwnGroup = 54'322;
constexpr gid_t SharedGroup = 54'323;

constexpr char AccessList[] = "system.posix_acl_access";
constexpr char DefaultList[] = "system.posix_acl_default";

struct Entry {
    quint16 kind;
    quint16 rights;
    quint32 id = quint32(-1);
};

/// An access control list as the system keeps it: owner, one named user, group, mask, others.
std::string accessList(quint16 group, quint16 mask) {
    const Entry entries[] = {{1, 6}, {2, 6, 54'324}, {4, group}, {0x10, mask}, {0x20, 0}};
    std::string bytes("\2\0\0\0", 4);
    for (const Entry &entry : entries) {
        for (const quint32 part : {quint32(entry.kind | entry.rights << 16), entry.id})
            bytes.append(reinterpret_cast<const char *>(&part), sizeof part);
    }
    return bytes;
}

std::string attribute(const std::string &path, const char *name) {
    char value[256];
    const ssize_t size = ::getxattr(path.c_str(), name, value, sizeof value);
    return size < 0 ? std::string() : std::string(value, std::size_t(size));
}

bool setAttribute(const std::string &path, const char *name, const std::string &value) {
    return ::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}

struct stat statusOf(const std::string &path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status;
}

/// Files of a user who is not root, whoever runs the test.
class SaveTest : public testing::Test {
protected:
    SaveTest() {
        const std::string folder = QFileInfo(files.path("x")).absolutePath().toStdString();
        if (isRoot) {
            EXPECT_EQ(::chown(folder.c_str(), User, OwnGroup), 0);
            groups = {OwnGroup, SharedGroup};
        } else {
            groups.resize(std::size_t(std::max(1, ::getgroups(0, nullptr))));
            if (::getgroups(int(groups.size()), groups.data()) < 1)
                groups = {::getgid()};
        }
    }
    std::string path(const QString &name) const { return files.path(name).toStdString(); }
    /// The file belongs to the user, and to a group of his that new files do not get.
    std::string write(const QString &name, const std::string &bytes, mode_t mode = 0640) {
        files.write(name, bytes);
        EXPECT_EQ(::chown(path(name).c_str(), isRoot ? User : uid_t(-1), groups.back()), 0);
        EXPECT_EQ(::chmod(path(name).c_str(), mode), 0);
        return path(name);
    }
    void lock(const QString &folder) { EXPECT_EQ(::chmod(path(folder).c_str(), 0500), 0); }
    std::string run(const std::function<std::string()> &work) const {
        return asUser(User, groups, work);
    }
    std::string save(const QString &name, const SaveOptions &options = {}) const {
        return run([&] {
            parsed("<new/>").save(files.path(name), options);
            return std::string("saved");
        });
    }

    const bool isRoot = ::geteuid() == 0;
    std::vector<gid_t> groups;
    Files files;
};

TEST_F(SaveTest, KeepsGroupPermissionsListAndAttributes) {
    const std::string file = write("doc.xml", "<old/>", 0664);
    const std::string list = accessList(4, 6);
    if (!setAttribute(file, AccessList, list) || !setAttribute(file, "user.note", "kept"))
        GTEST_SKIP() << "the file system of the temporary folder has no attributes";
    const struct stat before = statusOf(file);
    EXPECT_EQ(save("doc.xml"), "saved");
    EXPECT_EQ(files.read("doc.xml"), "<new/>");
    const struct stat after = statusOf(file);
    EXPECT_NE(after.st_ino, before.st_ino) << "replaced in one step";
    EXPECT_EQ(after.st_gid, before.st_gid);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(attribute(file, AccessList), list);
    EXPECT_EQ(attribute(file, "user.note"), "kept");
}

TEST_F(SaveTest, TheFolderGivesRightsToNewFilesOnly) {
    const std::string folder = QFileInfo(files.path("x")).absolutePath().toStdString();
    const std::string file = write("doc.xml", "<old/>", 0640);
    if (!setAttribute(folder, DefaultList, accessList(6, 6)))
        GTEST_SKIP() << "the file system of the temporary folder has no access control lists";
    EXPECT_EQ(save("doc.xml"), "saved");
    EXPECT_EQ(attribute(file, AccessList), "");
    EXPECT_EQ(statusOf(file).st_mode & 07777, 0640u);
    EXPECT_EQ(save("new.xml"), "saved");
    EXPECT_EQ(attribute(path("new.xml"), AccessList), accessList(6, 6));
}

TEST_F(SaveTest, WhatCannotBeKeptGivesNobodyMore) {
    write("old", "");
    struct stat old = statusOf(path("old"));
    // A group that the user is not in, and that may do more than everybody.
    old.st_gid = 0;
    old.st_mode = S_IFREG | S_ISGID | 0674;
    const std::string told = run([&] {
        const int file = ::open(path("new").c_str(), O_WRONLY | O_CREAT, 0600);
        const bool kept = takeAccessRights(file, QByteArray::fromStdString(path("old")), old);
        return std::string(kept ? "kept" : "lost");
    });
    EXPECT_EQ(told, "lost");
    EXPECT_EQ(statusOf(path("new")).st_mode & 07777, 0644u);
}

TEST_F(SaveTest, AFileOfAnotherUserIsOverwrittenAndStaysHis) {
    if (!isRoot)
        GTEST_SKIP() << "only root can make a file of another user";
    files.write("doc.xml", "<old/>");
    ASSERT_EQ(::chown(path("doc.xml").c_str(), 0, SharedGroup), 0);
    ASSERT_EQ(::chmod(path("doc.xml").c_str(), 0664), 0);
    EXPECT_EQ(save("doc.xml", {.beforeOverwriting = [](std::string_view) {}}), "saved");
    EXPECT_EQ(files.read("doc.xml"), "<new/>");
    EXPECT_EQ(statusOf(path("doc.xml")).st_uid, 0u);
    EXPECT_EQ(statusOf(path("doc.xml")).st_gid, SharedGroup);
    EXPECT_EQ(statusOf(path("doc.xml")).st_mode & 07777, 0664u);
}

TEST_F(SaveTest, InAFolderThatCannotBeWrittenTheFileIsOverwrittenAfterACopy) {
    ASSERT_TRUE(QDir(files.path("")).mkdir("locked"));
    const std::string file = write("locked/doc.xml", "<old/>");
    if (isRoot) {
        ASSERT_EQ(::chown(path("locked").c_str(), User, OwnGroup), 0);
    }
    lock("locked");
    const ino_t before = statusOf(file).st_ino;
    EXPECT_EQ(save("locked/doc.xml").substr(0, 7), "raised:") << "without a place for a copy";
    const auto copying = [this](std::string_view bytes) {
        files.write("copy", std::string(bytes) + " for " + files.read("locked/doc.xml"));
    };
    EXPECT_EQ(save("locked/doc.xml", {.beforeOverwriting = copying}), "saved");
    EXPECT_EQ(files.read("copy"), "<new/> for <old/>") << "the copy comes first";
    EXPECT_EQ(files.read("locked/doc.xml"), "<new/>");
    EXPECT_EQ(statusOf(file).st_ino, before);

    const auto failing = [](std::string_view) { throw std::runtime_error("no copy"); };
    EXPECT_EQ(
        run([&] {
            parsed("<newer/>").save(files.path("locked/doc.xml"), {.beforeOverwriting = failing});
            return std::string();
        }),
        "raised: no copy");
    EXPECT_EQ(files.read("locked/doc.xml"), "<new/>");

    // Half-way the disk is full.
    const std::string told = run([&] {
        const rlimit full{4096, 4096};
        std::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &full);
        parsed("<a>" + std::string(100'000, 'x') + "</a>")
            .save(files.path("locked/doc.xml"), {.beforeOverwriting = [](std::string_view) {}});
        return std::string();
    });
    EXPECT_NE(told.find("空き領域"), told.npos) << told;
    EXPECT_EQ(files.read("locked/doc.xml"), "<new/>");
    ASSERT_EQ(::chmod(path("locked").c_str(), 0700), 0);
}

TEST_F(SaveTest, WhatMayNotBeWrittenIsRefused) {
    write("doc.xml", "<old/>", 0444);
    EXPECT_EQ(save("doc.xml").substr(0, 7), "raised:");
    EXPECT_EQ(save("doc.xml", {.readOnly = ReadOnlyFile::Replace}), "saved");
    EXPECT_EQ(statusOf(path("doc.xml")).st_mode & 07777, 0644u);
    // Nobody's right to write is withheld by a mark; another user's file is protected from us.
    write("others.xml", "<old/>", 0444);
    EXPECT_THROW(parsed("<x/>").save(files.path("others.xml")), runtime::Error) << "as root, too";
}

TEST_F(SaveTest, WhatAKilledWriterHasLeftGoesWithTheNextSave) {
    write("doc.xml", "<old/>");
    files.write(".doc.xml.backup", "another program's");
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit full{4096, 4096};
        const rlimit none{0, 0};
        ::setrlimit(RLIMIT_CORE, &none);
        ::setrlimit(RLIMIT_FSIZE, &full);
        std::signal(SIGXFSZ, SIG_DFL);
        parsed("<a>" + std::string(100'000, 'x') + "</a>").save(files.path("doc.xml"));
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    QStringList left = files.names();
    ASSERT_EQ(left.size(), 3);
    left.removeAll(".doc.xml.backup");
    left.removeAll("doc.xml");
    // Somebody is still writing this one.
    const QString alive = left[0].chopped(1) + "_";
    files.write(alive, "<half");
    const int writer = ::open(path(alive).c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(writer, LOCK_EX), 0);
    parsed("<new/>").save(files.path("doc.xml"));
    EXPECT_EQ(files.names(), QStringList({".doc.xml.backup", alive, "doc.xml"}));
    ::close(writer);
    parsed("<new/>").save(files.path("doc.xml"));
    EXPECT_EQ(files.names(), QStringList({".doc.xml.backup", "doc.xml"}));
}

TEST_F(SaveTest, LinksAreFollowedAndLoopsRefused) {
    write("doc.xml", "<old/>");
    ASSERT_TRUE(QDir(files.path("")).mkdir("sub"));
    ASSERT_EQ(::symlink("../doc.xml", path("sub/link.xml").c_str()), 0);
    ASSERT_EQ(::symlink("loop.xml", path("loop.xml").c_str()), 0);
    ASSERT_EQ(::link(path("doc.xml").c_str(), path("hard.xml").c_str()), 0);
    parsed("<new/>").save(files.path("sub/link.xml"));
    EXPECT_EQ(files.read("doc.xml"), "<new/>");
    EXPECT_TRUE(QFileInfo(files.path("sub/link.xml")).isSymbolicLink());
    EXPECT_EQ(files.read("hard.xml"), "<old/>");
    try {
        parsed("<new/>").save(files.path("loop.xml"));
        ADD_FAILURE() << "a loop has been written";
    } catch (const runtime::Error &error) {
        EXPECT_TRUE(error.description().contains("循環")) << error.what();
    }
    EXPECT_TRUE(QFileInfo(files.path("loop.xml")).isSymbolicLink());
}

TEST_F(SaveTest, PipesDevicesSocketsAndFoldersAreRefusedAtOnce) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(socket, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
    for (const QString &special :
         {files.path("pipe"), files.path("socket"), QString("/dev/zero"), files.path("")}) {
        DOMDocument40 document = DOMDocument40::create();
        EXPECT_FALSE(document.load(special)) << special.toStdString();
        EXPECT_TRUE(document.parseError().reason.contains("開くこと"));
        EXPECT_THROW(parsed("<new/>").save(special), runtime::Error) << special.toStdString();
    }
    ::close(socket);
    // As large as no disk is; nothing may be read or made of it.
    files.write("sparse.xml", "");
    ASSERT_EQ(::truncate(path("sparse.xml").c_str(), off_t(40) << 30), 0);
    DOMDocument40 document = DOMDocument40::create();
    EXPECT_FALSE(document.load(files.path("sparse.xml")));
    EXPECT_TRUE(document.parseError().reason.contains("2 GB"));
}

TEST_F(SaveTest, NamesNeedNotBeUtf8) {
    const QString name = files.path(runtime::decodedPath("\x95\x5c.xml"));
    parsed("<made/>").save(name);
    DOMDocument40 document = DOMDocument40::create();
    EXPECT_TRUE(document.load(name));
    EXPECT_EQ(xml(document), "<made/>");
    // It is there under those very bytes, where Qt does not find it to clear it away.
    EXPECT_EQ(::unlink((path(".") + "/\x95\x5c.xml").c_str()), 0);
}

} // namespace

} // namespace quillon::xml::test
