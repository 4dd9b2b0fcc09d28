#include "platform/xml/schema/grammar/relaxng_compact_lexer.h"

#include <QRegularExpression>

namespace quillon::grammar {

namespace {

bool isNameCharacter(QChar c) {
    return c.isLetterOrNumber() || c.isMark() || c.isSurrogate() || c == u'_' || c == u'-' ||
           c == u'.';
}

bool isNameStart(QChar c) {
    return c.isLetter() || c.isSurrogate() || c == u'_';
}

/// Characters that are written by their numbers, wherever they stand.
QString withCharacters(QString text) {
    static const QRegularExpression escape(QStringLiteral("\\\\x+\\{([0-9a-fA-F]{1,6})\\}"));
    qsizetype from = 0;
    while (true) {
        const QRegularExpressionMatch match = escape.match(text, from);
        if (!match.hasMatch())
            return text;
        const char32_t code = match.captured(1).toUInt(nullptr, 16);
        const QString character = QString::fromUcs4(&code, 1);
        text.replace(match.capturedStart(), match.capturedLength(), character);
        from = match.capturedStart() + character.size();
    }
}

} // namespace

CompactLexer::CompactLexer(const QString &text)
    : text_(text.contains(QLatin1String("\\x")) ? withCharacters(text) : text) {}

void CompactLexer::skipBlanks() {
    while (place_ < text_.size()) {
        if (at(0).isSpace() || at(0) == QChar(0xFEFF)) {
            step();
        } else if (at(0) == u'#' && at(1) != u'#') {
            while (place_ < text_.size() && at(0) != u'\n')
                step();
        } else {
            return;
        }
    }
}

QString CompactLexer::name() {
    const qsizetype start = place_;
    while (place_ < text_.size() && isNameCharacter(at(0)))
        ++place_;
    return text_.sliced(start, place_ - start);
}

CompactToken CompactLexer::literal() {
    CompactToken token{CompactToken::Kind::Literal, {}, line_};
    const QChar quote = at(0);
    const qsizetype width = at(1) == quote && at(2) == quote ? 3 : 1;
    place_ += width;
    const qsizetype end = text_.indexOf(QString(width, quote), place_);
    if (end < 0) {
        place_ = text_.size();
        return {CompactToken::Kind::Wrong, QString(quote), token.line};
    }
    token.text = text_.sliced(place_, end - place_);
    line_ += static_cast<int>(token.text.count(u'\n'));
    place_ = end + width;
    return token;
}

CompactToken CompactLexer::documentation() {
    CompactToken token{CompactToken::Kind::Documentation, {}, line_};
    while (at(0) == u'#' && at(1) == u'#') {
        qsizetype end = text_.indexOf(u'\n', place_);
        end = end < 0 ? text_.size() : end;
        QStringView words = QStringView(text_).sliced(place_, end - place_);
        while (words.startsWith(u'#'))
            words = words.sliced(1);
        if (!token.text.isEmpty())
            token.text += u'\n';
        token.text += words.trimmed();
        place_ = end;
        while (place_ < text_.size() && at(0).isSpace())
            step();
    }
    return token;
}

CompactToken CompactLexer::next() {
    using Kind = CompactToken::Kind;
    skipBlanks();
    if (place_ >= text_.size())
        return {Kind::End, {}, line_};
    const int line = line_;
    const QChar first = at(0);
    if (first == u'#')
        return documentation();
    if (first == u'"' || first == u'\'')
        return literal();
    if (first == u'\\' && isNameStart(at(1))) {
        ++place_;
        return {Kind::QuotedName, name(), line};
    }
    if (isNameStart(first)) {
        const QString word = name();
        if (at(0) == u':' && at(1) == u'*') {
            place_ += 2;
            return {Kind::AnyOfPrefix, word, line};
        }
        if (at(0) != u':' || !isNameStart(at(1)))
            return {Kind::Name, word, line};
        ++place_;
        return {Kind::QualifiedName, word + u':' + name(), line};
    }
    for (const char *symbol : {"|=", "&=", ">>", "=", "{", "}", "(", ")", "[", "]", ",", "&", "|",
                               "?", "*", "+", "-", "~"}) {
        if (QStringView(text_).sliced(place_).startsWith(QLatin1String(symbol))) {
            place_ += QLatin1String(symbol).size();
            return {Kind::Symbol, QLatin1String(symbol), line};
        }
    }
    step();
    return {Kind::Wrong, QString(first), line};
}

} // namespace quillon::grammar
