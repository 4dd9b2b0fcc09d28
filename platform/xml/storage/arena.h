#pragma once

#include "platform/xml/storage/name_table.h"
#include "platform/xml/storage/node_kind.h"
#include "platform/xml/storage/parse_error.h"
#include "platform/xml/storage/ref.h"
#include "platform/xml/storage/source_text.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::xml {

/// Number of a node in its document; 0 is no node.
using Number = std::uint32_t;

using RecordFlags = std::uint16_t;

namespace record_flag {
/// The positions in the source text are valid: the node was read.
constexpr RecordFlags Source = 1;
/// The attribute list of an element is not the one that was read.
constexpr RecordFlags TagChanged = 2;
/// The name of an attribute is not the one that was read.
constexpr RecordFlags Renamed = TagChanged;
/// Something below is not as it was read.
constexpr RecordFlags ContentChanged = 4;
/// The value stands among the page's own texts.
constexpr RecordFlags OwnValue = 8;
/// The layout ahead of the node stands among the page's own texts.
constexpr RecordFlags OwnLayout = 16;
/// The layout ahead of the end tag stands among the page's own texts.
constexpr RecordFlags OwnEndLayout = 32;
/// An attribute that only the internal subset's default supplies.
constexpr RecordFlags Defaulted = 64;
/// White space between markup is content here.
constexpr RecordFlags PreserveSpace = 128;
/// The white space ahead of the start in the source is the node's layout.
constexpr RecordFlags SourceLayout = 256;
/// The white space ahead of the end tag in the source is its layout.
constexpr RecordFlags SourceEndLayout = 512;
} // namespace record_flag

/// How tags are written, where that is not as they were read: further flags.
namespace tag_form {
/// `<a/>` when there is nothing in the element.
constexpr RecordFlags Closed = 1024;
/// `<a></a>` when there is nothing in the element.
constexpr RecordFlags WithEndTag = 2048;
/// Nothing ahead of the end of the start tag.
constexpr RecordFlags Tight = 4096;

constexpr RecordFlags All = Closed | WithEndTag | Tight;
} // namespace tag_form

/// What is kept of every node. Positions are byte offsets in the source text. Where the layout
/// starts, and where a node without a ElementPart ends, is seen there: Arena::layoutStart(),
/// Arena::sourceEnd().
struct Record {
    NodeType kind;
    /// Which of the page's sources the positions mean.
    std::uint8_t source;
    RecordFlags flags;
    std::uint32_t name;
    /// For an attribute: the element it is set on.
    Number parent;
    Number next;
    /// Of the first attribute: the last one. See Arena::previousSibling().
    Number previous;
    std::uint32_t start;

    bool has(RecordFlags flag) const { return (flags & flag) != 0; }
};

/// What is kept of elements, the document and its type besides; it stands in the slot after the
/// Record.
struct ElementPart {
    Number firstChild;
    Number lastChild;
    Number firstAttribute;
    /// End of the start tag; equal to `end` for `<a/>`.
    std::uint32_t contentStart;
    std::uint32_t endTagStart;
    std::uint32_t end;
};

constexpr std::uint32_t slotsOf(NodeType kind) {
    return kind == NodeType::Element || kind == NodeType::Document || kind == NodeType::DocumentType
               ? 2
               : 1;
}

union Slot {
    Record record;
    ElementPart part;
};
static_assert(sizeof(Slot) == 24);

/// Where a node stands in its source text: its layout, then the node itself.
struct SourcePlace {
    std::uint32_t layoutStart;
    std::uint32_t start;
    std::uint32_t end;

    bool hasLayout() const { return layoutStart != start; }
};

enum class OwnTextKind : std::uint8_t { Value, Layout, EndLayout };

/// A page of slots with the texts they own. Shared between the copies of a document and copied
/// before one of them changes it. Both slots of a node are on the same page.
struct Page final : RefCounted {
    static constexpr std::uint32_t SlotCount = 1024;
    static constexpr std::size_t MaxSources = 255;

    /// Left as they come: allocation fills a slot before anything reads it.
    std::array<Slot, SlotCount> slots;
    /// The slots in which a node starts.
    std::bitset<SlotCount> starts;
    std::vector<Ref<SourceText>> sources;

    struct Own {
        std::uint16_t slot;
        OwnTextKind kind;
        Ref<OwnText> text;
    };
    /// Ascending by slot, then kind.
    std::vector<Own> texts;

