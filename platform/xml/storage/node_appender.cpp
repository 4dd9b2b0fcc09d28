#include "platform/xml/storage/node_appender.h"

#include <utility>

namespace quillon::xml {

NodeAppender::NodeAppender(Arena &arena, const Ref<SourceText> &source)
    : arena_(arena), source_(source) {
    usePage(arena.size_ - 1);
    open_ = {arena.base_, &arena.writeSlot(0), nullptr};
}

void NodeAppender::usePage(std::uint32_t at) {
    page_ = &arena_.writePage(at);
    pageNumber_ = arena_.base_ + (at - Arena::indexOf(at));
    next_ = settled_ = arena_.size_ - (at - Arena::indexOf(at));
    sourceIndex_ = static_cast<std::uint8_t>(page_->sourceIndex(source_));
}

void NodeAppender::settle() {
    const std::uint32_t number = (arena_.size_ - 1) / Page::SlotCount;
    Arena::Directory &directory = *arena_.directories_[number / Arena::Directory::PageCount];
    auto &count = directory.recordCounts[number % Arena::Directory::PageCount];
    count = static_cast<std::uint16_t>(count + newNodes_);
    directory.recordCount += newNodes_;
    arena_.recordCount_ += newNodes_;
    arena_.size_ += next_ - settled_;
    settled_ = next_;
    newNodes_ = 0;
}

Slot *NodeAppender::takeOnNewPage(std::uint32_t slots) {
    settle();
    const std::uint32_t at = arena_.allocate(slots);
    usePage(at);
    taken_ = arena_.base_ + at;
    return &page_->slots[Arena::indexOf(at)];
}

Slot *NodeAppender::appendChild(NodeType kind, std::uint32_t name, const SourcePlace &place) {
    const std::uint32_t slots = slotsOf(kind);
    Slot *const taken = take(slots);
    ElementPart &parent = open_.slots[1].part;
    if (open_.lastChild)
        open_.lastChild->record.next = taken_;
    else
        parent.firstChild = taken_;
    taken->record = {kind, sourceIndex_,     flagsAt(place), name, open_.number,
                     0,    parent.lastChild, place.start};
    if (slots == 2)
        taken[1].part = {0, 0, 0, place.end, place.end, place.end};
    parent.lastChild = taken_;
    open_.lastChild = taken;
    return taken;
}

void NodeAppender::append(NodeType kind, std::uint32_t name, const SourcePlace &place) {
    appendChild(kind, name, place);
    if (kind == NodeType::EntityReference)
        arena_.hasHadReference_ = true;
}

void NodeAppender::openElement(std::uint32_t name, std::uint32_t layoutStart, std::uint32_t start) {
    Slot *const slots = appendChild(NodeType::Element, name, {layoutStart, start, start});
    outer_.push_back(open_);
    open_ = {taken_, slots, nullptr};
    firstAttribute_ = lastAttribute_ = nullptr;
}

Number NodeAppender::appendAttribute(std::uint32_t name, const SourcePlace &place) {
    Slot *const taken = take(1);
    Number previous = taken_;
    if (lastAttribute_) {
        lastAttribute_->record.next = taken_;
        previous = std::exchange(firstAttribute_->record.previous, taken_);
    } else {
        open_.slots[1].part.firstAttribute = taken_;
        firstAttribute_ = taken;
    }
    taken->record = {
        NodeType::Attribute, sourceIndex_, flagsAt(place), name, open_.number, 0, previous,
        place.start};
    lastAttribute_ = taken;
    return taken_;
}

void NodeAppender::appendDefaultedAttribute(std::uint32_t name, const Ref<OwnText> &value) {
    settle();
    const Number n = arena_.add(NodeType::Attribute, name);
    arena_.setOwnText(n, OwnTextKind::Value, value);
    arena_.writeRecord(n).flags |= record_flag::OwnValue | record_flag::Defaulted;
    arena_.link(open_.number, n, 0);
    lastAttribute_ = &arena_.writeSlot(n - arena_.base_);
    if (!firstAttribute_)
        firstAttribute_ = lastAttribute_;
    usePage(arena_.size_ - 1);
}

void NodeAppender::endStartTag(std::uint32_t end, bool preservesSpace) {
    if (preservesSpace)
        open_.slots[0].record.flags |= record_flag::PreserveSpace;
    ElementPart &part = open_.slots[1].part;
    part.contentStart = part.endTagStart = part.end = end;
}

void NodeAppender::closeElement(const SourcePlace &endTag) {
    ElementPart &part = open_.slots[1].part;
    part.endTagStart = endTag.start;
    part.end = endTag.end;
    if (endTag.hasLayout())
        open_.slots[0].record.flags |= record_flag::SourceEndLayout;
    leave();
}

void NodeAppender::leave() {
    Slot *const element = open_.slots;
    open_ = outer_.back();
    open_.lastChild = element;
    outer_.pop_back();
}

void NodeAppender::finish(std::uint32_t contentEnd) {
    settle();
    arena_.bindDocument(source_, contentEnd);
}

} // namespace quillon::xml
