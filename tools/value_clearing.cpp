#include "tools/value_clearing.h"

#include "platform/runtime/error.h"

#include <vector>

namespace quillon::tools {

using xml::Node;
using xml::NodeType;

namespace {

bool isNamespaceDeclaration(const QString &name) {
    return name == QLatin1String("xmlns") || name.startsWith(QLatin1String("xmlns:"));
}

/// Notes what is to be removed and emptied; a walk must not change what it walks over.
class Collector final : public xml::NodeVisitor {
public:
    void enter(quint32 number, NodeType kind) override {
        if (kind == NodeType::Text || kind == NodeType::Comment)
            removals.push_back(number);
        else if (kind == NodeType::Attribute)
            attributes.push_back(number);
    }
    void leave() override {}

    std::vector<quint32> removals;
    std::vector<quint32> attributes;
};

} // namespace

void ClearValues(const xml::DOMDocument40 &document) {
    Collector found;
    xml::visitSubtree(document.node(), found);
    for (auto number = found.removals.rbegin(); number != found.removals.rend(); ++number) {
        const Node node = document.nodeByNumber(*number);
        node.parentNode().removeChild(node);
    }
    for (auto number = found.attributes.rbegin(); number != found.attributes.rend(); ++number) {
        const Node attribute = document.nodeByNumber(*number);
        if (isNamespaceDeclaration(attribute.nodeName()))
            continue;
        try {
            attribute.setNodeValue(QString());
        } catch (const runtime::Error &) {
            // An attribute that cannot be emptied keeps its value.
        }
    }
}

} // namespace quillon::tools
