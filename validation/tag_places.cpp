#include "validation/tag_places.h"

#include <algorithm>

namespace quillon::validation {

namespace {

bool isSpace(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

bool endsName(char c) {
    return isSpace(c) || c == '=' || c == '>' || c == '/' || c == '<' || c == '"' || c == '\'';
}

/// Goes through markup from one start tag to the next.
class TagScanner {
public:
    explicit TagScanner(QByteArrayView markup) : markup_(markup) {}

    /// False at the end.
    bool next(TagPlace &tag) {
        while ((at_ = markup_.indexOf('<', at_)) >= 0) {
            const QByteArrayView rest = markup_.sliced(at_);
            if (rest.startsWith("<!--"))
                skipBehind("-->");
            else if (rest.startsWith("<![CDATA["))
                skipBehind("]]>");
            else if (rest.startsWith("<?"))
                skipBehind("?>");
            else if (rest.startsWith("<!"))
                skipDeclaration();
            else if (rest.startsWith("</"))
                skipBehind(">");
            else
                return readTag(tag);
        }
        return false;
    }

private:
    void skipBehind(QByteArrayView end) {
        const qsizetype found = markup_.indexOf(end, at_);
        at_ = found < 0 ? markup_.size() : found + end.size();
    }

    /// A document type with what stands between its brackets, where '>' and quotation marks may be.
    void skipDeclaration() {
        int depth = 0;
        for (++at_; at_ < markup_.size(); ++at_) {
            const char c = markup_[at_];
            if (c == '"' || c == '\'') {
                const qsizetype end = markup_.indexOf(c, at_ + 1);
                at_ = end < 0 ? markup_.size() : end;
            } else if (markup_.sliced(at_).startsWith("<!--")) {
                skipBehind("-->");
                --at_;
            } else if (c == '[' || c == '<') {
                ++depth;
            } else if (c == ']') {
                --depth;
            } else if (c == '>' && depth-- == 0) {
                ++at_;
                return;
            }
        }
    }

    bool readTag(TagPlace &tag) {
        tag.at = ++at_;
        while (at_ < markup_.size() && !endsName(markup_[at_]))
            ++at_;
        tag.length = at_ - tag.at;
        char quote = 0;
        for (; at_ < markup_.size(); ++at_) {
            const char c = markup_[at_];
            if (quote != 0)
                quote = c == quote ? 0 : quote;
            else if (c == '"' || c == '\'')
                quote = c;
            else if (c == '>')
                break;
        }
        at_ = std::min(at_ + 1, markup_.size());
        tag.end = at_;
        return true;
    }

    QByteArrayView markup_;
    qsizetype at_ = 0;
};

} // namespace

std::vector<TagPlace> tagPlaces(QByteArrayView markup, const std::vector<quint32> &wanted) {
    std::vector<TagPlace> places;
    places.reserve(wanted.size());
    TagScanner scanner(markup);
    TagPlace tag;
    for (quint32 number = 0; places.size() < wanted.size() && scanner.next(tag); ++number) {
        if (number == wanted[places.size()])
            places.push_back(tag);
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
        while (at < tag.end && (isSpace(markup[at]) || markup[at] == '='))
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
