#pragma once

#include "platform/xml/storage/arena.h"

namespace quillon::xml {

/// Links a node under a parent ahead of `next` (at the end for 0) and gives it the layout of its
/// new place: where the new siblings stand on lines of their own, so does the node. In one-line
/// parents and beside character data nothing is added.
void linkWithLayout(Arena &arena, Number parent, Number node, Number next);

/// Whether a node stands in the document's tree.
bool isInDocument(const Arena &arena, Number node);

/// Links a node under a parent that stands nowhere yet and so has no layout to give: the node
/// keeps its own, and the first one brings the layout ahead of the end tag of the parent it left.
void linkKeepingLayout(Arena &arena, Number parent, Number node, Number next,
                       const std::string &oldEndLayout);

/// Takes a node out of the tree together with its layout.
void unlinkWithLayout(Arena &arena, Number node);

/// Links a node in the place, and with the layout, of a child, which then stands nowhere.
void linkInPlaceOf(Arena &arena, Number parent, Number node, Number old);

/// Links an attribute as the last one of an element, on a line of its own where the one before it
/// stands so.
void linkAttributeWithLayout(Arena &arena, Number element, Number attribute);

} // namespace quillon::xml
