#include "platform/xml/dom/markup_places.h"

#include "platform/xml/dom/handle_access.h"
#include "platform/xml/io/output.h"
#include "platform/xml/io/serializer.h"

#include <algorithm>
#include <limits>

namespace quillon::xml {

namespace {

struct Extent {
    qint64 bytes = 0;
    qint64 lineEnds = 0;

    /// Adds a text with line ends of any kind, counted as what they are in markup, LF.
    void add(std::string_view text, bool hasCarriageReturn) {
        bytes += qint64(text.size());
        lineEnds += std::ranges::count(text, '\n');
        if (!hasCarriageReturn)
            return;
        for (std::size_t at = text.find('\r'); at != text.npos; at = text.find('\r', at + 1)) {
            if (text.substr(at + 1, 1) == "\n")
                --bytes;
            else
                ++lineEnds;
        }
    }
};

/// Counts at once.
class CountingOutput final : public Output {
public:
    bool holds(const SourceText &) const override { return true; }
    bool verbatim(const SourceText &source, std::uint32_t start, std::uint32_t end) override {
        extent.add(source.slice(start, end), source.hasCarriageReturn);
        return true;
    }
    void markup(std::string_view text) override { extent.add(text, false); }
    void characters(std::string_view text) override { markup(text); }

    Extent extent;
};

} // namespace

/// Remembers what is to be counted.
class MarkupAhead::Stretches final : public Output {
public:
    bool holds(const SourceText &) const override { return true; }
    bool verbatim(const SourceText &source, std::uint32_t start, std::uint32_t end) override {
        waiting_.push_back({Ref<const SourceText>(&source), start, end});
        return true;
    }
    void markup(std::string_view text) override { extent.add(text, false); }
    void characters(std::string_view text) override { markup(text); }

    bool count(std::size_t most) {
        while (at_ < waiting_.size() && most > 0) {
            Stretch &stretch = waiting_[at_];
            const std::string_view all(stretch.source->utf8);
            std::size_t end =
                stretch.start + std::min<std::size_t>(stretch.end - stretch.start, most);
            // The two characters of a line end stay together.
            if (end < stretch.end && all[end - 1] == '\r')
                ++end;
            extent.add(all.substr(stretch.start, end - stretch.start),
                       stretch.source->hasCarriageReturn);
            most -= std::min<std::size_t>(most, end - stretch.start);
            stretch.start = std::uint32_t(end);
            at_ += stretch.start == stretch.end ? 1 : 0;
        }
        return at_ == waiting_.size();
    }

    Extent extent;

private:
    struct Stretch {
        Ref<const SourceText> source;
        std::uint32_t start;
        std::uint32_t end;
    };
    std::vector<Stretch> waiting_;
    std::size_t at_ = 0;
};

MarkupAhead::MarkupAhead(const Node &above, const Node &node)
    : stretches_(std::make_unique<Stretches>()) {
    serializeAhead(HandleAccess::arena(above), above.number(), node.number(), *stretches_);
}

MarkupAhead::~MarkupAhead() = default;
MarkupAhead::MarkupAhead(MarkupAhead &&) noexcept = default;
MarkupAhead &MarkupAhead::operator=(MarkupAhead &&) noexcept = default;

bool MarkupAhead::count(std::size_t most) {
    return stretches_->count(most);
}

qint64 MarkupAhead::bytes() const {
    return stretches_->extent.bytes;
}

qint64 MarkupAhead::lineEnds() const {
    return stretches_->extent.lineEnds;
}

qint64 placeInMarkup(const Node &above, const Node &node) {
    MarkupAhead ahead(above, node);
    ahead.count(std::numeric_limits<std::size_t>::max());
    return ahead.bytes();
}

Node childAtPlace(const Node &node, qint64 at) {
    const Arena &arena = HandleAccess::arena(node);
    CountingOutput output;
    qint64 start = 0;
    Number found = 0;
    serializeChildren(arena, node.number(), output, [&](Number child, bool isWritten) {
        const qint64 place = output.extent.bytes;
        if (!isWritten) {
            start = place;
            return start <= at;
        }
        const bool isText = arena.record(child).kind == NodeType::Text;
        if (isText ? at <= place : start < at && at < place)
            found = child;
        return found == 0;
    });
    return HandleAccess::node(node, found);
}

} // namespace quillon::xml
