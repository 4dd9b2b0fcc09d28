#include "tree/node_captions.h"

#include "resources/node_texts.h"

namespace quillon::tree {

using xml::NodeType;

QString attributeCaption(const QString &name, const QString &value) {
    return name + QStringLiteral("=\"") + value + QLatin1Char('"');
}

QString captionOf(const xml::Node &node, bool viewText) {
    if (!viewText)
        return node.nodeName();
    switch (node.nodeType()) {
    case NodeType::Attribute:
        return attributeCaption(node.nodeName(), node.text());
    case NodeType::Text:
    case NodeType::Comment:
    case NodeType::CDATASection:
        return node.text();
    default:
        return node.nodeName();
    }
}

QString kindText(NodeType kind) {
    namespace texts = resources::node_texts;
    switch (kind) {
    case NodeType::Document:
        return texts::Document.toString();
    case NodeType::Element:
        return texts::Element.toString();
    case NodeType::Attribute:
        return texts::Attribute.toString();
    case NodeType::Text:
        return texts::TextNode.toString();
    case NodeType::Comment:
        return texts::Comment.toString();
    case NodeType::CDATASection:
        return texts::CDataSection.toString();
    case NodeType::ProcessingInstruction:
        return texts::Instruction.toString();
    case NodeType::DocumentType:
        return texts::DocumentType.toString();
    case NodeType::EntityReference:
        return texts::EntityReference.toString();
    case NodeType::None:
        break;
    }
    return {};
}

QString imageKeyOf(const xml::Node &node) {
    switch (node.nodeType()) {
    case NodeType::Document:
    case NodeType::Element:
    case NodeType::Attribute:
    case NodeType::Text:
    case NodeType::Comment:
    case NodeType::ProcessingInstruction:
        return TypeName(node);
    default:
        return QStringLiteral("IXMLDOMComment");
    }
}

const QStringList &imageKeys() {
    static const QStringList keys{
        QStringLiteral("DOMDocument"),      QStringLiteral("IXMLDOMElement"),
        QStringLiteral("IXMLDOMAttribute"), QStringLiteral("IXMLDOMText"),
        QStringLiteral("IXMLDOMComment"),   QStringLiteral("IXMLDOMProcessingInstruction"),
    };
    return keys;
}

QString NodeCaptions::caption(const items::TreeItem &item) const {
    return captionOf(registry_.Item(item), options_.viewText);
}

int NodeCaptions::image(const items::TreeItem &item) const {
    return static_cast<int>(imageKeys().indexOf(imageKeyOf(registry_.Item(item))));
}

QString NodeCaptions::kind(const items::TreeItem &item) const {
    return kindText(registry_.Item(item).nodeType());
}

} // namespace quillon::tree
