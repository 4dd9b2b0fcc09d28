#include "view/controls/desktop_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace quillon::controls {

QString DesktopClipboard::text() const {
    return QGuiApplication::clipboard()->text();
}

const QMimeData *DesktopClipboard::mimeData() const {
    return QGuiApplication::clipboard()->mimeData();
}

void DesktopClipboard::setMimeData(std::unique_ptr<QMimeData> data) {
    QGuiApplication::clipboard()->setMimeData(data.release());
}

} // namespace quillon::controls
