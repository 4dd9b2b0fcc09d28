#pragma once

#include "platform/runtime/error.h"
#include "platform/xml/engine/forked_child.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

class QSocketNotifier;

namespace quillon::xml {

/// Work in a child process like that of runInChild(), while the program goes on. One piece of work
/// at a time; what it comes to is told by one signal, from the event loop.
class BackgroundChild : public QObject {
    Q_OBJECT

public:
    explicit BackgroundChild(QObject *parent = nullptr);
    ~BackgroundChild() override;

    /// Gives up what runs, and starts anew. The child sees everything as it is now.
    void start(const std::function<QByteArray()> &work, const ChildLimits &limits = {});
    /// Ends what runs. Nothing more is told of it.
    void giveUp();
    bool isRunning() const { return child_ || unstarted_; }

Q_SIGNALS:
    /// What the work has returned.
    void finished(const QByteArray &result);
    /// What the work has raised, or Fail when the child has exceeded a limit or has died, or
    /// OutOfMemory when there could be no child.
    void failed(const runtime::Error &error);

private:
    void read();
    void look();
    void tell(const runtime::Error &error);

    std::unique_ptr<ForkedChild> child_;
    QSocketNotifier *reader_ = nullptr;
    /// Why there could be no child, while that has not been told yet.
    std::optional<runtime::Error> unstarted_;
    /// Looks from time to time whether the child takes too long.
    QTimer clock_;
};

} // namespace quillon::xml
