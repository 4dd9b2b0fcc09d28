#include "source/tag_pairs.h"

#include "completion/markup_token.h"

#include <array>

namespace quillon::source {

using completion::Place;
using completion::TextContext;
using ui::TextPair;
using ui::TextStretch;

namespace {

constexpr qsizetype FarthestTag = 2 * 1024 * 1024;
constexpr qsizetype FarthestBracket = 64 * 1024;

struct Bracket {
    QByteArrayView opening;
    QByteArrayView closing;
};

// The Japanese ones: 「」 『』 （） 【】 〔〕 ［］ ｛｝ 〈〉 《》.
constexpr std::array Brackets{
    Bracket{"(", ")"},           Bracket{"[", "]"},           Bracket{"{", "}"},
    Bracket{"\u300c", "\u300d"}, Bracket{"\u300e", "\u300f"}, Bracket{"\uff08", "\uff09"},
    Bracket{"\u3010", "\u3011"}, Bracket{"\u3014", "\u3015"}, Bracket{"\uff3b", "\uff3d"},
    Bracket{"\uff5b", "\uff5d"}, Bracket{"\u3008", "\u3009"}, Bracket{"\u300a", "\u300b"},
};

TextStretch placeOf(const Stretch &stretch) {
    return {stretch.start, stretch.end - stretch.start};
}

bool isEndTag(QByteArrayView text, const Stretch &tag) {
    return tag.in(text).startsWith("</");
}

bool isEmptyElement(QByteArrayView text, const Stretch &tag) {
    return tag.in(text).endsWith("/>");
}

/// The start tag that a caret is in, or whose end tag or content it is in; empty for none.
Stretch startTagAt(const TextContext &context, QByteArrayView text) {
    if (!context.tag.isEmpty() && !isEndTag(text, context.tag))
        return context.isTagClosed ? context.tag : Stretch();
    const bool isInElement = !context.tag.isEmpty() || context.place == Place::Content;
    return isInElement && !context.open.empty() ? context.open.back() : Stretch();
}

std::optional<TextPair> pairFrom(QByteArrayView text, const Bracket &bracket, qsizetype at,
                                 bool isOpening) {
    const QByteArrayView own = isOpening ? bracket.opening : bracket.closing;
    const QByteArrayView other = isOpening ? bracket.closing : bracket.opening;
    const qsizetype step = isOpening ? 1 : -1;
    int depth = 0;
    for (qsizetype i = at; i >= 0 && i < text.size() && std::abs(i - at) <= FarthestBracket;
         i += step) {
        // UTF-8 says by its first byte where a character begins.
        const QByteArrayView rest = text.sliced(i);
        if (rest.startsWith(own))
            ++depth;
        else if (rest.startsWith(other) && --depth == 0)
            return TextPair{{at, own.size()}, {i, other.size()}};
    }
    return {};
}

} // namespace

std::vector<Stretch> tagNamesAt(completion::TextContexts &contexts, QByteArrayView text,
                                qsizetype caret) {
    const TextContext context = contexts.at(text, caret);
    const Stretch startTag = startTagAt(context, text);
    if (startTag.isEmpty())
        return {};
    const Stretch name = tagName(text, startTag);
    if (isEmptyElement(text, startTag))
        return {name};
    const Stretch endTag = completion::endTagOf(text, startTag, FarthestTag);
    if (endTag.isEmpty())
        return {};
    const Stretch endName = tagName(text, endTag);
    if (endName.in(text) != name.in(text))
        return {};
    return {name, endName};
}

std::optional<TextPair> tagPairAt(completion::TextContexts &contexts, QByteArrayView text,
                                  qsizetype caret) {
    const std::vector<Stretch> names = tagNamesAt(contexts, text, caret);
    if (names.size() != 2)
        return {};
    const TextStretch start = placeOf(names[0]);
    const TextStretch end = placeOf(names[1]);
    // A start tag holds the caret up to its ">".
    const completion::MarkupToken tag = completion::tokenAt(text, names[0].start - 1);
    const bool isAtStart = caret > tag.where.start && caret < tag.where.end;
    return isAtStart ? TextPair{start, end} : TextPair{end, start};
}

std::optional<TextPair> bracketPairAt(QByteArrayView text, qsizetype caret) {
    for (const bool isAhead : {true, false}) {
        for (const Bracket &bracket : Brackets) {
            for (const bool isOpening : {true, false}) {
                const QByteArrayView own = isOpening ? bracket.opening : bracket.closing;
                const qsizetype at = isAhead ? caret - own.size() : caret;
                if (at >= 0 && text.sliced(at).startsWith(own))
                    return pairFrom(text, bracket, at, isOpening);
            }
        }
    }
    return {};
}

QByteArray closingAt(completion::TextContexts &contexts, QByteArrayView text, qsizetype caret) {
    // A name that follows is that of a start tag which is made an end tag.
    if (caret < text.size() && completion::isNameByte(text[caret]))
        return {};
    const TextContext context = contexts.at(text, caret);
    if (context.place != Place::EndTag || !context.word.isEmpty() || context.open.empty())
        return {};
    QByteArray name = tagName(text, context.open.back()).in(text).toByteArray();
    return context.isTagClosed ? name : name + '>';
}

} // namespace quillon::source
