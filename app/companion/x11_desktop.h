#pragma once

#include "app/companion/window_register.h"

#include <array>
#include <map>
#include <string>
#include <xcb/xcb.h>

namespace quillon::companion {

/// The windows of an X server, whoever they belong to. A window manager is asked to place them
/// where one runs. Without an X server every window counts as existing, and none as open.
///
/// The desktop must live as long as the application's event loop runs. Positions are the server's
/// own pixels, so the application must not scale its screens'.
class X11Desktop : public Desktop {
public:
    /// The connection may be null. Needs a QGuiApplication.
    explicit X11Desktop(xcb_connection_t *connection);

    bool exists(WindowHandle window) override;
    bool isOpen(WindowHandle window) override;
    QRect areaFor(const std::vector<WindowHandle> &windows) override;
    void place(WindowHandle window, const QRect &place) override;

private:
    xcb_atom_t atom(const std::string &name);
    /// The property's value as 32-bit numbers; empty when the window has no such property.
    std::vector<std::uint32_t> property(xcb_window_t window, const std::string &name);
    QRect geometry(xcb_window_t window);
    bool managerSupports(const std::string &name);
    void askManager(xcb_window_t window, const std::string &message,
                    const std::array<std::uint32_t, 5> &data);
    void restore(xcb_window_t window);
    void fit(xcb_window_t window, const QRect &place);

    xcb_connection_t *connection_;
    xcb_window_t root_ = XCB_WINDOW_NONE;
    std::map<std::string, xcb_atom_t> atoms_;
};

} // namespace quillon::companion
