#pragma once

#include "platform/xml/storage/arena.h"

#include <string>
#include <string_view>
#include <vector>

/// What markup stands for. All text is UTF-8.
namespace quillon::xml {

/// The characters that a stretch of character data stands for: character references and the five
/// predefined entities resolved, CR LF and CR turned into LF, other entities replaced by their
/// texts (within fixed bounds; unknown ones stand for nothing).
std::string decodeCharacters(std::string_view raw, const EntityTable &entities);

struct TextPlace {
    std::size_t start;
    std::size_t length;
};

/// A stretch of a value and of the source that it was decoded from.
struct DecodedRun {
    TextPlace value;
    TextPlace source;
    /// The characters stand there as they are. Otherwise the source is one reference or line end,
    /// which no part of the value stands for alone.
    bool isLiteral;
};

/// What a value can be decoded from.
enum class SourceForm {
    /// Character data or the source of an attribute: with references.
    Characters,
    Attribute,
    /// A comment, an instruction or a CDATA section: without.
    Plain,
};

/// How the value of a stretch of source hangs together with it, from its start to its end.
std::vector<DecodedRun> decodedRuns(std::string_view raw, SourceForm form,
                                    const EntityTable &entities);

/// The value of an attribute as it is shown: with references to entities that no internal subset
/// declares, and whose texts are therefore unknown, as they are written.
struct AttributeText {
    std::string value;
    /// Where such references stand in it, ascending.
    std::vector<TextPlace> references;
};

/// The same as decodeCharacters() for what stands between the quotes of an attribute.
AttributeText decodeAttribute(std::string_view raw, const EntityTable &entities);

/// The places in an attribute's new value where a reference of the value that was read still
/// stands, or stands again.
std::vector<TextPlace> keptReferences(std::string_view value, const AttributeText &read);

/// The name of the first entity that a stretch of character data or an attribute's source refers
/// to, other than the five predefined; empty when there is none.
std::string_view referredEntityIn(std::string_view raw);

/// The text of what a general entity stands for: the character data and CDATA sections in it, and
/// in the entities that it refers to, without any other markup.
std::string entityText(std::string_view name, const EntityTable &entities);

/// CR LF and CR turned into LF.
std::string normalizeLineEnds(std::string_view text);

/// What stands in a CDATA section, given as it is written.
std::string_view cdataCharacters(std::string_view markup);

} // namespace quillon::xml
