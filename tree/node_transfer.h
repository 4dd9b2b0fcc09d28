#pragma once

#include "platform/xml/dom/dom.h"

#include <map>
#include <optional>
#include <vector>

namespace quillon::tree {

/// The MIME type in which a node travels within this program, also from one window or one running
/// program to another, beside the plain text for all others.
inline constexpr QLatin1String NodeFormat("application/x-quillon-node");

/// The MIME type in which several nodes travel. Of NodeFormat each sender and reader expects one
/// node, older programs among them: with that they would take the first for all of a move.
inline constexpr QLatin1String NodesFormat("application/x-quillon-nodes");

/// Namespace names by their prefixes; the empty prefix stands for the default namespace. What is
/// not declared is not in it.
using Namespaces = std::map<QString, QString>;

/// The namespaces that are declared at a node: by itself and by what is above it.
Namespaces namespacesAt(const xml::Node &node);

/// Takes out of an element the declarations that a place has as well.
void leaveOutDeclared(const xml::Node &element, const Namespaces &place);

/// Has an element declare what it uses of the namespaces `before`, those at its old place, and what
/// is something else at its new one.
void declareAnew(const xml::Node &element, const Namespaces &before, const Namespaces &place);

/// A node with what its place in the document adds to its meaning, ready to go elsewhere. The
/// place may be left or changed afterwards.
class DepartingNode {
public:
    /// `place` is the node that `node` belongs to; an attribute cannot say that itself.
    DepartingNode(const xml::Node &node, const xml::Node &place);

    /// For other programs: the node's XML. An element also declares the prefixes it uses that are
    /// declared above it.
    QByteArray text() const;
    /// For this program, in NodeFormat. It is XML: what kind of node it is, the namespaces at its
    /// place, its own markup, and the document type that declares the entities it may refer to.
    QByteArray packed() const;

private:
    friend class DepartingNodes;

    /// What it is packed in, without the document type.
    QByteArray envelope(const QByteArray &markup) const;
    QByteArray markupToCarry() const;

    xml::Node node_;
    Namespaces scope_;
    QByteArray declarations_;
};

/// One node or several that go elsewhere together.
class DepartingNodes {
public:
    /// Takes nodes of one document, each with the place it belongs to.
    void add(const xml::Node &node, const xml::Node &place) { nodes_.emplace_back(node, place); }

    /// NodeFormat for one node, else NodesFormat.
    QLatin1String format() const { return nodes_.size() == 1 ? NodeFormat : NodesFormat; }
    /// As of one node; several stand on lines of their own.
    QByteArray text() const;
    /// In format(), as of one node; in NodesFormat one follows the other in an element.
    QByteArray packed() const;

private:
    std::vector<DepartingNode> nodes_;
};

/// A node that has come in NodeFormat.
struct ArrivedNode {
    /// Stands in a document of its own. Empty for a kind that is never inserted: instructions, the
    /// document type.
    xml::Node node;
    /// The namespaces at the place it comes from.
    Namespaces scope;

    /// Has an element declare what it uses and what is something else at its new place, and leaves
    /// out what it declares as that place does.
    void adaptTo(const Namespaces &place) const;
};

/// Reads what packed() has written in either format, which anybody may claim to have done: all of
/// the nodes, or nothing for what it cannot have written. Raises Fail when a node refers to
/// entities that `target` does not declare with the same content.
std::vector<ArrivedNode> unpackedNodes(const QByteArray &packed, const xml::DOMDocument40 &target);

} // namespace quillon::tree
