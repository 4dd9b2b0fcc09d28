#pragma once

#include "platform/xml/arena.h"

#include <QString>

#include <string>
#include <string_view>

/// How values stand in markup, both ways. All text is UTF-8.
namespace quillon::xml {

/// The characters that a stretch of character data or an attribute value stands for: character
/// references and the five predefined entities resolved, CR LF and CR turned into LF, other
/// entities replaced by their texts (within fixed bounds; unknown ones stand for nothing).
std::string decodeCharacters(std::string_view raw, const EntityTable &entities);

/// The name of the first entity that a stretch of character data or an attribute's source refers
/// to, other than the five predefined; empty when there is none.
std::string_view referredEntityIn(std::string_view raw);

/// What a general entity stands for, without the tags in it.
std::string entityText(std::string_view name, const EntityTable &entities);

/// CR LF and CR turned into LF.
std::string normalizeLineEnds(std::string_view text);

/// Nothing but blanks, tabs and line breaks.
bool isLayout(std::string_view text);

// The markup of a value. A value that the format cannot hold is changed as little as makes it
// hold: "--" in a comment becomes "- -", "?>" in an instruction "? >", and "]]>" splits a CDATA
// section.
std::string escapeText(std::string_view value, bool preserveSpace);
std::string escapeAttribute(std::string_view value, char quote);
std::string commentMarkup(std::string_view value);
std::string cdataMarkup(std::string_view value);
std::string instructionMarkup(std::string_view target, std::string_view value);

/// Where the parts of an attribute's source stand: name="value".
struct AttributeSource {
    std::size_t valueStart;
    std::size_t valueEnd;
};
AttributeSource splitAttribute(std::string_view source, std::size_t nameLength);

/// The data of an instruction's source `<?target data?>`.
std::string_view instructionData(std::string_view source, std::size_t targetLength);

/// The value of any node that has one.
std::string valueOf(const Arena &arena, Number node);

/// Checks that XML allows every character; raises Fail. Turns CR LF and CR into LF.
std::string checkedValue(const QString &value);

/// Checks that a name can be read back; raises Fail. `name` must also keep to the rules of
/// qualified names unless it is a target.
std::string checkedName(const QString &name);

} // namespace quillon::xml
