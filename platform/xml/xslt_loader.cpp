#include "platform/xml/xslt_loader.h"

#include "platform/xml/allowed_folders.h"
#include "platform/xml/xslt_log.h"
#include "resources/xslt_texts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <libxml/parser.h>
#include <libxml/uri.h>
#include <libxml/xpathInternals.h>
#include <libxslt/documents.h>
#include <libxslt/functions.h>

namespace quillon::xml {

namespace text = resources::xslt_text;

namespace {

constexpr char ScriptNamespace[] = "urn:schemas-microsoft-com:xslt";

constexpr int ParseOptions = XML_PARSE_NOENT | XML_PARSE_NOCDATA | XML_PARSE_NONET;

// The loader that libxslt calls has no user data of its own.
AllowedFolders allowedFolders;
XsltLog *loaderLog = nullptr;

/// URL syntax for a name that may hold any characters; what is a URL already stays as it is.
QByteArray escapedReference(const xmlChar *reference) {
    constexpr char Kept[] = "%:/?#[]@!$&'()*+,;=";
    xmlChar *escaped = xmlURIEscapeStr(reference, utf8(Kept));
    const QByteArray result(bytes(escaped));
    xmlFree(escaped);
    return result;
}

/// Escapes the names of the stylesheets that a stylesheet includes, which libxslt expects to be
/// proper URLs.
void escapeReferences(xmlDocPtr stylesheet) {
    const xmlNode *root = xmlDocGetRootElement(stylesheet);
    for (xmlNodePtr node = root ? root->children : nullptr; node; node = node->next) {
        if (node->type != XML_ELEMENT_NODE || !node->ns ||
            !xmlStrEqual(node->ns->href, utf8("http://www.w3.org/1999/XSL/Transform")) ||
            !(xmlStrEqual(node->name, utf8("import")) || xmlStrEqual(node->name, utf8("include"))))
            continue;
        if (xmlChar *href = xmlGetNoNsProp(node, utf8("href"))) {
            xmlSetProp(node, utf8("href"), utf8(escapedReference(href)));
            xmlFree(href);
        }
    }
}

/// Reports the first script of a stylesheet; true when there is one.
bool reportScript(xmlDocPtr stylesheet, const QByteArray &url, XsltLog &log) {
    const xmlNode *root = xmlDocGetRootElement(stylesheet);
    for (xmlNodePtr node = root ? root->children : nullptr; node; node = node->next) {
        if (node->type == XML_ELEMENT_NODE && node->ns &&
            xmlStrEqual(node->ns->href, utf8(ScriptNamespace)) &&
            xmlStrEqual(node->name, utf8("script"))) {
            log.addFailure(text::ScriptNotSupported.toString(), url, int(xmlGetLineNo(node)));
            return true;
        }
    }
    return false;
}

xmlDocPtr parse(const QByteArray &content, const QByteArray &url, const char *encoding,
                xmlDictPtr dictionary) {
    using ParserContext = std::unique_ptr<xmlParserCtxt, Releaser<xmlFreeParserCtxt>>;
    const ParserContext parser(xmlNewParserCtxt());
    if (dictionary) {
        // libxslt compares names by their place in its own dictionary.
        xmlDictFree(parser->dict);
        parser->dict = dictionary;
        xmlDictReference(dictionary);
    }
    XmlDocument document(xmlCtxtReadMemory(parser.get(), content.constData(), int(content.size()),
                                           url.constData(), encoding, ParseOptions));
    return parser->wellFormed ? document.release() : nullptr;
}

xmlDocPtr loadDocument(const xmlChar *uri, xmlDictPtr dictionary, int /*options*/, void * /*ctxt*/,
                       xsltLoadType type) {
    // document('') asks for the stylesheet. libxslt takes the one it has when there is no file.
    if (loaderLog->mainUrl() == bytes(uri))
        return nullptr;
    const QUrl asked = QUrl::fromEncoded(bytes(uri));
    const QString path = asked.isLocalFile() ? allowedFolders.find(asked.toLocalFile()) : QString();
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        loaderLog->addFailure(text::FileOutOfReach.toString().arg(asked.toString()));
        return nullptr;
    }
    const QByteArray url = QUrl::fromLocalFile(path).toEncoded();
    XmlDocument document(parse(file.readAll(), url, nullptr, dictionary));
    if (document && type == XSLT_LOAD_STYLESHEET) {
        escapeReferences(document.get());
        if (reportScript(document.get(), url, *loaderLog))
            return nullptr;
    }
    return document.release();
}

xmlParserInputPtr refuseEntity(const char * /*url*/, const char * /*id*/,
                               xmlParserCtxtPtr /*parser*/) {
    return nullptr;
}

} // namespace

QByteArray folderUrl(const QString &folder) {
    if (folder.isEmpty())
        return "nowhere:/";
    return QUrl::fromLocalFile(QDir::cleanPath(QFileInfo(folder).absoluteFilePath()) +
                               QLatin1Char('/'))
        .toEncoded();
}

void restrictToFolders(const QStringList &folders, XsltLog &log) {
    allowedFolders = AllowedFolders(folders);
    loaderLog = &log;
    xmlSetExternalEntityLoader(refuseEntity);
    xsltSetLoaderFunc(loadDocument);
    static const SecurityPreferences preferences(xsltNewSecurityPrefs());
    // Reading files is up to loadDocument().
    for (const xsltSecurityOption forbidden :
         {XSLT_SECPREF_WRITE_FILE, XSLT_SECPREF_CREATE_DIRECTORY, XSLT_SECPREF_READ_NETWORK,
          XSLT_SECPREF_WRITE_NETWORK})
        xsltSetSecurityPrefs(preferences.get(), forbidden, xsltSecurityForbid);
    xsltSetDefaultSecurityPrefs(preferences.get());
}

XmlDocument parseStylesheet(const QByteArray &text, const QByteArray &url, XsltLog &log) {
    XmlDocument stylesheet(parse(text, url, "UTF-8", nullptr));
    if (!stylesheet)
        return nullptr;
    escapeReferences(stylesheet.get());
    return reportScript(stylesheet.get(), url, log) ? nullptr : std::move(stylesheet);
}

void documentFunction(xmlXPathParserContextPtr context, int count) {
    xmlXPathObjectPtr base = count == 2 ? valuePop(context) : nullptr;
    if (context->value && context->value->type == XPATH_STRING) {
        xmlXPathObjectPtr name = valuePop(context);
        valuePush(context, xmlXPathNewString(utf8(escapedReference(name->stringval))));
        xmlXPathFreeObject(name);
    }
    if (base)
        valuePush(context, base);
    xsltDocumentFunction(context, count);
}

} // namespace quillon::xml
