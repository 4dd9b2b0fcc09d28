#pragma once

#include <QRect>

class QWidget;

namespace quillon::controls {

/// Roughly what a window manager puts around a window.
inline constexpr QSize FrameSize(16, 40);

/// The place for a window that is to stand somewhere, so that it lies wholly within a part of a
/// screen: moved as little as possible, and made smaller where it has no room.
QRect fittedInto(const QRect &part, const QRect &window);

/// Why a window may be too large, or lie outside its screen.
enum class Occasion { Shown, LaidOut };

/// Keeps a dialog within its screen. One that is too large gets smaller. What it shows scrolls
/// where even its smallest size would be too large, all but a row of buttons at its lower end.
/// Other windows are left alone. To be called for every window that is about to be shown, has been
/// shown, or has something to lay out anew.
void fitToScreen(QWidget &window, Occasion occasion);

} // namespace quillon::controls
