#pragma once

#include "platform/xml/io/byte_characters.h"
#include "platform/xml/io/output.h"
#include "platform/xml/storage/arena.h"

#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace quillon::xml {

/// The text of a file, to be shown and edited as a whole whatever is wrong with it, and the way
/// back to bytes: what is edited is encoded, everything else stays as it was read. Cheap to copy.
class FileText {
public:
    /// Nothing for what is no text.
    static std::optional<FileText> of(std::string bytes);

    /// UTF-8 with LF line ends and without byte order mark. What does not decode is written in
    /// byteCharacters().
    std::string shown() const;
    const ByteCharacters &byteCharacters() const { return byteCharacters_; }
    /// Why the file could not be read by the encoding that it declares, and was read as UTF-8; null
    /// when it was.
    const QString &declarationError() const { return declarationError_; }
    /// As it is called in messages.
    QString encodingName() const;
    /// The encoding that the declaration in the file named; empty for none.
    const std::string &declaredEncoding() const { return format_.declared; }

    /// The bytes of the file with another text. They are in the encoding that the text declares,
    /// but where the text has undecodable bytes: there a new declaration says what these are, and
    /// so it does where it calls a UTF-8 by its name. Raises Fail for a character that the encoding
    /// does not have.
    std::string bytesOf(std::string_view edited) const;

    /// The same as UTF-8 with a byte order mark, which tells that whatever the declaration says.
    std::string bytesAsUtf8(std::string_view edited) const;
    /// Whether the declaration in the text decides what the bytes mean.
    bool goesByDeclaration() const;

    struct Stretch {
        std::size_t start = 0;
        std::size_t length = 0;
    };
    /// The first character in an edited text that bytesOf() raises for.
    std::optional<Stretch> firstUnencodable(std::string_view edited) const;

private:
    FileText() = default;

    bool readLeniently(const std::string &bytes);
    /// The codec that an edited text is to be written in.
    std::string codecFor(std::string_view edited) const;
    std::string write(std::string_view edited, const std::string &codec, bool hasMark) const;
    std::optional<Stretch> unencodableIn(std::string_view edited, const std::string &codec) const;

    Ref<SourceText> source_;
    FileFormat format_;
    ByteCharacters byteCharacters_;
    QString declarationError_;
};

} // namespace quillon::xml
