#pragma once

#include "platform/xml/syntax/cause.h"
#include "platform/xml/syntax/syntax_mends.h"

namespace quillon::xml {

/// What might mend a text, the most likely first. Whether it does has yet to be seen.
/// `noticedAt` is where the parser has stopped.
std::vector<SyntaxMend> mendCandidates(QByteArrayView text, const Cause &cause,
                                       qsizetype noticedAt);

/// Those for elements that are not closed, and for end tags that do not fit.
std::vector<SyntaxMend> endTagCandidates(QByteArrayView text, const Cause &cause);
/// Those for what stands in a start tag.
std::vector<SyntaxMend> attributeCandidates(QByteArrayView text, const Cause &cause);

/// A piece of a text as it is put into a title.
QString shownInTitle(QByteArrayView utf8);

} // namespace quillon::xml
