#include "platform/xml/io/output.h"

#include "platform/runtime/error.h"
#include "platform/runtime/strings.h"
#include "platform/runtime/utf8.h"
#include "platform/xml/storage/values.h"
#include "resources/xml_texts.h"

#include <algorithm>
#include <utility>

namespace quillon::xml {

std::size_t firstUnheld(const EncodedText &target, std::string_view text, std::size_t start) {
    std::size_t previous = start;
    for (std::size_t at = start; at < text.size();) {
        const std::size_t next = at + runtime::characterAt(text, at).size();
        if (!target.canHold(text.substr(previous, next - previous)))
            return at;
        previous = at;
        at = next;
    }
    return text.size();
}

bool MemoryOutput::verbatim(const SourceText &source, std::uint32_t start, std::uint32_t end) {
    const std::string_view slice = source.slice(start, end);
    if (source.hasCarriageReturn && slice.find('\r') != slice.npos)
        markup(normalizeLineEnds(slice));
    else if (text().isEmpty())
        borrowed_ = slice;
    else
        markup(slice);
    return true;
}

void MemoryOutput::markup(std::string_view text) {
    makeOwn();
    bytes_.append(text.data(), qsizetype(text.size()));
}

void MemoryOutput::makeOwn() {
    const std::string_view text = std::exchange(borrowed_, {});
    bytes_.append(text.data(), qsizetype(text.size()));
}

QByteArrayView MemoryOutput::text() const {
    return borrowed_.empty() ? QByteArrayView(bytes_)
                             : QByteArrayView(borrowed_.data(), qsizetype(borrowed_.size()));
}

QByteArray MemoryOutput::take() {
    makeOwn();
    return std::move(bytes_);
}

std::string_view FileOutput::lineEnd() const {
    return lineEnd_ == LineEnd::CRLF ? "\r\n" : lineEnd_ == LineEnd::CR ? "\r" : "\n";
}

std::string FileOutput::withLineEnds(std::string_view text) const {
    const std::string_view end = lineEnd();
    std::string out;
    out.reserve(text.size() + text.size() / 16);
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t lf = text.find('\n', i);
        out.append(text, i, lf == text.npos ? lf : lf - i);
        if (lf == text.npos)
            break;
        out += end;
        i = lf + 1;
    }
    return out;
}

bool FileOutput::verbatimByLines(const SourceText &source, std::uint32_t start, std::uint32_t end) {
    if (source.codec != bytes_.codec() || source.originals.empty())
        return bytes_.append(withLineEnds(normalizeLineEnds(source.slice(start, end))));
    const std::string_view text = source.utf8;
    for (std::size_t at = start; at < end;) {
        const std::size_t lineBreak = std::min<std::size_t>(text.find_first_of("\r\n", at), end);
        if (!bytes_.appendRead(text, source.originals, at, lineBreak))
            return false;
        if (lineBreak == end)
            break;
        bytes_.append(lineEnd());
        at = lineBreak + (text.substr(lineBreak, 2) == "\r\n" ? 2 : 1);
    }
    return true;
}

bool FileOutput::verbatim(const SourceText &source, std::uint32_t start, std::uint32_t end) {
    if (source.keepsLineEnds && unifiesLineEnds_)
        return verbatimByLines(source, start, end);
    if (!source.keepsLineEnds && lineEnd_ != LineEnd::LF)
        return bytes_.append(withLineEnds(source.slice(start, end)));
    if (source.keepsLineEnds && source.codec == bytes_.codec())
        return bytes_.appendRead(source.utf8, source.originals, start, end);
    return bytes_.append(source.slice(start, end));
}

void FileOutput::failFor(std::string_view rest) const {
    if (rest.empty())
        throw runtime::Error(runtime::error_number::Fail,
                             resources::xml_texts::NotReadableAgain.toString().arg(encodingName_));
    const std::string_view character = runtime::characterAt(rest, 0);
    throw runtime::Error(runtime::error_number::Fail,
                         resources::xml_texts::Unencodable.toString().arg(
                             runtime::fromUtf8(character),
                             QString::number(runtime::codePoint(character), 16)
                                 .toUpper()
                                 .rightJustified(4, QLatin1Char('0')),
                             encodingName_));
}

void FileOutput::markup(std::string_view text) {
    const std::string converted = lineEnd_ == LineEnd::LF ? std::string() : withLineEnds(text);
    if (lineEnd_ != LineEnd::LF)
        text = converted;
    if (!bytes_.append(text))
        failFor(text.substr(firstUnheld(bytes_, text)));
}

void FileOutput::require(std::string_view text) const {
    if (!bytes_.canHold(text))
        failFor(text.substr(firstUnheld(bytes_, text)));
}

void FileOutput::characters(std::string_view text) {
    const std::string converted = lineEnd_ == LineEnd::LF ? std::string() : withLineEnds(text);
    if (lineEnd_ != LineEnd::LF)
        text = converted;
    if (bytes_.append(text))
        return;
    // One character that the encoding lacks must not have a long text looked at one by one.
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t lineEnd = text.find_first_of("\r\n", at);
        const std::size_t next = lineEnd == text.npos ? text.size() : lineEnd + 1;
        const std::string_view line = text.substr(at, next - at);
        if (!bytes_.append(line))
            charactersOfLine(line);
        at = next;
    }
}

void FileOutput::charactersOfLine(std::string_view line) {
    for (std::size_t at = 0; at < line.size();) {
        const std::size_t unheld = firstUnheld(bytes_, line, at);
        std::string run(line.substr(at, unheld - at));
        at = unheld;
        if (at < line.size()) {
            const std::string_view character = runtime::characterAt(line, at);
            run += "&#" + std::to_string(runtime::codePoint(character)) + ";";
            at += character.size();
        }
        if (!bytes_.append(run))
            failFor({});
    }
}

std::string FileOutput::take() {
    std::optional<std::string> bytes = bytes_.take();
    if (!bytes)
        failFor({});
    return std::move(*bytes);
}

} // namespace quillon::xml
