#include "fuzz/fuzz_support.h"
#include "tree/fragment.h"
#include "tree/node_transfer.h"

using namespace quillon;
using namespace quillon::fuzz;

namespace {

xml::DOMDocument40 target() {
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    document.loadXML(QStringLiteral("<!DOCTYPE r [<!ENTITY e 'two'>]>\n"
                                    "<r xmlns='urn:d' xmlns:p='urn:p'>\n  <s/>\n</r>\n"));
    return document;
}

void requireReadable(const xml::DOMDocument40 &document) {
    xml::DOMDocument40 again = xml::DOMDocument40::create();
    require(again.loadXML(document.xml()), "a document with a node that has come parses");
    require(again.xml() == document.xml(), "it is written as it is read again");
}

void insert(const xml::DOMDocument40 &document, const xml::Node &node) {
    const xml::Node root = document.documentElement();
    if (node.nodeType() == xml::NodeType::Attribute)
        root.attributes().setNamedItem(node);
    else
        root.insertBefore(node, root.firstChild());
}

} // namespace

/// What another program may offer as a node, or as the text of one: it is refused, or it is a node
/// that can stand in a document which then reads as it is written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray offered = toQByteArray(bytesOf(data, size));
    const xml::DOMDocument40 document = target();
    succeeds([&] {
        for (const tree::ArrivedNode &arrived : tree::unpackedNodes(offered, document)) {
            if (!arrived.node)
                continue;
            arrived.adaptTo(tree::namespacesAt(document.documentElement()));
            insert(document, arrived.node);
        }
    });
    requireReadable(document);
    succeeds([&] {
        const xml::Node root = tree::parsedFragment(document, offered).documentElement();
        if (!root)
            return;
        tree::DepartingNodes nodes;
        for (const std::size_t count : {1, 2}) {
            nodes.add(root, root.parentNode());
            require(tree::unpackedNodes(nodes.packed(), document).size() == count,
                    "what is packed can be unpacked");
        }
        insert(document, root);
    });
    requireReadable(document);
    return 0;
}
