#include "resources/completion_texts.h"
#include "resources/texts.h"
#include "view/controls/desktop_dialogs.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimeEdit>
#include <QVBoxLayout>

namespace quillon::controls {

namespace texts = resources::completion_texts;

namespace {

std::optional<QString> chooseColour(const QString &present) {
    QColorDialog dialog(QColor(present), QApplication::activeWindow());
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setWindowTitle(texts::ColourTitle.toString());
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedColor().name();
}

/// A dialog with a calendar, the hands of a clock, or both.
class MomentDialog : public QDialog {
public:
    MomentDialog(bool hasDate, bool hasTime, const QString &present)
        : QDialog(QApplication::activeWindow()), calendar_(new QCalendarWidget(this)),
          time_(new QTimeEdit(this)) {
        setObjectName(QStringLiteral("momentDialog"));
        setWindowTitle((hasDate ? texts::CalendarTitle : texts::ClockTitle).toString());
        calendar_->setAccessibleName(texts::CalendarTitle.toString());
        calendar_->setGridVisible(true);
        calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
        calendar_->setVisible(hasDate);
        calendar_->setMinimumWidth(fontMetrics().height() * 22);
        time_->setDisplayFormat(QStringLiteral("HH:mm:ss"));
        time_->setAccessibleName(texts::TimeName.toString());
        takePresent(present);

        auto *label = new QLabel(texts::TimeLabel.toString(), this);
        label->setBuddy(time_);
        label->setVisible(hasTime);
        time_->setVisible(hasTime);
        auto *row = new QHBoxLayout;
        row->addWidget(label);
        row->addWidget(time_);
        row->addStretch();
        auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
        buttons->button(QDialogButtonBox::Ok)->setText(resources::texts::ButtonOk.toString());
        buttons->button(QDialogButtonBox::Cancel)
            ->setText(resources::texts::ButtonCancel.toString());
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        connect(calendar_, &QCalendarWidget::activated, this, &QDialog::accept);
        auto *column = new QVBoxLayout(this);
        column->addWidget(calendar_);
        column->addLayout(row);
        column->addWidget(buttons);
        (hasDate ? static_cast<QWidget *>(calendar_) : time_)->setFocus();
    }

    QString date() const { return calendar_->selectedDate().toString(Qt::ISODate); }
    QString time() const { return time_->time().toString(QStringLiteral("HH:mm:ss")); }

private:
    void takePresent(const QString &present) {
        const QDate date = QDate::fromString(present.left(10), Qt::ISODate);
        calendar_->setSelectedDate(date.isValid() ? date : QDate::currentDate());
        const QTime time = QTime::fromString(present.section(u'T', -1).left(8), Qt::ISODate);
        time_->setTime(time.isValid() ? time : QTime(0, 0));
    }

    QCalendarWidget *calendar_;
    QTimeEdit *time_;
};

} // namespace

std::optional<QString> DesktopDialogs::chooseValue(ui::ValueEditor editor, const QString &present) {
    if (editor == ui::ValueEditor::Colour)
        return chooseColour(present);
    const bool hasDate = editor != ui::ValueEditor::Time;
    const bool hasTime = editor != ui::ValueEditor::Date;
    MomentDialog dialog(hasDate, hasTime, present);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    if (!hasTime)
        return dialog.date();
    return hasDate ? dialog.date() + u'T' + dialog.time() : dialog.time();
}

} // namespace quillon::controls
