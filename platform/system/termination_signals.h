#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace quillon::system {

/// Turns the signals by which the session asks a program to end (SIGTERM, SIGHUP, SIGINT) into a
/// call in the event loop. Only one such object at a time.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

Q_SIGNALS:
    void received();

private:
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace quillon::system
