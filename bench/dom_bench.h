#pragma once

#include <string>

namespace quillon::bench {

/// Measures the DOM on one file, side by side with the bare parser and another library's tree.
void measureDom(const std::string &path);

} // namespace quillon::bench
