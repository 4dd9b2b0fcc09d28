#include "app/main_window/command_table.h"

#include "app/main_window/frm_main.h"
#include "resources/command_texts.h"

#include <QAction>
#include <QFileInfo>

namespace quillon::app {

namespace {

using controls::ActionKind;
using controls::KeyContext;
using edit::EditMenuStates;
using edit::NodeMenuStates;
namespace news = button_news;
namespace text = resources::command_texts;

constexpr QStringView fileMenu = u"mnuFile";
constexpr QStringView recentFilesMenu = u"mnuFileMRU";
constexpr QStringView editMenu = u"mnuEdit";
constexpr QStringView viewMenu = u"mnuView";
constexpr QStringView nodeMenu = u"mnuNode";
constexpr QStringView toolMenu = u"mnuTool";
constexpr QStringView editorsMenu = u"mnuToolOpenEditor";
constexpr QStringView windowMenu = u"mnuWindow";
constexpr QStringView helpMenu = u"mnuHelp";
constexpr QStringView popupMenu = u"mnuNodeContext";
constexpr QStringView treeMenu = u"treeMenu";

constexpr CommandRow menu(QStringView name, QStringView caption, QStringView parent = {}) {
    return {.entry = {.name = name, .menu = parent, .caption = caption, .kind = ActionKind::Menu}};
}

constexpr CommandRow line(QStringView name, QStringView menu) {
    return {.entry = {.name = name, .menu = menu, .kind = ActionKind::Separator}};
}

/// Element 0 of a menu that the window makes from a list.
constexpr CommandRow array(QStringView name, QStringView menu, QStringView caption) {
    return {.entry = {.name = name, .menu = menu, .caption = caption, .kind = ActionKind::Array}};
}

bool hasDocument(const Editor &editor) {
    return bool(editor.state.m_DOM);
}

bool hasFile(const Editor &editor) {
    // A recovered document has a name but no file to be read again.
    return QFileInfo(editor.state.m_FileName).isAbsolute();
}

bool hasName(const Editor &editor) {
    return !editor.state.m_FileName.isEmpty();
}

bool hasSelection(const Editor &editor) {
    return bool(editor.selection.GetSelectedDOMNode());
}

bool isWritable(const Editor &editor) {
    return !editor.state.m_ReadOnly;
}

bool isWritableDocument(const Editor &editor) {
    return hasDocument(editor) && isWritable(editor);
}

bool canUndo(const Editor &editor) {
    return editor.history.CanUndo();
}

bool canRedo(const Editor &editor) {
    return editor.history.CanRedo();
}

bool canUndoAll(const Editor &editor) {
    return editor.commands.canUndoAll();
}

bool canPasteByButton(const Editor &editor) {
    return editor.selection.canPasteFromClipboard();
}

bool canExpand(const Editor &editor) {
    return editor.view.mnuView_Click();
}

bool canAddAttributeToParent(const Editor &editor) {
    return editor.creation.canAddAttributeToParent();
}

template <bool EditMenuStates::*State>
bool inEditMenu(const Editor &editor) {
    return editor.nodeCommands.mnuEdit_Click().*State;
}

template <bool NodeMenuStates::*State>
bool inNodeMenu(const Editor &editor) {
    return editor.nodeCommands.mnuNode_Click().*State;
}

template <void (edit::NodeCreation::*Handler)()>
void create(frmMain &form) {
    (form.editor().creation.*Handler)();
}

using Create = edit::NodeCreation;

/// Its key also works with a child of the element selected.
void addAttribute(frmMain &form) {
    edit::NodeCreation &creation = form.editor().creation;
    if (creation.canAddAttributeToParent())
        creation.AddAttributeToParent();
    else
        creation.mnuNodeAddAttribute_Click();
}

void searchBackward(frmMain &form) {
    search::CaptionSearch &search = form.editor().captionSearch;
    if (!search.pattern().isEmpty())
        search.SearchBackward(form.editor().tree.SelectedItem(), search.pattern());
}

void chooseFont(frmMain &form) {
    const settings::Settings &settings = form.editor().settings;
    form.editor().view.mnuViewFont_Click(settings.fontName, settings.fontSize);
}

bool isChecked(frmMain &form, QStringView command) {
    return form.actions().action(command)->isChecked();
}

constexpr CommandRow Rows[] = {
    menu(fileMenu, text::FileMenu),
    {.entry = {u"mnuFileNew", fileMenu, text::FileNew, u"Ctrl+N"},
     .button = {u"new", text::NewTip, 1, 1},
     .run = [](frmMain &form) { form.editor().commands.mnuFileNew_Click(); }},
    {.entry = {u"mnuFileOpen", fileMenu, text::FileOpen, u"Ctrl+O"},
     .button = {u"open", text::OpenTip, 1, 2},
     .run = [](frmMain &form) { form.editor().commands.mnuFileOpen_Click(); }},
    {.entry = {u"mnuFileReload", fileMenu, text::FileReload},
     .enabled = hasFile,
     .run = [](frmMain &form) { form.editor().commands.mnuFileReload_Click(); }},
    line(u"mnuFileLine1", fileMenu),
    {.entry = {u"mnuFileSave", fileMenu, text::FileSave, u"Ctrl+S"},
     .button = {u"save", text::SaveTip, 1, 3},
     .enabled = hasDocument,
     .buttonNews = news::Document,
     .run = [](frmMain &form) { form.editor().commands.mnuFileSave_Click(); }},
    {.entry = {u"mnuFileSaveAs", fileMenu, text::FileSaveAs},
     .enabled = hasDocument,
     .run = [](frmMain &form) { form.editor().commands.mnuFileSaveAs_Click(); }},
    line(u"mnuFileLine2", fileMenu),
    {.entry = {u"mnuFilePrint", fileMenu, text::FilePrint, u"Ctrl+P"},
     .button = {u"print", text::PrintTip, 2, 1},
     .enabled = hasDocument,
     .buttonNews = news::Document,
     .run = [](frmMain &form) { form.editor().preview.mnuFilePrint_Click(); }},
    {.entry = {u"mnuFilePrintTree", fileMenu, text::FilePrintTree},
     .enabled = hasDocument,
     .run = [](frmMain &form) { form.mnuFilePrintTree_Click(); }},
    line(u"mnuFileLineMRU", fileMenu),
    menu(recentFilesMenu, text::FileMRU, fileMenu),
    array(u"mnuFileMRUFiles", recentFilesMenu, text::FileMRUNone),
    line(u"mnuFileLine3", fileMenu),
    {.entry = {u"mnuFileClose", fileMenu, text::FileClose},
     .enabled = hasDocument,
     .run = [](frmMain &form) { form.editor().commands.mnuFileClose_Click(); }},
    {.entry = {u"mnuFileQuit", fileMenu, text::FileQuit, u"Alt+F4", KeyContext::WindowManager},
     .run = [](frmMain &form) { form.close(); }},

    menu(editMenu, text::EditMenu),
    {.entry = {u"mnuEditUndo", editMenu, text::EditUndo, u"Ctrl+Z"},
     .button = {u"undo", text::UndoTip, 5, 1},
     .enabled = canUndo,
     .buttonNews = news::Recorded | news::History,
     .paneText = PaneText::IsTheStep,
     .run = [](frmMain &form) { form.editor().history.UndoCommand(); }},
    // A change leaves its button as it is although nothing can be redone then: buttons do not
    // flicker while one types, and pressing it finds out.
    {.entry = {u"mnuEditRedo", editMenu, text::EditRedo, u"Ctrl+Y"},
     .button = {u"redo", text::RedoTip, 5, 2},
     .enabled = canRedo,
     .buttonNews = news::History,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().history.RedoCommand(); }},
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

