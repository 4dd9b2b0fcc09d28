#include "platform/xml/storage/values.h"

#include "platform/runtime/error.h"
#include "platform/xml/storage/name_characters.h"
#include "resources/xml_texts.h"

namespace quillon::xml {

namespace texts = resources::xml_texts;
using runtime::Error;
namespace error_number = runtime::error_number;

namespace {

std::string replaceAll(std::string_view value, std::string_view what, std::string_view with) {
    std::string out;
    std::size_t i = 0;
    for (std::size_t at; (at = value.find(what, i)) != value.npos; i = at + what.size()) {
        out.append(value, i, at - i);
        out += with;
    }
    out.append(value, i);
    return out;
}

/// The number of UTF-16 units of the longest beginning of `name` that is a name.
qsizetype validNameLength(const QString &name) {
    qsizetype length = 0;
    while (length < name.size()) {
        const bool isPair = name[length].isHighSurrogate() && length + 1 < name.size() &&
                            name[length + 1].isLowSurrogate();
        const char32_t c = isPair ? QChar::surrogateToUcs4(name[length], name[length + 1])
                                  : name[length].unicode();
        if (length == 0 ? !isNameStart(c) : !isNameCharacter(c))
            break;
        length += isPair ? 2 : 1;
    }
    return length;
}

} // namespace

bool isLayout(std::string_view value) {
    return value.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

std::string escapeText(std::string_view value, bool preserveSpace) {
    std::string out;
    out.reserve(value.size() + 16);
    if (!value.empty() && !preserveSpace && isLayout(value)) {
        // As it stands it would be read back as layout.
        out += "&#" + std::to_string(static_cast<int>(value.front())) + ";";
        value.remove_prefix(1);
    }
    for (const char c : value) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        default:
            out += c;
        }
    }
    return out;
}

std::string escapeAttribute(std::string_view value, char quote,
                            const std::vector<TextPlace> &references) {
    std::string out;
    out.reserve(value.size() + 16);
    auto reference = references.begin();
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (reference != references.end() && reference->start == i) {
            out += value.substr(i, reference->length);
            i += reference->length - 1;
            ++reference;
            continue;
        }
        const char c = value[i];
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '\n':
            out += "&#10;";
            break;
        case '\t':
            out += "&#9;";
            break;
        default:
            if (c == quote)
                out += quote == '"' ? "&quot;" : "&apos;";
            else
                out += c;
        }
    }
    return out;
}

std::string commentMarkup(std::string_view value) {
    std::string out = "<!--";
    for (const char c : value) {
        if (c == '-' && out.back() == '-' && out.size() > 4)
            out += ' ';
        out += c;
    }
    if (out.size() > 4 && out.back() == '-')
        out += ' ';
    return out + "-->";
}

std::string cdataMarkup(std::string_view value) {
    return "<![CDATA[" + replaceAll(value, "]]>", "]]]]><![CDATA[>") + "]]>";
}

std::string instructionMarkup(std::string_view target, std::string_view value) {
    std::string out = "<?" + std::string(target);
    if (!value.empty())
        out += " " + replaceAll(value, "?>", "? >");
    return out + "?>";
}

AttributeSource splitAttribute(std::string_view source) {
    const std::size_t nameEnd = source.find_first_of("= \t\r\n");
    // Nothing but blanks and "=" stands ahead of the quote, which is the last character, too.
    return {nameEnd, source.find(source.back(), nameEnd) + 1, source.size() - 1};
}

std::string_view instructionData(std::string_view source, std::size_t targetLength) {
    std::string_view data = source.substr(2 + targetLength, source.size() - 4 - targetLength);
    data.remove_prefix(std::min(data.find_first_not_of(" \t\r\n"), data.size()));
    return data;
}

AttributeText readAttribute(const Arena &arena, Number node) {
    const Record &r = arena.record(node);
    if (!r.has(record_flag::Source))
        return {};
    const std::string_view source = arena.sourceSlice(node);
    const AttributeSource parts = splitAttribute(source);
    return decodeAttribute(source.substr(parts.valueStart, parts.valueEnd - parts.valueStart),
                           *arena.entities);
}

