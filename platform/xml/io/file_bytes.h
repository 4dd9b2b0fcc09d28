#pragma once

#include <QString>

#include <string>

namespace quillon::xml {

/// The content of a file. Raises Fail with the reason where it cannot be read, is a device or the
/// like, or has more bytes than MaxFileSize.
std::string readFile(const QString &path);

} // namespace quillon::xml
