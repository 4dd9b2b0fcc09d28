#include "tree/fragment.h"

namespace quillon::tree {

namespace {

QByteArray documentTypeOf(const xml::DOMDocument40 &document) {
    if (!document)
        return {};
    for (xml::Node child = document.node().firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() == xml::NodeType::DocumentType)
            return child.xml();
    }
    return {};
}

} // namespace

xml::DOMDocument40 parsedFragment(const xml::DOMDocument40 &document, const QByteArray &utf8) {
    xml::DOMDocument40 parsed = xml::DOMDocument40::create();
    if (parsed.loadXML(utf8) || !utf8.contains('&'))
        return parsed;
    const QByteArray documentType = documentTypeOf(document);
    if (!documentType.isEmpty())
        parsed.loadXML(documentType + utf8);
    return parsed;
}

} // namespace quillon::tree
