#include "platform/ui/dialogs.h"

#include <utility>

namespace quillon::ui {

namespace {

Dialogs *inForce = nullptr;

} // namespace

Dialogs &dialogs() {
    if (!inForce)
        qFatal("No dialogs are in force.");
    return *inForce;
}

Dialogs *setDialogs(Dialogs *replacement) {
    return std::exchange(inForce, replacement);
}

} // namespace quillon::ui
