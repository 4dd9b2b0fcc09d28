#include "platform/ui/error_boundary.h"

#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
#include "resources/runtime_errors.h"
#include "resources/texts.h"

#include <QScopedValueRollback>

#include <new>

namespace quillon::ui {

namespace {

/// Null for what the user has stopped, who need not be told.
QString currentDescription() {
    try {
        throw;
    } catch (const runtime::Error &error) {
        return error.number() == runtime::error_number::Cancelled ? QString() : error.description();
    } catch (const std::bad_alloc &) {
        return resources::runtimeErrorText(runtime::error_number::OutOfMemory);
    } catch (const std::exception &error) {
        return resources::texts::UnexpectedError.toString().arg(QString::fromUtf8(error.what()));
    } catch (...) {
        return resources::texts::UnknownError.toString();
    }
}

} // namespace

void reportCurrentException() noexcept {
    static bool reporting = false;
    try {
        const QString description = currentDescription();
        if (description.isNull())
            return;
        if (reporting) {
            qWarning("%s", qUtf8Printable(description));
            return;
        }
        const QScopedValueRollback open(reporting, true);
        showMessage(description, message_style::Exclamation);
    } catch (...) {
        // Not even the box could be made, most likely for lack of memory.
        qWarning("An error could not be shown.");
    }
}

} // namespace quillon::ui
