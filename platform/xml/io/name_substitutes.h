#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace quillon::xml {

/// A text as expat can read it, which has names by the fourth edition of XML 1.0: what may stand in
/// names by the fifth edition alone is replaced, wherever it stands, by characters that the text
/// does not have. Both take as many bytes, so that everything keeps its place.
class NameSubstitutes {
public:
    /// Nothing where nothing is to be replaced, or more than there are characters for.
    static std::optional<NameSubstitutes> of(const std::string &text);

    const std::string &text() const { return text_; }
    /// A part of the text, or several put together, as it was.
    std::string original(std::string_view part) const;

private:
    NameSubstitutes() = default;
    /// A character for another that is as long, or two for one that has four bytes; empty when
    /// there are none left.
    std::string substituteFor(char32_t character);
    char32_t unused(char32_t first, char32_t last);

    std::string text_;
    std::set<char32_t> used_;
    std::map<std::string, std::string, std::less<>> originals_;
    /// The first of the two characters that stand for one.
    char32_t leading_ = 0;
    char32_t following_ = 0;
};

} // namespace quillon::xml
