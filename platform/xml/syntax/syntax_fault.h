#pragma once

#include "platform/runtime/progress.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace quillon::xml {

enum class SyntaxFaultKind : quint8 {
    /// A start tag without its end tag.
    MissingEndTag,
    /// An end tag that differs from its start tag in the case of letters only.
    WrongCaseOfEndTag,
    /// An end tag that no element is open for.
    StrayEndTag,
    UnquotedValue,
    /// The quotation mark that opens a value, and is not closed.
    UnclosedQuote,
    BareAmpersand,
    /// "&name;" that nobody has declared.
    UndeclaredEntity,
    /// "&#0;" and the like.
    BadReference,
    BareLessThan,
    /// The later one of two attributes of one name.
    DuplicateAttribute,
    /// An attribute without "=".
    MissingEquals,
    /// An attribute without a value.
    MissingValue,
    /// No blank ahead of an attribute.
    MissingBlank,
    /// A tag without its ">".
    UnclosedTag,
    SecondRoot,
    TextOutsideRoot,
    NoElement,
    /// Any character that XML cannot hold.
    ForbiddenCharacter,
    /// What stands ahead of the XML declaration.
    AheadOfDeclaration,
    DoubleHyphenInComment,
    UnclosedComment,
    UnclosedSection,
    UnclosedInstruction,
    /// "]]>" in text.
    SectionEndInText,
    /// Anything else; its place is where the parser has noticed it.
    Other,
};

/// What keeps a text from being well-formed.
struct SyntaxFault {
    SyntaxFaultKind kind = SyntaxFaultKind::Other;
    /// The cause, in bytes of the text. At least one character, but in an empty text.
    qsizetype start = 0;
    qsizetype length = 0;
    /// Where the parser could not go on.
    qsizetype noticedAt = 0;
    /// In Japanese, on one line, without the place.
    QString sentence;

    bool operator==(const SyntaxFault &) const = default;
};

/// What a text is a part of.
struct SyntaxScope {
    /// The document type, with what stands ahead of it, of the document that a text is an element
    /// of: the text may refer to the entities declared there. Empty for a whole document.
    QByteArray declarations;
};

/// The first fault of a text in UTF-8; nothing when it is well-formed, of which the parser that
/// loads documents is the only judge. A large text takes a little longer than loading it. Raises
/// Cancelled when `progress` has it stopped.
std::optional<SyntaxFault> firstSyntaxFault(QByteArrayView utf8, const SyntaxScope &scope = {},
                                            const runtime::Progress &progress = {});

/// A place as a user counts: 1-based, the column in characters.
struct TextPlace {
    int line = 1;
    int column = 1;
};

/// Where a byte of a text in UTF-8 stands.
TextPlace placeInText(QByteArrayView utf8, qsizetype at);

} // namespace quillon::xml
