#include "app/main_window/command_table.h"

#include "app/main_window/command_rows.h"

#include <QAction>

namespace quillon::app {

namespace command_rows {

bool hasDocument(const Editor &editor) {
    return bool(editor.state.m_DOM);
}

bool hasContent(const Editor &editor) {
    return hasDocument(editor) || editor.state.isBroken;
}

bool isWritable(const Editor &editor) {
    return !editor.state.m_ReadOnly;
}

bool isWritableDocument(const Editor &editor) {
    return hasDocument(editor) && isWritable(editor);
}

bool hasSelection(const Editor &editor) {
    return bool(editor.tree.SelectedItem());
}

bool isChecked(frmMain &form, QStringView command) {
    return form.actions().action(command)->isChecked();
}

} // namespace command_rows

std::span<const CommandRow> commandTable() {
    static const std::vector<CommandRow> rows = [] {
        using namespace command_rows;
        std::vector<CommandRow> all;
        for (const auto part : {ofFileMenu(), ofEditMenu(), ofViewMenu(), ofPaneMenu(),
                                ofNodeMenu(), ofToolMenus(), ofContextMenus()})
            all.insert(all.end(), part.begin(), part.end());
        return all;
    }();
    return rows;
}

std::vector<controls::ActionRow> menuEntries() {
    std::vector<controls::ActionRow> entries;
    for (const CommandRow &row : commandTable())
        entries.push_back(row.entry);
    return entries;
}

} // namespace quillon::app
