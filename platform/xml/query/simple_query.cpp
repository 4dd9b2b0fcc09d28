#include "platform/xml/query/simple_query.h"

#include "platform/xml/query/path_walk.h"

#include <algorithm>
#include <libxml/parser.h>

namespace quillon::xml {

namespace {

/// The first element among the children of the document; 0 for none.
Number rootOf(const Arena &arena) {
    Number n = arena.part(arena.documentNumber()).firstChild;
    while (n != 0 && arena.record(n).kind != NodeType::Element)
        n = arena.record(n).next;
    return n;
}

/// Whether a query may start there: from an element of the document, or from the document.
bool isContext(const Arena &arena, Number node, PathWork &work) {
    if (!arena.isAlive(node) || !arena.hasPart(node))
        return false;
    for (; node != arena.documentNumber(); node = arena.record(node).parent) {
        work.spend();
        if (node == 0)
            return false;
    }
    return true;
}

/// A path, evaluated from one node.
class SimpleQuery {
public:
    SimpleQuery(const Arena &arena, const SimplePath &path, Number context, PathWork &work)
        : arena_(arena), path_(path), context_(context), work_(work), namespaces_(arena),
          names_(arena, namespaces_), nodes_(arena, namespaces_, names_, work) {}

    /// Nothing when a name is to be judged by the library. The namespace of names without a prefix
    /// is empty for none.
    std::optional<SimpleAnswer> answer(std::string_view defaultNamespace);
    std::optional<SimpleAnswer> answerWithDefaults();

private:
    std::vector<Number> evaluate();
    std::vector<Number> parentsOf(const std::vector<Number> &nodes, const PathStep &step);
    /// Whether an element in that namespace has one of the names without a prefix.
    bool hasElement(std::string_view uri);
    bool asksForPlainNames() const;

    const Arena &arena_;
    const SimplePath &path_;
    Number context_;
    PathWork &work_;
    NamespacesInForce namespaces_;
    PathNames names_;
    PathNodes nodes_;
};

std::vector<Number> SimpleQuery::parentsOf(const std::vector<Number> &nodes, const PathStep &step) {
    std::vector<Number> parents;
    for (const Number n : nodes) {
        const Number parent = arena_.record(n).parent;
        // Siblings follow one another.
        if (parent != 0 && (parents.empty() || parents.back() != parent) &&
            nodes_.finds(step, parent))
            parents.push_back(parent);
    }
    return parents;
}

std::vector<Number> SimpleQuery::evaluate() {
    std::vector<Number> found;
    for (const PathStage &stage : path_.stages) {
        PathWalk walk(arena_, stage, nodes_, work_);
        if (&stage == &path_.stages.front())
            walk.startFrom(context_);
        else
            walk.startFrom(stage.parent ? parentsOf(found, *stage.parent) : found);
        found = walk.run();
        nodes_.filter(found, stage.filters);
    }
    return found;
}

std::optional<SimpleAnswer> SimpleQuery::answer(std::string_view defaultNamespace) {
    const Number element =
        arena_.record(context_).kind == NodeType::Document ? rootOf(arena_) : context_;
    if (!names_.bind(path_.names, element, defaultNamespace))
        return {};
    SimpleAnswer answer;
    answer.nodes = evaluate();
    if (path_.isCount) {
        answer.count = answer.nodes.size();
        answer.nodes.clear();
    }
    return answer;
}

bool SimpleQuery::asksForPlainNames() const {
    return std::ranges::any_of(path_.names, [](const PathName &name) {
        return name.prefix.empty() && !name.isOfAttribute;
    });
}

bool SimpleQuery::hasElement(std::string_view uri) {
    std::vector<bool> isAskedFor(arena_.names->size());
    for (std::uint32_t n = 0; n < arena_.names->size(); ++n) {
        const std::string_view local = namespaces_.localPart(n);
        const auto fits = [&](const PathName &name) {
            return name.prefix.empty() && !name.isOfAttribute &&
                   name.local == (uri.empty() ? arena_.names->utf8(n) : local);
        };
        isAskedFor[n] = std::ranges::any_of(path_.names, fits);
    }
    const Number top = arena_.documentNumber();
    for (Number n = top; n != 0; n = arena_.nextInSubtree(n, top)) {
        work_.spend();
        const Record &r = arena_.record(n);
        if (r.kind == NodeType::Element && isAskedFor[r.name] &&
            namespaces_.namespaceOf(n, r.name, false) == uri)
            return true;
    }
    return false;
}

std::optional<SimpleAnswer> SimpleQuery::answerWithDefaults() {
    std::optional<SimpleAnswer> plain = answer({});
    if (!plain || !plain->nodes.empty() || !asksForPlainNames())
        return plain;
    std::vector<std::string> defaults;
    for (const Number at : {context_, rootOf(arena_)}) {
        std::string uri(namespaces_.defaultAt(at));
        if (!uri.empty() && (defaults.empty() || defaults.front() != uri))
            defaults.push_back(std::move(uri));
    }
    // A number of nodes is an answer, also 0, unless the names mean nothing as they are.
    if (plain->count && (defaults.empty() || hasElement({})))
        return plain;
    for (const std::string &uri : defaults) {
        if (plain->count && !hasElement(uri))
            continue;
        std::optional<SimpleAnswer> other = answer(uri);
        if (!other || other->count || !other->nodes.empty()) {
            if (other)
                other->inDefaultNamespace = true;
            return other;
        }
    }
    return plain;
}

} // namespace

std::optional<SimpleAnswer> simplyEvaluated(const Arena &arena, Number context,
                                            const XPathExpression &expression,
                                            DefaultNamespaces defaults,
                                            const runtime::Progress &progress) {
    const std::optional<SimplePath> path = simplePathOf(expression);
    if (!path)
        return {};
    // Its conversion to numbers knows what is none only from then on.
    xmlInitParser();
    try {
        PathWork work(progress);
        if (!isContext(arena, context, work))
            return {};
        SimpleQuery query(arena, *path, context, work);
        return defaults == DefaultNamespaces::Tried ? query.answerWithDefaults() : query.answer({});
    } catch (const PathWork::TooMuch &) {
        return {};
    }
}

} // namespace quillon::xml
