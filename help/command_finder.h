#pragma once

#include "help/command.h"
#include "search/text_folding.h"

#include <QStringList>

#include <vector>

namespace quillon::help {

/// Finds commands by what users remember of them: their names, menus and keys, and the English
/// words of their names in the table. Capital and small letters, full-width and half-width forms,
/// hiragana and katakana count as equal.
class CommandFinder {
public:
    explicit CommandFinder(Commands commands);

    const Commands &commands() const { return commands_; }
    /// The places in commands() of those that have all words of a text, best ones first: a name
    /// that begins with it, one that has it, a key, a menu, English words. Equally good ones stand
    /// in the order in which they were used, as `recent` has them by name, latest first, and then
    /// as in commands(). All of them for an empty text.
    std::vector<std::size_t> find(const QString &text, const QStringList &recent) const;

private:
    struct Folded {
        QString title;
        QString menu;
        QString key;
        QString words;
    };

    /// How good a command is for one word; nothing it has to do with it: NoMatch.
    static constexpr int NoMatch = 5;
    static int rank(const Folded &command, const QString &word);

    Commands commands_;
    search::TextFolding folding_;
    std::vector<Folded> folded_;
};

} // namespace quillon::help
