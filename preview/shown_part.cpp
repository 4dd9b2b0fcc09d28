#include "preview/shown_part.h"

#include "resources/texts.h"

#include <QLocale>

#include <utility>

namespace quillon::preview {

using xml::ChildRun;
using xml::Node;
using xml::NodeType;
using Kind = ChildRun::Kind;

namespace {

/// What is taken at a time: several screens of lines, which are there in a moment.
constexpr int Budget = 500;
/// So many bytes of a value count as one node.
constexpr qsizetype BytesOfNode = 200;
/// A gap of no more nodes than this is closed, with what so many nodes may have below them.
constexpr quint32 ShortGap = 10;
constexpr int GapBudget = 50;

int weightOf(const Node &node) {
    return 1 + int(std::min(node.nodeValue().size() / BytesOfNode, qsizetype(Budget)));
}

/// Text of an element must not end half-way: where there is nothing else, it stands on one line.
/// Nor are a few last nodes worth a line in their place.
bool goesWithThoseAhead(const Node &node) {
    if (node.nodeType() == NodeType::Text || node.nodeType() == NodeType::EntityReference)
        return true;
    quint32 left = 1;
    for (Node next = node.nextSibling(); next && left <= ShortGap; next = next.nextSibling())
        ++left;
    return left <= ShortGap;
}

} // namespace

int depthOf(const Node &node) {
    int depth = 0;
    for (Node above = node.parentNode(); above; above = above.parentNode())
        ++depth;
    return depth;
}

ShownPart ShownPart::around(const Node &node) {
    ShownPart part;
    part.shown_.insert(node.number());
    part.budget_ = Budget;
    part.takeBelow(node);
    part.budget_ = Budget;
    for (Node at = node, parent = at.parentNode(); parent;
         at = std::exchange(parent, parent.parentNode())) {
        part.shown_.insert(parent.number());
        part.takeSiblings(at);
    }
    return part;
}

QDataStream &operator<<(QDataStream &stream, const ShownPart &part) {
    for (const std::unordered_set<quint32> *numbers : {&part.shown_, &part.partial_})
        stream << QList<quint32>(numbers->begin(), numbers->end());
    return stream;
}

QDataStream &operator>>(QDataStream &stream, ShownPart &part) {
    for (std::unordered_set<quint32> *numbers : {&part.shown_, &part.partial_}) {
        QList<quint32> read;
        stream >> read;
        *numbers = {read.begin(), read.end()};
    }
    return stream;
}

bool ShownPart::shows(const Node &node) const {
    return shown_.contains(node.number());
}

void ShownPart::take(const Node &node) {
    shown_.insert(node.number());
    budget_ -= weightOf(node);
    takeBelow(node);
}

void ShownPart::takeBelow(const Node &top) {
    int depth = depthOf(top) + 1;
    const auto mayTake = [&](const Node &node) {
        if (depth > DeepestShown)
            return false;
        return budget_ > 0 || (budget_ > -Budget && goesWithThoseAhead(node));
    };
    Node parent = top;
    Node next = top.firstChild();
    while (true) {
        if (next && mayTake(next)) {
            shown_.insert(next.number());
            budget_ -= weightOf(next);
            parent = std::exchange(next, next.firstChild());
            ++depth;
            continue;
        }
        if (next)
            partial_.insert(parent.number());
        if (parent == top)
            return;
        next = parent.nextSibling();
        parent = parent.parentNode();
        --depth;
    }
}

void ShownPart::takeSiblings(const Node &node) {
    Node before = node.previousSibling();
    Node behind = node.nextSibling();
    while (budget_ > 0 && (before || behind)) {
        if (behind) {
            take(behind);
            behind = behind.nextSibling();
        }
        if (before && budget_ > 0) {
            take(before);
            before = before.previousSibling();
        }
    }
    if (!before && !behind)
        return;
    const Node parent = node.parentNode();
    partial_.insert(parent.number());
    closeGaps(parent);
}

void ShownPart::takeFrom(const Node &first, End end) {
    Node at = first;
    if (end == End::Last) {
        for (Node next = at.nextSibling(); next && !shows(next); next = next.nextSibling())
            at = next;
    }
    budget_ = Budget;
    do {
        take(at);
        at = end == End::First ? at.nextSibling() : at.previousSibling();
    } while (at && !shows(at) && budget_ > 0);
}

void ShownPart::closeGaps(const Node &parent) {
    std::vector<Node> gap;
    quint32 length = 0;
    bool isPartial = false;
    const auto endGap = [&] {
        isPartial |= length > ShortGap;
        budget_ = GapBudget;
        for (const Node &node : gap)
            take(node);
        gap.clear();
        length = 0;
    };
    for (Node child = parent.firstChild(); child; child = child.nextSibling()) {
        if (shows(child))
            endGap();
        else if (++length <= ShortGap)
            gap.push_back(child);
        else
            gap.clear();
    }
    endGap();
    if (!isPartial)
        partial_.erase(parent.number());
}

Kind ShownPart::kindOf(const Node &parent, const Node &child) const {
    return partial_.contains(parent.number()) && !shows(child) ? Kind::LeftOut : Kind::Shown;
}

std::vector<ChildRun> ShownPart::runsOf(const Node &parent, const KindOf &kindOf) {
    std::vector<ChildRun> runs;
    for (Node child = parent.firstChild(); child; child = child.nextSibling()) {
        const Kind kind = kindOf(child);
        if (runs.empty() || runs.back().kind != kind)
            runs.push_back({kind, child.number()});
        runs.back().last = child.number();
        ++runs.back().count;
    }
    for (ChildRun &run : runs) {
        if (run.kind == Kind::LeftOut)
            run.label =
                resources::texts::LeftOutNodes.toString().arg(QLocale().toString(run.count));
    }
    return runs;
}

xml::DocumentPart ShownPart::runs(const xml::DOMDocument40 &document) const {
    xml::DocumentPart runs;
    for (const quint32 number : partial_) {
        const Node parent = document.nodeByNumber(number);
        runs[number] = runsOf(parent, [&](const Node &child) { return kindOf(parent, child); });
    }
    return runs;
}

bool ShownPart::leavesOut(const Node &first) const {
    const Node ahead = first.previousSibling();
    return partial_.contains(first.parentNode().number()) && !shows(first) &&
           (!ahead || shows(ahead));
}

xml::DocumentPart ShownPart::extend(const Node &first, End end) {
    if (depthOf(first) > DeepestShown)
        return {};
    const Node parent = first.parentNode();
    const ShownPart before = *this;
    takeFrom(first, end);
    closeGaps(parent);
    xml::DocumentPart added = runs(first.ownerDocument());
    for (Node at = parent, way; at; way = std::exchange(at, at.parentNode())) {
        added[at.number()] = runsOf(at, [&](const Node &child) {
            const Kind kind = kindOf(at, child);
            return kind == Kind::Shown && !(child == way) && before.shows(child) ? Kind::Kept
                                                                                 : kind;
        });
    }
    return added;
}

void ShownPart::follow(const xml::DOMDocument40 &document) {
    const ShownPart before = std::exchange(*this, ShownPart());
    std::vector<Node> open = {document.node()};
    while (!open.empty()) {
        const Node parent = std::exchange(open.back(), Node());
        open.pop_back();
        shown_.insert(parent.number());
        const bool wasPartial = before.partial_.contains(parent.number());
        budget_ = Budget;
        for (Node child = parent.firstChild(); child; child = child.nextSibling()) {
            if (before.shows(child))
                open.push_back(child);
            else if (!wasPartial && budget_ > 0)
                take(child);
            else
                partial_.insert(parent.number());
        }
        if (!wasPartial || !partial_.contains(parent.number()))
            continue;
        // Those that were shown count, though their turn is still to come.
        for (Node child = parent.firstChild(); child; child = child.nextSibling()) {
            if (before.shows(child))
                shown_.insert(child.number());
        }
        closeGaps(parent);
    }
}

} // namespace quillon::preview
