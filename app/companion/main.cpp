#include "app/companion/companion_service.h"
#include "app/companion/x11_desktop.h"
#include "platform/system/companion_link.h"
#include "platform/system/session_bus.h"

#include <QGuiApplication>
#include <QTimer>

#include <chrono>
#include <cstdlib>

namespace {

using namespace std::chrono_literals;

constexpr auto CheckInterval = 3s;
constexpr auto FirstWindowPatience = 60s;

/// Window handles mean something to an X server only; where there is none the companion runs all
/// the same, and arranges nothing. Other windows are placed in the server's own pixels.
void choosePlatform() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb;offscreen");
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    qunsetenv("QT_SCALE_FACTOR");
    qunsetenv("QT_SCREEN_SCALE_FACTORS");
}

xcb_connection_t *serverConnection(const QGuiApplication &application) {
    const auto *x11 = application.nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

} // namespace

/// Keeps the register of the open editor windows and arranges them when asked; ends with the last
/// of them. One companion serves all editors of a session.
int main(int argc, char **argv) {
    choosePlatform();
    QGuiApplication application(argc, argv);
    QDBusConnection bus = quillon::system::sessionBus();
    quillon::companion::X11Desktop desktop(serverConnection(application));
    quillon::companion::WindowRegister windows(desktop);
    quillon::companion::CompanionService service(windows);
    if (!bus.isConnected() ||
        !bus.registerObject(QStringLiteral("/System"), &service,
                            QDBusConnection::ExportScriptableSlots) ||
        !bus.registerService(QLatin1String(quillon::system::CompanionBusName)))
        return EXIT_SUCCESS;

    QTimer patience;
    patience.setSingleShot(true);
    QObject::connect(&patience, &QTimer::timeout, &application, &QCoreApplication::quit);
    patience.start(FirstWindowPatience);
    const auto endWithTheLast = [&] {
        if (!windows.isEmpty())
            patience.stop();
        else if (!patience.isActive())
            application.quit();
    };
    QObject::connect(&service, &quillon::companion::CompanionService::executed, &application,
                     endWithTheLast, Qt::QueuedConnection);

    QTimer check;
    QObject::connect(&check, &QTimer::timeout, &application, [&] {
        windows.dropDead();
        endWithTheLast();
        if (!bus.isConnected())
            application.quit();
    });
    check.start(CheckInterval);
    return QGuiApplication::exec();
}
