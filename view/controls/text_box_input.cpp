#include "resources/completion_texts.h"
#include "view/controls/text_box.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>
#include <optional>

namespace quillon::controls {

namespace {

using Box = QsciScintillaBase;

struct KeyBinding {
    QKeyCombination key;
    unsigned command;
};

constexpr auto ShiftCtrl = Qt::ShiftModifier | Qt::ControlModifier;

/// All keys that do something in the box, apart from typing characters.
constexpr std::array keyBindings{
    KeyBinding{Qt::Key_Left, Box::SCI_CHARLEFT},
    KeyBinding{Qt::SHIFT | Qt::Key_Left, Box::SCI_CHARLEFTEXTEND},
    KeyBinding{Qt::CTRL | Qt::Key_Left, Box::SCI_WORDLEFT},
    KeyBinding{ShiftCtrl | Qt::Key_Left, Box::SCI_WORDLEFTEXTEND},
    KeyBinding{Qt::Key_Right, Box::SCI_CHARRIGHT},
    KeyBinding{Qt::SHIFT | Qt::Key_Right, Box::SCI_CHARRIGHTEXTEND},
    KeyBinding{Qt::CTRL | Qt::Key_Right, Box::SCI_WORDRIGHT},
    KeyBinding{ShiftCtrl | Qt::Key_Right, Box::SCI_WORDRIGHTEXTEND},
    KeyBinding{Qt::Key_Up, Box::SCI_LINEUP},
    KeyBinding{Qt::SHIFT | Qt::Key_Up, Box::SCI_LINEUPEXTEND},
    KeyBinding{Qt::CTRL | Qt::Key_Up, Box::SCI_LINESCROLLUP},
    KeyBinding{Qt::Key_Down, Box::SCI_LINEDOWN},
    KeyBinding{Qt::SHIFT | Qt::Key_Down, Box::SCI_LINEDOWNEXTEND},
    KeyBinding{Qt::CTRL | Qt::Key_Down, Box::SCI_LINESCROLLDOWN},
    KeyBinding{Qt::Key_PageUp, Box::SCI_PAGEUP},
    KeyBinding{Qt::SHIFT | Qt::Key_PageUp, Box::SCI_PAGEUPEXTEND},
    KeyBinding{Qt::Key_PageDown, Box::SCI_PAGEDOWN},
    KeyBinding{Qt::SHIFT | Qt::Key_PageDown, Box::SCI_PAGEDOWNEXTEND},
    KeyBinding{Qt::Key_Home, Box::SCI_HOME},
    KeyBinding{Qt::SHIFT | Qt::Key_Home, Box::SCI_HOMEEXTEND},
    KeyBinding{Qt::CTRL | Qt::Key_Home, Box::SCI_DOCUMENTSTART},
    KeyBinding{ShiftCtrl | Qt::Key_Home, Box::SCI_DOCUMENTSTARTEXTEND},
    KeyBinding{Qt::Key_End, Box::SCI_LINEEND},
    KeyBinding{Qt::SHIFT | Qt::Key_End, Box::SCI_LINEENDEXTEND},
    KeyBinding{Qt::CTRL | Qt::Key_End, Box::SCI_DOCUMENTEND},
    KeyBinding{ShiftCtrl | Qt::Key_End, Box::SCI_DOCUMENTENDEXTEND},
    KeyBinding{Qt::CTRL | Qt::Key_A, Box::SCI_SELECTALL},
    KeyBinding{Qt::CTRL | Qt::Key_C, Box::SCI_COPY},
    KeyBinding{Qt::CTRL | Qt::Key_Insert, Box::SCI_COPY},
    KeyBinding{Qt::CTRL | Qt::Key_X, Box::SCI_CUT},
    KeyBinding{Qt::SHIFT | Qt::Key_Delete, Box::SCI_CUT},
    KeyBinding{Qt::CTRL | Qt::Key_V, Box::SCI_PASTE},
    KeyBinding{Qt::SHIFT | Qt::Key_Insert, Box::SCI_PASTE},
    KeyBinding{Qt::Key_Delete, Box::SCI_CLEAR},
    KeyBinding{Qt::CTRL | Qt::Key_Delete, Box::SCI_DELWORDRIGHT},
    KeyBinding{Qt::Key_Backspace, Box::SCI_DELETEBACK},
    KeyBinding{Qt::SHIFT | Qt::Key_Backspace, Box::SCI_DELETEBACK},
    KeyBinding{Qt::CTRL | Qt::Key_Backspace, Box::SCI_DELWORDLEFT},
    KeyBinding{Qt::Key_Return, Box::SCI_NEWLINE},
    KeyBinding{Qt::SHIFT | Qt::Key_Return, Box::SCI_NEWLINE},
    KeyBinding{Qt::Key_Enter, Box::SCI_NEWLINE},
    KeyBinding{Qt::CTRL | Qt::Key_Tab, Box::SCI_TAB},
    KeyBinding{ShiftCtrl | Qt::Key_Backtab, Box::SCI_BACKTAB},
};

QKeyCombination keyOf(const QKeyEvent &event) {
    const auto modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
    return QKeyCombination(modifiers, static_cast<Qt::Key>(event.key()));
}

std::optional<unsigned> commandOf(const QKeyEvent &event) {
    const auto found = std::ranges::find(keyBindings, keyOf(event), &KeyBinding::key);
    if (found == keyBindings.end())
        return std::nullopt;
    return found->command;
}

} // namespace

bool TextBox::isTakingBack(const QKeyEvent &event) const {
    return keyOf(event) == QKeyCombination(Qt::CTRL | Qt::Key_Z) && canTakeBackClosing();
}

bool TextBox::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride &&
        (commandOf(*static_cast<QKeyEvent *>(event)) ||
         isKeyForProposals(*static_cast<QKeyEvent *>(event)) ||
         isTakingBack(*static_cast<QKeyEvent *>(event)))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (takeKeyForProposals(key))
            return true;
        // Ahead of the base, which would give the keyboard to another widget.
        if (isIndentKey(key)) {
            indentSelection(key.key() == Qt::Key_Tab);
            return true;
        }
    }
    const bool isInput = event->type() == QEvent::KeyPress || event->type() == QEvent::InputMethod;
    // What is done with the text that a key has changed may well send other events here.
    if (isInput)
        hasTyped_ = false;
    bool handled = false;
    asOneChange([&] { handled = QsciScintillaBase::event(event); });
    if (isInput)
        followCaret();
    return handled;
}

