#include "platform/xml/io/scanner.h"

#include "platform/xml/io/character_scan.h"
#include "platform/xml/io/name_cache.h"
#include "platform/xml/storage/decoding.h"

#include <utility>

namespace quillon::xml {

namespace {

using scan::skipBlanks;
using scan::skipCharacters;
using scan::skipName;
using scan::skipReference;

/// A few milliseconds' work.
constexpr unsigned ElementsPerReport = 16'384;

/// So much that entities stand for in attributes is taken to mean no harm.
constexpr std::size_t MostEntityCharacters = 1 << 20;

constexpr std::string_view SpaceAttribute = "xml:space";
constexpr std::string_view Preserve = "preserve";

/// Its functions take the place at which something starts and return the one at which it ends; null
/// where it is not understood.
class Scanner {
public:
    Scanner(Arena &arena, NodeAppender &nodes, const std::string &text,
            const InternalSubset &subset, const runtime::Progress &progress)
        : nodes_(nodes), subset_(subset), progress_(progress), start_(text.data()),
          end_(start_ + text.size()), nameTable_(*arena.names), names_(nameTable_, end_),
          alwaysPreserves_(arena.properties.preserveWhiteSpace), preserves_(alwaysPreserves_) {}

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
    /// Ends at a reference to an entity, too.
    Place text(Place at);
    /// The name in the reference to an entity that is at a place; empty where there is none.
    std::string_view entityAt(Place at) const;
    Place entityReference(Place at);
    Place entityInValue(Place at);
    Place markup(Place at);
    Place startTag(Place at);
    Place endOfStartTag(Place end);
    Place attribute(Place at, Place layout);
    Place attributeValue(Place at);
    void addDefaultedAttributes();
    bool isFirstOfItsName(std::uint32_t name);
    Place endTag(Place at);
    Place comment(Place at);
    Place section(Place at);
    Place instruction(Place at);

    NodeAppender &nodes_;
    const InternalSubset &subset_;
    const runtime::Progress &progress_;
    Place start_;
    Place end_;
    /// Where the layout of the next markup starts.
    Place layout_ = nullptr;
    NameTable &nameTable_;
    NameCache names_;
    std::vector<Open> open_;
    /// By the numbers of names: the last element that had an attribute of that name.
    std::vector<std::uint32_t> attributeOwners_;
    std::uint32_t elements_ = 0;
    std::size_t entityCharacters_ = 0;
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
        if (at)
            at = *at == '&' ? entityReference(at) : *at == '<' ? markup(at) : nullptr;
    }
    return isStopped_ ? ScanResult::Stopped : ScanResult::NotUnderstood;
}

Scanner::Place Scanner::characters(Place at) {
    layout_ = at;
    const Place content = skipBlanks(at);
    at = *content == '<' || content == end_ ? content : text(content);
    const bool isBlank = at == content;
    if (open_.empty())
        return isBlank ? at : nullptr;
    if (at && at != layout_ && (!isBlank || preserves_)) {
        append(NodeType::Text, 0, layout_, at);
        layout_ = at;
    }
    return at;
}

Scanner::Place Scanner::text(Place at) {
    for (;;) {
        at = skipCharacters<'<', '&', ']'>(at, end_);
        if (!at || *at == '<')
            return at;
        if (*at == '&') {
            const Place end = skipReference(at);
            if (!end)
                return at;
            at = end;
        } else if (*at == ']' && !(at[1] == ']' && at[2] == '>')) {
            ++at;
        } else {
            return nullptr;
        }
    }
}

std::string_view Scanner::entityAt(Place at) const {
    const Place end = skipName(at + 1);
    return *end == ';' ? std::string_view(at + 1, std::size_t(end - at) - 1) : std::string_view();
}

Scanner::Place Scanner::entityReference(Place at) {
    const std::string_view name = entityAt(at);
    const bool isKnown = subset_.entities->contains(name) ||
                         subset_.externalEntities.contains(name) ||
                         (subset_.hasExternalPart && !subset_.unparsedEntities.contains(name));
    if (name.empty() || open_.empty() || !isKnown)
        return nullptr;
    const Place end = at + name.size() + 2;
    append(NodeType::EntityReference,
           names_.number(name.data(), static_cast<std::uint32_t>(name.size())), at, end);
    return end;
}

Scanner::Place Scanner::entityInValue(Place at) {
    const std::string_view name = entityAt(at);
    if (name.empty() || subset_.externalEntities.contains(name) ||
        subset_.unparsedEntities.contains(name))
        return nullptr;
    if (const auto entity = subset_.entities->find(name); entity != subset_.entities->end()) {
        entityCharacters_ += entity->second.size();
        if (entity->second.find_first_of("&<") != std::string::npos ||
            entityCharacters_ > MostEntityCharacters)
            return nullptr;
    } else if (!subset_.hasExternalPart) {
        return nullptr;
    }
    return at + name.size() + 2;
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
    if (!subset_.defaults.empty())
        addDefaultedAttributes();
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
    if (std::string_view(start, length) == SpaceAttribute) {
        const std::string_view raw(value + 1, std::size_t(at - value) - 2);
        preserves_ = alwaysPreserves_ || decodeAttribute(raw, {}).value == Preserve;
    }
    return at;
}

void Scanner::addDefaultedAttributes() {
    const Open &open = open_.back();
    const auto found = subset_.defaults.find(std::string_view(open.name, open.nameLength));
    if (found == subset_.defaults.end())
        return;
    for (const auto &[attribute, value] : found->second) {
        const std::uint32_t name = nameTable_.intern(attribute);
        if (!isFirstOfItsName(name))
            continue;
        nodes_.appendDefaultedAttribute(name, value);
        if (attribute == SpaceAttribute)
            preserves_ = alwaysPreserves_ || value->utf8 == Preserve;
    }
}

Scanner::Place Scanner::attributeValue(Place at) {
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
        const Place end = skipReference(at);
        at = end ? end : entityInValue(at);
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
                        std::uint32_t start, const InternalSubset &subset,
                        const runtime::Progress &progress) {
    return Scanner(arena, nodes, text, subset, progress).run(start);
}

} // namespace quillon::xml
