#pragma once

#include <QColor>
#include <QObject>
#include <QPalette>

namespace quillon::controls {

/// What a colour is used for. What widgets draw by themselves has its colours in the palette.
enum class Colour {
    // The text box.
    Ink,
    Paper,
    LockedPaper,
    CurrentLine,
    SelectionPaper,
    Caret,
    LineNumberInk,
    LineNumberPaper,
    FoldInk,
    FoldPaper,
    /// Blanks and tabs that are shown.
    BlankInk,
    /// A bracket or tag and its counterpart; one that has none.
    MatchPaper,
    MismatchInk,
    TagInk,
    AttributeInk,
    StringInk,
    CommentInk,
    EntityInk,
    CDataInk,
    InstructionInk,

    // Faults: in tree, text and lists.
    InvalidMark,
    BrokenMark,
    /// Around a mark, and the sign in it.
    MarkEdge,

    /// What has been found in a line of a list.
    HitInk,
    HitPaper,
    /// What is told beside a field, in palettes as FaultRole.
    FaultInk,

    /// Around fields, boxes to be ticked and menus.
    Edge,

    // The splash.
    SplashPaper,
    SplashInk,
    SplashFaintInk,
    SplashEdge,
};

/// The role of a label that says what is wrong with a field. No style uses it for anything else.
inline constexpr QPalette::ColorRole FaultRole = QPalette::BrightText;

enum class ThemeMode { Automatic, Light, Dark };

/// The colours of everything the program draws: the palette of all widgets, and by their use those
/// that are drawn by its own code. The style is the same under every desktop, so that both sets of
/// colours are seen as they were made.
///
/// In automatic mode it follows what the desktop says (setDesktopPreference), or else the palette
/// that the desktop gives to its programs.
class Theme : public QObject {
    Q_OBJECT

public:
    explicit Theme(QObject *parent);

    ThemeMode mode() const { return mode_; }
    void setMode(ThemeMode mode);
    bool isDark() const { return isDark_; }
    QColor colour(Colour use) const;

    enum class Preference { None, Light, Dark };
    /// What the user prefers on the desktop at large.
    void setDesktopPreference(Preference preference);
    /// Looks at the desktop's palette again.
    void desktopPaletteChanged();

Q_SIGNALS:
    /// Other colours are in force. The palettes of all widgets are changed by then.
    void changed();
    void modeChanged();

private:
    void choose();
    void apply();
    void lookAtDesktopPalette();

    ThemeMode mode_ = ThemeMode::Automatic;
    Preference preference_ = Preference::None;
    bool isPaletteDark_ = false;
    bool isDark_ = false;
};

/// The theme of the program. Needs the application object, whose look it sets when it is asked for
/// the first time.
Theme &theme();

/// The one of two themes' colours.
QColor themeColour(Colour use, bool isDark);
/// The palette of one of the two themes.
QPalette themePalette(bool isDark);

/// As a setting has it: "Automatic", "Light" or "Dark". Whatever else it has is automatic.
ThemeMode themeModeOf(QStringView name);
QStringView nameOf(ThemeMode mode);

} // namespace quillon::controls
