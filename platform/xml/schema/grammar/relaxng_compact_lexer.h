#pragma once

#include <QString>

namespace quillon::grammar {

/// A piece of a RELAX NG schema in the compact syntax.
struct CompactToken {
    enum class Kind {
        /// A word that may be a keyword.
        Name,
        /// One that is none, as "\" stands ahead of it.
        QuotedName,
        /// Two names with a colon between them.
        QualifiedName,
        /// All names of a prefix.
        AnyOfPrefix,
        Literal,
        /// What stands behind "##", several lines as one.
        Documentation,
        /// An operator or a bracket.
        Symbol,
        End,
        /// What cannot be read.
        Wrong
    };

    Kind kind = Kind::End;
    /// Without quotes and the like; the prefix of AnyOfPrefix.
    QString text;
    /// 1-based.
    int line = 1;

    bool is(const char *symbol) const {
        return kind == Kind::Symbol && text == QLatin1String(symbol);
    }
    bool isWord(const char *word) const {
        return kind == Kind::Name && text == QLatin1String(word);
    }
};

/// Cuts a schema into tokens.
class CompactLexer {
public:
    explicit CompactLexer(const QString &text);

    CompactToken next();

private:
    void skipBlanks();
    QString name();
    CompactToken literal();
    CompactToken documentation();
    QChar at(qsizetype offset) const {
        return place_ + offset < text_.size() ? text_[place_ + offset] : QChar();
    }
    void step() { line_ += text_[place_++] == u'\n' ? 1 : 0; }

    QString text_;
    qsizetype place_ = 0;
    int line_ = 1;
};

} // namespace quillon::grammar
