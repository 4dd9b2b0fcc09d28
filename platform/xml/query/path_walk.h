#pragma once

#include "platform/xml/query/path_nodes.h"

#include <cstdint>
#include <vector>

namespace quillon::xml {

/// Takes one stage of a path, with all its alternatives, in a single walk over the document, which
/// comes to the nodes in document order and to each once. It keeps, for each element above the one
/// it is at, which steps are still to be taken inside, a bit each.
class PathWalk {
public:
    PathWalk(const Arena &arena, const PathStage &stage, PathNodes &nodes, PathWork &work);

    /// Starts the first stage from a context, or from where its alternatives say.
    void startFrom(Number context);
    /// Starts from nodes that were found, which may be in any order.
    void startFrom(const std::vector<Number> &found);
    /// The nodes found, in document order.
    std::vector<Number> run();

private:
    using Bits = std::uint64_t;

    /// A step of one of the alternatives, or its end (null).
    struct Step {
        const PathStep *step = nullptr;
        /// See PathNames::onlyName().
        std::uint32_t onlyName = PathNames::AnyName;
    };

    /// An element that the walk is in.
    struct Level {
        /// To be taken by the children.
        Bits children = 0;
        /// To be taken by all that is below.
        Bits below = 0;
        /// Where what the steps with positions find starts among `lists_`.
        std::size_t firstList = 0;
    };
    /// What such a step finds among the children, or the attributes, of an element.
    struct List {
        std::size_t step;
        std::vector<Number> nodes;
        std::size_t next = 0;

        /// Whether it is the next one; the nodes are asked for in their order.
        bool takes(Number node);
    };

    /// The steps that are to be taken from a node because it is a start.
    Bits startsAt(Number node);
    void enter(Number node, Level &own, const Level &parent);
    /// Whether nothing more is to be found among the children that have not been come to.
    bool isDone(const Level &level) const;
    /// A step is the next one to be taken from a node.
    void expect(std::size_t step, Number node, Level &own);
    bool takes(std::size_t step, Number node, const Level &parent);
    void addAttributes(Number element);
    void addLists(Number element, Level &level);

    const Arena &arena_;
    PathNodes &nodes_;
    PathWork &work_;
    std::vector<Step> steps_;
    /// Those that ask for positions among children.
    Bits positional_ = 0;
    /// The first step of each alternative.
    std::vector<std::size_t> firsts_;
    const PathStage &stage_;
    /// Nodes found before, by their distance from the document's number; empty in the first stage.
    std::vector<bool> isStart_;
    /// In the first stage: where alternatives start, with the first steps of these.
    std::vector<std::pair<Number, Bits>> starts_;
    std::size_t startsLeft_ = 0;
    /// All starts are there or below.
    Number top_ = 0;

    // At the node that the walk is at.
    Bits attributes_ = 0;
    bool isFound_ = false;

    std::vector<List> lists_;
    std::vector<Number> found_;
};

} // namespace quillon::xml
