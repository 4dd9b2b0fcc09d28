#include "app/main_window/command_rows.h"

namespace quillon::app::command_rows {

namespace {

using controls::ThemeMode;

constexpr QStringView viewMenu = u"mnuView";
constexpr QStringView themeMenu = u"mnuViewTheme";

bool canExpand(const Editor &editor) {
    return editor.view.mnuView_Click();
}

bool hasHits(const Editor &editor) {
    return !editor.hits.isEmpty() || !editor.faults.isEmpty() || editor.broken.fault();
}

/// Of a text that is being mended one fault is known.
template <void (frmMain::*Show)()>
void showHit(frmMain &form) {
    form.editor().state.isBroken ? form.editor().broken.goToFault() : (form.*Show)();
}

void chooseFont(frmMain &form) {
    const settings::Settings &settings = form.editor().settings;
    form.editor().view.mnuViewFont_Click(settings.fontName, settings.fontSize);
}

/// One of the choices of the theme's menu.
template <ThemeMode Mode>
constexpr CommandRow theme(QStringView name, resources::Text caption) {
    return {.entry = {.name = name, .menu = themeMenu, .caption = caption, .checkable = true},
            .run = [](frmMain &form) { form.mnuViewTheme_Click(Mode); }};
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
    line(u"mnuViewLine3", viewMenu),
    {.entry =
         {.name = u"mnuViewPanel", .menu = viewMenu, .caption = text::ViewPanel, .checkable = true},
     .run = [](frmMain &form) { form.mnuViewPanel_Click(isChecked(form, u"mnuViewPanel")); }},
    {.entry = {u"mnuViewNextHit", viewMenu, text::ViewNextHit, u"F4"},
     .enabled = hasHits,
     .run = showHit<&frmMain::mnuViewNextHit_Click>},
    {.entry = {u"mnuViewPreviousHit", viewMenu, text::ViewPreviousHit, u"Shift+F4"},
     .enabled = hasHits,
     .run = showHit<&frmMain::mnuViewPreviousHit_Click>},
    line(u"mnuViewLine4", viewMenu),
    {.entry = {u"mnuViewNextPart", viewMenu, text::ViewNextPart, u"F6"},
     .run = [](frmMain &form) { form.focusPart(+1); }},
    {.entry = {u"mnuViewPreviousPart", viewMenu, text::ViewPreviousPart, u"Shift+F6"},
     .run = [](frmMain &form) { form.focusPart(-1); }},
    line(u"mnuViewLine5", viewMenu),
    {.entry = {.name = u"mnuViewCandidates",
               .menu = viewMenu,
               .caption = text::ViewCandidates,
               .checkable = true},
     .run =
         [](frmMain &form) {
             form.mnuViewCandidates_Click(isChecked(form, u"mnuViewCandidates"));
         }},
    {.entry = {u"mnuViewInsertCandidate", viewMenu, text::ViewInsertCandidate, u"F9"},
     .run = [](frmMain &form) { form.candidates().open(); }},
    {.entry = {.name = u"mnuViewPropose",
               .menu = viewMenu,
               .caption = text::ViewPropose,
               .checkable = true,
               .checked = true},
     .run = [](frmMain &form) { form.mnuViewPropose_Click(isChecked(form, u"mnuViewPropose")); }},
    {.entry = {.name = u"mnuViewLive",
               .menu = viewMenu,
               .caption = text::ViewLive,
               .checkable = true,
               .checked = true},
     .run = [](frmMain &form) { form.mnuViewLive_Click(isChecked(form, u"mnuViewLive")); }},
    line(u"mnuViewLine6", viewMenu),
    menu(themeMenu, text::ViewTheme, viewMenu),
    theme<ThemeMode::Automatic>(u"mnuViewThemeAutomatic", text::ThemeAutomatic),
    theme<ThemeMode::Light>(u"mnuViewThemeLight", text::ThemeLight),
    theme<ThemeMode::Dark>(u"mnuViewThemeDark", text::ThemeDark),
};

} // namespace

std::span<const CommandRow> ofViewMenu() {
    return Rows;
}

} // namespace quillon::app::command_rows
