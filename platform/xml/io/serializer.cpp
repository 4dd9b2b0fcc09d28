#include "platform/xml/io/serializer.h"

#include "platform/runtime/error.h"
#include "platform/xml/io/file_target.h"
#include "platform/xml/io/output.h"
#include "platform/xml/storage/values.h"
#include "resources/xml_texts.h"

#include <utility>

namespace quillon::xml {

namespace {

using namespace std::string_view_literals;

class Serializer {
public:
    Serializer(const Arena &arena, Output &output) : arena_(arena), output_(output) {}

    /// Writes a node with all below it, without the layout ahead of it.
    void write(Number top) {
        writeAll(top);
        flush();
    }
    void writeAhead(Number top, Number node);
    void writeChildren(Number top, const std::function<bool(Number, bool)> &child);

private:
    void writeAll(Number top);
    bool isVerbatim(const Record &r) const {
        return r.has(record_flag::Source) && !r.has(record_flag::OwnValue);
    }
    /// Writes a stretch of the node's source. Stretches that follow one another are put together
    /// first: a changed document is mostly one long stretch on either side of the change. False,
    /// with nothing written, when the output cannot hold it.
    bool source(Number n, std::uint32_t start, std::uint32_t end);
    void flush();
    /// Writes white space or other markup of the node's source.
    void blanks(Number n, std::uint32_t start, std::uint32_t end) {
        if (!source(n, start, end))
            markup(normalizeLineEnds(arena_.slice(n, start, end)));
    }
    void markup(std::string_view text) {
        flush();
        output_.markup(text);
    }
    void characters(std::string_view text) {
        flush();
        output_.characters(text);
    }

    bool isUntouched(Number n) const;
    /// Writes what stands ahead of the children. False when the node is done with that.
    bool open(Number n);
    void beginning(Number n) {
        if (arena_.record(n).kind == NodeType::Element)
            startTag(n);
    }
    void close(Number n);
    void layout(Number n);
    void endLayout(Number n);
    void startTag(Number n);
    void tagBeginning(Number n);
    void tagEnd(Number n, bool hasContent);
    void attribute(Number n);
    void leaf(Number n);
    void ownLeaf(Number n);
    void ownAttributeValue(Number n, char quote);
    /// Writes a value that was changed in places: what is kept as it was read, and by `own`, given
    /// from where to where, what was made here.
    template <typename Own>
    void changedValue(Number n, Own &&own);
    /// Whether there is an end tag to read; and one to write.
    bool hasEndTag(Number n) const;
    bool wantsEndTag(Number n) const;

