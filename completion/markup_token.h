#pragma once

#include "completion/text_context.h"

namespace quillon::completion {

/// A piece of markup, from its "<" on.
struct MarkupToken {
    enum class Kind { StartTag, EmptyTag, EndTag, Other, Bare };
    Kind kind = Kind::Bare;
    Stretch where;
    /// It has its end. A tag without one goes as far as the next "<", anything else to the end.
    bool isClosed = false;
};

/// The markup that begins with the "<" at a place. A "<" that begins nothing is Bare.
MarkupToken tokenAt(QByteArrayView text, qsizetype at);

/// The place of the next "<", or the end of the text.
qsizetype nextMarkup(QByteArrayView text, qsizetype from);

bool isNameByte(char byte);
bool isBlank(char byte);
/// Where the name that begins at a place ends.
qsizetype nameEnd(QByteArrayView text, qsizetype at);

} // namespace quillon::completion
