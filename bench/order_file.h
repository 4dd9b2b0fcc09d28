#pragma once

#include <string>

namespace quillon::bench {

/// Order records of about that many bytes, always the same for the same size.
std::string orderRecords(std::size_t bytes);
/// Entries of a dictionary, many elements with short texts, of about that many bytes.
std::string dictionaryEntries(std::size_t bytes);
/// One element with that many empty children.
std::string flatDocument(int children);
/// That many nested elements, with a text in the innermost.
std::string deepDocument(int levels);

} // namespace quillon::bench
