#include "validation/live_validation.h"

#include "platform/ui/error_boundary.h"
#include "platform/xml/query/xpath.h"

#include <algorithm>

namespace quillon::validation {

using xml::Node;
using xml::NodeType;

namespace {

/// From the last edit to looking at it. Shorter than anybody waits, longer than quick keystrokes
/// are apart.
constexpr std::chrono::milliseconds Soon(100);
/// From there to the check of a large document, which takes its time and the processor's.
constexpr std::chrono::milliseconds Pause(900);
/// A document of so many nodes is checked in no time.
constexpr quint32 SmallDocument = 200'000;
/// A slice is not to be felt by whoever types.
constexpr std::chrono::milliseconds Slice(4);
/// So much is looked at beside typing; the rest is left to the child.
constexpr std::size_t MostChanges = 20'000;
constexpr std::size_t MostElements = 20'000;
constexpr int MostChildren = 5'000;

bool hasManyChildren(const Node &element) {
    int count = 0;
    for (Node child = element.firstChild(); child; child = child.nextSibling()) {
        if (++count > MostChildren)
            return true;
    }
    return false;
}

Node elementAround(const Node &node) {
    if (node.nodeType() == NodeType::Attribute)
        return xml::ownerElement(node);
    return node.parentNode();
}

} // namespace

LiveValidation::LiveValidation(const state::DocumentState &state) : state_(state) {
    for (QTimer *timer : {&soon_, &pause_})
        timer->setSingleShot(true);
    connect(&soon_, &QTimer::timeout, this, [this] { ui::guarded([this] { follow(); }); });
    connect(&pause_, &QTimer::timeout, this,
            [this] { ui::guarded([this] { checkWholeDocument(); }); });
    connect(&child_, &xml::BackgroundChild::finished, this, &LiveValidation::take);
    // Whoever wants to know why there is no verdict asks for one by the command.
    connect(&child_, &xml::BackgroundChild::failed, this, &LiveValidation::followed);
}

void LiveValidation::setOn(bool on) {
    if (isOn_ == on)
        return;
    isOn_ = on;
    restart();
}

void LiveValidation::setSchemas(const schemas::DocumentSchemas &schemas,
                                const QString &documentFolder) {
    const std::optional<grammar::Grammar> &grammar = schemas.grammar();
    const std::vector<schemas::SchemaLink> &links = schemas.links();
    const bool isSameGrammar = grammar && grammar_ ? &grammar->data() == &grammar_->data()
                                                   : grammar.has_value() == grammar_.has_value();
    if (isSameGrammar && links == links_)
        return;
    links_ = links;
    setSchemas(grammar, verdictBy(links, documentFolder, schemas.localCopies()));
}

void LiveValidation::setSchemas(const std::optional<grammar::Grammar> &grammar,
                                const Verdict &verdict) {
    grammar_ = grammar;
    finder_ = grammar_ ? std::make_unique<ElementFaults>(*grammar_) : nullptr;
    verdict_ = verdict;
    restart();
}

void LiveValidation::restart() {
    child_.giveUp();
    soon_.stop();
    pause_.stop();
    seen_ = {};
    noted_.clear();
    outdated_.clear();
    touched_.clear();
    found_.clear();
    faults_.clear();
    byNode_.clear();
    hasMore_ = false;
    isKnown_ = false;
    setSyntaxFault();
    if (isOn_ && state_.m_DOM)
        soon_.start(0);
    Q_EMIT faultsChanged();
}

std::vector<std::size_t> LiveValidation::faultsAt(quint32 node) const {
    if (byNode_.size() != faults_.size()) {
        byNode_.clear();
        for (std::size_t at = 0; at < faults_.size(); ++at)
            byNode_.emplace_back(faults_[at].node, at);
        std::ranges::sort(byNode_);
    }
    std::vector<std::size_t> places;
    for (auto at = std::ranges::lower_bound(byNode_, std::pair(node, std::size_t(0)));
         at != byNode_.end() && at->first == node; ++at)
        places.push_back(at->second);
    return places;
}

std::vector<Fault> LiveValidation::presentFaultsOf(const Node &element) {
    return finder_ && element.nodeType() == NodeType::Element ? finder_->of(element)
                                                              : std::vector<Fault>();
}

void LiveValidation::documentChanged() {
    // What there is to be followed is found by comparing, so a step that is missed is not lost.
    isCheckDue_ |= isChecking() || pause_.isActive();
    child_.giveUp();
    pause_.stop();
    if (isOn_)
        soon_.start(Soon);
}

void LiveValidation::syntaxFaultChanged() {
    const std::vector<Fault> before = faults_;
    setSyntaxFault();
    tellIfOther(before);
}

void LiveValidation::documentReplaced() {
    restart();
}

// ---- Following an edit

void LiveValidation::start() {
    seen_ = state_.m_DOM.clone();
    isCheckDue_ = true;
    setSyntaxFault();
    pause_.start(0);
    Q_EMIT faultsChanged();
}

void LiveValidation::follow() {
    if (!state_.m_DOM || (seen_ && !xml::haveCommonOrigin(seen_, state_.m_DOM)))
        return restart();
    if (!seen_)
        return start();
    noteChanges();
    if (lookAtSome(Slice)) {
        soon_.start(0);
        return;
    }
    finishLook();
    const bool isSmall = state_.m_DOM.maxNodeCount() <= SmallDocument;
    if (isCheckDue_)
        pause_.start(isSmall ? std::chrono::milliseconds(0) : Pause);
}

void LiveValidation::noteChanges() {
    const std::vector<quint32> changed = xml::changedNodes(seen_, state_.m_DOM, MostChanges);
    if (changed.empty())
        return;
    isCheckDue_ = true;
    const xml::DOMDocument40 before = std::exchange(seen_, state_.m_DOM.clone());
    for (const quint32 number : changed) {
        const Node node = state_.m_DOM.nodeByNumber(number);
        if (node.nodeType() != NodeType::Element) {
            touched_.insert(number);
            touched_.insert(elementAround(node).number());
            noteElement(elementAround(node));
            continue;
        }
        noteElement(node);
        noteElement(node.parentNode());
        // What it is called decides about everything below it, and so does where it stands.
        const Node old = before.nodeByNumber(number);
        const bool isOther = old.nodeType() != NodeType::Element ||
                             old.nodeName() != node.nodeName() ||
                             old.parentNode().number() != node.parentNode().number();
        if (isOther && node.parentNode())
            noteSubtree(node);
    }
}

void LiveValidation::noteElement(const Node &element) {
    if (element.nodeType() == NodeType::Element && outdated_.insert(element.number()).second)
        noted_.push_back(element.number());
}

void LiveValidation::noteSubtree(const Node &top) {
    for (Node at = top; at && noted_.size() < MostElements;) {
        if (at.nodeType() == NodeType::Element)
            touched_.insert(at.number());
        noteElement(at);
        Node next = at.firstChild();
        while (!next && at && !(at == top)) {
            next = at.nextSibling();
            at = next ? at : at.parentNode();
        }
        at = next;
    }
}

bool LiveValidation::lookAtSome(std::chrono::microseconds time) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    while (!noted_.empty()) {
        lookAt(noted_.back());
        noted_.pop_back();
        if (Clock::now() - start > time)
            return !noted_.empty();
    }
    return false;
}

