#pragma once

#include <QDBusConnection>

namespace quillon::system {

/// The user's session bus. Where none runs, the connection says that it is not connected; no bus
/// is started. Needs a QCoreApplication.
QDBusConnection sessionBus();

} // namespace quillon::system