TextPlace valueSource(const Arena &arena, Number node) {
    const Record &r = arena.record(node);
    const std::string_view source = arena.sourceSlice(node);
    switch (r.kind) {
    case NodeType::Attribute: {
        const AttributeSource parts = splitAttribute(source);
        return {r.start + parts.valueStart, parts.valueEnd - parts.valueStart};
    }
    case NodeType::Text:
        return {r.start, source.size()};
    case NodeType::CDATASection: {
        const std::string_view data = cdataCharacters(source);
        return {r.start + std::size_t(data.data() - source.data()), data.size()};
    }
    case NodeType::Comment:
        return {r.start + 4, source.size() - 7};
    case NodeType::ProcessingInstruction: {
        const std::string_view data = instructionData(source, arena.names->utf8(r.name).size());
        return {r.start + std::size_t(data.data() - source.data()), data.size()};
    }
    default:
        return {r.start, 0};
    }
}

std::string_view valueView(const Arena &arena, Number node, std::string &buffer) {
    const Record &r = arena.record(node);
    if (r.has(record_flag::OwnValue))
        return arena.ownText(node, OwnTextKind::Value);
    if (!r.has(record_flag::Source))
        return {};
    const SourceText &text = *arena.source(node);
    const TextPlace place = valueSource(arena, node);
    const std::string_view source = std::string_view(text.utf8).substr(place.start, place.length);
    const bool hasReferences = r.kind == NodeType::Attribute || r.kind == NodeType::Text;
    if (hasReferences && source.find('&') != source.npos)
        buffer = r.kind == NodeType::Text ? decodeCharacters(source, *arena.entities)
                                          : decodeAttribute(source, *arena.entities).value;
    else if (text.hasCarriageReturn && source.find('\r') != source.npos)
        buffer = normalizeLineEnds(source);
    else
        return source;
    return buffer;
}

std::string valueOf(const Arena &arena, Number node) {
    std::string buffer;
    const std::string_view value = valueView(arena, node, buffer);
    return value.data() == buffer.data() ? std::move(buffer) : std::string(value);
}

bool holdsAsItIs(NodeType kind, std::string_view value) {
    switch (kind) {
    case NodeType::CDATASection:
        return value.find("]]>") == value.npos;
    case NodeType::Comment:
        return value.find("--") == value.npos && !value.ends_with('-');
    case NodeType::ProcessingInstruction:
        return value.find("?>") == value.npos;
    default:
        return true;
    }
}

std::string checkedValue(const QString &value) {
    for (qsizetype i = 0; i < value.size(); ++i) {
        const char16_t c = value[i].unicode();
        if (c >= 0x20 && c < 0xD800)
            continue;
        const bool pair =
            value[i].isHighSurrogate() && i + 1 < value.size() && value[i + 1].isLowSurrogate();
        if (pair) {
            ++i;
            continue;
        }
        if (c == '\t' || c == '\n' || c == '\r' || (c > 0xDFFF && c < 0xFFFE))
            continue;
        throw Error(error_number::Fail,
                    texts::ForbiddenCharacter.toString().arg(
                        QStringLiteral("U+%1").arg(uint(c), 4, 16, QLatin1Char('0')).toUpper()));
    }
    const QByteArray utf8 = value.toUtf8();
    return normalizeLineEnds({utf8.constData(), std::size_t(utf8.size())});
}

std::string checkedName(const QString &name) {
    if (name.isEmpty())
        throw Error(error_number::Fail, texts::EmptyName.toString());
    const qsizetype valid = validNameLength(name);
    if (valid < name.size()) {
        const QString bad = name.mid(valid, name[valid].isHighSurrogate() ? 2 : 1);
        throw Error(
            error_number::Fail,
            (valid == 0 ? texts::BadNameStart.toString() : texts::BadNameCharacter.toString())
                .arg(bad, name.left(valid) + QStringLiteral("-->") + bad + QStringLiteral("<--")));
    }
    const qsizetype colon = name.indexOf(QLatin1Char(':'));
    if (colon >= 0 &&
        (colon == 0 || colon == name.size() - 1 || name.indexOf(QLatin1Char(':'), colon + 1) >= 0 ||
         validNameLength(name.mid(colon + 1)) == 0))
        throw Error(error_number::Fail, texts::ColonInName.toString().arg(name));
    return name.toStdString();
}

} // namespace quillon::xml
