#include "platform/runtime/error.h"
#include "platform/xml/dom/dom.h"
#include "platform/xml/dom/handle_access.h"
#include "platform/xml/dom/layout.h"
#include "platform/xml/io/serializer.h"
#include "platform/xml/storage/values.h"
#include "resources/xml_texts.h"

namespace quillon::xml {

namespace texts = resources::xml_texts;

namespace {

[[noreturn]] void fail(const QString &description) {
    throw runtime::Error(runtime::error_number::Fail, description);
}

[[noreturn]] void invalidArgument(const QString &description) {
    throw runtime::Error(runtime::error_number::InvalidArgument, description);
}

void requireNode(const Node &node) {
    if (node.isNull())
        invalidArgument(texts::NoNode.toString());
}

void requireKind(const Node &node, NodeType kind) {
    requireNode(node);
    if (node.nodeType() != kind)
        fail(texts::WrongKind.toString().arg(TypeName(node)));
}

/// Notes that the attribute list of an element has changed.
void markTagChanged(Arena &arena, Number element) {
    if (!arena.record(element).has(record_flag::TagChanged))
        arena.writeRecord(element).flags |= record_flag::TagChanged;
    arena.markContentChanged(arena.record(element).parent);
}

void setOwnValue(Arena &arena, Number n, std::string value) {
    arena.setOwnText(n, OwnTextKind::Value, std::move(value));
    Record &r = arena.writeRecord(n);
    r.flags = static_cast<RecordFlags>((r.flags | record_flag::OwnValue) & ~record_flag::Defaulted);
    const Number parent = arena.record(n).parent;
    if (parent == 0)
        return;
    if (arena.record(n).kind == NodeType::Attribute)
        markTagChanged(arena, parent);
    else
        arena.markContentChanged(parent);
}

bool mayHold(NodeType parent, NodeType child) {
    switch (child) {
    case NodeType::Element:
    case NodeType::Comment:
    case NodeType::ProcessingInstruction:
        return parent == NodeType::Element || parent == NodeType::Document;
    case NodeType::Text:
    case NodeType::CDATASection:
    case NodeType::EntityReference:
        return parent == NodeType::Element;
    case NodeType::DocumentType:
        return parent == NodeType::Document;
    default:
        return false;
    }
}

bool isDeclaration(const Node &node) {
    return node.nodeType() == NodeType::ProcessingInstruction &&
           node.nodeName() == QLatin1String("xml");
}

/// Checks that a node may go under `parent` ahead of `next`; `leaving` is the child whose place it
/// takes, if it takes one.
void checkPlace(const Node &parent, const Node &child, const Node &next, const Node &leaving) {
    requireNode(parent);
    requireNode(child);
    if (!mayHold(parent.nodeType(), child.nodeType()))
        fail(texts::WrongKind.toString().arg(TypeName(child)));
    if (HandleAccess::sameArena(parent, child)) {
        for (Node n = parent; n; n = n.parentNode()) {
            if (n == child)
                fail(texts::UnderItself.toString());
        }
    }
    if (isDeclaration(child)) {
        const Node first = parent.firstChild();
        if (parent.nodeType() != NodeType::Document ||
            !(first.isNull() || first == leaving || (first == next && !isDeclaration(next))))
            fail(texts::BeforeDeclaration.toString());
    }
    if (parent.nodeType() != NodeType::Document)
        return;
    if (isDeclaration(next) && !(next == child) && !(next == leaving))
        fail(texts::BeforeDeclaration.toString());
    bool behind = false;
    for (Node n = parent.firstChild(); n; n = n.nextSibling()) {
        behind = behind || n == next || n == leaving;
        if (n == child || n == leaving)
            continue;
        const NodeType kind = n.nodeType();
        if (child.nodeType() == NodeType::Element) {
            if (kind == NodeType::Element)
                fail(texts::SecondRoot.toString());
            if (kind == NodeType::DocumentType && behind)
                fail(texts::RootBeforeDocumentType.toString());
        } else if (child.nodeType() == NodeType::DocumentType) {
            if (kind == NodeType::DocumentType)
                fail(texts::SecondDocumentType.toString());
            if (kind == NodeType::Element && !behind)
                fail(texts::RootBeforeDocumentType.toString());
        }
    }
}

/// Takes a node out of its place, over into `arena` when it belongs to another one; returns its
/// number there.
Number takeOut(Arena &arena, const Node &node) {
    Arena &from = HandleAccess::arena(node);
    const Number n = &from == &arena ? node.number() : arena.copyFrom(from, node.number(), true);
    unlinkWithLayout(from, node.number());
    return n;
}

void requireChild(const Node &parent, const Node &child) {
    requireNode(child);
    if (child.nodeType() == NodeType::Attribute || !(child.parentNode() == parent) ||
        !HandleAccess::sameArena(parent, child))
        invalidArgument(texts::NotAChild.toString());
}

} // namespace

void Node::setNodeValue(const QString &value) const {
    requireNode(*this);
    switch (nodeType()) {
    case NodeType::Attribute:
    case NodeType::Text:
    case NodeType::CDATASection:
    case NodeType::Comment:
    case NodeType::ProcessingInstruction: {
        if (isDeclaration(*this))
            fail(texts::ReadOnlyNode.toString());
        Arena &arena = HandleAccess::arena(*this);
        std::string checked = checkedValue(value);
        if (checked != valueOf(arena, number_))
            setOwnValue(arena, number_, std::move(checked));
        return;
    }
    default:
        fail(texts::NoValue.toString().arg(TypeName(*this)));
    }
}

void Node::setText(const QString &newText) const {
    if (nodeType() != NodeType::Element) {
        setNodeValue(newText);
        return;
    }
    const std::string value = checkedValue(newText);
    Arena &arena = HandleAccess::arena(*this);
    // Made first: where that fails nothing has changed.
    const Number n = value.empty() ? 0 : arena.add(NodeType::Text, 0);
    while (const Number child = arena.part(number_).firstChild)
        unlinkWithLayout(arena, child);
    if (n == 0)
        return;
    setOwnValue(arena, n, value);
    linkWithLayout(arena, number_, n, 0);
}

Node Node::insertBefore(const Node &newChild, const Node &refChild) const {
    requireNode(newChild);
    if (!refChild.isNull())
        requireChild(*this, refChild);
    checkPlace(*this, newChild, refChild, Node());
    if (newChild == refChild)
        return newChild;
    Arena &arena = HandleAccess::arena(*this);
    const Number oldParent = HandleAccess::arena(newChild).record(newChild.number_).parent;
    const std::string oldEndLayout =
        oldParent == 0 ? std::string()
                       : normalizeLineEnds(HandleAccess::arena(newChild).endLayout(oldParent));
    const Number n = takeOut(arena, newChild);
    if (isInDocument(arena, number_))
        linkWithLayout(arena, number_, n, refChild.number_);
    else
        linkKeepingLayout(arena, number_, n, refChild.number_, oldEndLayout);
    return HandleAccess::node(*this, n);
}

Node Node::replaceChild(const Node &newChild, const Node &oldChild) const {
    requireChild(*this, oldChild);
    checkPlace(*this, newChild, oldChild, oldChild);
    if (newChild == oldChild)
        return newChild;
    Arena &arena = HandleAccess::arena(*this);
    const Number n = takeOut(arena, newChild);
    linkInPlaceOf(arena, number_, n, oldChild.number_);
    return HandleAccess::node(*this, n);
}

Node Node::rename(const QString &name) const {
    requireKind(*this, NodeType::Element);
    const Node parent = parentNode();
    requireNode(parent);
    const std::string checked = checkedName(name);
    Arena &arena = HandleAccess::arena(*this);
    const Number n = arena.addInFormOf(number_, arena.names->intern(checked));
    // Without looking for one of the same name each time: there may be thousands.
    for (Number a = arena.lastAttribute(number_); a != 0; a = arena.previousSibling(a))
        arena.link(n, arena.copyFrom(arena, a, true), 0);
    arena.markContentChanged(number_);
    const std::string endLayout = normalizeLineEnds(arena.endLayout(n));
    while (const Number child = arena.part(number_).lastChild) {
        arena.unlink(child);
        linkKeepingLayout(arena, n, child, 0, endLayout);
    }
    // A text that was last for a while has taken it away.
    const Number last = arena.part(n).lastChild;
    if (last != 0 && arena.record(last).kind != NodeType::Text)
        arena.setEndLayout(n, endLayout);
    const Number next = arena.record(number_).next;
    arena.unlink(number_);
    arena.link(parent.number(), n, next);
    return HandleAccess::node(*this, n);
}

Node Node::removeChild(const Node &oldChild) const {
    requireNode(*this);
    requireChild(*this, oldChild);
    Arena &arena = HandleAccess::arena(*this);
    const Number n = oldChild.number_;
    if (nodeType() == NodeType::Document && oldChild.nodeType() == NodeType::Element)
        arena.rootPlace = {true, arena.record(n).next, normalizeLineEnds(arena.layout(n))};
    unlinkWithLayout(arena, n);
    return oldChild;
}

Node Node::cloneNode(bool deep) const {
    requireNode(*this);
    if (nodeType() == NodeType::Document)
        return ownerDocument().clone().node();
    Arena &arena = HandleAccess::arena(*this);
    return HandleAccess::node(*this, arena.copyFrom(arena, number_, deep));
}

Node Node::cloneAttribute(const QString &name) const {
    requireKind(*this, NodeType::Attribute);
    const std::string checked = checkedName(name);
    Arena &arena = HandleAccess::arena(*this);
    const std::uint32_t interned = arena.names->intern(checked);
    const Number n = arena.copyFrom(arena, number_, false);
    Record &copy = arena.writeRecord(n);
    copy.name = interned;
    copy.flags =
        static_cast<RecordFlags>((copy.flags | record_flag::Renamed) & ~record_flag::Defaulted);
    return HandleAccess::node(*this, n);
}

void Node::setAttribute(const QString &name, const QString &value) const {
    requireKind(*this, NodeType::Element);
    if (const Node attribute = getAttributeNode(name)) {
        attribute.setNodeValue(value);
        return;
    }
    std::string checked = checkedValue(value);
    const std::string checkedAttribute = checkedName(name);
    Arena &arena = HandleAccess::arena(*this);
    const Number n = arena.add(NodeType::Attribute, arena.names->intern(checkedAttribute));
    setOwnValue(arena, n, std::move(checked));
    linkAttributeWithLayout(arena, number_, n);
    markTagChanged(arena, number_);
}

Node Node::setAttributeNode(const Node &attr) const {
    requireKind(*this, NodeType::Element);
    requireKind(attr, NodeType::Attribute);
    if (HandleAccess::arena(attr).record(attr.number_).parent != 0)
        fail(texts::AttributeInUse.toString());
    Arena &arena = HandleAccess::arena(*this);
    const Node old = getAttributeNode(attr.nodeName());
    Number n = attr.number_;
    if (!HandleAccess::sameArena(*this, attr))
        n = arena.copyFrom(HandleAccess::arena(attr), n, true);
    if (old) {
        linkInPlaceOf(arena, number_, n, old.number_);
    } else if (arena.record(n).has(record_flag::Source)) {
        // A copied attribute brings the white space ahead of it.
        arena.link(number_, n, 0);
    } else {
        linkAttributeWithLayout(arena, number_, n);
    }
    markTagChanged(arena, number_);
    return old;
}

void Node::removeAttribute(const QString &name) const {
    attributes().removeNamedItem(name);
}

Node AttributeMap::setNamedItem(const Node &attr) const {
    owner_.setAttributeNode(attr);
    return owner_.getAttributeNode(attr.nodeName());
}

Node AttributeMap::removeNamedItem(const QString &name) const {
    const Node attribute = owner_.getAttributeNode(name);
    if (!attribute)
        return {};
    Arena &arena = HandleAccess::arena(owner_);
    arena.unlink(attribute.number());
    markTagChanged(arena, owner_.number());
    return attribute;
}

} // namespace quillon::xml
