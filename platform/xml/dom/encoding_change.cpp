#include "platform/xml/dom/encoding_change.h"

#include "platform/runtime/error.h"
#include "platform/runtime/utf8.h"
#include "platform/xml/dom/handle_access.h"
#include "platform/xml/dom/line_counter.h"
#include "platform/xml/io/encoded_text.h"
#include "platform/xml/io/encoding.h"
#include "platform/xml/io/file_target.h"
#include "platform/xml/io/output.h"
#include "platform/xml/io/serializer.h"
#include "platform/xml/storage/values.h"
#include "resources/xml_texts.h"

#include <QRegularExpression>

#include <algorithm>
#include <unordered_map>

namespace quillon::xml {

namespace {

constexpr std::size_t NodesPerReport = 20'000;

std::string codecOf(const FileEncoding &encoding) {
    const std::string codec = codecFor(encoding.name.toStdString());
    if (codec == "UTF-16")
        return encoding.isBigEndian ? "UTF-16BE" : "UTF-16LE";
    return codec;
}

std::string supportedCodecOf(const FileEncoding &encoding) {
    std::string codec = codecOf(encoding);
    if (codec.empty())
        throw runtime::Error(runtime::error_number::Fail,
                             resources::xml_texts::UnknownEncoding.toString().arg(encoding.name));
    return codec;
}

bool isUnicode(const std::string &codec) {
    return codec == "UTF-8" || codec.starts_with("UTF-16");
}

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// Looks through a document for what an encoding lacks.
class EncodingChecker {
public:
    EncodingChecker(const DOMDocument40 &document, const std::string &codec, std::size_t most)
        : document_(document), arena_(HandleAccess::arena(document)), target_(codec), most_(most) {}

    EncodingCheck check(const runtime::Progress &progress);

private:
    void node(Number n);
    void attribute(Number n);
    void name(Number n, std::uint32_t at);
    /// A stretch of a node's markup that begins so many bytes behind where the node does.
    void stretch(Number n, std::string_view text, std::uint32_t at, bool becomesReference);
    void line(Number n, std::string_view line, std::uint32_t at, bool becomesReference);
    /// The markup of a leaf or an attribute.
    std::string_view markup(Number n);

