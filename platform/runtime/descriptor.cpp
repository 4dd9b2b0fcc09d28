#include "platform/runtime/descriptor.h"

#include <cerrno>
#include <unistd.h>

namespace quillon::runtime {

Descriptor::~Descriptor() {
    if (fd_ >= 0)
        ::close(fd_);
}

bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(fd, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace quillon::runtime
