#pragma once

#include <QByteArrayView>

#include <vector>

namespace quillon::completion {

/// A piece of a text: where it begins, and behind its end. In bytes.
struct Stretch {
    qsizetype start = 0;
    qsizetype end = 0;

    bool isEmpty() const { return start == end; }
    QByteArrayView in(QByteArrayView text) const { return text.sliced(start, end - start); }
    bool operator==(const Stretch &) const = default;
};

/// What a caret stands in.
enum class Place {
    /// A comment, a CDATA section, an instruction, a document type, or deeper than anybody reads.
    Nowhere,
    /// Where text and elements may stand.
    Content,
    /// The name of a start tag.
    ElementName,
    /// Anything of an end tag.
    EndTag,
    /// The name of an attribute, or a blank in a start tag where one may begin.
    AttributeName,
    /// Between the quotes of an attribute, or behind its "=" where the first quote is to come.
    AttributeValue
};

struct TextAttribute {
    Stretch name;
    /// Without its quotes; empty and at the end of the name where there is none.
    Stretch value;
    /// 0 when the value has none.
    char quote = 0;
    bool hasEquals = false;
    bool isClosed = false;
};

/// The place of a caret in markup, which may be as wrong as markup is while it is being typed.
struct TextContext {
    Place place = Place::Nowhere;
    /// The start tags of the elements around the caret, the outermost first: from "<" to behind
    /// ">". A tag that the caret is in is none of them.
    std::vector<Stretch> open;
    /// The start tags of the elements ahead of the caret and behind it in the innermost of these.
    /// In a long text only the nearest.
    std::vector<Stretch> before;
    std::vector<Stretch> after;
    /// What a proposal replaces: the name or value that the caret stands in or at the end of.
    /// Behind the caret nothing of it where the tag has no end, as that may be text; empty at the
    /// caret where a name or value is to be put.
    Stretch word;
    /// In content: the text between the markup on either side.
    Stretch run;
    /// The start tag that the caret is in, as far as it goes; it has an end if `isTagClosed` says
    /// so.
    Stretch tag;
    bool isTagClosed = false;
    /// The end tag that belongs to that start tag; empty for none.
    Stretch endTag;
    /// The name and the value that the caret is in, for a value.
    TextAttribute attribute;
};

/// The name behind the "<" or "</" of a tag.
Stretch tagName(QByteArrayView text, const Stretch &tag);

/// The end tag of the element that a start tag opens, if it is in so many bytes behind that; empty
/// for none. Elements in it may lack theirs.
Stretch endTagOf(QByteArrayView text, const Stretch &startTag, qsizetype lookAhead);

/// The attributes of a start tag, as far as they can be made out.
std::vector<TextAttribute> tagAttributes(QByteArrayView text, const Stretch &tag);

/// Finds the places of carets in one text. It remembers what lies ahead, so that asking again
/// behind a change costs time for what is near the caret only, however long the text is.
class TextContexts {
public:
    /// The text is another one from here on, in bytes.
    void textChanged(qsizetype from);

    /// `caret` in bytes. The text is the one that was given last but for changes that were told.
    TextContext at(QByteArrayView text, qsizetype caret);

private:
    /// An element that is open, in `opened_`.
    struct Opened {
        Stretch tag;
        Stretch name;
        /// The element around it, in `opened_`; -1 for none.
        qint32 parent = -1;
        qint32 depth = 0;
    };
    /// What is known between two pieces of markup.
    struct Mark {
        qsizetype at = 0;
        /// In `opened_`; -1 for none.
        qint32 innermost = -1;
        qint32 openedCount = 0;
    };

    /// An element met on the way, to be forgotten when the one around it ends.
    struct Met {
        Stretch tag;
        qint32 depth = 0;
    };

    Mark startFor(qsizetype caret) const;
    qint32 depthOf(const Mark &mark) const;
    /// Goes over markup that begins and ends ahead of the caret, and returns where that is.
    Mark advance(QByteArrayView text, Mark from, qsizetype caret, std::vector<Met> &met);
    void open(Mark &mark, const Stretch &tag, const Stretch &name);
    void close(Mark &mark, QByteArrayView text, const Stretch &endTag);
    std::vector<Stretch> openAt(const Mark &mark) const;

    std::vector<Opened> opened_;
    std::vector<Mark> marks_;
};

} // namespace quillon::completion
