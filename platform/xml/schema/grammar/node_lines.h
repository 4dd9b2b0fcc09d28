#pragma once

#include "platform/xml/dom/dom.h"

#include <QHash>

namespace quillon::grammar {

/// The 1-based lines that the elements of a document start in, by the numbers of the nodes.
QHash<quint32, quint32> linesOfElements(const xml::DOMDocument40 &document);

} // namespace quillon::grammar
