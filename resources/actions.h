#pragma once

#include <QStringView>

#include <span>

namespace quillon::resources {

enum class ActionKind {
    Command,
    Separator,
    /// A menu, or a submenu when it stands in another menu.
    Menu,
    /// Element 0 of a control array; the program adds further elements after it.
    Array,
};

/// Who acts on the key of a command.
enum class KeyContext {
    /// The window, wherever the focus is.
    Window,
    /// The tree, while it has the focus. For the window the key only stands in the menu.
    Tree,
    /// The window manager. The key only stands in the menu.
    WindowManager,
};

/// One entry of the menu bar.
struct ActionEntry {
    /// Name of the control, e.g. "mnuFileSave".
    QStringView name;
    /// Name of the menu it stands in; empty for the menus of the menu bar.
    QStringView menu = {};
    ActionKind kind = ActionKind::Command;
    /// With '&' before the access key. After a tab comes a shortcut that is part of the caption.
    QStringView caption = {};
    /// The key in portable text, e.g. "Ctrl+S"; empty for none.
    QStringView key = {};
    KeyContext keyContext = KeyContext::Window;
    /// Resource path of the picture; empty for none.
    QStringView icon = {};
    bool checkable = false;
    bool checked = false;
    bool visible = true;
};

/// Every entry of the menu bar, in menu order: a menu is followed by what stands in it.
std::span<const ActionEntry> actionTable();

/// One place on a toolbar.
struct ToolBarItem {
    /// In lower case, but for the placeholder. A button's picture is ":/icons/toolbar/<key>.svg".
    QStringView key;
    QStringView toolTip = {};
    /// Name of the command in actionTable() that it runs; empty when it runs none of them.
    QStringView action = {};
    /// A separator stands before it.
    bool startsGroup = false;
    bool enabled = false;
    /// No button: the window lays a control of its own there.
    bool placeholder = false;
};

/// The main toolbar from left to right. Its last item keeps the place of the path box.
std::span<const ToolBarItem> mainToolBarTable();
/// The toolbar `tbrMove`, which stands after the path box.
std::span<const ToolBarItem> moveToolBarTable();

} // namespace quillon::resources
