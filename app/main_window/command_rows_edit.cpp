#include "app/main_window/command_rows.h"

namespace quillon::app::command_rows {

namespace {

using controls::KeyContext;
using edit::EditMenuStates;

constexpr QStringView editMenu = u"mnuEdit";

// A text that is being mended has no history but that of the pane.

bool canUndo(const Editor &editor) {
    return editor.state.isBroken ? editor.pane.textBox().canUndo() : editor.history.CanUndo();
}

bool canRedo(const Editor &editor) {
    return editor.state.isBroken ? editor.pane.textBox().canRedo() : editor.history.CanRedo();
}

void undo(frmMain &form) {
    Editor &editor = form.editor();
    editor.state.isBroken ? editor.pane.textBox().undo() : editor.history.UndoCommand();
}

void redo(frmMain &form) {
    Editor &editor = form.editor();
    editor.state.isBroken ? editor.pane.textBox().redo() : editor.history.RedoCommand();
}

bool canUndoAll(const Editor &editor) {
    return editor.commands.canUndoAll();
}

bool canPasteByButton(const Editor &editor) {
    return editor.selection.canPasteFromClipboard();
}

bool hasMarks(const Editor &editor) {
    return editor.tree.nodes().hasBold();
}

void searchBackward(frmMain &form) {
    search::CaptionSearch &search = form.editor().captionSearch;
    if (!search.pattern().isEmpty())
        search.SearchBackward(form.editor().tree.SelectedItem(), search.pattern());
}

constexpr CommandRow Rows[] = {
    menu(editMenu, text::EditMenu),
    {.entry = {u"mnuEditUndo", editMenu, text::EditUndo, u"Ctrl+Z"},
     .button = {u"undo", text::UndoTip, 5, 1},
     .enabled = canUndo,
     .buttonNews = news::Recorded | news::History,
     .paneText = PaneText::IsTheStep,
     .run = undo},
    // A change leaves its button as it is although nothing can be redone then: buttons do not
    // flicker while one types, and pressing it finds out.
    {.entry = {u"mnuEditRedo", editMenu, text::EditRedo, u"Ctrl+Y"},
     .button = {u"redo", text::RedoTip, 5, 2},
     .enabled = canRedo,
     .buttonNews = news::History,
     .paneText = PaneText::IsAskedAbout,
     .run = redo},
    {.entry = {u"mnuEditUndoAll", editMenu, text::EditUndoAll},
     .enabled = canUndoAll,
     .run = [](frmMain &form) { form.editor().commands.mnuEditUndoAll_Click(); }},
    line(u"mnuEditLine0", editMenu),
    // Cutting makes no test of its own, and a read-only document is not to be changed by its key.
    {.entry = {u"mnuEditCut", editMenu, text::EditCut, u"Ctrl+X", KeyContext::Tree},
     .button = {u"cut", text::CutTip, 3, 1},
     .enabled = inEditMenu<&EditMenuStates::cut>,
     .buttonNews = news::Selection,
     .treeKeyEnabled = isWritable,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuEditCut_Click(); }},
    {.entry = {u"mnuEditCopy", editMenu, text::EditCopy, u"Ctrl+C", KeyContext::Tree},
     .button = {u"copy", text::CopyTip, 3, 2},
     .enabled = inEditMenu<&EditMenuStates::copy>,
     .buttonNews = news::Selection,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuEditCopy_Click(); }},
    // Unlike its button, the menu neither looks at the clipboard nor allows the document item.
    {.entry = {u"mnuEditPaste", editMenu, text::EditPaste, u"Ctrl+V", KeyContext::Tree},
     .button = {u"paste", text::PasteTip, 3, 3},
     .enabled = inEditMenu<&EditMenuStates::paste>,
     .buttonEnabled = canPasteByButton,
     .buttonNews = news::Selection,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuEditPaste_Click(); }},
    {.entry = {u"mnuEditDelete", editMenu, text::EditDelete, u"Ctrl+D", KeyContext::Tree},
     .button = {u"delete", text::DeleteTip, 3, 4},
     .enabled = inEditMenu<&EditMenuStates::remove>,
     .buttonNews = news::Selection,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuEditDelete_Click(); }},
    line(u"mnuEditLine1", editMenu),
    {.entry = {u"mnuEditRename", editMenu, text::EditRename, u"F2", KeyContext::Tree},
     .enabled = inEditMenu<&EditMenuStates::rename>,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuEditRename_Click(); }},
    line(u"mnuEditLine2", editMenu),
    {.entry = {u"mnuEditFind", editMenu, text::EditFind, u"Ctrl+F"},
     .button = {u"find", text::FindTip, 4, 1},
     .enabled = hasDocument,
     .buttonNews = news::Document,
     .run = [](frmMain &form) { form.editor().captionSearch.mnuEditFind_Click(); }},
    {.entry = {u"mnuEditFindNext", editMenu, text::EditFindNext, u"F3"},
     .enabled = hasDocument,
     .run = [](frmMain &form) { form.editor().captionSearch.mnuEditFindNext_Click(); }},
    {.entry = {.name = u"SearchBackward", .key = u"Shift+F3", .keyContext = KeyContext::Tree},
     .run = searchBackward},
    line(u"mnuEditLine4", editMenu),
    {.entry =
         {.name = u"mnuViewLock", .menu = editMenu, .caption = text::ViewLock, .checkable = true},
     .run =
         [](frmMain &form) {
             form.editor().view.mnuViewLock_Click(isChecked(form, u"mnuViewLock"));
         }},
    line(u"mnuEditLine5", editMenu),
    {.entry = {u"mnuEditReplace", editMenu, text::EditReplace, u"Ctrl+H"},
     .enabled = hasDocument,
     .run = [](frmMain &form) { form.mnuEditReplace_Click(); }},
    {.entry = {u"mnuEditCopyXPath", editMenu, text::EditCopyXPath, u"Ctrl+Shift+C"},
     .enabled = hasSelection,
     .run = [](frmMain &form) { form.editor().pathCopy.mnuEditCopyXPath_Click(); }},
    {.entry = {u"mnuEditSelectMatches", editMenu, text::EditSelectMatches},
     .enabled = hasMarks,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.selectMarked(); }},
    {.entry = {u"mnuEditFormat", editMenu, text::EditFormat, u"Ctrl+Shift+F"},
     .enabled = isWritableDocument,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.mnuEditFormat_Click(); }},
    {.entry = {u"mnuEditEncoding", editMenu, text::EditEncoding},
     .enabled = isWritableDocument,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.mnuEditEncoding_Click(); }},
};

} // namespace

std::span<const CommandRow> ofEditMenu() {
    return Rows;
}

} // namespace quillon::app::command_rows
