#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/io/save_options.h"
#include "platform/xml/storage/node_kind.h"
#include "platform/xml/storage/parse_error.h"
#include "platform/xml/storage/ref.h"
#include "platform/xml/storage/source_text.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillon::xml {

class AttributeMap;
class DOMDocument40;
class NodeList;

/// Handle of one DOM node: a small value, cheap to copy. Two handles are equal when they name the
/// same node. Like a pointer, a const handle can change its node. A handle keeps the storage of its
/// document alive.
///
/// The empty handle stands for "no node". Asking it anything gives the empty answer; asking it to
/// change anything raises. The same holds for a handle whose document has since been loaded anew.
///
/// All text is exact: nothing is trimmed. In memory line ends are LF; every text that is set has
/// CR LF and CR turned into LF. Errors are runtime::Error with a Japanese description, and an
/// operation that raises has changed nothing.
class Node {
public:
    Node() = default;

    bool isNull() const { return nodeType() == NodeType::None; }
    explicit operator bool() const { return !isNull(); }
    bool operator==(const Node &other) const;

    /// The node's number: positive, and never given to another node of the same document. 0 for
    /// the empty handle.
    quint32 number() const { return number_; }

    NodeType nodeType() const;
    /// The qualified name of an element or attribute, the target of an instruction, the name of a
    /// document type or entity reference; "#document", "#text", "#cdata-section", "#comment" for
    /// the others.
    QString nodeName() const;
    /// The value of an attribute, text, CDATA section, comment or instruction; null for the other
    /// kinds.
    QString nodeValue() const;
    /// Sets what nodeValue() gives. Raises Fail for a kind without a value, for the XML
    /// declaration and for characters that XML forbids.
    void setNodeValue(const QString &value) const;
    /// nodeValue() for the kinds that have a value; for an element and the document all text and
    /// CDATA below, in document order; for an entity reference what it stands for; else "".
    QString text() const;
    /// For an element: replaces all children with one text node (none when text is empty). For
    /// the kinds with a value: setNodeValue(). Raises Fail for the other kinds.
    void setText(const QString &text) const;
    /// The node's markup in UTF-8 with LF line ends. What has not been changed since it was read
    /// stands as it was written; the XML declaration too, whatever encoding it names. For the
    /// document: the whole text, without a byte order mark.
    QByteArray xml() const;
    /// Gives the same to a function, for as long as that runs: without a copy where the node stands
    /// as it was read. The document must not be changed meanwhile.
    void readXml(const std::function<void(QByteArrayView)> &reader) const;

    /// The parent; empty for the document, for attributes and for nodes that stand nowhere.
    Node parentNode() const;
    Node firstChild() const;
    Node lastChild() const;
    /// Siblings in document order; attributes have none.
    Node previousSibling() const;
    Node nextSibling() const;
    bool hasChildNodes() const;
    NodeList childNodes() const;

    /// A copy of this node that stands nowhere yet; with its descendants when deep (attributes
    /// are always copied). The copy of a document is a document of its own that shares all
    /// storage with the original until one of the two is changed.
    Node cloneNode(bool deep) const;

    /// A copy of an attribute under another name, with its value as it is written in the file. It
    /// stands nowhere yet. Raises Fail for an invalid name and on anything but an attribute.
    Node cloneAttribute(const QString &name) const;

