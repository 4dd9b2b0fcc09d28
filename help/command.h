#pragma once

#include <QString>

#include <vector>

namespace quillon::help {

/// A command as users know it.
struct Command {
    /// Its name in the table of commands, e.g. "mnuFileOpen".
    QString name;
    /// What it is called, without access key, e.g. "開く...".
    QString title;
    /// The menus that lead to it, from the menu bar on; empty for what stands in no menu.
    QString menu;
    /// As it is shown, e.g. "Ctrl+O"; empty for none.
    QString key;
    /// The key works while the tree has the keyboard, and not elsewhere.
    bool isKeyOfTree = false;
};

using Commands = std::vector<Command>;

} // namespace quillon::help
