#include "app/main_window/window_front.h"

#include <QApplication>
#include <QWidget>

#include <cstdlib>
#include <cstring>
#include <xcb/xcb.h>

namespace quillon::app {

namespace {

/// Window managers keep programs from taking the keyboard by themselves. That it is the user's wish
/// is said as a pager says it.
void askManagerFor(xcb_connection_t *connection, xcb_window_t window) {
    constexpr char Name[] = "_NET_ACTIVE_WINDOW";
    constexpr std::uint32_t FromPager = 2;
    xcb_intern_atom_reply_t *const atom = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, sizeof Name - 1, Name), nullptr);
    if (!atom)
        return;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom->atom;
    event.data.data32[0] = FromPager;
    std::free(atom);
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_send_event(connection, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(connection);
}

} // namespace

void bringToFront(QWidget &window) {
    if (window.isMinimized())
        window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    // A box that the window waits for comes with it.
    window.raise();
    window.activateWindow();
    // Platforms that show nothing may offer the interface as well, and have no connection.
    const auto *x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (xcb_connection_t *const connection = x11 ? x11->connection() : nullptr)
        askManagerFor(connection, static_cast<xcb_window_t>(window.winId()));
    if (!window.isActiveWindow())
        QApplication::alert(&window);
}

} // namespace quillon::app
