#include "platform/xml/storage/value_changes.h"

#include "platform/xml/storage/decoding.h"
#include "platform/xml/storage/values.h"

#include <algorithm>

namespace quillon::xml {

namespace {

SourceForm sourceForm(NodeType kind) {
    return kind == NodeType::Attribute ? SourceForm::Attribute
           : kind == NodeType::Text    ? SourceForm::Characters
                                       : SourceForm::Plain;
}

/// How the present value hangs together with the node's source: all of a value that was read, and
/// the kept stretches of one that was changed in places before.
std::vector<DecodedRun> runsOf(const Arena &arena, Number node) {
    const Record &r = arena.record(node);
    std::vector<DecodedRun> runs;
    if (!r.has(record_flag::Source))
        return runs;
    const auto add = [&](std::size_t at, std::size_t start, std::size_t end) {
        const std::string_view raw =
            std::string_view(arena.source(node)->utf8).substr(start, end - start);
        for (DecodedRun run : decodedRuns(raw, sourceForm(r.kind), *arena.entities)) {
            run.value.start += at;
            run.source.start += start;
            runs.push_back(run);
        }
    };
    if (r.has(record_flag::OwnValue)) {
        for (const KeptStretch &kept : arena.keptStretches(node))
            add(kept.at, kept.start, kept.end);
    } else {
        const TextPlace place = valueSource(arena, node);
        add(0, place.start, place.start + place.length);
    }
    return runs;
}

/// Puts a value together from stretches of the present one and from new text.
class Assembly {
public:
    Assembly(std::string_view value, std::vector<DecodedRun> runs)
        : value_(value), runs_(std::move(runs)), run_(runs_.begin()) {}

    void keep(std::size_t start, std::size_t end);
    void add(std::string_view text) {
        result_.value += text;
        // Beside a line end it may be read together with, depending on how the file writes it.
        touchesLineEnd_ = touchesLineEnd_ || text.starts_with('\n') || text.ends_with('\n');
    }
    bool touchesLineEnd() const { return touchesLineEnd_; }
    ChangedValue take() { return std::move(result_); }

private:
    void note(std::size_t at, const TextPlace &value, const TextPlace &source);

    std::string_view value_;
    std::vector<DecodedRun> runs_;
    std::vector<DecodedRun>::const_iterator run_;
    ChangedValue result_;
    bool touchesLineEnd_ = false;
};

void Assembly::keep(std::size_t start, std::size_t end) {
    const std::size_t base = result_.value.size();
    result_.value += value_.substr(start, end - start);
    for (; run_ != runs_.end(); ++run_) {
        const std::size_t runEnd = run_->value.start + run_->value.length;
        const std::size_t from = std::max(start, run_->value.start);
        const std::size_t to = std::min(end, runEnd);
        if (run_->value.start > end)
            return;
        if (run_->isLiteral && from < to)
            note(base + from - start, {from, to - from},
                 {run_->source.start + from - run_->value.start, to - from});
        else if (!run_->isLiteral && run_->value.start >= start && runEnd <= end)
            note(base + from - start, run_->value, run_->source);
        if (runEnd > end)
            return;
    }
}

void Assembly::note(std::size_t at, const TextPlace &value, const TextPlace &source) {
    std::vector<KeptStretch> &kept = result_.kept;
    const auto start = static_cast<std::uint32_t>(source.start);
    const auto end = static_cast<std::uint32_t>(source.start + source.length);
    const auto length = static_cast<std::uint32_t>(value.length);
    if (!kept.empty() && kept.back().end == start && kept.back().at + kept.back().length == at) {
        kept.back().end = end;
        kept.back().length += length;
        return;
    }
    kept.push_back({static_cast<std::uint32_t>(at), length, start, end});
}

} // namespace

ChangedValue changedValue(const Arena &arena, Number node, std::span<const TextChange> changes) {
    std::string buffer;
    const std::string_view value = valueView(arena, node, buffer);
    Assembly assembly(value, runsOf(arena, node));
    std::size_t at = 0;
    for (const TextChange &change : changes) {
        assembly.keep(at, change.at);
        assembly.add(change.text);
        at = change.at + change.length;
    }
    assembly.keep(at, value.size());
    const bool touchesLineEnd = assembly.touchesLineEnd();
    ChangedValue changed = assembly.take();
    const NodeType kind = arena.record(node).kind;
    // Written anew as a whole: what the format cannot hold, "]]>" that new and kept characters make
    // together, a text that would be read as layout, and line ends that may grow into one.
    if (!holdsAsItIs(kind, changed.value) ||
        (kind == NodeType::Text &&
         (isLayout(changed.value) || changed.value.find("]]>") != std::string::npos)) ||
        (touchesLineEnd && arena.record(node).has(record_flag::Source) &&
         arena.source(node)->hasCarriageReturn))
        changed.kept.clear();
    return changed;
}

} // namespace quillon::xml
