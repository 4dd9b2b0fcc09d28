#include "help/command_finder.h"

#include <QRegularExpression>

#include <algorithm>
#include <tuple>

namespace quillon::help {

namespace {

/// "mnuFileSaveAs" has the words "file save as".
QString wordsOf(const QString &name) {
    static const QRegularExpression wordStart(QStringLiteral("(?<=[a-z])(?=[A-Z])"));
    QString words = name.startsWith(QLatin1String("mnu")) ? name.mid(3) : name;
    return words.replace(wordStart, QStringLiteral(" "));
}

} // namespace

CommandFinder::CommandFinder(Commands commands)
    : commands_(std::move(commands)), folding_(true, true) {
    folded_.reserve(commands_.size());
    for (const Command &command : commands_)
        folded_.push_back({folding_.folded(command.title), folding_.folded(command.menu),
                           folding_.folded(command.key), folding_.folded(wordsOf(command.name))});
}

int CommandFinder::rank(const Folded &command, const QString &word) {
    if (command.title.startsWith(word))
        return 0;
    if (command.title.contains(word))
        return 1;
    if (command.key.startsWith(word))
        return 2;
    if (command.menu.contains(word))
        return 3;
    return command.words.contains(word) ? 4 : NoMatch;
}

std::vector<std::size_t> CommandFinder::find(const QString &text, const QStringList &recent) const {
    const QStringList words = folding_.folded(text).split(u' ', Qt::SkipEmptyParts);
    using Place = std::tuple<int, qsizetype, std::size_t>;
    std::vector<Place> places;
    for (std::size_t at = 0; at < commands_.size(); ++at) {
        int worst = 0;
        for (const QString &word : words)
            worst = std::max(worst, rank(folded_[at], word));
        if (worst == NoMatch)
            continue;
        const qsizetype used = recent.indexOf(commands_[at].name);
        places.emplace_back(worst, used < 0 ? recent.size() : used, at);
    }
    std::ranges::sort(places);
    std::vector<std::size_t> found;
    for (const Place &place : places)
        found.push_back(std::get<std::size_t>(place));
    return found;
}

} // namespace quillon::help
