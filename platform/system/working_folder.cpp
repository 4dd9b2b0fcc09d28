#include "platform/system/working_folder.h"

#include "platform/runtime/descriptor.h"
#include "platform/runtime/error.h"
#include "platform/runtime/file_names.h"
#include "resources/texts.h"
#include "resources/xml_texts.h"

#include <QDir>
#include <QFileInfo>
#include <QThread>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace quillon::system {

namespace error_number = runtime::error_number;
namespace texts = resources::texts;

namespace {

/// Locked by everyone who uses the folder.
const QString LockName = QStringLiteral(".in-use");
/// The names of the program's own files, each followed by the one character that no name has.
const QString ListName = QStringLiteral(".files");
constexpr char Separator = '/';

QByteArray bytesOf(const QString &path) {
    return runtime::encodedPath(path);
}

[[noreturn]] void failWithFolder(const QString &path, const QString &reason) {
    throw runtime::Error(error_number::PathNotFound, texts::CannotUseWorkingFolder.toString().arg(
                                                         runtime::shownPath(path), reason));
}

/// Without following a link. False when nothing stands there.
bool look(const QString &path, struct stat &status) {
    return ::lstat(bytesOf(path).constData(), &status) == 0;
}

/// Without the descriptor being inherited by programs that are started.
int openFile(const QString &path, int flags, mode_t mode = 0) {
    return ::open(bytesOf(path).constData(), flags | O_CLOEXEC, mode);
}

/// 0, or the errno of what went wrong.
int copyBytes(int from, int to) {
    std::array<char, 65536> block;
    for (;;) {
        const ssize_t count = ::read(from, block.data(), block.size());
        if (count == 0)
            return 0;
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0 || !runtime::writeAll(to, {block.data(), static_cast<std::size_t>(count)}))
            return errno;
    }
}

} // namespace

void makePrivateFolder(const QString &path) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    const QByteArray name = bytesOf(path);
    if (::mkdir(name.constData(), 0700) != 0 && errno != EEXIST)
        failWithFolder(path, resources::xml_texts::systemReason(errno));
    struct stat status {};
    if (!look(path, status))
        failWithFolder(path, resources::xml_texts::systemReason(errno));
    if (!S_ISDIR(status.st_mode))
        failWithFolder(path, texts::NoFolderThere.toString());
    if (status.st_uid != ::geteuid())
        failWithFolder(path, texts::FolderOfAnotherUser.toString());
    if ((status.st_mode & 07777) != 0700 && ::chmod(name.constData(), 0700) != 0)
        failWithFolder(path, resources::xml_texts::systemReason(errno));
}

bool isOwnFolder(const QString &path) {
    struct stat status {};
    return look(path, status) && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid();
}

bool isOwnFile(const QString &path) {
    struct stat status {};
    return look(path, status) && S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
}

WorkingFolder::~WorkingFolder() {
    if (lock_ >= 0)
        ::close(lock_);
}

QString WorkingFolder::filePath(const QString &relativeName) const {
    const QString folder = QDir::cleanPath(path_);
    const QString path = QDir::cleanPath(folder + QLatin1Char('/') + relativeName);
    return path.startsWith(folder + QLatin1Char('/')) ? path : QString();
}

QString WorkingFolder::fileToWrite(const QString &name) const {
    create();
    struct stat status {};
    // A file of somebody else's that is written over does not become the program's.
    if (!isFree(name) || !look(filePath(name), status))
        note(name);
    return filePath(name);
}

bool WorkingFolder::isFree(const QString &name) {
    using namespace working_name;
    // Capital letters, too: some file systems take them for the same.
    static const QStringList own{Recovery, PreviewStem + QStringLiteral("htm"),
                                 PreviewStem + QStringLiteral("xml"), ValidatedCopy,
                                 u'_' + ValidatedCopy};
    return !name.isEmpty() && !name.contains(u'/') && !name.startsWith(u'.') &&
           !name.endsWith(BackupSuffix, Qt::CaseInsensitive) &&
           !own.contains(name, Qt::CaseInsensitive);
}

void WorkingFolder::create() const {
    makePrivateFolder(path_);
    if (!isHeld())
        hold();
}

