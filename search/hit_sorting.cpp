#include "search/hit_sorting.h"

#include "platform/runtime/error.h"
#include "platform/xml/query/xpath.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <string>
#include <unordered_map>

namespace quillon::search {

using xml::Node;
using xml::NodeType;

namespace {

/// Asks every now and then whether to go on.
class Pace {
public:
    explicit Pace(const runtime::Progress &progress) : progress_(progress) {}

    void step(double done) {
        if (++steps_ % Stride == 0 && progress_ && !progress_(done))
            runtime::raise(runtime::error_number::Cancelled);
    }

private:
    static constexpr unsigned Stride = 16'384;
    const runtime::Progress &progress_;
    unsigned steps_ = 0;
};

/// The paths that nodes have without their places among siblings, as a tree of steps. What is far
/// above is looked at once, however deep the document is.
class Paths {
public:
    quint32 pathOf(const Node &node) {
        way_.clear();
        Node at = node;
        quint32 path = 0;
        for (; at && at.nodeType() != NodeType::Document; at = above(at)) {
            const auto known = known_.find(at.number());
            if (known != known_.end()) {
                path = known->second;
                break;
            }
            way_.push_back(at);
        }
        for (std::size_t down = way_.size(); down-- > 0;) {
            path = step(path, stepTo(way_[down]));
            // Most nodes and most of their parents are asked about once.
            if (down >= 2)
                known_.emplace(way_[down].number(), path);
        }
        return path;
    }

    /// The place of each path when all are sorted.
    std::vector<quint32> ranks() const {
        std::vector<quint32> ranks(steps_.size());
        std::vector<quint32> open{0};
        for (quint32 rank = 0; !open.empty(); ++rank) {
            const quint32 path = open.back();
            open.pop_back();
            ranks[path] = rank;
            const auto &below = steps_[path];
            for (auto next = below.rbegin(); next != below.rend(); ++next)
                open.push_back(next->second);
        }
        return ranks;
    }

private:
    static Node above(const Node &node) {
        return node.nodeType() == NodeType::Attribute ? xml::ownerElement(node) : node.parentNode();
    }
    quint32 step(quint32 path, const QString &name) {
        const auto [found, isNew] =
            steps_[path].try_emplace(name, static_cast<quint32>(steps_.size()));
        const quint32 next = found->second;
        if (isNew)
            steps_.emplace_back();
        return next;
    }

    std::vector<std::map<QString, quint32>> steps_{1};
    std::unordered_map<quint32, quint32> known_;
    std::vector<Node> way_;
};

template <typename Less>
std::vector<quint32> sorted(std::size_t count, Qt::SortOrder direction, Less &&less) {
    std::vector<quint32> order(count);
    std::iota(order.begin(), order.end(), 0);
    if (direction == Qt::AscendingOrder)
        std::ranges::stable_sort(order, less);
    else
        std::ranges::stable_sort(order, [&](quint32 a, quint32 b) { return less(b, a); });
    return order;
}

std::vector<quint32> byRank(const std::vector<quint32> &ranks, Qt::SortOrder direction) {
    return sorted(ranks.size(), direction,
                  [&](quint32 a, quint32 b) { return ranks[a] < ranks[b]; });
}

/// Many texts in one piece of storage.
class Texts {
public:
    explicit Texts(std::size_t count) { ends_.reserve(count); }

    void add(const QString &text) {
        all_.append(reinterpret_cast<const char16_t *>(text.utf16()), std::size_t(text.size()));
        ends_.push_back(all_.size());
    }
    std::u16string_view operator[](std::size_t at) const {
        const std::size_t start = at == 0 ? 0 : ends_[at - 1];
        return std::u16string_view(all_).substr(start, ends_[at] - start);
    }

private:
    std::u16string all_;
    std::vector<std::size_t> ends_;
};

} // namespace

std::vector<quint32> sortedHits(const Hits &list, const std::function<Node(std::size_t)> &nodeAt,
                                const HitRowReader &reader, HitOrder by, Qt::SortOrder direction,
                                const runtime::Progress &progress) {
    const std::size_t count = list.hits.size();
    const auto done = [&](std::size_t at) { return double(at) / double(count); };
    Pace pace(progress);
    std::vector<quint32> ranks;
    switch (by) {
    case HitOrder::Document:
        if (direction == Qt::AscendingOrder)
            return {};
        ranks.resize(count);
        std::iota(ranks.begin(), ranks.end(), 0);
        return byRank(ranks, direction);
    case HitOrder::Kind:
        for (std::size_t at = 0; at < count; ++at) {
            ranks.push_back(quint32(nodeAt(at).nodeType()));
            pace.step(done(at));
        }
        return byRank(ranks, direction);
    case HitOrder::Path: {
        Paths paths;
        for (std::size_t at = 0; at < count; ++at) {
            ranks.push_back(paths.pathOf(nodeAt(at)));
            pace.step(done(at));
        }
        const std::vector<quint32> rankOf = paths.ranks();
        for (quint32 &rank : ranks)
            rank = rankOf[rank];
        return byRank(ranks, direction);
    }
    case HitOrder::Text:
    case HitOrder::After:
        break;
    }
    Texts texts(count);
    for (std::size_t at = 0; at < count; ++at) {
        if (!list.notes.empty()) {
            texts.add(list.notes[at]);
            continue;
        }
        const bool after = by == HitOrder::After && at < list.changes.size();
        texts.add(after ? reader.after(nodeAt(at), list.hits[at], list.changes[at])
                        : reader.text(nodeAt(at), list.hits[at]));
        pace.step(done(at) / 2);
    }
    return sorted(count, direction, [&](quint32 a, quint32 b) {
        pace.step(runtime::UnknownProgress);
        return texts[a] < texts[b];
    });
}

} // namespace quillon::search
