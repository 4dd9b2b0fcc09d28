#include "tree/fragment.h"

namespace quillon::tree {

namespace {

/// What decides which entities may be referred to: the document type and, ahead of it, the XML
/// declaration. Empty without a document type.
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

} // namespace

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