bool WorkingFolder::isHeld() const {
    struct stat held {};
    struct stat there {};
    return lock_ >= 0 && ::fstat(lock_, &held) == 0 && look(filePath(LockName), there) &&
           held.st_dev == there.st_dev && held.st_ino == there.st_ino;
}

void WorkingFolder::hold() const {
    // Whoever locks it against others is only just clearing the folder away. One that hangs there
    // must not keep this one from working.
    constexpr int MostTries = 100;
    constexpr int PauseMs = 10;
    for (int tries = 0; tries < MostTries; ++tries) {
        if (lock_ >= 0)
            ::close(lock_);
        lock_ = openFile(filePath(LockName), O_RDWR | O_CREAT | O_NOFOLLOW, 0600);
        if (lock_ < 0)
            return;
        // What has been cleared away in this moment is made once more.
        if (::flock(lock_, LOCK_SH | LOCK_NB) != 0)
            QThread::msleep(PauseMs);
        else if (isHeld())
            return;
        makePrivateFolder(path_);
    }
}

void WorkingFolder::note(const QString &name) const {
    const runtime::Descriptor list(
        openFile(filePath(ListName), O_RDWR | O_CREAT | O_APPEND | O_NOFOLLOW, 0600));
    QFile file;
    if (list.get() < 0 || !file.open(list.get(), QIODevice::ReadWrite | QIODevice::Append))
        return;
    const QByteArray entry = bytesOf(name);
    file.seek(0);
    if (!file.readAll().split(Separator).contains(entry))
        file.write(entry + Separator);
}

void WorkingFolder::leave() const {
    if (lock_ < 0)
        return;
    // Of several that leave at once, the last one to come here finds no lock of the others.
    if (isHeld() && ::flock(lock_, LOCK_EX | LOCK_NB) == 0)
        clear();
    ::close(std::exchange(lock_, -1));
}

void WorkingFolder::clear() const {
    QFile list(filePath(ListName));
    if (list.open(QIODevice::ReadOnly)) {
        for (const QByteArray &name : list.readAll().split(Separator)) {
            if (!name.isEmpty())
                ::unlink((bytesOf(path_) + '/' + name).constData());
        }
        list.remove();
    }
    // Neither goes while something is in it. The lock comes last: from then on others come in.
    ::rmdir(bytesOf(filePath(working_name::Recovery)).constData());
    ::unlink(bytesOf(filePath(LockName)).constData());
    ::rmdir(bytesOf(path_).constData());
}

bool copyFile(const QString &from, const QString &to, ExistingFile existing,
              std::optional<qint64> mostBytes) {
    if (to.isEmpty())
        runtime::raise(error_number::PathNotFound);
    const auto fail = [&](int error) {
        throw runtime::Error(
            error == ENOSPC || error == EDQUOT ? error_number::DiskFull
                                               : error_number::PermissionDenied,
            texts::CannotCopy.toString().arg(runtime::shownPath(from), runtime::shownPath(to),
                                             resources::xml_texts::systemReason(error)));
    };
    struct stat source {};
    if (::stat(bytesOf(from).constData(), &source) != 0 || !S_ISREG(source.st_mode))
        runtime::raise(error_number::FileNotFound);
    if (mostBytes && source.st_size > *mostBytes)
        runtime::raise(error_number::DiskFull);
    struct stat target {};
    if (look(to, target) && target.st_dev == source.st_dev && target.st_ino == source.st_ino)
        return true;
    const runtime::Descriptor input(openFile(from, O_RDONLY | O_NONBLOCK));
    if (input.get() < 0)
        throw runtime::Error(
            error_number::PermissionDenied,
            resources::xml_texts::CannotOpen.toString().arg(runtime::shownPath(from)));
    if (existing == ExistingFile::Replace)
        ::unlink(bytesOf(to).constData());
    const runtime::Descriptor output(openFile(to, O_WRONLY | O_CREAT | O_EXCL, 0600));
    if (output.get() < 0 && errno == EEXIST)
        return false;
    if (output.get() < 0)
        fail(errno);
    if (const int error = copyBytes(input.get(), output.get()); error != 0) {
        ::unlink(bytesOf(to).constData());
        fail(error);
    }
    return true;
}

} // namespace quillon::system