    const DOMDocument40 &document_;
    const Arena &arena_;
    EncodedText target_;
    std::size_t most_;
    std::size_t references_ = 0;
    std::size_t obstacles_ = 0;
    LineCounter lines_;
    /// Whether the encoding holds a name.
    std::unordered_map<std::uint32_t, bool> names_;
    QByteArray buffer_;
    EncodingCheck result_;
};

EncodingCheck EncodingChecker::check(const runtime::Progress &progress) {
    const Number top = arena_.documentNumber();
    std::size_t nodes = 0;
    for (Number n = arena_.nextInSubtree(top, top); n != 0; n = arena_.nextInSubtree(n, top)) {
        node(n);
        // Hardly anything is worth more than the obstacles.
        if (obstacles_ > most_)
            break;
        if (progress && ++nodes % NodesPerReport == 0 &&
            !progress(std::min(1.0, double(nodes) / arena_.slotCount())))
            runtime::raise(runtime::error_number::Cancelled);
    }
    result_.isWhole = obstacles_ <= most_ && references_ <= most_;
    return std::move(result_);
}

std::string_view EncodingChecker::markup(Number n) {
    const Record &r = arena_.record(n);
    constexpr RecordFlags Changed = record_flag::OwnValue | record_flag::Renamed;
    if (r.has(record_flag::Source) && !r.has(Changed))
        return arena_.sourceSlice(n);
    buffer_ = serializeNode(arena_, n);
    return {buffer_.constData(), std::size_t(buffer_.size())};
}

void EncodingChecker::node(Number n) {
    const NodeType kind = arena_.record(n).kind;
    if (kind != NodeType::Element) {
        stretch(n, markup(n), 0, kind == NodeType::Text);
        return;
    }
    name(n, 1);
    for (Number a = arena_.part(n).firstAttribute; a != 0; a = arena_.record(a).next) {
        if (!arena_.record(a).has(record_flag::Defaulted))
            attribute(a);
    }
}

void EncodingChecker::attribute(Number n) {
    name(n, 0);
    const std::string_view text = markup(n);
    const AttributeSource parts = splitAttribute(text);
    stretch(n, text.substr(parts.valueStart, parts.valueEnd - parts.valueStart),
            static_cast<std::uint32_t>(parts.valueStart), true);
}

void EncodingChecker::name(Number n, std::uint32_t at) {
    const std::uint32_t number = arena_.record(n).name;
    const std::string_view name = arena_.names->utf8(number);
    const auto [known, isNew] = names_.try_emplace(number, true);
    if (isNew)
        known->second = isAscii(name) || target_.canHold(name);
    if (!known->second)
        stretch(n, name, at, false);
}

void EncodingChecker::stretch(Number n, std::string_view text, std::uint32_t at,
                              bool becomesReference) {
    if (isAscii(text) || (becomesReference && references_ > most_) || target_.canHold(text))
        return;
    // One character that the encoding lacks must not have a long text looked at one by one.
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t lineBreak = text.find_first_of("\r\n", start);
        const std::size_t next = lineBreak == text.npos ? text.size() : lineBreak + 1;
        const std::string_view one = text.substr(start, next - start);
        if (!isAscii(one) && !target_.canHold(one))
            line(n, one, at + static_cast<std::uint32_t>(start), becomesReference);
        start = next;
    }
}

void EncodingChecker::line(Number n, std::string_view line, std::uint32_t at,
                           bool becomesReference) {
    std::size_t &count = becomesReference ? references_ : obstacles_;
    for (std::size_t start = firstUnheld(target_, line); start < line.size();) {
        if (++count > most_)
            return;
        const std::string_view character = runtime::characterAt(line, start);
        const Node where = HandleAccess::node(document_, n);
        const LineCounter::Place place =
            lines_.placeOf(where, at + static_cast<std::uint32_t>(start));
        result_.characters.push_back(
            {where, runtime::codePoint(character), place.line, place.column, becomesReference});
        start = firstUnheld(target_, line, start + character.size());
    }
}

/// The data of an XML declaration that names an encoding.
QString declarationData(const QString &present, const QString &name) {
    static const QRegularExpression named(
        QStringLiteral("(\\sencoding\\s*=\\s*)([\"'])[^\"']*\\2"));
    static const QRegularExpression version(
        QStringLiteral("^\\s*version\\s*=\\s*(\"[^\"]*\"|'[^']*')"));
    QString data = present;
    const auto place = named.match(present);
    if (place.hasMatch())
        return data.replace(place.capturedStart(), place.capturedLength(),
                            place.captured(1) + place.captured(2) + name + place.captured(2));
    return data.insert(version.match(present).capturedEnd(),
                       QStringLiteral(" encoding=\"%1\"").arg(name));
}

/// Has the declaration name an encoding; returns one that had to be added.
Node declare(const DOMDocument40 &document, const QString &name, bool isUtf8) {
    Arena &arena = HandleAccess::arena(document);
    const Number declaration = declarationOf(arena);
    if (declaration == 0) {
        if (isUtf8)
            return {};
        const Node made = document.createProcessingInstruction(
            QStringLiteral("xml"), declarationData(QStringLiteral("version=\"1.0\""), name));
        const Node first = document.node().firstChild();
        const Node placed = document.node().insertBefore(made, first);
        // Nothing may be ahead of it, as it might have been ahead of what was the first.
        arena.setLayout(placed.number(), {});
        return placed;
    }
    if (isUtf8 && declaredEncodingOf(arena).empty())
        return {};
    const QString present = HandleAccess::node(document, declaration).nodeValue();
    arena.setOwnText(declaration, OwnTextKind::Value, declarationData(present, name).toStdString());
    arena.writeRecord(declaration).flags |= record_flag::OwnValue;
    arena.markContentChanged(arena.documentNumber());
    return {};
}

/// False where what the document declares is not supported.
bool isSavedIn(const DOMDocument40 &document, const FileEncoding &encoding) {
    try {
        return isSameEncoding(fileEncodingOf(document), encoding);
    } catch (const runtime::Error &) {
        return false;
    }
}

Node change(const DOMDocument40 &document, const FileEncoding &encoding, LineEnds lineEnds) {
    Arena &arena = HandleAccess::arena(document);
    Node added;
    if (!isSavedIn(document, encoding)) {
        const std::string codec = supportedCodecOf(encoding);
        added = declare(document, encoding.name, codec == "UTF-8");
        arena.format.codec = codec;
        arena.format.byteOrderMark = encoding.byteOrderMark;
        arena.format.declared = declaredEncodingOf(arena);
    }
    if (lineEnds != LineEnds::Keep) {
        arena.format.lineEnd = lineEnds == LineEnds::LF ? LineEnd::LF : LineEnd::CRLF;
        arena.format.unifiesLineEnds = true;
    }
    return added;
}

} // namespace

bool isSameEncoding(const FileEncoding &one, const FileEncoding &other) {
    return codecOf(one) == codecOf(other) && one.byteOrderMark == other.byteOrderMark;
}

bool isEncodingSupported(const QString &name) {
    return !codecFor(name.toStdString()).empty();
}

FileEncoding fileEncodingOf(const DOMDocument40 &document) {
    const FileTarget target = targetOf(HandleAccess::arena(document));
    FileEncoding encoding;
    encoding.byteOrderMark = !target.mark.empty();
    encoding.isBigEndian = target.codec == "UTF-16BE";
    // A declaration may be missing, or be wrong where a byte order mark outranks it.
    encoding.name = target.encodingName;
    if (codecOf(encoding) != target.codec)
        encoding.name = target.codec.starts_with("UTF-16") ? QStringLiteral("UTF-16")
                                                           : QString::fromStdString(target.codec);
    return encoding;
}

EncodingCheck checkEncoding(const DOMDocument40 &document, const FileEncoding &encoding,
                            std::size_t most, const runtime::Progress &progress) {
    const std::string codec = supportedCodecOf(encoding);
    return isUnicode(codec) ? EncodingCheck()
                            : EncodingChecker(document, codec, most).check(progress);
}

Node changeEncoding(const DOMDocument40 &document, const FileEncoding &encoding,
                    LineEnds lineEnds) {
    // Whether it can be saved so is seen from a copy.
    const DOMDocument40 copy = document.clone();
    change(copy, encoding, lineEnds);
    serializeDocument(HandleAccess::arena(copy));
    return change(document, encoding, lineEnds);
}

} // namespace quillon::xml
