#include "platform/xml/dom/line_counter.h"

#include "platform/xml/dom/handle_access.h"

namespace quillon::xml {

LineCounter::Place LineCounter::placeOf(const Node &node, std::uint32_t offset) {
    if (node.isNull())
        return {};
    const Arena &arena = HandleAccess::arena(node);
    const Record &record = arena.record(node.number());
    return record.has(record_flag::Source)
               ? placeAt(*arena.source(node.number()), record.start + offset)
               : Place();
}

LineCounter::Place LineCounter::placeAt(const SourceText &source, std::uint32_t position) {
    if (&source != source_ || position < position_) {
        source_ = &source;
        position_ = 0;
        place_ = {1, 1};
    }
    const std::string_view text = source.utf8;
    for (; position_ < position; ++position_) {
        const char c = text[position_];
        if (c == '\n' || (c == '\r' && text.substr(position_ + 1, 1) != "\n"))
            place_ = {place_.line + 1, 1};
        else if ((c & 0xC0) != 0x80)
            ++place_.column;
    }
    return place_;
}

} // namespace quillon::xml
