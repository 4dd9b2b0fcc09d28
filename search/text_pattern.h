#pragma once

#include "search/span.h"
#include "search/text_folding.h"

#include <QRegularExpression>
#include <QStringMatcher>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::search {

enum class PatternKind { Plain, Wildcards, RegularExpression };

struct PatternOptions {
    PatternKind kind = PatternKind::Plain;
    bool matchCase = true;
    /// Letters, kanji, hiragana and katakana are words of their own wherever one kind follows
    /// another.
    bool wholeWord = false;
    /// Full-width and half-width forms are told apart, as are hiragana and katakana. Regular
    /// expressions always do.
    bool matchWidth = true;

    bool operator==(const PatternOptions &) const = default;
};

/// What is looked for, compiled once to be held against many texts.
///
/// Wildcards are those of runtime::LikePattern, looked for anywhere in a text: "*" is the shortest
/// run that will do, at the end of the pattern all the rest of the text.
class TextPattern {
public:
    /// Raises InvalidPattern with a sentence that says what is wrong with the pattern, also for an
    /// empty one.
    TextPattern(const QString &pattern, const PatternOptions &options);

    /// All places of a text where the pattern is found, ascending, none overlapping another. Only
    /// a regular expression finds empty ones. Raises InvalidPattern for a regular expression that
    /// takes too many steps.
    void findAll(QStringView text, std::vector<Span> &spans) const;
    /// False where the pattern is certainly not found; quick. The text is UTF-8.
    bool mayBeIn(std::string_view utf8) const;

    const PatternOptions &options() const { return options_; }
    /// Empty unless the pattern is a regular expression.
    const QRegularExpression &expression() const { return expression_; }

private:
    void compileWildcards(const QString &pattern);
    void compileExpression(const QString &expression, QRegularExpression::PatternOptions flags);
    std::optional<Span> find(QStringView text, qsizetype from) const;
    bool isAccepted(QStringView text, const Span &span) const;

    PatternOptions options_;
    TextFolding folding_;
    QStringMatcher plain_;
    QRegularExpression expression_;
    /// What stands in every text in which the pattern is found; empty where that is not known.
    std::string needle_;
    mutable FoldedText folded_;
};

/// What stands in the place of what was found. For a regular expression $1 or \1 is its first
/// group, ${name} one with a name, $& or $0 all of it, \n a line break, \t a tab, and $$ and \\ are
/// the characters; for other patterns every character is itself.
class Replacement {
public:
    /// Raises InvalidPattern for a group that the pattern does not have.
    Replacement(const QString &text, const TextPattern &pattern);

    /// Whether it is the same at every place.
    bool isFixed() const { return expression_.pattern().isEmpty(); }
    /// For a place where the pattern was found.
    QString at(QStringView text, const Span &span) const;

private:
    struct Piece {
        QString text;
        /// The number of a group; -1 for text.
        int group = -1;
    };

    void compile(const QString &text, const QRegularExpression &expression);
    void addText(QChar character);
    void addGroup(int group, const QRegularExpression &expression, QStringView written);

    /// Empty when the replacement is the same everywhere.
    QRegularExpression expression_;
    std::vector<Piece> pieces_;
};

} // namespace quillon::search
