#include "view/controls/theme.h"

#include "view/controls/program_style.h"

#include <QApplication>
#include <QIcon>
#include <QPointer>
#include <QToolTip>

#include <array>
#include <utility>

namespace quillon::controls {

namespace {

/// Classes that desktops give palettes of their own, which would hide that of the program.
constexpr std::array ClassesWithPalettes{
    "QAbstractButton", "QAbstractItemView", "QCheckBox",        "QComboBox",
    "QGroupBox",       "QHeaderView",       "QLabel",           "QLineEdit",
    "QMenu",           "QMenuBar",          "QMessageBoxLabel", "QRadioButton",
    "QTabBar",         "QTextControl",      "QTextEdit",        "QToolButton",
};

constexpr std::pair<QStringView, ThemeMode> ModeNames[] = {
    {u"Automatic", ThemeMode::Automatic}, {u"Light", ThemeMode::Light}, {u"Dark", ThemeMode::Dark}};

} // namespace

Theme &theme() {
    static QPointer<Theme> theme;
    if (!theme)
        theme = new Theme(qApp);
    return *theme;
}

Theme::Theme(QObject *parent) : QObject(parent) {
    // No icon is to depend on what is installed: those named by Qt's own dialogs and menus are
    // looked for among the program's.
    QIcon::setThemeSearchPaths({QStringLiteral(":/icons")});
    QIcon::setThemeName(QStringLiteral("program"));
    QApplication::setStyle(new ProgramStyle);
    lookAtDesktopPalette();
    isDark_ = isPaletteDark_;
    apply();
}

QColor Theme::colour(Colour use) const {
    return themeColour(use, isDark_);
}

void Theme::setMode(ThemeMode mode) {
    if (std::exchange(mode_, mode) == mode)
        return;
    choose();
    Q_EMIT modeChanged();
}

void Theme::setDesktopPreference(Preference preference) {
    preference_ = preference;
    choose();
}

void Theme::desktopPaletteChanged() {
    lookAtDesktopPalette();
    apply();
    choose();
}

void Theme::lookAtDesktopPalette() {
    // What the desktop gives is to be had only where the program has none of its own.
    QApplication::setPalette(QPalette());
    isPaletteDark_ = QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

void Theme::choose() {
    const bool wanted = mode_ != ThemeMode::Automatic     ? mode_ == ThemeMode::Dark
                        : preference_ != Preference::None ? preference_ == Preference::Dark
                                                          : isPaletteDark_;
    if (std::exchange(isDark_, wanted) == wanted)
        return;
    apply();
    Q_EMIT changed();
}

void Theme::apply() {
    const QPalette palette = themePalette(isDark_);
    QApplication::setPalette(palette);
    for (const char *name : ClassesWithPalettes) {
        if (QApplication::palette(name) != palette)
            QApplication::setPalette(palette, name);
    }
    QToolTip::setPalette(palette);
}

ThemeMode themeModeOf(QStringView name) {
    for (const auto &[known, mode] : ModeNames) {
        if (name == known)
            return mode;
    }
    return ThemeMode::Automatic;
}

QStringView nameOf(ThemeMode mode) {
    for (const auto &[name, known] : ModeNames) {
        if (mode == known)
            return name;
    }
    return {};
}

} // namespace quillon::controls
