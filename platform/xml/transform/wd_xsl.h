#pragma once

#include "platform/xml/dom/dom.h"

namespace quillon::xml {

/// Whether a stylesheet is written in the old dialect: its root element is in the namespace
/// http://www.w3.org/TR/WD-xsl.
bool isWdXsl(const DOMDocument40 &stylesheet);

/// The same stylesheet in XSLT 1.0, in UTF-8. The old dialect's rules are made explicit in it: no
/// built-in templates, the last matching template wins, no attribute value templates, names are
/// compared by prefix. Raises Fail with the construct's name for what XSLT 1.0 cannot do, scripts
/// above all, and for what the dialect does not know.
QByteArray translateWdXsl(const DOMDocument40 &stylesheet);

} // namespace quillon::xml
