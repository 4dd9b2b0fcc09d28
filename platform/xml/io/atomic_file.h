#pragma once

#include "platform/xml/io/save_options.h"

#include <QString>

#include <string_view>

namespace quillon::xml {

/// Replaces the content of a file, or makes it. At any instant, also after a crash, the path names
/// the old content or the new one, whole. Owner, group, permissions, access control list, extended
/// attributes and a symbolic link in its place survive; of several hard links the others keep the
/// old content. What a writer that was killed has left is removed by the next one.
///
/// Where no file can be made beside the old one, or none that is like it (another user's file, for
/// one), the old file is overwritten in its place, after `options.beforeOverwriting`. A write that
/// fails then puts the old content back.
///
/// Raises with the system's reason; the file is then as it was. What is no regular file is
/// refused, and so is a file that this user may not write, unless it is to be replaced.
void writeFileAtomically(const QString &path, std::string_view bytes,
                         const SaveOptions &options = {});

} // namespace quillon::xml
