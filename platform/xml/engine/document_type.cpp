#include "platform/xml/engine/document_type.h"

#include "platform/xml/dom/dom.h"

#include <libxml/hash.h>
#include <libxml/parser.h>

namespace quillon::xml {

namespace {

void addIdentifier(void *declaration, void *names, const xmlChar *) {
    const auto *attribute = static_cast<const xmlAttribute *>(declaration);
    if (attribute->atype != XML_ATTRIBUTE_ID)
        return;
    std::string name = bytes(attribute->name);
    if (attribute->prefix)
        name = std::string(bytes(attribute->prefix)) + ':' + name;
    static_cast<IdentifierNames *>(names)->emplace(bytes(attribute->elem), std::move(name));
}

/// While it lives, libxml2 reads nothing but what it is given: left to itself it would open files
/// wherever an entity says that it stands.
class NothingExternal {
public:
    NothingExternal() : before_(xmlGetExternalEntityLoader()) {
        xmlSetExternalEntityLoader([](const char *, const char *, xmlParserCtxt *) {
            return static_cast<xmlParserInput *>(nullptr);
        });
    }
    ~NothingExternal() { xmlSetExternalEntityLoader(before_); }
    NothingExternal(const NothingExternal &) = delete;
    NothingExternal &operator=(const NothingExternal &) = delete;

private:
    xmlExternalEntityLoader before_;
};

} // namespace

QByteArray documentTypeOf(const DOMDocument40 &document) {
    for (Node child = document.node().firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() == NodeType::DocumentType)
            return child.xml();
    }
    return {};
}

XmlDocument parseWithSubset(const QByteArray &documentType, const QByteArray &content) {
    const NothingExternal nothingExternal;
    const QByteArray text = documentType + content;
    return XmlDocument(xmlReadMemory(text.constData(), int(text.size()), nullptr, "UTF-8",
                                     XML_PARSE_NOENT | XML_PARSE_NOCDATA | XML_PARSE_NONET |
                                         XML_PARSE_NOERROR | XML_PARSE_NOWARNING));
}

IdentifierNames identifierNames(const QByteArray &documentType) {
    IdentifierNames names;
    if (!documentType.contains("ID"))
        return names;
    const XmlDocument parsed = parseWithSubset(documentType, "<root/>");
    if (parsed && parsed->intSubset && parsed->intSubset->attributes)
        xmlHashScan(static_cast<xmlHashTablePtr>(parsed->intSubset->attributes), addIdentifier,
                    &names);
    return names;
}

} // namespace quillon::xml
