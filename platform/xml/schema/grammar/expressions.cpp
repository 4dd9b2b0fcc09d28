#include "platform/xml/schema/grammar/expressions.h"

#include <algorithm>
#include <unordered_set>

namespace quillon::grammar {

namespace {

/// So many parts are worth an index.
constexpr quint32 ManyParts = 16;

void mix(std::size_t &hash, quint32 value) {
    hash = (hash ^ value) * 0x9E3779B97F4A7C15ULL;
    hash ^= hash >> 29;
}

quint32 timesCapped(quint32 a, quint32 b) {
    if (a == 0 || b == 0)
        return 0;
    if (a == Unbounded || b == Unbounded)
        return Unbounded;
    return static_cast<quint32>(std::min<quint64>(quint64(a) * b, Unbounded));
}

quint32 oneLess(quint32 count) {
    return count == 0 || count == Unbounded ? count : count - 1;
}

} // namespace

Expressions::Expressions(const Grammar &grammar)
    : grammar_(grammar), nodes_{{Kind::Nothing}, {Kind::End, true}, {Kind::Unknown, true}} {}

quint32 Expressions::symbolNumber(const Symbol &symbol) {
    const auto [at, isNew] =
        symbolNumbers_.try_emplace(key(symbol), static_cast<quint32>(symbols_.size()));
    if (isNew)
        symbols_.push_back(symbol);
    return at->second;
}

bool Expressions::isSame(const Node &node, std::span<const Id> parts, Id other) const {
    const Node &known = nodes_[other];
    return known.kind == node.kind && known.isWildcard == node.isWildcard &&
           known.first == node.first && known.second == node.second &&
           known.minimum == node.minimum && known.maximum == node.maximum &&
           std::ranges::equal(partsOf(known), parts);
}

Expressions::Id Expressions::kept(const Node &node, std::span<const Id> parts) {
    std::size_t hash = static_cast<std::size_t>(node.kind) * 2 + node.isWildcard;
    for (const quint32 value : {node.first, node.second, node.minimum, node.maximum})
        mix(hash, value);
    for (const Id part : parts)
        mix(hash, part);
    const auto [begin, end] = known_.equal_range(hash);
    for (auto at = begin; at != end; ++at) {
        if (isSame(node, parts, at->second))
            return at->second;
    }
    Node added = node;
    added.parts = {static_cast<Index>(lists_.size()), static_cast<quint32>(parts.size())};
    lists_.insert(lists_.end(), parts.begin(), parts.end());
    nodes_.push_back(added);
    const auto id = static_cast<Id>(nodes_.size()) - 1;
    known_.emplace(hash, id);
    return id;
}

Expressions::Id Expressions::leaf(bool isWildcard, Index target) {
    Node node{Kind::Leaf};
    node.isWildcard = isWildcard;
    node.first = target;
    return kept(node);
}

Expressions::Id Expressions::sequence(Id first, Id second) {
    if (first == Nothing || second == Nothing)
        return Nothing;
    if (first == End)
        return second;
    if (second == End)
        return first;
    Node node{Kind::Sequence, isComplete(first) && isComplete(second)};
    node.first = first;
    node.second = second;
    return kept(node);
}

Expressions::Id Expressions::choice(const std::vector<Id> &parts) {
    if (parts.size() == 1)
        return parts.front();
    // The order of the model is the order in which things are offered, so it is kept. Choices
    // within choices are taken apart: else they would nest deeper with every child.
    std::vector<Id> kinds;
    std::unordered_set<Id> seen;
    const auto add = [&](Id part) {
        if (part != Nothing && seen.insert(part).second)
            kinds.push_back(part);
    };
    for (const Id part : parts) {
        if (nodes_[part].kind == Kind::Choice)
            std::ranges::for_each(partsOf(nodes_[part]), add);
        else
            add(part);
    }
    if (seen.contains(Unknown))
        return Unknown;
    // "No further child" adds nothing to what may end anyway.
    if (seen.contains(End) &&
        std::ranges::any_of(kinds, [this](Id id) { return id != End && isComplete(id); }))
        std::erase(kinds, End);
    if (kinds.empty())
        return Nothing;
    if (kinds.size() == 1)
        return kinds.front();
    const bool complete = std::ranges::any_of(kinds, [this](Id id) { return isComplete(id); });
    return kept({Kind::Choice, complete}, kinds);
}

Expressions::Id Expressions::interleave(std::vector<Id> parts) {
    std::erase(parts, End);
    if (std::ranges::find(parts, Nothing) != parts.end())
        return Nothing;
    if (parts.empty())
        return End;
    if (parts.size() == 1)
        return parts.front();
    const bool complete = std::ranges::all_of(parts, [this](Id id) { return isComplete(id); });
    return kept({Kind::Interleave, complete}, parts);
}

/// The numbers of inner occurrences of a repeat have no gaps, so that two can be made one. Without
/// that (a{1,1000}){1000} would be in a thousand states at once.
bool Expressions::isMergeable(const Node &inner, quint32 minimum, quint32 maximum) const {
    if (minimum == maximum)
        return true;
    if (minimum == 0 && inner.minimum > 1)
        return false;
    if (inner.maximum == Unbounded)
        return true;
    const quint64 times = std::max<quint64>(minimum, 1);
    return inner.minimum * (times + 1) <= inner.maximum * times + 1;
}

Expressions::Id Expressions::repeat(Id part, quint32 minimum, quint32 maximum) {
    if (maximum == 0 || part == End)
        return End;
    if (part == Nothing)
        return minimum == 0 ? End : Nothing;
    if (isComplete(part))
        minimum = 0;
    if (minimum == 1 && maximum == 1)
        return part;
    const Node &inner = nodes_[part];
    if (inner.kind == Kind::Repeat && isMergeable(inner, minimum, maximum))
        return repeat(inner.first, timesCapped(inner.minimum, minimum),
                      timesCapped(inner.maximum, maximum));
    Node node{Kind::Repeat, minimum == 0};
    node.first = part;
    node.minimum = minimum;
    node.maximum = maximum;
    return kept(node);
}

Expressions::Id Expressions::compile(Index particle, quint32 countLimit) {
    if (countLimit != countLimit_)
        compiled_.clear();
    countLimit_ = countLimit;
    if (const auto known = compiled_.find(particle); known != compiled_.end())
        return known->second;
    const Particle &from = grammar_.particle(particle);
    const Id part = from.kind == ParticleKind::Element || from.kind == ParticleKind::Wildcard
                        ? leaf(from.kind == ParticleKind::Wildcard, from.target)
                        : compileGroup(from);
    const Id whole = repeat(part, std::min(from.minimum, countLimit),
                            from.maximum > countLimit ? Unbounded : from.maximum);
    compiled_.emplace(particle, whole);
    return whole;
}

Expressions::Id Expressions::compileGroup(const Particle &particle) {
    std::vector<Id> parts;
    for (const Index part : grammar_.partsOf(particle))
        parts.push_back(compile(part, countLimit_));
    if (particle.kind == ParticleKind::Choice)
        return choice(parts);
    if (particle.kind == ParticleKind::Interleave)
        return interleave(std::move(parts));
    Id whole = End;
    for (auto part = parts.rbegin(); part != parts.rend(); ++part)
        whole = sequence(*part, whole);
    return whole;
}

Expressions::Id Expressions::anyOf(const std::vector<Index> &globals) {
    std::vector<Id> parts;
    for (const Index element : globals)
        parts.push_back(leaf(false, element));
    return repeat(choice(parts), 0, Unbounded);
}

bool Expressions::takes(const Node &leaf, quint32 symbol) {
    if (leaf.isWildcard)
        return grammar_.matches(grammar_.data().wildcards[leaf.first], symbols_[symbol]);
    const Element &element = grammar_.element(leaf.first);
    if (element.substitutes.count < ManyParts)
        return grammar_.matches(element, symbols_[symbol]);
    const auto [names, isNew] = substitutes_.try_emplace(leaf.first);
    if (isNew) {
        for (const Index at : grammar_.standingFor(leaf.first)) {
            const Name &name = grammar_.element(at).name;
            names->second.emplace(key({name.space, name.local}), true);
        }
    }
    return names->second.contains(key(symbols_[symbol]));
}

const Expressions::ChoiceIndex &Expressions::indexOf(Id choice) {
    const auto [index, isNew] = choices_.try_emplace(choice);
    if (!isNew)
        return index->second;
    for (const Id part : partsOf(nodes_[choice])) {
        const Node &node = nodes_[part];
        if (node.kind != Kind::Leaf || node.isWildcard) {
            index->second.others.push_back(part);
            continue;
        }
        for (const Index at : grammar_.standingFor(node.first)) {
            const Name &name = grammar_.element(at).name;
            index->second.leaves[key({name.space, name.local})].push_back(part);
        }
    }
    return index->second;
}

void Expressions::deriveChoice(Id expression, quint32 symbol, std::vector<Id> &results) {
    const auto add = [&](Id part) {
        const Id result = derive(part, symbol);
        if (result != Nothing)
            results.push_back(result);
    };
    const Range parts = nodes_[expression].parts;
    if (parts.count < ManyParts) {
        for (quint32 i = 0; i < parts.count; ++i)
            add(lists_[parts.first + i]);
        return;
    }
    const ChoiceIndex &index = indexOf(expression);
    if (const auto leaves = index.leaves.find(key(symbols_[symbol])); leaves != index.leaves.end())
        std::ranges::for_each(leaves->second, add);
    std::ranges::for_each(index.others, add);
}

Expressions::Id Expressions::after(Id expression, quint32 symbol) {
    const quint64 step = quint64(expression) << 32 | symbol;
    Recent &recent = recent_[(expression * 31 + symbol) % recent_.size()];
    if (recent.key != step)
        recent = {step, derive(expression, symbol)};
    return recent.after;
}

Expressions::Id Expressions::derive(Id expression, quint32 symbol) {
    const Node node = nodes_[expression];
    if (node.kind == Kind::Nothing || node.kind == Kind::End)
        return Nothing;
    if (node.kind == Kind::Leaf)
        return takes(node, symbol) ? End : Nothing;
    if (node.kind == Kind::Unknown || size() > MaxSize)
        return Unknown;
    const quint64 step = quint64(expression) << 32 | symbol;
    if (const auto known = steps_.find(step); known != steps_.end())
        return known->second;
    Id result = Nothing;
    if (node.kind == Kind::Sequence)
        result = deriveSequence(expression, symbol);
    else if (node.kind == Kind::Interleave)
        result = deriveInterleave(expression, symbol);
    else if (node.kind == Kind::Repeat) {
        const Id once = derive(node.first, symbol);
        if (once != Nothing)
            result =
                sequence(once, repeat(node.first, oneLess(node.minimum), oneLess(node.maximum)));
    } else {
        std::vector<Id> results;
        deriveChoice(expression, symbol, results);
        result = choice(results);
    }
    steps_.emplace(step, result);
    return result;
}

Expressions::Id Expressions::deriveSequence(Id expression, quint32 symbol) {
    // Along the sequence without recursion: it may be long, and all of it optional.
    std::vector<Id> results;
    Id at = expression;
    while (true) {
        const Node node = nodes_[at];
        const Id part = node.kind == Kind::Sequence
                            ? sequence(derive(node.first, symbol), node.second)
                            : derive(at, symbol);
        if (part != Nothing)
            results.push_back(part);
        if (node.kind != Kind::Sequence)
            break;
        if (!isComplete(node.first))
            break;
        at = node.second;
    }
    return choice(results);
}

Expressions::Id Expressions::deriveInterleave(Id expression, quint32 symbol) {
    const Node node = nodes_[expression];
    std::vector<Id> results;
    for (quint32 i = 0; i < node.parts.count; ++i) {
        const Id changed = derive(lists_[node.parts.first + i], symbol);
        if (changed == Nothing)
            continue;
        std::vector<Id> parts;
        for (quint32 j = 0; j < node.parts.count; ++j)
            parts.push_back(j == i ? changed : lists_[node.parts.first + j]);
        results.push_back(interleave(std::move(parts)));
    }
    return choice(results);
}

template <typename Parts>
std::vector<Expressions::Leaf> Expressions::collect(Id expression, Parts &&partsOfNode) const {
    std::vector<Leaf> found;
    std::vector<bool> seen(nodes_.size());
    std::vector<Id> pending{expression};
    std::vector<Id> parts;
    while (!pending.empty()) {
        const Id at = pending.back();
        pending.pop_back();
        if (seen[at])
            continue;
        seen[at] = true;
        const Node &node = nodes_[at];
        if (node.kind == Kind::Leaf) {
            found.push_back({node.isWildcard, node.first});
            continue;
        }
        parts.clear();
        partsOfNode(node, parts);
        pending.insert(pending.end(), parts.rbegin(), parts.rend());
    }
    return found;
}

std::vector<Expressions::Leaf> Expressions::next(Id expression) const {
    return collect(expression, [this](const Node &node, std::vector<Id> &parts) {
        if (node.kind == Kind::Sequence) {
            parts.push_back(node.first);
            if (isComplete(node.first))
                parts.push_back(node.second);
        } else if (node.kind == Kind::Repeat) {
            parts.push_back(node.first);
        } else {
            parts.assign(partsOf(node).begin(), partsOf(node).end());
        }
    });
}

std::vector<Expressions::Leaf> Expressions::needed(Id expression) const {
    return collect(expression, [this](const Node &node, std::vector<Id> &parts) {
        if (node.isComplete)
            return;
        if (node.kind == Kind::Sequence) {
            parts.push_back(isComplete(node.first) ? node.second : node.first);
        } else if (node.kind == Kind::Repeat) {
            parts.push_back(node.first);
        } else if (node.kind == Kind::Choice) {
            parts.assign(partsOf(node).begin(), partsOf(node).end());
        } else if (node.kind == Kind::Interleave) {
            parts.push_back(
                *std::ranges::find_if(partsOf(node), [this](Id id) { return !isComplete(id); }));
        }
    });
}

std::vector<Expressions::Leaf> Expressions::leaves(Id expression) const {
    return collect(expression, [this](const Node &node, std::vector<Id> &parts) {
        if (node.kind == Kind::Sequence)
            parts = {node.first, node.second};
        else if (node.kind == Kind::Repeat)
            parts.push_back(node.first);
        else
            parts.assign(partsOf(node).begin(), partsOf(node).end());
    });
}

} // namespace quillon::grammar
