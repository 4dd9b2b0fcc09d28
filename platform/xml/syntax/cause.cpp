#include "platform/xml/syntax/cause.h"

#include "platform/runtime/error.h"

#include <algorithm>

namespace quillon::xml {

using Kind = MarkupPiece::Kind;
using FaultKind = SyntaxFaultKind;
using namespace markup;

namespace {

/// A few milliseconds' work.
constexpr unsigned PiecesPerReport = 65'536;

bool equalsButForCase(QByteArrayView a, QByteArrayView b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

/// A character that no XML can hold, at a place where the parser has stopped.
bool isForbiddenAt(QByteArrayView text, qsizetype at) {
    if (at >= text.size())
        return false;
    const auto c = static_cast<unsigned char>(text[at]);
    const QByteArrayView rest = text.sliced(at);
    return (c < 0x20 && !isBlank(text[at])) || rest.startsWith("\xEF\xBF\xBE") ||
           rest.startsWith("\xEF\xBF\xBF") || (at == 0 && rest.startsWith("\xEF\xBB\xBF"));
}

class CauseFinder {
public:
    CauseFinder(QByteArrayView text, const StopPlace &stop, const runtime::Progress &progress)
        : text_(text), stop_(stop), progress_(progress) {}

    Cause find();

private:
    /// Goes through what is well-formed, up to the piece in which the parser has stopped.
    void goToPiece();
    bool isStopIn(const MarkupPiece &piece);
    void open(const MarkupPiece &tag, bool isEmpty);
    void close(const MarkupPiece &tag);
    void report(qsizetype at) const;

    void set(FaultKind kind, qsizetype start, qsizetype length) {
        cause_.kind = kind;
        cause_.start = start;
        cause_.length = length;
    }
    void findInPiece();
    void findInText();
    void findInEndTag();
    void findInComment();
    void findInInstruction();
    void findAtEnd();
    void setMissingEndTag(std::size_t firstUnclosed);
    QByteArrayView nameOf(const OpenTag &tag) const { return tagName(text_, tag.start); }

    QByteArrayView text_;
    StopPlace stop_;
    const runtime::Progress &progress_;
    Cause cause_;
};

Cause CauseFinder::find() {
    goToPiece();
    if (isForbiddenAt(text_, stop_.at)) {
        set(FaultKind::ForbiddenCharacter, stop_.at, behindCharacter(text_, stop_.at) - stop_.at);
        cause_.name = text_.sliced(cause_.start, cause_.length);
    } else if (cause_.piece.start >= text_.size()) {
        findAtEnd();
    } else {
        findInPiece();
    }
    if (cause_.kind == FaultKind::Other) {
        // The last character where the text ends too early.
        qsizetype at = std::min(stop_.at, std::max<qsizetype>(text_.size() - 1, 0));
        while (at > 0 && (static_cast<unsigned char>(text_[at]) & 0xc0) == 0x80)
            --at;
        set(FaultKind::Other, at, behindCharacter(text_, at) - at);
    }
    return std::move(cause_);
}

void CauseFinder::report(qsizetype at) const {
    if (progress_ && !progress_(double(at) / double(text_.size())))
        runtime::raise(runtime::error_number::Cancelled);
}

void CauseFinder::goToPiece() {
    MarkupReader reader(text_);
    MarkupPiece piece;
    for (unsigned count = 0; reader.next(piece); ++count) {
        if (count % PiecesPerReport == 0)
            report(piece.start);
        if (isStopIn(piece)) {
            cause_.piece = piece;
            return;
        }
        if (piece.kind == Kind::StartTag || piece.kind == Kind::EmptyTag)
            open(piece, piece.kind == Kind::EmptyTag);
        else if (piece.kind == Kind::EndTag)
            close(piece);
    }
    cause_.piece = {Kind::Text, text_.size(), text_.size()};
}

bool CauseFinder::isStopIn(const MarkupPiece &piece) {
    if (piece.end > stop_.at)
        return true;
    // Of these the parser may tell only at their end.
    if (piece.kind == Kind::Section)
        return !text_.first(piece.end).endsWith("]]>");
    if (piece.kind != Kind::Text)
        return false;
    return cause_.open.empty()
               ? behindBlanks(text_, piece.start) < piece.end
               : piece.end == stop_.at && findBadReference(text_, stop_, piece.start, cause_);
}

void CauseFinder::open(const MarkupPiece &tag, bool isEmpty) {
    if (cause_.root < 0)
        cause_.root = tag.start;
    if (!isEmpty)
        cause_.open.push_back({.start = tag.start});
    else if (cause_.open.empty())
        cause_.rootEnd = tag.end;
}

void CauseFinder::close(const MarkupPiece &tag) {
    if (cause_.open.empty())
        return;
    const OpenTag closed = cause_.open.back();
    cause_.open.pop_back();
    if (cause_.open.empty()) {
        cause_.rootEnd = tag.end;
        return;
    }
    // Where two elements of one name are nested, the end tag goes to the inner one. By its
    // indentation it may belong to the outer one.
    OpenTag &outer = cause_.open.back();
    if (nameOf(outer) != nameOf(closed))
        return;
    const Indent atEnd = indentAt(text_, tag.start);
    const Indent atStart = indentAt(text_, closed.start);
    const Indent atOuter = indentAt(text_, outer.start);
    if (!atEnd.isOnlyBlanks || !atStart.isOnlyBlanks || !atOuter.isOnlyBlanks ||
        atEnd.blanks == atStart.blanks || atEnd.blanks != atOuter.blanks)
        return;
    outer.suspect = closed.suspect >= 0 ? closed.suspect : closed.start;
    outer.takenEnd = closed.suspect >= 0 ? closed.takenEnd : tag.start;
}

void CauseFinder::findInPiece() {
    switch (cause_.piece.kind) {
    case Kind::Text:
        return findInText();
    case Kind::StartTag:
    case Kind::EmptyTag:
        return findCauseInTag(text_, stop_, cause_);
    case Kind::EndTag:
        return findInEndTag();
    case Kind::Comment:
        return findInComment();
    case Kind::Section:
        if (!text_.sliced(0, cause_.piece.end).endsWith("]]>"))
            set(FaultKind::UnclosedSection, cause_.piece.start, 9);
        return;
    case Kind::Instruction:
        return findInInstruction();
    case Kind::DocumentType:
        return;
    case Kind::Other:
        if (!cause_.open.empty())
            set(FaultKind::BareLessThan, cause_.piece.start, 1);
    }
}

void CauseFinder::findInText() {
    const qsizetype start = behindBlanks(text_, cause_.piece.start);
    if (cause_.open.empty()) {
        if (start < cause_.piece.end)
            set(FaultKind::TextOutsideRoot, start,
                aheadOfBlanks(text_, cause_.piece.end, start) - start);
        return;
    }
    if (findBadReference(text_, stop_, cause_.piece.start, cause_))
        return;
    const qsizetype near = std::max(cause_.piece.start, stop_.at - 2);
    const qsizetype end =
        text_.sliced(0, std::min(stop_.at + 3, text_.size())).indexOf("]]>", near);
    if (end >= 0)
        set(FaultKind::SectionEndInText, end, 3);
}

void CauseFinder::findInEndTag() {
    const MarkupPiece &piece = cause_.piece;
    const qsizetype nameStart = piece.start + 2;
    const qsizetype end = nameEnd(text_, nameStart);
    cause_.name = text_.sliced(nameStart, end - nameStart);
    if (cause_.name.isEmpty()) {
        set(FaultKind::BareLessThan, piece.start, 1);
        return;
    }
    if (const qsizetype at = behindBlanks(text_, end); at >= text_.size() || text_[at] != '>') {
        set(FaultKind::UnclosedTag, piece.start, end - piece.start);
        return;
    }
    const std::vector<OpenTag> &open = cause_.open;
    const auto match = std::find_if(open.rbegin(), open.rend(), [this](const OpenTag &tag) {
        return nameOf(tag) == cause_.name;
    });
    if (match != open.rend()) {
        setMissingEndTag(std::size_t(open.rend() - match));
        return;
    }
    const bool isCase = !open.empty() && equalsButForCase(nameOf(open.back()), cause_.name);
    set(isCase ? FaultKind::WrongCaseOfEndTag : FaultKind::StrayEndTag, piece.start,
        piece.end - piece.start);
    cause_.other = open.empty() ? -1 : open.back().start;
}

void CauseFinder::setMissingEndTag(std::size_t firstUnclosed) {
    const OpenTag &innermost = cause_.open.back();
    const qsizetype start = innermost.suspect >= 0 ? innermost.suspect : innermost.start;
    cause_.name = tagName(text_, start);
    cause_.firstUnclosed = firstUnclosed;
    set(FaultKind::MissingEndTag, start, cause_.name.size() + 1);
}

void CauseFinder::findInComment() {
    const qsizetype start = cause_.piece.start;
    const qsizetype hyphens = text_.indexOf("--", start + 4);
    // Another comment starts before this one has ended.
    const bool isOther = hyphens >= 2 && text_.sliced(hyphens - 2).startsWith("<!--");
    if (hyphens < 0 || isOther)
        set(FaultKind::UnclosedComment, start, 4);
    else
        set(FaultKind::DoubleHyphenInComment, hyphens, 2);
}

void CauseFinder::findInInstruction() {
    const MarkupPiece &piece = cause_.piece;
    if (!text_.sliced(0, piece.end).endsWith("?>")) {
        set(FaultKind::UnclosedInstruction, piece.start, 2);
        return;
    }
    const qsizetype end = nameEnd(text_, piece.start + 2);
    if (piece.start == 0 || text_.sliced(piece.start, end - piece.start) != "<?xml")
        return;
    if (behindBlanks(text_, 0) == piece.start)
        set(FaultKind::AheadOfDeclaration, 0, piece.start);
    else
        set(FaultKind::AheadOfDeclaration, piece.start, piece.end - piece.start);
}

void CauseFinder::findAtEnd() {
    if (!cause_.open.empty())
        setMissingEndTag(0);
    else if (cause_.root < 0)
        set(FaultKind::NoElement, 0, text_.isEmpty() ? 0 : behindCharacter(text_, 0));
}

} // namespace

qsizetype behindCharacter(QByteArrayView text, qsizetype at) {
    qsizetype end = std::min(at + 1, text.size());
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80)
        ++end;
    return end;
}

bool findBadReference(QByteArrayView text, const StopPlace &stop, qsizetype least, Cause &cause) {
    const qsizetype ampersand = text.lastIndexOf('&', std::min(stop.at, text.size() - 1));
    if (ampersand < least)
        return false;
    const auto isInReference = [](char c) { return isInName(c) || c == '#'; };
    if (!std::all_of(text.begin() + ampersand + 1, text.begin() + std::max(stop.at, ampersand + 1),
                     isInReference))
        return false;
    const qsizetype semicolon = text.indexOf(';', ampersand);
    cause.kind = SyntaxFaultKind::BareAmpersand;
    cause.start = ampersand;
    cause.length = 1;
    // The parser stops behind what it cannot read, but ahead of what it can and refuses.
    if (stop.at > ampersand || semicolon < 0)
        return true;
    cause.name = text.sliced(ampersand + 1, semicolon - ampersand - 1);
    if (stop.reason == StopPlace::Reason::UndeclaredEntity)
        cause.kind = SyntaxFaultKind::UndeclaredEntity;
    else if (cause.name.startsWith('#'))
        cause.kind = SyntaxFaultKind::BadReference;
    if (cause.kind != SyntaxFaultKind::BareAmpersand)
        cause.length = semicolon + 1 - ampersand;
    return true;
}

Cause causeOf(QByteArrayView text, const StopPlace &stop, const runtime::Progress &progress) {
    return CauseFinder(text, stop, progress).find();
}

} // namespace quillon::xml
