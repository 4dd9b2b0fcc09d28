#include "platform/xml/transform/xslt_output.h"

#include "platform/runtime/error.h"
#include "platform/xml/engine/libxml_walk.h"
#include "resources/xslt_texts.h"

#include <libxml/HTMLtree.h>
#include <libxml/xmlIO.h>
#include <libxslt/imports.h>
#include <libxslt/xsltutils.h>

namespace quillon::xml {

namespace {

struct Limited {
    QByteArray bytes;
    qint64 limit;
    bool exceeded = false;

    static int write(void *self, const char *data, int length) {
        auto &output = *static_cast<Limited *>(self);
        output.exceeded = output.exceeded || output.bytes.size() + length > output.limit;
        if (output.exceeded)
            return -1;
        output.bytes.append(data, length);
        return length;
    }
};

bool isHtml(const xmlDoc &result, xsltStylesheet &stylesheet) {
    const xmlChar *method = nullptr;
    XSLT_GET_IMPORT_PTR(method, &stylesheet, method)
    // Without a method the processor has looked at the first element.
    return method ? xmlStrEqual(method, utf8("html")) : result.type == XML_HTML_DOCUMENT_NODE;
}

/// Declares the character set of the text in memory, as callers of the parser service expect it.
void addMeta(xmlDoc &result) {
    xmlNodePtr node = result.children;
    while (node && !(node->type == XML_ELEMENT_NODE && !node->ns &&
                     xmlStrcasecmp(node->name, utf8("head")) == 0))
        node = followingNode(node);
    if (!node)
        return;
    xmlNodePtr meta = xmlNewDocNode(&result, nullptr, utf8("META"), nullptr);
    xmlNewProp(meta, utf8("http-equiv"), utf8("Content-Type"));
    xmlNewProp(meta, utf8("content"), utf8("text/html; charset=UTF-16"));
    if (node->children)
        xmlAddPrevSibling(node->children, meta);
    else
        xmlAddChild(node, meta);
}

/// Puts a space where comments have what they may not: "--" in them, or "-" at their end.
void separateHyphens(xmlDoc &result) {
    for (auto *node = reinterpret_cast<xmlNode *>(&result); node; node = followingNode(node)) {
        if (node->type != XML_COMMENT_NODE)
            continue;
        QByteArray text(bytes(node->content));
        for (qsizetype at = text.indexOf("--"); at >= 0; at = text.indexOf("--", at))
            text.insert(++at, ' ');
        if (text.endsWith('-'))
            text += ' ';
        if (text != bytes(node->content))
            xmlNodeSetContent(node, utf8(text));
    }
}

void nameUtf16InDeclaration(QByteArray &text) {
    constexpr char Written[] = "encoding=\"UTF-8\"";
    if (!text.startsWith("<?xml "))
        return;
    const qsizetype place = text.indexOf(Written);
    if (place >= 0 && place < text.indexOf("?>"))
        text.replace(place, qsizetype(std::size(Written)) - 1, "encoding=\"UTF-16\"");
}

} // namespace

QByteArray serializeResult(xmlDoc &result, xsltStylesheet &stylesheet, qint64 limit) {
    // Whatever encoding is asked for: the text stays in memory.
    xmlFree(stylesheet.encoding);
    stylesheet.encoding = xmlStrdup(utf8("UTF-8"));
    // Without an encoding libxml2 writes numbers for what is beyond ASCII in attributes.
    if (!result.encoding)
        result.encoding = xmlStrdup(utf8("UTF-8"));
    separateHyphens(result);
    Limited output{{}, limit};
    xmlOutputBufferPtr buffer = xmlOutputBufferCreateIO(Limited::write, nullptr, &output, nullptr);
    const bool html = isHtml(result, stylesheet);
    if (html) {
        int indent = -1;
        XSLT_GET_IMPORT_INT(indent, &stylesheet, indent)
        addMeta(result);
        htmlDocContentDumpFormatOutput(buffer, &result, "UTF-8", indent != 0);
    } else {
        xsltSaveResultTo(buffer, &result, &stylesheet);
    }
    xmlOutputBufferClose(buffer);
    if (output.exceeded)
        throw runtime::Error(runtime::error_number::Fail,
                             resources::xslt_texts::OutputLimit.toString());
    if (!html)
        nameUtf16InDeclaration(output.bytes);
    return output.bytes;
}

} // namespace quillon::xml
