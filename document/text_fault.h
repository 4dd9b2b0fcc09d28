#pragma once

#include "platform/xml/io/file_text.h"
#include "platform/xml/syntax/syntax_mends.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace quillon::document {

/// What keeps the text of a file from being a document.
struct TextFault {
    enum class Kind : quint8 {
        /// The text is not well-formed.
        Syntax,
        /// It declares an encoding that there is not, or that the file cannot be in.
        Declaration,
        /// Bytes of the file do not decode.
        Undecodable,
        /// The encoding does not have a character of the text.
        Unencodable,
    };
    Kind kind = Kind::Syntax;
    /// The cause in the text, with a sentence. Its own kind counts for Syntax alone.
    xml::SyntaxFault at;
    xml::TextPlace place;
};

/// What a text that was edited is.
struct TextCheck {
    enum class Outcome : quint8 {
        /// It can be loaded as a document.
        WellFormed,
        Faulty,
        /// Its declaration has changed, and by it the file's bytes read as another text.
        ReadsOtherwise,
    };
    Outcome outcome = Outcome::WellFormed;
    /// For Faulty.
    TextFault fault;
};

/// Judges what is to be the text of a file: the first fault, or whether it can be loaded.
TextCheck checkText(const xml::FileText &file, const QByteArray &edited);

/// What may be done about a fault that checkText() has found in the same text, the most likely
/// first. Raises Cancelled when `progress` has it stopped.
std::vector<xml::SyntaxMend> textMends(const xml::FileText &file, const QByteArray &edited,
                                       const TextFault &fault,
                                       const runtime::Progress &progress = {});

/// A check on its way out of another process.
QByteArray toBytes(const TextCheck &check);
TextCheck textCheckFrom(const QByteArray &bytes);

} // namespace quillon::document
