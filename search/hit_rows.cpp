#include "search/hit_rows.h"

#include "platform/xml/query/xpath.h"
#include "resources/hit_texts.h"
#include "tree/node_captions.h"

#include <QStringList>

#include <algorithm>

namespace quillon::search {

namespace texts = resources::hit_texts;
using xml::Node;
using xml::NodeType;

namespace {

/// So much of a text is shown, and so much of it ahead of the hit.
constexpr qsizetype ShownLength = 240;
constexpr qsizetype ShownAhead = 40;
/// So many steps of a path are shown.
constexpr int ShownSteps = 24;
/// An element's text is looked for in so many nodes.
constexpr int ElementNodes = 200;
/// So many places are remembered.
constexpr qsizetype MostPlaces = 10'000;

constexpr QChar CutMark = u'…';
constexpr QChar LineBreakMark = u'↵';

QString kindOf(const Node &node) {
    switch (node.nodeType()) {
    case NodeType::Element:
        return texts::Element.toString();
    case NodeType::Attribute:
        return texts::Attribute.toString();
    case NodeType::Text:
        return texts::TextNode.toString();
    case NodeType::CDATASection:
        return texts::CDataSection.toString();
    case NodeType::EntityReference:
        return texts::EntityReference.toString();
    case NodeType::ProcessingInstruction:
        return texts::Instruction.toString();
    case NodeType::Comment:
        return texts::Comment.toString();
    case NodeType::Document:
        return texts::Document.toString();
    case NodeType::DocumentType:
        return texts::DocumentType.toString();
    default:
        return {};
    }
}

/// Three pieces of text in a row, of which the middle one is the hit.
struct Pieces {
    QString ahead;
    QString hit;
    QString behind;
};

/// Puts text in one line: runs of white space become one blank. What of the hit is a line break is
/// to be seen.
class Line {
public:
    void addAround(QStringView text) {
        for (const QChar c : text) {
            if (!c.isSpace())
                line_ += c;
            else if (!line_.isEmpty() && line_.back() != u' ')
                line_ += u' ';
        }
    }
    void addHit(QStringView text) {
        for (const QChar c : text)
            line_ += c == u'\n' ? LineBreakMark : c.isSpace() ? QChar(u' ') : c;
    }
    void addCut() { line_ += CutMark; }
    qsizetype length() const { return line_.size(); }
    const QString &text() const { return line_; }

private:
    QString line_;
};

/// The part of a text that starts no later than `at` and not within a character of two units.
QStringView from(QStringView text, qsizetype at) {
    at = std::clamp<qsizetype>(at, 0, text.size());
    if (at > 0 && at < text.size() && text[at].isLowSurrogate())
        --at;
    return text.sliced(at);
}

QStringView upTo(QStringView text, qsizetype at) {
    at = std::clamp<qsizetype>(at, 0, text.size());
    if (at > 0 && at < text.size() && text[at].isLowSurrogate())
        ++at;
    return text.first(at);
}

struct Excerpt {
    QString text;
    Span mark;
};

Excerpt excerptOf(const Pieces &pieces) {
    Line line;
    const QStringView ahead = from(pieces.ahead, pieces.ahead.size() - ShownAhead);
    if (ahead.size() < pieces.ahead.size())
        line.addCut();
    line.addAround(ahead);
    Excerpt excerpt;
    excerpt.mark.at = line.length();
    const QStringView hit = upTo(pieces.hit, ShownLength);
    line.addHit(hit);
    excerpt.mark.length = line.length() - excerpt.mark.at;
    const QStringView behind = upTo(pieces.behind, ShownLength - hit.size());
    line.addAround(behind);
    if (hit.size() + behind.size() < pieces.hit.size() + pieces.behind.size())
        line.addCut();
    excerpt.text = line.text();
    return excerpt;
}

/// The attributes of an element as they could stand in its tag, as many as are of use.
QString attributesOf(const Node &element) {
    QString text;
    if (element.nodeType() != NodeType::Element)
        return text;
    for (const Node &attribute : element.attributes().all()) {
        if (text.size() > ShownLength)
            break;
        text += u' ' + tree::attributeCaption(attribute.nodeName(), attribute.nodeValue());
    }
    return text;
}

/// The start of the text in an element, without going through all that is in it.
QString startOfText(const Node &top) {
    QString text;
    Node node = top.firstChild();
    for (int left = ElementNodes; node && left > 0 && text.size() <= ShownLength; --left) {
        if (node.nodeType() == NodeType::Text || node.nodeType() == NodeType::CDATASection)
            text += u' ' + node.nodeValue();
        if (node.hasChildNodes()) {
            node = node.firstChild();
            continue;
        }
        while (node && !(node == top) && !node.nextSibling())
            node = node.parentNode();
        node = node == top ? Node() : node.nextSibling();
    }
    return text;
}

QString wholeText(const Node &node) {
    switch (node.nodeType()) {
    case NodeType::Element:
        return u'<' + node.nodeName() + attributesOf(node) + u'>' + startOfText(node);
    case NodeType::Attribute:
        return tree::attributeCaption(node.nodeName(), node.nodeValue());
    case NodeType::ProcessingInstruction:
        return node.nodeName() + u' ' + node.nodeValue();
    case NodeType::Text:
    case NodeType::CDATASection:
    case NodeType::Comment:
        return node.nodeValue();
    default:
        return node.nodeName();
    }
}

Pieces piecesOf(const Node &node, const Hit &hit) {
    if (hit.part == Part::Node)
        return {{}, {}, wholeText(node)};
    const QString text = hit.part == Part::Name ? node.nodeName() : node.nodeValue();
    // What the document has become since need not be as long any more.
    const qsizetype at = std::min<qsizetype>(hit.at, text.size());
    const qsizetype length = std::min<qsizetype>(hit.length, text.size() - at);
    Pieces pieces{text.first(at), text.sliced(at, length), text.sliced(at + length)};
    const bool isAttribute = node.nodeType() == NodeType::Attribute;
    if (hit.part == Part::Value && isAttribute) {
        pieces.ahead.prepend(node.nodeName() + QStringLiteral("=\""));
        pieces.behind += u'"';
    } else if (hit.part == Part::Name && isAttribute) {
        pieces.behind += QStringLiteral("=\"%1\"").arg(node.nodeValue());
    } else if (hit.part == Part::Name) {
        pieces.behind += attributesOf(node);
    }
    return pieces;
}

Node parentOf(const Node &node) {
    return node.nodeType() == NodeType::Attribute ? xml::ownerElement(node) : node.parentNode();
}

} // namespace

QString stepTo(const Node &node) {
    switch (node.nodeType()) {
    case NodeType::Element:
        return node.nodeName();
    case NodeType::Attribute:
        return u'@' + node.nodeName();
    case NodeType::Text:
    case NodeType::CDATASection:
    case NodeType::EntityReference:
        return QStringLiteral("text()");
    case NodeType::Comment:
        return QStringLiteral("comment()");
    case NodeType::ProcessingInstruction:
        return QStringLiteral("processing-instruction('%1')").arg(node.nodeName());
    case NodeType::DocumentType:
        return QStringLiteral("!DOCTYPE");
    default:
        return {};
    }
}

HitRow HitRowReader::read(const Node &node, const Hit &hit, const Change *change) const {
    HitRow row;
    if (!node)
        return row;
    row.kind = kindOf(node);
    row.image = tree::imageKeyOf(node);
    row.path = path(node);
    Pieces pieces = piecesOf(node, hit);
    const Excerpt before = excerptOf(pieces);
    row.text = before.text;
    row.mark = before.mark;
    if (change) {
        pieces.hit = change->after;
        const Excerpt after = excerptOf(pieces);
        row.after = after.text;
        row.afterMark = after.mark;
        row.obstacle = change->obstacle;
    }
    return row;
}

QString HitRowReader::text(const Node &node, const Hit &hit) const {
    return node ? excerptOf(piecesOf(node, hit)).text : QString();
}

QString HitRowReader::after(const Node &node, const Hit &hit, const Change &change) const {
    if (!node)
        return {};
    Pieces pieces = piecesOf(node, hit);
    pieces.hit = change.after;
    return excerptOf(pieces).text;
}

QString HitRowReader::path(const Node &node) const {
    if (node.nodeType() == NodeType::Document)
        return QStringLiteral("/");
    QStringList steps;
    Node at = node;
    while (at && at.nodeType() != NodeType::Document && steps.size() < ShownSteps) {
        const Node parent = parentOf(at);
        steps.prepend(placedStep(at, parent));
        at = parent;
    }
    const bool isWhole = !at || at.nodeType() == NodeType::Document;
    return (isWhole ? QString() : QString(CutMark)) + u'/' + steps.join(u'/');
}

QString HitRowReader::placedStep(const Node &node, const Node &parent) const {
    const QString step = stepTo(node);
    if (node.nodeType() == NodeType::Attribute || !parent)
        return step;
    const int place = placeOf(node, parent, step);
    if (place == 1 && !isFollowed(node, step))
        return step;
    return step + u'[' + QString::number(place) + u']';
}

int HitRowReader::placeOf(const Node &node, const Node &parent, const QString &step) const {
    if (places_.size() > MostPlaces)
        places_.clear();
    Place &known = places_[{parent.number(), step}];
    if (known.node == node)
        return known.number;
    // Towards the first sibling from here and from the place known, whichever comes first to
    // something of use.
    Node behind = known.node;
    int betweenKnown = 0;
    int number = 1;
    for (Node at = node.previousSibling(); at; at = at.previousSibling()) {
        if (at == known.node) {
            number += known.number;
            break;
        }
        if (stepTo(at) == step)
            ++number;
        do
            behind = behind.previousSibling();
        while (behind && stepTo(behind) != step);
        betweenKnown += behind ? 1 : 0;
        if (behind == node) {
            number = known.number - betweenKnown;
            break;
        }
    }
    known = {node, number};
    return number;
}

bool HitRowReader::isFollowed(const Node &node, const QString &step) const {
    if (followed_.size() > MostPlaces)
        followed_.clear();
    const auto known = followed_.constFind(node.number());
    if (known != followed_.constEnd())
        return *known;
    Node next = node.nextSibling();
    while (next && stepTo(next) != step)
        next = next.nextSibling();
    return *followed_.insert(node.number(), !next.isNull());
}

} // namespace quillon::search
