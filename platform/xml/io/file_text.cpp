#include "platform/xml/io/file_text.h"

#include "platform/runtime/common_stretches.h"
#include "platform/runtime/utf8.h"
#include "platform/xml/io/lenient_decoding.h"
#include "platform/xml/storage/values.h"

#include <algorithm>

namespace quillon::xml {

namespace {

using runtime::CommonStretch;

constexpr std::string_view Utf8 = "UTF-8";
/// By so much of its beginning it is judged whether a file is text.
constexpr std::size_t JudgedLength = 65536;
/// A short text may have so many characters that no text should have.
constexpr std::size_t FewOdd = 16;

/// Bytes that do not decode say nothing: they may be text in another encoding.
bool isText(std::string_view utf8) {
    std::size_t characters = 0;
    std::size_t odd = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        // White space, and what leads from one character set to another.
        const bool isUsual = byte >= 0x20 || (c >= '\t' && c <= '\x0F') || c == '\x1B';
        characters += (byte & 0xC0) != 0x80 ? 1 : 0;
        odd += isUsual ? 0 : 1;
    }
    // Of other files some tenth of the characters is so, of texts with faults a few.
    return odd <= FewOdd || odd * 20 <= characters;
}

/// Goes through a source text along with the same text with LF line ends.
class SourcePlaces {
public:
    explicit SourcePlaces(const SourceText &source) : source_(source) {}

    /// The place that stands `distance` further in the other text.
    std::uint32_t forward(std::size_t distance) {
        if (!source_.hasCarriageReturn)
            return std::uint32_t(at_ += distance);
        while (distance > 0) {
            const std::size_t end = source_.utf8.find('\r', at_);
            if (end == source_.utf8.npos || end - at_ >= distance) {
                at_ += distance;
                break;
            }
            distance -= end - at_ + 1;
            at_ = end + (source_.utf8.compare(end, 2, "\r\n") == 0 ? 2 : 1);
        }
        return std::uint32_t(at_);
    }

private:
    const SourceText &source_;
    std::size_t at_ = 0;
};

/// The stretches of an edited text that are not kept, or all of it where nothing is.
std::vector<FileText::Stretch> newStretches(const std::vector<CommonStretch> &kept,
                                            std::size_t size) {
    std::vector<FileText::Stretch> stretches;
    std::size_t at = 0;
    for (const CommonStretch &stretch : kept) {
        if (stretch.after > at)
            stretches.push_back({at, stretch.after - at});
        at = stretch.after + stretch.length;
    }
    if (size > at)
        stretches.push_back({at, size - at});
    return stretches;
}

/// Gives a text to two functions: what decodes, and the bytes that do not, as many as stand
/// together.
template <typename Decoded, typename Undecodable>
void split(std::string_view utf8, const ByteCharacters &characters, const Decoded &decoded,
           const Undecodable &undecodable) {
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t next = std::min(characters.find(utf8, at), utf8.size());
        if (next > at)
            decoded(at, next);
        std::string bytes;
        for (at = next; at < utf8.size() && characters.find(utf8.substr(0, at + 3), at) == at;
             at += ByteCharacters::Length)
            bytes += characters.byteAt(utf8, at);
        if (!bytes.empty())
            undecodable(bytes);
    }
}

} // namespace

std::optional<FileText> FileText::of(std::string bytes) {
    FileText text;
    text.source_ = Ref<SourceText>(new SourceText);
    Decoded decoded = decodeFile(bytes);
    text.format_ = decoded.format;
    if (!decoded.error.isNull() && decoded.format.codec.empty()) {
        // A UTF-32 is known by its mark, and is not decoded.
        if (decoded.format.byteOrderMark)
            return std::nullopt;
        text.declarationError_ = decoded.error;
        text.format_.declared = xml::declaredEncoding(bytes);
        text.format_.codec = Utf8;
    }
    text.source_->keepsLineEnds = true;
    text.source_->codec = text.format_.codec;
    const bool isDecoded = decoded.error.isNull() && text.format_.codec != Utf8;
    text.source_->utf8 = std::move(decoded.utf8);
    text.source_->originals = std::move(decoded.originals);
    const std::string_view beginning = std::string_view(text.source_->utf8).substr(0, JudgedLength);
    if (isDecoded ? !isText(beginning) : !text.readLeniently(bytes))
        return std::nullopt;
    text.source_->hasCarriageReturn = text.source_->utf8.find('\r') != std::string::npos;
    return text;
}

