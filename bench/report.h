#pragma once

#include <algorithm>
#include <chrono>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>

namespace quillon::bench {

/// In place of a figure that could not be measured. What is calculated from it is the same.
constexpr double NotMeasured = std::numeric_limits<double>::quiet_NaN();

/// Milliseconds that some work takes: the best of several runs, since everything else a machine
/// does can only make it slower. `prepare` runs ahead of each, outside the measurement. Work may
/// return whether it has been done; NotMeasured when it says no once.
template <typename Work, typename Prepare>
double bestOf(int runs, Work &&work, Prepare &&prepare) {
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < runs; ++i) {
        prepare();
        bool done = true;
        const auto start = std::chrono::steady_clock::now();
        if constexpr (std::is_same_v<decltype(work()), bool>)
            done = work();
        else
            work();
        const std::chrono::duration<double, std::milli> took =
            std::chrono::steady_clock::now() - start;
        if (!done)
            return NotMeasured;
        best = std::min(best, took.count());
    }
    return best;
}

template <typename Work>
double bestOf(int runs, Work &&work) {
    return bestOf(runs, std::forward<Work>(work), [] {});
}

/// The table, written to the standard output line by line.
class Table {
public:
    /// One line. `limit` is what the figure must not exceed; 0 where there is none.
    void row(const std::string &work, double figure, const char *unit, double limit);
    /// A line for a part of something larger: how long it takes, how much more memory there is in
    /// use behind it, and how much more beyond that it has needed meanwhile.
    void part(const std::string &work, double milliseconds, double megabytes, double passing);
    /// A line for work whose program has ended without its figures.
    void failedRow(const std::string &work) { row(work, NotMeasured, "", 0); }
    /// Lines that another process has written to the same table were not good.
    void addBadRows() { good_ = false; }

    /// Whether each line has its figure and keeps its limit.
    bool good() const { return good_; }

private:
    bool good_ = true;
};

} // namespace quillon::bench
