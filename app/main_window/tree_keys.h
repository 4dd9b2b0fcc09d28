#pragma once

#include "app/editor.h"
#include "view/controls/action_set.h"
#include "view/controls/tree_view.h"

#include <QObject>

class QKeyEvent;

namespace quillon::app {

/// The keys and the mouse buttons of the tree that run commands. Keys reach the commands' handlers
/// themselves, whatever their menu entries show at the time.
class TreeKeys : public QObject {
    Q_OBJECT

public:
    TreeKeys(controls::TreeView &tvw, const Editor &editor, controls::ActionSet &actions);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Each combination of Shift, Ctrl and Alt must match exactly, but for Delete, which is taken
    /// with any. True when the key was one.
    bool tvw_KeyDown(const QKeyEvent &event);

    controls::TreeView &tvw_;
    const Editor &editor_;
    controls::ActionSet &actions_;
};

} // namespace quillon::app
