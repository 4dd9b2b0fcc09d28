#pragma once

#include "platform/ui/long_work.h"

namespace quillon::test {

/// Work without anything to be seen of it; the test may be the user who stops it.
class WorkAtOnce : public ui::LongWork {
public:
    void run(const QString &, Stop stop,
             const std::function<void(const runtime::Progress &)> &work) override {
        work([this, stop](double) { return !(isStopWanted && stop == Stop::Offered); });
    }

    bool isStopWanted = false;
};

} // namespace quillon::test