    /// The place of a source in `sources`, added when it is new; MaxSources when there is no room.
    std::size_t sourceIndex(const Ref<SourceText> &source);
};

/// A general entity that the internal subset declares with a text of its own.
using EntityTable = std::map<std::string, std::string, std::less<>>;

enum class LineEnd : std::uint8_t { LF, CRLF, CR };

/// How the file looked that a document was read from.
struct FileFormat {
    LineEnd lineEnd = LineEnd::LF;
    /// Every line of the file is to end so, whatever ends it had when it was read.
    bool unifiesLineEnds = false;
    bool byteOrderMark = false;
    /// What the declaration said when the file was read, and the codec it was read with; both
    /// empty for a document that was not read from a file.
    std::string declared;
    std::string codec;
};

/// Where the root element stood when it was last removed.
struct RootPlace {
    bool valid = false;
    Number next = 0;
    std::string layout;
};

struct ParserProperties {
    bool preserveWhiteSpace = false;
};

/// The storage of a document: numbered records on shared pages. It knows nothing of what may
/// stand where; dom_edit.cpp does.
class Arena final : public ArenaBase {
public:
    /// The number of the first node may be another in tests of what happens when they run out.
    explicit Arena(Number first = 1);
    ~Arena() override;

    /// A second document that shares all pages with this one.
    Ref<Arena> clone() const;
    /// Drops all content. Numbers already given stay dead; raises Fail, with nothing changed, when
    /// there are no others.
    void clear();
    /// Drops the nodes and names as if they had never been there: their numbers are given again.
    void dropNodes();

    bool isAlive(Number n) const { return n - base_ < size_; }
    /// The number of the first slot of the page that a number is on, and that of the next page.
    Number pageStart(Number n) const { return n - indexOf(n - base_); }
    Number pageEnd(Number n) const { return pageStart(n) + Page::SlotCount; }
    Number documentNumber() const { return base_; }
    /// Number of slots in use, dead nodes included.
    std::uint32_t slotCount() const { return size_; }

    /// Whether a node starts at this number, be it dead.
    bool isRecord(Number n) const {
        return isAlive(n) && page(n - base_).starts.test(indexOf(n - base_));
    }
    /// Number of nodes, dead ones included.
    std::uint32_t recordCount() const { return recordCount_; }
    /// How many nodes have smaller numbers than `n`.
    std::uint32_t recordsBefore(Number n) const;
    /// The node that has so many ahead of it; 0 where there are not as many.
    Number nthRecord(std::uint32_t index) const;
    /// Nodes with smaller numbers were made by the parser, in document order, the attributes of an
    /// element right behind it. The document's own number where nothing was parsed.
    Number readEnd() const { return readEnd_; }
    /// Whether a reference to an entity is among the nodes, dead ones included.
    bool hasHadReference() const { return hasHadReference_; }

    const Record &record(Number n) const { return slot(n - base_).record; }
    const ElementPart &part(Number n) const { return slot(n - base_ + 1).part; }
    /// The child, or attribute, ahead of this one; 0 when there is none.
    Number previousSibling(Number n) const;
    Number lastAttribute(Number element) const;
    /// Where the layout of a node that was read starts: up to Record::start.
    std::uint32_t layoutStart(Number n) const;
    /// Where a node that was read ends.
    std::uint32_t sourceEnd(Number n) const;
    /// A node that was read, as it stood.
    std::string_view sourceSlice(Number n) const { return slice(n, record(n).start, sourceEnd(n)); }
    /// Where the layout ahead of the end tag of an element that was read starts: up to
    /// ElementPart::endTagStart.
    std::uint32_t contentEnd(Number n) const;
    /// How the tags of an element are written, a sum of tag_form.
    RecordFlags tagForm(Number n) const { return record(n).flags & tag_form::All; }
    void setTagForm(Number n, RecordFlags form);
    /// For writing. Every reference got before may point at the state before the write.
    Record &writeRecord(Number n) { return writeSlot(n - base_).record; }
    ElementPart &writePart(Number n) { return writeSlot(n - base_ + 1).part; }
    /// Whether a node may have others in it.
    bool hasPart(Number n) const {
        const NodeType kind = record(n).kind;
        return kind == NodeType::Element || kind == NodeType::Document;
    }

