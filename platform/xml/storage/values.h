#pragma once

#include "platform/xml/storage/arena.h"
#include "platform/xml/storage/decoding.h"

#include <QString>

#include <string>
#include <string_view>
#include <vector>

/// How values stand in markup, both ways. All text is UTF-8.
namespace quillon::xml {

/// Nothing but blanks, tabs and line breaks.
bool isLayout(std::string_view text);

// The markup of a value. A value that the format cannot hold is changed as little as makes it
// hold: "--" in a comment becomes "- -", "?>" in an instruction "? >", and "]]>" splits a CDATA
// section.
std::string escapeText(std::string_view value, bool preserveSpace);
/// `references` are places in the value that are references already.
std::string escapeAttribute(std::string_view value, char quote,
                            const std::vector<TextPlace> &references = {});
std::string commentMarkup(std::string_view value);
std::string cdataMarkup(std::string_view value);
std::string instructionMarkup(std::string_view target, std::string_view value);

/// Where the parts of an attribute's source stand: name="value".
struct AttributeSource {
    std::size_t nameEnd;
    std::size_t valueStart;
    std::size_t valueEnd;
};
AttributeSource splitAttribute(std::string_view source);

/// The data of an instruction's source `<?target data?>`.
std::string_view instructionData(std::string_view source, std::size_t targetLength);

/// What an attribute was when it was read, whatever its value is now; empty when it was not.
AttributeText readAttribute(const Arena &arena, Number attribute);

/// Where the value of a node that was read stands in its source text, without the markup around
/// it.
TextPlace valueSource(const Arena &arena, Number node);

/// The value of any node that has one.
std::string valueOf(const Arena &arena, Number node);
/// The same without a copy where it stands somewhere as it is; else it is put into `buffer`. Good
/// until the document or the buffer changes.
std::string_view valueView(const Arena &arena, Number node, std::string &buffer);

/// Whether the format holds a value of a comment, an instruction or a CDATA section as it is; any
/// other kind's it does.
bool holdsAsItIs(NodeType kind, std::string_view value);

/// Checks that XML allows every character; raises Fail. Turns CR LF and CR into LF.
std::string checkedValue(const QString &value);

/// Checks that a name can be read back; raises Fail. `name` must also keep to the rules of
/// qualified names unless it is a target.
std::string checkedName(const QString &name);

} // namespace quillon::xml