void LiveValidation::lookAt(quint32 number) {
    const Node element = state_.m_DOM.nodeByNumber(number);
    if (!asksGrammar() || hasManyChildren(element)) {
        // What was known holds until the whole document has been checked.
        outdated_.erase(number);
        return;
    }
    std::vector<Fault> found = finder_->of(element);
    std::ranges::move(found, std::back_inserter(found_));
}

void LiveValidation::finishLook() {
    const std::vector<Fault> before = faults_;
    setSyntaxFault();
    if (!touched_.empty() || !outdated_.empty())
        dropOutdated();
    for (Fault &fault : std::exchange(found_, {}))
        place(std::move(fault));
    outdated_.clear();
    touched_.clear();
    tellIfOther(before);
    Q_EMIT followed();
}

void LiveValidation::dropOutdated() {
    xml::StandingNodes standing(state_.m_DOM);
    const auto isOutdated = [&](const Fault &fault) {
        if (fault.kind == FaultKind::Syntax)
            return false;
        const bool isChanged =
            fault.isOfGrammar ? outdated_.contains(fault.element)
                              : touched_.contains(fault.element) || touched_.contains(fault.node);
        return isChanged || (fault.node != 0 && !standing.contains(fault.node));
    };
    std::erase_if(faults_, isOutdated);
    std::erase_if(found_, [&](const Fault &fault) { return !standing.contains(fault.node); });
}

void LiveValidation::place(Fault fault) {
    if (faults_.size() >= MostFaults) {
        hasMore_ = true;
        return;
    }
    const xml::DOMDocument40 &document = state_.m_DOM;
    const Node node = document.nodeByNumber(fault.node);
    const auto at = std::ranges::partition_point(faults_, [&](const Fault &other) {
        if (other.kind == FaultKind::Syntax)
            return true;
        const Node otherNode = document.nodeByNumber(other.node);
        return otherNode == node ? other.kind <= fault.kind : xml::isAhead(otherNode, node);
    });
    faults_.insert(at, std::move(fault));
}

void LiveValidation::setSyntaxFault() {
    if (!faults_.empty() && faults_.front().kind == FaultKind::Syntax)
        faults_.erase(faults_.begin());
    if (std::optional<Fault> fault = syntaxFault ? syntaxFault() : std::nullopt)
        faults_.insert(faults_.begin(), *std::move(fault));
}

void LiveValidation::tellIfOther(const std::vector<Fault> &before) {
    if (faults_ == before)
        return;
    byNode_.clear();
    Q_EMIT faultsChanged();
}

// ---- The whole document

void LiveValidation::checkWholeDocument() {
    isCheckDue_ = false;
    if (!hasSchemas())
        return;
    child_.start([document = state_.m_DOM, grammar = grammar_, verdict = verdict_] {
        return packed(checkWhole(document, grammar, verdict));
    });
}

void LiveValidation::take(const QByteArray &result) {
    WholeCheck check = unpacked(result);
    const std::vector<Fault> before = std::exchange(faults_, std::move(check.faults));
    hasMore_ = check.hasMore;
    isKnown_ = true;
    setSyntaxFault();
    tellIfOther(before);
    Q_EMIT followed();
}

} // namespace quillon::validation
