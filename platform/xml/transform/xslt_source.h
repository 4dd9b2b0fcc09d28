#pragma once

#include "platform/xml/transform/document_part.h"
#include "platform/xml/transform/xslt_handles.h"

#include <QByteArray>

namespace quillon::xml {

class Node;

/// How a document is shown to a stylesheet; see DomFunctionsNamespace in xslt.h.
enum class SourceView { XPath, Dom };

/// A libxml2 document with a copy of a document or an element and of everything below it. An
/// element becomes the root; what namespaces its ancestors declare, it declares too. Entity
/// references are replaced as the internal subset defines them; nothing external is read. With a
/// part, for SourceView::Dom, only that is copied.
XmlDocument buildSource(const Node &node, SourceView view, const QByteArray &baseUrl,
                        const DocumentPart *part = nullptr);

/// Makes getPath(), nodeType() and nodeNumber() of DomFunctionsNamespace known to all
/// transformations. They answer for the nodes of documents that buildSource() made.
void registerDomFunctions();

} // namespace quillon::xml
