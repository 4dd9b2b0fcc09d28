#pragma once

#include "platform/xml/storage/parse_error.h"
#include "platform/xml/syntax/cause.h"

namespace quillon::xml {

/// What the parser that loads documents says of a text, with the place in the text itself. Raises
/// Cancelled when `progress` has it stopped.
ParseError judged(QByteArrayView utf8, const SyntaxScope &scope,
                  const runtime::Progress &progress = {});

/// Where the parser has stopped in a text that it does not accept, by what it has said, or by what
/// has been found out from that.
StopPlace stopPlaceOf(QByteArrayView utf8, const ParseError &error, const SyntaxScope &scope);
StopPlace stopPlaceOf(const SyntaxFault &fault, const SyntaxScope &scope);

} // namespace quillon::xml
