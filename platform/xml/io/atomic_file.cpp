#include "platform/xml/io/atomic_file.h"

#include "platform/runtime/descriptor.h"
#include "platform/runtime/error.h"
#include "platform/runtime/file_access.h"
#include "platform/runtime/file_names.h"
#include "platform/xml/io/access_rights.h"
#include "resources/xml_texts.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace quillon::xml {

namespace texts = resources::xml_texts;
namespace error_number = runtime::error_number;

using runtime::Descriptor;
using runtime::writeAll;

namespace {

[[noreturn]] void fail(const QString &path, int error) {
    const qint32 number =
        error == ENOSPC || error == EDQUOT || error == EFBIG    ? error_number::DiskFull
        : error == EACCES || error == EPERM || error == EROFS   ? error_number::PermissionDenied
        : error == ENOENT || error == ENOTDIR || error == ELOOP ? error_number::PathNotFound
                                                                : error_number::DeviceIo;
    throw runtime::Error(number, texts::CannotSave.toString().arg(runtime::shownPath(path),
                                                                  texts::systemReason(error)));
}

bool readAll(int fd, std::string &bytes) {
    for (std::size_t used = 0;;) {
        const ssize_t count = ::read(fd, bytes.data() + used, bytes.size() - used);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0) {
            bytes.resize(used);
            return count == 0;
        }
        used += static_cast<std::size_t>(count);
        if (used == bytes.size())
            return true;
    }
}

/// Where a chain of symbolic links ends, also when nothing stands there yet.
std::filesystem::path linkTarget(const QString &path) {
    std::filesystem::path target = runtime::encodedPath(path).toStdString();
    std::error_code error;
    // As many as the system itself follows.
    for (int links = 0; std::filesystem::is_symlink(target, error); ++links) {
        if (links == 40)
            fail(path, ELOOP);
        target = target.parent_path() / std::filesystem::read_symlink(target, error);
    }
    return target;
}

/// What is to be written over, or made.
struct Target {
    explicit Target(const QString &asked) : path(asked) {
        const std::filesystem::path end = linkTarget(asked);
        name = QByteArray::fromStdString(end.native());
        folder = end.has_parent_path() ? end.parent_path().native() : ".";
        // Half of what a name may have, so that there is room for more.
        const QString file = runtime::decodedPath(QByteArray::fromStdString(end.filename()));
        temporaryStem = runtime::encodedPath(u'.' + file.left(42) + QStringLiteral(".quillon-"));
        exists = ::stat(name.constData(), &status) == 0;
        if (!exists && errno != ENOENT)
            fail(path, errno);
        if (exists && S_ISDIR(status.st_mode))
            fail(path, EISDIR);
        if (exists && !S_ISREG(status.st_mode))
            throw runtime::Error(
                error_number::PermissionDenied,
                texts::CannotSaveToSpecial.toString().arg(runtime::shownPath(path)));
    }

    /// As the user named it.
    QString path;
    /// Links followed.
    QByteArray name;
    std::string folder;
    /// How the names of files begin that are written for it, followed by random letters.
    QByteArray temporaryStem;
    bool exists;
    struct stat status {};
};

