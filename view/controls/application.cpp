#include "view/controls/application.h"

#include "platform/ui/error_boundary.h"
#include "view/controls/theme.h"

namespace quillon::controls {

Application::Application(int &argc, char **argv) : QApplication(argc, argv) {
    theme();
}

bool Application::notify(QObject *receiver, QEvent *event) {
    try {
        // Told to every window, and of interest once.
        if (event->type() == QEvent::ThemeChange && !isDesktopNew_) {
            isDesktopNew_ = true;
            QMetaObject::invokeMethod(
                this,
                [this] {
                    isDesktopNew_ = false;
                    theme().desktopPaletteChanged();
                },
                Qt::QueuedConnection);
        }
        return QApplication::notify(receiver, event);
    } catch (...) {
        ui::reportCurrentException();
        return false;
    }
}

} // namespace quillon::controls
