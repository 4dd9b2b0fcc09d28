#pragma once

#include "platform/xml/dom.h"

namespace quillon::tree {

/// Parses the markup of one element, as the pane shows it or the clipboard holds it. Where it needs
/// them, the entities that `document` declares may be referred to. The result has no root element
/// when the text does not parse.
xml::DOMDocument40 parsedFragment(const xml::DOMDocument40 &document, const QByteArray &utf8);

} // namespace quillon::tree
