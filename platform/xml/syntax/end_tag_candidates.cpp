#include "platform/xml/syntax/mend_candidates.h"
#include "resources/syntax_texts.h"

#include <algorithm>

namespace quillon::xml {

namespace texts = resources::syntax_texts;
using Kind = MarkupPiece::Kind;
using namespace markup;

namespace {

/// More elements than these are closed together, where the first end tag does not fit.
constexpr std::size_t MostPlaced = 64;

/// An element that is not closed, and the place ahead of which it has to be.
struct Unclosed {
    qsizetype start = 0;
    qsizetype limit = 0;
};

qsizetype tagEnd(QByteArrayView text, qsizetype tag) {
    MarkupPiece piece;
    MarkupReader(text, tag).next(piece);
    return piece.end;
}

/// Where the content of an element ends by the looks of it: ahead of the first line that is not
/// indented deeper than its own.
qsizetype contentEnd(QByteArrayView text, const Unclosed &element) {
    const qsizetype contentStart = tagEnd(text, element.start);
    const Indent own = indentAt(text, element.start);
    qsizetype end = element.limit;
    if (own.isOnlyBlanks) {
        MarkupReader reader(text, contentStart);
        int depth = 0;
        for (MarkupPiece piece; reader.next(piece) && piece.start < element.limit;) {
            if (piece.kind == Kind::EndTag) {
                --depth;
                continue;
            }
            const bool isTag = piece.kind == Kind::StartTag || piece.kind == Kind::EmptyTag;
            if (isTag && depth == 0) {
                const Indent indent = indentAt(text, piece.start);
                if (indent.isOnlyBlanks && indent.blanks.size() <= own.blanks.size()) {
                    end = piece.start;
                    break;
                }
            }
            depth += piece.kind == Kind::StartTag ? 1 : 0;
        }
    }
    return std::max(aheadOfBlanks(text, end, contentStart), contentStart);
}

/// The end tag of an element, on a line of its own where the content begins on one.
QByteArray endTagFor(QByteArrayView text, qsizetype start, qsizetype place) {
    const QByteArray tag = "</" + tagName(text, start).toByteArray() + '>';
    const qsizetype contentStart = tagEnd(text, start);
    const Indent own = indentAt(text, start);
    if (!own.isOnlyBlanks || place == contentStart)
        return tag;
    qsizetype lineEnd = contentStart;
    while (lineEnd < text.size() && (text[lineEnd] == ' ' || text[lineEnd] == '\t'))
        ++lineEnd;
    if (lineEnd >= text.size() || (text[lineEnd] != '\n' && text[lineEnd] != '\r'))
        return tag;
    const QByteArray newline = text.sliced(lineEnd).startsWith("\r\n") ? "\r\n" : "\n";
    return newline + own.blanks.toByteArray() + tag;
}

/// From the innermost to the outermost.
std::vector<Unclosed> unclosedIn(QByteArrayView text, const Cause &cause) {
    std::vector<Unclosed> elements;
    for (std::size_t at = cause.open.size(); at-- > cause.firstUnclosed;) {
        const OpenTag &tag = cause.open[at];
        if (tag.suspect >= 0)
            elements.push_back({tag.suspect, tag.takenEnd});
        else
            elements.push_back({tag.start, cause.piece.start});
    }
    // What closes early closes ahead of what has begun inside it, but not of its siblings.
    if (elements.size() <= MostPlaced) {
        for (std::size_t outer = elements.size(); outer-- > 1;) {
            const qsizetype place = contentEnd(text, elements[outer]);
            for (std::size_t inner = 0; inner < outer; ++inner)
                if (elements[inner].start < place)
                    elements[inner].limit = std::min(elements[inner].limit, place);
        }
    }
    return elements;
}

/// End tags, each where its element ends by the looks of it.
std::vector<Replacement> placedEndTags(QByteArrayView text, const std::vector<Unclosed> &elements) {
    std::vector<Replacement> insertions;
    for (const Unclosed &element : elements) {
        const qsizetype place = contentEnd(text, element);
        insertions.push_back({place, 0, endTagFor(text, element.start, place)});
    }
    std::ranges::stable_sort(insertions, {}, &Replacement::start);
    return insertions;
}

/// All end tags where the first one does not fit.
std::vector<Replacement> endTagsAt(QByteArrayView text, const std::vector<Unclosed> &elements,
                                   qsizetype place) {
    const qsizetype least = tagEnd(text, elements.front().start);
    const qsizetype at = aheadOfBlanks(text, place, std::min(least, place));
    QByteArray tags;
    for (const Unclosed &element : elements)
        tags += elements.size() <= MostPlaced
                    ? endTagFor(text, element.start, at)
                    : "</" + tagName(text, element.start).toByteArray() + '>';
    return {{at, 0, tags}};
}

QString insertionTitle(QByteArrayView text, const std::vector<Unclosed> &elements,
                       const std::vector<Replacement> &insertions) {
    if (elements.size() > 1)
        return texts::InsertEndTags.toString().arg(elements.size());
    return texts::InsertEndTag.toString().arg(
        shownInTitle(tagName(text, elements.front().start)),
        QString::number(placeInText(text, insertions.front().start).line));
}

Replacement renamed(QByteArrayView text, qsizetype tag, QByteArrayView name) {
    const QByteArrayView old = tagName(text, tag);
    return {old.data() - text.data(), old.size(), name.toByteArray()};
}

Replacement removed(QByteArrayView text, qsizetype start, qsizetype end) {
    const Stretch stretch = withOwnLine(text, start, end);
    return {stretch.start, stretch.end - stretch.start, {}};
}

void addForUnclosed(QByteArrayView text, const Cause &cause, std::vector<SyntaxMend> &mends) {
    const std::vector<Unclosed> elements = unclosedIn(text, cause);
    const std::vector<Replacement> atOnce = endTagsAt(text, elements, cause.piece.start);
    if (elements.size() <= MostPlaced) {
        const std::vector<Replacement> placed = placedEndTags(text, elements);
        mends.push_back({insertionTitle(text, elements, placed), placed});
    }
    // Indentation that tells of another element has been gone by.
    const bool hasSuspect = cause.open.back().suspect >= 0 && !mends.empty();
    if (!hasSuspect && (mends.empty() || mends.front().replacements != atOnce))
        mends.push_back({insertionTitle(text, elements, atOnce), atOnce});
    if (elements.size() == 1) {
        const QString name = shownInTitle(cause.name);
        const qsizetype end = tagEnd(text, cause.start);
        mends.push_back({texts::MakeEmpty.toString().arg(name), {{end - 1, 0, "/"}}});
        mends.push_back({texts::RemoveStartTag.toString().arg(
                             name, QString::number(placeInText(text, cause.start).line)),
                         {removed(text, cause.start, end)}});
    }
}

void addForEndTag(QByteArrayView text, const Cause &cause, std::vector<SyntaxMend> &mends) {
    const qsizetype tag = cause.piece.start;
    const QByteArrayView name = tagName(text, tag);
    if (!cause.open.empty()) {
        const qsizetype start = cause.open.back().start;
        const QByteArrayView startName = tagName(text, start);
        mends.push_back(
            {texts::RenameEndTag.toString().arg(shownInTitle(name), shownInTitle(startName)),
             {renamed(text, tag, startName)}});
        mends.push_back(
            {texts::RenameStartTag.toString().arg(shownInTitle(startName), shownInTitle(name),
                                                  QString::number(placeInText(text, start).line)),
             {renamed(text, start, name)}});
    }
    mends.push_back({texts::RemoveEndTag.toString().arg(shownInTitle(name)),
                     {removed(text, tag, cause.piece.end)}});
}

} // namespace

std::vector<SyntaxMend> endTagCandidates(QByteArrayView text, const Cause &cause) {
    std::vector<SyntaxMend> mends;
    if (cause.kind == SyntaxFaultKind::MissingEndTag)
        addForUnclosed(text, cause, mends);
    if (cause.piece.kind == Kind::EndTag)
        addForEndTag(text, cause, mends);
    return mends;
}

} // namespace quillon::xml
