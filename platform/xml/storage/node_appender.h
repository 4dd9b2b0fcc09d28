#pragma once

#include "platform/xml/storage/arena.h"

#include <vector>

namespace quillon::xml {

/// Fills a document that is empty with the nodes of a source text, in the order of the text: what
/// is appended goes to the end of the element that is open, or of the document. It keeps at hand
/// what the arena would look up for every node; meanwhile nobody else may change the document.
class NodeAppender {
public:
    NodeAppender(Arena &arena, const Ref<SourceText> &source);
    ~NodeAppender() { settle(); }
    NodeAppender(const NodeAppender &) = delete;
    NodeAppender &operator=(const NodeAppender &) = delete;

    /// Whether no element is open.
    bool isOutside() const { return outer_.empty(); }
    /// The element that is open, or the document.
    const Record &open() const { return open_.slots[0].record; }

    /// Adds a node that is neither an element nor an attribute.
    void append(NodeType kind, std::uint32_t name, const SourcePlace &place);
    /// Opens an element; its attributes follow, then endStartTag().
    void openElement(std::uint32_t name, std::uint32_t layoutStart, std::uint32_t start);
    Number appendAttribute(std::uint32_t name, const SourcePlace &place);
    /// Adds an attribute that the text does not have. Its value may be that of many others.
    void appendDefaultedAttribute(std::uint32_t name, const Ref<OwnText> &value);
    /// Ends the start tag of the open element, in which white space is content if `preservesSpace`.
    void endStartTag(std::uint32_t end, bool preservesSpace);
    /// Closes the open element, which ends with its start tag or an end tag.
    void closeElement() { leave(); }
    void closeElement(const SourcePlace &endTag);
    /// Ends the document, at whose end is white space from `contentEnd` on.
    void finish(std::uint32_t contentEnd);

private:
    /// An element, or the document, that may get more nodes.
    struct Open {
        Number number;
        /// The two of the element.
        Slot *slots;
        Slot *lastChild;
    };

    /// Takes the next slots, which stand on one page, for a node; its number is in `taken_`.
    Slot *take(std::uint32_t slots) {
        if (next_ + slots > Page::SlotCount)
            return takeOnNewPage(slots);
        const std::uint32_t index = next_;
        next_ += slots;
        page_->starts[index] = true;
        ++newNodes_;
        taken_ = pageNumber_ + index;
        return &page_->slots[index];
    }
    Slot *takeOnNewPage(std::uint32_t slots);
    /// Takes slots for a child of what is open, and links it.
    Slot *appendChild(NodeType kind, std::uint32_t name, const SourcePlace &place);
    RecordFlags flagsAt(const SourcePlace &place) const {
        return place.hasLayout() ? record_flag::Source | record_flag::SourceLayout
                                 : record_flag::Source;
    }
    void leave();
    /// Has the arena know of the slots that were taken.
    void settle();
    void usePage(std::uint32_t at);

    Arena &arena_;
    const Ref<SourceText> &source_;
    Page *page_ = nullptr;
    /// The number of the page's first slot.
    Number pageNumber_ = 0;
    /// The slot of the page that is taken next, and the one from which the arena does not know.
    std::uint32_t next_ = 0;
    std::uint32_t settled_ = 0;
    std::uint16_t newNodes_ = 0;
    std::uint8_t sourceIndex_ = 0;
    Number taken_ = 0;
    Open open_;
    /// Of the open element.
    Slot *firstAttribute_ = nullptr;
    Slot *lastAttribute_ = nullptr;
    std::vector<Open> outer_;
};

} // namespace quillon::xml
