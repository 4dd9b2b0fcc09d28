#pragma once

#include <vector>

namespace quillon::xdr {

struct ElementType;

/// Which children an element may have, and in which order: an automaton over element types.
class ContentModel {
public:
    /// What may come next, in a run over the children of one element.
    using State = std::vector<int>;

    /// A piece of an automaton; pieces are put together from the inside out.
    struct Fragment {
        int start;
        int end;
    };

    /// Takes nothing, until it is built up.
    ContentModel() = default;

    Fragment element(const ElementType *type);
    /// One piece after the other; takes nothing when there is none.
    Fragment sequence(const std::vector<Fragment> &parts);
    /// Any one of the pieces.
    Fragment choice(const std::vector<Fragment> &parts);
    /// The piece at least `minimum` times, 0 or 1, and at most once unless `unbounded`.
    Fragment repeat(const Fragment &part, int minimum, bool unbounded);
    /// Makes a piece the whole automaton.
    void finish(const Fragment &whole);
    /// Takes those types, which ascend, in any number and order instead.
    void takeAnyOf(std::vector<const ElementType *> types);

    /// The element types of all pieces, each once, ascending.
    std::vector<const ElementType *> types() const;

    State start() const;
    /// Takes one child. False, with the state as it was, when the child may not come next.
    bool advance(State &state, const ElementType *child) const;
    /// No further child is needed.
    bool accepts(const State &state) const;
    /// The element types that may come next, each once, in no particular order.
    std::vector<const ElementType *> expected(const State &state) const;

private:
    struct Node {
        /// The child that leads to `next`; null for a node that is passed without a child.
        const ElementType *type = nullptr;
        std::vector<int> next;
    };

    int add(const ElementType *type = nullptr);
    void connect(int from, int to) { nodes_[static_cast<std::size_t>(from)].next.push_back(to); }
    void enter(int node, State &state) const;

    std::vector<Node> nodes_;
    /// Ascending: what may come in any number and order when there is no automaton.
    std::vector<const ElementType *> anyOf_;
    int start_ = -1;
    int end_ = -1;
    /// Scratch for enter(): the round in which a node was reached last.
    mutable std::vector<unsigned> reached_;
    mutable unsigned round_ = 0;
    mutable std::vector<int> pending_;
};

} // namespace quillon::xdr
