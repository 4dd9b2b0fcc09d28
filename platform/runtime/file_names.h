#pragma once

#include <QByteArray>
#include <QString>

namespace quillon::runtime {

/// The names of files are bytes, and those of old archives need not be UTF-8. In the program a path
/// is a QString all the same: a byte that belongs to no UTF-8 character stands in it as the private
/// character U+EF00 plus the byte (U+EF80 to U+EFFF). Qt's own file classes do not know such names;
/// what is to open, examine or write a file of the user's uses encodedPath().

/// The path that bytes from the system stand for.
QString decodedPath(const QByteArray &bytes);
/// The bytes of a path, exactly those that decodedPath() was given.
QByteArray encodedPath(const QString &path);

/// Whether a path has bytes that are not UTF-8.
bool hasForeignBytes(const QString &path);
/// A path as people read it: names that are not UTF-8 as Shift_JIS or EUC-JP where they are that,
/// else with U+FFFD for each byte. Not to be used for opening anything.
QString shownPath(const QString &path);

} // namespace quillon::runtime
