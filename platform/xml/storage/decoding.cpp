#include "platform/xml/storage/decoding.h"

#include <algorithm>
#include <charconv>

namespace quillon::xml {

namespace {

/// Bounds of what entity references in one value may grow into. The parser has its own bounds for
/// what it expands itself; these hold for what is expanded when asked for.
constexpr std::size_t MaxExpansion = 10'000'000;
constexpr int MaxEntityDepth = 64;

constexpr std::string_view CDataStart = "<![CDATA[";
constexpr std::string_view CDataEnd = "]]>";

void appendUtf8(std::string &out, std::uint32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x110000) {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

bool appendPredefined(std::string &out, std::string_view name) {
    if (name == "lt")
        out += '<';
    else if (name == "gt")
        out += '>';
    else if (name == "amp")
        out += '&';
    else if (name == "quot")
        out += '"';
    else if (name == "apos")
        out += '\'';
    else
        return false;
    return true;
}

void appendCharacterReference(std::string &out, std::string_view digits) {
    const bool hex = !digits.empty() && digits.front() == 'x';
    if (hex)
        digits.remove_prefix(1);
    std::uint32_t c = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), c, hex ? 16 : 10);
    appendUtf8(out, c);
}

/// Where the markup ends that starts at `at`, in text that has been checked or has an end anyhow.
std::size_t markupEnd(std::string_view raw, std::size_t at) {
    const auto behind = [&](std::string_view end, std::size_t from) {
        const std::size_t found = raw.find(end, from);
        return found == raw.npos ? raw.size() : found + end.size();
    };
    const std::string_view rest = raw.substr(at);
    if (rest.starts_with("<!--"))
        return behind("-->", at + 4);
    if (rest.starts_with(CDataStart))
        return behind(CDataEnd, at + CDataStart.size());
    if (rest.starts_with("<?"))
        return behind("?>", at + 2);
    for (std::size_t i = at; i < raw.size(); ++i) {
        if (raw[i] == '>')
            return i + 1;
        if (raw[i] == '"' || raw[i] == '\'')
            i = std::min(raw.find(raw[i], i + 1), raw.size());
    }
    return raw.size();
}

/// Turns markup into the characters it stands for.
class Decoder {
public:
    /// What the markup is: it decides what a "<", a "&" and an unknown reference mean.
    enum class Form { Text, Attribute, Content, Plain };

    Decoder(const EntityTable &entities, Form form) : entities_(entities), form_(form) {}

    void decode(std::string_view raw, int depth = 0);
    AttributeText take() { return std::move(decoded_); }

    /// Where to note how value and source hang together, if anybody wants to know.
    std::vector<DecodedRun> *runs = nullptr;

private:
    void addReference(std::string_view name, int depth);
    /// Notes what the source from `start` to `end` has added to the value since that was
    /// `valueStart` long. What entities hold is no part of the source.
    void note(int depth, std::size_t valueStart, std::size_t start, std::size_t end,
              bool isLiteral) {
        if (runs && depth == 0 && start != end)
            runs->push_back({{valueStart, decoded_.value.size() - valueStart},
                             {start, end - start},
                             isLiteral});
    }

    const EntityTable &entities_;
    Form form_;
    AttributeText decoded_;
};

void Decoder::decode(std::string_view raw, int depth) {
    std::string &out = decoded_.value;
    const char *const specials = form_ == Form::Content ? "&\r<"
                                 : form_ == Form::Plain ? "\r"
                                                        : "&\r";
    for (std::size_t i = 0; i < raw.size();) {
        const std::size_t special = std::min(raw.find_first_of(specials, i), raw.size());
        const std::size_t before = out.size();
        out.append(raw, i, special - i);
        note(depth, before, i, special, true);
        if (special == raw.size())
            return;
        i = special + 1;
        const std::size_t valueStart = out.size();
        if (raw[special] == '\r') {
            out += '\n';
            if (i < raw.size() && raw[i] == '\n')
                ++i;
            note(depth, valueStart, special, i, false);
            continue;
        }
        if (raw[special] == '<') {
            i = markupEnd(raw, special);
            const std::string_view markup = raw.substr(special, i - special);
            if (markup.starts_with(CDataStart) && markup.ends_with(CDataEnd))
                out += normalizeLineEnds(cdataCharacters(markup));
            continue;
        }
        const std::size_t end = raw.find(';', i);
        if (end == raw.npos) {
            out += '&';
            note(depth, valueStart, special, i, false);
            continue;
        }
        addReference(raw.substr(i, end - i), depth);
        i = end + 1;
        note(depth, valueStart, special, i, false);
    }
}

void Decoder::addReference(std::string_view name, int depth) {
    std::string &out = decoded_.value;
    if (!name.empty() && name.front() == '#')
        return appendCharacterReference(out, name.substr(1));
    if (appendPredefined(out, name))
        return;
    const auto entity = entities_.find(name);
    if (entity != entities_.end()) {
        if (depth < MaxEntityDepth && out.size() < MaxExpansion)
            decode(entity->second, depth + 1);
    } else if (form_ == Form::Attribute) {
        decoded_.references.push_back({out.size(), name.size() + 2});
        out.append("&").append(name).append(";");
    }
}

} // namespace

