#include "document/document_head.h"

#include "platform/runtime/error.h"
#include "platform/runtime/file_access.h"
#include "platform/xml/io/file_bytes.h"
#include "platform/xml/io/file_text.h"
#include "platform/xml/syntax/markup.h"

#include <algorithm>
#include <array>
#include <vector>

namespace quillon::document {

namespace {

constexpr qint64 LargeFile = 4'000'000;
constexpr qint64 HeadLength = 256 * 1024;

/// Whether a text has references to entities that a document has to declare.
bool hasEntities(QByteArrayView text) {
    constexpr std::array Usual{"&#", "&lt;", "&gt;", "&amp;", "&quot;", "&apos;"};
    for (qsizetype at = text.indexOf('&'); at >= 0; at = text.indexOf('&', at + 1)) {
        const QByteArrayView rest = text.sliced(at);
        if (std::ranges::none_of(Usual, [&](const char *usual) { return rest.startsWith(usual); }))
            return true;
    }
    return false;
}

/// The text up to the last piece of markup in it that has an end, with end tags for all that is
/// open there. Empty for a text with anything unusual.
QByteArray closed(QByteArrayView text) {
    using Kind = xml::MarkupPiece::Kind;
    std::vector<QByteArrayView> open;
    qsizetype end = 0;
    xml::MarkupReader reader(text);
    for (xml::MarkupPiece piece; reader.next(piece) && piece.end < text.size(); end = piece.end) {
        if (piece.kind == Kind::StartTag)
            open.push_back(xml::markup::tagName(text, piece.start));
        else if (piece.kind == Kind::Text && hasEntities(text.first(piece.end).sliced(piece.start)))
            return {};
        if (piece.kind != Kind::EndTag)
            continue;
        if (open.empty())
            return {};
        open.pop_back();
    }
    QByteArray result = text.first(end).toByteArray();
    for (auto name = open.rbegin(); name != open.rend(); ++name)
        result.append("</").append(*name).append('>');
    return result;
}

} // namespace

xml::DOMDocument40 documentHead(const QString &path) {
    if (runtime::fileSize(path) < LargeFile)
        return {};
    try {
        // Where the file is cut, a character may be, too; that goes with the last piece.
        const std::optional<xml::FileText> text =
            xml::FileText::of(xml::readStart(path, HeadLength));
        if (!text || !text->declarationError().isNull())
            return {};
        xml::DOMDocument40 head = xml::DOMDocument40::create();
        if (head.loadXML(closed(QByteArrayView(text->shown()))))
            return head;
    } catch (const runtime::Error &) {
        // Whoever reads the whole file tells what is wrong with it.
    }
    return {};
}

} // namespace quillon::document
