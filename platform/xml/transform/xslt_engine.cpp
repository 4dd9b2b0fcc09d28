#include "platform/xml/transform/xslt_engine.h"

#include "platform/runtime/error.h"
#include "platform/xml/transform/wd_xsl.h"
#include "platform/xml/transform/wd_xsl_functions.h"
#include "platform/xml/transform/xslt.h"
#include "platform/xml/transform/xslt_loader.h"
#include "platform/xml/transform/xslt_log.h"
#include "platform/xml/transform/xslt_output.h"
#include "platform/xml/transform/xslt_sort.h"
#include "platform/xml/transform/xslt_source.h"
#include "resources/xslt_texts.h"

#include <libexslt/exslt.h>
#include <libxml/xpathInternals.h>
#include <libxslt/extensions.h>
#include <libxslt/extra.h>
#include <libxslt/xsltutils.h>

namespace quillon::xml {

namespace texts = resources::xslt_texts;

namespace {

/// Templates may call one another this deep: a document that is nested so deep can be shown. The
/// stack has room for several times as much.
constexpr int MaxTemplateDepth = 20'000;

[[noreturn]] void fail(QStringView sentence) {
    throw runtime::Error(runtime::error_number::Fail, sentence.toString());
}

[[noreturn]] void fail(QStringView sentence, const QString &detail) {
    throw runtime::Error(runtime::error_number::Fail, sentence.toString().arg(detail).trimmed());
}

[[noreturn]] void fail(QStringView sentence, const XsltLog &log) {
    throw StylesheetError(sentence.toString().arg(log.text()).trimmed(), log.reason(), log.line());
}

/// While it lives, what the libraries report goes to a log.
class Reports {
public:
    explicit Reports(XsltLog &log) {
        xmlSetStructuredErrorFunc(&log, XsltLog::onXmlError);
        xmlSetGenericErrorFunc(&log, XsltLog::onXsltError);
        xsltSetGenericErrorFunc(&log, XsltLog::onXsltError);
    }
    ~Reports() {
        xmlSetStructuredErrorFunc(nullptr, nullptr);
        xmlSetGenericErrorFunc(nullptr, nullptr);
        xsltSetGenericErrorFunc(nullptr, nullptr);
    }
    Reports(const Reports &) = delete;
    Reports &operator=(const Reports &) = delete;
};

void registerFunctions() {
    exsltRegisterAll();
    xsltRegisterExtModuleFunction(utf8("node-set"), utf8("urn:schemas-microsoft-com:xslt"),
                                  xsltFunctionNodeSet);
    registerDomFunctions();
    registerWdFunctions();
}

Stylesheet compile(const DOMDocument40 &source, const QByteArray &url, XsltLog &log) {
    const QByteArray code = isWdXsl(source) ? translateWdXsl(source) : source.xml();
    XmlDocument document = parseStylesheet(code, url, log);
    Stylesheet stylesheet(document ? xsltParseStylesheetDoc(document.get()) : nullptr);
    if (stylesheet)
        // Goes with the stylesheet from here on.
        static_cast<void>(document.release());
    // What the processor warns of, it carries out all the same.
    if (!stylesheet || stylesheet->errors != 0 || log.hasFailure())
        fail(texts::BadStylesheet, log);
    log.clear();
    return stylesheet;
}

SourceView viewFor(const xsltStylesheet &stylesheet) {
    const xmlNode *root = xmlDocGetRootElement(stylesheet.doc);
    for (const xmlNs *declared = root->nsDef; declared; declared = declared->next) {
        if (xmlStrEqual(declared->href, utf8(DomFunctionsNamespace)))
            return SourceView::Dom;
    }
    return SourceView::XPath;
}

XmlDocument apply(xsltStylesheet *stylesheet, xmlDoc *source, XsltLog &log) {
    const TransformContext context(xsltNewTransformContext(stylesheet, source));
    context->maxTemplateDepth = MaxTemplateDepth;
    xsltSetTransformErrorFunc(context.get(), &log, XsltLog::onXsltError);
    log.follow(context.get());
    xsltSetCtxtSortFunc(context.get(), sortNodes);
    // A function that is there is not replaced, so it is removed first.
    xmlXPathRegisterFunc(context->xpathCtxt, utf8("document"), nullptr);
    xmlXPathRegisterFunc(context->xpathCtxt, utf8("document"), documentFunction);
    XmlDocument result(
        xsltApplyStylesheetUser(stylesheet, source, nullptr, nullptr, nullptr, context.get()));
    if (log.hasRecursion())
        fail(texts::TooDeep);
    // Only xsl:message stops a transformation without an error, and says its text last.
    if (context->state == XSLT_STATE_STOPPED && log.endsWithInstructionMessage())
        fail(texts::Terminated, log.instructionMessage());
    if (!result || context->state != XSLT_STATE_OK || log.hasFailure())
        fail(texts::Failed, log);
    return result;
}

} // namespace

QByteArray runStylesheet(const Node &source, const DOMDocument40 &stylesheet,
                         const TransformOptions &options) {
    // Relative names start from the folder in both; the URLs differ, for document('') asks for the
    // stylesheet by its URL.
    const QByteArray folder = folderUrl(options.folders.value(0));
    const QByteArray url = folder + "?stylesheet";
    XsltLog log(url);
    const Reports reports(log);
    restrictToFolders(options.folders, log);
    registerFunctions();

    const Stylesheet compiled = compile(stylesheet, url, log);
    XmlDocument document =
        buildSource(source, viewFor(*compiled), folder + "?source", options.part);
    XmlDocument result = apply(compiled.get(), document.get(), log);
    QByteArray text = serializeResult(*result, *compiled, options.outputLimit);
    // The process ends now, so the time to release millions of nodes one by one is saved.
    static_cast<void>(result.release());
    static_cast<void>(document.release());
    return text;
}

} // namespace quillon::xml
