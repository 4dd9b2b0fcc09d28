#pragma once

#include "platform/xml/schema/xerces/xerces_library.h"

namespace quillon::xml {

/// What a report says is wrong with a schema, a DTD or the syntax of a file: a whole Japanese
/// sentence. `text`, in UTF-8, is that of the file where it stands, from which the declaration is
/// named; it may be empty.
QString faultOf(const Report &report, const QByteArray &text);

} // namespace quillon::xml
