#include "view/controls/text_pane.h"

#include "resources/find_texts.h"
#include "view/controls/themed_icon.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace quillon::controls {

namespace texts = resources::find_texts;
using Direction = TextBox::Direction;
using Found = TextBox::Found;

namespace {

constexpr int Margin = 4;
constexpr int FieldWidth = 200;
constexpr QSize IconSize(16, 16);

bool isKey(const QKeyEvent &event, QKeyCombination key) {
    const auto modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
    return QKeyCombination(modifiers, Qt::Key(event.key())) == key;
}

bool isOpenKey(const QKeyEvent &event) {
    return isKey(event, Qt::CTRL | Qt::Key_F);
}

bool isNextKey(const QKeyEvent &event) {
    return isKey(event, Qt::Key_F3);
}

bool isPreviousKey(const QKeyEvent &event) {
    return isKey(event, Qt::SHIFT | Qt::Key_F3);
}

} // namespace

TextPane::TextPane(TextBox &textBox, QWidget *parent)
    : QWidget(parent), textBox_(textBox), bar_(new QWidget(this)), field_(new QLineEdit(bar_)),
      next_(addButton(u"panel/down", texts::Next, texts::NextTip)),
      previous_(addButton(u"panel/up", texts::Previous, texts::PreviousTip)),
      matchCase_(new QCheckBox(texts::MatchCase.toString(), bar_)), message_(new QLabel(bar_)),
      close_(addButton(u"panel/close", texts::Close, texts::CloseTip)) {
    setFocusProxy(&textBox_);
    layOutBar();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(&textBox_);
    column->addWidget(bar_);
    bar_->hide();
    connect(field_, &QLineEdit::textEdited, this, &TextPane::findTyped);
    connect(matchCase_, &QCheckBox::toggled, this, &TextPane::findTyped);
    connect(next_, &QToolButton::clicked, this, &TextPane::findNext);
    connect(previous_, &QToolButton::clicked, this, &TextPane::findPrevious);
    connect(close_, &QToolButton::clicked, this, &TextPane::closeBar);
}

QToolButton *TextPane::addButton(QStringView icon, QStringView name, QStringView toolTip) {
    auto *button = new QToolButton(bar_);
    button->setIcon(themedIcon(icon));
    button->setIconSize(IconSize);
    button->setAutoRaise(true);
    button->setAccessibleName(name.toString());
    button->setToolTip(toolTip.toString());
    return button;
}

void TextPane::layOutBar() {
    bar_->setAccessibleName(texts::BarName.toString());
    field_->setObjectName(QStringLiteral("findField"));
    field_->setAccessibleName(texts::FieldName.toString());
    field_->setMaximumWidth(FieldWidth);
    message_->setObjectName(QStringLiteral("findMessage"));
    // A narrow pane is not to be widened by it.
    message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *label = new QLabel(texts::FieldLabel.toString(), bar_);
    label->setBuddy(field_);
    auto *row = new QHBoxLayout(bar_);
    row->setContentsMargins(Margin, Margin, Margin, Margin);
    for (QWidget *widget : {static_cast<QWidget *>(label), static_cast<QWidget *>(field_),
                            static_cast<QWidget *>(next_), static_cast<QWidget *>(previous_),
                            static_cast<QWidget *>(matchCase_)})
        row->addWidget(widget);
    row->addWidget(message_, 1);
    row->addWidget(close_);
}

bool TextPane::event(QEvent *event) {
    // What the part with the keyboard does not take comes here.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (isOpenKey(key) || isNextKey(key) || isPreviousKey(key)) {
            event->accept();
            return true;
        }
    }
    return QWidget::event(event);
}

void TextPane::keyPressEvent(QKeyEvent *event) {
    const bool isInBar = bar_->isAncestorOf(focusWidget()) && !textBox_.hasFocus();
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isOpenKey(*event))
        openBar();
    else if (isNextKey(*event))
        findNext();
    else if (isPreviousKey(*event))
        findPrevious();
    else if (isInBar && event->key() == Qt::Key_Escape)
        closeBar();
    else if (isInBar && isEnter)
        event->modifiers().testFlag(Qt::ShiftModifier) ? findPrevious() : findNext();
    else
        QWidget::keyPressEvent(event);
}

void TextPane::openBar() {
    const QString selected = textBox_.selectedText();
    if (!selected.isEmpty() && !selected.contains(u'\n') && textBox_.hasFocus())
        field_->setText(selected);
    message_->clear();
    bar_->show();
    field_->setFocus();
    field_->selectAll();
}

void TextPane::closeBar() {
    bar_->hide();
    textBox_.setFocus();
}

void TextPane::findNext() {
    if (field_->text().isEmpty())
        return openBar();
    tell(textBox_.find(field_->text(), Direction::Forward, matchCase_->isChecked()),
         Direction::Forward);
}

void TextPane::findPrevious() {
    if (field_->text().isEmpty())
        return openBar();
    tell(textBox_.find(field_->text(), Direction::Backward, matchCase_->isChecked()),
         Direction::Backward);
}

void TextPane::findTyped() {
    textBox_.unselect();
    if (field_->text().isEmpty())
        return message_->clear();
    findNext();
}

void TextPane::tell(Found found, Direction direction) {
    QStringView text;
    if (found == Found::Nowhere)
        text = texts::NotFound;
    else if (found == Found::FromOtherEnd)
        text = direction == Direction::Forward ? texts::FromStart : texts::FromEnd;
    message_->setText(text.toString());
    message_->setToolTip(text.toString());
    // Where the bar is closed the keys work on, and what comes of it must be seen all the same.
    if (found == Found::Nowhere && bar_->isHidden())
        bar_->show();
}

} // namespace quillon::controls
