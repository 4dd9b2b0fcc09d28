#pragma once

#include "platform/system/open_windows.h"

#include <QStringList>

namespace quillon::app {

/// The windows that are open at a moment, as the user is told of them: this one first, then the
/// others.
class OpenWindowList {
public:
    /// The menu shows so many, and offers a list of all.
    static constexpr int MostInMenu = 9;

    /// The windows must outlive it.
    explicit OpenWindowList(const system::OpenWindows &windows);

    int count() const { return int(names_.size()); }
    /// What one is called: by its document, and by the folder of that where others are called so.
    QString name(int at) const { return names_[at]; }
    const QStringList &names() const { return names_; }
    /// Calls one to the front. False where that is this one, or is gone.
    bool callToFront(int at) const;

private:
    const system::OpenWindows &windows_;
    std::vector<system::OpenWindows::Other> others_;
    QStringList names_;
};

} // namespace quillon::app
