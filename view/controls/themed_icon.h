#pragma once

#include <QIcon>
#include <QStringView>

namespace quillon::controls {

/// In whose colours an icon is drawn.
enum class IconColours {
    /// Those of the theme in force, at any time.
    OfTheme,
    /// Those for white paper.
    OnPaper,
};

/// An icon of the program, ":/icons/<name>.svg", e.g. "toolbar/save". Its files have the colours of
/// the light theme. Disabled, it is grey and faint; selected, it stays as it is.
QIcon themedIcon(QStringView name, IconColours colours = IconColours::OfTheme);

} // namespace quillon::controls
