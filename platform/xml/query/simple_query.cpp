#include "platform/xml/query/simple_query.h"

#include "platform/xml/query/path_walk.h"

#include <algorithm>
#include <functional>
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

/// A path, evaluated from one node after the other.
class SimpleQuery {
public:
    SimpleQuery(const Arena &arena, const SimplePath &path, PathWork &work)
        : arena_(arena), path_(path), work_(work), namespaces_(arena), names_(arena, namespaces_),
          nodes_(arena, namespaces_, names_, work) {}

    /// Nothing for what only the library can judge.
    std::optional<SimpleAnswer> answer(Number context, DefaultNamespaces defaults);

private:
    /// The namespace of names without a prefix is empty for none.
    std::optional<SimpleAnswer> answerIn(std::string_view defaultNamespace, Number context);
    std::optional<SimpleAnswer> answerInDefaults(SimpleAnswer plain, Number context);
    std::vector<Number> evaluate(Number context);
    std::vector<Number> parentsOf(const std::vector<Number> &nodes, const PathStep &step);
    /// Whether an element in that namespace has one of the names without a prefix.
    bool hasElement(std::string_view uri);
    bool asksForPlainNames() const;

    const Arena &arena_;
    const SimplePath &path_;
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

std::vector<Number> SimpleQuery::evaluate(Number context) {
    std::vector<Number> found;
    for (const PathStage &stage : path_.stages) {
        PathWalk walk(arena_, stage, nodes_, work_);
        if (&stage == &path_.stages.front())
            walk.startFrom(context);
        else
            walk.startFrom(stage.parent ? parentsOf(found, *stage.parent) : found);
        found = walk.run();
        nodes_.filter(found, stage.filters);
    }
    return found;
}

std::optional<SimpleAnswer> SimpleQuery::answerIn(std::string_view defaultNamespace,
                                                  Number context) {
    const Number element =
        arena_.record(context).kind == NodeType::Document ? rootOf(arena_) : context;
    work_.spend(path_.names.empty() ? 0 : arena_.names->size());
    if (!names_.bind(path_.names, element, defaultNamespace))
        return {};
    SimpleAnswer answer;
    answer.nodes = evaluate(context);
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

std::optional<SimpleAnswer> SimpleQuery::answerInDefaults(SimpleAnswer plain, Number context) {
    std::vector<std::string> defaults;
    for (const Number at : {context, rootOf(arena_)}) {
        std::string uri(namespaces_.defaultAt(at));
        if (!uri.empty() && (defaults.empty() || defaults.front() != uri))
            defaults.push_back(std::move(uri));
    }
    // A number of nodes is an answer, also 0, unless the names mean nothing as they are.
    if (plain.count && (defaults.empty() || hasElement({})))
        return plain;
    for (const std::string &uri : defaults) {
        if (plain.count && !hasElement(uri))
            continue;
        std::optional<SimpleAnswer> answer = answerIn(uri, context);
        if (!answer)
            return {};
        if (answer->count || !answer->nodes.empty()) {
            answer->inDefaultNamespace = true;
            return answer;
        }
    }
    return plain;
}

std::optional<SimpleAnswer> SimpleQuery::answer(Number context, DefaultNamespaces defaults) {
    if (!isContext(arena_, context, work_))
        return {};
    std::optional<SimpleAnswer> plain = answerIn({}, context);
    const bool isAll = !plain || !plain->nodes.empty() || defaults == DefaultNamespaces::NotTried;
    return isAll || !asksForPlainNames() ? plain : answerInDefaults(std::move(*plain), context);
}

/// Gives the answer from each context to `take`; false when the library is to be asked for them.
bool evaluateFrom(std::span<const Number> contexts, const Arena &arena,
                  const XPathExpression &expression, DefaultNamespaces defaults,
                  const runtime::Progress &progress,
                  const std::function<void(SimpleAnswer)> &take) {
    const std::optional<SimplePath> path = simplePathOf(expression);
    if (!path)
        return false;
    // Its conversion to numbers knows what is none only from then on.
    xmlInitParser();
    try {
        PathWork work(progress);
        SimpleQuery query(arena, *path, work);
        for (const Number context : contexts) {
            std::optional<SimpleAnswer> answer = query.answer(context, defaults);
            if (!answer)
                return false;
            take(std::move(*answer));
        }
    } catch (const PathWork::TooMuch &) {
        return false;
    }
    return true;
}

} // namespace

std::optional<SimpleAnswer> simplyEvaluated(const Arena &arena, Number context,
                                            const XPathExpression &expression,
                                            DefaultNamespaces defaults,
                                            const runtime::Progress &progress) {
    std::optional<SimpleAnswer> whole;
    const bool isWhole = evaluateFrom(std::span(&context, 1), arena, expression, defaults, progress,
                                      [&](SimpleAnswer answer) { whole = std::move(answer); });
    return isWhole ? whole : std::nullopt;
}

std::optional<std::vector<SimpleAnswer>> simplyEvaluatedAt(const Arena &arena,
                                                           std::span<const Number> contexts,
                                                           const XPathExpression &expression,
                                                           const runtime::Progress &progress) {
    std::vector<SimpleAnswer> starts;
    const auto keepStart = [&](const SimpleAnswer &answer) {
        SimpleAnswer &start = starts.emplace_back();
        start.count = answer.count;
        if (!answer.nodes.empty())
            start.nodes.push_back(answer.nodes.front());
    };
    if (!evaluateFrom(contexts, arena, expression, DefaultNamespaces::Tried, progress, keepStart))
        return {};
    return starts;
}

} // namespace quillon::xml
