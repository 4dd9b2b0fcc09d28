#include "platform/xml/syntax/markup.h"

#include <algorithm>

namespace quillon::xml {

using Kind = MarkupPiece::Kind;

bool MarkupReader::next(MarkupPiece &piece) {
    if (at_ >= text_.size())
        return false;
    piece.start = at_;
    if (text_[at_] != '<') {
        const qsizetype end = text_.indexOf('<', at_);
        piece.kind = Kind::Text;
        at_ = end < 0 ? text_.size() : end;
        piece.end = at_;
        return true;
    }
    const QByteArrayView rest = text_.sliced(at_);
    if (rest.startsWith("<!--")) {
        piece.kind = Kind::Comment;
        at_ = behind("-->", at_ + 4);
    } else if (rest.startsWith("<![CDATA[")) {
        piece.kind = Kind::Section;
        at_ = behind("]]>", at_ + 9);
    } else if (rest.startsWith("<?")) {
        piece.kind = Kind::Instruction;
        at_ = behind("?>", at_ + 2);
    } else if (rest.startsWith("<!")) {
        piece.kind = rest.startsWith("<!DOCTYPE") ? Kind::DocumentType : Kind::Other;
        at_ = behindDocumentType();
    } else {
        at_ = behindTag();
        const bool isEmpty = text_.sliced(piece.start, at_ - piece.start).endsWith("/>");
        piece.kind = rest.startsWith("</") ? Kind::EndTag
                     : isEmpty             ? Kind::EmptyTag
                                           : Kind::StartTag;
    }
    piece.end = at_;
    return true;
}

qsizetype MarkupReader::behind(QByteArrayView end, qsizetype from) const {
    const qsizetype found = text_.indexOf(end, from);
    return found < 0 ? text_.size() : found + end.size();
}

qsizetype MarkupReader::behindTag() const {
    char quote = 0;
    for (qsizetype at = at_ + 1; at < text_.size(); ++at) {
        const char c = text_[at];
        if (quote != 0)
            quote = c == quote ? 0 : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (c == '>')
            return at + 1;
    }
    return text_.size();
}

qsizetype MarkupReader::behindDocumentType() const {
    // Between its brackets ">" and quotation marks may be.
    int depth = 0;
    for (qsizetype at = at_ + 1; at < text_.size(); ++at) {
        const char c = text_[at];
        if (c == '"' || c == '\'') {
            const qsizetype end = text_.indexOf(c, at + 1);
            at = end < 0 ? text_.size() : end;
        } else if (c == '<' && text_.sliced(at).startsWith("<!--")) {
            at = behind("-->", at + 4) - 1;
        } else if (c == '<' && text_.sliced(at).startsWith("<?")) {
            at = behind("?>", at + 2) - 1;
        } else if (c == '[' || c == '<') {
            ++depth;
        } else if (c == ']') {
            --depth;
        } else if (c == '>' && depth-- == 0) {
            return at + 1;
        }
    }
    return text_.size();
}

namespace markup {

qsizetype nameEnd(QByteArrayView text, qsizetype at) {
    if (at >= text.size() || !startsName(text[at]))
        return at;
    while (at < text.size() && isInName(text[at]))
        ++at;
    return at;
}

qsizetype behindBlanks(QByteArrayView text, qsizetype at) {
    while (at < text.size() && isBlank(text[at]))
        ++at;
    return at;
}

qsizetype aheadOfBlanks(QByteArrayView text, qsizetype at, qsizetype least) {
    while (at > least && isBlank(text[at - 1]))
        --at;
    return at;
}

Indent indentAt(QByteArrayView text, qsizetype at) {
    qsizetype start = at;
    while (start > 0 && (text[start - 1] == ' ' || text[start - 1] == '\t'))
        --start;
    const bool startsLine = start == 0 || text[start - 1] == '\n' || text[start - 1] == '\r';
    return {startsLine, text.sliced(start, at - start)};
}

Stretch withOwnLine(QByteArrayView text, qsizetype start, qsizetype end) {
    const Indent indent = indentAt(text, start);
    qsizetype behind = end;
    while (behind < text.size() && (text[behind] == ' ' || text[behind] == '\t'))
        ++behind;
    const QByteArrayView rest = text.sliced(behind);
    if (!indent.isOnlyBlanks || !(rest.startsWith('\n') || rest.startsWith("\r\n")))
        return {start, end};
    return {start - indent.blanks.size(), behind + (rest.startsWith('\n') ? 1 : 2)};
}

QByteArrayView tagName(QByteArrayView text, qsizetype tag) {
    const qsizetype start = tag + (text.sliced(tag).startsWith("</") ? 2 : 1);
    return text.sliced(start, nameEnd(text, start) - start);
}

} // namespace markup

} // namespace quillon::xml
