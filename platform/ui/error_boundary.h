#pragma once

#include <exception>
#include <utility>

namespace quillon::ui {

/// Shows the exception that is being handled in a message box (exclamation, its description);
/// nothing for a Cancelled error.
/// While such a box is open a further one goes to the log instead: a window that fails to paint
/// itself must not open a box each time the box uncovers it. Call from a catch block only.
void reportCurrentException() noexcept;

/// Runs an event handler. An error that it does not handle is shown to the user, and the program
/// goes on.
template <typename Handler>
void guarded(Handler &&handler) noexcept {
    try {
        std::forward<Handler>(handler)();
    } catch (...) {
        reportCurrentException();
    }
}

/// Runs an action whose failure is of no interest: an error ends it, and nobody hears of it.
template <typename Action>
void ignoringErrors(Action &&action) {
    try {
        std::forward<Action>(action)();
    } catch (const std::exception &) {
    }
}

} // namespace quillon::ui
