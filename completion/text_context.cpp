#include "completion/text_context.h"

#include "completion/markup_token.h"

#include <algorithm>

namespace quillon::completion {

using Kind = MarkupToken::Kind;

namespace {

/// So far back what stands ahead of a caret is looked at anew; so far on what stands behind.
constexpr qsizetype LookBack = 128 * 1024;
constexpr qsizetype LookAhead = 64 * 1024;
constexpr qsizetype MarkDistance = 64 * 1024;
constexpr std::size_t MaxSiblings = 4000;
constexpr qint32 MaxDepth = 1000;
/// So many elements an end tag may leave open that it does not belong to.
constexpr int MaxUnclosed = 50;
/// A longer start tag is not looked into.
constexpr qsizetype MaxTagLength = 256 * 1024;

/// Whether what seems to be a value goes up to the first quote of the next attribute, as in
/// `a="| b="1"`: its own second quote is missing.
bool runsIntoNext(QByteArrayView value) {
    const QByteArrayView trimmed = value.trimmed();
    if (!trimmed.endsWith('='))
        return false;
    const QByteArrayView name = trimmed.chopped(1).trimmed();
    qsizetype start = name.size();
    while (start > 0 && isNameByte(name[start - 1]))
        --start;
    return start < name.size() && (start > 0 ? isBlank(name[start - 1]) : isBlank(value[0]));
}

qsizetype skipBlanks(QByteArrayView text, qsizetype at, qsizetype end) {
    while (at < end && isBlank(text[at]))
        ++at;
    return at;
}

/// Reads the value of an attribute behind its "=", and returns where it ends.
qsizetype readValue(QByteArrayView text, qsizetype at, qsizetype end, TextAttribute &attribute) {
    at = skipBlanks(text, at, end);
    attribute.value = {at, at};
    if (at == end || (text[at] != '"' && text[at] != '\'')) {
        // A value without quotes, of which there are none.
        const qsizetype from = at;
        while (at < end && !isBlank(text[at]) && text[at] != '>' && text[at] != '/')
            ++at;
        attribute.value = {from, at};
        return at;
    }
    attribute.quote = text[at];
    const qsizetype from = ++at;
    while (at < end && text[at] != attribute.quote)
        ++at;
    attribute.value = {from, at};
    attribute.isClosed = at < end;
    if (attribute.isClosed && runsIntoNext(attribute.value.in(text))) {
        attribute.isClosed = false;
        for (at = from; !isBlank(text[at]);)
            ++at;
        attribute.value.end = at;
    }
    return attribute.isClosed ? at + 1 : at;
}

/// What stands behind a place in the same element, and the end of the element that begins there.
class Following {
public:
    Following(QByteArrayView text, const TextContext &context) : text_(text) {
        if (!context.open.empty())
            around_ = tagName(text, context.open.back()).in(text);
    }
    explicit Following(QByteArrayView text) : text_(text) {}

    /// Goes up to the end tag that belongs to a start tag.
    void readToOwnEnd(const Stretch &startTag, qsizetype lookAhead) {
        inside_.push_back(tagName(text_, startTag).in(text_));
        isInOwn_ = true;
        const qsizetype limit = std::min(text_.size(), startTag.end + lookAhead);
        for (qsizetype at = nextMarkup(text_, startTag.end); at < limit && isInOwn_;
             at = nextMarkup(text_, at)) {
            const MarkupToken token = tokenAt(text_, at);
            if (!take(token))
                return;
            at = token.where.end;
        }
    }

    /// `own`: the name of the element whose start tag ends at `from`; empty for none.
    void read(qsizetype from, QByteArrayView own) {
        if (!own.isEmpty())
            inside_.push_back(own);
        isInOwn_ = !own.isEmpty();
        const qsizetype limit = std::min(text_.size(), from + LookAhead);
        for (qsizetype at = nextMarkup(text_, from); at < limit && siblings.size() < MaxSiblings;
             at = nextMarkup(text_, at)) {
            const MarkupToken token = tokenAt(text_, at);
            if (!take(token))
                return;
            at = token.where.end;
        }
    }

    std::vector<Stretch> siblings;
    Stretch ownEnd;

private:
    bool take(const MarkupToken &token) {
        if (token.kind == Kind::EndTag)
            return close(token.where);
        if (token.kind != Kind::StartTag && token.kind != Kind::EmptyTag)
            return true;
        if (inside_.empty())
            siblings.push_back(token.where);
        if (token.kind == Kind::StartTag)
            inside_.push_back(tagName(text_, token.where).in(text_));
        return true;
    }

