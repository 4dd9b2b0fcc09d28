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

/// Puts a copy of an element under a parent, as insertBefore() does and raising what that raises,
/// and what is below it as if each had been put there after the other: all of it gets the layout of
/// its place, whatever it has had. Returns the copy.
Node insertLaidOut(const Node &parent, const Node &element, const Node &ref);

/// Puts the children of an element into another order. `groups` names each of them once; those of a
/// group stay together with what is between them, and what is ahead of the first, second ... group
/// stays there. Raises InvalidArgument for anything else.
void reorderChildren(const Node &parent, const std::vector<std::vector<Node>> &groups);

} // namespace quillon::xml
