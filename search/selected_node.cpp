#include "search/selected_node.h"

#include "platform/xml/query/xpath.h"

namespace quillon::search {

xml::Node selectedNode(const tree::Selection &selection, const items::Tree &tree) {
    const xml::Node node = selection.GetSelectedDOMNode();
    if (node.nodeType() != xml::NodeType::Attribute || xml::ownerElement(node))
        return node;
    return selection.GetDOMNode(tree.SelectedItem().Parent()).getAttributeNode(node.nodeName());
}

} // namespace quillon::search
