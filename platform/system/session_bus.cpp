#include "platform/system/session_bus.h"

#include <QFileInfo>
#include <QString>

namespace quillon::system {

namespace {

/// Left to itself the bus library starts a bus of its own where it knows no address.
bool sessionBusRuns() {
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtimeFolder.isEmpty() && QFileInfo::exists(runtimeFolder + QLatin1String("/bus"));
}

} // namespace

QDBusConnection sessionBus() {
    if (sessionBusRuns())
        return QDBusConnection::sessionBus();
    return QDBusConnection(QStringLiteral("no session bus"));
}

} // namespace quillon::system
