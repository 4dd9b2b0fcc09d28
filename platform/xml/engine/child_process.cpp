#include "platform/xml/engine/child_process.h"

#include "platform/runtime/error.h"

#include <poll.h>

namespace quillon::xml {

namespace {

/// How often, at least, somebody is told that the child is still at work, and its time is looked
/// at.
constexpr int ProgressMs = 50;

} // namespace

QByteArray runInChild(const std::function<QByteArray()> &work, const ChildLimits &limits,
                      const runtime::Progress &progress) {
    ForkedChild child(work, limits);
    while (true) {
        if (progress && !progress(runtime::UnknownProgress))
            runtime::raise(runtime::error_number::Cancelled);
        child.checkTime();
        pollfd wait{child.pipe(), POLLIN, 0};
        if (::poll(&wait, 1, ProgressMs) != 0 && !child.read())
            return child.result();
    }
}

} // namespace quillon::xml
