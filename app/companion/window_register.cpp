#include "app/companion/window_register.h"

#include <QStringList>

#include <algorithm>
#include <iterator>
#include <limits>
#include <optional>

namespace quillon::companion {

namespace {

/// Editors write the handle as a signed number, though X11 knows none below zero.
std::optional<WindowHandle> handleIn(const QString &text) {
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    if (!isNumber || number < std::numeric_limits<qint32>::min() ||
        number > std::numeric_limits<WindowHandle>::max())
        return std::nullopt;
    return static_cast<WindowHandle>(number);
}

} // namespace

void WindowRegister::execute(const QString &command) {
    dropDead();
    if (command == QLatin1String("TILE_VERTICAL")) {
        tileVertical();
        return;
    }
    const QStringList words = command.split(QLatin1Char(' '));
    if (words.size() != 2)
        return;
    const std::optional<WindowHandle> window = handleIn(words[1]);
    if (!window)
        return;
    if (words[0] == QLatin1String("ADD"))
        add(*window);
    else if (words[0] == QLatin1String("REMOVE"))
        std::erase(windows_, *window);
}

void WindowRegister::dropDead() {
    std::erase_if(windows_, [this](WindowHandle window) { return !desktop_.exists(window); });
}

void WindowRegister::add(WindowHandle window) {
    if (desktop_.exists(window) && std::ranges::find(windows_, window) == windows_.end())
        windows_.push_back(window);
}

void WindowRegister::tileVertical() {
    std::vector<WindowHandle> open;
    std::ranges::copy_if(windows_, std::back_inserter(open),
                         [this](WindowHandle window) { return desktop_.isOpen(window); });
    if (open.empty())
        return;
    const QRect area = desktop_.areaFor(open);
    const int width = area.width() / static_cast<int>(open.size());
    int left = area.left();
    for (const WindowHandle window : open) {
        desktop_.place(window, QRect(left, area.top(), width, area.height()));
        left += width;
    }
}

} // namespace quillon::companion