    /// A new record (with its part, where it has one) that stands nowhere and has no source. Raises
    /// Fail when all numbers have been given, as everything does that makes nodes.
    Number add(NodeType kind, std::uint32_t name);
    /// The same with positions in a source.
    Number add(NodeType kind, std::uint32_t name, const Ref<SourceText> &source);
    /// An element of another name that is written like `element`: its positions and its layout, but
    /// nothing in it. It stands nowhere.
    Number addInFormOf(Number element, std::uint32_t name);

    const Ref<SourceText> &source(Number n) const;
    std::string_view slice(Number n, std::uint32_t start, std::uint32_t end) const {
        return source(n)->slice(start, end);
    }

    /// What the parser does at the end: makes the document node stand for the whole of a source,
    /// with the white space from `contentEnd` on as the layout at its end.
    void bindDocument(const Ref<SourceText> &source, std::uint32_t contentEnd);

    /// A text that a node owns; empty when it owns none of that kind.
    std::string_view ownText(Number n, OwnTextKind kind) const;
    void setOwnText(Number n, OwnTextKind kind, std::string text,
                    std::vector<KeptStretch> kept = {});
    /// The same with a text that others own, too.
    void setOwnText(Number n, OwnTextKind kind, Ref<OwnText> text);
    /// What of the value that a node owns still stands in its source.
    std::span<const KeptStretch> keptStretches(Number n) const;

    /// The white space ahead of a node, or ahead of an element's end tag. Line ends as read.
    std::string_view layout(Number n) const;
    std::string_view endLayout(Number n) const;
    /// Sets them; LF line ends.
    void setLayout(Number n, std::string text);
    void setEndLayout(Number n, std::string text);

    /// Links a node as a child (or attribute) that stands nowhere yet; 0 for next appends.
    void link(Number parent, Number node, Number next);
    void unlink(Number node);
    /// Notes that something below `parent`, itself included, is not as it was read.
    void markContentChanged(Number parent);

    /// Copies a node with its attributes, and its descendants when deep, from an arena (which may
    /// be this one). The copy stands nowhere.
    Number copyFrom(const Arena &from, Number node, bool deep);

    /// The next node of a walk over everything below `top` in document order, without recursion;
    /// 0 at the end.
    Number nextInSubtree(Number node, Number top) const;

    Ref<NameTable> names;
    std::shared_ptr<const EntityTable> entities;
    FileFormat format;
    ParserProperties properties;
    ParseError parseError;
    RootPlace rootPlace;

private:
    friend class NodeAppender;

    const OwnText *findOwn(Number n, OwnTextKind kind) const;

    struct Directory final : RefCounted {
        static constexpr std::uint32_t PageCount = 512;
        std::array<Ref<Page>, PageCount> pages;
        /// How many nodes start on each of the pages, and on all.
        std::array<std::uint16_t, PageCount> recordCounts{};
        std::uint32_t recordCount = 0;
    };

    static constexpr std::uint32_t indexOf(std::uint32_t at) { return at % Page::SlotCount; }
    const Page &page(std::uint32_t at) const {
        const std::uint32_t number = at / Page::SlotCount;
        return *directories_[number / Directory::PageCount]->pages[number % Directory::PageCount];
    }
    const Slot &slot(std::uint32_t at) const { return page(at).slots[indexOf(at)]; }
    Page &writePage(std::uint32_t at) {
        const std::uint32_t number = at / Page::SlotCount;
        const Ref<Directory> &directory = directories_[number / Directory::PageCount];
        const Ref<Page> &page = directory->pages[number % Directory::PageCount];
        return directory->isShared() || page->isShared() ? unsharePage(number) : *page;
    }
    Slot &writeSlot(std::uint32_t at) { return writePage(at).slots[indexOf(at)]; }
    Page &unsharePage(std::uint32_t number);
    /// Raises Fail when there are no numbers for a node behind so many slots.
    void requireNumbers(std::uint32_t slots) const;
    void addPage(std::uint32_t number);
    /// Room for one node of `slots` slots, on one page; returns the position of the first.
    std::uint32_t allocate(std::uint32_t slots);
    Number copyOne(const Arena &from, Number node, std::vector<std::uint32_t> &nameMap);
    Number copyWithAttributes(const Arena &from, Number node, std::vector<std::uint32_t> &nameMap);

    /// The number of position 0.
    Number base_;
    std::uint32_t size_ = 0;
    std::uint32_t recordCount_ = 0;
    Number readEnd_;
    bool hasHadReference_ = false;
    std::vector<Ref<Directory>> directories_;
};

} // namespace quillon::xml
