#include "platform/system/shell.h"

#include "platform/runtime/error.h"

#include <QProcess>

namespace quillon::system {

void Shell::start(const QString &program, const QStringList &arguments) {
    if (!QProcess::startDetached(program, arguments))
        runtime::raise(runtime::error_number::FileNotFound);
}

} // namespace quillon::system
