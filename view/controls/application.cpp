#include "view/controls/application.h"

#include "platform/ui/error_boundary.h"
#include "view/controls/screen_fit.h"
#include "view/controls/theme.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>

namespace quillon::controls {

namespace {

/// The window that may be too large for its screen after an event; null where none may be.
QWidget *windowToFit(QObject *receiver, const QEvent &event) {
    const bool concernsSize = event.type() == QEvent::Polish || event.type() == QEvent::Show ||
                              event.type() == QEvent::LayoutRequest;
    auto *window = concernsSize ? qobject_cast<QWidget *>(receiver) : nullptr;
    return window && window->isWindow() ? window : nullptr;
}

} // namespace

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
        const QPointer<QWidget> window = windowToFit(receiver, *event);
        const bool isTaken = QApplication::notify(receiver, event);
        if (window)
            fitToScreen(*window, event->type() == QEvent::LayoutRequest ? Occasion::LaidOut
                                                                        : Occasion::Shown);
        return isTaken;
    } catch (...) {
        ui::reportCurrentException();
        return false;
    }
}

} // namespace quillon::controls
