#include "app/main_window/command_rows.h"

namespace quillon::app::command_rows {

namespace {

constexpr QStringView viewMenu = u"mnuView";

bool canExpand(const Editor &editor) {
    return editor.view.mnuView_Click();
}

void chooseFont(frmMain &form) {
    const settings::Settings &settings = form.editor().settings;
    form.editor().view.mnuViewFont_Click(settings.fontName, settings.fontSize);
}

constexpr CommandRow Rows[] = {
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
};

} // namespace

std::span<const CommandRow> ofViewMenu() {
    return Rows;
}

} // namespace quillon::app::command_rows
