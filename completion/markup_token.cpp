#include "completion/markup_token.h"

#include <cstring>

namespace quillon::completion {

using Kind = MarkupToken::Kind;

namespace {

/// Behind the next place where something stands, or -1.
qsizetype behind(QByteArrayView text, QByteArrayView what, qsizetype from) {
    const qsizetype at = text.indexOf(what, from);
    return at < 0 ? -1 : at + what.size();
}

MarkupToken closedOrAll(QByteArrayView text, qsizetype at, qsizetype end) {
    return {Kind::Other, {at, end < 0 ? text.size() : end}, end >= 0};
}

/// A document type, whose brackets hold declarations with quotes and comments of their own.
MarkupToken documentType(QByteArrayView text, qsizetype at) {
    char quote = 0;
    int depth = 0;
    for (qsizetype i = at + 2; i < text.size(); ++i) {
        const char c = text[i];
        if (quote) {
            quote = c == quote ? 0 : quote;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '<' && text.sliced(i).startsWith("<!--")) {
            const qsizetype end = behind(text, "-->", i + 4);
            if (end < 0)
                break;
            i = end - 1;
        } else if (c == '<') {
            ++depth;
        } else if (c == '>' && depth-- == 0) {
            return {Kind::Other, {at, i + 1}, true};
        }
    }
    return {Kind::Other, {at, text.size()}, false};
}

/// A start tag whose name ends at a place.
MarkupToken startTag(QByteArrayView text, qsizetype at, qsizetype from) {
    bool mayQuote = false;
    for (qsizetype i = from; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '>') {
            const bool isEmpty = i > from && text[i - 1] == '/';
            return {isEmpty ? Kind::EmptyTag : Kind::StartTag, {at, i + 1}, true};
        }
        if (c == '<')
            return {Kind::StartTag, {at, i}, false};
        if (mayQuote && (c == '"' || c == '\'')) {
            do {
                ++i;
            } while (i < text.size() && text[i] != c && text[i] != '<');
            // A value has no "<" in it, so that this one begins something else.
            if (i < text.size() && text[i] == '<')
                return {Kind::StartTag, {at, i}, false};
        }
        if (!isBlank(c))
            mayQuote = c == '=';
    }
    return {Kind::StartTag, {at, text.size()}, false};
}

} // namespace

bool isBlank(char byte) {
    return byte == ' ' || byte == '\n' || byte == '\t' || byte == '\r';
}

bool isNameByte(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9') || byte == '_' || byte == ':' || byte == '-' ||
           byte == '.' || static_cast<unsigned char>(byte) >= 0x80;
}

qsizetype nameEnd(QByteArrayView text, qsizetype at) {
    while (at < text.size() && isNameByte(text[at]))
        ++at;
    return at;
}

qsizetype nextMarkup(QByteArrayView text, qsizetype from) {
    if (from >= text.size())
        return text.size();
    const void *found = std::memchr(text.data() + from, '<', std::size_t(text.size() - from));
    return found ? static_cast<const char *>(found) - text.data() : text.size();
}

MarkupToken tokenAt(QByteArrayView text, qsizetype at) {
    const QByteArrayView rest = text.sliced(at);
    if (rest.startsWith("<!--"))
        return closedOrAll(text, at, behind(text, "-->", at + 4));
    if (rest.startsWith("<![CDATA["))
        return closedOrAll(text, at, behind(text, "]]>", at + 9));
    if (rest.startsWith("<?"))
        return closedOrAll(text, at, behind(text, "?>", at + 2));
    if (rest.startsWith("<!"))
        return documentType(text, at);
    if (rest.startsWith("</")) {
        qsizetype end = nameEnd(text, at + 2);
        while (end < text.size() && isBlank(text[end]))
            ++end;
        const bool isClosed = end < text.size() && text[end] == '>';
        return {Kind::EndTag, {at, isClosed ? end + 1 : nameEnd(text, at + 2)}, isClosed};
    }
    const qsizetype end = nameEnd(text, at + 1);
    if (end == at + 1)
        return {Kind::Bare, {at, end}, false};
    return startTag(text, at, end);
}

} // namespace quillon::completion
