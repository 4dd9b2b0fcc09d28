#include "validation/tag_places.h"

#include "platform/xml/syntax/markup.h"

#include <algorithm>

namespace quillon::validation {

using Kind = xml::MarkupPiece::Kind;
using xml::markup::isBlank;

namespace {

bool endsName(char c) {
    return isBlank(c) || c == '=' || c == '>' || c == '/' || c == '<' || c == '"' || c == '\'';
}

} // namespace

std::vector<TagPlace> tagPlaces(QByteArrayView markup, const std::vector<quint32> &wanted) {
    std::vector<TagPlace> places;
    places.reserve(wanted.size());
    xml::MarkupReader reader(markup);
    quint32 number = 0;
    for (xml::MarkupPiece piece; places.size() < wanted.size() && reader.next(piece);) {
        if (piece.kind != Kind::StartTag && piece.kind != Kind::EmptyTag)
            continue;
        if (number++ != wanted[places.size()])
            continue;
        const qsizetype name = piece.start + 1;
        const auto end = std::find_if(markup.begin() + name, markup.begin() + piece.end, endsName);
        places.push_back({name, end - markup.begin() - name, piece.end});
    }
    return places;
}

TagPlace attributePlace(QByteArrayView markup, const TagPlace &tag, const QByteArray &name) {
    qsizetype at = tag.at + tag.length;
    while (at < tag.end) {
        while (at < tag.end && endsName(markup[at]))
            ++at;
        const qsizetype start = at;
        while (at < tag.end && !endsName(markup[at]))
            ++at;
        const QByteArrayView found = markup.sliced(start, at - start);
        while (at < tag.end && (isBlank(markup[at]) || markup[at] == '='))
            ++at;
        if (at < tag.end && (markup[at] == '"' || markup[at] == '\'')) {
            const qsizetype end = markup.indexOf(markup[at], at + 1);
            at = end < 0 ? tag.end : std::min(end + 1, tag.end);
        }
        if (found == name)
            return {start, at - start, tag.end};
    }
    return tag;
}

} // namespace quillon::validation
