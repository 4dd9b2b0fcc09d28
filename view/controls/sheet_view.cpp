#include "view/controls/sheet_view.h"

#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QWheelEvent>

namespace quillon::controls {

namespace {

/// Of the desk around a sheet, on each side.
constexpr int Around = 8;

} // namespace

SheetView::SheetView(QWidget *parent) : QScrollArea(parent), sheet_(new QLabel) {
    setBackgroundRole(QPalette::Dark);
    setAlignment(Qt::AlignCenter);
    setFocusPolicy(Qt::StrongFocus);
    sheet_->setAutoFillBackground(true);
    sheet_->setScaledContents(true);
    sheet_->setAlignment(Qt::AlignCenter);
    sheet_->setWordWrap(true);
    sheet_->setTextFormat(Qt::PlainText);
    // Paper is white in every theme.
    QPalette paper = sheet_->palette();
    paper.setColor(QPalette::Window, Qt::white);
    paper.setColor(QPalette::WindowText, Qt::black);
    sheet_->setPalette(paper);
    setWidget(sheet_);
}

QSize SheetView::room() const {
    // Without the bars, which go when the whole sheet is to be seen.
    return maximumViewportSize() - QSize(2 * Around, 2 * Around);
}

void SheetView::showBlank(const QSize &size) {
    sheet_->clear();
    sheet_->resize(size);
    verticalScrollBar()->setValue(0);
}

void SheetView::showPicture(const QImage &sheet) {
    sheet_->setPixmap(QPixmap::fromImage(sheet));
}

void SheetView::showText(const QString &text) {
    sheet_->setText(text);
    sheet_->resize(room());
}

void SheetView::keyPressEvent(QKeyEvent *event) {
    const QScrollBar &bar = *verticalScrollBar();
    switch (event->key()) {
    case Qt::Key_PageDown:
    case Qt::Key_Space:
        if (bar.value() == bar.maximum())
            return turn(1);
        break;
    case Qt::Key_PageUp:
    case Qt::Key_Backspace:
        if (bar.value() == bar.minimum())
            return turn(-1);
        break;
    case Qt::Key_Home:
        return turnToEnd(false);
    case Qt::Key_End:
        return turnToEnd(true);
    default:
        return QScrollArea::keyPressEvent(event);
    }
    const bool isDown = event->key() == Qt::Key_PageDown || event->key() == Qt::Key_Space;
    verticalScrollBar()->triggerAction(isDown ? QScrollBar::SliderPageStepAdd
                                              : QScrollBar::SliderPageStepSub);
}

void SheetView::wheelEvent(QWheelEvent *event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier))
        return QScrollArea::wheelEvent(event);
    if (event->angleDelta().y() != 0)
        zoom(event->angleDelta().y() > 0 ? 1 : -1);
    event->accept();
}

} // namespace quillon::controls
