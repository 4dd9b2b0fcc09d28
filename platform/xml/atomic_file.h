#pragma once

#include "platform/xml/dom.h"

#include <QString>

#include <string_view>

namespace quillon::xml {

/// Replaces the content of a file, or makes it. At any instant, also after a crash, the path names
/// the old content or the new one, whole. The file's permissions, owner and a symbolic link in its
/// place survive. A device or pipe is written to directly. Raises with the system's reason; the
/// file is then as it was. A file whose owner may not write it is kept, which raises, or replaced
/// by one that its owner may write.
void writeFileAtomically(const QString &path, std::string_view bytes, ReadOnlyFile readOnly);

} // namespace quillon::xml
