#include "search/text_pattern.h"

#include "platform/runtime/error.h"
#include "platform/runtime/like.h"
#include "resources/search_texts.h"

#include <cstring>

namespace quillon::search {

namespace texts = resources::search_texts;

namespace {

[[noreturn]] void refuse(const QString &why) {
    throw runtime::Error(runtime::error_number::InvalidPattern, why);
}

/// What a character can be a part of.
enum class Word { None, Letters, Kanji, Hiragana, Katakana, Mark };

Word wordOf(char32_t c) {
    if (c == U'ー' || c == U'ｰ' || c == U'ﾞ' || c == U'ﾟ' || QChar::isMark(c))
        return Word::Mark;
    switch (QChar::script(c)) {
    case QChar::Script_Han:
        return Word::Kanji;
    case QChar::Script_Hiragana:
        return Word::Hiragana;
    case QChar::Script_Katakana:
        return Word::Katakana;
    default:
        return QChar::isLetterOrNumber(c) || c == U'_' ? Word::Letters : Word::None;
    }
}

char32_t codePointBefore(QStringView text, qsizetype at) {
    const bool isPair = text[at - 1].isLowSurrogate() && at > 1 && text[at - 2].isHighSurrogate();
    return isPair ? QChar::surrogateToUcs4(text[at - 2], text[at - 1])
                  : char32_t(text[at - 1].unicode());
}

char32_t codePointAt(QStringView text, qsizetype at) {
    const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size();
    return isPair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : char32_t(text[at].unicode());
}

/// Whether a word ends, or none is, between the characters on both sides of a position.
bool isWordBoundary(QStringView text, qsizetype at) {
    if (at == 0 || at == text.size())
        return true;
    const Word behind = wordOf(codePointAt(text, at));
    // The mark of a long vowel and the like belong to whatever they stand behind.
    Word ahead = Word::Mark;
    for (qsizetype before = at; before > 0 && ahead == Word::Mark;) {
        const char32_t c = codePointBefore(text, before);
        ahead = wordOf(c);
        before -= QChar::requiresSurrogates(c) ? 2 : 1;
    }
    return ahead == Word::None || (behind != Word::Mark && behind != ahead);
}

/// The text without a copy of it.
QString asString(QStringView text) {
    return QString::fromRawData(text.data(), text.size());
}

/// The members of a list as they are written in a regular expression.
QString classMember(QChar c) {
    return QStringLiteral("\\]^[-").contains(c) ? QStringLiteral("\\") + c : QString(c);
}

/// The regular expression for what stands between brackets in a wildcard pattern.
QString listExpression(QString list, const TextFolding &folding) {
    if (list == QStringLiteral("!"))
        return list;
    const bool isOthers = list.startsWith(u'!');
    list = folding.folded(isOthers ? list.mid(1) : list);
    QString members;
    for (qsizetype i = 0; i < list.size(); ++i) {
        const bool isRange = list[i] == u'-' && i > 0 && i + 1 < list.size();
        members += isRange ? QStringLiteral("-") : classMember(list[i]);
    }
    if (members.isEmpty())
        return members;
    return (isOthers ? QStringLiteral("[^") : QStringLiteral("[")) + members + u']';
}

} // namespace

TextPattern::TextPattern(const QString &pattern, const PatternOptions &options)
    : options_(options),
      folding_(!options.matchCase,
               !options.matchWidth && options.kind != PatternKind::RegularExpression) {
    if (pattern.isEmpty())
        refuse(texts::NothingToFind.toString());
    switch (options.kind) {
    case PatternKind::Plain: {
        const QString folded = folding_.folded(pattern);
        plain_ = QStringMatcher(folded);
        if (folding_.isExact())
            needle_ = folded.toStdString();
        break;
    }
    case PatternKind::Wildcards:
        compileWildcards(pattern);
        break;
    case PatternKind::RegularExpression:
        // The library knows case better than a table of characters does.
        folding_ = TextFolding(false, false);
        compileExpression(pattern, options.matchCase ? QRegularExpression::NoPatternOption
                                                     : QRegularExpression::CaseInsensitiveOption);
        break;
    }
}

void TextPattern::compileWildcards(const QString &pattern) {
    const runtime::LikePattern checked(pattern);
    QString expression;
    QString literal;
    std::string longest;
    const auto endLiteral = [&] {
        const QString folded = folding_.folded(literal);
        expression += QRegularExpression::escape(folded);
        if (std::string utf8 = folded.toStdString(); utf8.size() > longest.size())
            longest = std::move(utf8);
        literal.clear();
    };
    for (qsizetype at = 0; at < pattern.size(); ++at) {
        const QChar c = pattern[at];
        if (!QStringLiteral("*?#[").contains(c)) {
            literal += c;
            continue;
        }
        endLiteral();
        if (c == u'*') {
            const bool isLast = at + 1 == pattern.size();
            expression += isLast ? QStringLiteral(".*") : QStringLiteral(".*?");
        } else if (c == u'?') {
            expression += u'.';
        } else if (c == u'#') {
            expression += QStringLiteral("[0-9]");
        } else {
            const qsizetype end = pattern.indexOf(u']', at);
            expression += listExpression(pattern.mid(at + 1, end - at - 1), folding_);
            at = end;
        }
    }
    endLiteral();
    if (folding_.isExact())
        needle_ = longest;
    compileExpression(expression, QRegularExpression::DotMatchesEverythingOption);
}

void TextPattern::compileExpression(const QString &expression,
                                    QRegularExpression::PatternOptions flags) {
    expression_ =
        QRegularExpression(expression, flags | QRegularExpression::UseUnicodePropertiesOption);
    if (!expression_.isValid())
        refuse(texts::expressionFault(expression_.errorString(), expression_.patternErrorOffset()));
    expression_.optimize();
}

bool TextPattern::mayBeIn(std::string_view utf8) const {
    return needle_.empty() ||
           ::memmem(utf8.data(), utf8.size(), needle_.data(), needle_.size()) != nullptr;
}

bool TextPattern::isAccepted(QStringView text, const Span &span) const {
    return !options_.wholeWord ||
           (isWordBoundary(text, span.at) && isWordBoundary(text, span.at + span.length));
}

std::optional<Span> TextPattern::find(QStringView text, qsizetype from) const {
    if (options_.kind == PatternKind::Plain) {
        const qsizetype at = plain_.indexIn(text, from);
        return at < 0 ? std::nullopt : std::optional(Span{at, plain_.pattern().size()});
    }
    const QRegularExpressionMatch match = expression_.match(asString(text), from);
    if (!match.isValid())
        refuse(texts::TooManySteps.toString());
    return match.hasMatch() ? std::optional(Span{match.capturedStart(), match.capturedLength()})
                            : std::nullopt;
}

void TextPattern::findAll(QStringView text, std::vector<Span> &spans) const {
    spans.clear();
    const bool isFolded = !folding_.isExact();
    if (isFolded)
        folding_.fold(text, folded_);
    const QStringView searched = isFolded ? folded_.text() : text;
    for (qsizetype from = 0; from <= searched.size();) {
        const std::optional<Span> found = find(searched, from);
        if (!found)
            return;
        Span span = *found;
        const qsizetype end = span.at + span.length;
        bool isGood = span.length > 0 || options_.kind == PatternKind::RegularExpression;
        if (isFolded && isGood) {
            isGood = folded_.isBetweenPieces(span.at) && folded_.isBetweenPieces(end);
            span.at = folded_.original(found->at);
            span.length = folded_.original(end) - span.at;
        }
        isGood = isGood && isAccepted(text, span);
        if (isGood)
            spans.push_back(span);
        from = isGood && found->length > 0 ? end : found->at + 1;
        if (from < searched.size() && searched[from].isLowSurrogate() && from > 0 &&
            searched[from - 1].isHighSurrogate())
            ++from;
    }
}

Replacement::Replacement(const QString &text, const TextPattern &pattern) {
    if (pattern.options().kind == PatternKind::RegularExpression)
        compile(text, pattern.expression());
    else
        pieces_.push_back({text});
}

void Replacement::addText(QChar character) {
    if (pieces_.empty() || pieces_.back().group >= 0)
        pieces_.emplace_back();
    pieces_.back().text += character;
}

void Replacement::addGroup(int group, const QRegularExpression &expression, QStringView written) {
    if (group < 0 || group > expression.captureCount())
        refuse(texts::NoSuchGroup.toString().arg(written));
    pieces_.push_back({{}, group});
    expression_ = expression;
}

void Replacement::compile(const QString &text, const QRegularExpression &expression) {
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar c = text[at];
        const QChar next = at + 1 < text.size() ? text[at + 1] : QChar();
        if (c != u'$' && c != u'\\') {
            addText(c);
        } else if (next == c) {
            addText(c);
            ++at;
        } else if (next >= u'0' && next <= u'9') {
            int group = next.digitValue();
            qsizetype length = 2;
            // A second digit counts only where there are as many groups.
            if (at + 2 < text.size() && text[at + 2] >= u'0' && text[at + 2] <= u'9' &&
                group * 10 + text[at + 2].digitValue() <= expression.captureCount()) {
                group = group * 10 + text[at + 2].digitValue();
                ++length;
            }
            addGroup(group, expression, QStringView(text).mid(at, length));
            at += length - 1;
        } else if (c == u'$' && next == u'&') {
            addGroup(0, expression, u"$&");
            ++at;
        } else if (c == u'$' && next == u'{' && text.indexOf(u'}', at) > 0) {
            const qsizetype end = text.indexOf(u'}', at);
            const QString name = text.mid(at + 2, end - at - 2);
            const qsizetype named = expression.namedCaptureGroups().indexOf(name);
            addGroup(name.isEmpty() ? -1 : int(named), expression,
                     QStringView(text).mid(at, end - at + 1));
            at = end;
        } else if (c == u'\\' && (next == u'n' || next == u't')) {
            addText(next == u'n' ? u'\n' : u'\t');
            ++at;
        } else {
            addText(c);
        }
    }
}

QString Replacement::at(QStringView text, const Span &span) const {
    if (isFixed())
        return pieces_.empty() ? QString() : pieces_[0].text;
    const QRegularExpressionMatch match =
        expression_.match(asString(text), span.at, QRegularExpression::NormalMatch,
                          QRegularExpression::AnchorAtOffsetMatchOption);
    QString out;
    for (const Piece &piece : pieces_)
        out += piece.group < 0 ? piece.text : match.captured(piece.group);
    return out;
}

} // namespace quillon::search
