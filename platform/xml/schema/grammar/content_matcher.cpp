#include "platform/xml/schema/grammar/content_matcher.h"

#include <algorithm>
#include <bit>
#include <unordered_set>

namespace quillon::grammar {

namespace {

/// So many children behind a wrong one are looked at to find out what is wrong.
constexpr std::size_t LookAhead = 8;
/// So many elements may be missing at one place.
constexpr int MaxMissing = 8;
/// Behind so many faults, the rest is only skipped: the content is of another type altogether.
constexpr std::size_t MaxMended = 100;
/// So many other elements are tried in the place of a wrong one.
constexpr std::size_t MaxTried = 64;
/// So many steps are taken, for all candidates of an answer, to see whether they break what
/// follows; those that come after fit as far as is known.
constexpr std::size_t MaxSteps = 200'000;
constexpr quint32 LeastCountLimit = 1024;

} // namespace

ContentRun::ContentRun(std::shared_ptr<Expressions> expressions, const Grammar &grammar, Id start,
                       const std::vector<Symbol> &children)
    : expressions_(std::move(expressions)), grammar_(grammar) {
    symbols_.reserve(children.size());
    Symbol last;
    quint32 number = expressions_->symbolNumber(last);
    for (const Symbol &child : children) {
        // Most children are named as the one ahead.
        if (child != last)
            number = expressions_->symbolNumber(last = child);
        symbols_.push_back(number);
    }
    states_.reserve(children.size() + 1);
    states_.push_back(start);
    for (std::size_t place = 0; place < symbols_.size(); ++place) {
        const Id state = expressions_->after(states_.back(), symbols_[place]);
        if (state == Expressions::Nothing)
            mend(place);
        else
            states_.push_back(state);
    }
    if (!expressions_->isComplete(states_.back()))
        faults_.push_back({ContentFault::Kind::Missing, symbols_.size(),
                           elementsOf(expressions_->needed(states_.back()))});
}

int ContentRun::accepted(Id state, std::size_t from) const {
    int count = 0;
    const std::size_t end = std::min(symbols_.size(), from + LookAhead);
    for (std::size_t place = from; place < end; ++place, ++count) {
        state = expressions_->after(state, symbols_[place]);
        if (state == Expressions::Nothing)
            return count;
    }
    // Complete at the end is better than not.
    return count + (end == symbols_.size() && expressions_->isComplete(state) ? 1 : 0);
}

ContentRun::Id ContentRun::behindMissing(Id state, quint32 child,
                                         std::vector<Index> &missing) const {
    // One that may be left out may have to come because of what stands here: in (a, (b, c)?), c
    // needs b.
    std::size_t tried = 0;
    Id found = Expressions::Nothing;
    for (const Index element : elementsOf(expressions_->next(state))) {
        if (++tried > MaxTried)
            break;
        const Id behind = expressions_->after(state, symbolOf(element));
        if (expressions_->after(behind, child) == Expressions::Nothing)
            continue;
        missing.push_back(element);
        if (found == Expressions::Nothing)
            found = behind;
    }
    if (found != Expressions::Nothing)
        return found;
    for (int count = 0; count < MaxMissing; ++count) {
        const std::vector<Index> needed = elementsOf(expressions_->needed(state));
        if (needed.empty())
            break;
        if (count == 0)
            missing = needed;
        state = expressions_->after(state, symbolOf(needed.front()));
        if (expressions_->after(state, child) != Expressions::Nothing)
            return state;
    }
    missing.clear();
    return Expressions::Nothing;
}

void ContentRun::mend(std::size_t place) {
    const Id state = states_.back();
    const quint32 child = symbols_[place];
    ContentFault fault{ContentFault::Kind::Unexpected, place, {}};
    if (faults_.size() >= MaxMended) {
        faults_.push_back(std::move(fault));
        states_.push_back(state);
        return;
    }
    // Three ways to mend it; the one that gets farthest is what is wrong, and skipping the child
    // is the last to be thought of.
    Id best = state;
    int bestCount = accepted(state, place + 1);
    const std::vector<Index> expected = elementsOf(expressions_->next(state));
    std::size_t tried = 0;
    for (const Index element : expected) {
        if (++tried > MaxTried)
            break;
        const Id instead = expressions_->after(state, symbolOf(element));
        if (const int count = accepted(instead, place + 1); count > bestCount) {
            best = instead;
            bestCount = count;
            fault.kind = ContentFault::Kind::Misnamed;
        }
    }
    fault.expected = expected;
    std::vector<Index> missing;
    if (const Id behind = behindMissing(state, child, missing); behind != Expressions::Nothing) {
        const Id next = expressions_->after(behind, child);
        if (accepted(next, place + 1) >= bestCount) {
            best = next;
            fault.kind = ContentFault::Kind::Missing;
            fault.expected = std::move(missing);
        }
    }
    faults_.push_back(std::move(fault));
    states_.push_back(best);
}

quint32 ContentRun::symbolOf(Index element) const {
    const Name &name = grammar_.element(element).name;
    return expressions_->symbolNumber({name.space, name.local});
}

std::vector<Index> ContentRun::elementsOf(const std::vector<Expressions::Leaf> &leaves) const {
    std::vector<Index> elements;
    std::unordered_set<Index> seen;
    for (const Expressions::Leaf &leaf : leaves) {
        if (leaf.isWildcard)
            continue;
        for (const Index element : grammar_.standingFor(leaf.target)) {
            if (seen.insert(element).second)
                elements.push_back(element);
        }
    }
    return elements;
}

Candidates ContentRun::insertable(std::size_t place) const {
    return candidates(place, place);
}

Candidates ContentRun::replaceable(std::size_t place) const {
    return candidates(place, place + 1);
}

bool ContentRun::keepsWhatFollows(Id state, std::size_t next, std::size_t &budget) const {
    // No fault may come sooner than it does now.
    std::size_t firstFault = symbols_.size() + 1;
    const auto fault = std::ranges::lower_bound(faults_, next, {}, &ContentFault::child);
    if (fault != faults_.end())
        firstFault = fault->child;
    for (std::size_t place = next; place < symbols_.size(); ++place) {
        if (place >= firstFault || state == states_[place] || budget == 0)
            return true;
        --budget;
        state = expressions_->after(state, symbols_[place]);
        if (state == Expressions::Nothing)
            return false;
    }
    return firstFault == symbols_.size() || expressions_->isComplete(state);
}

Misfit ContentRun::misfitOf(Id state, std::size_t next, std::size_t &budget) const {
    if (keepsWhatFollows(state, next, budget))
        return Misfit::Fits;
    for (int count = 0; count < MaxMissing; ++count) {
        const std::vector<Index> needed = elementsOf(expressions_->needed(state));
        if (needed.empty())
            break;
        state = expressions_->after(state, symbolOf(needed.front()));
        if (keepsWhatFollows(state, next, budget))
            return Misfit::NeedsMore;
    }
    return Misfit::BreaksWhatFollows;
}

Candidates ContentRun::candidates(std::size_t place, std::size_t next) const {
    const Id state = states_[place];
    Candidates found;
    const std::vector<Expressions::Leaf> leaves = expressions_->next(state);
    std::unordered_set<Index> needed;
    const auto fault = std::ranges::lower_bound(faults_, place, {}, &ContentFault::child);
    const bool isFault = fault != faults_.end() && fault->child == place;
    if (isFault && next == place && fault->kind == ContentFault::Kind::Missing)
        needed.insert(fault->expected.begin(), fault->expected.end());
    if (isFault && next != place && fault->kind == ContentFault::Kind::Misnamed) {
        for (const Index element : elementsOf(expressions_->needed(state)))
            needed.insert(element);
    }
    std::size_t budget = MaxSteps;
    const std::vector<Index> here = elementsOf(leaves);
    for (const Index element : here)
        found.elements.push_back(
            {element, misfitOf(expressions_->after(state, symbolOf(element)), next, budget),
             needed.contains(element)});
    std::ranges::stable_sort(found.elements, {}, &Candidate::misfit);
    for (const Expressions::Leaf &leaf : leaves) {
        if (leaf.isWildcard)
            found.wildcards.push_back(leaf.target);
    }
    const std::unordered_set<Index> fitting(here.begin(), here.end());
    for (const Index element : elementsOf(expressions_->leaves(states_.front()))) {
        if (!fitting.contains(element))
            found.elements.push_back({element, Misfit::NotHere, false});
    }
    return found;
}

Index ContentRun::elementOf(std::size_t place, Index *wildcard) const {
    if (wildcard)
        *wildcard = None;
    const Symbol name = expressions_->symbol(symbols_[place]);
    for (const Expressions::Leaf &leaf : expressions_->next(states_[place])) {
        if (!leaf.isWildcard) {
            if (const Index element = grammar_.matched(leaf.target, name); element != None)
                return element;
        } else if (wildcard && *wildcard == None &&
                   grammar_.matches(grammar_.data().wildcards[leaf.target], name)) {
            *wildcard = leaf.target;
        }
    }
    return None;
}

std::vector<Index> ContentRun::elementsAt(std::size_t place) const {
    const Symbol name = expressions_->symbol(symbols_[place]);
    std::vector<Index> elements;
    for (const Expressions::Leaf &leaf : expressions_->next(states_[place])) {
        const Index element = leaf.isWildcard ? None : grammar_.matched(leaf.target, name);
        if (element != None && std::ranges::find(elements, element) == elements.end())
            elements.push_back(element);
    }
    return elements;
}

ContentRun ContentMatcher::run(Index type, const std::vector<Symbol> &children) {
    // No model can tell more occurrences than there are children from without limit. The limit
    // goes up in steps, so that what is known of a model holds for most elements.
    const auto needed = static_cast<quint32>(std::min<std::size_t>(children.size() + 2, 1U << 31));
    if (!expressions_ || expressions_->isHalfFull() || countLimit_ < needed) {
        countLimit_ = std::max(LeastCountLimit, std::bit_ceil(needed));
        expressions_ = std::make_shared<Expressions>(grammar_);
    }
    const Type &declared = grammar_.type(type);
    Expressions::Id start = Expressions::End;
    if (declared.content == Content::Any)
        start = expressions_->anyOf(grammar_.globalElements());
    else if (declared.particle != None &&
             (declared.content == Content::Elements || declared.content == Content::Mixed))
        start = expressions_->compile(declared.particle, countLimit_);
    return {expressions_, grammar_, start, children};
}

std::vector<std::vector<Index>>
ContentMatcher::completion(Index type, const std::vector<Symbol> &children, int limit) {
    const ContentRun content = run(type, children);
    Expressions::Id state = content.states_.back();
    std::vector<std::vector<Index>> steps;
    while (static_cast<int>(steps.size()) < limit && !expressions_->isComplete(state)) {
        std::vector<Index> needed = content.elementsOf(expressions_->needed(state));
        if (needed.empty())
            break;
        state = expressions_->after(state, content.symbolOf(needed.front()));
        steps.push_back(std::move(needed));
    }
    return steps;
}

} // namespace quillon::grammar
