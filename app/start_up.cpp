#include "app/start_up.h"

#include "app/splash.h"
#include "app/window.h"
#include "platform/controls/dialogs.h"
#include "platform/controls/error_boundary.h"
#include "platform/system/companion_link.h"
#include "platform/system/instance_lock.h"
#include "resources/texts.h"

#include <QFileInfo>
#include <QIcon>

#include <algorithm>
#include <sys/resource.h>
#include <unistd.h>

namespace quillon::app {

namespace {

/// Enough for several hundred thousand nested levels.
constexpr rlim_t StackBytes = 256ul << 20;

} // namespace

void prepareProcess() {
    // The main thread's stack grows up to the limit in force at the time.
    rlimit limit{};
    if (::getrlimit(RLIMIT_STACK, &limit) == 0 && limit.rlim_cur < StackBytes) {
        limit.rlim_cur = std::min(StackBytes, limit.rlim_max);
        ::setrlimit(RLIMIT_STACK, &limit);
    }
    if (::geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
}

QString commandLinePath(const QStringList &arguments) {
    const QString line = arguments.join(QLatin1Char(' '));
    return line.startsWith(QLatin1Char('"')) ? line.mid(1).chopped(line.size() > 1 ? 1 : 0) : line;
}

int Main(int argc, char **argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    // All of it is the file's path, so Qt must not look for switches of its own in it.
    int programOnly = 1;
    // The browser pane asks for it.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    controls::Application application(programOnly, argv);
    application.setApplicationName(QStringLiteral("quillon"));
    application.setApplicationDisplayName(QString());
    application.setApplicationVersion(QStringLiteral(QUILLON_VERSION));
    application.setDesktopFileName(QStringLiteral("quillon"));
    application.setWindowIcon(QIcon(QStringLiteral(":/icons/quillon.svg")));
    controls::installDialogTexts();

    const system::InstanceLock instance;
    if (instance.startedAlone()) {
        system::startCompanion(QCoreApplication::applicationDirPath());
        QCoreApplication::processEvents();
    }
    frmSplash splash;
    splash.show();
    QCoreApplication::processEvents();

    Window window(instance.startedAlone());
    const QString path = commandLinePath(arguments);
    if (!path.isEmpty() && QFileInfo(path).isFile())
        controls::guarded([&] { window.OpenFile(path); });
    window.setVisible(true);
    splash.close();
    return QApplication::exec();
}

} // namespace quillon::app
