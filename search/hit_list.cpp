#include "search/hit_list.h"

#include "platform/ui/error_boundary.h"
#include "resources/hit_texts.h"
#include "search/hit_sorting.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace quillon::search {

namespace texts = resources::hit_texts;

namespace {

/// A slice is not to be felt by whoever types, nor are slices to run between quick keystrokes.
constexpr std::chrono::milliseconds Slice(4);
constexpr std::chrono::milliseconds Pause(200);
/// So many rows are put in order again unasked.
constexpr std::size_t MostSortedAnew = 5'000;

} // namespace

HitList::HitList(const state::DocumentState &state) : state_(state) {
    idle_.setSingleShot(true);
    connect(&idle_, &QTimer::timeout, this, &HitList::sweepWhenIdle);
}

void HitList::take(Hits hits) {
    ++revision_;
    list_ = std::move(hits);
    marks_.assign(list_.hits.size(), 0);
    rows_.resize(list_.hits.size());
    std::iota(rows_.begin(), rows_.end(), 0);
    sorted_ = {};
    compared_ = list_.hits.empty() ? xml::DOMDocument40() : state_.m_DOM.clone();
    isStale_ = false;
    sweep_.reset();
    endOfNumbers_.reset();
    reader_ = {};
}

void HitList::show(Hits hits) {
    take(std::move(hits));
    order_ = HitOrder::Document;
    direction_ = Qt::AscendingOrder;
    currentRow_ = -1;
    currentIsGone_ = false;
    Q_EMIT shown();
}

void HitList::refresh(Hits hits) {
    const bool hasCurrent = currentRow_ >= 0 && !currentIsGone_ && currentRow_ < rowCount();
    const Hit current = hasCurrent ? hit(currentRow_) : Hit();
    const QString note =
        hasCurrent && !list_.notes.empty() ? list_.notes[place(currentRow_)] : QString();
    const int row = currentRow_;
    take(std::move(hits));
    currentRow_ = -1;
    for (std::size_t at = 0; hasCurrent && at < list_.hits.size() && currentRow_ < 0; ++at) {
        if (list_.hits[at] == current && (list_.notes.empty() || list_.notes[at] == note))
            currentRow_ = int(at);
    }
    const bool isGone = row >= 0 && currentRow_ < 0;
    sortAnew();
    makeRows();
    if (isGone) {
        currentRow_ = std::min(row, rowCount());
        currentIsGone_ = true;
    }
}

void HitList::sortAnew() {
    const bool isSorted = order_ != HitOrder::Document || direction_ != Qt::AscendingOrder;
    if (isSorted && list_.hits.size() <= MostSortedAnew) {
        sorted_ = sortedHits(list_, [this](std::size_t at) { return nodeAt(at); }, reader_, order_,
                             direction_, {});
    } else {
        order_ = HitOrder::Document;
        direction_ = Qt::AscendingOrder;
    }
}

void HitList::clear() {
    if (!list_.hits.empty())
        show({});
}

bool HitList::isBeyondReach(std::size_t at) const {
    return (marks_[at] & Abandoned) != 0 ||
           (endOfNumbers_ && list_.hits[at].node >= *endOfNumbers_) ||
           !xml::haveCommonOrigin(state_.m_DOM, compared_);
}

xml::Node HitList::nodeAt(std::size_t at) const {
    return isBeyondReach(at) ? xml::Node() : state_.m_DOM.nodeByNumber(list_.hits[at].node);
}

QString HitList::nameOfTexts() const {
    const QStringView name = list_.source == HitSource::Faults ? texts::FaultColumn
                             : hasChanges()                    ? texts::BeforeColumn
                                                               : texts::TextColumn;
    return name.toString();
}

HitRow HitList::row(int row) const {
    const std::size_t at = rows_[std::size_t(row)];
    HitRow read =
        reader_.read(nodeAt(at), list_.hits[at], hasChanges() ? &list_.changes[at] : nullptr);
    if (!list_.notes.empty()) {
        read.text = list_.notes[at];
        read.mark = {};
    }
    return read;
}

// ---- Ticks, order, the current row

void HitList::setTicked(int row, bool on) {
    quint8 &marks = marks_[rows_[std::size_t(row)]];
    marks = on ? marks & ~Unticked : marks | Unticked;
    Q_EMIT rowTextsChanged();
}

void HitList::setAllTicked(bool on) {
    for (quint8 &marks : marks_)
        marks = on ? marks & ~Unticked : marks | Unticked;
    Q_EMIT rowTextsChanged();
}

void HitList::sort(HitOrder by, Qt::SortOrder direction, const runtime::Progress &progress) {
    const auto goOn = [this, &progress, begun = revision_](double done) {
        return (!progress || progress(done)) && revision_ == begun;
    };
    sorted_ = sortedHits(
        list_, [this](std::size_t at) { return nodeAt(at); }, reader_, by, direction, goOn);
    order_ = by;
    direction_ = direction;
    makeRows();
}

void HitList::setCurrentRow(int row) {
    currentRow_ = row;
    currentIsGone_ = false;
    Q_EMIT currentRowChanged(row);
}

int HitList::rowAfter() const {
    const int row = currentIsGone_ ? currentRow_ : currentRow_ + 1;
    return row < rowCount() ? row : -1;
}

int HitList::rowBefore() const {
    return (currentRow_ < 0 ? rowCount() : currentRow_) - 1;
}

