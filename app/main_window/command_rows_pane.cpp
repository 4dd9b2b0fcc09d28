#include "app/main_window/command_rows.h"
#include "resources/pane_texts.h"

namespace quillon::app::command_rows {

namespace {

constexpr QStringView viewMenu = u"mnuView";
constexpr QStringView paneMenu = u"mnuPane";
constexpr QStringView zoomMenu = u"mnuZoom";

void tell(frmMain &form, const resources::Text &text) {
    Q_EMIT form.editor().statusText(text.toString());
}

/// Runs a command that folds the pane's text, or says why it does nothing.
void fold(frmMain &form, void (controls::TextBox::*command)()) {
    if (form.textBox().canFold())
        (form.textBox().*command)();
    else
        tell(form, resources::pane_texts::NothingToFold);
}

void goToPartner(frmMain &form) {
    form.textBox().setFocus();
    if (!form.textBox().goToPartner())
        tell(form, resources::pane_texts::NoPartner);
}

constexpr CommandRow Rows[] = {
    line(u"mnuPaneLine0", viewMenu),
    menu(paneMenu, text::PaneMenu, viewMenu),
    {.entry = {u"mnuPaneFold", paneMenu, text::PaneFold, u"Ctrl+Shift+["},
     .run = [](frmMain &form) { fold(form, &controls::TextBox::foldAtCaret); }},
    {.entry = {u"mnuPaneUnfold", paneMenu, text::PaneUnfold, u"Ctrl+Shift+]"},
     .run = [](frmMain &form) { fold(form, &controls::TextBox::unfoldAtCaret); }},
    {.entry = {u"mnuPaneFoldAll", paneMenu, text::PaneFoldAll},
     .run = [](frmMain &form) { fold(form, &controls::TextBox::foldAll); }},
    {.entry = {u"mnuPaneUnfoldAll", paneMenu, text::PaneUnfoldAll},
     .run = [](frmMain &form) { fold(form, &controls::TextBox::unfoldAll); }},
    line(u"mnuPaneLine1", paneMenu),
    {.entry = {u"mnuPanePartner", paneMenu, text::PanePartner, u"Ctrl+M"}, .run = goToPartner},
    {.entry = {u"mnuPaneRenameTags", paneMenu, text::PaneRenameTags, u"Shift+F2"},
     .run = [](frmMain &form) { form.editor().paneSource.mnuPaneRenameTags_Click(); }},
    {.entry = {u"mnuPaneJump", paneMenu, text::PaneJump, u"Ctrl+J"},
     .run = [](frmMain &form) { form.mnuPaneJump_Click(); }},
    line(u"mnuPaneLine2", paneMenu),
    {.entry =
         {.name = u"mnuPaneWrap", .menu = paneMenu, .caption = text::PaneWrap, .checkable = true},
     .run = [](frmMain &form) { form.mnuPaneWrap_Click(isChecked(form, u"mnuPaneWrap")); }},
    {.entry = {.name = u"mnuPaneBlanks",
               .menu = paneMenu,
               .caption = text::PaneBlanks,
               .checkable = true},
     .run = [](frmMain &form) { form.mnuPaneBlanks_Click(isChecked(form, u"mnuPaneBlanks")); }},
    {.entry = {.name = u"mnuPaneFileLines",
               .menu = paneMenu,
               .caption = text::PaneFileLines,
               .checkable = true},
     .run =
         [](frmMain &form) { form.mnuPaneFileLines_Click(isChecked(form, u"mnuPaneFileLines")); }},
    {.entry = {.name = u"mnuPaneClose",
               .menu = paneMenu,
               .caption = text::PaneClose,
               .checkable = true,
               .checked = true},
     .run = [](frmMain &form) { form.mnuPaneClose_Click(isChecked(form, u"mnuPaneClose")); }},
    menu(zoomMenu, text::ZoomMenu, viewMenu),
    {.entry = {u"mnuZoomIn", zoomMenu, text::ZoomIn, u"Ctrl++"},
     .run = [](frmMain &form) { form.zoom().mnuZoomIn_Click(); }},
    {.entry = {u"mnuZoomOut", zoomMenu, text::ZoomOut, u"Ctrl+-"},
     .run = [](frmMain &form) { form.zoom().mnuZoomOut_Click(); }},
    {.entry = {u"mnuZoomReset", zoomMenu, text::ZoomReset, u"Ctrl+0"},
     .run = [](frmMain &form) { form.zoom().mnuZoomReset_Click(); }},
};

} // namespace

std::span<const CommandRow> ofPaneMenu() {
    return Rows;
}

} // namespace quillon::app::command_rows
