#pragma once

#include "platform/xml/storage/node_kind.h"

#include <cstdint>
#include <string_view>

/// How far what was read extends in its source text. That is not kept of every node: it is seen
/// where it stands.
namespace quillon::xml {

/// Where the white space starts that ends at `end`.
std::uint32_t blanksAhead(std::string_view text, std::uint32_t end);

/// Where an attribute, or a node other than an element, a document and a document type, ends that
/// starts at `start`. The text has been found well-formed.
std::uint32_t endOfNode(NodeType kind, std::string_view text, std::uint32_t start);

} // namespace quillon::xml
