#pragma once

#include "app/automation/bus_window.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>

#include <functional>
#include <map>
#include <memory>

class QEventLoopLocker;

namespace quillon::app {

/// The factory by which other programs get windows: on the bus the name org.quillon.XmlEditor,
/// there the object /org/quillon/XmlEditor; the windows it makes are objects below that.
class AutomationServer : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.quillon.XmlEditor.Factory")

public:
    using MakeWindow = std::function<std::unique_ptr<Window>()>;

    static constexpr int GraceMs = 30'000;

    AutomationServer(const QDBusConnection &bus, MakeWindow makeWindow, int graceMs = GraceMs);
    ~AutomationServer() override;

    /// Takes the name on the bus; returns false when there is no bus, or when another process has
    /// the name. Then the object does nothing.
    bool start();
    /// Keeps the program running without any window until a client has come for one, a minute at
    /// the most.
    void waitForFirstClient();

    /// The environment variable that the bus sets for the program it starts. The command line has
    /// no room for a switch, as all of it is a path.
    static constexpr char StartedByBusVariable[] = "QUILLON_STARTED_BY_BUS";

public Q_SLOTS:
    /// Makes a window, empty and hidden, for the calling client and returns its object's path.
    Q_SCRIPTABLE QDBusObjectPath CreateWindow();

private:
    void watch(BusWindow &window, const QString &client);
    void forgetClient(const QString &client);
    void remove(const QString &path);

    QDBusConnection bus_;
    MakeWindow makeWindow_;
    int graceMs_;
    QDBusServiceWatcher clients_;
    std::map<QString, std::unique_ptr<BusWindow>> windows_;
    int lastNumber_ = 0;
    std::unique_ptr<QEventLoopLocker> waiting_;
};

} // namespace quillon::app