std::string normalizeLineEnds(std::string_view value) {
    std::string out;
    out.reserve(value.size());
    for (std::size_t i = 0; i < value.size();) {
        const std::size_t cr = value.find('\r', i);
        out.append(value, i, cr == value.npos ? cr : cr - i);
        if (cr == value.npos)
            break;
        out += '\n';
        i = cr + 1 < value.size() && value[cr + 1] == '\n' ? cr + 2 : cr + 1;
    }
    return out;
}

std::string_view cdataCharacters(std::string_view markup) {
    return markup.substr(CDataStart.size(), markup.size() - CDataStart.size() - CDataEnd.size());
}

std::string decodeCharacters(std::string_view raw, const EntityTable &entities) {
    Decoder decoder(entities, Decoder::Form::Text);
    decoder.decode(raw);
    return decoder.take().value;
}

AttributeText decodeAttribute(std::string_view raw, const EntityTable &entities) {
    Decoder decoder(entities, Decoder::Form::Attribute);
    decoder.decode(raw);
    return decoder.take();
}

std::vector<DecodedRun> decodedRuns(std::string_view raw, SourceForm form,
                                    const EntityTable &entities) {
    std::vector<DecodedRun> runs;
    Decoder decoder(entities, form == SourceForm::Attribute ? Decoder::Form::Attribute
                              : form == SourceForm::Plain   ? Decoder::Form::Plain
                                                            : Decoder::Form::Text);
    decoder.runs = &runs;
    decoder.decode(raw);
    return runs;
}

std::string_view referredEntityIn(std::string_view raw) {
    for (std::size_t at = 0; (at = raw.find('&', at)) != raw.npos;) {
        const std::size_t end = raw.find(';', ++at);
        if (end == raw.npos)
            break;
        const std::string_view name = raw.substr(at, end - at);
        std::string ignored;
        if (!name.empty() && name.front() != '#' && !appendPredefined(ignored, name))
            return name;
    }
    return {};
}

std::string entityText(std::string_view name, const EntityTable &entities) {
    const auto entity = entities.find(name);
    if (entity == entities.end())
        return {};
    Decoder decoder(entities, Decoder::Form::Content);
    decoder.decode(entity->second, 1);
    return decoder.take().value;
}

std::vector<TextPlace> keptReferences(std::string_view value, const AttributeText &read) {
    const std::string_view old = read.value;
    const std::size_t shorter = std::min(value.size(), old.size());
    const auto prefix = static_cast<std::size_t>(
        std::mismatch(value.begin(), value.begin() + shorter, old.begin()).first - value.begin());
    const auto suffix = static_cast<std::size_t>(
        std::mismatch(value.rbegin(), value.rbegin() + (shorter - prefix), old.rbegin()).first -
        value.rbegin());
    const auto text = [&](const TextPlace &place) { return old.substr(place.start, place.length); };
    std::vector<TextPlace> kept;
    for (std::size_t at = 0; (at = value.find('&', at)) != value.npos; ++at) {
        const std::size_t end = std::min(value.find(';', at), value.size() - 1) + 1;
        const std::string_view reference = value.substr(at, end - at);
        if (std::ranges::find(read.references, reference, text) == read.references.end())
            continue;
        // What stands as it was read stays what it was: these may also be the mere characters.
        const bool unchanged = end <= prefix || at >= value.size() - suffix;
        const std::size_t before = end <= prefix ? at : at + old.size() - value.size();
        if (!unchanged ||
            std::ranges::find(read.references, before, &TextPlace::start) != read.references.end())
            kept.push_back({at, reference.size()});
    }
    return kept;
}

} // namespace quillon::xml
