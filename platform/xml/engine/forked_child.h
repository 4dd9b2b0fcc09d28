#pragma once

#include <QByteArray>

#include <chrono>
#include <functional>
#include <sys/types.h>

namespace quillon::xml {

struct ChildLimits {
    /// Processor time: what else the machine does takes nothing away from the work.
    std::chrono::milliseconds time = std::chrono::seconds(60);
    /// Bytes that libxml2 may have allocated at a time.
    qint64 memory = qint64(4) << 30;
};

/// A child process at work, a copy of this one. It ends, if it still runs, with the object.
class ForkedChild {
public:
    /// Starts it. What work changes in memory stays in the child; it must not use the GUI, nor wait
    /// for a thread. Raises OutOfMemory when there can be no further process.
    ForkedChild(const std::function<QByteArray()> &work, const ChildLimits &limits);
    ~ForkedChild();
    ForkedChild(const ForkedChild &) = delete;
    ForkedChild &operator=(const ForkedChild &) = delete;

    /// Can be read from, without waiting, whenever read() has something to do.
    int pipe() const { return pipe_; }
    /// Takes over some of what the child has written. Waits until there is some, or the child has
    /// closed its end: then it returns false, and result() tells what has come of it.
    bool read();
    /// Raises Fail when it has worked for longer than it may.
    void checkTime() const;
    /// What work has returned. Waits for the end of the child. Raises what work has raised, and
    /// Fail when the child has exceeded a limit or has died.
    QByteArray result();

private:
    int pipe_ = -1;
    pid_t process_ = -1;
    std::chrono::milliseconds time_;
    QByteArray report_;
};

} // namespace quillon::xml
