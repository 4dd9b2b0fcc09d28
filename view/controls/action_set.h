#pragma once

#include "resources/text.h"

#include <QObject>
#include <QStringView>

#include <functional>
#include <map>
#include <vector>

class QAction;
class QToolBar;

namespace quillon::controls {

enum class ActionKind {
    Command,
    Separator,
    /// A menu of the menu bar, or a submenu when it stands in another menu.
    Menu,
    /// A menu that stands nowhere. It repeats the entries of the menu that it names, ahead of its
    /// own.
    ContextMenu,
    /// Element 0 of a control array; the program adds further elements after it.
    Array,
};

/// Who acts on the key of a command.
enum class KeyContext {
    /// The window, wherever the focus is.
    Window,
    /// The tree, while it has the focus. For the window the key only stands in the menu.
    Tree,
    /// The window manager. The key only stands in the menu.
    WindowManager,
};

/// One entry of the menus, or a command that has none.
struct ActionRow {
    /// Name of the control, e.g. "mnuFileSave".
    QStringView name;
    /// Name of the menu it stands in. Without one a menu stands in the menu bar and a command
    /// nowhere.
    QStringView menu = {};
    /// With '&' before the access key. After a tab comes a key that is part of the caption.
    resources::Text caption = {};
    /// The key in portable text, e.g. "Ctrl+S"; empty for none.
    QStringView key = {};
    KeyContext keyContext = KeyContext::Window;
    ActionKind kind = ActionKind::Command;
    bool checkable = false;
    bool checked = false;
    bool visible = true;
    /// Its menu shows it only while it applies.
    bool hidesWhenDisabled = false;
};

/// The button of a command on a toolbar.
struct ToolButton {
    /// In lower case; empty for no button. The picture of button and menu entry is
    /// ":/icons/toolbar/<key>.svg".
    QStringView key = {};
    resources::Text toolTip = {};
    /// Buttons stand by group, with a separator before each group but the first, and within one by
    /// position.
    int group = 0;
    int position = 0;
};

/// The commands of one window: a QAction for every row, and one of its own for every toolbar
/// button.
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

    /// In menu order: a menu is followed by what stands in it. What the rows refer to must outlive
    /// this object.
    explicit ActionSet(std::vector<ActionRow> rows, QObject *parent = nullptr);

    const std::vector<ActionRow> &rows() const { return rows_; }

    /// The action of a row: a command, separator, (sub)menu or element 0 of a control array. Its
    /// objectName is the row's name. Raises std::out_of_range for a name that no row has.
    QAction *action(QStringView name) const;

    /// Has a command, and the toolbar button that goes with it, run a function. The action of a
    /// checkable command has already changed its check by then. Errors are shown to the user.
    /// Without an `enabled` function the command can always be run; without a `run` function it is
    /// disabled, unless it is a menu, which opens. Raises std::out_of_range as action() does.
    void connectAction(QStringView name, Run run, Enabled enabled = {});

    /// Runs a command as a key of the tree does: without asking its `enabled` function. Errors are
    /// shown to the user. Raises std::out_of_range as action() does.
    void run(QStringView name);

    /// Called ahead of every command that an action or a button runs.
    Run beforeCommand;

    /// Gives the entries of a menu that is opening their states.
    void showStates(QStringView menu);
    /// Enables all commands of a menu, so that their keys reach them.
    void acceptKeys(QStringView menu);

    /// Gives a command a button. It is enabled when the command can always be run.
    void addButton(QStringView name, const ToolButton &button);
    /// Puts the buttons of some groups on a bar, from the first one to the last one.
    void fillToolBar(QToolBar &bar, int firstGroup, int lastGroup);
    /// These two raise std::out_of_range for a key that is no button's.
    bool toolButtonEnabled(QStringView key) const;
    /// A button whose command has no `run` function stays disabled.
    void setToolButtonEnabled(QStringView key, bool enabled);

private:
    struct Command {
        QAction *action = nullptr;
        Run run;
        Enabled enabled;
    };
    struct Button {
        ToolButton row;
        const Command *command = nullptr;
        QAction *action = nullptr;
    };

    void addCommand(const ActionRow &row);
    /// Runs a command as an action or a button does, if that `enabled` function says so.
    void trigger(const Command &command, const Enabled &enabled) const;

    const std::vector<ActionRow> rows_;
    std::map<QStringView, Command> commands_;
    std::map<QStringView, Button> buttons_;
};

} // namespace quillon::controls
