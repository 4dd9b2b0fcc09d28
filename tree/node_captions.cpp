#include "tree/node_captions.h"

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

QString NodeCaptions::caption(quint32 sequence) const {
    return captionOf(registry_.Item(sequence), options_.viewText);
}

int NodeCaptions::image(quint32 sequence) const {
    return static_cast<int>(imageKeys().indexOf(imageKeyOf(registry_.Item(sequence))));
}

} // namespace quillon::tree
