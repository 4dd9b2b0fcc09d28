#pragma once

#include "platform/xml/dom/dom.h"

#include <QStringList>

namespace quillon::xml {

/// Names of elements and attributes that a document has, or has had, and that start with a text in
/// whatever case: in alphabetical order, at most `most`. Looks at no more than the first 20,000
/// different names, so that it takes no time to speak of.
QStringList namesStartingWith(const DOMDocument40 &document, QStringView start, qsizetype most);

} // namespace quillon::xml
