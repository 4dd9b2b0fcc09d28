#include "view/controls/themed_icon.h"

#include "view/controls/theme.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace quillon::controls {

namespace {

constexpr double DisabledOpacity = 0.45;

struct IconColour {
    const char *light;
    const char *dark;
};

/// Every colour of the files that a dark background asks for another one.
constexpr IconColour DarkColours[] = {
    {"#fdfdfd", "#3b4047"}, // sheets
    {"#74808e", "#aeb8c4"}, // their outlines, and whatever has no colour
    {"#5a6470", "#c0c8d1"}, // signs
    {"#9aa5b1", "#8b96a3"}, // lines of text
    {"#3b7dd8", "#6aa5f2"}, // blue
    {"#dfe9f7", "#24364d"}, {"#17365f", "#dbe9fb"}, {"#d2453f", "#f0716b"}, // red
    {"#3a9a5c", "#5cbf80"},                                                 // green
    {"#c2750f", "#eba53f"},                                                 // orange
    {"#f4bd5c", "#f7cd80"},                                                 // yellow
    {"#8a63c9", "#b394ec"},                                                 // violet
    {"#ffffff", "#1e1e1e"}, // edges around and signs in coloured shapes
};

QByteArray drawing(const QString &name, bool isDark) {
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    QByteArray svg = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (isDark) {
        for (const IconColour &colour : DarkColours)
            svg.replace(colour.light, colour.dark);
    }
    return svg;
}

QImage faint(QImage image) {
    for (int y = 0; y < image.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int grey = int(qGray(line[x]) * DisabledOpacity);
            line[x] = qRgba(grey, grey, grey, int(qAlpha(line[x]) * DisabledOpacity));
        }
    }
    return image;
}

class ThemedIconEngine final : public QIconEngine {
public:
    ThemedIconEngine(QString name, IconColours colours)
        : name_(std::move(name)), colours_(colours) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode,
               QIcon::State state) override {
        const double ratio = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override {
        const bool isDark = colours_ == IconColours::OfTheme && theme().isDark();
        const bool isDisabled = mode == QIcon::Disabled;
        const QString key = QStringLiteral("themed %1 %2x%3 %4%5")
                                .arg(name_)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(int(isDark))
                                .arg(int(isDisabled));
        QPixmap found;
        if (QPixmapCache::find(key, &found))
            return found;
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QSvgRenderer renderer(drawing(name_, isDark));
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        QPainter painter(&image);
        renderer.render(&painter);
        painter.end();
        found = QPixmap::fromImage(isDisabled ? faint(std::move(image)) : std::move(image));
        QPixmapCache::insert(key, found);
        return found;
    }

    QIconEngine *clone() const override { return new ThemedIconEngine(*this); }

private:
    const QString name_;
    const IconColours colours_;
};

} // namespace

QIcon themedIcon(QStringView name, IconColours colours) {
    return QIcon(new ThemedIconEngine(name.toString(), colours));
}

} // namespace quillon::controls
