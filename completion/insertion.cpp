#include "completion/insertion.h"

#include "completion/markup_token.h"

#include <algorithm>

namespace quillon::completion {

using Kind = MarkupToken::Kind;
using ui::Insertion;

namespace {

/// The blanks that the line of a place begins with.
QByteArray indentAt(QByteArrayView text, qsizetype at) {
    qsizetype start = at;
    while (start > 0 && text[start - 1] != '\n')
        --start;
    qsizetype end = start;
    while (end < at && (text[end] == ' ' || text[end] == '\t'))
        ++end;
    return text.sliced(start, end - start).toByteArray();
}

QByteArray indentStep(const QByteArray &indent) {
    return indent.contains('\t') ? QByteArray("\t") : QByteArray("  ");
}

/// Markup on one line with its elements on lines of their own, the first of them where it is put.
/// What has text in it, or nothing, stays on its line.
QByteArray laidOut(const QByteArray &markup, const QByteArray &indent) {
    const QByteArray step = indentStep(indent);
    QByteArray result;
    int depth = 0;
    Kind last = Kind::Other;
    bool isBehindText = false;
    for (qsizetype at = 0; at < markup.size();) {
        const MarkupToken token = tokenAt(markup, at);
        const bool isEnd = token.kind == Kind::EndTag;
        depth -= isEnd ? 1 : 0;
        const bool closesAtOnce = isEnd && last == Kind::StartTag;
        if (at > 0 && !isBehindText && !closesAtOnce)
            result += '\n' + indent + step.repeated(depth);
        const qsizetype next = nextMarkup(markup, token.where.end);
        result += token.where.in(markup);
        result += QByteArrayView(markup).sliced(token.where.end, next - token.where.end);
        isBehindText = next > token.where.end;
        depth += token.kind == Kind::StartTag ? 1 : 0;
        last = token.kind;
        at = next;
    }
    return result;
}

/// Where one goes on typing in an element.
qsizetype caretIn(const QByteArray &markup) {
    const qsizetype emptyValue = markup.indexOf("=\"\"");
    if (emptyValue >= 0)
        return emptyValue + 2;
    for (qsizetype at = 0; at < markup.size();) {
        const MarkupToken token = tokenAt(markup, at);
        const qsizetype behind = token.where.end;
        const bool isEmpty =
            token.kind == Kind::StartTag && QByteArrayView(markup).sliced(behind).startsWith("</");
        if (isEmpty)
            return behind;
        at = nextMarkup(markup, behind);
    }
    return markup.size();
}

QByteArray escaped(const QString &value, char quote) {
    QByteArray bytes = value.toUtf8().replace('&', "&amp;").replace('<', "&lt;");
    if (quote == '"')
        bytes.replace('"', "&quot;");
    else if (quote == '\'')
        bytes.replace('\'', "&apos;");
    return bytes;
}

/// The tag of the place stands already, and its name alone is chosen anew.
bool isStandingTag(QByteArrayView text, const TextContext &context) {
    if (context.place != Place::ElementName)
        return false;
    return context.isTagClosed ||
           std::ranges::any_of(tagAttributes(text, context.tag), &TextAttribute::hasEquals);
}

Insertion renamedTag(QByteArrayView text, const TextContext &context, const QByteArray &name) {
    Insertion insertion{context.word.start, context.word.end, name, name.size()};
    if (context.endTag.isEmpty())
        return insertion;
    const Stretch endName = tagName(text, context.endTag);
    insertion.end = endName.end;
    insertion.text += Stretch{context.word.end, endName.start}.in(text);
    insertion.text += name;
    return insertion;
}

} // namespace

Insertion insertedElement(QByteArrayView text, const TextContext &context,
                          const QByteArray &markup) {
    if (isStandingTag(text, context))
        return renamedTag(text, context,
                          tagName(markup, {0, markup.size()}).in(markup).toByteArray());
    const bool isInTag = context.place == Place::ElementName;
    Insertion insertion;
    insertion.start = isInTag ? context.tag.start : context.word.start;
    insertion.end = context.word.end;
    insertion.text = laidOut(markup, indentAt(text, insertion.start));
    insertion.caret = caretIn(insertion.text);
    insertion.goesOn = insertion.caret > 0 && insertion.text[insertion.caret - 1] == '"';
    return insertion;
}

Insertion insertedAttribute(QByteArrayView text, const TextContext &context, const QByteArray &name,
                            const QString &value, const QByteArray &declaration) {
    Insertion insertion{context.word.start, context.word.end, name, name.size()};
    if (context.attribute.hasEquals)
        return insertion;
    insertion.text += "=\"" + escaped(value, '"') + '"';
    insertion.goesOn = value.isEmpty();
    insertion.caret = insertion.text.size() - (value.isEmpty() ? 1 : 0);
    insertion.text += declaration;
    // Ahead of another attribute there has to be a blank.
    if (context.word.end < text.size() && isNameByte(text[context.word.end]))
        insertion.text += ' ';
    return insertion;
}

Insertion insertedValue(QByteArrayView text, const TextContext &context, const Stretch &word,
                        const QString &value) {
    const TextAttribute &attribute = context.attribute;
    const char quote = attribute.quote ? attribute.quote : '"';
    Insertion insertion{word.start, word.end, escaped(value, quote), 0};
    if (!attribute.quote)
        insertion.text.prepend(quote);
    insertion.caret = insertion.text.size();
    // In a list one goes on; behind a value one leaves it.
    if (attribute.isClosed) {
        insertion.caret += word.end == attribute.value.end ? 1 : 0;
        // Over the quote, which is written once more to have the caret behind it.
        if (word.end == attribute.value.end) {
            insertion.end += 1;
            insertion.text += quote;
        }
        return insertion;
    }
    insertion.text += quote;
    insertion.caret = insertion.text.size();
    if (word.end < text.size() && isNameByte(text[word.end]))
        insertion.text += ' ';
    return insertion;
}

Insertion insertedText(const Stretch &word, const QString &value) {
    const QByteArray text = escaped(value, 0);
    return {word.start, word.end, text, text.size()};
}

Insertion insertedEndTag(const TextContext &context, const QByteArray &name) {
    QByteArray text = name;
    if (!context.isTagClosed)
        text += '>';
    return {context.word.start, context.word.end, text, text.size()};
}

Stretch itemAt(QByteArrayView text, const Stretch &list, qsizetype caret) {
    Stretch item{caret, caret};
    while (item.start > list.start && !isBlank(text[item.start - 1]))
        --item.start;
    while (item.end < list.end && !isBlank(text[item.end]))
        ++item.end;
    return item;
}

} // namespace quillon::completion
