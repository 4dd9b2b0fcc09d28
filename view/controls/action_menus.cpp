#include "view/controls/action_menus.h"

#include "platform/ui/error_boundary.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <utility>

namespace quillon::controls {

using ui::guarded;

ActionMenus::ActionMenus(ActionSet &actions, QMenuBar &bar)
    : QObject(&bar), actions_(actions), bar_(bar) {
    for (const ActionRow &row : actions_.rows()) {
        QAction *action = actions_.action(row.name);
        QMenu *menu = row.menu.isEmpty() ? nullptr : actions_.action(row.menu)->menu();
        if (row.kind == ActionKind::Menu || row.kind == ActionKind::ContextMenu)
            addMenu(row);
        if (row.kind == ActionKind::ContextMenu) {
            // Opening it asks for the states of the entries that it repeats, too.
            action->menu()->addActions(menu->actions());
            makeStatesFollow(*action->menu(), row.menu);
        } else if (menu) {
            menu->addAction(action);
        } else if (row.kind == ActionKind::Menu) {
            bar_.addAction(action);
        }
        if (row.kind == ActionKind::Array)
            arrays_[row.name] = {menu, {action}, {}};
    }
}

void ActionMenus::addMenu(const ActionRow &row) {
    auto *menu = new QMenu(&bar_);
    actions_.action(row.name)->setMenu(menu);
    opening_[row.name];
    makeStatesFollow(*menu, row.name);
}

void ActionMenus::makeStatesFollow(const QMenu &menu, QStringView name) {
    connect(&menu, &QMenu::aboutToShow, this, [this, name] { opens(name); });
    connect(&menu, &QMenu::aboutToHide, this, [this, name] { actions_.acceptKeys(name); });
}

void ActionMenus::opens(QStringView menu) {
    actions_.acceptKeys(menu);
    for (const auto &function : opening_.at(menu))
        guarded(function);
    actions_.showStates(menu);
}

void ActionMenus::onMenuOpening(QStringView menu, std::function<void()> function) {
    opening_.at(menu).push_back(std::move(function));
}

void ActionMenus::setElements(QStringView array, const std::vector<Element> &elements,
                              RunElement run, int first) {
    const auto found = arrays_.find(array);
    if (found == arrays_.end())
        throw std::out_of_range("no control array " + array.toString().toStdString());
    auto &[name, entry] = *found;
    entry.run = std::move(run);
    const size_t start = first == 0 ? 0 : 1;
    for (size_t i = 0; i < elements.size(); ++i) {
        const size_t index = start + i;
        QAction *action = index < entry.elements.size() ? entry.elements[index] : addElement(name);
        action->setText(elements[i].caption);
        action->setData(elements[i].tag);
    }
    dropElements(entry, std::max<size_t>(start + elements.size(), 1));
    actions_.action(name)->setVisible(elements.empty() == (start == 1));
    ActionSet::Run runFirst;
    if (start == 0)
        runFirst = [this, name] { runElement(name, 0); };
    actions_.connectAction(name, std::move(runFirst));
}

QAction *ActionMenus::addElement(QStringView name) {
    Array &array = arrays_.at(name);
    const size_t index = array.elements.size();
    QAction *action = array.menu->addAction(QString());
    action->setObjectName(QStringLiteral("%1(%2)").arg(name).arg(index));
    connect(action, &QAction::triggered, this,
            [this, name, index] { guarded([&] { runElement(name, index); }); });
    array.elements.push_back(action);
    return action;
}

void ActionMenus::dropElements(Array &array, size_t keep) {
    for (; array.elements.size() > keep; array.elements.pop_back()) {
        QAction *action = array.elements.back();
        array.menu->removeAction(action);
        // It may be the one whose function is asking for the new list.
        action->deleteLater();
    }
}

void ActionMenus::runElement(QStringView name, size_t index) {
    const Array &array = arrays_.at(name);
    // A copy, because the function may set a new list and with it another function.
    const RunElement run = array.run;
    if (run)
        run(static_cast<int>(index), array.elements.at(index)->data().toString());
}

} // namespace quillon::controls
