#pragma once

#include <QString>

namespace quillon::xml {

/// Numbers of errors, as far as somebody goes by them.
namespace parse_error_code {
inline constexpr qint32 Base = static_cast<qint32>(0xC00CE500);
inline constexpr qint32 UndefinedEntity = Base + 0x02;
inline constexpr qint32 DuplicateAttribute = Base + 0x54;
} // namespace parse_error_code

/// What stopped the latest load; all zero and empty when nothing did.
struct ParseError {
    /// Number of the error, 0 for none.
    qint32 errorCode = 0;
    /// A Japanese sentence.
    QString reason;
    /// 1-based; 0 when the error has no place in the text.
    int line = 0;
    int linepos = 0;
    /// 0-based position in the bytes of the decoded text.
    qint64 filepos = 0;
    /// The source line that holds the error.
    QString srcText;
    /// The path given to load(); empty after loadXML().
    QString url;
};

} // namespace quillon::xml
