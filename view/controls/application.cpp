#include "view/controls/application.h"

#include "platform/ui/error_boundary.h"

namespace quillon::controls {

bool Application::notify(QObject *receiver, QEvent *event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        ui::reportCurrentException();
        return false;
    }
}

} // namespace quillon::controls