    const Arena &arena_;
    Output &output_;
    const SourceText *pending_ = nullptr;
    std::uint32_t pendingStart_ = 0;
    std::uint32_t pendingEnd_ = 0;
};

bool Serializer::source(Number n, std::uint32_t start, std::uint32_t end) {
    if (start == end)
        return true;
    const SourceText &text = *arena_.source(n);
    if (pending_ == &text && pendingEnd_ == start) {
        pendingEnd_ = end;
        return true;
    }
    flush();
    if (!output_.holds(text))
        return output_.verbatim(text, start, end);
    pending_ = &text;
    pendingStart_ = start;
    pendingEnd_ = end;
    return true;
}

void Serializer::flush() {
    const SourceText *text = std::exchange(pending_, nullptr);
    if (text && !output_.verbatim(*text, pendingStart_, pendingEnd_))
        throw runtime::Error(runtime::error_number::Fail,
                             resources::xml_texts::SourceNotWritten.toString());
}

void Serializer::writeAhead(Number top, Number node) {
    std::vector<Number> path;
    for (Number at = node; at != top; at = arena_.record(at).parent)
        path.push_back(at);
    Number above = top;
    for (; !path.empty(); above = path.back(), path.pop_back()) {
        // Up to the node its source says it all.
        if (isUntouched(above) &&
            source(above, arena_.record(above).start, arena_.record(node).start))
            break;
        beginning(above);
        for (Number n = arena_.part(above).firstChild; n != path.back();
             n = arena_.record(n).next) {
            layout(n);
            writeAll(n);
        }
        layout(path.back());
    }
    flush();
}

void Serializer::writeChildren(Number top, const std::function<bool(Number, bool)> &child) {
    beginning(top);
    for (Number n = arena_.part(top).firstChild; n != 0; n = arena_.record(n).next) {
        layout(n);
        flush();
        if (!child(n, false))
            return;
        writeAll(n);
        flush();
        if (!child(n, true))
            return;
    }
}

void Serializer::writeAll(Number top) {
    for (Number n = top;;) {
        if (n != top)
            layout(n);
        if (open(n)) {
            n = arena_.part(n).firstChild;
            continue;
        }
        while (n != top && arena_.record(n).next == 0) {
            n = arena_.record(n).parent;
            close(n);
        }
        if (n == top)
            break;
        n = arena_.record(n).next;
    }
}

bool Serializer::isUntouched(Number n) const {
    const Record &r = arena_.record(n);
    return r.has(record_flag::Source) && !r.has(record_flag::TagChanged) &&
           !r.has(record_flag::ContentChanged);
}

bool Serializer::open(Number n) {
    const Record &r = arena_.record(n);
    if (!arena_.hasPart(n)) {
        if (r.kind == NodeType::Attribute)
            attribute(n);
        else
            leaf(n);
        return false;
    }
    if (isUntouched(n) && source(n, r.start, arena_.part(n).end))
        return false;
    beginning(n);
    if (arena_.part(n).firstChild != 0)
        return true;
    close(n);
    return false;
}

void Serializer::close(Number n) {
    const Record &r = arena_.record(n);
    if (r.kind == NodeType::Document) {
        endLayout(n);
        return;
    }
    if (!wantsEndTag(n))
        return;
    endLayout(n);
    const std::string_view name = arena_.names->utf8(r.name);
    std::string_view behindName = ">";
    if (hasEndTag(n)) {
        const std::uint32_t start = arena_.part(n).endTagStart;
        const std::uint32_t end = arena_.part(n).end;
        std::string_view tag = arena_.slice(n, start, end);
        tag.remove_prefix(2);
        behindName = tag.substr(tag.find_last_not_of(" \t\r\n>") + 1);
        tag.remove_suffix(behindName.size());
        // After renaming, the blanks behind the name are all that the source still has to say.
        if (tag == name && source(n, start, end))
            return;
    }
    markup("</");
    markup(name);
    markup(normalizeLineEnds(behindName));
}

bool Serializer::hasEndTag(Number n) const {
    const Record &r = arena_.record(n);
    return r.has(record_flag::Source) && arena_.part(n).endTagStart != arena_.part(n).end;
}

bool Serializer::wantsEndTag(Number n) const {
    const RecordFlags form = arena_.tagForm(n);
    if (arena_.part(n).firstChild != 0 || (form & tag_form::WithEndTag) != 0)
        return true;
    return (form & tag_form::Closed) == 0 && hasEndTag(n);
}

void Serializer::layout(Number n) {
    const Record &r = arena_.record(n);
    if (r.has(record_flag::OwnLayout))
        markup(arena_.layout(n));
    else if (r.has(record_flag::Source))
        blanks(n, arena_.layoutStart(n), r.start);
}

void Serializer::endLayout(Number n) {
    const Record &r = arena_.record(n);
    if (r.has(record_flag::OwnEndLayout))
        markup(arena_.endLayout(n));
    else if (r.has(record_flag::Source))
        blanks(n, arena_.contentEnd(n), arena_.part(n).endTagStart);
}

void Serializer::startTag(Number n) {
    const Record &r = arena_.record(n);
    const ElementPart &part = arena_.part(n);
    const bool hasContent = wantsEndTag(n);
    const bool sourceClosed = r.has(record_flag::Source) && part.contentStart == part.end;
    if (r.has(record_flag::Source) && !r.has(record_flag::TagChanged) &&
        hasContent != sourceClosed && source(n, r.start, part.contentStart))
        return;
    tagBeginning(n);
    for (Number a = part.firstAttribute; a != 0; a = arena_.record(a).next) {
        if (arena_.record(a).has(record_flag::Defaulted))
            continue;
        if (arena_.layout(a).empty())
            markup(" ");
        else
            layout(a);
        attribute(a);
    }
    tagEnd(n, hasContent);
}

void Serializer::tagBeginning(Number n) {
    markup("<");
    markup(arena_.names->utf8(arena_.record(n).name));
}

void Serializer::tagEnd(Number n, bool hasContent) {
    const Record &r = arena_.record(n);
    const ElementPart &part = arena_.part(n);
    std::string_view end = hasContent ? ">"sv : "/>"sv;
    if (r.has(record_flag::Source) && (arena_.tagForm(n) & tag_form::Tight) == 0) {
        // Blanks and line breaks that stood ahead of the tag's end stay, but `<a />` opens as
        // `<a>`.
        const bool closed = part.contentStart == part.end;
        std::string_view tag = arena_.slice(n, r.start, part.contentStart);
        tag.remove_suffix(closed ? 2 : 1);
        const std::size_t last = tag.find_last_not_of(" \t\r\n");
        if (closed != hasContent)
            blanks(n, r.start + static_cast<std::uint32_t>(last + 1),
                   r.start + static_cast<std::uint32_t>(tag.size()));
    }
    markup(end);
}

void Serializer::attribute(Number n) {
    const Record &r = arena_.record(n);
    const bool renamed = r.has(record_flag::Renamed);
    const std::uint32_t end = r.has(record_flag::Source) ? arena_.sourceEnd(n) : 0;
    if (isVerbatim(r) && !renamed && source(n, r.start, end))
        return;
    if (!r.has(record_flag::Source)) {
        markup(arena_.names->utf8(r.name));
        markup("=\"");
        characters(escapeAttribute(valueOf(arena_, n), '"'));
        markup("\"");
        return;
    }
    // The blanks around "=" and the kind of quote stay.
    const std::string_view raw = arena_.slice(n, r.start, end);
    const AttributeSource parts = splitAttribute(raw);
    const std::uint32_t nameEnd = r.start + static_cast<std::uint32_t>(parts.nameEnd);
    if (renamed || !source(n, r.start, nameEnd))
        markup(arena_.names->utf8(r.name));
    if (isVerbatim(r) && source(n, nameEnd, end))
        return;
    blanks(n, nameEnd, r.start + static_cast<std::uint32_t>(parts.valueStart));
    if (isVerbatim(r))
        characters(
            normalizeLineEnds(raw.substr(parts.valueStart, parts.valueEnd - parts.valueStart)));
    else
        ownAttributeValue(n, raw.back());
    blanks(n, r.start + static_cast<std::uint32_t>(parts.valueEnd), end);
}

void Serializer::ownAttributeValue(Number n, char quote) {
    const std::string value = valueOf(arena_, n);
    const std::vector<TextPlace> references = keptReferences(value, readAttribute(arena_, n));
    if (arena_.keptStretches(n).empty()) {
        characters(escapeAttribute(value, quote, references));
        return;
    }
    changedValue(n, [&](std::size_t start, std::size_t end) {
        std::vector<TextPlace> here;
        for (const TextPlace &reference : references) {
            if (reference.start >= start && reference.start + reference.length <= end)
                here.push_back({reference.start - start, reference.length});
        }
        characters(
            escapeAttribute(std::string_view(value).substr(start, end - start), quote, here));
    });
}

template <typename Own>
void Serializer::changedValue(Number n, Own &&own) {
    const NodeType kind = arena_.record(n).kind;
    std::size_t at = 0;
    for (const KeptStretch &kept : arena_.keptStretches(n)) {
        if (at < kept.at)
            own(at, std::size_t(kept.at));
        if (!source(n, kept.start, kept.end)) {
            const std::string raw = normalizeLineEnds(arena_.slice(n, kept.start, kept.end));
            if (kind == NodeType::Text || kind == NodeType::Attribute)
                characters(raw);
            else
                markup(raw);
        }
        at = kept.at + kept.length;
    }
    if (const std::size_t end = arena_.ownText(n, OwnTextKind::Value).size(); at < end)
        own(at, end);
}

void Serializer::leaf(Number n) {
    const Record &r = arena_.record(n);
    if (!isVerbatim(r)) {
        ownLeaf(n);
        return;
    }
    const std::uint32_t end = arena_.sourceEnd(n);
    if (!source(n, r.start, end)) {
        const std::string raw = normalizeLineEnds(arena_.slice(n, r.start, end));
        if (r.kind == NodeType::Text)
            characters(raw);
        else
            markup(raw);
    }
}

void Serializer::ownLeaf(Number n) {
    const Record &r = arena_.record(n);
    const std::string value = valueOf(arena_, n);
    const std::string_view name = arena_.names->utf8(r.name);
    if (!arena_.keptStretches(n).empty()) {
        const TextPlace inside = valueSource(arena_, n);
        blanks(n, r.start, static_cast<std::uint32_t>(inside.start));
        changedValue(n, [&](std::size_t start, std::size_t end) {
            const std::string_view made = std::string_view(value).substr(start, end - start);
            if (r.kind == NodeType::Text)
                characters(escapeText(made, true));
            else
                markup(made);
        });
        blanks(n, static_cast<std::uint32_t>(inside.start + inside.length), arena_.sourceEnd(n));
        return;
    }
    switch (r.kind) {
    case NodeType::Text:
        characters(escapeText(value, r.parent != 0 &&
                                         (arena_.record(r.parent).has(record_flag::PreserveSpace) ||
                                          arena_.properties.preserveWhiteSpace)));
        break;
    case NodeType::CDATASection:
        markup(cdataMarkup(value));
        break;
    case NodeType::Comment:
        markup(commentMarkup(value));
        break;
    case NodeType::ProcessingInstruction:
        markup(instructionMarkup(name, value));
        break;
    case NodeType::EntityReference:
        markup("&" + std::string(name) + ";");
        break;
    default:
        break;
    }
}

} // namespace

void serializeAhead(const Arena &arena, Number above, Number node, Output &output) {
    Serializer(arena, output).writeAhead(above, node);
}

void serializeChildren(const Arena &arena, Number node, Output &output,
                       const std::function<bool(Number child, bool isWritten)> &child) {
    Serializer(arena, output).writeChildren(node, child);
}

QByteArray serializeNode(const Arena &arena, Number node) {
    MemoryOutput output;
    Serializer(arena, output).write(node);
    return output.take();
}

void readNode(const Arena &arena, Number node, const std::function<void(QByteArrayView)> &reader) {
    MemoryOutput output;
    Serializer(arena, output).write(node);
    reader(output.text());
}

void writeNode(const Arena &arena, Number node, Output &output) {
    Serializer(arena, output).write(node);
}

std::unique_ptr<FileOutput> outputFor(const Arena &arena) {
    const FileTarget target = targetOf(arena);
    return std::make_unique<FileOutput>(target.codec, arena.format.lineEnd, target.encodingName,
                                        target.mark, arena.format.unifiesLineEnds);
}

std::string serializeDocument(const Arena &arena) {
    const std::unique_ptr<FileOutput> file = outputFor(arena);
    FileOutput &output = *file;
    const Number document = arena.documentNumber();
    if (arena.record(document).has(record_flag::Source)) {
        // Most documents become little longer. What is not written to takes no memory.
        const std::size_t size = arena.source(document)->utf8.size();
        output.reserve(size + size / 8);
    }
    Serializer(arena, output).write(document);
    return output.take();
}

} // namespace quillon::xml
