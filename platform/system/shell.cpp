#include "platform/system/shell.h"

#include "platform/runtime/error.h"

#include <QProcess>

namespace quillon::system {

namespace {

const QString DesktopOpener = QStringLiteral("xdg-open");

} // namespace

void Shell::start(const QString &program, const QStringList &arguments) {
    if (!QProcess::startDetached(program, arguments))
        runtime::raise(runtime::error_number::FileNotFound);
}

void Shell::openOnDesktop(const QString &target, const std::function<void()> &failed) {
    // Without an owner, as a viewer may run inside this process and is to outlive the editor.
    auto *const opener = new QProcess;
    opener->setStandardInputFile(QProcess::nullDevice());
    opener->setProcessChannelMode(QProcess::ForwardedChannels);
    QObject::connect(opener, &QProcess::finished, opener,
                     [opener, failed](int code, QProcess::ExitStatus status) {
                         opener->deleteLater();
                         if (status == QProcess::NormalExit && code != 0)
                             failed();
                     });
    opener->start(DesktopOpener, {target});
    if (opener->waitForStarted())
        return;
    delete opener;
    runtime::raise(runtime::error_number::FileNotFound);
}

} // namespace quillon::system
