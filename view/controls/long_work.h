#pragma once

#include "platform/runtime/progress.h"

#include <QString>
#include <QWidget>

namespace quillon::controls {

/// Keeps a window alive during work that takes its time: once it has taken half a second and is to
/// take as long again, a box over the window shows how far it is. Meanwhile the window is painted
/// and takes no input.
class LongWork {
public:
    enum class Stop { Offered, NotOffered };

    explicit LongWork(QWidget &window) : window_(window) {}

    /// Does the work, which is to call the function it is given several times a second; the answer
    /// is false when the user has pressed the button or Escape. `text` says what is being done.
    /// Raises what the work raises. There is no box for work that is done during other work, nor
    /// while the window is not shown.
    void run(const QString &text, Stop stop,
             const std::function<void(const runtime::Progress &)> &work);

private:
    QWidget &window_;
};

} // namespace quillon::controls
