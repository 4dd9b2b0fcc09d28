#pragma once

#include <functional>

namespace quillon::runtime {

/// By this, work that may take long tells several times a second how much of it is done, from 0 to
/// 1, or UnknownProgress. It is to stop when the answer is false. Empty where nobody wants to know.
using Progress = std::function<bool(double done)>;

inline constexpr double UnknownProgress = -1;

} // namespace quillon::runtime