    menu(viewMenu, text::ViewMenu),
    {.entry = {u"mnuNodeCollapse", viewMenu, text::NodeCollapse},
     .enabled = canExpand,
     .run = [](frmMain &form) { form.editor().view.mnuNodeCollapse_Click(); }},
    {.entry = {u"mnuNodeExpand", viewMenu, text::NodeExpand},
     .enabled = canExpand,
     .run = [](frmMain &form) { form.editor().view.mnuNodeExpand_Click(); }},
    line(u"mnuViewLine1", viewMenu),
    {.entry = {.name = u"mnuViewText",
               .menu = viewMenu,
               .caption = text::ViewText,
               .checkable = true,
               .checked = true},
     .paneText = PaneText::IsAskedAbout,
     .run =
         [](frmMain &form) {
             form.editor().view.mnuViewText_Click(isChecked(form, u"mnuViewText"));
         }},
    line(u"mnuViewLine2", viewMenu),
    {.entry = {u"mnuViewFont", viewMenu, text::ViewFont}, .run = chooseFont},

    menu(nodeMenu, text::NodeMenu),
    {.entry = {u"mnuNodeMoveUp", nodeMenu, text::NodeMoveUp},
     .enabled = inNodeMenu<&NodeMenuStates::moveUp>,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuNodeMoveUp_Click(); }},
    {.entry = {u"mnuNodeMoveDown", nodeMenu, text::NodeMoveDown},
     .enabled = inNodeMenu<&NodeMenuStates::moveDown>,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuNodeMoveDown_Click(); }},
    line(u"mnuNodeLine1", nodeMenu),
    {.entry = {u"mnuNodeAddElement", nodeMenu, text::NodeAddElement},
     .enabled = inNodeMenu<&NodeMenuStates::addElement>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeAddElement_Click>},
    {.entry = {u"mnuNodeAddAttribute", nodeMenu, text::NodeAddAttribute, u"Ctrl+A",
               KeyContext::Tree},
     .enabled = inNodeMenu<&NodeMenuStates::addOther>,
     .paneText = PaneText::IsAskedAbout,
     .run = addAttribute},
    {.entry = {u"mnuNodeAddText", nodeMenu, text::NodeAddText},
     .enabled = inNodeMenu<&NodeMenuStates::addOther>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeAddText_Click>},
    {.entry = {u"mnuNodeAddComment", nodeMenu, text::NodeAddComment},
     .enabled = inNodeMenu<&NodeMenuStates::addOther>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeAddComment_Click>},
    {.entry = {u"mnuNodeAddCDATA", nodeMenu, text::NodeAddCDATA},
     .enabled = inNodeMenu<&NodeMenuStates::addOther>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeAddCDATA_Click>},
    line(u"mnuNodeLine2", nodeMenu),
    {.entry = {u"mnuNodeInsElement", nodeMenu, text::NodeInsElement, u"Ctrl+Alt+E",
               KeyContext::Tree},
     .enabled = inNodeMenu<&NodeMenuStates::insert>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeInsElement_Click>},
    {.entry = {u"mnuNodeInsText", nodeMenu, text::NodeInsText, u"Ctrl+Alt+T", KeyContext::Tree},
     .enabled = inNodeMenu<&NodeMenuStates::insert>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeInsText_Click>},
    {.entry = {u"mnuNodeInsComment", nodeMenu, text::NodeInsComment, u"Ctrl+Alt+K",
               KeyContext::Tree},
     .enabled = inNodeMenu<&NodeMenuStates::insert>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeInsComment_Click>},
    {.entry = {u"mnuNodeInsCDATA", nodeMenu, text::NodeInsCDATA},
     .enabled = inNodeMenu<&NodeMenuStates::insert>,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::mnuNodeInsCDATA_Click>},
    line(u"mnuNodeLine3", nodeMenu),
    {.entry = {u"mnuNodeDelete", nodeMenu, text::NodeDelete},
     .enabled = inEditMenu<&EditMenuStates::remove>,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuEditDelete_Click(); }},

    menu(toolMenu, text::ToolMenu),
    {.entry = {u"mnuToolSelXSL", toolMenu, text::ToolSelXSL},
     .enabled = hasDocument,
     .run = [](frmMain &form) { form.editor().preview.mnuToolSelXSL_Click(); }},
    {.entry = {u"mnuToolPreview", toolMenu, text::ToolPreview, u"F5"},
     .button = {u"preview", text::PreviewTip, 2, 2},
     .enabled = hasDocument,
     .buttonNews = news::Document,
     .run = [](frmMain &form) { form.editor().preview.mnuToolPreview_Click(); }},
    {.entry = {u"mnuToolPreviewSel", toolMenu, text::ToolPreviewSel, u"Ctrl+F5"},
     .enabled = hasSelection,
     .run = [](frmMain &form) { form.editor().preview.mnuToolPreviewSel_Click(); }},
    {.entry = {.name = u"mnuToolPrevHTML",
               .menu = toolMenu,
               .caption = text::ToolPrevHTML,
               .checkable = true},
     .run =
         [](frmMain &form) {
             form.editor().preview.mnuToolPrevHTML_Click(isChecked(form, u"mnuToolPrevHTML"));
         }},
    {.entry = {.name = u"mnuToolPreviewSync",
               .menu = toolMenu,
               .caption = text::ToolPreviewSync,
               .checkable = true,
               .checked = true},
     .run =
         [](frmMain &form) {
             form.editor().preview.mnuToolPreviewSync_Click(isChecked(form, u"mnuToolPreviewSync"));
         }},
    line(u"mnuToolLine1", toolMenu),
    {.entry = {u"mnuToolVerifyNew", toolMenu, text::ToolVerifyNew},
     .enabled = hasDocument,
     .run = [](frmMain &form) { form.editor().validation.mnuToolVerifyNew_Click(); }},
    {.entry = {u"mnuToolVerify", toolMenu, text::ToolVerify, u"F7"},
     .button = {u"verify", text::VerifyTip, 6, 1},
     .enabled = hasDocument,
     .buttonNews = news::Document,
     .run = [](frmMain &form) { form.editor().validation.mnuToolVerify_Click(); }},
    line(u"mnuToolLine2", toolMenu),
    {.entry = {u"mnuToolSend", toolMenu, text::ToolSend},
     .enabled = hasDocument,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().tools.mnuToolSend_Click(); }},
    {.entry = {u"mnuToolRemoveText", toolMenu, text::ToolRemoveText},
     .enabled = isWritableDocument,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().tools.mnuToolRemoveText_Click(); }},
    line(u"mnuToolLine3", toolMenu),
    {.entry = {.name = editorsMenu,
               .menu = toolMenu,
               .caption = text::ToolOpenEditor,
               .kind = ActionKind::Menu},
     .enabled = hasName},
    array(u"mnuToolOpen", editorsMenu, text::ToolOpen),
    line(u"mnuToolLine4", toolMenu),
    {.entry = {u"mnuToolOption", toolMenu, text::ToolOption},
     .run = [](frmMain &form) { form.mnuToolOption_Click(); }},

    menu(windowMenu, text::WindowMenu),
    {.entry = {u"mnuWindowTileH", windowMenu, text::WindowTileH},
     .run = [](frmMain &form) { form.mnuWindowTileH_Click(); }},

    menu(helpMenu, text::HelpMenu),
    {.entry = {u"mnuHelpReadme", helpMenu, text::HelpReadme},
     .run = [](frmMain &form) { form.editor().tools.mnuHelpReadme_Click(); }},
    {.entry = {u"mnuHelpAbout", helpMenu, text::HelpAbout},
     .run = [](frmMain &form) { form.editor().tools.mnuHelpAbout_Click(); }},

    // The tree has a menu of its own, below, which shows more.
    {.entry = {.name = popupMenu,
               .caption = text::NodeContextMenu,
               .kind = ActionKind::Menu,
               .visible = false}},
    {.entry = {u"mnuNodeContextUp", popupMenu, text::NodeMoveUp},
     .enabled = inNodeMenu<&NodeMenuStates::moveUp>,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuNodeMoveUp_Click(); }},
    {.entry = {u"mnuNodeContextDown", popupMenu, text::NodeMoveDown},
     .enabled = inNodeMenu<&NodeMenuStates::moveDown>,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().nodeCommands.mnuNodeMoveDown_Click(); }},

    {.entry = {.name = treeMenu, .menu = nodeMenu, .kind = ActionKind::ContextMenu}},
    line(u"treeMenuLine1", treeMenu),
    {.entry = {.name = u"AddAttributeToParent",
               .menu = treeMenu,
               .caption = text::AddAttributeToParent,
               .hidesWhenDisabled = true},
     .enabled = canAddAttributeToParent,
     .paneText = PaneText::IsAskedAbout,
     .run = create<&Create::AddAttributeToParent>},

    {.entry = {.name = u"SelectByPath"},
     .button = {u"move", text::MoveTip, LastMainGroup + 1, 1},
     .run = [](frmMain &form) { form.editor().pathQuery.SelectByPath(); }},
};

} // namespace

std::span<const CommandRow> commandTable() {
    return Rows;
}

std::vector<controls::ActionRow> menuEntries() {
    std::vector<controls::ActionRow> entries;
    for (const CommandRow &row : Rows)
        entries.push_back(row.entry);
    return entries;
}

} // namespace quillon::app
