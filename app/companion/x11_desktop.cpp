#include "app/companion/x11_desktop.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace quillon::companion {

namespace {

struct Freed {
    void operator()(void *reply) const { std::free(reply); }
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, Freed>;

/// Waits for a reply; null when the request failed, as for a window that is gone.
template <typename Reply, typename Cookie>
Owned<Reply> replyTo(Reply *(*wait)(xcb_connection_t *, Cookie, xcb_generic_error_t **),
                     xcb_connection_t *connection, Cookie cookie) {
    xcb_generic_error_t *error = nullptr;
    Owned<Reply> reply(wait(connection, cookie, &error));
    std::free(error);
    return reply;
}

// From the window manager's conventions (ICCCM and EWMH).
constexpr std::uint32_t IconicState = 3;
constexpr std::uint32_t RemoveState = 0;
constexpr std::uint32_t FromPager = 2;
/// The position is that of the frame's upper left corner; position and size are both given.
constexpr std::uint32_t MoveResizeFlags = XCB_GRAVITY_NORTH_WEST | 0xFu << 8 | FromPager << 12;
constexpr std::uint32_t PropertyLimit = 1024;

/// How long, in milliseconds, a window manager may take to restore a window.
constexpr int SettleMs = 250;

} // namespace

X11Desktop::X11Desktop(xcb_connection_t *connection) : connection_(connection) {
    if (connection_)
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
}

bool X11Desktop::exists(WindowHandle window) {
    return !connection_ || replyTo(xcb_get_window_attributes_reply, connection_,
                                   xcb_get_window_attributes(connection_, window));
}

bool X11Desktop::isOpen(WindowHandle window) {
    if (!connection_)
        return false;
    const auto attributes = replyTo(xcb_get_window_attributes_reply, connection_,
                                    xcb_get_window_attributes(connection_, window));
    if (!attributes)
        return false;
    const std::vector<std::uint32_t> state = property(window, "WM_STATE");
    return attributes->map_state == XCB_MAP_STATE_VIEWABLE ||
           (!state.empty() && state.front() == IconicState);
}

QRect X11Desktop::areaFor(const std::vector<WindowHandle> &windows) {
    std::map<const QScreen *, int> counts;
    for (const WindowHandle window : windows) {
        if (const QScreen *screen = QGuiApplication::screenAt(geometry(window).center()))
            ++counts[screen];
    }
    const auto most = std::ranges::max_element(
        counts, {}, [](const std::pair<const QScreen *const, int> &entry) { return entry.second; });
    const QScreen *screen = most == counts.end() ? QGuiApplication::primaryScreen() : most->first;
    return screen->availableGeometry();
}

void X11Desktop::place(WindowHandle window, const QRect &place) {
    restore(window);
    fit(window, place);
    // Some managers frame maximised windows differently, and have yet to take the request.
    QTimer::singleShot(SettleMs, qGuiApp, [this, window, place] { fit(window, place); });
}

void X11Desktop::fit(xcb_window_t window, const QRect &place) {
    QMargins frame;
    const std::vector<std::uint32_t> extents = property(window, "_NET_FRAME_EXTENTS");
    const bool managed = managerSupports("_NET_MOVERESIZE_WINDOW");
    if (managed && extents.size() == 4)
        frame = QMargins(static_cast<int>(extents[0]), static_cast<int>(extents[2]),
                         static_cast<int>(extents[1]), static_cast<int>(extents[3]));
    const std::array<std::uint32_t, 4> bounds = {
        static_cast<std::uint32_t>(place.x()), static_cast<std::uint32_t>(place.y()),
        static_cast<std::uint32_t>(std::max(1, place.width() - frame.left() - frame.right())),
        static_cast<std::uint32_t>(std::max(1, place.height() - frame.top() - frame.bottom()))};
    if (managed) {
        askManager(window, "_NET_MOVERESIZE_WINDOW",
                   {MoveResizeFlags, bounds[0], bounds[1], bounds[2], bounds[3]});
    } else {
        xcb_configure_window(connection_, window,
                             XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                                 XCB_CONFIG_WINDOW_HEIGHT,
                             bounds.data());
    }
    xcb_flush(connection_);
}

void X11Desktop::restore(xcb_window_t window) {
    askManager(window, "_NET_WM_STATE",
               {RemoveState, atom("_NET_WM_STATE_MAXIMIZED_VERT"),
                atom("_NET_WM_STATE_MAXIMIZED_HORZ"), FromPager, 0});
    askManager(window, "_NET_WM_STATE",
               {RemoveState, atom("_NET_WM_STATE_FULLSCREEN"), 0, FromPager, 0});
    // Mapping is how a minimised window is restored; for the others it does nothing.
    xcb_map_window(connection_, window);
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(connection_, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
}

xcb_atom_t X11Desktop::atom(const std::string &name) {
    const auto known = atoms_.find(name);
    if (known != atoms_.end())
        return known->second;
    const auto reply = replyTo(
        xcb_intern_atom_reply, connection_,
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data()));
    return atoms_[name] = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::vector<std::uint32_t> X11Desktop::property(xcb_window_t window, const std::string &name) {
    const auto reply = replyTo(xcb_get_property_reply, connection_,
                               xcb_get_property(connection_, 0, window, atom(name),
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, PropertyLimit));
    if (!reply || reply->format != 32)
        return {};
    const auto *values = static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

QRect X11Desktop::geometry(xcb_window_t window) {
    const auto size =
        replyTo(xcb_get_geometry_reply, connection_, xcb_get_geometry(connection_, window));
    const auto origin = replyTo(xcb_translate_coordinates_reply, connection_,
                                xcb_translate_coordinates(connection_, window, root_, 0, 0));
    if (!size || !origin)
        return {};
    return {origin->dst_x, origin->dst_y, size->width, size->height};
}

bool X11Desktop::managerSupports(const std::string &name) {
    // The list outlives a window manager that crashed; its window does not.
    const std::vector<std::uint32_t> manager = property(root_, "_NET_SUPPORTING_WM_CHECK");
    return !manager.empty() && exists(manager.front()) &&
           std::ranges::count(property(root_, "_NET_SUPPORTED"), atom(name)) > 0;
}

void X11Desktop::askManager(xcb_window_t window, const std::string &message,
                            const std::array<std::uint32_t, 5> &data) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    std::ranges::copy(data, event.data.data32);
    xcb_send_event(connection_, 0, root_,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&event));
}

} // namespace quillon::companion
