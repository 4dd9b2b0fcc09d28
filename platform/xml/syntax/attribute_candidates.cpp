#include "platform/xml/syntax/mend_candidates.h"
#include "resources/syntax_texts.h"

#include <algorithm>
#include <set>

namespace quillon::xml {

namespace texts = resources::syntax_texts;
using namespace markup;

namespace {

bool isQuote(char c) {
    return c == '"' || c == '\'';
}

char charAt(QByteArrayView text, qsizetype at) {
    return at >= 0 && at < text.size() ? text[at] : '\0';
}

/// Where the tag that a place stands in may end: the next "<" or ">".
qsizetype tagLimit(QByteArrayView text, qsizetype at) {
    while (at < text.size() && text[at] != '<' && text[at] != '>')
        ++at;
    return at;
}

/// The blank ahead of the next attribute with a quoted value; `limit` when there is none.
qsizetype aheadOfNextAttribute(QByteArrayView text, qsizetype at, qsizetype limit) {
    for (; at < limit; ++at) {
        if (!isBlank(text[at]))
            continue;
        const qsizetype name = behindBlanks(text, at);
        const qsizetype end = nameEnd(text, name);
        const qsizetype equals = behindBlanks(text, end);
        if (end > name && equals < limit && text[equals] == '=' &&
            isQuote(charAt(text, behindBlanks(text, equals + 1))))
            return at;
        at = std::max(at, name - 1);
    }
    return limit;
}

/// Where a value that starts at a place may end, the most likely place first.
std::vector<qsizetype> likelyEnds(QByteArrayView text, qsizetype start) {
    const qsizetype limit = tagLimit(text, start);
    const auto isLineEnd = [](char c) { return c == '\n' || c == '\r'; };
    const qsizetype lineEnd =
        std::find_if(text.begin() + start, text.begin() + limit, isLineEnd) - text.begin();
    std::vector<qsizetype> ends;
    const auto add = [&](qsizetype end) {
        end = aheadOfBlanks(text, end, start);
        if (std::ranges::find(ends, end) == ends.end())
            ends.push_back(end);
    };
    if (const qsizetype next = aheadOfNextAttribute(text, start, limit); next < limit) {
        add(next);
        return ends;
    }
    if (lineEnd < limit)
        add(lineEnd);
    if (charAt(text, limit) == '>' && limit > start && text[limit - 1] == '/')
        add(limit - 1);
    add(limit);
    return ends;
}

QString withValue(const Cause &cause, const QByteArray &value) {
    return shownInTitle(cause.name) + u'=' + shownInTitle(value);
}

void addForUnquoted(QByteArrayView text, const Cause &cause, std::vector<SyntaxMend> &mends) {
    const qsizetype start = cause.start;
    const qsizetype limit = tagLimit(text, start);
    // Only the mark that opens it may be missing.
    const auto closing = std::find_if(text.begin() + start, text.begin() + limit, isQuote);
    const qsizetype close = closing - text.begin();
    if (close < limit && charAt(text, aheadOfBlanks(text, close, start) - 1) != '=') {
        const QByteArray quote(1, *closing);
        mends.push_back({texts::QuoteValue.toString().arg(withValue(
                             cause, quote + text.sliced(start, close + 1 - start).toByteArray())),
                         {{start, 0, quote}}});
        return;
    }
    const qsizetype wordEnd = start + cause.length;
    std::vector<qsizetype> ends{wordEnd};
    if (text.sliced(wordEnd).startsWith("/>"))
        ends.push_back(wordEnd + 1);
    for (const qsizetype end : likelyEnds(text, start))
        ends.push_back(end);
    std::set<qsizetype> done;
    for (const qsizetype end : ends) {
        const QByteArrayView value = text.sliced(start, end - start);
        if (value.isEmpty() || !done.insert(end).second)
            continue;
        const QByteArray quote = value.contains('"') ? "'" : "\"";
        mends.push_back({texts::QuoteValue.toString().arg(
                             withValue(cause, quote + value.toByteArray() + quote)),
                         {{start, 0, quote}, {end, 0, quote}}});
    }
}

void addForUnclosedQuote(QByteArrayView text, const Cause &cause, std::vector<SyntaxMend> &mends) {
    const QByteArray quote(1, text[cause.start]);
    for (const qsizetype end : likelyEnds(text, cause.start + 1)) {
        const QByteArray value = text.sliced(cause.start, end - cause.start).toByteArray();
        // Closed by the mark of the other kind.
        if (value.size() > 1 && isQuote(value.back())) {
            const QByteArray better = value.chopped(1) + quote;
            mends.push_back({texts::CloseQuote.toString().arg(withValue(cause, better)),
                             {{end - 1, 1, quote}}});
        }
        mends.push_back(
            {texts::CloseQuote.toString().arg(withValue(cause, value + quote)), {{end, 0, quote}}});
    }
}

/// The places behind the "=" and behind the value of an attribute that is well-formed.
struct AttributeEnd {
    qsizetype value = 0;
    qsizetype end = 0;
};
AttributeEnd attributeEnd(QByteArrayView text, qsizetype name) {
    const qsizetype equals = text.indexOf('=', name);
    const qsizetype quote = behindBlanks(text, equals + 1);
    const qsizetype close = text.indexOf(charAt(text, quote), quote + 1);
    return {quote, close < 0 ? text.size() : close + 1};
}

void addForDuplicate(QByteArrayView text, const Cause &cause, std::vector<SyntaxMend> &mends) {
    const AttributeEnd first = attributeEnd(text, cause.other);
    const AttributeEnd second = attributeEnd(text, cause.start);
    const auto valueOf = [&](const AttributeEnd &place) {
        return text.sliced(place.value, place.end - place.value).toByteArray();
    };
    std::set<QByteArrayView> names;
    for (qsizetype at = nameEnd(text, cause.piece.start + 1); at < cause.piece.end;) {
        const qsizetype name = behindBlanks(text, at);
        const qsizetype end = nameEnd(text, name);
        if (end == name)
            break;
        names.insert(text.sliced(name, end - name));
        at = attributeEnd(text, name).end;
    }
    const QByteArray stem = cause.name.toByteArray();
    int number = 2;
    while (names.contains(stem + QByteArray::number(number)))
        ++number;
    const QByteArray other = stem + QByteArray::number(number);
    const auto removal = [&](const AttributeEnd &place, qsizetype name, QStringView title) {
        const qsizetype start = aheadOfBlanks(text, name);
        return SyntaxMend{title.toString().arg(withValue(cause, valueOf(place))),
                          {{start, place.end - start, {}}}};
    };
    mends.push_back(
        {texts::RenameSecondAttribute.toString().arg(shownInTitle(cause.name), shownInTitle(other)),
         {{cause.start, cause.length, other}}});
    const auto place = valueOf(first) == valueOf(second) ? mends.begin() : mends.end();
    mends.insert(place, removal(second, cause.start, texts::RemoveSecondAttribute));
    if (valueOf(first) != valueOf(second))
        mends.push_back(removal(first, cause.other, texts::RemoveFirstAttribute));
}

void addForMissingValue(QByteArrayView text, const Cause &cause, std::vector<SyntaxMend> &mends) {
    const qsizetype end = cause.start + cause.length;
    const qsizetype equals = behindBlanks(text, end);
    const bool hasEquals = charAt(text, equals) == '=';
    const qsizetype at = hasEquals ? equals + 1 : end;
    const QByteArray ahead = hasEquals ? "" : "=";
    const QByteArray name = cause.name.toByteArray();
    // The shorter form for the empty value comes second: what is left out elsewhere is "on".
    for (const QByteArray &value : {QByteArray('"' + name + '"'), QByteArray("\"\"")})
        mends.push_back(
            {texts::SetValue.toString().arg(withValue(cause, value)), {{at, 0, ahead + value}}});
    const qsizetype start = aheadOfBlanks(text, cause.start);
    mends.push_back({texts::RemoveAttribute.toString().arg(shownInTitle(cause.name)),
                     {{start, at - start, {}}}});
}

} // namespace

std::vector<SyntaxMend> attributeCandidates(QByteArrayView text, const Cause &cause) {
    std::vector<SyntaxMend> mends;
    switch (cause.kind) {
    case SyntaxFaultKind::UnquotedValue:
        addForUnquoted(text, cause, mends);
        break;
    case SyntaxFaultKind::UnclosedQuote:
        addForUnclosedQuote(text, cause, mends);
        break;
    case SyntaxFaultKind::DuplicateAttribute:
        addForDuplicate(text, cause, mends);
        break;
    case SyntaxFaultKind::MissingEquals:
        mends.push_back({texts::InsertEquals.toString().arg(shownInTitle(cause.name)),
                         {{cause.start + cause.length, 0, "="}}});
        break;
    case SyntaxFaultKind::MissingValue:
        addForMissingValue(text, cause, mends);
        break;
    case SyntaxFaultKind::MissingBlank:
        mends.push_back(
            {texts::InsertBlank.toString().arg(shownInTitle(cause.name)), {{cause.start, 0, " "}}});
        break;
    default:
        break;
    }
    return mends;
}

} // namespace quillon::xml
