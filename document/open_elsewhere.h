#pragma once

#include "platform/system/open_windows.h"

#include <QString>

namespace quillon::document {

/// To be asked ahead of opening a file: another window may have it open already. It then comes to
/// the front, after a question where it has changes that are not saved. True when nothing is to be
/// opened here: it has come, or the user would have neither.
bool isSettledElsewhere(const system::OpenWindows &windows, const QString &path);

} // namespace quillon::document
