#pragma once

#include <QRect>
#include <QString>

#include <cstdint>
#include <vector>

namespace quillon::companion {

using WindowHandle = std::uint32_t;

/// The screen with the windows on it, as far as arranging them needs it.
class Desktop {
public:
    virtual ~Desktop() = default;

    virtual bool exists(WindowHandle window) = 0;
    /// Whether the window is open, if perhaps minimised; one that was never shown is not.
    virtual bool isOpen(WindowHandle window) = 0;
    /// The area for windows on the screen that holds most of these windows' centres; in pixels.
    virtual QRect areaFor(const std::vector<WindowHandle> &windows) = 0;
    /// Restores the window, brings it to the front, and makes it fill the place together with its
    /// frame.
    virtual void place(WindowHandle window, const QRect &place) = 0;
};

/// The open editor windows, and the commands by which they come, go and are arranged.
class WindowRegister {
public:
    explicit WindowRegister(Desktop &desktop) : desktop_(desktop) {}

    /// Executes "ADD n" or "REMOVE n", n being a window's handle as a decimal 32-bit number,
    /// signed or not, or "TILE_VERTICAL". Anything else is ignored.
    void execute(const QString &command);
    /// Drops the windows that do not exist any more.
    void dropDead();

    bool isEmpty() const { return windows_.empty(); }

private:
    void add(WindowHandle window);
    void tileVertical();

    Desktop &desktop_;
    /// In the order in which they came.
    std::vector<WindowHandle> windows_;
};

} // namespace quillon::companion
