#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/dom/dom.h"

#include <QString>

#include <vector>

/// Giving a document another encoding, which it is saved in from then on.
namespace quillon::xml {

struct FileEncoding {
    /// As an XML declaration names it.
    QString name = QStringLiteral("UTF-8");
    bool byteOrderMark = false;
    /// Of a UTF-16: the higher byte comes first.
    bool isBigEndian = false;
};

/// Whether both make the same bytes, whatever they are called.
bool isSameEncoding(const FileEncoding &one, const FileEncoding &other);

/// Whether documents can be saved in an encoding of that name.
bool isEncodingSupported(const QString &name);

/// What a document would be saved in. Raises Fail when that is not supported.
FileEncoding fileEncodingOf(const DOMDocument40 &document);

/// A character that an encoding lacks.
struct UnheldCharacter {
    /// The node it is in: an attribute, if in its name or value.
    Node node;
    char32_t character = 0;
    /// Where it stands in the file that was read; 0 for what has been changed since.
    int line = 0;
    int column = 0;
    /// It stands in text or an attribute value, where a reference is written for it. Anywhere else
    /// the document could not be saved.
    bool becomesReference = false;
};

struct EncodingCheck {
    /// In document order, no more than the number asked for of each kind.
    std::vector<UnheldCharacter> characters;
    /// Whether these are all.
    bool isWhole = true;
};

/// Finds what of a document an encoding cannot hold. Raises Cancelled when the progress function
/// has it stopped.
EncodingCheck checkEncoding(const DOMDocument40 &document, const FileEncoding &encoding,
                            std::size_t most, const runtime::Progress &progress = {});

enum class LineEnds {
    /// What was read keeps its own.
    Keep,
    LF,
    CRLF,
};

/// Gives a document another encoding and other line ends. Its XML declaration then names the
/// encoding; one is added where there is none and the encoding is not UTF-8, and returned, as it
/// has no place in anybody's tree yet. Nothing else changes. Raises Fail, with nothing changed,
/// when the document could not be saved so.
Node changeEncoding(const DOMDocument40 &document, const FileEncoding &encoding, LineEnds lineEnds);

} // namespace quillon::xml