bool TextBox::viewportEvent(QEvent *event) {
    if (event->type() == QEvent::ToolTip) {
        showDescription(*static_cast<QHelpEvent *>(event));
        return true;
    }
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Wheel)
        closeProposals();
    bool handled = false;
    asOneChange([&] { handled = QsciScintillaBase::viewportEvent(event); });
    return handled;
}

bool TextBox::focusNextPrevChild(bool next) {
    // That of the base class keeps the focus here so that Tab can be typed.
    return QAbstractScrollArea::focusNextPrevChild(next);
}

void TextBox::keyPressEvent(QKeyEvent *event) {
    if (const auto command = commandOf(*event)) {
        send(*command);
    } else if (isTakingBack(*event)) {
        takeBackClosing();
    } else if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
        event->ignore();
    } else {
        QsciScintillaBase::keyPressEvent(event);
        hasTyped_ = !event->text().isEmpty() && !locked_;
        if (event->text() == u"/")
            closeElement();
    }
}

void TextBox::inputMethodEvent(QInputMethodEvent *event) {
    if (locked_) {
        event->ignore();
        return;
    }
    if (event->commitString().isEmpty()) {
        compose(*event);
        return;
    }
    // The base class would leave out unfinished text that comes along with finished text. Announced
    // between the two, the change is seen without the unfinished.
    QInputMethodEvent finished;
    finished.setCommitString(event->commitString(), event->replacementStart(),
                             event->replacementLength());
    compose(finished);
    announceChange();
    if (!event->preeditString().isEmpty()) {
        QInputMethodEvent unfinished(event->preeditString(), event->attributes());
        compose(unfinished);
    }
}

void TextBox::compose(QInputMethodEvent &event) {
    const QScopedValueRollback writing(writingUnfinished_, event.commitString().isEmpty());
    if (!composing_)
        composedOverSelection_ = !send(SCI_GETSELECTIONEMPTY);
    // Unfinished text is written into the document and taken back by undoing.
    send(SCI_SETUNDOCOLLECTION, true);
    QsciScintillaBase::inputMethodEvent(&event);
    composing_ = !event.preeditString().isEmpty();
    if (!composing_) {
        // Given up, it leaves behind the removal of the selection that it stood for.
        if (writingUnfinished_ && composedOverSelection_ && send(SCI_CANUNDO))
            send(SCI_UNDO);
        if (!keepsUndo_)
            forgetUndo();
    }
}

void TextBox::stopComposing() {
    if (!composing_)
        return;
    QGuiApplication::inputMethod()->reset();
    QInputMethodEvent nothing;
    compose(nothing);
}

void TextBox::contextMenuEvent(QContextMenuEvent *event) {
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const char *caption, bool enabled, void (TextBox::*run)()) {
        // Worded by Qt, as in every other box of the program.
        const QString text = QCoreApplication::translate("QWidgetTextControl", caption);
        menu->addAction(text, this, run)->setEnabled(enabled);
    };
    const bool selected = !send(SCI_GETSELECTIONEMPTY);
    if (proposer_ && !locked_) {
        menu->addAction(resources::completion_texts::ShowList.toString(), this,
                        &TextBox::showProposals);
        menu->addSeparator();
    }
    add("Cu&t", selected && !locked_, &TextBox::cut);
    add("&Copy", selected, &TextBox::copy);
    add("&Paste", send(SCI_CANPASTE), &TextBox::paste);
    add("Delete", selected && !locked_, &TextBox::deleteSelection);
    menu->addSeparator();
    add("Select All", send(SCI_GETLENGTH) > 0, &TextBox::selectAll);
    menu->popup(event->globalPos());
}

bool TextBox::isRefused(const QMimeData &offered) const {
    return std::any_of(refusedFormats_.begin(), refusedFormats_.end(),
                       [&](const QString &format) { return offered.hasFormat(format); });
}

void TextBox::dragEnterEvent(QDragEnterEvent *event) {
    if (isRefused(*event->mimeData()))
        event->ignore();
    else
        QsciScintillaBase::dragEnterEvent(event);
}

void TextBox::dragMoveEvent(QDragMoveEvent *event) {
    if (isRefused(*event->mimeData()))
        event->ignore();
    else
        QsciScintillaBase::dragMoveEvent(event);
}

void TextBox::dropEvent(QDropEvent *event) {
    if (isRefused(*event->mimeData()))
        event->ignore();
    else
        QsciScintillaBase::dropEvent(event);
}

} // namespace quillon::controls
