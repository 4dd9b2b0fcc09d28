#include "platform/runtime/stack_limit.h"

#include <algorithm>
#include <sys/resource.h>

namespace quillon::runtime {

namespace {

constexpr rlim_t StackBytes = 256ul << 20;

} // namespace

void raiseStackLimit() {
    // The main thread's stack grows up to the limit in force at the time.
    rlimit limit{};
    if (::getrlimit(RLIMIT_STACK, &limit) != 0 || limit.rlim_cur >= StackBytes)
        return;
    limit.rlim_cur = std::min(StackBytes, limit.rlim_max);
    ::setrlimit(RLIMIT_STACK, &limit);
}

} // namespace quillon::runtime