bool FileText::readLeniently(const std::string &bytes) {
    const std::size_t markLength = format_.byteOrderMark ? byteOrderMark(format_.codec).size() : 0;
    const std::string_view content = std::string_view(bytes).substr(markLength);
    const auto beginning = decodeLeniently(format_.codec, content.substr(0, JudgedLength));
    if (!beginning || !isText(beginning->utf8))
        return false;
    for (const bool keepsAll : {false, true}) {
        std::optional<LenientText> text = decodeLeniently(format_.codec, content, keepsAll);
        if (!text)
            return false;
        source_->utf8 = std::move(text->utf8);
        source_->originals = std::move(text->originals);
        source_->hasCarriageReturn = source_->utf8.find('\r') != std::string::npos;
        byteCharacters_ = text->bytes;
        format_.declared = xml::declaredEncoding(source_->utf8);
        format_.lineEnd = lineEndOf(source_->utf8);
        if (format_.codec == Utf8 || write(shown(), format_.codec, format_.byteOrderMark) == bytes)
            return true;
    }
    return false;
}

std::string FileText::shown() const {
    return source_->hasCarriageReturn ? normalizeLineEnds(source_->utf8) : source_->utf8;
}

QString FileText::encodingName() const {
    const bool isDeclared = declarationError_.isNull() && !format_.declared.empty();
    return QString::fromStdString(isDeclared ? format_.declared : format_.codec);
}

bool FileText::goesByDeclaration() const {
    return !format_.byteOrderMark && !isUtf16(format_.codec);
}

std::string FileText::codecFor(std::string_view edited) const {
    const std::string declared = xml::declaredEncoding(edited);
    if (!goesByDeclaration() || declared == format_.declared)
        return format_.codec;
    const std::string codec = declared.empty() ? std::string(Utf8) : xml::codecFor(declared);
    if (codec.empty() || isUtf16(codec) || byteCharacters_.find(edited) != edited.npos)
        return format_.codec;
    if (codec != Utf8 || unencodableIn(edited, format_.codec))
        return codec;
    // Hardly anything else than UTF-8 reads as UTF-8.
    const std::string bytes = write(edited, format_.codec, false);
    const bool isUtf8 = !decodeLeniently(codec, bytes)->bytes.first() &&
                        std::ranges::any_of(bytes, [](char c) { return c < 0; });
    return isUtf8 ? format_.codec : codec;
}

std::optional<FileText::Stretch> FileText::firstUnencodable(std::string_view edited) const {
    return unencodableIn(edited, codecFor(edited));
}

std::optional<FileText::Stretch> FileText::unencodableIn(std::string_view edited,
                                                         const std::string &codec) const {
    if (codec == Utf8)
        return std::nullopt;
    const EncodedText target(codec);
    const std::vector<CommonStretch> kept = codec == format_.codec
                                                ? runtime::commonStretches(shown(), edited)
                                                : std::vector<CommonStretch>();
    std::optional<Stretch> found;
    for (const Stretch &stretch : newStretches(kept, edited.size())) {
        const std::string_view text = edited.substr(stretch.start, stretch.length);
        split(
            text, byteCharacters_,
            [&](std::size_t at, std::size_t end) {
                const std::string_view part = text.substr(at, end - at);
                if (found || target.canHold(part))
                    return;
                const std::size_t place = firstUnheld(target, part);
                found = {stretch.start + at + place, runtime::characterAt(part, place).size()};
            },
            [](const std::string &) {});
        if (found)
            break;
    }
    return found;
}

std::string FileText::bytesOf(std::string_view edited) const {
    return write(edited, codecFor(edited), format_.byteOrderMark);
}

std::string FileText::bytesAsUtf8(std::string_view edited) const {
    return write(edited, std::string(Utf8), true);
}

std::string FileText::write(std::string_view edited, const std::string &codec, bool hasMark) const {
    FileOutput out(codec, format_.lineEnd, QString::fromStdString(codec),
                   std::string(hasMark ? byteOrderMark(codec) : std::string_view()));
    const auto undecodable = [&](const std::string &bytes) { out.undecodable(bytes); };
    const auto encode = [&](std::string_view text) {
        split(
            text, byteCharacters_,
            [&](std::size_t at, std::size_t end) { out.markup(text.substr(at, end - at)); },
            undecodable);
    };
    const auto keep = [&](std::uint32_t start, std::uint32_t end) {
        split(
            source_->slice(start, end), byteCharacters_,
            [&](std::size_t at, std::size_t last) {
                const auto from = std::uint32_t(start + at);
                const auto to = std::uint32_t(start + last);
                if (!out.verbatim(*source_, from, to))
                    out.require(source_->slice(from, to));
            },
            undecodable);
    };
    SourcePlaces places(*source_);
    std::size_t at = 0;
    std::size_t passed = 0;
    for (const CommonStretch &kept : runtime::commonStretches(shown(), edited)) {
        encode(edited.substr(at, kept.after - at));
        const std::uint32_t start = places.forward(kept.before - passed);
        passed = kept.before + kept.length;
        keep(start, places.forward(kept.length));
        at = kept.after + kept.length;
    }
    encode(edited.substr(at));
    return out.take();
}

} // namespace quillon::xml