    /// False when that is the end of the element around all of it.
    bool close(const Stretch &tag) {
        const QByteArrayView name = tagName(text_, tag).in(text_);
        const auto last = inside_.rbegin() + std::min(std::ssize(inside_), MaxUnclosed + 1L);
        const auto match = std::find(inside_.rbegin(), last, name);
        if (match != last) {
            inside_.erase(std::prev(match.base()), inside_.end());
        } else if (name == around_ || inside_.empty()) {
            return false;
        } else if (isInOwn_ && inside_.size() == 1) {
            // The name of the start tag is being changed, and this one's is to follow.
            inside_.clear();
        }
        if (isInOwn_ && inside_.empty()) {
            ownEnd = tag;
            isInOwn_ = false;
        }
        return true;
    }

    QByteArrayView text_;
    QByteArrayView around_;
    std::vector<QByteArrayView> inside_;
    bool isInOwn_ = false;
};

void placeInContent(QByteArrayView text, qsizetype from, qsizetype caret, TextContext &context) {
    context.place = Place::Content;
    context.run = {from, nextMarkup(text, caret)};
    qsizetype start = caret;
    while (start > from && isNameByte(text[start - 1]))
        --start;
    context.word = {start, caret};
}

void placeInStartTag(QByteArrayView text, const MarkupToken &token, qsizetype caret,
                     TextContext &context) {
    context.tag = token.where;
    context.isTagClosed = token.isClosed;
    const Stretch name = tagName(text, token.where);
    context.place = Place::ElementName;
    context.word = {name.start, token.isClosed ? name.end : caret};
    if (caret <= name.end)
        return;
    context.place = Place::AttributeName;
    context.word = {caret, caret};
    for (const TextAttribute &attribute : tagAttributes(text, token.where)) {
        // At its start another one is put ahead of it.
        if (caret > attribute.name.start && caret <= attribute.name.end) {
            const bool standsAlready = attribute.hasEquals || token.isClosed;
            context.word = {attribute.name.start, standsAlready ? attribute.name.end : caret};
            context.attribute = attribute;
        }
        const bool isInQuotes =
            attribute.quote && caret >= attribute.value.start && caret <= attribute.value.end;
        const bool isAtValue = attribute.hasEquals && !attribute.quote &&
                               caret > attribute.name.end && caret <= attribute.value.end;
        if (isInQuotes || isAtValue) {
            context.place = Place::AttributeValue;
            context.attribute = attribute;
            context.word = attribute.isClosed
                               ? attribute.value
                               : Stretch{std::min(attribute.value.start, caret), caret};
            return;
        }
    }
    // Behind the "/" of an empty element, and right behind a quote, no name begins.
    if (context.word.isEmpty() && !isBlank(text[caret - 1]))
        context.place = Place::Nowhere;
}

} // namespace

Stretch tagName(QByteArrayView text, const Stretch &tag) {
    const qsizetype start = tag.start + (text.sliced(tag.start).startsWith("</") ? 2 : 1);
    return {start, nameEnd(text, start)};
}

Stretch endTagOf(QByteArrayView text, const Stretch &startTag, qsizetype lookAhead) {
    Following following(text);
    following.readToOwnEnd(startTag, lookAhead);
    return following.ownEnd;
}

std::vector<TextAttribute> tagAttributes(QByteArrayView text, const Stretch &tag) {
    std::vector<TextAttribute> attributes;
    qsizetype at = tagName(text, tag).end;
    while (at < tag.end) {
        const qsizetype end = std::min(nameEnd(text, at), tag.end);
        if (end == at) {
            ++at;
            continue;
        }
        TextAttribute attribute;
        attribute.name = {at, end};
        attribute.value = {end, end};
        at = skipBlanks(text, end, tag.end);
        if (at < tag.end && text[at] == '=') {
            attribute.hasEquals = true;
            at = readValue(text, at + 1, tag.end, attribute);
        }
        attributes.push_back(attribute);
    }
    return attributes;
}

void TextContexts::textChanged(qsizetype from) {
    while (!marks_.empty() && marks_.back().at >= from)
        marks_.pop_back();
    opened_.resize(marks_.empty() ? 0 : std::size_t(marks_.back().openedCount));
}

TextContexts::Mark TextContexts::startFor(qsizetype caret) const {
    const auto behind = std::ranges::upper_bound(marks_, caret - LookBack, {}, &Mark::at);
    return behind == marks_.begin() ? Mark() : *std::prev(behind);
}

qint32 TextContexts::depthOf(const Mark &mark) const {
    return mark.innermost < 0 ? 0 : opened_[std::size_t(mark.innermost)].depth;
}

void TextContexts::open(Mark &mark, const Stretch &tag, const Stretch &name) {
    opened_.push_back({tag, name, mark.innermost, depthOf(mark) + 1});
    mark.innermost = qint32(opened_.size()) - 1;
}

void TextContexts::close(Mark &mark, QByteArrayView text, const Stretch &endTag) {
    const QByteArrayView name = tagName(text, endTag).in(text);
    qint32 closed = mark.innermost;
    int unclosed = 0;
    while (closed >= 0 && opened_[std::size_t(closed)].name.in(text) != name)
        closed = ++unclosed > MaxUnclosed ? -1 : opened_[std::size_t(closed)].parent;
    // An end that belongs to nothing near is passed over.
    if (closed < 0)
        return;
    mark.innermost = opened_[std::size_t(closed)].parent;
    // What no mark refers to is not needed any more.
    const qint32 kept = marks_.empty() ? 0 : marks_.back().openedCount;
    while (qint32(opened_.size()) > std::max(kept, closed))
        opened_.pop_back();
}

TextContexts::Mark TextContexts::advance(QByteArrayView text, Mark from, qsizetype caret,
                                         std::vector<Met> &met) {
    Mark mark = from;
    for (;;) {
        const qsizetype lastMark = marks_.empty() ? 0 : marks_.back().at;
        if (mark.at >= lastMark + MarkDistance) {
            mark.openedCount = qint32(opened_.size());
            marks_.push_back(mark);
        }
        const qsizetype at = nextMarkup(text, mark.at);
        if (at >= caret)
            return mark;
        const MarkupToken token = tokenAt(text, at);
        if (caret < token.where.end || (caret == token.where.end && !token.isClosed))
            return mark;
        if (token.kind == Kind::StartTag || token.kind == Kind::EmptyTag) {
            if (at >= caret - LookBack)
                met.push_back({token.where, depthOf(mark) + 1});
            if (token.kind == Kind::StartTag)
                open(mark, token.where, tagName(text, token.where));
        } else if (token.kind == Kind::EndTag) {
            close(mark, text, token.where);
            while (!met.empty() && met.back().depth > depthOf(mark) + 1)
                met.pop_back();
        }
        mark.at = token.where.end;
    }
}

std::vector<Stretch> TextContexts::openAt(const Mark &mark) const {
    std::vector<Stretch> open;
    for (qint32 at = mark.innermost; at >= 0; at = opened_[std::size_t(at)].parent)
        open.push_back(opened_[std::size_t(at)].tag);
    std::ranges::reverse(open);
    return open;
}

TextContext TextContexts::at(QByteArrayView text, qsizetype caret) {
    TextContext context;
    caret = std::clamp<qsizetype>(caret, 0, text.size());
    std::vector<Met> met;
    // All marks up to the caret are made on the way, the last of them behind the place that
    // siblings are looked for from.
    const Mark mark = advance(text, startFor(caret), caret, met);
    if (depthOf(mark) <= MaxDepth) {
        context.open = openAt(mark);
        for (const Met &element : met) {
            if (element.depth == depthOf(mark) + 1)
                context.before.push_back(element.tag);
        }
        if (context.before.size() > MaxSiblings)
            context.before.erase(context.before.begin(), context.before.end() - MaxSiblings);
    }
    opened_.resize(marks_.empty() ? 0 : std::size_t(marks_.back().openedCount));
    if (depthOf(mark) > MaxDepth)
        return context;

    Following following(text, context);
    const qsizetype at = nextMarkup(text, mark.at);
    if (at >= caret) {
        placeInContent(text, mark.at, caret, context);
        following.read(caret, {});
    } else if (const MarkupToken token = tokenAt(text, at); token.kind == Kind::EndTag) {
        context.tag = token.where;
        context.isTagClosed = token.isClosed;
        const Stretch name = tagName(text, token.where);
        if (caret >= name.start && caret <= name.end) {
            context.place = Place::EndTag;
            context.word = {name.start, token.isClosed ? name.end : caret};
        }
    } else if (token.kind != Kind::Other && token.where.end - token.where.start < MaxTagLength) {
        placeInStartTag(text, token, caret, context);
        const bool hasContent = token.kind == Kind::StartTag && token.isClosed;
        following.read(token.where.end,
                       hasContent ? tagName(text, token.where).in(text) : QByteArrayView());
        context.endTag = following.ownEnd;
    }
    context.after = std::move(following.siblings);
    return context;
}

} // namespace quillon::completion
