#pragma once

#include "platform/xml/io/encoded_text.h"
#include "platform/xml/storage/source_text.h"

#include <QByteArray>

#include <string>
#include <string_view>

namespace quillon::xml {

/// The position, from `start` on, of the first character that the encoding cannot hold behind the
/// one ahead of it; the end of the text when there is none. (Some encodings have one code for two
/// characters, which then reads back as a third.)
std::size_t firstUnheld(const EncodedText &target, std::string_view text, std::size_t start = 0);

/// Where serialised text goes.
class Output {
public:
    virtual ~Output() = default;
    /// Whether the target holds all of this source.
    virtual bool holds(const SourceText &source) const = 0;
    /// Text as it was read. False, with nothing written, when the target cannot hold it.
    virtual bool verbatim(const SourceText &source, std::uint32_t start, std::uint32_t end) = 0;
    /// Text made here, UTF-8 with LF line ends, in which no reference may stand. Raises Fail when
    /// the target cannot hold it.
    virtual void markup(std::string_view text) = 0;
    /// The same for character data, already escaped: what the target cannot hold becomes a
    /// numeric reference.
    virtual void characters(std::string_view text) = 0;
};

/// Collects UTF-8 with LF line ends. What is one stretch of a source is not copied until it has to
/// be.
class MemoryOutput final : public Output {
public:
    bool holds(const SourceText &) const override { return true; }
    bool verbatim(const SourceText &source, std::uint32_t start, std::uint32_t end) override;
    void markup(std::string_view text) override;
    void characters(std::string_view text) override { markup(text); }

    /// Good until something is written, or the source goes.
    QByteArrayView text() const;
    QByteArray take();

private:
    void makeOwn();

    /// All there is while there is nothing else.
    std::string_view borrowed_;
    QByteArray bytes_;
};

/// Collects the bytes of a file.
class FileOutput final : public Output {
public:
    /// `mark` goes ahead of everything; `encodingName` is for messages. With `unifiesLineEnds` what
    /// was read does not keep its own line ends.
    FileOutput(const std::string &codec, LineEnd lineEnd, QString encodingName, std::string mark,
               bool unifiesLineEnds = false)
        : bytes_(codec, std::move(mark)), lineEnd_(lineEnd), unifiesLineEnds_(unifiesLineEnds),
          encodingName_(std::move(encodingName)) {}

    bool holds(const SourceText &source) const override {
        return bytes_.isUtf8() || (source.keepsLineEnds && source.codec == bytes_.codec());
    }

    bool verbatim(const SourceText &source, std::uint32_t start, std::uint32_t end) override;
    void markup(std::string_view text) override;
    void characters(std::string_view text) override;

    void reserve(std::size_t size) { bytes_.reserve(size); }
    /// Bytes as they are, which no text of the target reads back as.
    void undecodable(std::string_view bytes) { bytes_.appendUndecodable(bytes); }
    /// Raises Fail, as markup() does, when the target cannot hold the text; writes nothing.
    void require(std::string_view text) const;
    /// Raises Fail when the bytes would read back as another text.
    std::string take();

private:
    std::string_view lineEnd() const;
    std::string withLineEnds(std::string_view text) const;
    bool verbatimByLines(const SourceText &source, std::uint32_t start, std::uint32_t end);
    void charactersOfLine(std::string_view line);
    /// Raises Fail for the character that `rest` starts with, or, when there is none, for the way
    /// the characters stand together.
    [[noreturn]] void failFor(std::string_view rest) const;

    EncodedText bytes_;
    LineEnd lineEnd_;
    bool unifiesLineEnds_;
    QString encodingName_;
};

} // namespace quillon::xml
