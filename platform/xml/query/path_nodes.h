#pragma once

#include "platform/xml/query/namespaces_in_force.h"
#include "platform/xml/query/path_work.h"
#include "platform/xml/query/simple_path.h"

#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::xml {

/// The names of a path, as they are found in a document.
class PathNames {
public:
    PathNames(const Arena &arena, NamespacesInForce &namespaces)
        : arena_(arena), namespaces_(namespaces) {}

    /// `element` says what the prefixes mean, and `defaultNamespace` where names of elements
    /// without one are. False for a name that only the library can judge: with a prefix that it may
    /// know, or that may be no name at all.
    bool bind(const std::vector<PathName> &names, Number element,
              std::string_view defaultNamespace);
    static constexpr std::uint32_t AnyName = std::numeric_limits<std::uint32_t>::max();
    /// The number of the only name that nodes can have that pass a test, or AnyName.
    std::uint32_t onlyName(const NodeTest &test) const {
        return test.kind == NodeTest::Kind::Name && bound_[test.name].uri.empty()
                   ? bound_[test.name].only
                   : AnyName;
    }
    /// Whether a node has the name in that place, an attribute or an element as that asks for.
    bool matches(std::size_t name, Number node) const;

private:
    struct Bound {
        std::string uri;
        /// The one name that fits, when it is in no namespace.
        std::uint32_t only = 0;
        /// Else those that do, by their numbers; all when there is no list.
        std::vector<bool> fitting;
        bool isOfAttribute = false;
    };

    const Arena &arena_;
    NamespacesInForce &namespaces_;
    std::vector<Bound> bound_;
};

/// What the steps and predicates of a path find and say at a node. XPath 1.0 decides, and where it
/// leaves something open, libxml2.
class PathNodes {
public:
    PathNodes(const Arena &arena, NamespacesInForce &namespaces, const PathNames &names,
              PathWork &work)
        : arena_(arena), namespaces_(namespaces), names_(names), work_(work) {}

    std::uint32_t onlyName(const NodeTest &test) const { return names_.onlyName(test); }
    /// Whether a step that asks for no positions, or whose axis has one node, finds a node.
    bool finds(const PathStep &step, Number node);
    /// What a step along the child or the attribute axis finds, in document order.
    std::vector<Number> found(const PathStep &step, Number from);
    /// Those of a list that pass predicates, by their positions in it.
    void filter(std::vector<Number> &nodes, const std::vector<PathOperation> &predicates);
    /// The first of a node's attributes that is no namespace declaration, and the next one; 0 for
    /// none.
    Number firstAttribute(Number element);
    Number nextAttribute(Number attribute) { return undeclaring(arena_.record(attribute).next); }
    /// The text that XPath knows a node by. Good until the node or the buffer changes.
    std::string_view textOf(Number node, std::string &buffer);

private:
    using Kind = PathOperation::Kind;

    /// What nodes are given to, one after the other, until it returns true. Refers to a function.
    class Taker {
    public:
        template <typename Function>
        Taker(const Function &function)
            : function_(&function), call_([](const void *called, Number n) {
                  return (*static_cast<const Function *>(called))(n);
              }) {}
        bool operator()(Number n) const { return call_(function_, n); }

    private:
        const void *function_;
        bool (*call_)(const void *function, Number n);
    };

    /// A node, and which of how many it is.
    struct Focus {
        Number node;
        std::size_t position;
        std::size_t size;
    };

    /// What comes first on the child axis or, with the declarations, on that of attributes.
    Number firstOn(PathStep::Axis axis, Number node) const;
    /// False for namespace declarations, which are no attributes.
    bool isOnAxis(Number node);
    Number undeclaring(Number attribute);
    bool matches(const NodeTest &test, Number node) const;
    std::string_view characters(Number node, std::string &buffer);
    bool hasText(Number node, std::string_view text);

    bool passes(const std::vector<PathOperation> &predicates, const Focus &focus);
    bool passes(const PathOperation &predicate, const Focus &focus);
    bool truth(const PathOperation &operation, const Focus &focus);
    double number(const PathOperation &operation, const Focus &focus);
    static double numberOf(std::string_view text);
    /// Good until the document or the buffer changes.
    std::string_view text(const PathOperation &operation, const Focus &focus, std::string &buffer);
    std::string_view nameOf(const PathOperation &operation, const Focus &focus);
    bool compare(const PathOperation &comparison, const Focus &focus);
    bool compareNodes(const PathOperation &comparison, const Focus &focus);
    Number firstOf(const PathSteps &steps, Number from);

    /// Gives the nodes that steps lead to, until `take` returns true for one; returns whether it
    /// has.
    bool visit(const PathSteps &steps, std::size_t at, Number from, const Taker &take);
    bool visitList(const PathSteps &steps, std::size_t at, Number from, const Taker &take);
    bool visitBelow(const PathSteps &steps, std::size_t at, Number from, const Taker &take);

    const Arena &arena_;
    NamespacesInForce &namespaces_;
    const PathNames &names_;
    PathWork &work_;
};

} // namespace quillon::xml