void HitList::makeRows() {
    ++revision_;
    const quint32 current = currentRow_ >= 0 && !currentIsGone_ && currentRow_ < rowCount()
                                ? rows_[std::size_t(currentRow_)]
                                : std::numeric_limits<quint32>::max();
    rows_.clear();
    int now = -1;
    const auto add = [&](quint32 at) {
        if ((marks_[at] & NoRow) != 0)
            return;
        if (at == current)
            now = rowCount();
        rows_.push_back(at);
    };
    if (sorted_.empty()) {
        for (quint32 at = 0; at < list_.hits.size(); ++at)
            add(at);
    } else {
        std::ranges::for_each(sorted_, add);
    }
    currentIsGone_ = currentRow_ >= 0 && now < 0;
    currentRow_ = currentIsGone_ ? std::min(currentRow_, rowCount()) : now;
    Q_EMIT rowsChanged();
}

// ---- Following the document

void HitList::documentChanged() {
    if (list_.hits.empty())
        return;
    if (endOfNumbers_ && xml::haveCommonOrigin(state_.m_DOM, compared_)) {
        // What had been undone cannot be redone any more, and new nodes have its numbers.
        for (std::size_t at = 0; at < list_.hits.size(); ++at) {
            if (list_.hits[at].node >= *endOfNumbers_)
                marks_[at] |= Abandoned;
        }
        endOfNumbers_.reset();
    }
    ++revision_;
    reader_ = {};
    sweep_.reset();
    isStale_ = true;
    Q_EMIT rowTextsChanged();
    idle_.start(Pause);
}

void HitList::documentRestored() {
    if (list_.hits.empty())
        return;
    std::optional<quint32> end;
    if (xml::haveCommonOrigin(state_.m_DOM, compared_))
        end = state_.m_DOM.node().number() + state_.m_DOM.maxNodeCount();
    endOfNumbers_.reset();
    documentChanged();
    endOfNumbers_ = end;
}

void HitList::sweepWhenIdle() {
    ui::guarded([this] {
        if (sweep(Slice))
            idle_.start(0);
    });
}

void HitList::sweepAll() {
    while (sweep(std::chrono::seconds(1))) {
    }
}

bool HitList::sweep(std::chrono::microseconds time) {
    if (!isStale_)
        return false;
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    if (!sweep_) {
        const bool isOfThisDocument = xml::haveCommonOrigin(state_.m_DOM, compared_);
        sweep_.emplace(Sweep{isOfThisDocument, xml::StandingNodes(state_.m_DOM), 0, {}});
    }
    // Asking for the time takes as long as looking at several hits.
    constexpr std::size_t Stride = 256;
    for (std::size_t looked = 1; sweep_->next < list_.hits.size(); ++looked) {
        lookAtGroup();
        if (looked % Stride == 0 && Clock::now() - start > time)
            return true;
    }
    finishSweep();
    return false;
}

void HitList::lookAtGroup() {
    const std::size_t from = sweep_->next;
    const Hit &first = list_.hits[from];
    std::size_t to = from + 1;
    while (to < list_.hits.size() && list_.hits[to].node == first.node &&
           list_.hits[to].part == first.part)
        ++to;
    sweep_->next = to;
    const bool stands = !isBeyondReach(from) && sweep_->standing.contains(first.node);
    const quint8 removed = stands ? 0 : Removed;
    if (stands && list_.findAgain && !isUnchanged(first)) {
        lookAgain(from, to, removed);
        return;
    }
    for (std::size_t at = from; at < to; ++at)
        note({quint32(at), quint8((marks_[at] & ~Removed) | removed), list_.hits[at], {}});
}

bool HitList::isUnchanged(const Hit &hit) const {
    if (xml::isSurelyUnchanged(state_.m_DOM, compared_, hit.node))
        return true;
    const xml::Node before = compared_.nodeByNumber(hit.node);
    const xml::Node now = state_.m_DOM.nodeByNumber(hit.node);
    return before.nodeName() == now.nodeName() && before.nodeValue() == now.nodeValue();
}

void HitList::lookAgain(std::size_t from, std::size_t to, quint8 removed) {
    const xml::Node node = nodeAt(from);
    const std::vector<Hit> now = list_.findAgain(node, list_.hits[from].part);
    for (std::size_t at = from; at < to; ++at) {
        const bool isOne = at - from < now.size();
        const quint8 other = marks_[at] & ~(Removed | Unmatched);
        Finding finding{quint32(at),
                        quint8(other | removed | (isOne ? 0 : Unmatched)),
                        isOne ? now[at - from] : list_.hits[at],
                        {}};
        if (isOne && list_.planAgain)
            finding.change = list_.planAgain(node, finding.hit);
        note(std::move(finding));
    }
}

void HitList::note(Finding finding) {
    if (finding.marks != marks_[finding.at] || finding.change ||
        !(finding.hit == list_.hits[finding.at]))
        sweep_->findings.push_back(std::move(finding));
}

void HitList::finishSweep() {
    bool rowsDiffer = false;
    for (Finding &finding : sweep_->findings) {
        rowsDiffer |= ((finding.marks ^ marks_[finding.at]) & NoRow) != 0;
        // The tick may have been changed since.
        marks_[finding.at] = quint8((finding.marks & ~Unticked) | (marks_[finding.at] & Unticked));
        list_.hits[finding.at] = finding.hit;
        if (finding.change)
            list_.changes[finding.at] = *std::move(finding.change);
    }
    const bool textsDiffer = !sweep_->findings.empty();
    if (sweep_->isOfThisDocument)
        compared_ = state_.m_DOM.clone();
    sweep_.reset();
    isStale_ = false;
    if (rowsDiffer)
        makeRows();
    else if (textsDiffer)
        Q_EMIT rowTextsChanged();
}

} // namespace quillon::search
