#pragma once

#include <string_view>

namespace quillon::runtime {

/// An open file of the system, closed in the end.
class Descriptor {
public:
    /// Takes over what the system gave, also its sign of failure.
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor();
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    /// Negative where opening has failed.
    int get() const { return fd_; }

private:
    int fd_;
};

/// Writes all bytes; false, with errno set, where that fails.
bool writeAll(int fd, std::string_view bytes);

} // namespace quillon::runtime
