#include "app/main_window/command_list.h"

#include "app/main_window/command_table.h"
#include "resources/manual_texts.h"

#include <algorithm>

namespace quillon::app {

namespace texts = resources::manual_texts;
using controls::ActionKind;
using controls::ActionRow;

namespace {

constexpr std::pair<QStringView, resources::Text> NamesWithoutMenu[] = {
    {u"SearchBackward", texts::SearchBackward},
    {u"MoveUpByKey", texts::MoveUp},
    {u"MoveDownByKey", texts::MoveDown},
    {u"SelectByPath", texts::SelectByPath},
};

/// A caption without access key and key.
QString plainCaption(QStringView caption) {
    QString plain = caption.left(caption.indexOf(u'\t')).toString();
    if (const qsizetype at = plain.indexOf(QLatin1String("(&")); at >= 0)
        plain.remove(at, 4);
    return plain.remove(u'&');
}

QString shownKey(QStringView key) {
    static constexpr std::pair<QLatin1String, char16_t> Arrows[] = {
        {QLatin1String("Up"), u'↑'},
        {QLatin1String("Down"), u'↓'},
        {QLatin1String("Left"), u'←'},
        {QLatin1String("Right"), u'→'},
    };
    QString shown = key.toString();
    for (const auto &[name, arrow] : Arrows) {
        if (shown == name || shown.endsWith(u'+' + name))
            shown = shown.chopped(name.size()) + arrow;
    }
    return shown;
}

const ActionRow *rowOf(QStringView name) {
    for (const CommandRow &row : commandTable()) {
        if (row.entry.name == name)
            return &row.entry;
    }
    return nullptr;
}

/// Whether a menu, or the one that it stands in, is to be seen in the menu bar.
bool isOfMenuBar(const ActionRow &menu) {
    if (menu.kind != ActionKind::Menu)
        return false;
    return menu.menu.isEmpty() ? menu.visible : isOfMenuBar(*rowOf(menu.menu));
}

QString wayTo(const ActionRow &menu) {
    if (menu.kind == ActionKind::ContextMenu)
        return texts::TreeMenu.toString();
    const QString caption = plainCaption(menu.caption);
    return menu.menu.isEmpty() ? caption
                               : wayTo(*rowOf(menu.menu)) + texts::MenuStep.toString() + caption;
}

help::Command described(const ActionRow &row, const ActionRow *menu) {
    help::Command command{row.name.toString(), plainCaption(row.caption),
                          menu ? wayTo(*menu) : QString(), shownKey(row.key),
                          row.keyContext == controls::KeyContext::Tree};
    if (command.title.isEmpty()) {
        const auto *const named = std::ranges::find(
            NamesWithoutMenu, row.name, &std::pair<QStringView, resources::Text>::first);
        command.title =
            named == std::end(NamesWithoutMenu) ? row.name.toString() : named->second.toString();
    }
    return command;
}

} // namespace

help::Commands commandList() {
    help::Commands inMenus;
    help::Commands elsewhere;
    for (const CommandRow &row : commandTable()) {
        if (row.entry.kind != ActionKind::Command)
            continue;
        const ActionRow *const menu = row.entry.menu.isEmpty() ? nullptr : rowOf(row.entry.menu);
        const bool isInMenuBar = menu && isOfMenuBar(*menu);
        (isInMenuBar ? inMenus : elsewhere).push_back(described(row.entry, menu));
    }
    for (help::Command &command : elsewhere) {
        const auto known = std::ranges::find(inMenus, command.title, &help::Command::title);
        if (known == inMenus.end()) {
            inMenus.push_back(std::move(command));
        } else if (known->key.isEmpty()) {
            known->key = command.key;
            known->isKeyOfTree = command.isKeyOfTree;
        }
    }
    return inMenus;
}

} // namespace quillon::app
