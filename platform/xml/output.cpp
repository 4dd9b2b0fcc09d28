#include "platform/xml/output.h"

#include "platform/runtime/error.h"
#include "platform/xml/values.h"
#include "resources/xml_texts.h"

#include <QList>

#include <algorithm>

namespace quillon::xml {

namespace {

/// The length of the UTF-8 sequence that starts with `lead`.
std::size_t sequenceLength(char lead) {
    const auto c = static_cast<unsigned char>(lead);
    return c < 0x80 ? 1 : c < 0xE0 ? 2 : c < 0xF0 ? 3 : 4;
}

uint codePoint(std::string_view character) {
    return QString::fromUtf8(character.data(), qsizetype(character.size())).toUcs4().value(0);
}

} // namespace

bool MemoryOutput::verbatim(const SourceText &source, std::uint32_t start, std::uint32_t end) {
    const std::string_view slice = source.slice(start, end);
    if (source.hasCarriageReturn && slice.find('\r') != slice.npos)
        markup(normalizeLineEnds(slice));
    else
        markup(slice);
    return true;
}

void MemoryOutput::markup(std::string_view text) {
    bytes_.append(text.data(), qsizetype(text.size()));
}

std::string FileOutput::withLineEnds(std::string_view text) const {
    const std::string_view end = lineEnd_ == LineEnd::CRLF ? "\r\n" : "\r";
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

bool FileOutput::verbatim(const SourceText &source, std::uint32_t start, std::uint32_t end) {
    if (!source.keepsLineEnds) {
        if (lineEnd_ == LineEnd::LF)
            return encoder_.encode(source.slice(start, end), bytes_);
        return encoder_.encode(withLineEnds(source.slice(start, end)), bytes_);
    }
    if (source.codec != encoder_.codec())
        return encoder_.encode(source.slice(start, end), bytes_);
    auto original = std::lower_bound(
        source.originals.begin(), source.originals.end(), start,
        [](const OriginalBytes &o, std::uint32_t position) { return o.start < position; });
    for (; original != source.originals.end() && original->end <= end; ++original) {
        encoder_.encodeKnown(source.slice(start, original->start), bytes_);
        bytes_ += original->bytes;
        start = original->end;
    }
    return encoder_.encodeKnown(source.slice(start, end), bytes_);
}

void FileOutput::markup(std::string_view text) {
    const std::string converted = lineEnd_ == LineEnd::LF ? std::string() : withLineEnds(text);
    if (lineEnd_ != LineEnd::LF)
        text = converted;
    if (encoder_.encode(text, bytes_))
        return;
    for (std::size_t i = 0; i < text.size(); i += sequenceLength(text[i])) {
        const std::string_view character = text.substr(i, sequenceLength(text[i]));
        std::string ignored;
        if (encoder_.encode(character, ignored))
            continue;
        throw runtime::Error(runtime::error_number::Fail,
                             resources::xml_text::Unencodable.arg(
                                 QString::fromUtf8(character.data(), qsizetype(character.size())),
                                 QString::number(codePoint(character), 16)
                                     .toUpper()
                                     .rightJustified(4, QLatin1Char('0')),
                                 encodingName_));
    }
}

void FileOutput::characters(std::string_view text) {
    const std::string converted = lineEnd_ == LineEnd::LF ? std::string() : withLineEnds(text);
    if (lineEnd_ != LineEnd::LF)
        text = converted;
    if (encoder_.encode(text, bytes_))
        return;
    std::string run;
    for (std::size_t i = 0; i < text.size(); i += sequenceLength(text[i])) {
        const std::string_view character = text.substr(i, sequenceLength(text[i]));
        std::string ignored;
        if (encoder_.encode(character, ignored))
            run += character;
        else
            run += "&#" + std::to_string(codePoint(character)) + ";";
    }
    encoder_.encode(run, bytes_);
}

} // namespace quillon::xml
