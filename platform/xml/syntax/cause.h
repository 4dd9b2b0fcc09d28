#pragma once

#include "platform/xml/syntax/markup.h"
#include "platform/xml/syntax/syntax_fault.h"

#include <vector>

namespace quillon::xml {

/// An element that is open at a place of a text.
struct OpenTag {
    qsizetype start = 0;
    /// The start tag of an element below it, of the same name, that by its indentation has taken
    /// the end tag of this one, and where that end tag stands; negative where there is none.
    qsizetype suspect = -1;
    qsizetype takenEnd = -1;
};

/// Where the parser has stopped, and why.
struct StopPlace {
    qsizetype at = 0;
    /// Of those the parser tells apart, the ones that cannot be found out from the text.
    enum class Reason : quint8 { Any, DuplicateAttribute, UndeclaredEntity } reason = Reason::Any;
    /// SyntaxScope::declarations.
    QByteArrayView declarations = {};
};

/// What has made the parser stop.
struct Cause {
    SyntaxFaultKind kind = SyntaxFaultKind::Other;
    /// What is to be marked.
    qsizetype start = 0;
    qsizetype length = 0;
    /// The piece of markup that the parser has stopped in.
    MarkupPiece piece;
    /// From the root element down, at that piece.
    std::vector<OpenTag> open;
    /// The start tag of the root element, and behind its end tag; negative where it is yet to come.
    qsizetype root = -1;
    qsizetype rootEnd = -1;
    /// Of the element, attribute or entity that is concerned; the character for ForbiddenCharacter.
    QByteArrayView name;
    /// What it does not go together with: the start tag, or the first attribute; negative where
    /// there is none.
    qsizetype other = -1;
    /// The elements from here on in `open` have to be closed, for MissingEndTag.
    std::size_t firstUnclosed = 0;
};

/// Finds the cause from where the parser has stopped. All ahead of that place is well-formed.
/// One pass over the text up to there. Raises Cancelled when `progress` has it stopped.
Cause causeOf(QByteArrayView text, const StopPlace &stop, const runtime::Progress &progress = {});

/// Looks for the cause in a start tag, which is the piece of markup that the parser has stopped in;
/// sets what it finds.
void findCauseInTag(QByteArrayView text, const StopPlace &stop, Cause &cause);
/// Looks for a wrong reference at the place that the parser has stopped at, in what starts at
/// `least`; false when there is none.
bool findBadReference(QByteArrayView text, const StopPlace &stop, qsizetype least, Cause &cause);

/// The byte behind the character that stands at a place.
qsizetype behindCharacter(QByteArrayView text, qsizetype at);

} // namespace quillon::xml
