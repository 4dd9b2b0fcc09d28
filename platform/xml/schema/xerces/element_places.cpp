#include "platform/xml/schema/xerces/element_places.h"

#include <algorithm>
#include <string_view>

namespace quillon::xml {

namespace {

/// Goes from one start tag of a well-formed text to the next, and counts lines.
class StartTags {
public:
    explicit StartTags(std::string_view text) : text_(text) {}

    /// Goes to the next one; false when there is none.
    bool next() {
        while (true) {
            tag_ = text_.find('<', end_);
            if (tag_ == std::string_view::npos)
                return false;
            const std::string_view rest = text_.substr(tag_);
            if (rest.starts_with("<!--")) {
                skipTo("-->", 4);
            } else if (rest.starts_with("<![CDATA[")) {
                skipTo("]]>", 9);
            } else if (rest.starts_with("<?")) {
                skipTo("?>", 2);
            } else if (rest.starts_with("<!")) {
                skipDocumentType();
            } else if (rest.starts_with("</")) {
                skipTo(">", 2);
            } else {
                skipTag();
                return true;
            }
        }
    }

    /// Of the start tag, 1-based. Columns count characters.
    void place(int &line, int &column) {
        for (; counted_ < tag_; ++counted_) {
            const char c = text_[counted_];
            if (c == '\n' || (c == '\r' && text_.substr(counted_ + 1, 1) != "\n")) {
                ++line_;
                column_ = 1;
            } else if ((c & 0xC0) != 0x80) {
                ++column_;
            }
        }
        line = line_;
        column = column_;
    }

private:
    void skipTo(std::string_view mark, std::size_t from) {
        const std::size_t found = text_.find(mark, tag_ + from);
        end_ = found == std::string_view::npos ? text_.size() : found + mark.size();
    }

    /// Values may hold ">".
    void skipTag() {
        end_ = text_.find_first_of(">\"'", tag_);
        while (end_ != std::string_view::npos && text_[end_] != '>')
            end_ = text_.find_first_of(">\"'", text_.find(text_[end_], end_ + 1) + 1);
        end_ = end_ == std::string_view::npos ? text_.size() : end_ + 1;
    }

    void skipDocumentType() {
        int brackets = 0;
        for (end_ = tag_ + 2; end_ < text_.size(); ++end_) {
            const char c = text_[end_];
            if (c == '"' || c == '\'') {
                end_ = text_.find(c, end_ + 1);
            } else if (text_.substr(end_).starts_with("<!--")) {
                end_ = text_.find("-->", end_ + 4);
            } else if (text_.substr(end_).starts_with("<?")) {
                end_ = text_.find("?>", end_ + 2);
            } else if (c == '[') {
                ++brackets;
            } else if (c == ']') {
                --brackets;
            } else if (c == '>' && brackets == 0) {
                ++end_;
                return;
            }
            if (end_ == std::string_view::npos)
                break;
        }
        end_ = text_.size();
    }

    std::string_view text_;
    std::size_t tag_ = 0;
    std::size_t end_ = 0;
    std::size_t counted_ = 0;
    int line_ = 1;
    int column_ = 1;
};

} // namespace

void setPlaces(std::vector<SchemaError> &errors, const DOMDocument40 &document,
               const QByteArray &text) {
    std::vector<Node> nodes;
    for (const SchemaError &error : errors)
        nodes.push_back(error.node);
    const std::vector<qint64> positions = positionsOf(document, nodes);
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < errors.size(); ++i) {
        if (positions[i] >= 0)
            order.push_back(i);
    }
    std::ranges::sort(order, {}, [&](std::size_t i) { return positions[i]; });
    StartTags tags(std::string_view(text.constData(), std::size_t(text.size())));
    qint64 position = -1;
    for (const std::size_t i : order) {
        while (position < positions[i] && tags.next())
            ++position;
        if (position == positions[i])
            tags.place(errors[i].line, errors[i].column);
    }
}

} // namespace quillon::xml
