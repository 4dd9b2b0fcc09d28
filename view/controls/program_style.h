#pragma once

#include <QProxyStyle>

namespace quillon::controls {

/// How all widgets are drawn, whatever the desktop: in Qt's own style, with the program's icons.
class ProgramStyle : public QProxyStyle {
public:
    ProgramStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget) const override;
    QIcon standardIcon(StandardPixmap which, const QStyleOption *option,
                       const QWidget *widget) const override;
    QPixmap standardPixmap(StandardPixmap which, const QStyleOption *option,
                           const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *result) const override;
};

} // namespace quillon::controls
