#pragma once

#include "platform/runtime/error.h"
#include "platform/runtime/progress.h"

#include <chrono>
#include <cstdint>

namespace quillon::xml {

/// Bounds what the evaluation of a path may cost, and lets it be stopped.
class PathWork {
public:
    /// What is raised when it costs too much.
    struct TooMuch {};

    explicit PathWork(const runtime::Progress &progress) : progress_(progress) { tell(); }

    /// A node is looked at, or so much else is done. Raises TooMuch, and Cancelled when the
    /// progress function says so.
    void spend(std::uint64_t steps = 1) {
        sinceLook_ += steps;
        if (sinceLook_ >= LookEvery)
            look();
    }

private:
    /// About a second.
    static constexpr std::uint64_t Most = 100'000'000;
    static constexpr std::uint64_t LookEvery = 65'536;
    static constexpr std::chrono::milliseconds TellEvery{50};

    void tell() {
        told_ = std::chrono::steady_clock::now();
        if (progress_ && !progress_(runtime::UnknownProgress))
            runtime::raise(runtime::error_number::Cancelled);
    }
    void look() {
        spent_ += sinceLook_;
        sinceLook_ = 0;
        if (spent_ > Most)
            throw TooMuch();
        if (std::chrono::steady_clock::now() - told_ >= TellEvery)
            tell();
    }

    const runtime::Progress &progress_;
    std::chrono::steady_clock::time_point told_;
    std::uint64_t sinceLook_ = 0;
    std::uint64_t spent_ = 0;
};

} // namespace quillon::xml
