#include "platform/xml/dom/pretty_print.h"

#include "platform/runtime/error.h"
#include "platform/runtime/utf8.h"
#include "platform/xml/dom/arrangement.h"
#include "platform/xml/dom/handle_access.h"
#include "platform/xml/io/serializer.h"
#include "platform/xml/storage/values.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unicode/uchar.h>
#include <unordered_map>

namespace quillon::xml {

namespace {

/// So many columns lead from one tab stop to the next.
constexpr std::size_t TabColumns = 4;

constexpr std::size_t NodesPerReport = 20'000;

bool isCharacterData(NodeType kind) {
    return kind == NodeType::Text || kind == NodeType::CDATASection ||
           kind == NodeType::EntityReference;
}

bool hasLineBreak(std::string_view layout) {
    return layout.find_first_of("\r\n") != layout.npos;
}

/// The column behind a text that begins at a column.
std::size_t columnBehind(std::string_view text, std::size_t column) {
    for (std::size_t at = 0; at < text.size();) {
        const std::string_view character = runtime::characterAt(text, at);
        const auto c = static_cast<UChar32>(runtime::codePoint(character));
        at += character.size();
        if (c == '\n' || c == '\r') {
            column = 0;
        } else if (c == '\t') {
            column += TabColumns - column % TabColumns;
        } else if (c < 0x1100) {
            ++column;
        } else {
            const int width = u_getIntPropertyValue(c, UCHAR_EAST_ASIAN_WIDTH);
            column += width == U_EA_FULLWIDTH || width == U_EA_WIDE ? 2 : 1;
        }
    }
    return column;
}

/// Where the line begins on which an element does.
std::string lineIndent(const Node &element) {
    for (Node node = element; node; node = node.parentNode()) {
        if (const auto indent = lineIndentOf(node))
            return *indent;
    }
    return {};
}

} // namespace

/// Walks over what is to be laid out, and notes what stands otherwise.
class LayoutPlanner {
public:
    LayoutPlanner(const Node &top, const LayoutStyle &style, const runtime::Progress &progress,
                  std::size_t mostNodes)
        : arena_(HandleAccess::arena(top)), top_(top.number()), style_(style), progress_(progress),
          mostNodes_(mostNodes) {
        lines_.push_back("\n" +
                         (top.nodeType() == NodeType::Element ? lineIndent(top) : std::string()));
    }

    LayoutPlan plan();

private:
    using Kind = LayoutPlan::Kind;

    /// The line break and indent of what stands so many levels below the top.
    const std::string &line(std::size_t depth);
    /// Whether white space may be put between what is in an element.
    bool mayLayOut(Number element) const;
    /// What xml:space says on an element itself; nothing when it says nothing.
    std::optional<bool> preservesItself(Number element) const;
    bool isTopPreserved() const;

    void child(Number n, std::size_t depth);
    std::string childLayout(Number n, std::size_t depth);
    bool staysBehindLast(Number n) const;
    void end(Number element, std::size_t depth);
    void startTag(Number element, std::size_t depth);
    void attributes(Number element, std::size_t depth);
    std::uint32_t formOfTagEnd(Number element) const;
    std::uint32_t formOfEmpty(Number element) const;
    std::string_view attributeText(Number attribute);

    void layout(Number n, const std::string &text);
    void endLayout(Number n, const std::string &text);
    void add(Number n, Kind kind, const std::string &text);
    /// False when the plan is to end here.
    bool count();

