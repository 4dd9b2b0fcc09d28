#include "view/controls/path_box.h"

#include "resources/query_texts.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>
#include <QWindow>

namespace quillon::controls {

PathBox::PathBox(QWidget *parent) : QComboBox(parent) {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    setDuplicatesEnabled(true);
    setFocusPolicy(Qt::StrongFocus);
    // As wide as the toolbar has room, whatever is in the list.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(6);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    view()->setTextElideMode(Qt::ElideMiddle);
    // By this the box would take text typed like an entry for a choice from the list.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    connect(lineEdit(), &QLineEdit::returnPressed, this, &PathBox::Enter);
    connect(this, &QComboBox::activated, this, &PathBox::Click);
    // The line editor and the box would take a choice in it for more than typing; so they do not
    // know of it.
    completer_.setModel(&proposals_);
    completer_.setCompletionMode(QCompleter::PopupCompletion);
    completer_.setWidget(this);
    proposalList()->setAccessibleName(resources::query_texts::ProposalsName.toString());
    proposalList()->setAttribute(Qt::WA_NoMouseReplay);
    proposalList()->installEventFilter(this);
    connect(lineEdit(), &QLineEdit::textEdited, this, &PathBox::showProposals);
    connect(&completer_, qOverload<const QString &>(&QCompleter::activated), this,
            &QComboBox::setEditText);
}

void PathBox::showProposals(const QString &typed) {
    const bool isAtEnd = lineEdit()->cursorPosition() == typed.size();
    proposals_.setStringList(propose && isAtEnd ? propose(typed) : QStringList());
    if (proposals_.rowCount() == 0)
        proposalList()->hide();
    else
        completer_.complete();
}

void PathBox::setText(const QString &text) {
    textSet_ = text;
    setEditText(text);
}

QStringList PathBox::List() const {
    QStringList entries;
    for (int i = 0; i < count(); ++i)
        entries.append(itemText(i));
    return entries;
}

void PathBox::AddItem(const QString &text) {
    const QString before = Text();
    addItem(text);
    if (Text() == before)
        return;
    // A combo box makes its first entry the text.
    setCurrentIndex(-1);
    setEditText(before);
}

bool PathBox::eventFilter(QObject *watched, QEvent *event) {
    if (watched == proposalList() && event->type() == QEvent::MouseButtonPress) {
        const auto &press = static_cast<const QMouseEvent &>(*event);
        if (!proposalList()->rect().contains(press.position().toPoint())) {
            passOn(press);
            return true;
        }
    }
    return QComboBox::eventFilter(watched, event);
}

void PathBox::passOn(const QMouseEvent &press) {
    // Nobody has asked for the list, so pressing a button beside it does more than put it away. It
    // goes to the window, as from the desktop: the release finds its way by that.
    proposalList()->hide();
    const QWidget *hit = QApplication::widgetAt(press.globalPosition().toPoint());
    QWindow *window = hit ? hit->window()->windowHandle() : nullptr;
    if (!window)
        return;
    QMouseEvent again(press.type(), window->mapFromGlobal(press.globalPosition()),
                      press.globalPosition(), press.button(), press.buttons(), press.modifiers());
    QApplication::sendEvent(window, &again);
}

void PathBox::wheelEvent(QWheelEvent *event) {
    event->ignore();
}

bool PathBox::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (key.key() == Qt::Key_F4 && key.modifiers() == Qt::NoModifier) {
            event->accept();
            return true;
        }
    }
    return QComboBox::event(event);
}

void PathBox::keyPressEvent(QKeyEvent *event) {
    if (proposalList()->isVisible()) {
        const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (event->key() == Qt::Key_Escape ||
            (isReturn && proposalList()->currentIndex().isValid())) {
            // The list has both for itself.
            event->ignore();
            return;
        }
        if (isReturn)
            proposalList()->hide();
    }
    if (event->key() != Qt::Key_Escape) {
        QComboBox::keyPressEvent(event);
        return;
    }
    setEditText(textSet_);
    lineEdit()->selectAll();
}

} // namespace quillon::controls
