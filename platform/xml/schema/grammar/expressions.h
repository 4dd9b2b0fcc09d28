#pragma once

#include "platform/xml/schema/grammar/grammar.h"

#include <array>
#include <unordered_map>
#include <vector>

namespace quillon::grammar {

/// What may still come in an element, as expressions over its children, and how that changes with
/// each child. Equal expressions are kept once and known by a number, so that the states a content
/// model goes through repeat themselves. Occurrences are counted down, never unrolled.
class Expressions {
public:
    using Id = quint32;
    /// Nothing fits, not even that no child comes.
    static constexpr Id Nothing = 0;
    /// No further child.
    static constexpr Id End = 1;
    /// Whatever comes: what is not known any more, as the model has gone through more states than
    /// there is room for. Only a model that is made for it does that.
    static constexpr Id Unknown = 2;

    explicit Expressions(const Grammar &grammar);

    /// The expression of a particle; numbers of occurrences above `countLimit` count as unlimited.
    Id compile(Index particle, quint32 countLimit);
    /// The elements of `globals` in any number and order.
    Id anyOf(const std::vector<Index> &globals);

    /// A number for a name of a child.
    quint32 symbolNumber(const Symbol &symbol);
    const Symbol &symbol(quint32 number) const { return symbols_[number]; }
    /// What may come after a child; Nothing when it may not come.
    Id after(Id expression, quint32 symbol);
    /// No further child is needed.
    bool isComplete(Id expression) const { return nodes_[expression].isComplete; }

    /// An element or wildcard.
    struct Leaf {
        bool isWildcard = false;
        /// Of `elements` or `wildcards`.
        Index target = None;

        bool operator==(const Leaf &) const = default;
    };
    /// What may come next, each once, in the order of the model.
    std::vector<Leaf> next(Id expression) const;
    /// Of these, those of which one has to come: some of what stands in the first place that cannot
    /// be left out. Empty when the expression is complete.
    std::vector<Leaf> needed(Id expression) const;
    /// Everything that stands in it anywhere, each once, in order.
    std::vector<Leaf> leaves(Id expression) const;

    /// So much room is taken that it is time to begin anew.
    bool isHalfFull() const { return size() > MaxSize / 2; }

private:
    static constexpr std::size_t MaxSize = 2'000'000;

    enum class Kind : quint8 { Nothing, End, Unknown, Leaf, Sequence, Choice, Interleave, Repeat };
    struct Node {
        Kind kind = Kind::Nothing;
        bool isComplete = false;
        bool isWildcard = false;
        /// The target of a leaf; the first of a sequence; what is repeated.
        quint32 first = 0;
        /// The rest of a sequence.
        quint32 second = 0;
        quint32 minimum = 0;
        quint32 maximum = 0;
        /// Of `lists_`: the parts of a choice or of an interleave.
        Range parts = {};
    };

    std::size_t size() const { return nodes_.size() + lists_.size(); }
    std::span<const Id> partsOf(const Node &node) const {
        return std::span(lists_).subspan(node.parts.first, node.parts.count);
    }
    Id kept(const Node &node, std::span<const Id> parts = {});
    bool isSame(const Node &node, std::span<const Id> parts, Id other) const;
    Id leaf(bool isWildcard, Index target);
    Id sequence(Id first, Id second);
    Id choice(const std::vector<Id> &parts);
    Id interleave(std::vector<Id> parts);
    Id repeat(Id part, quint32 minimum, quint32 maximum);
    bool isMergeable(const Node &inner, quint32 minimum, quint32 maximum) const;
    Id compileGroup(const Particle &particle);

    Id derive(Id expression, quint32 symbol);
    Id deriveSequence(Id expression, quint32 symbol);
    Id deriveInterleave(Id expression, quint32 symbol);
    void deriveChoice(Id expression, quint32 symbol, std::vector<Id> &results);
    bool takes(const Node &leaf, quint32 symbol);
    template <typename Parts>
    std::vector<Leaf> collect(Id expression, Parts &&partsOf) const;

    /// What a long list of elements holds, by their names.
    template <typename Value>
    using ByName = std::unordered_map<quint64, Value>;
    struct ChoiceIndex {
        ByName<std::vector<Id>> leaves;
        /// Those parts that are no elements.
        std::vector<Id> others;
    };
    const ChoiceIndex &indexOf(Id choice);
    static quint64 key(const Symbol &name) { return quint64(name.space) << 32 | name.local; }

    Grammar grammar_;
    std::vector<Node> nodes_;
    std::vector<Id> lists_;
    std::unordered_multimap<std::size_t, Id> known_;
    std::vector<Symbol> symbols_;
    std::unordered_map<quint64, quint32> symbolNumbers_;
    std::unordered_map<quint64, Id> steps_;
    std::unordered_map<Index, Id> compiled_;
    /// Of choices with many parts: an answer asks them for every part in turn.
    std::unordered_map<Id, ChoiceIndex> choices_;
    /// Of elements with many substitutes.
    std::unordered_map<Index, ByName<bool>> substitutes_;
    quint32 countLimit_ = Unbounded;

    struct Recent {
        quint64 key = ~quint64(0);
        Id after = Nothing;
    };
    /// The steps taken last: documents repeat them.
    std::array<Recent, 256> recent_;
};

} // namespace quillon::grammar
