#include "validation/mending.h"

#include "resources/live_texts.h"

#include <algorithm>

namespace quillon::validation {

namespace texts = resources::live_texts;
using candidates::Position;
using xml::Node;

Mending::Mending(const state::DocumentState &state, const state::ViewOptions &options,
                 candidates::CandidateFinder &finder, candidates::CandidateInsertion &insertion,
                 search::Replacing &replacing, tree::NodeRemoval &removal,
                 tree::TreeBuilder &builder, tree::Selection &selection)
    : state_(state), options_(options), mends_(finder), insertion_(insertion),
      replacing_(replacing), removal_(removal), builder_(builder), selection_(selection) {}

std::vector<Mend> Mending::mendsAt(const Node &node) {
    return state_.m_ReadOnly ? std::vector<Mend>() : mends_.at(node, options_.viewLock);
}

void Mending::mend(const Mend &mend) {
    if (!selection_.mayLeavePane())
        return;
    // A mend is found at the node that has the fault, which is the node itself, or what it is in.
    const Node node = state_.m_DOM ? state_.m_DOM.nodeByNumber(mend.node) : Node();
    const std::vector<Mend> present = mendsAt(node);
    const bool isPresent = std::ranges::find(present, mend) != present.end();
    const bool isDone = isPresent && carryOut(mend, node);
    const QStringView text = isDone ? texts::Mended : texts::Outdated;
    Q_EMIT statusText(isDone ? text.toString().arg(mend.caption) : text.toString());
}

bool Mending::carryOut(const Mend &mend, const Node &node) {
    const items::TreeItem item = builder_.itemOf(node);
    if (!item)
        return false;
    switch (mend.action) {
    case Mend::Action::InsertElements:
        selection_.ShowNode(item, true);
        return insertion_.insertElements(mend.entries,
                                         mend.isAtEnd ? Position::LastChild : Position::Ahead);
    case Mend::Action::AddAttribute:
        selection_.ShowNode(item, true);
        return insertion_.addAttribute(mend.entries.front());
    case Mend::Action::Rename:
        return replace({node.number(), search::Part::Name, 0, quint32(node.nodeName().size())},
                       mend.text);
    case Mend::Action::SetValue:
        return replace({node.number(), search::Part::Value, 0, quint32(node.nodeValue().size())},
                       mend.text);
    case Mend::Action::Remove:
        removal_.DeleteNode(item);
        return true;
    }
    return false;
}

bool Mending::replace(const search::Hit &hit, const QString &text) {
    std::vector<search::Change> changes{{text}};
    return replacing_.replace({hit}, changes, {}).made == 1;
}

} // namespace quillon::validation
