#pragma once

#include <string>

namespace quillon::bench {

/// A figure of the system about this process, such as "VmRSS", in megabytes.
double ownMegabytes(const std::string &name);

/// Has the system count the peak anew. False where it does not.
bool forgetPeak();

} // namespace quillon::bench
