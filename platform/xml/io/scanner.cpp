#include "platform/xml/io/scanner.h"

#include "platform/xml/io/character_scan.h"
#include "platform/xml/storage/decoding.h"

#include <array>
#include <utility>

namespace quillon::xml {

namespace {

using scan::eightBytes;
using scan::skipBlanks;
using scan::skipCharacters;
using scan::skipName;
using scan::skipReference;

/// A few milliseconds' work.
constexpr unsigned ElementsPerReport = 16'384;

/// The numbers of names that were looked up lately. The names stand in the text, which stays.
class NameCache {
public:
    NameCache(NameTable &names, const char *textEnd) : names_(names), textEnd_(textEnd) {}

    std::uint32_t number(const char *name, std::uint32_t length) {
        Entry wanted{beginning(name, length), 0, name, length, 0};
        if (length > 8)
            wanted.last = eightBytes(name + length - 8);
        const std::uint64_t hash =
            (wanted.first ^ (wanted.last << 7 | wanted.last >> 57)) * 0x9E37'79B9'7F4A'7C15;
        Entry &entry = entries_[hash >> (64 - IndexBits)];
        if (entry.first != wanted.first || entry.last != wanted.last || entry.length != length ||
            (length > 16 && std::memcmp(entry.name, name, length) != 0)) {
            wanted.number = names_.intern({name, length});
            entry = wanted;
        }
        return entry.number;
    }

private:
    struct Entry {
        /// The first and the last eight bytes; zeros behind a name that has fewer.
        std::uint64_t first = 0;
        std::uint64_t last = 0;
        const char *name = nullptr;
        std::uint32_t length = 0;
        std::uint32_t number = 0;
    };
    static constexpr int IndexBits = 8;

    std::uint64_t beginning(const char *name, std::uint32_t length) const {
        if (textEnd_ - name >= 8) {
            const std::uint64_t bytes = eightBytes(name);
            return length >= 8 ? bytes : bytes & ((std::uint64_t(1) << (8 * length)) - 1);
        }
        char bytes[8] = {};
        std::memcpy(bytes, name, length);
        return eightBytes(bytes);
    }

    NameTable &names_;
    const char *textEnd_;
    std::array<Entry, 1 << IndexBits> entries_;
};

/// Its functions take the place at which something starts and return the one at which it ends; null
/// where it is not understood.
class Scanner {
public:
    Scanner(Arena &arena, NodeAppender &nodes, const std::string &text,
            const runtime::Progress &progress)
        : nodes_(nodes), progress_(progress), start_(text.data()), end_(start_ + text.size()),
          names_(*arena.names, end_), alwaysPreserves_(arena.properties.preserveWhiteSpace),
          preserves_(alwaysPreserves_) {}

    ScanResult run(std::uint32_t from);

private:
    using Place = const char *;

    /// An element that is open.
    struct Open {
        Place name;
        std::uint32_t nameLength;
        /// What counts outside of it.
        bool preserves;
    };

    std::uint32_t position(Place at) const { return static_cast<std::uint32_t>(at - start_); }
    void append(NodeType kind, std::uint32_t name, Place start, Place end) {
        nodes_.append(kind, name, {position(layout_), position(start), position(end)});
    }

    /// What stands ahead of the next markup or the end.
    Place characters(Place at);
    Place text(Place at);
    Place markup(Place at);
    Place startTag(Place at);
    Place endOfStartTag(Place end);
    Place attribute(Place at, Place layout);
    Place attributeValue(Place at) const;
    bool isFirstOfItsName(std::uint32_t name);
    Place endTag(Place at);
    Place comment(Place at);
    Place section(Place at);
    Place instruction(Place at);

