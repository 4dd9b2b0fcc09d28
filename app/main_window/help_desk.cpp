#include "app/main_window/help_desk.h"

#include "app/main_window/command_box.h"
#include "app/main_window/command_list.h"
#include "app/main_window/command_table.h"
#include "app/main_window/help_places.h"
#include "app/main_window/manual_window.h"
#include "resources/language.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>

#include <algorithm>

namespace quillon::app {

using settings::UsedCommands;

namespace {

constexpr QStringView ManualCommand = u"mnuHelpManual";
/// What tells of everything else.
const QString FirstPlace = QStringLiteral("start");

const CommandRow &rowOf(const QString &command) {
    return *std::ranges::find_if(commandTable(),
                                 [&](const CommandRow &row) { return row.entry.name == command; });
}

} // namespace

HelpDesk::HelpDesk(const Editor &editor, controls::ActionSet &actions, QWidget &window)
    : editor_(editor), actions_(actions), window_(window) {
    qApp->installEventFilter(this);
}

HelpDesk::~HelpDesk() = default;

void HelpDesk::showManual() {
    openManual(helpPlace(QApplication::focusWidget()), QApplication::activeModalWidget());
}

void HelpDesk::openManual(const QString &place, QWidget *modal) {
    if (!manual_) {
        manual_ = std::make_unique<help::Manual>(
            QStringLiteral(":/manual/") + resources::language().code.toString(), commandList());
        manualWindow_ = std::make_unique<ManualWindow>(*manual_);
    }
    const QString shown = place.isEmpty() ? FirstPlace : place;
    modal ? manualWindow_->openAbove(modal, shown) : manualWindow_->open(shown);
}

void HelpDesk::searchCommands() {
    if (!commandBox_) {
        commandBox_ = new CommandBox(commandList(), window_);
        commandBox_->isEnabled = [this](const QString &command) { return isEnabled(command); };
        commandBox_->recent = [this] {
            QStringList used = UsedCommands.read(editor_.environment.settings);
            std::ranges::reverse(used);
            return used;
        };
        // A command may show a box of its own, for which this one is to have gone.
        connect(commandBox_, &CommandBox::chosen, this, &HelpDesk::run, Qt::QueuedConnection);
    }
    commandBox_->open();
}

bool HelpDesk::isEnabled(const QString &command) const {
    const CommandRow &row = rowOf(command);
    const CommandRow::Applies applies = row.enabled ? row.enabled : row.treeKeyEnabled;
    return !applies || applies(editor_);
}

void HelpDesk::run(const QString &command) {
    UsedCommands.change(editor_.environment.settings, [&](QStringList &used) {
        used.removeAll(command);
        used.append(command);
    });
    actions_.action(command)->trigger();
}

bool HelpDesk::isOfWindow(const QWidget &widget) const {
    for (const QWidget *at = &widget; at; at = at->parentWidget()) {
        if (at == &window_)
            return true;
    }
    return false;
}

bool HelpDesk::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto &key = static_cast<const QKeyEvent &>(*event);
    auto &widget = static_cast<QWidget &>(*watched);
    // In the window itself it is a key like others.
    if (QKeySequence(key.keyCombination()) != actions_.action(ManualCommand)->shortcut() ||
        widget.window() == &window_ || !isOfWindow(widget))
        return false;
    QString place = helpPlace(&widget);
    // A box that tells or asks something belongs to what is behind it.
    if (place.isEmpty())
        place = helpPlace(window_.focusWidget());
    openManual(place, widget.window()->isModal() ? widget.window() : nullptr);
    return true;
}

} // namespace quillon::app