    const Arena &arena_;
    const Number top_;
    const LayoutStyle &style_;
    const runtime::Progress &progress_;
    const std::size_t mostNodes_;
    std::size_t nodes_ = 0;
    std::vector<std::string> lines_;
    std::unordered_map<std::string, std::uint32_t> textPlaces_;
    QByteArray attributeBuffer_;
    LayoutPlan plan_;
};

LayoutPlan LayoutPlanner::plan() {
    const bool isDocument = top_ == arena_.documentNumber();
    if (!isDocument) {
        if (isTopPreserved())
            return std::move(plan_);
        startTag(top_, 0);
    }
    // The children of a document stand as deep as it does.
    const std::size_t first = isDocument ? 0 : 1;
    std::size_t depth = first;
    const auto goInto = [this](Number n) {
        return arena_.hasPart(n) && arena_.part(n).firstChild != 0 && mayLayOut(n);
    };
    Number n = top_;
    if (!goInto(n))
        return std::move(plan_);
    n = arena_.part(n).firstChild;
    while (true) {
        if (!count())
            return std::move(plan_);
        child(n, depth);
        if (goInto(n)) {
            n = arena_.part(n).firstChild;
            ++depth;
            continue;
        }
        while (arena_.record(n).next == 0) {
            n = arena_.record(n).parent;
            end(n, depth == 0 ? 0 : --depth);
            if (n == top_)
                return std::move(plan_);
        }
        n = arena_.record(n).next;
    }
}

bool LayoutPlanner::count() {
    if (++nodes_ > mostNodes_) {
        plan_.isWhole_ = false;
        return false;
    }
    if (progress_ && nodes_ % NodesPerReport == 0 &&
        !progress_(std::min(1.0, double(nodes_) / arena_.slotCount())))
        runtime::raise(runtime::error_number::Cancelled);
    return true;
}

const std::string &LayoutPlanner::line(std::size_t depth) {
    depth = std::min(depth, MostLevels);
    while (lines_.size() <= depth)
        lines_.push_back(lines_.back() + style_.step);
    return lines_[depth];
}

std::optional<bool> LayoutPlanner::preservesItself(Number element) const {
    for (Number a = arena_.part(element).firstAttribute; a != 0; a = arena_.record(a).next) {
        if (arena_.names->utf8(arena_.record(a).name) == "xml:space")
            return valueOf(arena_, a) == "preserve";
    }
    return std::nullopt;
}

bool LayoutPlanner::isTopPreserved() const {
    // The parser has not seen an attribute that was set here.
    for (Number n = top_; n != arena_.documentNumber() && n != 0; n = arena_.record(n).parent) {
        if (const auto preserves = preservesItself(n))
            return *preserves;
    }
    return arena_.record(top_).has(record_flag::PreserveSpace);
}

bool LayoutPlanner::mayLayOut(Number element) const {
    if (arena_.properties.preserveWhiteSpace ||
        arena_.record(element).has(record_flag::PreserveSpace) ||
        preservesItself(element).value_or(false))
        return false;
    for (Number n = arena_.part(element).firstChild; n != 0; n = arena_.record(n).next) {
        if (isCharacterData(arena_.record(n).kind))
            return false;
    }
    return true;
}

void LayoutPlanner::child(Number n, std::size_t depth) {
    layout(n, childLayout(n, depth));
    if (arena_.record(n).kind == NodeType::Element)
        startTag(n, depth);
}

std::string LayoutPlanner::childLayout(Number n, std::size_t depth) {
    const Record &r = arena_.record(n);
    // Nothing may stand ahead of the XML declaration.
    if (r.parent == arena_.documentNumber() && arena_.previousSibling(n) == 0)
        return {};
    const std::string present = normalizeLineEnds(arena_.layout(n));
    if (staysBehindLast(n))
        return present;
    const bool isBelowBlankLine = style_.keepsBlankLines && std::ranges::count(present, '\n') > 1;
    return isBelowBlankLine ? "\n" + line(depth) : line(depth);
}

bool LayoutPlanner::staysBehindLast(Number n) const {
    const Record &r = arena_.record(n);
    if (r.kind != NodeType::Comment || arena_.previousSibling(n) == 0 ||
        hasLineBreak(arena_.layout(n)))
        return false;
    return r.next != 0 ? hasLineBreak(arena_.layout(r.next))
                       : hasLineBreak(arena_.endLayout(r.parent));
}

void LayoutPlanner::end(Number element, std::size_t depth) {
    if (element != arena_.documentNumber())
        endLayout(element, line(depth));
    else if (!arena_.endLayout(element).empty())
        endLayout(element, "\n");
}

void LayoutPlanner::startTag(Number element, std::size_t depth) {
    attributes(element, depth);
    const ElementPart &part = arena_.part(element);
    const RecordFlags present = arena_.tagForm(element);
    std::uint32_t form = present | formOfTagEnd(element);
    const std::string_view inside = arena_.endLayout(element);
    if (part.firstChild == 0 && (inside.empty() || hasLineBreak(inside)) && mayLayOut(element)) {
        if (const std::uint32_t empty = formOfEmpty(element))
            form = (form & ~(tag_form::Closed | tag_form::WithEndTag)) | empty;
        if (!inside.empty())
            endLayout(element,
                      style_.empty == LayoutStyle::Empty::Keep ? line(depth) : std::string());
    }
    if (form != present)
        plan_.changes_.push_back({element, Kind::Form, form});
}

std::uint32_t LayoutPlanner::formOfTagEnd(Number element) const {
    const Record &r = arena_.record(element);
    if (style_.attributes == LayoutStyle::Attributes::Keep || !r.has(record_flag::Source))
        return 0;
    // A line break ahead of the end of the tag goes with those between its attributes.
    const std::string_view tag = arena_.slice(element, r.start, arena_.part(element).contentStart);
    const std::size_t last = tag.find_last_not_of(" \t\r\n/>");
    return last != tag.npos && hasLineBreak(tag.substr(last + 1)) ? tag_form::Tight : 0;
}

/// The form that an element with nothing in it is to get; 0 when it is written as it is to be.
std::uint32_t LayoutPlanner::formOfEmpty(Number element) const {
    const Record &r = arena_.record(element);
    const ElementPart &part = arena_.part(element);
    const bool isReadClosed = !r.has(record_flag::Source) || part.contentStart == part.end;
    const RecordFlags form = arena_.tagForm(element);
    const bool isClosed = form & tag_form::WithEndTag ? false
                          : form & tag_form::Closed   ? true
                                                      : isReadClosed;
    switch (style_.empty) {
    case LayoutStyle::Empty::Closed:
        return isClosed ? 0 : tag_form::Closed;
    case LayoutStyle::Empty::WithEndTag:
        return isClosed ? tag_form::WithEndTag : 0;
    case LayoutStyle::Empty::Keep:
        break;
    }
    return 0;
}

std::string_view LayoutPlanner::attributeText(Number attribute) {
    const Record &r = arena_.record(attribute);
    constexpr RecordFlags Changed = record_flag::OwnValue | record_flag::Renamed;
    if (r.has(record_flag::Source) && !r.has(Changed))
        return arena_.sourceSlice(attribute);
    attributeBuffer_ = serializeNode(arena_, attribute);
    return {attributeBuffer_.constData(), std::size_t(attributeBuffer_.size())};
}

void LayoutPlanner::attributes(Number element, std::size_t depth) {
    using Attributes = LayoutStyle::Attributes;
    if (style_.attributes == Attributes::Keep)
        return;
    std::vector<Number> all;
    for (Number a = arena_.part(element).firstAttribute; a != 0; a = arena_.record(a).next) {
        if (!arena_.record(a).has(record_flag::Defaulted))
            all.push_back(a);
    }
    if (all.empty())
        return;
    const std::string_view name = arena_.names->utf8(arena_.record(element).name);
    // Where the element stands behind something else on its line, that is not counted.
    const std::string &ownLine = line(depth);
    const std::size_t nameEnd = columnBehind(name, columnBehind(ownLine, 0) + 1);
    std::string further = ownLine;
    if (style_.alignsAttributes)
        further.append(columnBehind(name, 0) + 2, ' ');
    else
        further += style_.step + style_.step;
    const bool isEach = style_.attributes == Attributes::OnePerLine && all.size() > 1;
    const auto width = static_cast<std::size_t>(style_.width);
    std::size_t column = nameEnd;
    for (const Number a : all) {
        const bool isFirst = a == all.front();
        const std::string_view text = attributeText(a);
        const std::string_view upToBreak = text.substr(0, text.find_first_of("\r\n"));
        // The last one is followed by the end of the tag.
        const std::size_t needed = columnBehind(upToBreak, column + 1) + (a == all.back() ? 2 : 0);
        const bool isTooLong = style_.attributes == Attributes::Wrap && needed > width;
        const bool mayBreak = !isFirst || !style_.alignsAttributes;
        const bool breaks = mayBreak && (isEach || isTooLong) &&
                            // A first one that is too long for any line gains nothing by another.
                            !(isFirst && !isEach && all.size() == 1);
        layout(a, breaks ? further : " ");
        column = columnBehind(text, breaks ? columnBehind(further, 0) : column + 1);
    }
}

void LayoutPlanner::layout(Number n, const std::string &text) {
    const std::string_view present = arena_.layout(n);
    // An attribute that has none is written behind a blank.
    if (present.empty() && arena_.record(n).kind == NodeType::Attribute && text == " ")
        return;
    if (present != text && normalizeLineEnds(present) != text)
        add(n, Kind::Layout, text);
}

void LayoutPlanner::endLayout(Number n, const std::string &text) {
    const std::string_view present = arena_.endLayout(n);
    if (present != text && normalizeLineEnds(present) != text)
        add(n, Kind::EndLayout, text);
}

void LayoutPlanner::add(Number n, Kind kind, const std::string &text) {
    const auto [place, isNew] =
        textPlaces_.try_emplace(text, static_cast<std::uint32_t>(plan_.texts_.size()));
    if (isNew)
        plan_.texts_.push_back(text);
    plan_.changes_.push_back({n, kind, place->second});
}

LayoutPlan planLayout(const Node &top, const LayoutStyle &style, const runtime::Progress &progress,
                      std::size_t mostNodes) {
    const NodeType kind = top.nodeType();
    if (kind != NodeType::Element && kind != NodeType::Document)
        return {};
    return LayoutPlanner(top, style, progress, mostNodes).plan();
}

void applyLayout(const Node &any, const LayoutPlan &plan) {
    Arena &arena = HandleAccess::arena(any);
    std::vector<Ref<OwnText>> texts;
    texts.reserve(plan.texts_.size());
    for (const std::string &text : plan.texts_)
        texts.emplace_back(new OwnText(text, {}));
    for (const LayoutPlan::Change &change : plan.changes_) {
        const Number n = change.node;
        const Number parent = arena.record(n).parent;
        switch (change.kind) {
        case LayoutPlan::Kind::EndLayout:
            arena.setOwnText(n, OwnTextKind::EndLayout, texts[change.value]);
            arena.writeRecord(n).flags |= record_flag::OwnEndLayout;
            arena.markContentChanged(n);
            break;
        case LayoutPlan::Kind::Layout:
            arena.setOwnText(n, OwnTextKind::Layout, texts[change.value]);
            arena.writeRecord(n).flags |= record_flag::OwnLayout;
            if (arena.record(n).kind == NodeType::Attribute)
                arena.writeRecord(parent).flags |= record_flag::TagChanged;
            arena.markContentChanged(parent);
            break;
        case LayoutPlan::Kind::Form:
            arena.setTagForm(n, static_cast<RecordFlags>(change.value));
            arena.writeRecord(n).flags |= record_flag::TagChanged;
            arena.markContentChanged(parent);
            break;
        }
    }
}

} // namespace quillon::xml