    /// Puts newChild under this node before refChild (at the end when refChild is empty) and
    /// returns the node that now stands there. A node that stands elsewhere is moved; a node of
    /// another document is taken over, gets a number of this document, and only the returned
    /// handle names it. The node gets the layout of its new place (docs/architecture.md).
    /// Raises InvalidArgument for an empty newChild or a refChild that is not a child, Fail where
    /// the kind may not stand here, for a second root element, for anything ahead of the XML
    /// declaration and for a node put under itself.
    Node insertBefore(const Node &newChild, const Node &refChild) const;
    Node appendChild(const Node &newChild) const { return insertBefore(newChild, Node()); }
    /// Puts newChild in the place, and with the layout, of oldChild; returns newChild's handle as
    /// insertBefore() does. Raises as insertBefore() and removeChild() do.
    Node replaceChild(const Node &newChild, const Node &oldChild) const;
    /// Puts an element of another name in the place of this one, which then stands nowhere, and
    /// returns it. It is written in the same form: with an end tag or without, with the same white
    /// space inside its tags and ahead of the end tag. It takes copies of the attributes, and the
    /// children themselves, both from the last to the first; they are in reverse order afterwards,
    /// as users of the program know it. Raises Fail for an invalid name and on anything but an
    /// element, InvalidArgument for one that stands nowhere.
    Node rename(const QString &name) const;
    /// Takes oldChild out of the tree; it lives on as long as a handle names it. Raises
    /// InvalidArgument when it is not a child of this node.
    Node removeChild(const Node &oldChild) const;

    /// The attributes; an empty map for kinds other than elements.
    AttributeMap attributes() const;
    /// The value of the attribute with that qualified name; nothing when there is none.
    std::optional<QString> getAttribute(const QString &name) const;
    /// The attribute with that qualified name, or the empty handle.
    Node getAttributeNode(const QString &name) const;
    /// Sets an attribute in its place, or adds it as the last one. Raises Fail for an invalid
    /// name or value and on anything but an element.
    void setAttribute(const QString &name, const QString &value) const;
    /// Adds attr, or puts it in the place of the attribute with the same name; returns the
    /// attribute replaced, or the empty handle. Raises Fail when attr belongs to an element.
    Node setAttributeNode(const Node &attr) const;
    /// Removes an attribute; nothing happens when there is none of that name.
    void removeAttribute(const QString &name) const;
    /// The name of the first entity, in document order, that this node or anything below it refers
    /// to, attribute values included; empty when there is none. The five predefined entities and
    /// references to characters do not count.
    QString referredEntity() const;
    /// False for an attribute that only the internal subset's default supplies.
    bool specified() const;

    /// The document this node belongs to, as a node and as a document.
    Node documentNode() const;
    DOMDocument40 ownerDocument() const;

private:
    friend struct HandleAccess;

    Node(Ref<ArenaBase> arena, quint32 number) : arena_(std::move(arena)), number_(number) {}

    Ref<ArenaBase> arena_;
    quint32 number_ = 0;
};

/// The type name by which the kind of a node is known throughout the program, e.g.
/// "IXMLDOMElement"; "Nothing" for the empty handle.
QString TypeName(const Node &node);

/// Receives the nodes of a walk.
class NodeVisitor {
public:
    virtual ~NodeVisitor() = default;
    /// A node is reached. Attributes come right after their element, ahead of its children.
    virtual void enter(quint32 number, NodeType kind) = 0;
    /// Everything that belongs to the node entered last and not left yet has been reached.
    virtual void leave() = 0;
};

/// Walks over a node and everything below it in document order, without recursion. The visitor
/// must not change the document.
void visitSubtree(const Node &top, NodeVisitor &visitor);

/// The children of a node, always as they stand now.
class NodeList {
public:
    explicit NodeList(Node parent) : parent_(std::move(parent)) {}

    /// Counts by walking the children.
    int length() const;
    /// The child at a 0-based position, or the empty handle. Walks from the first child.
    Node item(int index) const;

private:
    Node parent_;
};

/// The attributes of an element in source order, namespace declarations included, always as they
/// stand now.
class AttributeMap {
public:
    explicit AttributeMap(Node owner) : owner_(std::move(owner)) {}

    int length() const;
    /// The attribute at a 0-based position, or the empty handle. Walks from the first.
    Node item(int index) const;
    /// All of them.
    std::vector<Node> all() const;
    Node getNamedItem(const QString &name) const { return owner_.getAttributeNode(name); }
    /// As Node::setAttributeNode(), but returns the attribute put in. An attribute of another
    /// document is taken over.
    Node setNamedItem(const Node &attr) const;
    /// Removes and returns the attribute; the empty handle when there is none of that name.
    Node removeNamedItem(const QString &name) const;

private:
    Node owner_;
};

