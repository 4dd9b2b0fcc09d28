#include "platform/xml/io/name_substitutes.h"

#include "platform/xml/io/character_scan.h"
#include "platform/xml/storage/name_characters.h"

#include <QString>

#include <expat.h>
#include <initializer_list>
#include <memory>

namespace quillon::xml {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// What expat knows to be letters, of two bytes and of three, and to go on a name without starting
// one.
constexpr Range ShortLetters = {0x180, 0x1C3};
constexpr Range FollowingLetters = {0x100, 0x131};
constexpr Range Letters = {0x4E00, 0x9FA5};
constexpr Range ShortMarks = {0x300, 0x345};
constexpr Range Marks = {0x20D0, 0x20DC};

bool isIn(Range range, char32_t c) {
    return c >= range.first && c <= range.last;
}

/// For letters only: what marks the order of bytes would be lost.
std::string utf8(char32_t c) {
    return QString::fromUcs4(&c, 1).toStdString();
}

bool expatAccepts(const std::string &name) {
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate("UTF-8"), &XML_ParserFree);
    const std::string text = "<" + name + "/>";
    return XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE) ==
           XML_STATUS_OK;
}

bool isOfNewerNames(char32_t c, const std::string &bytes) {
    if (isIn(Letters, c) || !isNameCharacter(c))
        return false;
    return !expatAccepts(isNameStart(c) ? bytes : "a" + bytes);
}

/// Gives a function each character outside ASCII, with its place. Bytes that are none are passed
/// over.
template <typename Function>
void forEachWide(std::string_view text, const Function &function) {
    // As the text of a parser, it is followed by a byte 0.
    for (std::size_t at = 0; at < text.size();) {
        const scan::Wide c = scan::wideAt(text.data() + at);
        if (c.length != 0)
            function(c, at);
        at += c.length == 0 ? 1 : std::size_t(c.length);
    }
}

} // namespace

char32_t NameSubstitutes::unused(char32_t first, char32_t last) {
    for (char32_t c = first; c <= last; ++c) {
        if (used_.insert(c).second)
            return c;
    }
    return 0;
}

std::string NameSubstitutes::substituteFor(char32_t character) {
    const auto one = [this](Range range) {
        const char32_t c = unused(range.first, range.last);
        return c == 0 ? std::string() : utf8(c);
    };
    if (!isNameStart(character))
        return one(character < 0x800 ? ShortMarks : Marks);
    if (character < 0x800)
        return one(ShortLetters);
    if (character < 0x10000)
        return one(Letters);
    if (leading_ == 0 || following_ > FollowingLetters.last) {
        leading_ = unused(ShortLetters.first, ShortLetters.last);
        following_ = FollowingLetters.first;
    }
    return leading_ == 0 ? std::string() : utf8(leading_) + utf8(following_++);
}

std::optional<NameSubstitutes> NameSubstitutes::of(const std::string &text) {
    NameSubstitutes result;
    std::map<char32_t, std::string> present;
    forEachWide(text, [&](scan::Wide c, std::size_t at) {
        if (result.used_.insert(c.character).second)
            present.emplace(c.character, text.substr(at, std::size_t(c.length)));
    });
    std::map<char32_t, std::string> substitutes;
    for (const auto &[character, bytes] : present) {
        if (!isOfNewerNames(character, bytes))
            continue;
        const std::string substitute = result.substituteFor(character);
        if (substitute.empty())
            return std::nullopt;
        substitutes.emplace(character, substitute);
        result.originals_.emplace(substitute, bytes);
    }
    if (substitutes.empty())
        return std::nullopt;
    result.text_ = text;
    forEachWide(text, [&](scan::Wide c, std::size_t at) {
        const auto found = substitutes.find(c.character);
        if (found != substitutes.end())
            result.text_.replace(at, found->second.size(), found->second);
    });
    return result;
}

std::string NameSubstitutes::original(std::string_view part) const {
    std::string out;
    for (std::size_t at = 0; at < part.size();) {
        // What stands for one of four bytes starts with a character that stands for nothing else.
        const auto found = [&] {
            if (static_cast<unsigned char>(part[at]) < 0xC0)
                return originals_.end();
            for (const std::size_t length : {4, 3, 2}) {
                const auto it = originals_.find(part.substr(at, length));
                if (it != originals_.end())
                    return it;
            }
            return originals_.end();
        }();
        if (found == originals_.end()) {
            out += part[at++];
        } else {
            out += found->second;
            at += found->second.size();
        }
    }
    return out;
}

} // namespace quillon::xml
