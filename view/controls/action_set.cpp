#include "view/controls/action_set.h"

#include "platform/ui/error_boundary.h"

#include <QAction>
#include <QIcon>
#include <QKeySequence>
#include <QToolBar>

#include <utility>

namespace quillon::controls {

using ui::guarded;

namespace {

using resources::ActionEntry;
using resources::ActionKind;
using resources::KeyContext;
using resources::ToolBarItem;

/// What a button is called: its tool-tip without the key.
QString buttonName(const ToolBarItem &item) {
    const qsizetype key = item.toolTip.indexOf(u'(');
    return (key < 0 ? item.toolTip : item.toolTip.first(key)).toString();
}

void setKey(QAction &action, const ActionEntry &entry) {
    const bool inCaption = entry.caption.contains(u'\t');
    if (entry.key.isEmpty() || inCaption)
        return;
    action.setShortcut(QKeySequence(entry.key.toString(), QKeySequence::PortableText));
    // The context of an action that stands in menus alone, so the key is shown and does nothing.
    if (entry.keyContext != KeyContext::Window)
        action.setShortcutContext(Qt::WidgetShortcut);
}

} // namespace

ActionSet::ActionSet(QObject *parent) : QObject(parent) {
    for (const ActionEntry &entry : resources::actionTable())
        addCommand(entry);
    for (const auto items : {resources::mainToolBarTable(), resources::moveToolBarTable()}) {
        for (const ToolBarItem &item : items) {
            if (!item.placeholder)
                addButton(item);
        }
    }
}

void ActionSet::addCommand(const ActionEntry &entry) {
    Command &command = commands_[entry.name];
    command.name = entry.name;
    command.action = new QAction(this);
    QAction &action = *command.action;
    action.setObjectName(entry.name.toString());
    action.setVisible(entry.visible);
    if (entry.kind == ActionKind::Separator) {
        action.setSeparator(true);
        return;
    }
    action.setText(entry.caption.toString());
    if (entry.kind == ActionKind::Menu)
        return;
    action.setEnabled(false);
    action.setCheckable(entry.checkable);
    action.setChecked(entry.checked);
    if (!entry.icon.isEmpty())
        action.setIcon(QIcon(entry.icon.toString()));
    setKey(action, entry);
    connect(&action, &QAction::triggered, this, [this, &command] {
        guarded([&] {
            if (beforeCommand)
                beforeCommand();
            if (!command.enabled || command.enabled())
                runIfAllowed(command);
        });
    });
}

void ActionSet::addButton(const ToolBarItem &item) {
    Button &button = buttons_[item.key];
    const QIcon icon(QStringLiteral(":/icons/toolbar/%1.svg").arg(item.key));
    button.action = new QAction(icon, buttonName(item), this);
    button.action->setObjectName(item.key.toString());
    button.action->setToolTip(item.toolTip.toString());
    button.action->setEnabled(item.enabled);
    connect(button.action, &QAction::triggered, this, [this, &button] {
        guarded([&] {
            if (beforeCommand)
                beforeCommand();
            if (button.run)
                button.run();
        });
    });
    if (!item.action.isEmpty()) {
        Command &command = commands_.at(item.action);
        button.run = [this, &command] { runIfAllowed(command); };
        button.canRun = [&command] { return command.run != nullptr; };
    }
}

QAction *ActionSet::action(QStringView name) const {
    return commands_.at(name).action;
}

void ActionSet::connectAction(QStringView name, Run run, Enabled enabled) {
    Command &command = commands_.at(name);
    command.run = std::move(run);
    command.enabled = std::move(enabled);
    command.action->setEnabled(command.run != nullptr);
}

void ActionSet::run(QStringView name) {
    guarded([&] { runIfAllowed(commands_.at(name)); });
}

void ActionSet::runIfAllowed(const Command &command) const {
    if (command.run && (!mayRun || mayRun(command.name)))
        command.run();
}

void ActionSet::showStates(QStringView menu) {
    for (const ActionEntry &entry : resources::actionTable()) {
        const Command &command = commands_.at(entry.name);
        if (entry.menu != menu || !command.run || !command.enabled)
            continue;
        bool enabled = false;
        guarded([&] { enabled = command.enabled(); });
        command.action->setEnabled(enabled);
        // Its access key goes to the entry that shares it.
        if (!enabled)
            command.action->setText(entry.caption.toString().remove(u'&'));
    }
}

void ActionSet::acceptKeys(QStringView menu) {
    for (const ActionEntry &entry : resources::actionTable()) {
        const Command &command = commands_.at(entry.name);
        if (entry.menu != menu || entry.kind == ActionKind::Menu)
            continue;
        command.action->setEnabled(command.run != nullptr);
        if (entry.kind == ActionKind::Command)
            command.action->setText(entry.caption.toString());
    }
}

void ActionSet::fillToolBar(QToolBar &bar) {
    fill(bar, resources::mainToolBarTable());
}

void ActionSet::fillMoveToolBar(QToolBar &bar) {
    fill(bar, resources::moveToolBarTable());
}

void ActionSet::fill(QToolBar &bar, std::span<const ToolBarItem> items) {
    for (const ToolBarItem &item : items) {
        if (item.startsGroup)
            bar.addSeparator();
        if (!item.placeholder)
            bar.addAction(buttons_.at(item.key).action);
    }
}

void ActionSet::connectToolButton(QStringView key, Run run) {
    Button &button = buttons_.at(key);
    button.run = std::move(run);
    button.canRun = [] { return true; };
    button.action->setEnabled(true);
}

bool ActionSet::toolButtonEnabled(QStringView key) const {
    return buttons_.at(key).action->isEnabled();
}

void ActionSet::setToolButtonEnabled(QStringView key, bool enabled) {
    Button &button = buttons_.at(key);
    button.action->setEnabled(enabled && button.canRun());
}

} // namespace quillon::controls
