#include "platform/xml/storage/source_extent.h"

#include <algorithm>
#include <array>

namespace quillon::xml {

namespace {

/// Behind the next occurrence of `mark`.
std::size_t behind(std::string_view text, std::string_view mark, std::size_t from) {
    const std::size_t found = text.find(mark, from);
    return found == text.npos ? text.size() : found + mark.size();
}

std::size_t endOfAttribute(std::string_view text, std::size_t start) {
    const std::size_t quote = text.find_first_of("\"'", text.find('=', start));
    return quote == text.npos ? text.size() : behind(text, text.substr(quote, 1), quote + 1);
}

/// Whether the reference at the start is one to a character, which is part of a text.
bool isCharacterReference(std::string_view text) {
    constexpr std::array<std::string_view, 6> starts{"&#",    "&lt;",   "&gt;",
                                                     "&amp;", "&quot;", "&apos;"};
    return std::ranges::any_of(starts, [&](auto start) { return text.starts_with(start); });
}

std::size_t endOfText(std::string_view text, std::size_t start) {
    // In pieces that grow: most texts are short, and many may stand ahead of the next tag.
    std::size_t piece = 64;
    for (std::size_t at = start; at < text.size(); piece *= 2) {
        std::string_view rest = text.substr(at, piece);
        const std::size_t tag = rest.find('<');
        rest = rest.substr(0, tag);
        for (std::size_t reference; (reference = rest.find('&')) != rest.npos;) {
            at += reference;
            if (!isCharacterReference(text.substr(at)))
                return at;
            rest.remove_prefix(reference + 1);
            ++at;
        }
        at += rest.size();
        if (tag != rest.npos)
            return at;
    }
    return text.size();
}

} // namespace

std::uint32_t blanksAhead(std::string_view text, std::uint32_t end) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; };
    while (end > 0 && isBlank(text[end - 1]))
        --end;
    return end;
}

std::uint32_t endOfNode(NodeType kind, std::string_view text, std::uint32_t start) {
    const auto end = [&] {
        switch (kind) {
        case NodeType::Attribute:
            return endOfAttribute(text, start);
        case NodeType::Text:
            return endOfText(text, start);
        case NodeType::CDATASection:
            return behind(text, "]]>", start);
        case NodeType::EntityReference:
            return behind(text, ";", start);
        case NodeType::ProcessingInstruction:
            return behind(text, "?>", start);
        case NodeType::Comment:
            return behind(text, "-->", start + 4);
        default:
            return std::size_t(start);
        }
    };
    return static_cast<std::uint32_t>(end());
}

} // namespace quillon::xml
