#include "document/file_on_disk.h"

#include "platform/runtime/file_access.h"

namespace quillon::document {

FileOnDisk FileOnDisk::of(const QString &path) {
    return runtime::fileKind(path) != runtime::FileKind::Missing
               ? FileOnDisk{path, runtime::fileModified(path), runtime::fileSize(path)}
               : FileOnDisk{path, {}, -1};
}

bool FileOnDisk::hasChanged() const {
    const FileOnDisk now = of(path);
    return now.size >= 0 && (now.size != size || now.modified != modified);
}

} // namespace quillon::document
