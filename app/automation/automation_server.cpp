#include "app/automation/automation_server.h"

#include "platform/ui/error_boundary.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QEventLoopLocker>
#include <QTimer>

namespace quillon::app {

namespace {

constexpr int FirstClientMs = 60'000;

const QString BusName = QStringLiteral("org.quillon.XmlEditor");
const QString FactoryPath = QStringLiteral("/org/quillon/XmlEditor");

constexpr auto Exported =
    QDBusConnection::ExportScriptableSlots | QDBusConnection::ExportScriptableProperties;

} // namespace

AutomationServer::AutomationServer(const QDBusConnection &bus, MakeWindow makeWindow, int graceMs)
    : bus_(bus), makeWindow_(std::move(makeWindow)), graceMs_(graceMs) {
    clients_.setConnection(bus_);
    clients_.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&clients_, &QDBusServiceWatcher::serviceUnregistered, this,
            &AutomationServer::forgetClient);
}

AutomationServer::~AutomationServer() = default;

bool AutomationServer::start() {
    // The object comes first: whoever sees the name may call at once.
    if (!bus_.isConnected() || !bus_.registerObject(FactoryPath, this, Exported))
        return false;
    if (bus_.registerService(BusName))
        return true;
    bus_.unregisterObject(FactoryPath);
    return false;
}

void AutomationServer::waitForFirstClient() {
    waiting_ = std::make_unique<QEventLoopLocker>();
    QTimer::singleShot(FirstClientMs, this, [this] { waiting_.reset(); });
}

QDBusObjectPath AutomationServer::CreateWindow() {
    std::unique_ptr<Window> made;
    ui::guarded([&] { made = makeWindow_(); });
    if (!made) {
        sendErrorReply(QDBusError::Failed);
        return {};
    }
    const QString path = QStringLiteral("%1/Window/%2").arg(FactoryPath).arg(++lastNumber_);
    auto object = std::make_unique<BusWindow>(std::move(made), graceMs_);
    BusWindow &window = *object;
    windows_.emplace(path, std::move(object));
    waiting_.reset();
    connect(&window, &BusWindow::called, this,
            [this, &window](const QString &client) { watch(window, client); });
    connect(
        &window, &BusWindow::abandoned, this, [this, path] { remove(path); }, Qt::QueuedConnection);
    bus_.registerObject(path, &window, Exported);
    if (calledFromDBus())
        watch(window, message().service());
    return QDBusObjectPath(path);
}

void AutomationServer::watch(BusWindow &window, const QString &client) {
    window.addClient(client);
    if (clients_.watchedServices().contains(client))
        return;
    clients_.addWatchedService(client);
    // One that waits for no answer may be gone already.
    if (!bus_.interface()->isServiceRegistered(client))
        forgetClient(client);
}

void AutomationServer::forgetClient(const QString &client) {
    clients_.removeWatchedService(client);
    for (const auto &[path, window] : windows_)
        window->removeClient(client);
}

void AutomationServer::remove(const QString &path) {
    const auto window = windows_.find(path);
    // Meanwhile a new client may have come.
    if (window == windows_.end() || !window->second->isIdle())
        return;
    bus_.unregisterObject(path);
    windows_.erase(window);
}

} // namespace quillon::app
