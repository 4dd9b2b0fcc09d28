#pragma once

#include "view/controls/action_set.h"

#include <span>

namespace quillon::app {

class Editor;
class frmMain;

/// News after which the state of a button is computed anew.
namespace button_news {
/// A document has been opened or made.
inline constexpr unsigned Document = 1;
/// A node has been shown, or is the selected one after undoing.
inline constexpr unsigned Selection = 2;
/// A change has been recorded for undoing.
inline constexpr unsigned Recorded = 4;
/// The history has been emptied, or has gone a step back or forth.
inline constexpr unsigned History = 8;
inline constexpr unsigned All = Document | Selection | Recorded | History;
} // namespace button_news

/// What a command does to text in the edit pane that does not parse.
enum class PaneText {
    /// Nothing, or its handler asks about it.
    IsLeftAlone,
    /// It changes what the pane shows or sends the document away, so the user is asked before.
    IsAskedAbout,
    /// It undoes the latest step. That is the typing, so giving it up is all that is done.
    IsTheStep,
};

/// All there is to know about a command, or about a menu or separator. Menus, keys, toolbars, their
/// states and what happens all come from here.
struct CommandRow {
    using Applies = bool (*)(const Editor &editor);

    controls::ActionRow entry;
    controls::ToolButton button = {};
    /// Whether it applies, for the menu, for a key of the window and for the button; none: always.
    Applies enabled = nullptr;
    /// The rule of the button where that is another one.
    Applies buttonEnabled = nullptr;
    /// After what news the button is set; of `button_news`.
    unsigned buttonNews = 0;
    /// Whether its key in the tree reaches the handler; none: always, since most handlers look for
    /// themselves and some say why they do nothing.
    Applies treeKeyEnabled = nullptr;
    PaneText paneText = PaneText::IsLeftAlone;
    /// What it does. A checkable command has changed its check by then.
    void (*run)(frmMain &form) = nullptr;
};

/// Groups of buttons up to this one stand on the main toolbar, those behind it on `tbrMove`.
inline constexpr int LastMainGroup = 6;

/// Every command, in menu order: a menu is followed by what stands in it.
std::span<const CommandRow> commandTable();

/// What of it the menus are made from.
std::vector<controls::ActionRow> menuEntries();

} // namespace quillon::app
