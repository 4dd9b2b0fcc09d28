#include "document/commands/file_on_disk.h"

#include <QFileInfo>

namespace quillon::document {

FileOnDisk FileOnDisk::of(const QString &path) {
    const QFileInfo info(path);
    return info.exists() ? FileOnDisk{path, info.lastModified(), info.size()}
                         : FileOnDisk{path, {}, -1};
}

bool FileOnDisk::hasChanged() const {
    const FileOnDisk now = of(path);
    return now.size >= 0 && (now.size != size || now.modified != modified);
}

} // namespace quillon::document
