#include "tests/support/own_surroundings.h"

#include <QByteArray>

#include <cstdlib>
#include <utility>
#include <vector>

namespace quillon::test {

OwnSurroundings::OwnSurroundings() {
    // Where programs, libraries and temporary files are.
    std::vector<std::pair<const char *, QByteArray>> kept;
    for (const char *name : {"PATH", "LD_LIBRARY_PATH", "QT_PLUGIN_PATH", "TMPDIR"}) {
        if (qEnvironmentVariableIsSet(name))
            kept.emplace_back(name, qgetenv(name));
    }
    ::clearenv();
    for (const auto &[name, value] : kept)
        qputenv(name, value);
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    for (const char *name : {"HOME", "XDG_RUNTIME_DIR"})
        qputenv(name, home_.path().toUtf8());
}

} // namespace quillon::test
