#include "platform/ui/message_box.h"

#include "platform/ui/dialogs.h"

namespace quillon::ui {

int showMessage(const QString &text, int style, const QString &title) {
    return dialogs().showMessage(text, style, title);
}

} // namespace quillon::ui
