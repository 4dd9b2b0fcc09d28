#pragma once

#include <QColor>
#include <QHash>
#include <QImage>

#include <algorithm>
#include <cmath>

namespace quillon::test {

/// What text must have against what it stands on.
inline constexpr double LeastContrast = 4.5;

/// The relative luminance of a colour, as the guidelines for accessible content define it.
inline double luminance(const QColor &colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

inline double contrast(const QColor &one, const QColor &other) {
    const auto [darker, lighter] = std::minmax(luminance(one), luminance(other));
    return (lighter + 0.05) / (darker + 0.05);
}

/// The contrast of what is written in a picture of one ink on one paper: between the colour that
/// most of it has and the one farthest from that. Edges of letters are a mixture of both, so a font
/// should be large enough for strokes of several pixels.
inline double contrastIn(const QImage &picture) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    QRgb paper = 0;
    for (auto at = counts.cbegin(); at != counts.cend(); ++at) {
        if (at.value() > counts.value(paper))
            paper = at.key();
    }
    double most = 1;
    for (auto at = counts.cbegin(); at != counts.cend(); ++at) {
        // A single odd pixel is no letter.
        if (at.value() > 2)
            most = std::max(most, contrast(QColor(at.key()), QColor(paper)));
    }
    return most;
}

} // namespace quillon::test
