#include "platform/xml/storage/arena.h"

#include "platform/runtime/error.h"
#include "platform/xml/storage/source_extent.h"
#include "resources/xml_texts.h"

#include <algorithm>
#include <numeric>

namespace quillon::xml {

namespace {

/// The largest file has numbers for a third of these; the others are for edits.
constexpr Number MaxNumber = 0xF0000000;

auto placeOfOwn(const Page &page, std::uint16_t slot, OwnTextKind kind) {
    return std::lower_bound(
        page.texts.begin(), page.texts.end(), std::pair(slot, kind),
        [](const Page::Own &own, const std::pair<std::uint16_t, OwnTextKind> &key) {
            return std::pair(own.slot, own.kind) < key;
        });
}

} // namespace

std::size_t Page::sourceIndex(const Ref<SourceText> &source) {
    const auto found = std::find(sources.rbegin(), sources.rend(), source);
    if (found != sources.rend())
        return std::size_t(sources.rend() - found) - 1;
    if (sources.size() == MaxSources)
        return MaxSources;
    sources.push_back(source);
    return sources.size() - 1;
}

Arena::Arena(Number first)
    : names(new NameTable), entities(std::make_shared<EntityTable>()), base_(first),
      readEnd_(first) {
    add(NodeType::Document, 0);
}

Arena::~Arena() = default;

Ref<Arena> Arena::clone() const {
    return Ref<Arena>(new Arena(*this));
}

void Arena::clear() {
    requireNumbers(size_);
    base_ += size_;
    entities = std::make_shared<EntityTable>();
    format = {};
    rootPlace = {};
    parseError = {};
    dropNodes();
}

void Arena::dropNodes() {
    size_ = recordCount_ = 0;
    readEnd_ = base_;
    hasHadReference_ = false;
    directories_.clear();
    names = Ref<NameTable>(new NameTable);
    add(NodeType::Document, 0);
}

Page &Arena::unsharePage(std::uint32_t number) {
    Ref<Directory> &directory = directories_[number / Directory::PageCount];
    if (directory->isShared())
        directory = Ref<Directory>(new Directory(*directory));
    Ref<Page> &page = directory->pages[number % Directory::PageCount];
    if (page->isShared())
        page = Ref<Page>(new Page(*page));
    return *page;
}

void Arena::requireNumbers(std::uint32_t slots) const {
    // Those of the largest node, and one that is left empty.
    if (slots > MaxNumber - base_ - 3)
        throw runtime::Error(runtime::error_number::Fail,
                             resources::xml_texts::NumbersUsedUp.toString());
}

void Arena::addPage(std::uint32_t number) {
    if (number / Directory::PageCount == directories_.size())
        directories_.emplace_back(new Directory);
    Ref<Directory> &directory = directories_[number / Directory::PageCount];
    if (directory->isShared())
        directory = Ref<Directory>(new Directory(*directory));
    directory->pages[number % Directory::PageCount] = Ref<Page>(new Page);
}

std::uint32_t Arena::allocate(std::uint32_t slots) {
    requireNumbers(size_);
    // The last slot of a page is left empty where a node of two slots comes next.
    if (indexOf(size_) + slots > Page::SlotCount)
        ++size_;
    const std::uint32_t at = size_;
    const std::uint32_t number = at / Page::SlotCount;
    if (indexOf(at) == 0)
        addPage(number);
    size_ += slots;
    writePage(at).starts.set(indexOf(at));
    Directory &directory = *directories_[number / Directory::PageCount];
    ++directory.recordCounts[number % Directory::PageCount];
    ++directory.recordCount;
    ++recordCount_;
    return at;
}

std::uint32_t Arena::recordsBefore(Number n) const {
    const std::uint32_t at = std::min(n - base_, size_);
    if (at == size_)
        return recordCount_;
    const std::uint32_t pageNumber = at / Page::SlotCount;
    const std::uint32_t directoryNumber = pageNumber / Directory::PageCount;
    std::uint32_t count = 0;
    for (std::uint32_t i = 0; i < directoryNumber; ++i)
        count += directories_[i]->recordCount;
    const auto &counts = directories_[directoryNumber]->recordCounts;
    count =
        std::accumulate(counts.begin(), counts.begin() + pageNumber % Directory::PageCount, count);
    const std::bitset<Page::SlotCount> &starts = page(at).starts;
    return count + static_cast<std::uint32_t>((starts << (Page::SlotCount - indexOf(at))).count());
}

Number Arena::nthRecord(std::uint32_t index) const {
    if (index >= recordCount_)
        return 0;
    std::uint32_t directory = 0;
    for (; index >= directories_[directory]->recordCount; ++directory)
        index -= directories_[directory]->recordCount;
    const auto &counts = directories_[directory]->recordCounts;
    std::uint32_t pageNumber = 0;
    for (; index >= counts[pageNumber]; ++pageNumber)
        index -= counts[pageNumber];
    const Page &page = *directories_[directory]->pages[pageNumber];
    std::uint32_t slot = 0;
    for (;; ++slot) {
        if (page.starts.test(slot) && index-- == 0)
            return base_ + (directory * Directory::PageCount + pageNumber) * Page::SlotCount + slot;
    }
}

Number Arena::add(NodeType kind, std::uint32_t name) {
    const std::uint32_t slots = slotsOf(kind);
    const std::uint32_t at = allocate(slots);
    const Number n = base_ + at;
    Record &record = writeRecord(n);
    record = {};
    record.kind = kind;
    record.name = name;
    hasHadReference_ = hasHadReference_ || kind == NodeType::EntityReference;
    if (slots == 2)
        writePart(n) = {};
    return n;
}

Number Arena::add(NodeType kind, std::uint32_t name, const Ref<SourceText> &source) {
    Number n = add(kind, name);
    std::size_t index = writePage(n - base_).sourceIndex(source);
    while (index == Page::MaxSources) {
        // The page cannot take another source: waste the rest of it.
        n = add(kind, name);
        index = writePage(n - base_).sourceIndex(source);
    }
    Record &record = writeRecord(n);
    record.source = static_cast<std::uint8_t>(index);
    record.flags = record_flag::Source;
    return n;
}

Number Arena::previousSibling(Number n) const {
    const Record &r = record(n);
    const bool isFirstAttribute =
        r.kind == NodeType::Attribute && r.parent != 0 && part(r.parent).firstAttribute == n;
    return isFirstAttribute ? 0 : r.previous;
}

Number Arena::lastAttribute(Number element) const {
    const Number first = part(element).firstAttribute;
    return first == 0 ? 0 : record(first).previous;
}

std::uint32_t Arena::layoutStart(Number n) const {
    const Record &r = record(n);
    return r.has(record_flag::SourceLayout) ? blanksAhead(source(n)->utf8, r.start) : r.start;
}

std::uint32_t Arena::sourceEnd(Number n) const {
    const Record &r = record(n);
    return slotsOf(r.kind) == 2 ? part(n).end : endOfNode(r.kind, source(n)->utf8, r.start);
}

std::uint32_t Arena::contentEnd(Number n) const {
    const std::uint32_t endTagStart = part(n).endTagStart;
    return record(n).has(record_flag::SourceEndLayout) ? blanksAhead(source(n)->utf8, endTagStart)
                                                       : endTagStart;
}

void Arena::setTagForm(Number n, RecordFlags form) {
    RecordFlags &flags = writeRecord(n).flags;
    flags = static_cast<RecordFlags>((flags & ~tag_form::All) | form);
}

void Arena::bindDocument(const Ref<SourceText> &source, std::uint32_t contentEnd) {
    const std::size_t index = writePage(0).sourceIndex(source);
    Record &record = writeRecord(base_);
    record.source = static_cast<std::uint8_t>(index);
    record.flags |= record_flag::Source;
    record.start = 0;
    const auto size = static_cast<std::uint32_t>(source->utf8.size());
    if (contentEnd != size)
        record.flags |= record_flag::SourceEndLayout;
    ElementPart &part = writePart(base_);
    part.contentStart = 0;
    part.endTagStart = part.end = size;
    readEnd_ = base_ + size_;
}

const Ref<SourceText> &Arena::source(Number n) const {
    return page(n - base_).sources[record(n).source];
}

const OwnText *Arena::findOwn(Number n, OwnTextKind kind) const {
    const Page &p = page(n - base_);
    const auto slot = static_cast<std::uint16_t>(indexOf(n - base_));
    const auto at = placeOfOwn(p, slot, kind);
    return at == p.texts.end() || at->slot != slot || at->kind != kind ? nullptr : at->text.get();
}

std::string_view Arena::ownText(Number n, OwnTextKind kind) const {
    const OwnText *const own = findOwn(n, kind);
    return own ? std::string_view(own->utf8) : std::string_view();
}

std::span<const KeptStretch> Arena::keptStretches(Number n) const {
    const OwnText *const own = findOwn(n, OwnTextKind::Value);
    return own ? std::span(own->kept) : std::span<const KeptStretch>();
}

void Arena::setOwnText(Number n, OwnTextKind kind, std::string text,
                       std::vector<KeptStretch> kept) {
    setOwnText(n, kind, Ref<OwnText>(new OwnText(std::move(text), std::move(kept))));
}

void Arena::setOwnText(Number n, OwnTextKind kind, Ref<OwnText> text) {
    Page &p = writePage(n - base_);
    const auto slot = static_cast<std::uint16_t>(indexOf(n - base_));
    const auto at = p.texts.begin() + (placeOfOwn(p, slot, kind) - p.texts.cbegin());
    if (at != p.texts.end() && at->slot == slot && at->kind == kind)
        at->text = std::move(text);
    else
        p.texts.insert(at, {slot, kind, std::move(text)});
}

std::string_view Arena::layout(Number n) const {
    const Record &r = record(n);
    if (r.has(record_flag::OwnLayout))
        return ownText(n, OwnTextKind::Layout);
    return r.has(record_flag::Source) ? slice(n, layoutStart(n), r.start) : std::string_view();
}

std::string_view Arena::endLayout(Number n) const {
    const Record &r = record(n);
    if (r.has(record_flag::OwnEndLayout))
        return ownText(n, OwnTextKind::EndLayout);
    if (!r.has(record_flag::Source))
        return {};
    return slice(n, contentEnd(n), part(n).endTagStart);
}

void Arena::setLayout(Number n, std::string text) {
    if (layout(n) == text)
        return;
    setOwnText(n, OwnTextKind::Layout, std::move(text));
    writeRecord(n).flags |= record_flag::OwnLayout;
}

void Arena::setEndLayout(Number n, std::string text) {
    if (endLayout(n) == text)
        return;
    setOwnText(n, OwnTextKind::EndLayout, std::move(text));
    writeRecord(n).flags |= record_flag::OwnEndLayout;
}

void Arena::link(Number parent, Number node, Number next) {
    const bool attribute = record(node).kind == NodeType::Attribute;
    const Number last = attribute ? lastAttribute(parent) : part(parent).lastChild;
    const Number previous = next != 0 ? previousSibling(next) : last;
    Record &r = writeRecord(node);
    r.parent = parent;
    r.previous = previous;
    r.next = next;
    if (previous != 0)
        writeRecord(previous).next = node;
    if (next != 0)
        writeRecord(next).previous = node;
    ElementPart &p = writePart(parent);
    if (previous == 0)
        (attribute ? p.firstAttribute : p.firstChild) = node;
    if (!attribute) {
        if (next == 0)
            p.lastChild = node;
    } else if (previous == 0 || next == 0) {
        writeRecord(p.firstAttribute).previous = next == 0 ? node : last;
    }
}

void Arena::unlink(Number node) {
    const Record r = record(node);
    const Number previous = previousSibling(node);
    if (previous != 0)
        writeRecord(previous).next = r.next;
    if (r.next != 0)
        // A first attribute hands on which one is the last.
        writeRecord(r.next).previous = r.previous;
    if (r.parent != 0) {
        ElementPart &p = writePart(r.parent);
        const bool attribute = r.kind == NodeType::Attribute;
        if (previous == 0)
            (attribute ? p.firstAttribute : p.firstChild) = r.next;
        if (r.next == 0 && !attribute)
            p.lastChild = previous;
        else if (r.next == 0 && previous != 0)
            writeRecord(p.firstAttribute).previous = previous;
    }
    Record &w = writeRecord(node);
    w.parent = w.previous = w.next = 0;
}

void Arena::markContentChanged(Number parent) {
    // Where the mark stands already it stands on everything above, too.
    for (Number n = parent; n != 0 && !record(n).has(record_flag::ContentChanged);
         n = record(n).parent)
        writeRecord(n).flags |= record_flag::ContentChanged;
}

Number Arena::nextInSubtree(Number node, Number top) const {
    if (hasPart(node) && part(node).firstChild != 0)
        return part(node).firstChild;
    for (; node != top; node = record(node).parent) {
        if (record(node).next != 0)
            return record(node).next;
    }
    return 0;
}

Number Arena::copyOne(const Arena &from, Number node, std::vector<std::uint32_t> &nameMap) {
    const Record r = from.record(node);
    std::uint32_t name = r.name;
    if (!(names == from.names)) {
        if (nameMap.size() <= name)
            nameMap.resize(std::max<std::size_t>(name + 1, 2 * nameMap.size()));
        if (nameMap[name] == 0)
            nameMap[name] = names->intern(from.names->utf8(name));
        name = nameMap[name];
    }
    const bool read = r.has(record_flag::Source);
    const Number copy = read ? add(r.kind, name, from.source(node)) : add(r.kind, name);
    {
        Record &w = writeRecord(copy);
        w.flags = r.flags;
        w.start = r.start;
    }
    if (slotsOf(r.kind) == 2) {
        const ElementPart p = from.part(node);
        ElementPart &w = writePart(copy);
        w.contentStart = p.contentStart;
        w.endTagStart = p.endTagStart;
        w.end = p.end;
    }
    if (r.has(record_flag::OwnValue)) {
        const std::span<const KeptStretch> kept = from.keptStretches(node);
        setOwnText(copy, OwnTextKind::Value, std::string(from.ownText(node, OwnTextKind::Value)),
                   {kept.begin(), kept.end()});
    }
    if (r.has(record_flag::OwnLayout))
        setOwnText(copy, OwnTextKind::Layout, std::string(from.ownText(node, OwnTextKind::Layout)));
    if (r.has(record_flag::OwnEndLayout))
        setOwnText(copy, OwnTextKind::EndLayout,
                   std::string(from.ownText(node, OwnTextKind::EndLayout)));
    return copy;
}

Number Arena::addInFormOf(Number element, std::uint32_t name) {
    std::vector<std::uint32_t> nameMap;
    const Number copy = copyOne(*this, element, nameMap);
    Record &record = writeRecord(copy);
    record.name = name;
    record.flags |= record_flag::TagChanged;
    return copy;
}

Number Arena::copyWithAttributes(const Arena &from, Number node,
                                 std::vector<std::uint32_t> &nameMap) {
    const Number copy = copyOne(from, node, nameMap);
    if (from.hasPart(node)) {
        for (Number a = from.part(node).firstAttribute; a != 0; a = from.record(a).next)
            link(copy, copyOne(from, a, nameMap), 0);
    }
    return copy;
}

Number Arena::copyFrom(const Arena &from, Number node, bool deep) {
    std::vector<std::uint32_t> nameMap;
    const Number top = copyWithAttributes(from, node, nameMap);
    if (!deep) {
        if (from.hasPart(node) && from.part(node).firstChild != 0)
            markContentChanged(top);
        return top;
    }
    Number target = top;
    for (Number n = node;;) {
        if (from.hasPart(n) && from.part(n).firstChild != 0) {
            n = from.part(n).firstChild;
        } else {
            while (n != node && from.record(n).next == 0) {
                n = from.record(n).parent;
                target = record(target).parent;
            }
            if (n == node)
                return top;
            n = from.record(n).next;
            target = record(target).parent;
        }
        const Number copy = copyWithAttributes(from, n, nameMap);
        link(target, copy, 0);
        target = copy;
    }
}

} // namespace quillon::xml
