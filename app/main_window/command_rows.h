#pragma once

#include "app/main_window/command_table.h"
#include "app/main_window/frm_main.h"
#include "resources/command_texts.h"

namespace quillon::app::command_rows {

// The rows of the table, a file a menu. One menu follows the other in this order.
std::span<const CommandRow> ofFileMenu();
std::span<const CommandRow> ofEditMenu();
std::span<const CommandRow> ofViewMenu();
/// Those in the View menu that are about the pane, and about how large everything is shown.
std::span<const CommandRow> ofPaneMenu();
std::span<const CommandRow> ofNodeMenu();
/// The menus from Tool to Help.
std::span<const CommandRow> ofToolMenus();
/// The menu of the tree, and what stands in no menu.
std::span<const CommandRow> ofContextMenus();

// What these rows are written with.

namespace news = button_news;
namespace text = resources::command_texts;

constexpr QStringView nodeMenu = u"mnuNode";

constexpr CommandRow menu(QStringView name, resources::Text caption, QStringView parent = {}) {
    return {
        .entry = {
            .name = name, .menu = parent, .caption = caption, .kind = controls::ActionKind::Menu}};
}

constexpr CommandRow line(QStringView name, QStringView menu) {
    return {.entry = {.name = name, .menu = menu, .kind = controls::ActionKind::Separator}};
}

/// Element 0 of a menu that the window makes from a list.
constexpr CommandRow array(QStringView name, QStringView menu, resources::Text caption) {
    return {
        .entry = {
            .name = name, .menu = menu, .caption = caption, .kind = controls::ActionKind::Array}};
}

// When a command applies.

bool hasDocument(const Editor &editor);
/// A document, or a text that is being mended.
bool hasContent(const Editor &editor);
bool isWritable(const Editor &editor);
bool isWritableDocument(const Editor &editor);
bool hasSelection(const Editor &editor);

template <bool edit::EditMenuStates::*State>
bool inEditMenu(const Editor &editor) {
    return editor.nodeCommands.mnuEdit_Click().*State;
}

template <bool edit::NodeMenuStates::*State>
bool inNodeMenu(const Editor &editor) {
    return editor.nodeCommands.mnuNode_Click().*State;
}

/// Whether the check of a checkable command is set.
bool isChecked(frmMain &form, QStringView command);

} // namespace quillon::app::command_rows
