#pragma once

#include <QString>

#include <string>

namespace quillon::xml {

/// The content of a file. Raises Fail with the reason where it cannot be read, is a device or the
/// like, or has more bytes than MaxFileSize.
std::string readFile(const QString &path);
/// The first bytes of a file, as many as can be read up to a length. Raises the same where it
/// cannot be opened.
std::string readStart(const QString &path, qint64 length);

} // namespace quillon::xml
