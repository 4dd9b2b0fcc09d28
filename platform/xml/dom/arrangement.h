#pragma once

#include "platform/xml/dom/dom.h"

#include <optional>
#include <string>
#include <vector>

namespace quillon::xml {

/// The white space with which the line of a node begins; nothing when the node does not begin a
/// line.
std::optional<std::string> lineIndentOf(const Node &node);

/// To be called after an element has been moved to another depth: lines below it that begin with
/// the indent its own line had before get the present one in its place. Nothing happens where
/// either line does not begin with the element.
void reindentBelow(const Node &element, const std::optional<std::string> &before);

/// Puts the children of an element into another order. `groups` names each of them once; those of a
/// group stay together with what is between them, and what is ahead of the first, second ... group
/// stays there. Raises InvalidArgument for anything else.
void reorderChildren(const Node &parent, const std::vector<std::vector<Node>> &groups);

} // namespace quillon::xml
