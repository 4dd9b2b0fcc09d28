#pragma once

#include <cstdint>
#include <expat.h>

namespace quillon::xml::expat {

// Newer versions have functions with 64 bits everywhere, and deprecate those that others have.
#if XML_MAJOR_VERSION > 2 || XML_MINOR_VERSION >= 9
#define QUILLON_EXPAT_NAME(name) name##64
#else
#define QUILLON_EXPAT_NAME(name) name
#endif

/// Where the present event starts in the text, or where an error was found: in bytes from the
/// start, -1 ahead of it.
inline std::int64_t byteIndex(XML_Parser parser) {
    return QUILLON_EXPAT_NAME(XML_GetCurrentByteIndex)(parser);
}
/// The bytes of the present event.
inline std::int64_t byteCount(XML_Parser parser) {
    return static_cast<std::int64_t>(QUILLON_EXPAT_NAME(XML_GetCurrentByteCount)(parser));
}
/// The line of that place, from 1.
inline int line(XML_Parser parser) {
    return static_cast<int>(QUILLON_EXPAT_NAME(XML_GetCurrentLineNumber)(parser));
}
/// The column of that place, in bytes from 0.
inline int column(XML_Parser parser) {
    return static_cast<int>(QUILLON_EXPAT_NAME(XML_GetCurrentColumnNumber)(parser));
}

#undef QUILLON_EXPAT_NAME

} // namespace quillon::xml::expat
