#pragma once

#include "platform/system/session_bus.h"

#include <QString>

namespace quillon::system {

/// The companion's name on the session bus, and the name of its file.
inline constexpr char CompanionBusName[] = "org.quillon.QuillonEditDDE";
inline constexpr char CompanionFileName[] = "QuillonDDE";

/// The link to the companion program that keeps the register of open editor windows: on the
/// session bus the name CompanionBusName, there the object /System, on that the method
/// Execute(string) of the interface that is called like the bus name.
///
/// The companion is optional. Where there is no bus or no companion, nothing happens and nothing
/// is reported; nothing is ever started. No call waits longer than a second for an answer.
class CompanionLink {
public:
    explicit CompanionLink(const QDBusConnection &bus = sessionBus()) : bus_(bus) {}

    /// Links to the companion when it runs; returns whether the link now stands.
    bool open();
    bool isOpen() const { return open_; }
    /// Sends a command, e.g. "ADD 1234", and waits until the companion has taken it. Does nothing
    /// while the link is not open.
    void execute(const QString &command);

private:
    QDBusConnection bus_;
    bool open_ = false;
};

/// Starts the companion, the file CompanionFileName in that folder, as a process of its own. A
/// companion that is missing or does not start is no error.
void startCompanion(const QString &folder);

} // namespace quillon::system
