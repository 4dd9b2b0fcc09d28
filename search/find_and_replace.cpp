#include "search/find_and_replace.h"

#include "platform/runtime/error.h"
#include "platform/xml/dom/document_states.h"
#include "resources/search_texts.h"
#include "search/replace_plan.h"
#include "search/selected_node.h"
#include "search/text_search.h"

#include <unordered_set>

namespace quillon::search {

using xml::Node;
using xml::NodeType;
namespace texts = resources::search_texts;

namespace {

constexpr int HistoryLength = 30;

void toFront(QStringList &history, const QString &text) {
    history.removeAll(text);
    history.prepend(text);
    history.resize(std::min<qsizetype>(history.size(), HistoryLength));
}

/// Gathers those of some nodes that stand below none of the others, in document order.
class Topmost final : public xml::NodeVisitor {
public:
    explicit Topmost(const std::vector<quint32> &wanted) : wanted_(wanted.begin(), wanted.end()) {}

    void enter(quint32 number, NodeType) override {
        ++depth_;
        if (depthOfTop_ == 0 && wanted_.contains(number)) {
            depthOfTop_ = depth_;
            numbers.push_back(number);
        }
    }
    void leave() override {
        if (depth_-- == depthOfTop_)
            depthOfTop_ = 0;
    }

