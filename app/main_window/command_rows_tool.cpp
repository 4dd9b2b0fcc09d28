#include "app/main_window/command_rows.h"

namespace quillon::app::command_rows {

namespace {

using controls::ActionKind;

constexpr QStringView toolMenu = u"mnuTool";
constexpr QStringView editorsMenu = u"mnuToolOpenEditor";
constexpr QStringView windowMenu = u"mnuWindow";
constexpr QStringView helpMenu = u"mnuHelp";

bool hasName(const Editor &editor) {
    return !editor.state.m_FileName.isEmpty();
}

bool hasSelection(const Editor &editor) {
    return bool(editor.selection.GetSelectedDOMNode());
}

constexpr CommandRow Rows[] = {
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
    line(u"mnuToolLine5", toolMenu),
    {.entry = {u"mnuToolSchemas", toolMenu, text::ToolSchemas, u"Shift+F7"},
     .run = [](frmMain &form) { form.mnuToolSchemas_Click(); }},
    {.entry = {u"mnuToolBindSchema", toolMenu, text::ToolBindSchema},
     .enabled = isWritableDocument,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.mnuToolBindSchema_Click(); }},
    {.entry = {u"mnuToolCreateSchema", toolMenu, text::ToolCreateSchema},
     .enabled = hasDocument,
     .paneText = PaneText::IsAskedAbout,
     .run = [](frmMain &form) { form.editor().schemaCommands.createSchema(); }},

    menu(windowMenu, text::WindowMenu),
    {.entry = {u"mnuWindowTileH", windowMenu, text::WindowTileH},
     .run = [](frmMain &form) { form.mnuWindowTileH_Click(); }},
    line(u"mnuWindowLine1", windowMenu),
    array(u"mnuWindowList", windowMenu, text::WindowList),
    {.entry = {u"mnuWindowMore", windowMenu, text::WindowMore},
     .run = [](frmMain &form) { form.mnuWindowMore_Click(); }},

    menu(helpMenu, text::HelpMenu),
    {.entry = {u"mnuHelpReadme", helpMenu, text::HelpReadme},
     .run = [](frmMain &form) { form.editor().tools.mnuHelpReadme_Click(); }},
    {.entry = {u"mnuHelpAbout", helpMenu, text::HelpAbout},
     .run = [](frmMain &form) { form.editor().tools.mnuHelpAbout_Click(); }},
    line(u"mnuHelpLine1", helpMenu),
    {.entry = {u"mnuHelpManual", helpMenu, text::HelpManual, u"F1"},
     .run = [](frmMain &form) { form.help().showManual(); }},
    {.entry = {u"mnuHelpFindCommand", helpMenu, text::HelpFindCommand, u"Ctrl+Shift+P"},
     .run = [](frmMain &form) { form.help().searchCommands(); }},
};

} // namespace

std::span<const CommandRow> ofToolMenus() {
    return Rows;
}

} // namespace quillon::app::command_rows
