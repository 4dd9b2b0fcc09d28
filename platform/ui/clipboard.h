#pragma once

#include <QString>

#include <memory>

class QMimeData;

namespace quillon::ui {

/// What has been copied, here or in another program.
class Clipboard {
public:
    Clipboard() = default;
    Clipboard(const Clipboard &) = delete;
    Clipboard &operator=(const Clipboard &) = delete;
    virtual ~Clipboard() = default;

    /// Empty when there is no text.
    virtual QString text() const = 0;
    /// In all formats offered; null for an empty clipboard. Good until it changes.
    virtual const QMimeData *mimeData() const = 0;
    virtual void setMimeData(std::unique_ptr<QMimeData> data) = 0;
};

} // namespace quillon::ui
