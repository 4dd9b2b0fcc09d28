#pragma once

#include <QString>

class QPoint;
class QWidget;

namespace quillon::controls {

/// Shows a text from a stranger as a tool-tip: nothing in it is markup, and long lines are broken.
/// An empty one hides what is shown.
void showPlainToolTip(const QPoint &onScreen, const QString &text, QWidget &owner);

} // namespace quillon::controls
