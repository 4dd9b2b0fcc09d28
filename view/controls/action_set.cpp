#include "view/controls/action_set.h"

#include "platform/ui/error_boundary.h"
#include "view/controls/themed_icon.h"

#include <QAction>
#include <QIcon>
#include <QKeySequence>
#include <QMenu>
#include <QToolBar>

#include <algorithm>
#include <utility>

namespace quillon::controls {

using ui::guarded;

namespace {

/// What a button is called: its tool-tip without the key.
QString buttonName(const ToolButton &button) {
    return button.toolTip.toString().section(u'(', 0, 0).trimmed();
}

bool isMenu(const ActionRow &row) {
    return row.kind == ActionKind::Menu || row.kind == ActionKind::ContextMenu;
}

void setKey(QAction &action, const ActionRow &row) {
    const bool inCaption = row.caption.japanese().contains(u'\t');
    if (row.key.isEmpty() || inCaption)
        return;
    action.setShortcut(QKeySequence(row.key.toString(), QKeySequence::PortableText));
    // The context of an action that stands in menus alone, so the key is shown and does nothing.
    if (row.keyContext != KeyContext::Window)
        action.setShortcutContext(Qt::WidgetShortcut);
}

} // namespace

ActionSet::ActionSet(std::vector<ActionRow> rows, QObject *parent)
    : QObject(parent), rows_(std::move(rows)) {
    for (const ActionRow &row : rows_)
        addCommand(row);
}

void ActionSet::addCommand(const ActionRow &row) {
    Command &command = commands_[row.name];
    command.action = new QAction(this);
    QAction &action = *command.action;
    action.setObjectName(row.name.toString());
    action.setVisible(row.visible);
    if (row.kind == ActionKind::Separator) {
        action.setSeparator(true);
        return;
    }
    action.setText(row.caption.toString());
    if (isMenu(row))
        return;
    action.setEnabled(false);
    action.setCheckable(row.checkable);
    action.setChecked(row.checked);
    setKey(action, row);
    connect(&action, &QAction::triggered, this,
            [this, &command] { trigger(command, command.enabled); });
}

void ActionSet::trigger(const Command &command, const Enabled &enabled) const {
    guarded([&] {
        if (beforeCommand)
            beforeCommand();
        if (command.run && (!enabled || enabled()))
            command.run();
    });
}

QAction *ActionSet::action(QStringView name) const {
    return commands_.at(name).action;
}

void ActionSet::connectAction(QStringView name, Run run, Enabled enabled) {
    Command &command = commands_.at(name);
    command.run = std::move(run);
    command.enabled = std::move(enabled);
    command.action->setEnabled(command.run || command.action->menu());
    for (const auto &[key, button] : buttons_) {
        if (button.command == &command)
            button.action->setEnabled(command.run && !command.enabled);
    }
}

void ActionSet::run(QStringView name) {
    const Command &command = commands_.at(name);
    guarded([&] {
        if (command.run)
            command.run();
    });
}

void ActionSet::showStates(QStringView menu) {
    for (const ActionRow &row : rows_) {
        const Command &command = commands_.at(row.name);
        if (row.menu != menu || !command.enabled)
            continue;
        bool enabled = false;
        guarded([&] { enabled = command.enabled(); });
        command.action->setEnabled(enabled);
        if (row.hidesWhenDisabled)
            command.action->setVisible(enabled);
        // Its access key goes to the entry that shares it.
        if (!enabled)
            command.action->setText(row.caption.toString().remove(u'&'));
    }
}

void ActionSet::acceptKeys(QStringView menu) {
    for (const ActionRow &row : rows_) {
        const Command &command = commands_.at(row.name);
        if (row.menu != menu || isMenu(row))
            continue;
        command.action->setEnabled(command.run != nullptr);
        if (row.kind == ActionKind::Command)
            command.action->setText(row.caption.toString());
    }
}

void ActionSet::addButton(QStringView name, const ToolButton &row) {
    const Command &command = commands_.at(name);
    Button &button = buttons_[row.key];
    button.row = row;
    button.command = &command;
    const QIcon icon = themedIcon(QStringLiteral("toolbar/%1").arg(row.key));
    command.action->setIcon(icon);
    button.action = new QAction(icon, buttonName(row), this);
    button.action->setObjectName(row.key.toString());
    button.action->setToolTip(row.toolTip.toString());
    button.action->setEnabled(command.run && !command.enabled);
    connect(button.action, &QAction::triggered, this, [this, &command] { trigger(command, {}); });
}

void ActionSet::fillToolBar(QToolBar &bar, int firstGroup, int lastGroup) {
    std::map<std::pair<int, int>, QAction *> places;
    for (const auto &[key, button] : buttons_) {
        if (button.row.group >= firstGroup && button.row.group <= lastGroup)
            places[{button.row.group, button.row.position}] = button.action;
    }
    int group = places.empty() ? 0 : places.begin()->first.first;
    for (const auto &[place, action] : places) {
        if (std::exchange(group, place.first) != place.first)
            bar.addSeparator();
        bar.addAction(action);
    }
}

bool ActionSet::toolButtonEnabled(QStringView key) const {
    return buttons_.at(key).action->isEnabled();
}

void ActionSet::setToolButtonEnabled(QStringView key, bool enabled) {
    const Button &button = buttons_.at(key);
    button.action->setEnabled(enabled && button.command->run);
}

} // namespace quillon::controls
