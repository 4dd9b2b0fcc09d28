#pragma once

#include <QStringView>

#include <utility>
#include <vector>

namespace quillon::runtime {

/// A wildcard pattern, compiled once to be held against many texts.
///
///     *        any run of characters, also none
///     ?        exactly one character
///     #        one digit, 0 to 9
///     [list]   one character of the list, which may hold ranges such as a-z; "-" as the first or
///              last character of the list and the wildcards in it stand for themselves
///     [!list]  one character that is not in the list
///     []       nothing; [!] is the character "!"
///
/// Characters are UTF-16 code units, compared exactly.
class LikePattern {
public:
    /// Raises InvalidPattern for a bracket that is never closed and for a range whose end comes
    /// before its start.
    explicit LikePattern(QStringView pattern);

    /// Whether the pattern matches the whole text. Takes at most (length of the text) x (length
    /// of the pattern) steps, whatever the pattern.
    bool matches(QStringView text) const;

private:
    enum class Kind : quint8 { Literal, AnyRun, AnyOne, Digit, InList, NotInList };

    struct Token {
        Kind kind;
        char16_t literal = 0;
        /// The part of ranges_ that belongs to a list.
        size_t firstRange = 0;
        size_t endRange = 0;
    };

    /// Both ends belong to the range.
    using Range = std::pair<char16_t, char16_t>;

    void addList(QStringView list);
    bool matchesOne(const Token &token, char16_t unit) const;

    std::vector<Token> tokens_;
    std::vector<Range> ranges_;
};

/// Whether text as a whole matches the wildcard pattern. Raises as LikePattern does.
bool like(QStringView text, QStringView pattern);

} // namespace quillon::runtime
