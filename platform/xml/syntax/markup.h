#pragma once

#include <QByteArrayView>

namespace quillon::xml {

/// A piece of a text in UTF-8 that need not be well-formed: markup from "<" to its end, or what
/// stands between.
struct MarkupPiece {
    enum class Kind : quint8 {
        Text,
        StartTag,
        /// A start tag that is an end tag, too.
        EmptyTag,
        EndTag,
        Comment,
        Section,
        Instruction,
        DocumentType,
        /// Anything else that starts with "<!".
        Other,
    };
    Kind kind = Kind::Text;
    qsizetype start = 0;
    qsizetype end = 0;
};

/// Goes through a text piece by piece; each byte is in one of them. Where a piece has no end it
/// goes on to the end of the text.
class MarkupReader {
public:
    explicit MarkupReader(QByteArrayView text, qsizetype at = 0) : text_(text), at_(at) {}

    /// False at the end of the text.
    bool next(MarkupPiece &piece);

private:
    qsizetype behind(QByteArrayView end, qsizetype from) const;
    qsizetype behindTag() const;
    qsizetype behindDocumentType() const;

    QByteArrayView text_;
    qsizetype at_;
};

namespace markup {

inline bool isBlank(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}
/// Names are looked at roughly: all beyond ASCII may be part of one.
inline bool startsName(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' ||
           static_cast<unsigned char>(c) >= 0x80;
}
inline bool isInName(char c) {
    return startsName(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

/// Behind the name that starts at a place; the place itself where none does.
qsizetype nameEnd(QByteArrayView text, qsizetype at);
/// The first byte from a place on that is no blank.
qsizetype behindBlanks(QByteArrayView text, qsizetype at);
/// The place ahead of the blanks that end at a place; not ahead of `least`.
qsizetype aheadOfBlanks(QByteArrayView text, qsizetype at, qsizetype least = 0);
/// The blanks between the start of a line and a place, where nothing else stands between.
struct Indent {
    bool isOnlyBlanks = false;
    QByteArrayView blanks;
};
Indent indentAt(QByteArrayView text, qsizetype at);
/// A stretch of a text, with all of its line where nothing else stands on that.
struct Stretch {
    qsizetype start = 0;
    qsizetype end = 0;
};
Stretch withOwnLine(QByteArrayView text, qsizetype start, qsizetype end);
/// The name in a tag that starts at a place.
QByteArrayView tagName(QByteArrayView text, qsizetype tag);

} // namespace markup

} // namespace quillon::xml
