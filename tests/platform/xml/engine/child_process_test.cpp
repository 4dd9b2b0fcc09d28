#include "platform/runtime/error.h"
#include "platform/xml/engine/child_process.h"
#include "resources/child_process_texts.h"

#include <array>
#include <atomic>
#include <gtest/gtest.h>
#include <unistd.h>

namespace quillon::xml {

namespace {

namespace texts = resources::child_process_texts;
using namespace std::chrono_literals;

/// The description of the error that the work raises; nothing when it raises none.
QString failure(const std::function<QByteArray()> &work, const ChildLimits &limits) {
    try {
        runInChild(work, limits);
    } catch (const runtime::Error &error) {
        return error.description();
    }
    return {};
}

TEST(ChildProcess, ItsTimeIsWhatItHasWorkedNotWhatItHasWaited) {
    std::array<int, 2> ends;
    ASSERT_EQ(::pipe(ends.data()), 0);
    int told = 0;
    // As long as the machine does other things the child gets nowhere.
    const QByteArray got = runInChild(
        [&] {
            char byte = 0;
            return ::read(ends[0], &byte, 1) == 1 ? QByteArray(1, byte) : QByteArray();
        },
        {300ms}, [&](double) { return ++told != 20 || ::write(ends[1], "x", 1) == 1; });
    EXPECT_EQ(got, "x");
    for (const int end : ends)
        ::close(end);

    const auto endless = []() -> QByteArray {
        for (std::atomic<unsigned> rounds = 0;; ++rounds) {
        }
    };
    EXPECT_EQ(failure(endless, {300ms}), texts::TimeLimit);
}

} // namespace

} // namespace quillon::xml
