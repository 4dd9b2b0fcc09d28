#pragma once

namespace quillon::test {

/// How long a test waits, in milliseconds, for what is sure to come: far longer than it takes on
/// the slowest and busiest machine.
inline constexpr int Patience = 120'000;

} // namespace quillon::test
