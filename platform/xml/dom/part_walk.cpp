#include "platform/xml/dom/part_walk.h"

#include "platform/xml/dom/handle_access.h"
#include "platform/xml/storage/values.h"

namespace quillon::xml {

PartWalk::PartWalk(const Node &top, unsigned kinds)
    : top_(top), isAttributeAlone_(top.nodeType() == NodeType::Attribute), kinds_(kinds),
      node_(top.isNull() ? 0 : top.number()) {
    if (isAttributeAlone_)
        startAt(top);
}

void PartWalk::startAt(const Node &node) {
    const bool isAttribute = node.nodeType() == NodeType::Attribute;
    attribute_ = isAttribute ? node.number() : 0;
    node_ = isAttribute ? HandleAccess::arena(node).record(node.number()).parent : node.number();
    step_ = Step::Name;
}

bool PartWalk::take(quint32 number, unsigned name, unsigned value, NodePart &part) {
    const Arena &arena = HandleAccess::arena(top_);
    if (step_ == Step::Name) {
        step_ = Step::Value;
        if ((kinds_ & name) != 0) {
            const std::uint32_t nameNumber = arena.record(number).name;
            part = {number, name, nameNumber, arena.names->utf8(nameNumber)};
            return true;
        }
    }
    if (step_ == Step::Value) {
        step_ = Step::Done;
        if ((kinds_ & value) != 0) {
            part = {number, value, 0, valueView(arena, number, buffer_)};
            return true;
        }
    }
    return false;
}

bool PartWalk::takeNode(NodePart &part) {
    switch (HandleAccess::arena(top_).record(node_).kind) {
    case NodeType::Element:
        return take(node_, part_kind::ElementName, 0, part);
    case NodeType::Text:
        return take(node_, 0, part_kind::Text, part);
    case NodeType::CDATASection:
        return take(node_, 0, part_kind::CData, part);
    case NodeType::Comment:
        return take(node_, 0, part_kind::Comment, part);
    case NodeType::ProcessingInstruction:
        return take(node_, part_kind::InstructionName, part_kind::InstructionValue, part);
    default:
        return false;
    }
}

void PartWalk::advance() {
    const Arena &arena = HandleAccess::arena(top_);
    step_ = Step::Name;
    if (isAttributeAlone_) {
        node_ = attribute_ = 0;
        return;
    }
    constexpr unsigned OfAttributes = part_kind::AttributeName | part_kind::AttributeValue;
    if (attribute_ != 0)
        attribute_ = arena.record(attribute_).next;
    else if ((kinds_ & OfAttributes) != 0 && arena.record(node_).kind == NodeType::Element)
        attribute_ = arena.part(node_).firstAttribute;
    if (attribute_ == 0)
        node_ = arena.nextInSubtree(node_, top_.number());
}

bool PartWalk::next(NodePart &part) {
    for (; node_ != 0; advance()) {
        const bool taken = attribute_ != 0 ? take(attribute_, part_kind::AttributeName,
                                                  part_kind::AttributeValue, part)
                                           : takeNode(part);
        if (taken)
            return true;
    }
    return false;
}

} // namespace quillon::xml
