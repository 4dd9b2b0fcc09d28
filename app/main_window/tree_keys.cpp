#include "app/main_window/tree_keys.h"

#include "platform/ui/error_boundary.h"
#include "resources/actions.h"

#include <QKeyEvent>
#include <QKeySequence>

namespace quillon::app {

namespace {

constexpr QStringView CutCommand = u"mnuEditCut";
constexpr QStringView DeleteCommand = u"mnuEditDelete";

QKeySequence keyOf(const QKeyEvent &event) {
    const Qt::KeyboardModifiers modifiers =
        event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    return QKeySequence(QKeyCombination(modifiers, static_cast<Qt::Key>(event.key())));
}

} // namespace

TreeKeys::TreeKeys(controls::TreeView &tvw, Editor &editor, controls::ActionSet &actions)
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
        actions_.run(DeleteCommand);
        return true;
    }
    const QKeySequence key = keyOf(event);
    // What a keyboard without a menu key has for it.
    if (key == QKeySequence(Qt::SHIFT | Qt::Key_F10)) {
        Q_EMIT tvw_.customContextMenuRequested(tvw_.visualRect(tvw_.currentIndex()).bottomLeft());
        return true;
    }
    if (key == QKeySequence(Qt::SHIFT | Qt::Key_F3)) {
        search::CaptionSearch &search = editor_.captionSearch;
        ui::guarded([&] {
            if (!search.pattern().isEmpty())
                search.SearchBackward(tvw_.SelectedItem(), search.pattern());
        });
        return true;
    }
    for (const resources::ActionEntry &entry : resources::actionTable()) {
        if (entry.keyContext != resources::KeyContext::Tree || entry.key.isEmpty() ||
            key != QKeySequence(entry.key.toString(), QKeySequence::PortableText))
            continue;
        // Cutting makes no test of its own, and a read-only document is not to be changed.
        if (entry.name != CutCommand || !editor_.state.m_ReadOnly)
            actions_.run(entry.name);
        return true;
    }
    return false;
}

} // namespace quillon::app
