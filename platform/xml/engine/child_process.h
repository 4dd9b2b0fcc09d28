#pragma once

#include "platform/runtime/progress.h"

#include <QByteArray>

#include <chrono>
#include <functional>

namespace quillon::xml {

struct ChildLimits {
    /// Processor time: what else the machine does takes nothing away from the work.
    std::chrono::milliseconds time = std::chrono::seconds(60);
    /// Bytes that libxml2 may have allocated at a time.
    qint64 memory = qint64(4) << 30;
};

/// Runs work in a child process, a copy of this one, and returns what work returns. What work
/// changes in memory stays in the child. A runtime::Error that work raises is raised here. Raises
/// Fail when the child exceeds a limit or dies, and Cancelled when `progress`, which is told that
/// the child is still at work, says so. Work must not use the GUI, nor wait for a thread.
QByteArray runInChild(const std::function<QByteArray()> &work, const ChildLimits &limits = {},
                      const runtime::Progress &progress = {});

} // namespace quillon::xml
