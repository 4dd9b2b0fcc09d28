#include "platform/runtime/file_access.h"

#include "platform/runtime/file_names.h"

#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace quillon::runtime {

namespace {

std::optional<struct stat> statusOf(const QString &path) {
    struct stat status {};
    if (::stat(encodedPath(path).constData(), &status) != 0)
        return std::nullopt;
    return status;
}

} // namespace

FileKind fileKind(const QString &path) {
    const auto status = statusOf(path);
    if (!status)
        return FileKind::Missing;
    return S_ISREG(status->st_mode)   ? FileKind::Regular
           : S_ISDIR(status->st_mode) ? FileKind::Folder
                                      : FileKind::Special;
}

bool isRegularFile(const QString &path) {
    return fileKind(path) == FileKind::Regular;
}

qint64 fileSize(const QString &path) {
    const auto status = statusOf(path);
    return status ? status->st_size : 0;
}

QDateTime fileModified(const QString &path) {
    const auto status = statusOf(path);
    return status ? QDateTime::fromMSecsSinceEpoch(qint64(status->st_mtim.tv_sec) * 1000 +
                                                   status->st_mtim.tv_nsec / 1'000'000)
                  : QDateTime();
}

bool mayWrite(const QString &path) {
    const auto status = statusOf(path);
    return status && (status->st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0 &&
           ::faccessat(AT_FDCWD, encodedPath(path).constData(), W_OK, AT_EACCESS) == 0;
}

} // namespace quillon::runtime
