#include "view/controls/theme.h"

#include <algorithm>

namespace quillon::controls {

namespace {

struct ColourPair {
    Colour use;
    QRgb light;
    QRgb dark;
};

/// Each ink can be read on every paper that it stands on: the contrast is 4.5 at least, also of
/// what is selected. tests/view/controls/theme_test.cpp measures it.
constexpr ColourPair Colours[] = {
    {Colour::Ink, 0xff1f1f1f, 0xffe6e6e6},
    {Colour::Paper, 0xffffffff, 0xff1e1e1e},
    {Colour::LockedPaper, 0xfff2f2f2, 0xff26282b},
    {Colour::CurrentLine, 0xfff3f7fd, 0xff2a2d2e},
    {Colour::SelectionPaper, 0xffcfe3ff, 0xff1f4066},
    {Colour::Caret, 0xff000000, 0xffffffff},
    {Colour::LineNumberInk, 0xff696969, 0xff9aa0a6},
    {Colour::LineNumberPaper, 0xfff6f6f6, 0xff252628},
    {Colour::FoldInk, 0xff5a6470, 0xffb4bcc6},
    {Colour::FoldPaper, 0xfff6f6f6, 0xff252628},
    {Colour::BlankInk, 0xff717171, 0xff8d9299},
    {Colour::MatchPaper, 0xffc9ecd0, 0xff234a36},
    {Colour::MismatchInk, 0xffc02020, 0xffff8a80},
    {Colour::TagInk, 0xff990000, 0xffff9a94},
    {Colour::AttributeInk, 0xff964b00, 0xfff0b675},
    {Colour::StringInk, 0xff0b4f9e, 0xff8fc7ff},
    {Colour::CommentInk, 0xff636363, 0xffa9b0a6},
    {Colour::EntityInk, 0xff7a2e96, 0xffd9a8f0},
    {Colour::CDataInk, 0xff00695c, 0xff6fd6c3},
    {Colour::InstructionInk, 0xff3f558c, 0xffa9bdf0},
    {Colour::InvalidMark, 0xff0b3fb8, 0xff7fb0ff},
    {Colour::BrokenMark, 0xffd1242f, 0xffff7b72},
    {Colour::MarkEdge, 0xffffffff, 0xff1e1e1e},
    {Colour::HitInk, 0xff1f1f1f, 0xff1f1f1f},
    {Colour::HitPaper, 0xffffe082, 0xffe6b94a},
    {Colour::FaultInk, 0xffc02020, 0xffff9a94},
    {Colour::Edge, 0xffababab, 0xff757b84},
    {Colour::SplashPaper, 0xfffafaf7, 0xff22252b},
    {Colour::SplashInk, 0xff263248, 0xffe8edf5},
    {Colour::SplashFaintInk, 0xff606c80, 0xffa8b3c4},
    {Colour::SplashEdge, 0xffc8ccd4, 0xff3c424d},
};

struct RolePair {
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

constexpr RolePair Roles[] = {
    {QPalette::WindowText, 0xff000000, 0xffe6e6e6},
    {QPalette::Window, 0xffefefef, 0xff2b2d30},
    {QPalette::Text, 0xff000000, 0xffe6e6e6},
    {QPalette::Base, 0xffffffff, 0xff1e1e1e},
    {QPalette::AlternateBase, 0xfff7f7f7, 0xff27292c},
    {QPalette::ButtonText, 0xff000000, 0xffe6e6e6},
    {QPalette::Button, 0xffefefef, 0xff35383c},
    // Edges; the style mixes its own from them.
    {QPalette::Light, 0xffffffff, 0xff4a4e54},
    {QPalette::Midlight, 0xffcacaca, 0xff3f4348},
    {QPalette::Mid, 0xffb8b8b8, 0xff55595f},
    {QPalette::Dark, 0xff9f9f9f, 0xff17181a},
    {QPalette::Shadow, 0xff767676, 0xff0c0d0e},
    {QPalette::Highlight, 0xff1f6fa8, 0xff2a5f9e},
    {QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    {QPalette::Link, 0xff0057ae, 0xff8fc7ff},
    {QPalette::LinkVisited, 0xff800080, 0xffcfaaf5},
    {QPalette::ToolTipBase, 0xffffffdc, 0xff3a3d42},
    {QPalette::ToolTipText, 0xff000000, 0xfff0f0f0},
    {QPalette::PlaceholderText, 0xff666666, 0xffa9adb3},
};

/// What cannot be used is fainter, and can be read all the same.
constexpr RolePair DisabledRoles[] = {
    {QPalette::WindowText, 0xff666666, 0xffa3a7ad}, {QPalette::Text, 0xff666666, 0xffa3a7ad},
    {QPalette::ButtonText, 0xff666666, 0xffa9adb3}, {QPalette::Base, 0xfff4f4f4, 0xff27292c},
    {QPalette::Highlight, 0xff6f6f6f, 0xff5a5f66},
};

} // namespace

QColor themeColour(Colour use, bool isDark) {
    const auto *const found = std::ranges::find(Colours, use, &ColourPair::use);
    return QColor(isDark ? found->dark : found->light);
}

QPalette themePalette(bool isDark) {
    QPalette palette;
    const auto set = [&](QPalette::ColorGroup group, const RolePair &pair) {
        palette.setColor(group, pair.role, QColor(isDark ? pair.dark : pair.light));
    };
    for (const RolePair &pair : Roles)
        set(QPalette::All, pair);
    palette.setColor(FaultRole, themeColour(Colour::FaultInk, isDark));
    for (const RolePair &pair : DisabledRoles)
        set(QPalette::Disabled, pair);
    return palette;
}

} // namespace quillon::controls
