#include "view/controls/screen_fit.h"

#include <QBoxLayout>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace quillon::controls {

namespace {

/// Lines that a text is made to have room for at least, however small the screen.
constexpr int LeastLines = 4;

QSize roomFor(const QWidget &window) {
    return window.screen()->availableSize() - FrameSize;
}

/// Shows something that may be larger than itself; as large as that where there is room.
class Roll final : public QScrollArea {
public:
    Roll() {
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        // It takes no part in the walk with Tab; what is walked to is scrolled to.
        setFocusPolicy(Qt::NoFocus);
    }

    QSize sizeHint() const override {
        if (!widget())
            return QScrollArea::sizeHint();
        QSize size = widget()->sizeHint().expandedTo(widget()->minimumSizeHint());
        if (widget()->hasHeightForWidth())
            size.setHeight(std::max(size.height(), widget()->heightForWidth(size.width())));
        return size + QSize(verticalScrollBar()->sizeHint().width(), 0);
    }
};

/// The row of buttons at the end of a dialog, which stays in sight; null where there is none.
QDialogButtonBox *buttonsOf(const QLayout &layout) {
    const QLayoutItem *last = layout.itemAt(layout.count() - 1);
    const auto *column = qobject_cast<const QVBoxLayout *>(&layout);
    return column && last ? qobject_cast<QDialogButtonBox *>(last->widget()) : nullptr;
}

/// Puts what a dialog shows into a roll.
Roll *scrollContent(QDialog &dialog) {
    QLayout *const layout = dialog.layout();
    QWidget *const focus = dialog.focusWidget();
    QDialogButtonBox *const buttons = buttonsOf(*layout);
    if (buttons)
        layout->removeWidget(buttons);
    const QMargins margins = layout->contentsMargins();
    auto *content = new QWidget;
    // Takes the layout from the dialog, with everything in it.
    content->setLayout(layout);
    auto *roll = new Roll;
    roll->setWidget(content);
    auto *column = new QVBoxLayout(&dialog);
    column->setContentsMargins({});
    column->addWidget(roll, 1);
    if (buttons) {
        auto *row = new QHBoxLayout;
        row->setContentsMargins(margins.left(), 0, margins.right(), margins.bottom());
        row->addWidget(buttons);
        column->addLayout(row);
    }
    if (focus)
        focus->setFocus();
    return roll;
}

/// A message box sets its own size, by its text: that scrolls where it is too long.
void scrollText(QMessageBox &box, const QSize &room) {
    auto *label = box.findChild<QLabel *>(QStringLiteral("qt_msgbox_label"));
    auto *grid = qobject_cast<QGridLayout *>(box.layout());
    const auto *buttons = box.findChild<QDialogButtonBox *>();
    if (!label || !grid || !buttons ||
        qobject_cast<QGridLayout *>(label->parentWidget()->layout()) != grid)
        return;
    const int line = label->fontMetrics().lineSpacing();
    // What is beside the text, and below it.
    const int width = room.width() - box.iconPixmap().width() - 6 * line;
    const int most =
        std::max(LeastLines * line, room.height() - buttons->sizeHint().height() - 4 * line);
    // The label itself is not asked: told to wrap it has the box laid out again, and this done
    // again.
    QLabel likeIt(label->text());
    likeIt.setTextFormat(label->textFormat());
    likeIt.setFont(label->font());
    likeIt.setWordWrap(true);
    if (likeIt.heightForWidth(width) <= most)
        return;
    label->setWordWrap(true);
    auto *roll = new Roll;
    delete grid->replaceWidget(label, roll);
    roll->setWidget(label);
    label->setAlignment(Qt::AlignTop);
    // The keyboard reaches it, or nobody could read the end without a mouse.
    roll->setFocusPolicy(Qt::StrongFocus);
    roll->setMinimumSize(width, most);
}

} // namespace

QRect fittedInto(const QRect &part, const QRect &window) {
    const QSize size = window.size().boundedTo(part.size());
    const int left =
        std::clamp(window.left(), part.left(), part.left() + part.width() - size.width());
    const int top =
        std::clamp(window.top(), part.top(), part.top() + part.height() - size.height());
    return {QPoint(left, top), size};
}

namespace {

Roll *rollOf(const QDialog &dialog) {
    for (QObject *const child : dialog.children()) {
        if (auto *const roll = dynamic_cast<Roll *>(child))
            return roll;
    }
    return nullptr;
}

/// Gives a dialog a size that has room on its screen.
void fitSize(QDialog &dialog, const QSize &room) {
    auto *roll = rollOf(dialog);
    const QSize least = dialog.layout()->totalMinimumSize();
    if (!roll && (least.width() > room.width() || least.height() > room.height()))
        roll = scrollContent(dialog);
    QSize size = dialog.size();
    if (roll)
        size = size.expandedTo(dialog.layout()->totalSizeHint());
    const bool hasSize = roll || dialog.isVisible() || dialog.testAttribute(Qt::WA_Resized);
    if (hasSize && size.boundedTo(room) != dialog.size())
        dialog.resize(size.boundedTo(room));
}

/// Moves a window that lies partly outside its screen.
void fitPlace(QWidget &window) {
    const QRect place = window.frameGeometry();
    const QRect fitted = fittedInto(window.screen()->availableGeometry(), place);
    if (fitted.topLeft() != place.topLeft())
        window.move(fitted.topLeft());
}

} // namespace

void fitToScreen(QWidget &window, Occasion occasion) {
    auto *dialog = qobject_cast<QDialog *>(&window);
    if (!dialog || window.isMaximized() || window.isFullScreen())
        return;
    const QSize before = window.size();
    if (auto *box = qobject_cast<QMessageBox *>(dialog))
        scrollText(*box, roomFor(window));
    else if (dialog->layout())
        fitSize(*dialog, roomFor(window));
    // Where the user has put it, it stays.
    if (window.isVisible() && (occasion == Occasion::Shown || window.size() != before))
        fitPlace(window);
}

} // namespace quillon::controls
