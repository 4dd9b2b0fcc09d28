#pragma once

#include <libxslt/xsltInternals.h>

namespace quillon::xml {

/// The xsltSortFunc that puts the current node list in the order of some xsl:sort elements, nodes
/// that are alike as they stood. Text is ordered as the language in `lang` asks, without one as
/// Japanese does, and capitals stand ahead of small letters or behind them as `case-order` asks.
/// What is no number stands ahead of all numbers.
void sortNodes(xsltTransformContextPtr context, xmlNodePtr *sorts, int count);

} // namespace quillon::xml
