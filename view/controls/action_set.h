#pragma once

#include "resources/actions.h"

#include <QObject>
#include <QStringView>

#include <functional>
#include <map>
#include <span>

class QAction;
class QToolBar;

namespace quillon::controls {

/// The commands of one window: a QAction for every entry of the table of actions, and one of its
/// own for every toolbar button.
///
/// While a menu is open, its entries show the states their `enabled` functions gave when it opened.
/// While it is closed they are all enabled, since a disabled QAction would swallow its key long
/// after its state has changed. So it is the `enabled` function that decides, asked again each time
/// an action is triggered. Toolbar buttons have states of their own, which the program sets
/// whenever they change.
class ActionSet : public QObject {
    Q_OBJECT

public:
    using Run = std::function<void()>;
    using Enabled = std::function<bool()>;

    explicit ActionSet(QObject *parent = nullptr);

    /// The action of an entry: a command, separator, (sub)menu or element 0 of a control array.
    /// Its objectName is the entry's name. Raises std::out_of_range for a name that the table does
    /// not hold.
    QAction *action(QStringView name) const;

    /// Has a command, and the toolbar button that goes with it, run a function. The action of a
    /// checkable command has already changed its check by then. Errors are shown to the user.
    /// Without an `enabled` function the command can always be run; without a `run` function it is
    /// disabled. Raises std::out_of_range as action() does.
    void connectAction(QStringView name, Run run, Enabled enabled = {});

    /// Runs a command as a key of the tree does: without asking its `enabled` function. Errors are
    /// shown to the user. Raises std::out_of_range as action() does.
    void run(QStringView name);

    /// Called ahead of every command that an action or a button runs.
    Run beforeCommand;

    /// Asked with the name of a command ahead of every one that applies, whatever runs it; false
    /// stops it.
    std::function<bool(QStringView)> mayRun;

    /// Gives the entries of a menu that is opening their states.
    void showStates(QStringView menu);
    /// Enables all commands of a menu, so that their keys reach them.
    void acceptKeys(QStringView menu);

    /// Puts the buttons of the main toolbar on a bar, up to the place of the path box.
    void fillToolBar(QToolBar &bar);
    /// Puts the button "move" on a bar.
    void fillMoveToolBar(QToolBar &bar);
    /// Has a toolbar button that goes with no command run a function. Errors are shown to the
    /// user. These three raise std::out_of_range for a key that is no button's.
    void connectToolButton(QStringView key, Run run);
    bool toolButtonEnabled(QStringView key) const;
    /// A button whose command has no `run` function stays disabled.
    void setToolButtonEnabled(QStringView key, bool enabled);

private:
    struct Command {
        QStringView name;
        QAction *action = nullptr;
        Run run;
        Enabled enabled;
    };
    struct Button {
        QAction *action = nullptr;
        Run run;
        /// Whether there is anything to run yet.
        Enabled canRun = [] { return false; };
    };

    void runIfAllowed(const Command &command) const;
    void addCommand(const resources::ActionEntry &entry);
    void addButton(const resources::ToolBarItem &item);
    void fill(QToolBar &bar, std::span<const resources::ToolBarItem> items);

    std::map<QStringView, Command> commands_;
    std::map<QStringView, Button> buttons_;
};

} // namespace quillon::controls
