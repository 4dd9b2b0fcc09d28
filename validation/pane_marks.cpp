#include "validation/pane_marks.h"

#include "platform/ui/error_boundary.h"
#include "platform/xml/query/xpath.h"
#include "validation/tag_places.h"

#include <algorithm>
#include <map>

namespace quillon::validation {

using ui::TextMark;
using xml::Node;
using xml::NodeType;

namespace {

/// In longer texts nobody looks for marks, and finding the places would take its time.
constexpr qsizetype LongestText = 2'000'000;
constexpr std::size_t MostMarks = 2'000;

/// Where a fault is to be seen: the start tag of an element, or one attribute in it.
struct Spot {
    quint32 element = 0;
    QByteArray attribute;
};

Spot spotOf(const Node &node) {
    if (node.nodeType() == NodeType::Attribute)
        return {xml::ownerElement(node).number(), node.nodeName().toUtf8()};
    const Node element = node.nodeType() == NodeType::Element ? node : node.parentNode();
    return {element.number(), {}};
}

bool isBelow(Node node, const Node &top) {
    if (node.nodeType() == NodeType::Attribute)
        node = xml::ownerElement(node);
    while (node && !(node == top))
        node = node.parentNode();
    return !node.isNull();
}

/// The 0-based numbers of some elements in the order of the markup of a node.
class Counter final : public xml::NodeVisitor {
public:
    explicit Counter(std::map<quint32, quint32> &wanted) : wanted_(wanted) {}

    void enter(quint32 number, NodeType kind) override {
        if (kind != NodeType::Element)
            return;
        if (const auto found = wanted_.find(number); found != wanted_.end())
            found->second = count_;
        ++count_;
    }
    void leave() override {}

private:
    std::map<quint32, quint32> &wanted_;
    quint32 count_ = 0;
};

} // namespace

PaneMarks::PaneMarks(const LiveValidation &live, const PaneSyntax &syntax,
                     const state::DocumentState &state, const tree::Selection &selection,
                     const tree::PaneContent &pane)
    : live_(live), syntax_(syntax), state_(state), selection_(selection), pane_(pane) {
    soon_.setSingleShot(true);
    connect(&soon_, &QTimer::timeout, this, [this] { ui::guarded([this] { mark(); }); });
}

void PaneMarks::mark() {
    // Till the text has been looked at, the mark moves with what it is on.
    if (syntax_.isChecking())
        return;
    const Node shown = selection_.GetSelectedDOMNode();
    std::vector<TextMark> marks;
    if (const std::optional<TextMark> broken = syntax_.mark(shown.number()))
        marks.push_back(*broken);
    else if (shown && !selection_.hasUnparsedText())
        marks = shown.nodeType() == NodeType::Element || shown.nodeType() == NodeType::Document
                    ? marksInMarkup(shown)
                    : marksOfValue(shown);
    if (hasMarks_ || !marks.empty())
        pane_.textBox().setMarks(marks);
    hasMarks_ = !marks.empty();
}

std::vector<TextMark> PaneMarks::marksOfValue(const Node &shown) const {
    std::vector<TextMark> marks;
    for (const std::size_t at : live_.faultsAt(shown.number()))
        marks.push_back(
            {0, pane_.textBox().utf8().size(), shown.number(), false, live_.faults()[at].sentence});
    return marks;
}

std::vector<TextMark> PaneMarks::marksInMarkup(const Node &shown) const {
    std::vector<std::pair<Spot, const Fault *>> spots;
    std::map<quint32, quint32> numbers;
    for (const Fault &fault : live_.faults()) {
        const Node node = state_.m_DOM.nodeByNumber(fault.node);
        if (fault.kind == FaultKind::Syntax || !isBelow(node, shown))
            continue;
        spots.emplace_back(spotOf(node), &fault);
        numbers.emplace(spots.back().first.element, 0);
        if (spots.size() == MostMarks)
            break;
    }
    if (spots.empty())
        return {};
    const QByteArray text = pane_.textBox().utf8();
    if (text.size() > LongestText)
        return {};
    Counter counter(numbers);
    xml::visitSubtree(shown, counter);
    std::vector<quint32> wanted;
    for (const auto &[element, number] : numbers)
        wanted.push_back(number);
    std::ranges::sort(wanted);
    const std::vector<TagPlace> places = tagPlaces(text, wanted);
    std::vector<TextMark> marks;
    for (const auto &[spot, fault] : spots) {
        const auto at = std::ranges::lower_bound(wanted, numbers[spot.element]) - wanted.begin();
        if (at >= std::ssize(places))
            continue;
        const TagPlace &tag = places[std::size_t(at)];
        const TagPlace place =
            spot.attribute.isEmpty() ? tag : attributePlace(text, tag, spot.attribute);
        marks.push_back({place.at, place.length, fault->node, false, fault->sentence});
    }
    return marks;
}

} // namespace quillon::validation
