#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <utility>

namespace quillon::bench {

/// Milliseconds that some work takes: the best of several runs, since everything else a machine
/// does can only make it slower. `prepare` runs ahead of each, outside the measurement.
template <typename Work, typename Prepare>
double bestOf(int runs, Work &&work, Prepare &&prepare) {
    double best = 1e300;
    for (int i = 0; i < runs; ++i) {
        prepare();
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> took =
            std::chrono::steady_clock::now() - start;
        best = std::min(best, took.count());
    }
    return best;
}

template <typename Work>
double bestOf(int runs, Work &&work) {
    return bestOf(runs, std::forward<Work>(work), [] {});
}

/// One line of the table. `limit` is what the figure must not exceed; 0 where there is none.
inline void row(const std::string &work, double figure, const char *unit, double limit) {
    if (limit == 0)
        std::printf("  %-58s %10.3f %-3s\n", work.c_str(), figure, unit);
    else
        std::printf("  %-58s %10.3f %-3s limit %g %s\n", work.c_str(), figure, unit, limit,
                    figure <= limit ? "ok" : "MISSED");
    std::fflush(stdout);
}

} // namespace quillon::bench
