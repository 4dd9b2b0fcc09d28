#pragma once

class QWidget;

namespace quillon::app {

/// Brings a window to the front, minimised as it may be, because the user has asked for it in
/// another one. Where the desktop does not let programs do so, it is marked as waiting.
void bringToFront(QWidget &window);

} // namespace quillon::app
