#include "app/main_window/tree_keys.h"

#include "app/main_window/command_table.h"

#include <QKeyEvent>
#include <QKeySequence>

namespace quillon::app {

namespace {

QKeySequence keyOf(const QKeyEvent &event) {
    const Qt::KeyboardModifiers modifiers =
        event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    return QKeySequence(QKeyCombination(modifiers, static_cast<Qt::Key>(event.key())));
}

} // namespace

TreeKeys::TreeKeys(controls::TreeView &tvw, const Editor &editor, controls::ActionSet &actions)
    : tvw_(tvw), editor_(editor), actions_(actions) {
    tvw_.installEventFilter(this);
}

bool TreeKeys::eventFilter(QObject *watched, QEvent *event) {
    // What the editor of a caption does not take comes here, too.
    if (watched == &tvw_ && event->type() == QEvent::KeyPress && !tvw_.isEditingLabel() &&
        tvw_KeyDown(*static_cast<QKeyEvent *>(event)))
        return true;
    return QObject::eventFilter(watched, event);
}

bool TreeKeys::tvw_KeyDown(const QKeyEvent &event) {
    if (event.key() == Qt::Key_Delete) {
        actions_.run(u"mnuEditDelete");
        return true;
    }
    const QKeySequence key = keyOf(event);
    // What a keyboard without a menu key has for it.
    if (key == QKeySequence(Qt::SHIFT | Qt::Key_F10)) {
        Q_EMIT tvw_.customContextMenuRequested(tvw_.visualRect(tvw_.currentIndex()).bottomLeft());
        return true;
    }
    for (const CommandRow &row : commandTable()) {
        if (row.entry.keyContext != controls::KeyContext::Tree ||
            key != QKeySequence(row.entry.key.toString(), QKeySequence::PortableText))
            continue;
        if (!row.treeKeyEnabled || row.treeKeyEnabled(editor_))
            actions_.run(row.entry.name);
        return true;
    }
    return false;
}

} // namespace quillon::app
