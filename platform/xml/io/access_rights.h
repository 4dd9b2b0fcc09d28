#pragma once

#include <QByteArray>

#include <sys/stat.h>

namespace quillon::xml {

/// Gives a new file, open and its owner's alone so far, what an old one has: owner, group,
/// permissions, access control list and extended attributes. False when something cannot be kept;
/// the new file then gives nobody a right that the old one did not. `old` is the old file's status,
/// whose permissions may have been added to.
bool takeAccessRights(int file, const QByteArray &oldName, const struct stat &old);

} // namespace quillon::xml
