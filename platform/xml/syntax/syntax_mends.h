#pragma once

#include "platform/xml/syntax/syntax_fault.h"

#include <vector>

namespace quillon::xml {

/// A stretch of a text, in bytes, and what is to stand there instead.
struct Replacement {
    qsizetype start = 0;
    qsizetype length = 0;
    QByteArray text;

    bool operator==(const Replacement &) const = default;
};

/// One way to mend a fault.
struct SyntaxMend {
    /// What it does, in Japanese; what it deletes is named.
    QString title;
    /// Ascending, not overlapping.
    std::vector<Replacement> replacements;
};

/// What may be done about a fault that firstSyntaxFault() has found in the same text and scope, the
/// most likely first. With each of them the text is well-formed, or, where none brings that about,
/// the parser comes farther than to the end of the fault. Takes as long as loading the text some
/// ten times, at worst; of a text of more than 10 MB fewer are looked for. Raises Cancelled when
/// `progress` has it stopped.
std::vector<SyntaxMend> syntaxMends(QByteArrayView utf8, const SyntaxFault &fault,
                                    const SyntaxScope &scope = {},
                                    const runtime::Progress &progress = {});

/// A text with replacements carried out.
QByteArray withReplacements(QByteArrayView text, const std::vector<Replacement> &replacements);
/// Where a byte of the text with replacements stood before; of what has been put in, the place
/// where that was done.
qsizetype placeBefore(const std::vector<Replacement> &replacements, qsizetype at);

} // namespace quillon::xml
