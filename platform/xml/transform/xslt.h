#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/dom/dom.h"
#include "platform/xml/transform/document_part.h"

#include <QStringList>

#include <chrono>

namespace quillon::xml {

/// What a transformation may use.
struct TransformOptions {
    /// The folders from which xsl:import, xsl:include and document() read, in the order in which
    /// a relative name is looked up. The first is the base of relative names in the source and in
    /// the stylesheet. Everything else is out of reach: other files, writing, the network.
    QStringList folders;
    std::chrono::milliseconds timeLimit = std::chrono::seconds(60);
    /// The largest result, in bytes of UTF-8.
    qint64 outputLimit = qint64(256) << 20;
    /// The most memory that source, stylesheet and result may take together, in bytes.
    qint64 memoryLimit = qint64(4) << 30;
    /// What of the source a stylesheet sees that sees it as the DOM has it; null for all.
    const DocumentPart *part = nullptr;
    /// Told while the transformation runs; its extent is unknown.
    runtime::Progress progress = {};
};

/// The namespace of the functions by which a stylesheet asks about nodes of the editor's DOM.
/// A stylesheet whose root element declares it is given the document as the DOM has it:
/// - CDATA sections and text are nodes of their own, and so is an entity reference, as a text node
///   with its markup ("&name;");
/// - the XML declaration and the document type are instructions named "xml" and as the document
///   type; attributes that declare namespaces are among the attributes.
/// `getPath(node)` gives the 1-based positions of the node and its ancestors among all children of
/// their parents, from the document (which counts 1) down, joined by ".". `nodeType(node)` gives
/// the NodeType of the node, `nodeNumber(node)` its Node::number(), 0 for an attribute. All take
/// the first node of the set; for nodes of other documents they give "", 0 and 0. In place of each
/// run of children that a part of a document does not show there is an instruction that has the
/// path and the number of the first of them, and the type 0, so that no node of a document can be
/// taken for one: "more" with the label of a run that is left out, "kept" with the number of the
/// last node of one that is kept. Every other stylesheet sees what XPath defines: one text node for
/// text, CDATA sections and what references stand for.
inline constexpr char DomFunctionsNamespace[] = "urn:quillon-xml-editor:dom";

/// Transforms a document or an element by an XSLT 1.0 stylesheet and returns the result as text.
/// An element is transformed as if it were a document of its own: "/" is a document with that
/// element as its only child; namespaces declared further up hold.
///
/// Run-time errors that XSLT 1.0 lets a processor recover from are passed over: document() gives no
/// nodes for what is out of reach, for instance.
///
/// The modules of EXSLT that libexslt has and msxsl:node-set can be used. xsl:sort orders text as
/// its language does, which is Japanese where `lang` does not say (xslt_sort.h). A stylesheet in
/// the namespace http://www.w3.org/TR/WD-xsl is translated first (wd_xsl.h).
///
/// - Method html: <META http-equiv="Content-Type" content="text/html; charset=UTF-16"> is the
///   first child of HEAD, where there is one.
/// - Method xml: the declaration names UTF-16, whatever the stylesheet asks for.
///
/// Works in a child process: what a stylesheet does to the processor cannot harm the caller, which
/// waits. Raises Fail, with the reason and the line of the stylesheet in it, when the stylesheet is
/// not correct, cannot be carried out, ends itself by xsl:message, exceeds a limit or
/// nests too deeply, and for a source that is neither a document nor an element. Raises Cancelled
/// when the progress function says so.
QString transformNode(const Node &source, const DOMDocument40 &stylesheet,
                      const TransformOptions &options = {});

} // namespace quillon::xml