/// A document. The handle is a reference: copies of it name the same document.
class DOMDocument40 {
public:
    /// The empty handle: no document.
    DOMDocument40() = default;
    /// A new document without any content.
    static DOMDocument40 create();

    bool isNull() const { return !arena_; }
    explicit operator bool() const { return !isNull(); }
    bool operator==(const DOMDocument40 &other) const { return arena_ == other.arena_; }

    /// Replaces the content by that of a file. False when it cannot be read or parsed: the
    /// document is then empty and parseError() says why. Handles of the old content are dead.
    /// Reads at once, validates nothing, and opens no other file and no address, whatever the
    /// content asks for. When the progress function has the load stopped, the reason is that of a
    /// Cancelled error.
    bool load(const QString &path, const runtime::Progress &progress = {});
    /// The same from the bytes of a file.
    bool loadBytes(std::string bytes, const runtime::Progress &progress = {});
    /// The same from text: UTF-8, with an encoding declaration taken as a wish for save().
    bool loadXML(const QByteArray &utf8);
    bool loadXML(const QString &text) { return loadXML(text.toUtf8()); }
    const ParseError &parseError() const;

    /// Writes the document to a file in its own encoding, with its byte order mark and line ends.
    /// At any instant a reader finds the old file or the new one, whole, unless the options allow
    /// for more; access rights and links survive. Raises with the reason when that fails; the old
    /// file is then as it was. A
    /// character that the encoding cannot hold becomes a numeric reference in text and attribute
    /// values, and anywhere else stops the save before the file is touched. A read-only file is
    /// kept, which raises, or replaced by one that is not.
    void save(const QString &path, const SaveOptions &options = {}) const;
    /// The bytes that save() writes, for other receivers. Raises as save() does.
    QByteArray serialize() const;

    /// Makes save() write with the line ends and the byte order mark of another document, and in
    /// its encoding as long as the two declare the same one. For text that replaces a document.
    void takeFileFormat(const DOMDocument40 &from);

    /// The document as a node.
    Node node() const;
    /// An upper bound of the number of nodes, attributes included, without counting them.
    quint32 maxNodeCount() const;
    /// The node with a number that Node::number() gave; dead if there is none.
    Node nodeByNumber(quint32 number) const;
    QByteArray xml() const { return node().xml(); }
    Node documentElement() const;
    /// Sets the root element: in the place of the present one; else where the last one stood,
    /// when it has been removed from this document; else after everything. Returns its handle as
    /// insertBefore() does. Raises InvalidArgument unless element is an element.
    Node setDocumentElement(const Node &element) const;

    /// New nodes that stand nowhere. A name that XML does not allow, also an empty one, and
    /// characters that XML forbids raise Fail.
    Node createElement(const QString &name) const;
    Node createAttribute(const QString &name) const;
    Node createTextNode(const QString &data) const;
    Node createComment(const QString &data) const;
    Node createCDATASection(const QString &data) const;
    Node createProcessingInstruction(const QString &target, const QString &data) const;
    Node createEntityReference(const QString &name) const;

    /// The name of the encoding that save() writes, as the document declares it; "UTF-8" when it
    /// declares none.
    QString encoding() const;

    /// A deep copy that shares all storage until one of the two is changed: cheap at any size.
    DOMDocument40 clone() const;

    /// True: white space between markup makes text nodes. Takes effect at the next load.
    bool preserveWhiteSpace() const;
    void setPreserveWhiteSpace(bool on);

private:
    friend struct HandleAccess;

    explicit DOMDocument40(Ref<ArenaBase> arena) : arena_(std::move(arena)) {}

    Ref<ArenaBase> arena_;
};

} // namespace quillon::xml
