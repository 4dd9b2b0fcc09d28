#pragma once

#include "platform/ui/long_work.h"

#include <QWidget>

namespace quillon::controls {

/// Keeps a window alive during work that takes its time: once it has taken half a second and is to
/// take as long again, a box over the window shows how far it is, with a button where stopping is
/// offered. Meanwhile the window is painted and takes no input.
class ProgressBox : public ui::LongWork {
public:
    explicit ProgressBox(QWidget &window) : window_(window) {}

    /// There is no box for work that is done during other work, nor while the window is not shown.
    void run(const QString &text, Stop stop,
             const std::function<void(const runtime::Progress &)> &work) override;

private:
    QWidget &window_;
};

} // namespace quillon::controls
