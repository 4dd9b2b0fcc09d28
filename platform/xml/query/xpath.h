#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/dom/dom.h"

#include <optional>
#include <vector>

namespace quillon::xml {

/// The nodes that an XPath 1.0 expression selects from a context node, in document order, each
/// once.
///
/// XPath sees the document as the DOM holds it: every text and CDATA section is a node of its own,
/// an entity reference is a text node, white space that is layout is nothing. It sees neither the
/// XML declaration nor the document type, and xmlns attributes only on the namespace axis. The
/// prefixes declared in scope of the context node can be used (those of the root element if that
/// node is the document), then those declared anywhere, where the first declaration counts, then
/// `str`, `math`, `set` and `date` for the functions of EXSLT. A name without a prefix means no
/// namespace. id() knows xml:id and what the internal subset declares as ID, and current() is the
/// context node.
///
/// Paths of the usual kind (SimplePath) are taken on the document itself. For any other expression
/// libxml2 is asked, in a child process that copies the document. The progress of both is unknown.
///
/// Raises InvalidArgument for a context that XPath cannot see or that does not stand in the
/// document. Raises Fail, with what is wrong between "-->" and "<--", for an expression that is no
/// XPath, uses an undeclared prefix or an unknown function, does not select nodes, or takes too
/// many steps or too much time; Cancelled when the progress function says so.
std::vector<Node> selectNodes(const Node &context, const QString &expression,
                              const runtime::Progress &progress = {});

/// What an expression leads to.
struct XPathAnswer {
    /// The nodes found, in document order, each once.
    std::vector<Node> nodes;
    /// The text of a result that is a number, a text or a truth value ("true" or "false"), in UTF-8
    /// no more than 64 KB of it; nothing for nodes.
    std::optional<QString> value;
    /// The names without a prefix were taken for those of a default namespace.
    bool inDefaultNamespace = false;
};

/// The same for an expression of the user's. Names without a prefix that find nothing are asked for
/// again in the default namespace in force at the context, then in that of the root element; for a
/// result that is not nodes, names find nothing when no element without a namespace has any of
/// them. The variable `$selection` is the node given, or no node.
XPathAnswer evaluateXPath(const Node &context, const QString &expression,
                          const Node &selection = {}, const runtime::Progress &progress = {});

/// What an expression of the user's is worth at each of some nodes of one document: the text of a
/// value, or of the first node found; nothing where it finds none. Names without a prefix are taken
/// as above. Raises as above.
std::vector<std::optional<QString>> valuesAt(const std::vector<Node> &contexts,
                                             const QString &expression,
                                             const runtime::Progress &progress = {});

/// The element that an attribute is set on; the empty handle for one that stands nowhere and for
/// other nodes.
Node ownerElement(const Node &attribute);

} // namespace quillon::xml
