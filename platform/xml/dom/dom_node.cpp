#include "platform/runtime/strings.h"
#include "platform/xml/dom/dom.h"
#include "platform/xml/dom/handle_access.h"
#include "platform/xml/io/serializer.h"
#include "platform/xml/storage/values.h"

namespace quillon::xml {

namespace {

/// Text and CDATA below a node, with what entity references stand for.
QString textBelow(const Arena &arena, Number top) {
    std::string text;
    for (Number n = arena.nextInSubtree(top, top); n != 0; n = arena.nextInSubtree(n, top)) {
        const Record &r = arena.record(n);
        if (r.kind == NodeType::Text || r.kind == NodeType::CDATASection)
            text += valueOf(arena, n);
        else if (r.kind == NodeType::EntityReference)
            text += entityText(arena.names->utf8(r.name), *arena.entities);
    }
    return runtime::fromUtf8(text);
}

bool hasValue(NodeType kind) {
    return kind == NodeType::Attribute || kind == NodeType::Text ||
           kind == NodeType::CDATASection || kind == NodeType::Comment ||
           kind == NodeType::ProcessingInstruction;
}

} // namespace

bool Node::operator==(const Node &other) const {
    return number_ == other.number_ && (number_ == 0 || arena_ == other.arena_);
}

NodeType Node::nodeType() const {
    if (number_ == 0)
        return NodeType::None;
    const Arena &arena = HandleAccess::arena(*this);
    return arena.isAlive(number_) ? arena.record(number_).kind : NodeType::None;
}

QString Node::nodeName() const {
    switch (nodeType()) {
    case NodeType::None:
        return {};
    case NodeType::Text:
        return QStringLiteral("#text");
    case NodeType::CDATASection:
        return QStringLiteral("#cdata-section");
    case NodeType::Comment:
        return QStringLiteral("#comment");
    case NodeType::Document:
        return QStringLiteral("#document");
    default: {
        const Arena &arena = HandleAccess::arena(*this);
        return arena.names->string(arena.record(number_).name);
    }
    }
}

QString Node::nodeValue() const {
    if (!hasValue(nodeType()))
        return {};
    // An empty value is not a missing one.
    const std::string value = valueOf(HandleAccess::arena(*this), number_);
    return value.empty() ? QStringLiteral("") : runtime::fromUtf8(value);
}

QString Node::text() const {
    switch (nodeType()) {
    case NodeType::None:
    case NodeType::DocumentType:
        return QStringLiteral("");
    case NodeType::Element:
    case NodeType::Document:
        return textBelow(HandleAccess::arena(*this), number_);
    case NodeType::EntityReference: {
        const Arena &arena = HandleAccess::arena(*this);
        return runtime::fromUtf8(
            entityText(arena.names->utf8(arena.record(number_).name), *arena.entities));
    }
    default:
        return nodeValue();
    }
}

QByteArray Node::xml() const {
    return isNull() ? QByteArray() : serializeNode(HandleAccess::arena(*this), number_);
}

void Node::readXml(const std::function<void(QByteArrayView)> &reader) const {
    if (isNull())
        reader({});
    else
        readNode(HandleAccess::arena(*this), number_, reader);
}

Node Node::parentNode() const {
    if (isNull() || nodeType() == NodeType::Attribute)
        return {};
    return HandleAccess::node(*this, HandleAccess::arena(*this).record(number_).parent);
}

Node Node::firstChild() const {
    if (isNull() || !HandleAccess::arena(*this).hasPart(number_))
        return {};
    return HandleAccess::node(*this, HandleAccess::arena(*this).part(number_).firstChild);
}

Node Node::lastChild() const {
    if (isNull() || !HandleAccess::arena(*this).hasPart(number_))
        return {};
    return HandleAccess::node(*this, HandleAccess::arena(*this).part(number_).lastChild);
}

Node Node::previousSibling() const {
    if (isNull() || nodeType() == NodeType::Attribute)
        return {};
    return HandleAccess::node(*this, HandleAccess::arena(*this).previousSibling(number_));
}

Node Node::nextSibling() const {
    if (isNull() || nodeType() == NodeType::Attribute)
        return {};
    return HandleAccess::node(*this, HandleAccess::arena(*this).record(number_).next);
}

bool Node::hasChildNodes() const {
    return !firstChild().isNull();
}

NodeList Node::childNodes() const {
    return NodeList(*this);
}

AttributeMap Node::attributes() const {
    return AttributeMap(*this);
}

Node Node::getAttributeNode(const QString &name) const {
    if (nodeType() != NodeType::Element)
        return {};
    const Arena &arena = HandleAccess::arena(*this);
    const QByteArray utf8 = name.toUtf8();
    const std::uint32_t wanted = arena.names->find({utf8.constData(), std::size_t(utf8.size())});
    if (wanted == 0)
        return {};
    Number n = arena.part(number_).firstAttribute;
    while (n != 0 && arena.record(n).name != wanted)
        n = arena.record(n).next;
    return HandleAccess::node(*this, n);
}

std::optional<QString> Node::getAttribute(const QString &name) const {
    const Node attribute = getAttributeNode(name);
    return attribute ? std::optional(attribute.nodeValue()) : std::nullopt;
}

bool Node::specified() const {
    return !isNull() && !HandleAccess::arena(*this).record(number_).has(record_flag::Defaulted);
}

Node Node::documentNode() const {
    if (isNull())
        return {};
    return HandleAccess::node(*this, HandleAccess::arena(*this).documentNumber());
}

DOMDocument40 Node::ownerDocument() const {
    return isNull() ? DOMDocument40() : HandleAccess::document(HandleAccess::arenaRef(*this));
}

QString TypeName(const Node &node) {
    switch (node.nodeType()) {
    case NodeType::None:
        break;
    case NodeType::Element:
        return QStringLiteral("IXMLDOMElement");
    case NodeType::Attribute:
        return QStringLiteral("IXMLDOMAttribute");
    case NodeType::Text:
        return QStringLiteral("IXMLDOMText");
    case NodeType::CDATASection:
        return QStringLiteral("IXMLDOMCDATASection");
    case NodeType::EntityReference:
        return QStringLiteral("IXMLDOMEntityReference");
    case NodeType::ProcessingInstruction:
        return QStringLiteral("IXMLDOMProcessingInstruction");
    case NodeType::Comment:
        return QStringLiteral("IXMLDOMComment");
    case NodeType::Document:
        return QStringLiteral("DOMDocument");
    case NodeType::DocumentType:
        return QStringLiteral("IXMLDOMDocumentType");
    }
    return QStringLiteral("Nothing");
}

namespace {

/// Looks at every reference until one names an entity.
class EntityFinder final : public NodeVisitor {
public:
    explicit EntityFinder(const Arena &arena) : arena_(arena) {}

