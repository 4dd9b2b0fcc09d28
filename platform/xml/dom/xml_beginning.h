#pragma once

#include "platform/xml/dom/dom.h"

#include <QByteArray>

namespace quillon::xml {

/// The beginning of Node::xml(), at most `mostBytes` of it and whole characters. `isWhole` says
/// whether that is all.
QByteArray beginningOfXml(const Node &node, std::size_t mostBytes, bool &isWhole);

} // namespace quillon::xml
