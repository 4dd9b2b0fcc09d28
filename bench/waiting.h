#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

namespace quillon::bench {

/// Longer than anything here takes.
constexpr int MostWaitingMs = 300'000;

/// Lets the program run until something is so; false when it never is.
template <typename Condition>
bool waitFor(Condition &&condition) {
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > MostWaitingMs)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 1000);
    }
    return true;
}

} // namespace quillon::bench
