#include "app/main_window/zoom.h"

#include <QCoreApplication>
#include <QWheelEvent>

#include <algorithm>
#include <array>

namespace quillon::app {

namespace {

constexpr std::array Steps{50, 67, 75, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300, 400, 500};
constexpr int Usual = 100;
/// A notch of the wheel, as Qt counts.
constexpr int Notch = 120;

} // namespace

Zoom::Zoom(qint16 &percent, const std::vector<QWidget *> &zoomed)
    : percent_(percent), zoomed_(zoomed.begin(), zoomed.end()) {
    // The browser makes the widget that gets its events anew from time to time.
    QCoreApplication::instance()->installEventFilter(this);
}

int Zoom::percent() const {
    return std::clamp<int>(percent_, Steps.front(), Steps.back());
}

void Zoom::mnuZoomReset_Click() {
    set(Usual);
}

void Zoom::step(int direction) {
    const int present = percent();
    const auto above = std::ranges::upper_bound(Steps, present);
    const auto from = std::ranges::lower_bound(Steps, present);
    if (direction > 0 && above != Steps.end())
        set(*above);
    else if (direction < 0 && from != Steps.begin())
        set(*std::prev(from));
    else
        set(present);
}

void Zoom::set(int percent) {
    percent_ = qint16(percent);
    Q_EMIT changed(percent);
}

bool Zoom::isZoomed(const QObject *object) const {
    const auto *const widget = qobject_cast<const QWidget *>(object);
    return widget && std::ranges::any_of(zoomed_, [&](const QPointer<QWidget> &zoomed) {
               return zoomed && (zoomed == widget || zoomed->isAncestorOf(widget));
           });
}

bool Zoom::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::Wheel)
        return false;
    const auto &wheel = *static_cast<QWheelEvent *>(event);
    if (wheel.modifiers() != Qt::ControlModifier || !isZoomed(watched))
        return false;
    turned_ += wheel.angleDelta().y();
    for (; turned_ >= Notch; turned_ -= Notch)
        step(+1);
    for (; turned_ <= -Notch; turned_ += Notch)
        step(-1);
    return true;
}

} // namespace quillon::app
