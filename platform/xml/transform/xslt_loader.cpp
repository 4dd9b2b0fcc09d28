#include "platform/xml/transform/xslt_loader.h"

#include "platform/xml/dom/dom.h"
#include "platform/xml/engine/allowed_folders.h"
#include "platform/xml/io/encoding.h"
#include "platform/xml/transform/xslt_log.h"
#include "platform/xml/transform/xslt_stylesheet.h"
#include "resources/xslt_texts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <libxml/parser.h>
#include <libxml/xpathInternals.h>
#include <libxslt/documents.h>
#include <libxslt/functions.h>

namespace quillon::xml {

namespace texts = resources::xslt_texts;

namespace {

constexpr int ParseOptions = XML_PARSE_NOENT | XML_PARSE_NOCDATA | XML_PARSE_NONET;

// The loader that libxslt calls has no user data of its own.
AllowedFolders allowedFolders;
XsltLog *loaderLog = nullptr;

/// Says why a text is not to be had as a document: in the words of our own parser, if that does
/// not take it either.
void reportParseFailure(const QByteArray &content, const QByteArray &url, int line) {
    DOMDocument40 document = DOMDocument40::create();
    if (document.loadXML(content))
        return loaderLog->addFailure(texts::NotParsed.toString(), url, line);
    const ParseError &error = document.parseError();
    loaderLog->addFailure(error.reason, url, error.line);
}

/// A file by the name that a stylesheet would call it by.
QString shownName(const QUrl &file) {
    const QUrl folder = QUrl::fromEncoded(loaderLog->mainUrl()).adjusted(QUrl::RemoveQuery);
    if (folder.isParentOf(file))
        return file.path().mid(folder.path().size());
    return file.isLocalFile() ? file.toLocalFile() : file.toString();
}

/// Parses a text in UTF-8, whatever its declaration says.
xmlDocPtr parse(const QByteArray &content, const QByteArray &url, xmlDictPtr dictionary) {
    using ParserContext = std::unique_ptr<xmlParserCtxt, Releaser<xmlFreeParserCtxt>>;
    const ParserContext parser(xmlNewParserCtxt());
    if (dictionary) {
        // libxslt compares names by their place in its own dictionary.
        xmlDictFree(parser->dict);
        parser->dict = dictionary;
        xmlDictReference(dictionary);
    }
    XmlDocument document(xmlCtxtReadMemory(parser.get(), content.constData(), int(content.size()),
                                           url.constData(), "UTF-8", ParseOptions));
    if (parser->wellFormed)
        return document.release();
    reportParseFailure(content, url, parser->lastError.line);
    return nullptr;
}

xmlDocPtr loadDocument(const xmlChar *uri, xmlDictPtr dictionary, int /*options*/, void * /*ctxt*/,
                       xsltLoadType type) {
    // document('') asks for the stylesheet. libxslt takes the one it has when there is no file.
    if (QByteArray(bytes(uri)).split('#').first() == loaderLog->mainUrl())
        return nullptr;
    const QUrl asked = QUrl::fromEncoded(bytes(uri));
    const QString path = asked.isLocalFile() ? allowedFolders.find(asked.toLocalFile()) : QString();
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        // Without its document document() gives no nodes, as XSLT 1.0 has it.
        if (type == XSLT_LOAD_STYLESHEET)
            loaderLog->addFailure(texts::FileOutOfReach.toString().arg(shownName(asked)));
        return nullptr;
    }
    const QByteArray url = QUrl::fromLocalFile(path).toEncoded();
    // As the main file is decoded: libxml2 knows other Japanese encodings, or less of them.
    const Decoded decoded = decodeFile(file.readAll().toStdString());
    if (!decoded.error.isNull()) {
        loaderLog->addFailure(decoded.error, url, 1);
        return nullptr;
    }
    XmlDocument document(parse(QByteArray::fromStdString(decoded.utf8), url, dictionary));
    if (document && type == XSLT_LOAD_STYLESHEET &&
        !prepareStylesheet(document.get(), url, *loaderLog))
        return nullptr;
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
    XmlDocument stylesheet(parse(text, url, nullptr));
    if (!stylesheet || !prepareStylesheet(stylesheet.get(), url, log))
        return nullptr;
    return stylesheet;
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