    std::vector<quint32> numbers;

private:
    std::unordered_set<quint32> wanted_;
    int depth_ = 0;
    /// 0 outside of them.
    int depthOfTop_ = 0;
};

QString textOf(const Node &node, Part part) {
    return part == Part::Name ? node.nodeName() : node.nodeValue();
}

Span spanOf(const Hit &hit) {
    return {qsizetype(hit.at), qsizetype(hit.length)};
}

/// Places where texts have been put.
struct Put {
    Hit hit;
    QString text;
};

/// Where the hits that have been replaced are now.
std::vector<Put> putPlaces(const std::vector<Hit> &hits, const std::vector<Change> &changes) {
    std::vector<Put> places;
    for (const PartHits &part : hitsByPart(hits)) {
        qsizetype grown = 0;
        for (std::size_t at = part.first; at < part.end; ++at) {
            if (!changes[at].obstacle.isEmpty())
                continue;
            Hit hit = hits[at];
            const qsizetype length = changes[at].after.size();
            hit.at = quint32(hit.at + grown);
            grown += length - hit.length;
            hit.length = quint32(length);
            places.push_back({hit, changes[at].after});
        }
    }
    return places;
}

/// The list of these places. One is in it for as long as the text that was put there is there.
Hits listOf(const QString &title, std::vector<Put> places) {
    Hits list{HitSource::Text, title, {}};
    for (const Put &place : places)
        list.hits.push_back(place.hit);
    const auto node = [](const Put &place) { return place.hit.node; };
    std::ranges::stable_sort(places, {}, node);
    const auto sorted = std::make_shared<const std::vector<Put>>(std::move(places));
    list.findAgain = [sorted, node](const Node &changed, Part part) {
        std::vector<Hit> still;
        const QString text = textOf(changed, part);
        for (const Put &place : std::ranges::equal_range(*sorted, changed.number(), {}, node)) {
            if (place.hit.part == part && text.mid(place.hit.at, place.hit.length) == place.text)
                still.push_back(place.hit);
        }
        return still;
    };
    return list;
}

} // namespace

FindAndReplace::FindAndReplace(const state::DocumentState &state, tree::TreeBuilder &builder,
                               tree::Selection &selection, items::Tree &tree, Replacing &replacing,
                               HitList &hits, ui::LongWork &longWork)
    : state_(state), builder_(builder), selection_(selection), tree_(tree), replacing_(replacing),
      hits_(hits), longWork_(longWork) {}

QString FindAndReplace::fault(const SearchRequest &request) const {
    if (request.what.isEmpty())
        return {};
    try {
        const TextPattern pattern(request.what, request.pattern);
        Replacement(request.with, pattern);
        return {};
    } catch (const runtime::Error &error) {
        return error.description();
    }
}

void FindAndReplace::told(const std::function<void()> &command) {
    if (!state_.showsDocument())
        return;
    forgetOtherDocument();
    try {
        command();
    } catch (const runtime::Error &error) {
        Q_EMIT statusText(error.description());
    }
}

void FindAndReplace::forgetOtherDocument() {
    if (!xml::haveCommonOrigin(document_, state_.m_DOM)) {
        reached_.reset();
        anchor_ = 0;
        queryHits_.clear();
    }
    document_ = state_.m_DOM.clone();
}

void FindAndReplace::remember(const SearchRequest &request, bool replaces) {
    toFront(whats_, request.what);
    if (replaces)
        toFront(withs_, request.with);
}

void FindAndReplace::takeShown() {
    if (hits_.source() != HitSource::Query)
        return;
    forgetOtherDocument();
    queryHits_.clear();
    for (int row = 0; row < hits_.rowCount(); ++row)
        queryHits_.push_back(hits_.hit(row).node);
}

bool FindAndReplace::isAtLatestHit(const SearchRequest &request) const {
    SearchRequest same = request;
    if (reached_)
        same.with = reached_->request.with;
    return reached_ && same == reached_->request &&
           selectedNode(selection_, tree_).number() == reached_->hit.node;
}

// ---- Where to search

std::vector<Node> FindAndReplace::queryHits() const {
    Topmost found(queryHits_);
    if (!queryHits_.empty())
        xml::visitSubtree(state_.m_DOM.node(), found);
    std::vector<Node> tops;
    for (const quint32 number : found.numbers)
        tops.push_back(state_.m_DOM.nodeByNumber(number));
    return tops;
}

std::vector<Node> FindAndReplace::topsOf(const SearchRequest &request) {
    switch (request.scope) {
    case SearchScope::Document:
        break;
    case SearchScope::Selection: {
        // Going from hit to hit moves the selection, but not what is searched.
        const quint32 selected = selectedNode(selection_, tree_).number();
        const int row = hits_.currentRow();
        const bool isAtHit = isAtLatestHit(request) || (row >= 0 && row < hits_.rowCount() &&
                                                        hits_.hit(row).node == selected);
        if (!isAtHit || !state_.m_DOM.nodeByNumber(anchor_))
            anchor_ = selected;
        if (const Node anchor = state_.m_DOM.nodeByNumber(anchor_))
            return {anchor};
        break;
    }
    case SearchScope::QueryHits: {
        std::vector<Node> tops = queryHits();
        if (tops.empty())
            throw runtime::Error(runtime::error_number::Application, texts::NoQueryHits.toString());
        return tops;
    }
    }
    return {state_.m_DOM.node()};
}

// ---- One by one

void FindAndReplace::reach(const SearchRequest &request, const Hit &hit) {
    Hit next = hit;
    next.at += std::max(hit.length, 1U);
    reached_ = {request, hit, next};
    Q_EMIT hitReached(hit);
}

bool FindAndReplace::findNext(const SearchRequest &request) {
    bool found = false;
    told([&] { found = goToNext(request); });
    return found;
}

bool FindAndReplace::goToNext(const SearchRequest &request) {
    const TextPattern pattern(request.what, request.pattern);
    remember(request, false);
    const std::vector<Node> tops = topsOf(request);
    const Node start = selectedNode(selection_, tree_);
    const Hit from = isAtLatestHit(request) ? reached_->next : Hit{};
    const TextSearch search(pattern, request.parts);
    std::optional<Hit> hit;
    bool fromTheTop = false;
    longWork_.run(texts::Searching.toString(), ui::LongWork::Stop::Offered,
                  [&](const runtime::Progress &progress) {
                      hit = search.findFrom(tops, start, from, progress);
                      if (hit)
                          return;
                      fromTheTop = true;
                      hit = search.findFrom(tops, Node(), Hit{}, progress);
                  });
    if (!hit) {
        Q_EMIT statusText(texts::NothingFound.toString());
        return false;
    }
    reach(request, *hit);
    Q_EMIT statusText(fromTheTop ? texts::FoundFromTheTop.toString() : QString());
    return true;
}

bool FindAndReplace::mayReplace() {
    if (state_.m_ReadOnly)
        throw runtime::Error(runtime::error_number::Application,
                             texts::CannotReplaceReadOnly.toString());
    return mayLeavePane();
}

void FindAndReplace::replaceNext(const SearchRequest &request) {
    told([&] {
        const TextPattern pattern(request.what, request.pattern);
        const Replacement replacement(request.with, pattern);
        if (!mayReplace())
            return;
        remember(request, true);
        if (!isAtLatestHit(request)) {
            goToNext(request);
            return;
        }
        const Hit hit = reached_->hit;
        const Node node = state_.m_DOM.nodeByNumber(hit.node);
        const std::vector<Hit> present = TextSearch(pattern, request.parts).findIn(node, hit.part);
        if (std::ranges::find(present, hit) != present.end()) {
            const QString after = replacement.at(textOf(node, hit.part), spanOf(hit));
            std::vector<Change> changes{{after}};
            const Replaced result = replacing_.replace({hit}, changes, {});
            if (result.made == 0) {
                Q_EMIT statusText(result.obstacle);
                return;
            }
            reached_->next = hit;
            reached_->next.at += quint32(after.size()) + (hit.length == 0 ? 1 : 0);
        }
        goToNext(request);
    });
}

// ---- All at once

void FindAndReplace::findAll(const SearchRequest &request) {
    told([&] {
        const auto pattern = std::make_shared<const TextPattern>(request.what, request.pattern);
        remember(request, false);
        const std::vector<Node> tops = topsOf(request);
        Hits found{HitSource::Text, request.what, {}};
        longWork_.run(texts::Searching.toString(), ui::LongWork::Stop::Offered,
                      [&](const runtime::Progress &progress) {
                          found.hits = TextSearch(*pattern, request.parts).findAll(tops, progress);
                      });
        if (found.hits.empty()) {
            Q_EMIT statusText(texts::NothingFound.toString());
            return;
        }
        found.findAgain = [pattern, parts = request.parts](const Node &node, Part part) {
            return TextSearch(*pattern, parts).findIn(node, part);
        };
        const auto count = qlonglong(found.hits.size());
        hits_.show(std::move(found));
        Q_EMIT listed();
        Q_EMIT statusText(texts::PlacesFound.toString().arg(count));
    });
}

std::vector<Change> FindAndReplace::changesOf(const std::vector<Hit> &hits,
                                              const Replacement &replacement) {
    if (replacement.isFixed())
        return std::vector<Change>(hits.size(), {replacement.at({}, {})});
    std::vector<Change> changes;
    changes.reserve(hits.size());
    QString text;
    for (std::size_t at = 0; at < hits.size(); ++at) {
        const Hit &hit = hits[at];
        if (at == 0 || hit.node != hits[at - 1].node || hit.part != hits[at - 1].part)
            text = textOf(state_.m_DOM.nodeByNumber(hit.node), hit.part);
        changes.push_back({replacement.at(text, spanOf(hit))});
    }
    return changes;
}

void FindAndReplace::planAll(const SearchRequest &request) {
    told([&] {
        const auto pattern = std::make_shared<const TextPattern>(request.what, request.pattern);
        if (mayReplace()) {
            remember(request, true);
            showPlan(request, pattern);
        }
    });
}

void FindAndReplace::showPlan(const SearchRequest &request,
                              const std::shared_ptr<const TextPattern> &pattern) {
    const auto replacement = std::make_shared<const Replacement>(request.with, *pattern);
    const std::vector<Node> tops = topsOf(request);
    Hits plan{HitSource::Text, request.what, {}};
    longWork_.run(texts::Searching.toString(), ui::LongWork::Stop::Offered,
                  [&](const runtime::Progress &progress) {
                      plan.hits = TextSearch(*pattern, request.parts).findAll(tops, progress);
                      plan.changes = changesOf(plan.hits, *replacement);
                      replacing_.findObstacles(plan.hits, plan.changes, progress);
                  });
    if (plan.hits.empty()) {
        Q_EMIT statusText(texts::NothingFound.toString());
        return;
    }
    plan.findAgain = [pattern, parts = request.parts](const Node &node, Part part) {
        return TextSearch(*pattern, parts).findIn(node, part);
    };
    plan.planAgain = [this, replacement](const Node &node, const Hit &hit) {
        std::vector<Change> changes{{replacement->at(textOf(node, hit.part), spanOf(hit))}};
        replacing_.findObstacles({hit}, changes, {});
        return changes.front();
    };
    const auto refused = std::ranges::count_if(
        plan.changes, [](const Change &change) { return !change.obstacle.isEmpty(); });
    const auto good = qlonglong(plan.changes.size()) - qlonglong(refused);
    hits_.show(std::move(plan));
    Q_EMIT listed();
    const QString told = refused == 0 ? texts::Planned.toString().arg(good)
                         : good == 0
                             ? texts::NothingPlanned.toString().arg(qlonglong(refused))
                             : texts::PlannedLess.toString().arg(good).arg(qlonglong(refused));
    Q_EMIT statusText(told);
}

bool FindAndReplace::hasPlan() const {
    return hits_.hasChanges();
}

void FindAndReplace::execute() {
    told([&] {
        if (!hasPlan() || !mayReplace())
            return;
        hits_.sweepAll();
        std::vector<Hit> hits;
        std::vector<Change> changes;
        hits_.forEachTicked([&](const Hit &hit, const Change &change) {
            hits.push_back(hit);
            changes.push_back(change);
        });
        if (hits.empty()) {
            Q_EMIT statusText(texts::NothingTicked.toString());
            return;
        }
        Replaced result;
        longWork_.run(texts::Replacing.toString(), ui::LongWork::Stop::Offered,
                      [&](const runtime::Progress &progress) {
                          result = replacing_.replace(hits, changes, progress);
                      });
        reached_.reset();
        if (result.made > 0)
            hits_.show(listOf(hits_.title(), putPlaces(hits, changes)));
        tellReplaced(result);
    });
}

void FindAndReplace::tellReplaced(const Replaced &result) {
    const auto made = qlonglong(result.made);
    Q_EMIT statusText(result.leftOut == 0 ? texts::Replaced.toString().arg(made)
                                          : texts::ReplacedLess.toString()
                                                .arg(made)
                                                .arg(qlonglong(result.leftOut))
                                                .arg(result.obstacle));
}

void FindAndReplace::discard() {
    if (!hasPlan())
        return;
    hits_.clear();
    Q_EMIT statusText(texts::PlanGivenUp.toString());
}

} // namespace quillon::search
