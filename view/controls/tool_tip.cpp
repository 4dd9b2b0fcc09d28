#include "view/controls/tool_tip.h"

#include <QToolTip>
#include <QWidget>

namespace quillon::controls {

void showPlainToolTip(const QPoint &onScreen, const QString &text, QWidget &owner) {
    if (text.isEmpty())
        return QToolTip::hideText();
    // Plain text would stay on one line, however long it is.
    QToolTip::showText(onScreen,
                       QStringLiteral("<div>%1</div>")
                           .arg(text.toHtmlEscaped().replace(u'\n', QLatin1String("<br>"))),
                       &owner);
}

} // namespace quillon::controls