    void enter(quint32 number, NodeType kind) override {
        if (!name.empty())
            return;
        const Record &r = arena_.record(number);
        if (kind == NodeType::EntityReference)
            name = arena_.names->utf8(r.name);
        else if (kind == NodeType::Attribute && r.has(record_flag::Source))
            name = r.has(record_flag::OwnValue)
                       ? keptReference(number)
                       : std::string(referredEntityIn(arena_.sourceSlice(number)));
    }
    void leave() override {}

    std::string name;

private:
    /// What a value that was set still refers to.
    std::string keptReference(Number attribute) const {
        const std::string value = valueOf(arena_, attribute);
        const auto kept = keptReferences(value, readAttribute(arena_, attribute));
        return kept.empty() ? std::string() : value.substr(kept[0].start + 1, kept[0].length - 2);
    }

    const Arena &arena_;
};

} // namespace

QString Node::referredEntity() const {
    if (isNull())
        return {};
    EntityFinder finder(HandleAccess::arena(*this));
    visitSubtree(*this, finder);
    return runtime::fromUtf8(finder.name);
}

void visitSubtree(const Node &top, NodeVisitor &visitor) {
    if (top.isNull())
        return;
    const Arena &arena = HandleAccess::arena(top);
    for (Number n = top.number();;) {
        visitor.enter(n, arena.record(n).kind);
        if (arena.hasPart(n)) {
            for (Number a = arena.part(n).firstAttribute; a != 0; a = arena.record(a).next) {
                visitor.enter(a, NodeType::Attribute);
                visitor.leave();
            }
            if (arena.part(n).firstChild != 0) {
                n = arena.part(n).firstChild;
                continue;
            }
        }
        visitor.leave();
        while (n != top.number() && arena.record(n).next == 0) {
            n = arena.record(n).parent;
            visitor.leave();
        }
        if (n == top.number())
            return;
        n = arena.record(n).next;
    }
}

int NodeList::length() const {
    int count = 0;
    for (Node n = parent_.firstChild(); n; n = n.nextSibling())
        ++count;
    return count;
}

Node NodeList::item(int index) const {
    if (index < 0)
        return {};
    Node n = parent_.firstChild();
    while (n && index-- > 0)
        n = n.nextSibling();
    return n;
}

int AttributeMap::length() const {
    if (owner_.nodeType() != NodeType::Element)
        return 0;
    const Arena &arena = HandleAccess::arena(owner_);
    int count = 0;
    for (Number n = arena.part(owner_.number()).firstAttribute; n != 0; n = arena.record(n).next)
        ++count;
    return count;
}

std::vector<Node> AttributeMap::all() const {
    std::vector<Node> nodes;
    if (owner_.nodeType() != NodeType::Element)
        return nodes;
    const Arena &arena = HandleAccess::arena(owner_);
    for (Number n = arena.part(owner_.number()).firstAttribute; n != 0; n = arena.record(n).next)
        nodes.push_back(HandleAccess::node(owner_, n));
    return nodes;
}

Node AttributeMap::item(int index) const {
    if (index < 0 || owner_.nodeType() != NodeType::Element)
        return {};
    const Arena &arena = HandleAccess::arena(owner_);
    Number n = arena.part(owner_.number()).firstAttribute;
    while (n != 0 && index-- > 0)
        n = arena.record(n).next;
    return HandleAccess::node(owner_, n);
}

} // namespace quillon::xml
