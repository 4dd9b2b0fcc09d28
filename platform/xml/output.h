#pragma once

#include "platform/xml/encoding.h"
#include "platform/xml/source_text.h"

#include <QByteArray>

#include <string>
#include <string_view>

namespace quillon::xml {

/// Where serialised text goes.
class Output {
public:
    virtual ~Output() = default;
    /// Whether verbatim() can never fail for this source.
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

/// Collects UTF-8 with LF line ends.
class MemoryOutput final : public Output {
public:
    bool holds(const SourceText &) const override { return true; }
    bool verbatim(const SourceText &source, std::uint32_t start, std::uint32_t end) override;
    void markup(std::string_view text) override;
    void characters(std::string_view text) override { markup(text); }

    QByteArray take() { return std::move(bytes_); }

private:
    QByteArray bytes_;
};

/// Collects the bytes of a file.
class FileOutput final : public Output {
public:
    /// `mark` goes ahead of everything; `encodingName` is for messages.
    FileOutput(std::string codec, LineEnd lineEnd, QString encodingName, std::string mark)
        : encoder_(std::move(codec)), lineEnd_(lineEnd), encodingName_(std::move(encodingName)),
          bytes_(std::move(mark)) {}

    bool holds(const SourceText &source) const override {
        return encoder_.isUtf8() || (source.keepsLineEnds && source.codec == encoder_.codec());
    }

    bool verbatim(const SourceText &source, std::uint32_t start, std::uint32_t end) override;
    void markup(std::string_view text) override;
    void characters(std::string_view text) override;

    std::string take() { return std::move(bytes_); }

private:
    std::string withLineEnds(std::string_view text) const;

    Encoder encoder_;
    LineEnd lineEnd_;
    QString encodingName_;
    std::string bytes_;
};

} // namespace quillon::xml
