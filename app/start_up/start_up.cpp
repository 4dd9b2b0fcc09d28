#include "app/start_up/start_up.h"

#include "app/automation/automation_server.h"
#include "app/main_window/window.h"
#include "app/start_up/splash.h"
#include "document/open_elsewhere.h"
#include "platform/runtime/file_access.h"
#include "platform/runtime/file_names.h"
#include "platform/runtime/paths.h"
#include "platform/runtime/stack_limit.h"
#include "platform/system/companion_link.h"
#include "platform/system/desktop_appearance.h"
#include "platform/system/instance_lock.h"
#include "platform/system/session_bus.h"
#include "platform/system/termination_signals.h"
#include "platform/ui/error_boundary.h"
#include "resources/language.h"
#include "settings/settings.h"
#include "view/browser/browser_profile.h"
#include "view/controls/application.h"
#include "view/controls/desktop_dialogs.h"
#include "view/controls/theme.h"

#include <QDBusServiceWatcher>
#include <QEventLoop>
#include <QFileInfo>
#include <QIcon>
#include <QTimer>

#include <cstdlib>
#include <memory>

namespace quillon::app {

namespace {

/// How long the companion may take to be there for the first window.
constexpr int CompanionMs = 1000;

/// The session ends, and nobody can be asked any more.
void endSession() {
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *form = qobject_cast<frmMain *>(widget))
            form->endSession();
    }
    // Destructors would take the copies of unsaved changes away.
    std::_Exit(EXIT_SUCCESS);
}

/// The companion is there, once it has been started, before the first window registers with it.
void startCompanion() {
    const QString folder = runtime::programFolder();
    QDBusConnection bus = system::sessionBus();
    if (!bus.isConnected() ||
        !QFileInfo(folder + QLatin1Char('/') + QLatin1String(system::CompanionFileName))
             .isExecutable())
        return;
    QDBusServiceWatcher watcher(QLatin1String(system::CompanionBusName), bus,
                                QDBusServiceWatcher::WatchForRegistration);
    QEventLoop untilRegistered;
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceRegistered, &untilRegistered,
                     &QEventLoop::quit);
    QTimer::singleShot(CompanionMs, &untilRegistered, &QEventLoop::quit);
    system::startCompanion(folder);
    if (!system::CompanionLink(bus).open())
        untilRegistered.exec();
}

/// Has everything shown in the colours that the user has chosen, or those of the desktop.
void followTheme(const system::DesktopAppearance &desktop) {
    using Told = system::DesktopAppearance::Preference;
    using controls::Theme;
    const system::SettingsStore store;
    settings::Settings stored(store);
    settings::Placement unused;
    stored.load(unused);
    controls::theme().setMode(controls::themeModeOf(stored.themeMode));
    QObject::connect(
        &desktop, &system::DesktopAppearance::preferenceTold, &controls::theme(), [](Told told) {
            controls::theme().setDesktopPreference(told == Told::Dark    ? Theme::Preference::Dark
                                                   : told == Told::Light ? Theme::Preference::Light
                                                                         : Theme::Preference::None);
        });
}

std::unique_ptr<Window> makeWindow() {
    return std::make_unique<Window>();
}

int runStandAlone(const QString &path) {
    const bool isThere = runtime::fileKind(path) != runtime::FileKind::Missing;
    bool isSettled = false;
    ui::guarded(
        [&] { isSettled = isThere && document::isSettledElsewhere(system::OpenWindows(), path); });
    if (isSettled)
        return EXIT_SUCCESS;
    frmSplash splash;
    splash.show();
    QCoreApplication::processEvents();

    Window window;
    const auto show = [&] {
        window.setVisible(true);
        splash.close();
    };
    if (isThere) {
        const QObject whileOpening;
        QObject::connect(window.form(), &frmMain::opensLargeFile, &whileOpening, show);
        ui::guarded([&] { window.OpenFile(path); });
    }
    show();
    if (frmMain *const form = window.form())
        ui::guarded([form] { form->editor().recovery.offer(); });

    AutomationServer server(system::sessionBus(), makeWindow);
    server.start();
    return QApplication::exec();
}

/// The program as the bus starts it: it shows nothing of its own.
int serveClients() {
    AutomationServer server(system::sessionBus(), makeWindow);
    if (!server.start())
        return EXIT_FAILURE;
    server.waitForFirstClient();
    return QApplication::exec();
}

/// Ahead of everything that shows texts.
void useChosenLanguage() {
    const settings::SettingRow &row = settings::settingRow(&settings::Values::language);
    const QString chosen = system::SettingsStore().GetSetting(
        row.section.toString(), row.key.toString(), row.initial.toString());
    resources::setLanguage(resources::languageOf(chosen, QLocale::system()));
    controls::installDialogTexts();
}

} // namespace

void prepareProcess() {
    runtime::raiseStackLimit();
    browser::prepareBrowser();
}

QString commandLinePath(const QStringList &arguments) {
    const QString line = arguments.join(QLatin1Char(' '));
    return line.startsWith(QLatin1Char('"')) ? line.mid(1).chopped(line.size() > 1 ? 1 : 0) : line;
}

int Main(int argc, char **argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(runtime::decodedPath(argv[i]));
    // All of it is the file's path, so Qt must not look for switches of its own in it.
    int programOnly = 1;
    controls::Application application(programOnly, argv);
    application.setApplicationName(QStringLiteral("quillon"));
    application.setApplicationDisplayName(QString());
    application.setApplicationVersion(QStringLiteral(QUILLON_VERSION));
    application.setDesktopFileName(QStringLiteral("quillon"));
    application.setWindowIcon(QIcon(QStringLiteral(":/icons/quillon.svg")));
    useChosenLanguage();
    controls::DesktopDialogs dialogs;
    ui::setDialogs(&dialogs);
    const system::DesktopAppearance desktop(system::sessionBus());
    followTheme(desktop);

    const bool startedByBus = qEnvironmentVariableIsSet(AutomationServer::StartedByBusVariable);
    // What the user starts from the program is started by the user.
    qunsetenv(AutomationServer::StartedByBusVariable);

    const system::TerminationSignals signals;
    QObject::connect(&signals, &system::TerminationSignals::received, &application, endSession);
    const system::InstanceLock instance;
    if (instance.startedAlone()) {
        startCompanion();
        QCoreApplication::processEvents();
    }
    return startedByBus ? serveClients() : runStandAlone(commandLinePath(arguments));
}

} // namespace quillon::app