/// A file that is being written beside the one it is to replace. While its writer lives it is
/// locked, so that others know what is left from what is at work. Removed unless it took its place.
class Temporary {
public:
    Temporary(const Target &target, mode_t mode) {
        // Until one is locked that nobody took for left over in the moment before.
        do {
            name_ = newName(target);
            file_ = ::open(name_.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        } while ((file_ < 0 && errno == EEXIST) || (file_ >= 0 && !isOurs()));
    }
    ~Temporary() {
        if (file_ < 0)
            return;
        if (!name_.isEmpty())
            ::unlink(name_.constData());
        ::close(file_);
    }
    Temporary(const Temporary &) = delete;
    Temporary &operator=(const Temporary &) = delete;

    /// Negative with errno when it could not be made.
    int get() const { return file_; }
    bool takePlaceOf(const QByteArray &name) {
        if (::rename(name_.constData(), name.constData()) != 0)
            return false;
        name_.clear();
        return true;
    }

private:
    static QByteArray newName(const Target &target) {
        const quint32 number = QRandomGenerator::global()->generate();
        return QByteArray::fromStdString(target.folder) + '/' + target.temporaryStem +
               QByteArray::number(number, 36).rightJustified(7, '0');
    }
    /// Gives it up when another process got hold of it.
    bool isOurs() {
        struct stat status {};
        const bool taken = ::flock(file_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        if (!taken && ::fstat(file_, &status) == 0 && status.st_nlink > 0)
            return true;
        ::close(std::exchange(file_, -1));
        return false;
    }

    QByteArray name_;
    int file_ = -1;
};

/// Removes what writers that were killed have left of the same target.
void removeLeftovers(const Target &target) {
    DIR *const folder = ::opendir(target.folder.c_str());
    if (!folder)
        return;
    while (const dirent *entry = ::readdir(folder)) {
        const QByteArray name(entry->d_name);
        if (!name.startsWith(target.temporaryStem))
            continue;
        const Descriptor file(::openat(::dirfd(folder), name.constData(),
                                       O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        struct stat status {};
        if (file.get() >= 0 && ::fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode) &&
            ::flock(file.get(), LOCK_EX | LOCK_NB) == 0)
            ::unlinkat(::dirfd(folder), name.constData(), 0);
    }
    ::closedir(folder);
}

/// Whether an error in making a file beside the old one, or putting it there, says nothing against
/// writing the old one.
bool concernsFolder(int error) {
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY || error == EXDEV;
}

/// 0 when the target has been replaced. Else the errno of why it cannot be, which concerns the
/// folder. `exact`: a file that cannot have all rights of the old one does not replace it.
int replace(const Target &target, std::string_view bytes, const SaveOptions &options, bool exact) {
    removeLeftovers(target);
    // A new file gets from its folder and the user's mask what any new file gets.
    Temporary file(target, target.exists || options.ownerOnly ? 0600 : 0666);
    const auto outcome = [&](int error) {
        if (!concernsFolder(error))
            fail(target.path, error);
        return error;
    };
    if (file.get() < 0)
        return outcome(errno);
    struct stat rights = target.status;
    if (options.readOnly == ReadOnlyFile::Replace)
        rights.st_mode |= S_IWUSR;
    if (target.exists && !takeAccessRights(file.get(), target.name, rights) && exact)
        return EPERM;
    if (!writeAll(file.get(), bytes) || ::fsync(file.get()) != 0)
        fail(target.path, errno);
    if (!file.takePlaceOf(target.name))
        return outcome(errno);
    // The rename itself must survive a crash; where folders cannot be synchronised it is enough
    // that the file was.
    const Descriptor folder(::open(target.folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.get() >= 0)
        ::fsync(folder.get());
    return 0;
}

bool overwriteWith(int file, std::string_view bytes) {
    return ::lseek(file, 0, SEEK_SET) == 0 && writeAll(file, bytes) &&
           ::ftruncate(file, off_t(bytes.size())) == 0 && ::fsync(file) == 0;
}

void overwrite(const Target &target, std::string_view bytes) {
    const Descriptor file(::open(target.name.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (file.get() < 0 || ::fstat(file.get(), &status) != 0)
        fail(target.path, errno);
    std::string old(std::size_t(status.st_size), '\0');
    if (!readAll(file.get(), old))
        fail(target.path, errno);
    // A full disk is to be noticed while nothing has been lost. Not every file system can tell.
    if (::fallocate(file.get(), FALLOC_FL_KEEP_SIZE, 0, std::max<off_t>(1, off_t(bytes.size()))) !=
            0 &&
        (errno == ENOSPC || errno == EDQUOT || errno == EFBIG))
        fail(target.path, errno);
    if (overwriteWith(file.get(), bytes))
        return;
    const int error = errno;
    if (!overwriteWith(file.get(), old))
        throw runtime::Error(error_number::DeviceIo,
                             texts::CannotPutBack.toString().arg(runtime::shownPath(target.path),
                                                                 texts::systemReason(error)));
    fail(target.path, error);
}

} // namespace

void writeFileAtomically(const QString &path, std::string_view bytes, const SaveOptions &options) {
    const Target target(path);
    const bool writable = target.exists && runtime::mayWrite(runtime::decodedPath(target.name));
    const bool replaceable =
        options.readOnly == ReadOnlyFile::Replace && (target.status.st_mode & S_IWUSR) == 0;
    if (target.exists && !writable && !replaceable)
        fail(path, EACCES);
    const bool mayOverwrite = writable && options.beforeOverwriting;
    const int error = replace(target, bytes, options, mayOverwrite);
    if (error == 0)
        return;
    if (!mayOverwrite)
        fail(path, error);
    options.beforeOverwriting(bytes);
    overwrite(target, bytes);
}

} // namespace quillon::xml
