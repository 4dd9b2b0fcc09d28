#pragma once

#include "help/command.h"

namespace quillon::app {

/// The commands of the table as users know them: those of the menus in menu order, then that of the
/// tree alone, then those that have only a key or a button. What has the same
/// name as one of these comes once, with the key that either has.
help::Commands commandList();

} // namespace quillon::app