    NodeAppender &nodes_;
    const runtime::Progress &progress_;
    Place start_;
    Place end_;
    /// Where the layout of the next markup starts.
    Place layout_ = nullptr;
    NameCache names_;
    std::vector<Open> open_;
    /// By the numbers of names: the last element that had an attribute of that name.
    std::vector<std::uint32_t> attributeOwners_;
    std::uint32_t elements_ = 0;
    bool alwaysPreserves_;
    /// Whether white space between markup is content.
    bool preserves_;
    bool isStopped_ = false;
};

ScanResult Scanner::run(std::uint32_t from) {
    for (Place at = start_ + from; at;) {
        at = characters(at);
        if (at == end_ && open_.empty() && elements_ != 0) {
            nodes_.finish(position(layout_));
            return ScanResult::Read;
        }
        at = at && *at == '<' ? markup(at) : nullptr;
    }
    return isStopped_ ? ScanResult::Stopped : ScanResult::NotUnderstood;
}

Scanner::Place Scanner::characters(Place at) {
    layout_ = at;
    at = skipBlanks(at);
    const bool isText = *at != '<' && at != end_;
    if (isText)
        at = text(at);
    if (open_.empty())
        return isText ? nullptr : at;
    if (at && at != layout_ && (isText || preserves_)) {
        const Place start = layout_;
        append(NodeType::Text, 0, start, at);
        layout_ = at;
    }
    return at;
}

Scanner::Place Scanner::text(Place at) {
    for (;;) {
        at = skipCharacters<'<', '&', ']'>(at, end_);
        if (!at || *at == '<')
            return at;
        if (*at == '&')
            at = skipReference(at);
        else if (*at == ']' && !(at[1] == ']' && at[2] == '>'))
            ++at;
        else
            return nullptr;
        if (!at)
            return nullptr;
    }
}

Scanner::Place Scanner::markup(Place at) {
    switch (at[1]) {
    case '/':
        return endTag(at);
    case '?':
        return instruction(at);
    case '!':
        return at[2] == '-' ? comment(at) : section(at);
    default:
        return startTag(at);
    }
}

Scanner::Place Scanner::startTag(Place at) {
    // There is one root.
    if (open_.empty() && elements_ != 0)
        return nullptr;
    const Place start = at;
    at = skipName(start + 1);
    const std::uint32_t length = position(at) - position(start + 1);
    if (length == 0)
        return nullptr;
    nodes_.openElement(names_.number(start + 1, length), position(layout_), position(start));
    open_.push_back({start + 1, length, preserves_});
    ++elements_;
    for (;;) {
        const Place layout = at;
        at = skipBlanks(at);
        if (*at == '>')
            return endOfStartTag(at + 1);
        if (*at == '/') {
            if (at[1] != '>' || !endOfStartTag(at + 2))
                return nullptr;
            nodes_.closeElement();
            preserves_ = open_.back().preserves;
            open_.pop_back();
            return at + 2;
        }
        if (at == layout)
            return nullptr;
        at = attribute(at, layout);
        if (!at)
            return nullptr;
    }
}

Scanner::Place Scanner::endOfStartTag(Place end) {
    nodes_.endStartTag(position(end), preserves_);
    if (elements_ % ElementsPerReport == 0 && progress_)
        isStopped_ = !progress_(double(end - start_) / double(end_ - start_));
    return isStopped_ ? nullptr : end;
}

Scanner::Place Scanner::attribute(Place at, Place layout) {
    const Place start = at;
    at = skipName(start);
    const std::uint32_t length = position(at) - position(start);
    if (length == 0)
        return nullptr;
    const std::uint32_t name = names_.number(start, length);
    at = skipBlanks(at);
    if (*at != '=' || !isFirstOfItsName(name))
        return nullptr;
    const Place value = skipBlanks(at + 1);
    at = attributeValue(value);
    if (!at)
        return nullptr;
    nodes_.appendAttribute(name, {position(layout), position(start), position(at)});
    if (std::string_view(start, length) == "xml:space") {
        const std::string_view raw(value + 1, std::size_t(at - value) - 2);
        preserves_ = alwaysPreserves_ || decodeAttribute(raw, {}).value == "preserve";
    }
    return at;
}

Scanner::Place Scanner::attributeValue(Place at) const {
    const char quote = *at;
    if (quote != '"' && quote != '\'')
        return nullptr;
    for (++at;;) {
        at = quote == '"' ? skipCharacters<'"', '<', '&'>(at, end_)
                          : skipCharacters<'\'', '<', '&'>(at, end_);
        if (!at)
            return nullptr;
        if (*at == quote)
            return at + 1;
        if (*at != '&')
            return nullptr;
        at = skipReference(at);
        if (!at)
            return nullptr;
    }
}

bool Scanner::isFirstOfItsName(std::uint32_t name) {
    if (name >= attributeOwners_.size())
        attributeOwners_.resize(2 * std::size_t(name) + 1);
    return std::exchange(attributeOwners_[name], elements_) != elements_;
}

Scanner::Place Scanner::endTag(Place at) {
    if (open_.empty())
        return nullptr;
    const Open &open = open_.back();
    const Place start = at;
    at += 2;
    if (end_ - at < std::ptrdiff_t(open.nameLength) ||
        std::memcmp(at, open.name, open.nameLength) != 0)
        return nullptr;
    at = skipBlanks(at + open.nameLength);
    if (*at != '>')
        return nullptr;
    ++at;
    nodes_.closeElement({position(layout_), position(start), position(at)});
    preserves_ = open.preserves;
    open_.pop_back();
    return at;
}

Scanner::Place Scanner::comment(Place at) {
    const Place start = at;
    if (at[3] != '-')
        return nullptr;
    for (at += 4; (at = skipCharacters<'-'>(at, end_)) != nullptr; ++at) {
        if (*at != '-')
            return nullptr;
        if (at[1] != '-')
            continue;
        if (at[2] != '>')
            return nullptr;
        append(NodeType::Comment, 0, start, at + 3);
        return at + 3;
    }
    return nullptr;
}

Scanner::Place Scanner::section(Place at) {
    constexpr std::string_view Start = "<![CDATA[";
    const Place start = at;
    if (open_.empty() || std::strncmp(at, Start.data(), Start.size()) != 0)
        return nullptr;
    for (at += Start.size(); (at = skipCharacters<']'>(at, end_)) != nullptr; ++at) {
        if (*at != ']')
            return nullptr;
        if (at[1] != ']' || at[2] != '>')
            continue;
        append(NodeType::CDATASection, 0, start, at + 3);
        return at + 3;
    }
    return nullptr;
}

Scanner::Place Scanner::instruction(Place at) {
    const Place start = at;
    const Place target = at + 2;
    at = skipName(target);
    const std::uint32_t length = position(at) - position(target);
    const bool isReserved = length == 3 && (target[0] | 0x20) == 'x' && (target[1] | 0x20) == 'm' &&
                            (target[2] | 0x20) == 'l';
    if (length == 0 || isReserved || (*at != '?' && !scan::isBlank(*at)))
        return nullptr;
    const bool hasData = *at != '?';
    for (; (at = skipCharacters<'?'>(at, end_)) != nullptr; ++at) {
        if (*at != '?')
            return nullptr;
        if (at[1] == '>') {
            append(NodeType::ProcessingInstruction, names_.number(target, length), start, at + 2);
            return at + 2;
        }
        if (!hasData)
            return nullptr;
    }
    return nullptr;
}

} // namespace

ScanResult scanElements(Arena &arena, NodeAppender &nodes, const std::string &text,
                        std::uint32_t start, const runtime::Progress &progress) {
    return Scanner(arena, nodes, text, progress).run(start);
}

} // namespace quillon::xml
