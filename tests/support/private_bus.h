#pragma once

#include "tests/support/patience.h"

#include <QDBusConnection>
#include <QProcess>

namespace quillon::test {

/// A session bus of the test's own.
class PrivateBus {
public:
    PrivateBus() {
        daemon_.start(QStringLiteral("dbus-daemon"),
                      {QStringLiteral("--session"), QStringLiteral("--nofork"),
                       QStringLiteral("--print-address")});
        while (!daemon_.canReadLine() && daemon_.waitForReadyRead(10'000)) {
        }
        address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
    }
    ~PrivateBus() {
        daemon_.kill();
        daemon_.waitForFinished(Patience);
    }
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    QDBusConnection connect(const QString &name) const {
        return QDBusConnection::connectToBus(address_, name);
    }
    const QString &address() const { return address_; }
    bool runs() const { return !address_.isEmpty(); }

private:
    QProcess daemon_;
    QString address_;
};

} // namespace quillon::test
