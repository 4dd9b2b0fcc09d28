#pragma once

#include "platform/xml/storage/arena.h"

#include <QString>

#include <string>

namespace quillon::xml {

/// The XML declaration of a document, or 0.
Number declarationOf(const Arena &arena);

/// The encoding that the document's declaration names now; empty when it names none.
std::string declaredEncodingOf(const Arena &arena);

/// How the text of a document becomes the bytes of its file.
struct FileTarget {
    std::string codec;
    /// The byte order mark; empty for none.
    std::string mark;
    /// As users know it.
    QString encodingName;
};
/// Raises Fail for an encoding that is not supported.
FileTarget targetOf(const Arena &arena);

} // namespace quillon::xml
