#include "platform/xml/io/access_rights.h"

#include <QByteArrayList>

#include <algorithm>
#include <cerrno>
#include <sys/xattr.h>
#include <unistd.h>

namespace quillon::xml {

namespace {

/// The attribute that holds the access control list.
constexpr char AccessList[] = "system.posix_acl_access";

/// Asks twice: for the size and for the value. Null with errno when there is no such thing.
template <typename Read>
QByteArray readSized(const Read &read) {
    const ssize_t size = read(nullptr, 0);
    if (size < 0)
        return {};
    QByteArray value(size, Qt::Uninitialized);
    const ssize_t got = read(value.data(), std::size_t(size));
    return got < 0 ? QByteArray() : value.first(got);
}

QByteArray attribute(const QByteArray &path, const char *name) {
    return readSized(
        [&](char *to, std::size_t size) { return ::getxattr(path.constData(), name, to, size); });
}

bool setAttribute(int file, const char *name, const QByteArray &value) {
    return ::fsetxattr(file, name, value.constData(), std::size_t(value.size()), 0) == 0;
}

/// Whether an attribute belongs to the file and not to its content, as a checksum or the rights
/// of a program do.
bool isToBeKept(const QByteArray &name) {
    return !name.startsWith("system.") && name != "security.capability" && name != "security.ima" &&
           name != "security.evm";
}

bool takeAttributes(int file, const QByteArray &oldName) {
    const QByteArray names = readSized(
        [&](char *to, std::size_t size) { return ::listxattr(oldName.constData(), to, size); });
    bool kept = true;
    for (const QByteArray &name : names.split('\0')) {
        if (name.isEmpty() || !isToBeKept(name))
            continue;
        const QByteArray value = attribute(oldName, name.constData());
        // Those that are not the user's are for the system to set.
        if (!value.isNull() && !setAttribute(file, name.constData(), value) &&
            name.startsWith("user."))
            kept = false;
    }
    return kept;
}

bool takeAccessList(int file, const QByteArray &oldName) {
    const QByteArray list = attribute(oldName, AccessList);
    if (!list.isNull())
        return setAttribute(file, AccessList, list);
    // The folder may have given the new file one of its own.
    return ::fremovexattr(file, AccessList) == 0 || errno == ENODATA || errno == EOPNOTSUPP;
}

/// Owner and group apart: the members of a group may give it a file, but only root an owner.
bool takeOwner(int file, const struct stat &old) {
    struct stat now {};
    return ::fstat(file, &now) == 0 &&
           (now.st_uid == old.st_uid || ::fchown(file, old.st_uid, gid_t(-1)) == 0);
}
bool takeGroup(int file, const struct stat &old) {
    struct stat now {};
    return ::fstat(file, &now) == 0 &&
           (now.st_gid == old.st_gid || ::fchown(file, uid_t(-1), old.st_gid) == 0);
}

} // namespace

bool takeAccessRights(int file, const QByteArray &oldName, const struct stat &old) {
    const bool hasGroup = takeGroup(file, old);
    const bool hasAttributes = takeAttributes(file, oldName);
    const bool hasList = takeAccessList(file, oldName);
    const bool hasOwner = takeOwner(file, old);
    mode_t mode = old.st_mode & 07777;
    // The group's bits are those of another group, or the most that a list allowed: what everybody
    // may do is left of them.
    if (!hasGroup || !hasList)
        mode &= ~mode_t(S_IRWXG) | ((mode & S_IRWXO) << 3);
    if (!hasOwner || !hasGroup)
        mode &= ~mode_t(S_ISUID | S_ISGID);
    const bool hasMode = ::fchmod(file, mode) == 0;
    return hasOwner && hasGroup && hasAttributes && hasList && hasMode;
}

} // namespace quillon::xml
