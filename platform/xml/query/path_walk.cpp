#include "platform/xml/query/path_walk.h"

#include <algorithm>
#include <bit>

namespace quillon::xml {

namespace {

using Axis = PathStep::Axis;

std::uint64_t bit(std::size_t step) {
    return std::uint64_t(1) << step;
}

/// Calls a function for each bit, from the lowest.
template <typename Function>
void forEachBit(std::uint64_t bits, Function &&function) {
    for (; bits != 0; bits &= bits - 1)
        function(std::size_t(std::countr_zero(bits)));
}

} // namespace

PathWalk::PathWalk(const Arena &arena, const PathStage &stage, PathNodes &nodes, PathWork &work)
    : arena_(arena), nodes_(nodes), work_(work), stage_(stage), top_(arena.documentNumber()) {
    for (const PathAlternative &alternative : stage.alternatives) {
        firsts_.push_back(steps_.size());
        for (const PathStep &step : alternative.steps) {
            if (step.isPositional && (step.axis == Axis::Child || step.axis == Axis::Below))
                positional_ |= bit(steps_.size());
            steps_.push_back({&step, nodes.onlyName(step.test)});
        }
        steps_.emplace_back();
    }
}

void PathWalk::startFrom(Number context) {
    for (std::size_t i = 0; i < firsts_.size(); ++i) {
        const PathAlternative &alternative = stage_.alternatives[i];
        Number start = alternative.start == PathAlternative::Start::Document
                           ? arena_.documentNumber()
                           : context;
        for (std::size_t up = 0; up < alternative.parents && start != 0; ++up)
            start = arena_.record(start).parent;
        if (start == 0)
            continue;
        const auto same = std::ranges::find(starts_, start, &std::pair<Number, Bits>::first);
        if (same == starts_.end())
            starts_.emplace_back(start, bit(firsts_[i]));
        else
            same->second |= bit(firsts_[i]);
    }
    startsLeft_ = starts_.size();
    if (starts_.size() == 1)
        top_ = starts_.front().first;
}

void PathWalk::startFrom(const std::vector<Number> &found) {
    isStart_.resize(arena_.slotCount());
    for (const Number n : found) {
        std::vector<bool>::reference isStart = isStart_[n - arena_.documentNumber()];
        startsLeft_ += isStart ? 0 : 1;
        isStart = true;
    }
}

PathWalk::Bits PathWalk::startsAt(Number node) {
    Bits steps = 0;
    if (!isStart_.empty()) {
        if (isStart_[node - arena_.documentNumber()])
            steps = bit(0);
    } else {
        const auto start = std::ranges::find(starts_, node, &std::pair<Number, Bits>::first);
        if (start != starts_.end())
            steps = start->second;
    }
    startsLeft_ -= steps != 0 ? 1 : 0;
    return steps;
}

std::vector<Number> PathWalk::run() {
    if (startsLeft_ == 0)
        return {};
    std::vector<Level> levels(1);
    Number n = top_;
    while (true) {
        Level own;
        enter(n, own, levels.back());
        const Number child = arena_.hasPart(n) ? arena_.part(n).firstChild : 0;
        if (child != 0 && ((own.children | own.below) != 0 || startsLeft_ != 0)) {
            addLists(n, own);
            levels.push_back(own);
            n = child;
            continue;
        }
        Number next = 0;
        while (n != top_ && next == 0) {
            const Record &r = arena_.record(n);
            if (r.next != 0 && !isDone(levels.back())) {
                next = r.next;
            } else {
                n = r.parent;
                lists_.resize(levels.back().firstList);
                levels.pop_back();
            }
        }
        if (next == 0)
            return std::move(found_);
        n = next;
    }
}

bool PathWalk::isDone(const Level &level) const {
    if (positional_ == 0 || level.below != 0 || startsLeft_ != 0 ||
        (level.children & ~positional_) != 0)
        return false;
    return std::all_of(lists_.begin() + std::ptrdiff_t(level.firstList), lists_.end(),
                       [](const List &list) { return list.next == list.nodes.size(); });
}

void PathWalk::enter(Number node, Level &own, const Level &parent) {
    work_.spend();
    attributes_ = 0;
    isFound_ = false;
    const Record &r = arena_.record(node);
    if (r.kind == NodeType::Element)
        own.below = parent.below;
    forEachBit(parent.children | parent.below, [&](std::size_t step) {
        if (steps_[step].step->axis == Axis::AttributeBelow)
            attributes_ |= bit(step);
        else if ((steps_[step].onlyName == PathNames::AnyName || steps_[step].onlyName == r.name) &&
                 takes(step, node, parent))
            expect(step + 1, node, own);
    });
    if (startsLeft_ != 0)
        forEachBit(startsAt(node), [&](std::size_t step) { expect(step, node, own); });
    if (isFound_)
        found_.push_back(node);
    if (attributes_ != 0)
        addAttributes(node);
}

void PathWalk::expect(std::size_t step, Number node, Level &own) {
    const PathStep *const next = steps_[step].step;
    if (!next) {
        isFound_ = true;
        return;
    }
    switch (next->axis) {
    case Axis::Child:
        own.children |= bit(step);
        break;
    case Axis::Below:
        own.below |= bit(step);
        break;
    case Axis::BelowOrSelf:
        own.below |= bit(step);
        if (nodes_.finds(*next, node))
            expect(step + 1, node, own);
        break;
    case Axis::Self:
        if (nodes_.finds(*next, node))
            expect(step + 1, node, own);
        break;
    case Axis::AttributeBelow:
        own.below |= bit(step);
        attributes_ |= bit(step);
        break;
    case Axis::Attribute:
        attributes_ |= bit(step);
        break;
    case Axis::Parent:
        // Stands between the stages.
        break;
    }
}

bool PathWalk::List::takes(Number node) {
    const bool isNext = next < nodes.size() && nodes[next] == node;
    next += isNext ? 1 : 0;
    return isNext;
}

bool PathWalk::takes(std::size_t step, Number node, const Level &parent) {
    if (!steps_[step].step->isPositional)
        return nodes_.finds(*steps_[step].step, node);
    for (std::size_t i = parent.firstList; i < lists_.size(); ++i) {
        if (lists_[i].step == step)
            return lists_[i].takes(node);
    }
    return false;
}

void PathWalk::addLists(Number element, Level &level) {
    level.firstList = lists_.size();
    forEachBit((level.children | level.below) & positional_, [&](std::size_t step) {
        lists_.push_back({step, nodes_.found(*steps_[step].step, element)});
    });
}

void PathWalk::addAttributes(Number element) {
    std::vector<List> lists;
    forEachBit(attributes_, [&](std::size_t step) {
        if (steps_[step].step->isPositional)
            lists.push_back({step, nodes_.found(*steps_[step].step, element)});
    });
    for (Number a = nodes_.firstAttribute(element); a != 0; a = nodes_.nextAttribute(a)) {
        work_.spend();
        bool isFound = false;
        for (List &list : lists)
            isFound = list.takes(a) || isFound;
        forEachBit(attributes_, [&](std::size_t step) {
            isFound = isFound ||
                      (!steps_[step].step->isPositional && nodes_.finds(*steps_[step].step, a));
        });
        if (isFound)
            found_.push_back(a);
    }
}

} // namespace quillon::xml
