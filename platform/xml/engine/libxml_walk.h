#pragma once

#include <libxml/tree.h>

namespace quillon::xml {

/// The node that comes next in document order, attributes left out: the first one inside `node` if
/// `goesInside` and `node` is an element or a document, else the first one after it. Null after the
/// last one. Takes no recursion.
template <typename Node>
Node *followingNode(Node *node, bool goesInside = true) {
    // What is inside an entity reference is the entity, and belongs to the document type.
    const bool hasInside = node->type == XML_ELEMENT_NODE || node->type == XML_DOCUMENT_NODE ||
                           node->type == XML_HTML_DOCUMENT_NODE;
    if (goesInside && hasInside && node->children)
        return node->children;
    while (node->parent && !node->next)
        node = node->parent;
    return node->parent ? node->next : nullptr;
}

} // namespace quillon::xml
