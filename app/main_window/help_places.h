#pragma once

#include <QString>

class QWidget;

namespace quillon::app {

/// The place in the manual for a part of the window or a dialog, by the widget with the keyboard;
/// empty for none that is known.
QString helpPlace(const QWidget *widget);

} // namespace quillon::app
