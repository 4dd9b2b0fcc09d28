#pragma once

#include "platform/xml/dom/dom.h"

#include <unordered_set>

namespace quillon::tree {

/// Numbers of nodes of one document.
using NodeNumbers = std::unordered_set<quint32>;

/// For an element or a document that has been parsed anew: the numbers of those elements under
/// `now`, itself included, that stand where those under `before` stood whose numbers are in
/// `wanted`. What was edited is found by what has stayed the same around it.
NodeNumbers counterparts(const xml::Node &before, const xml::Node &now, const NodeNumbers &wanted);

} // namespace quillon::tree
