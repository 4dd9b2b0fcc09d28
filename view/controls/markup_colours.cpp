#include "view/controls/markup_colours.h"

#include <algorithm>
#include <array>

namespace quillon::controls {

namespace {

/// No reference is longer.
constexpr qsizetype MostOfReference = 64;

/// Markup that ends with certain characters only, whatever stands in it.
struct Enclosed {
    QByteArrayView start;
    QByteArrayView end;
    Colour colour;
};

constexpr std::array Enclosures{
    Enclosed{"<!--", "-->", Colour::CommentInk},
    Enclosed{"<![CDATA[", "]]>", Colour::CDataInk},
    Enclosed{"<?", "?>", Colour::InstructionInk},
};

bool isBlank(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

/// Where the markup begins, or ends at the latest, that a place stands in.
qsizetype aheadOf(QByteArrayView text, qsizetype place) {
    const QByteArrayView ahead = text.first(place);
    qsizetype start = std::max<qsizetype>(ahead.lastIndexOf('<'), 0);
    for (const Enclosed &enclosed : Enclosures) {
        const qsizetype opened = ahead.lastIndexOf(enclosed.start);
        if (opened >= 0 && ahead.sliced(opened).indexOf(enclosed.end) < 0)
            start = std::min(start, opened);
    }
    return start;
}

class Scanner {
public:
    Scanner(QByteArrayView text, qsizetype from, qsizetype to)
        : text_(text.first(to)), from_(from), at_(aheadOf(text_, from)) {}

    std::vector<ColouredStretch> scan() {
        while (at_ < text_.size()) {
            if (text_[at_] == '<')
                markup();
            else if (text_[at_] == '&')
                reference();
            else
                ++at_;
        }
        return std::move(found_);
    }

private:
    void colourTo(qsizetype end, Colour colour) {
        const qsizetype start = std::max(at_, from_);
        if (start < end)
            found_.push_back({start, end - start, colour});
        at_ = end;
    }

    /// Behind the next of some characters; the end of the text where there is none.
    qsizetype behind(QByteArrayView end) const {
        const qsizetype found = text_.indexOf(end, at_);
        return found < 0 ? text_.size() : found + end.size();
    }

    template <typename Condition>
    qsizetype endOf(qsizetype at, Condition &&goesOn) const {
        while (at < text_.size() && goesOn(text_[at]))
            ++at;
        return at;
    }

    void markup() {
        for (const Enclosed &enclosed : Enclosures) {
            if (text_.sliced(at_).startsWith(enclosed.start))
                return colourTo(behind(enclosed.end), enclosed.colour);
        }
        if (text_.sliced(at_).startsWith("<!"))
            return colourTo(behind(">"), Colour::InstructionInk);
        const auto isInName = [](char c) { return !isBlank(c) && c != '>' && c != '<'; };
        colourTo(endOf(at_ + 1, isInName), Colour::TagInk);
        restOfTag();
    }

    void restOfTag() {
        while (at_ < text_.size() && text_[at_] != '<') {
            const char c = text_[at_];
            if (c == '"' || c == '\'') {
                const qsizetype end = text_.indexOf(c, at_ + 1);
                colourTo(end < 0 ? text_.size() : end + 1, Colour::StringInk);
            } else if (c == '>') {
                return colourTo(at_ + 1, Colour::TagInk);
            } else if (c == '/' || c == '=') {
                colourTo(at_ + 1, Colour::TagInk);
            } else if (isBlank(c)) {
                ++at_;
            } else {
                const auto isInName = [](char in) {
                    return !isBlank(in) && QByteArrayView("=<>\"'/").indexOf(in) < 0;
                };
                colourTo(endOf(at_, isInName), Colour::AttributeInk);
            }
        }
    }

    void reference() {
        const auto isInReference = [](char c) {
            return !isBlank(c) && QByteArrayView("<>&;").indexOf(c) < 0;
        };
        const qsizetype end = endOf(at_ + 1, isInReference);
        if (end < text_.size() && text_[end] == ';' && end - at_ < MostOfReference)
            colourTo(end + 1, Colour::EntityInk);
        else
            ++at_;
    }

    QByteArrayView text_;
    const qsizetype from_;
    qsizetype at_;
    std::vector<ColouredStretch> found_;
};

} // namespace

std::vector<ColouredStretch> markupColours(QByteArrayView text, qsizetype from, qsizetype to) {
    return Scanner(text, from, to).scan();
}

} // namespace quillon::controls
