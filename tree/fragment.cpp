#include "tree/fragment.h"

namespace quillon::tree {

QByteArray entityDeclarationsOf(const xml::DOMDocument40 &document) {
    if (!document)
        return {};
    QByteArray declaration;
    for (xml::Node child = document.node().firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() == xml::NodeType::DocumentType)
            return declaration + child.xml();
        if (child.nodeName() == QLatin1String("xml"))
            declaration = child.xml();
    }
    return {};
}

xml::DOMDocument40 parsedFragment(const xml::DOMDocument40 &document, const QByteArray &utf8) {
    xml::DOMDocument40 parsed = xml::DOMDocument40::create();
    const bool parses = parsed.loadXML(utf8);
    if (!utf8.contains('&'))
        return parsed;
    const xml::Node root = parsed.documentElement();
    if (parses && root.referredEntity().isEmpty())
        return parsed;
    const QByteArray declarations = entityDeclarationsOf(document);
    if (parses || !declarations.isEmpty())
        parsed.loadXML(declarations + (parses ? root.xml() : utf8));
    return parsed;
}

} // namespace quillon::tree
