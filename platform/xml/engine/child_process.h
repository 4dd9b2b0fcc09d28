#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/engine/forked_child.h"

namespace quillon::xml {

/// Runs work in a child process, a copy of this one, and returns what work returns. What work
/// changes in memory stays in the child. A runtime::Error that work raises is raised here. Raises
/// Fail when the child exceeds a limit or dies, and Cancelled when `progress`, which is told that
/// the child is still at work, says so. Work must not use the GUI, nor wait for a thread.
QByteArray runInChild(const std::function<QByteArray()> &work, const ChildLimits &limits = {},
                      const runtime::Progress &progress = {});

} // namespace quillon::xml
