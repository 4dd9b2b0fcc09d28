#pragma once

#include "platform/ui/clipboard.h"

namespace quillon::controls {

/// The clipboard that all programs of the desktop share.
class DesktopClipboard : public ui::Clipboard {
public:
    QString text() const override;
    const QMimeData *mimeData() const override;
    void setMimeData(std::unique_ptr<QMimeData> data) override;
};

} // namespace quillon::controls
