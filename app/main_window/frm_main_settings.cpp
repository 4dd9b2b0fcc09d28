#include "app/main_window/frm_main.h"
#include "platform/runtime/file_names.h"
#include "platform/runtime/numbers.h"
#include "platform/ui/error_boundary.h"
#include "platform/ui/message_box.h"
#include "tools/encoding_dialog.h"
#include "tools/format_dialog.h"
#include "tools/options_dialog.h"
#include "tools/sort_dialog.h"
#include "view/controls/installed_font.h"
#include "view/controls/screen_fit.h"

#include <QAction>
#include <QGuiApplication>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>

#include <limits>

namespace quillon::app {

using ui::guarded;
using ui::ignoringErrors;

namespace {

/// Smaller than this, a window shows nothing of use.
constexpr QSize LeastSize(320, 240);
/// And so does a part of it smaller than this.
constexpr int LeastPart = 80;

/// The part of the screens that shows most of a window, or the main one where none does.
QRect partShowing(const QRect &window) {
    QScreen *best = QGuiApplication::primaryScreen();
    const auto shown = [&](const QScreen *screen) {
        const QSize seen = screen->availableGeometry().intersected(window).size();
        return qint64(std::max(0, seen.width())) * std::max(0, seen.height());
    };
    for (QScreen *screen : QGuiApplication::screens()) {
        if (shown(screen) > shown(best))
            best = screen;
    }
    return best ? best->availableGeometry() : window;
}

void split(QSplitter &splitter, int first, int whole) {
    const int both = whole - splitter.handleWidth();
    // Where they stood in a larger window they may leave nothing of what is behind them.
    const int second = std::max(both - first, std::min(LeastPart, both / 2));
    splitter.setSizes({both - second, second});
}

QString doubledAmpersands(QString text) {
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace

void frmMain::Form_Initialize() {
    settings::Settings &settings = editor_->settings;
    settings.report = [](const QString &text) {
        ui::showMessage(text, ui::message_style::Exclamation);
    };
    settings::Placement placed = placement();
    settings.load(placed);
    panel_->setUsualHeight(settings.panelHeight / TwipsPerPixel);
    panel_->setVisible(settings.panelShown);
    candidates_->setUsualWidth(settings.candidatesWidth / TwipsPerPixel);
    candidates_->setVisible(settings.candidatesShown);
    place(placed);
    if (settings.maximized)
        setWindowState(windowState() | Qt::WindowMaximized);
    txtEdit->setProposesUnasked(settings.proposesUnasked);
    actions_.action(u"mnuViewPropose")->setChecked(settings.proposesUnasked);
    actions_.action(u"mnuViewLive")->setChecked(settings.liveValidation);
    editor_->live.setOn(settings.liveValidation);
    showThemeMode();
    connect(&controls::theme(), &controls::Theme::modeChanged, this, &frmMain::showThemeMode);
    takePaneSettings();
    ignoringErrors([&] { takeFont(settings.fontName, settings.fontSize); });
    showExternalEditors();
    ignoringErrors([this] { editor_->workingFolder.create(); });
}

void frmMain::Form_Unload() {
    editor_->recovery.discard();
    leave();
}

void frmMain::endSession() {
    guarded([this] { editor_->tree.endLabelEdit(); });
    ignoringErrors([this] { editor_->recovery.keep(); });
    ignoringErrors([this] { leave(); });
}

void frmMain::leave() {
    editor_->settings.maximized = isMaximized();
    editor_->settings.proposesUnasked = txtEdit->proposesUnasked();
    editor_->settings.panelShown = !panel_->isHidden();
    const auto twips = [](int pixels) {
        return qint16(std::min(pixels * TwipsPerPixel, int{std::numeric_limits<qint16>::max()}));
    };
    editor_->settings.panelHeight = twips(panel_->usualHeight());
    editor_->settings.candidatesShown = !candidates_->isHidden();
    editor_->settings.candidatesWidth = twips(candidates_->usualWidth());
    editor_->settings.themeMode = nameOf(controls::theme().mode()).toString();
    editor_->settings.reread(&settings::Values::language);
    editor_->settings.save(placement(), !isMinimized() && !isMaximized());
    editor_->workingFolder.leave();
    ignoringErrors([this] { companion_.execute(QStringLiteral("REMOVE ") + handle()); });
}

settings::Placement frmMain::placement() const {
    const auto twips = [](int pixels) { return pixels * TwipsPerPixel; };
    settings::Placement placed;
    placed.left = twips(x());
    placed.top = twips(y());
    placed.width = twips(width());
    placed.height = twips(height());
    placed.splitLeft = twips(wasShown_ ? vsp->sizes().value(0) : firstSplitLeft_);
    placed.splitTop = twips(splitTop());
    return placed;
}

void frmMain::place(const settings::Placement &placed) {
    const auto pixels = [](int twips) { return twips / TwipsPerPixel; };
    const QRect window(pixels(placed.left), pixels(placed.top), pixels(placed.width),
                       pixels(placed.height));
    QRect room = partShowing(window);
    room.setSize(room.size() - controls::FrameSize);
    const QSize least = LeastSize.expandedTo(minimumSizeHint());
    const QRect fitted =
        controls::fittedInto(room, {window.topLeft(), window.size().expandedTo(least)});
    resize(fitted.size());
    move(fitted.topLeft());
    firstSplitLeft_ = pixels(placed.splitLeft);
    firstSplitTop_ = pixels(placed.splitTop);
}

void frmMain::showEvent(QShowEvent *event) {
    QMainWindow::showEvent(event);
    editor_->windows.join();
    if (std::exchange(wasShown_, true))
        return;
    // Only now the splitters have a size to divide.
    split(*vsp, firstSplitLeft_, centralWidget()->width());
    if (rightSide_->currentWidget() == hsp)
        splitRightSide();
    else
        firstPage_->takeFocus();
}

int frmMain::splitTop() const {
    const bool isSplit = wasShown_ && rightSide_->currentWidget() == hsp;
    return isSplit ? hsp->sizes().value(0) : firstSplitTop_;
}

void frmMain::splitRightSide() {
    split(*hsp, firstSplitTop_, centralWidget()->height());
}

void frmMain::showExternalEditors() {
    std::vector<controls::ActionMenus::Element> elements;
    for (const settings::ExternalEditor &editor : editor_->settings.editors)
        elements.push_back({editor.name, editor.path});
    menus_->setElements(
        u"mnuToolOpen", elements,
        [this](int, const QString &program) { editor_->tools.mnuToolOpen_Click(program); }, 0);
    actions_.action(u"mnuToolLine3")->setVisible(!elements.empty());
    actions_.action(u"mnuToolOpenEditor")->setVisible(!elements.empty());
}

void frmMain::mnuViewTheme_Click(controls::ThemeMode mode) {
    controls::theme().setMode(mode);
    // The choice that was made already has lost its check by being made again.
    showThemeMode();
    editor_->settings.themeMode = nameOf(mode).toString();
    editor_->settings.saveAtOnce(&settings::Values::themeMode);
}

void frmMain::showThemeMode() {
    using controls::ThemeMode;
    for (const auto &[command, mode] : {std::pair(u"mnuViewThemeAutomatic", ThemeMode::Automatic),
                                        std::pair(u"mnuViewThemeLight", ThemeMode::Light),
                                        std::pair(u"mnuViewThemeDark", ThemeMode::Dark)})
        actions_.action(command)->setChecked(controls::theme().mode() == mode);
}

void frmMain::mnuToolOption_Click() {
    settings::Settings &settings = editor_->settings;
    tools::Options present;
    present.editors = settings.editors;
    present.fontName = settings.fontName;
    present.fontSize = settings.fontSize;
    present.theme = controls::theme().mode();
    present.language = settings.language;
    present.firstPage = settings.firstPage;
    tools::OptionsDialog dialog(present, editor_->recentFiles.read().size(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const tools::Options chosen = dialog.options();
    settings.editors = chosen.editors;
    settings.saveEditors();
    mnuViewTheme_Click(chosen.theme);
    settings.language = chosen.language;
    settings.saveAtOnce(&settings::Values::language);
    wantFirstPage(chosen.firstPage);
    takeFont(chosen.fontName, runtime::toInteger(qint64(chosen.fontSize)));
    showExternalEditors();
    // The places behind a shorter list have to be emptied, too, or old entries come back.
    if (chosen.clearRecentFiles)
        editor_->recentFiles.write(QStringList(document::RecentFiles::MaxWritten));
}

void frmMain::mnuNodeSort_Click() {
    if (!editor_->sorting.maySort())
        return;
    tools::SortDialog dialog(sortOrder_, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    sortOrder_ = dialog.order();
    editor_->sorting.sort(sortOrder_);
}

void frmMain::mnuEditFormat_Click() {
    settings::Settings &settings = editor_->settings;
    tools::FormatDialog dialog(
        editor_->prettyPrinting, settings,
        QFont(controls::installedFamily(settings.fontName), settings.fontSize), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    dialog.keep(settings);
    editor_->prettyPrinting.format(tools::layoutStyle(settings), dialog.scope());
}

void frmMain::mnuEditEncoding_Click() {
    tools::EncodingDialog dialog(editor_->encodings, this);
    if (dialog.exec() == QDialog::Accepted)
        editor_->encodings.change(dialog.encoding(), dialog.lineEnds());
    else if (const xml::Node place = dialog.place())
        editor_->selection.ShowNode(editor_->builder.itemOf(place), true);
}

void frmMain::takeFont(const QString &name, qint16 size) {
    editor_->settings.fontName = name;
    editor_->settings.fontSize = size;
    showZoomed(name, size);
    // The path box keeps its size: a larger one would stretch the toolbar.
    QFont pathFont = cboPath->font();
    pathFont.setFamily(name);
    cboPath->setFont(pathFont);
}

void frmMain::showRecentFiles() {
    std::vector<controls::ActionMenus::Element> elements;
    for (const QString &path : editor_->recentFiles.read())
        elements.push_back({QStringLiteral("&%1 %2")
                                .arg(elements.size() + 1)
                                .arg(doubledAmpersands(runtime::shownPath(path))),
                            path});
    menus_->setElements(
        u"mnuFileMRUFiles", elements,
        [this](int, const QString &path) { editor_->commands.mnuFileMRUFiles_Click(path); }, 1);
    actions_.action(u"mnuFileMRU")->setEnabled(!elements.empty());
}

} // namespace quillon::app
