#pragma once

#include "platform/runtime/progress.h"

#include <QString>

#include <functional>

namespace quillon::ui {

/// What the user sees of work that takes its time, and may stop it with.
class LongWork {
public:
    enum class Stop { Offered, NotOffered };

    LongWork() = default;
    LongWork(const LongWork &) = delete;
    LongWork &operator=(const LongWork &) = delete;
    virtual ~LongWork() = default;

    /// Does the work, which is to call the function it is given several times a second; the answer
    /// is false when the user wants it stopped, which may be only where that is offered. The
    /// function may be empty. `text` says what is being done. Raises what the work raises.
    virtual void run(const QString &text, Stop stop,
                     const std::function<void(const runtime::Progress &)> &work) = 0;
};

} // namespace quillon::ui
