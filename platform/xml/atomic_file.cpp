#include "platform/xml/atomic_file.h"

#include "platform/runtime/error.h"
#include "resources/xml_texts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillon::xml {

namespace {

[[noreturn]] void fail(const QString &path, int error) {
    const qint32 number =
        error == ENOSPC || error == EDQUOT || error == EFBIG ? runtime::error_number::DiskFull
        : error == EACCES || error == EPERM || error == EROFS
            ? runtime::error_number::PermissionDenied
        : error == ENOENT || error == ENOTDIR ? runtime::error_number::PathNotFound
                                              : runtime::error_number::DeviceIo;
    throw runtime::Error(number, resources::xml_text::CannotSave.arg(
                                     path, resources::xml_text::systemReason(error)));
}

class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() {
        if (fd_ >= 0)
            ::close(fd_);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    int get() const { return fd_; }
    /// False with errno set when closing reports a failed write.
    bool close() { return ::close(std::exchange(fd_, -1)) == 0; }

private:
    int fd_;
};

bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(fd, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

void writeDirectly(const QString &path, std::string_view bytes) {
    Descriptor file(::open(QFile::encodeName(path).constData(), O_WRONLY | O_CLOEXEC));
    if (file.get() < 0 || !writeAll(file.get(), bytes) || !file.close())
        fail(path, errno);
}

/// The mode a new file would get.
mode_t defaultMode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

/// Where a chain of symbolic links ends, also when nothing stands there yet.
QString linkTarget(QString path) {
    for (int links = 0; links < 40 && QFileInfo(path).isSymbolicLink(); ++links)
        path = QFileInfo(path).symLinkTarget();
    return path;
}

} // namespace

void writeFileAtomically(const QString &path, std::string_view bytes, ReadOnlyFile readOnly) {
    const QString target = linkTarget(path);
    const QByteArray targetName = QFile::encodeName(target);
    struct stat old {};
    const bool exists = ::stat(targetName.constData(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode))
        fail(path, EISDIR);
    if (exists && !S_ISREG(old.st_mode))
        return writeDirectly(path, bytes);
    // Root may write everything, but a file marked read-only is meant to be left alone.
    const bool writable =
        (old.st_mode & S_IWUSR) != 0 && ::access(targetName.constData(), W_OK) == 0;
    if (exists && !writable && readOnly == ReadOnlyFile::Keep)
        fail(path, EACCES);

    QByteArray temporary = QFile::encodeName(QFileInfo(target).absoluteDir().filePath(
        QStringLiteral(".") + QFileInfo(target).fileName().left(64) + QStringLiteral(".XXXXXX")));
    Descriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (file.get() < 0 && exists && errno == EACCES)
        // The file alone could be written, but not so that it is whole at any moment.
        throw runtime::Error(runtime::error_number::PermissionDenied,
                             resources::xml_text::CannotReplaceInFolder.arg(path));
    if (file.get() < 0)
        fail(path, errno);
    const auto giveUp = [&](int error) {
        ::unlink(temporary.constData());
        fail(path, error);
    };
    // Only root may keep a foreign owner; the permissions matter in any case.
    if (exists && ::fchown(file.get(), old.st_uid, old.st_gid) != 0 && errno != EPERM)
        giveUp(errno);
    if (::fchmod(file.get(), exists ? (old.st_mode & 07777) | S_IWUSR : defaultMode()) != 0 ||
        !writeAll(file.get(), bytes) || ::fsync(file.get()) != 0 || !file.close())
        giveUp(errno);
    if (::rename(temporary.constData(), targetName.constData()) != 0)
        giveUp(errno);
    // The rename itself must survive a crash; where folders cannot be synchronised it is enough
    // that the file was.
    const Descriptor folder(::open(QFile::encodeName(QFileInfo(target).absolutePath()).constData(),
                                   O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.get() >= 0)
        ::fsync(folder.get());
}

} // namespace quillon::xml
