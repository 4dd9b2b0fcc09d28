#include "platform/xml/query/xpath_evaluation.h"

#include "platform/xml/engine/libxml_handles.h"
#include "platform/xml/engine/libxml_walk.h"
#include "platform/xml/query/xpath_error.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <libexslt/exslt.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>
#include <set>

namespace quillon::xml {

namespace {

/// Upper bound of the operations of one query, most of them a look at one node: a few seconds.
constexpr unsigned long MaxOperations = 100'000'000;

/// So much of a text is given, in bytes.
constexpr qsizetype MostOfText = 64 * 1024;

using Context = std::unique_ptr<xmlXPathContext, Releaser<xmlXPathFreeContext>>;
using Compiled = std::unique_ptr<xmlXPathCompExpr, Releaser<xmlXPathFreeCompExpr>>;
using Result = std::unique_ptr<xmlXPathObject, Releaser<xmlXPathFreeObject>>;

/// The functions of EXSLT that the library has for XPath alone.
struct Extension {
    std::string_view prefix;
    const xmlChar *uri;
    int (*add)(xmlXPathContext *context, const xmlChar *prefix);
};

const std::array<Extension, 4> Extensions = {{
    {"str", EXSLT_STRINGS_NAMESPACE, exsltStrXpathCtxtRegister},
    {"math", EXSLT_MATH_NAMESPACE, exsltMathXpathCtxtRegister},
    {"set", EXSLT_SETS_NAMESPACE, exsltSetsXpathCtxtRegister},
    {"date", EXSLT_DATE_NAMESPACE, exsltDateXpathCtxtRegister},
}};

/// Keeps libxml2 from printing what it has told the error handler anyway.
class Silence {
public:
    Silence() : handler_(xmlGenericError), data_(xmlGenericErrorContext) {
        xmlSetGenericErrorFunc(nullptr, ignore);
    }
    Silence(const Silence &) = delete;
    Silence &operator=(const Silence &) = delete;
    ~Silence() { xmlSetGenericErrorFunc(data_, handler_); }

private:
    static void ignore(void *, const char *, ...) {}

    xmlGenericErrorFunc handler_;
    void *data_;
};

/// A node that was found, with its place in the document.
struct Hit {
    LibxmlTree::Ordinal ordinal;
    xmlNode *node;

    bool operator<(const Hit &other) const { return ordinal < other.ordinal; }
    bool operator==(const Hit &other) const { return ordinal == other.ordinal; }
};
using Hits = std::vector<Hit>;
/// Whether the node in each place has been found.
using Seen = std::vector<bool>;

/// The start of a text, whole characters of it.
QByteArray startOf(const xmlChar *text) {
    const std::string_view whole = view(text);
    qsizetype size = std::min(qsizetype(whole.size()), MostOfText);
    while (size > 0 && size < qsizetype(whole.size()) && (text[size] & 0xC0) == 0x80)
        --size;
    return {whole.data(), size};
}

/// The default namespace in force at a node; null for none.
const xmlChar *defaultNamespaceAt(const xmlNode *node) {
    for (; node && node->type != XML_DOCUMENT_NODE; node = node->parent) {
        for (const xmlNs *ns = node->type == XML_ELEMENT_NODE ? node->nsDef : nullptr; ns;
             ns = ns->next) {
            if (!ns->prefix)
                return *ns->href == 0 ? nullptr : ns->href;
        }
    }
    return nullptr;
}

/// One expression, evaluated from one node.
class Query {
public:
    Query(LibxmlTree &tree, const XPathQuestion &question);

    /// From now on names without a prefix are those of that namespace.
    void setDefaultNamespace(const xmlChar *uri);
    XPathOutcome run();

private:
    static void onError(void *data, xmlError *error);
    static xmlXPathFunction onFunction(void *data, const xmlChar *name, const xmlChar *);
    static xmlXPathObject *onVariable(void *data, const xmlChar *name, const xmlChar *uri);
    static void current(xmlXPathParserContext *call, int argumentCount);

    void declarePrefixes();
    const xmlChar *namespaceOf(std::string_view prefix) const;
    Compiled compile(const XPathExpression &parsed);
    Result evaluate(xmlNode *node, xmlXPathCompExpr *step);
    void addNodes(const xmlXPathObject &result, Seen &seen, Hits &hits);
    /// Nothing when the steps lead to a value, which is then the outcome's.
    std::optional<Hits> take(const std::vector<Compiled> &steps, XPathOutcome &outcome);

    LibxmlTree &tree_;
    XPathQuestion question_;
    /// What is evaluated; the expression itself unless there is a default namespace.
    XPathExpression asked_;
    Context context_;
    unsigned long operationsLeft_ = MaxOperations;
    XPathFailure failure_;
};

Query::Query(LibxmlTree &tree, const XPathQuestion &question)
    : tree_(tree), question_(question), asked_(question.expression),
      context_(xmlXPathNewContext(tree.document())) {
    if (!context_)
        throw std::bad_alloc();
    context_->error = onError;
    context_->userData = this;
    xmlXPathContextSetCache(context_.get(), 1, -1, 0);
    xmlXPathRegisterFuncLookup(context_.get(), onFunction, this);
    xmlXPathRegisterVariableLookup(context_.get(), onVariable, this);
    xmlXPathRegisterFunc(context_.get(), utf8("current"), current);
}

void Query::setDefaultNamespace(const xmlChar *uri) {
    // A prefix that the expression does not use.
    std::string prefix = "default";
    const auto isThat = [&](const XPathToken &token) {
        return question_.expression.text(token) == prefix;
    };
    const std::vector<XPathToken> used = question_.expression.prefixes();
    while (std::any_of(used.begin(), used.end(), isThat))
        prefix += '_';
    asked_ = XPathExpression(question_.expression.withPrefix(prefix));
    xmlXPathRegisterNs(context_.get(), utf8(prefix.c_str()), uri);
}

void Query::onError(void *data, xmlError *error) {
    // What follows the first one is of its making.
    XPathFailure &failure = static_cast<Query *>(data)->failure_;
    if (failure.code != 0)
        return;
    failure.code = error->code == XML_ERR_NO_MEMORY ? int(XPATH_MEMORY_ERROR)
                                                    : error->code - XML_XPATH_EXPRESSION_OK;
    failure.position = static_cast<std::size_t>(std::max(error->int1, 0));
}

xmlXPathFunction Query::onFunction(void *data, const xmlChar *name, const xmlChar *) {
    static_cast<Query *>(data)->failure_.function = view(name);
    return nullptr;
}

xmlXPathObject *Query::onVariable(void *data, const xmlChar *name, const xmlChar *uri) {
    auto &query = *static_cast<Query *>(data);
    if (!uri && view(name) == "selection")
        return xmlXPathNewNodeSet(query.question_.selection);
    query.failure_.variable = view(name);
    return nullptr;
}

void Query::current(xmlXPathParserContext *call, int argumentCount) {
    if (argumentCount != 0) {
        xmlXPathErr(call, XPATH_INVALID_ARITY);
        return;
    }
    valuePush(call,
              xmlXPathNewNodeSet(static_cast<Query *>(call->context->userData)->question_.context));
}

const xmlChar *Query::namespaceOf(std::string_view prefix) const {
    const xmlNode *node = question_.context;
    if (node->type == XML_DOCUMENT_NODE)
        node = xmlDocGetRootElement(tree_.document());
    for (; node && node->type != XML_DOCUMENT_NODE; node = node->parent) {
        for (const xmlNs *ns = node->type == XML_ELEMENT_NODE ? node->nsDef : nullptr; ns;
             ns = ns->next) {
            if (ns->prefix && view(ns->prefix) == prefix)
                return ns->href;
        }
    }
    const xmlNs *elsewhere = tree_.firstDeclarationOf(prefix);
    return elsewhere ? elsewhere->href : nullptr;
}

void Query::declarePrefixes() {
    std::set<std::string, std::less<>> known = {"xml"};
    for (const XPathToken &token : question_.expression.prefixes()) {
        const std::string prefix(question_.expression.text(token));
        if (!known.insert(prefix).second)
            continue;
        const xmlChar *uri = namespaceOf(prefix);
        const auto extension =
            std::find_if(Extensions.begin(), Extensions.end(), [&](const Extension &e) {
                return uri ? view(e.uri) == view(uri) : e.prefix == prefix;
            });
        if (extension != Extensions.end())
            extension->add(context_.get(), utf8(prefix.c_str()));
        else if (uri)
            xmlXPathRegisterNs(context_.get(), utf8(prefix.c_str()), uri);
        else
            raiseUndeclaredPrefix(question_.expression, token);
    }
}

Compiled Query::compile(const XPathExpression &parsed) {
    Compiled compiled(xmlXPathCtxtCompile(context_.get(), utf8(parsed.forLibxml2().c_str())));
    if (!compiled || failure_.code != 0) {
        failure_.position = parsed.positionOf(failure_.position);
        raiseXPathError(question_.expression, failure_);
    }
    return compiled;
}

Result Query::evaluate(xmlNode *node, xmlXPathCompExpr *step) {
    context_->node = node;
    context_->opCount = 0;
    context_->opLimit = operationsLeft_;
    Result result(xmlXPathCompiledEval(step, context_.get()));
    if (failure_.code != 0 || !result)
        raiseXPathError(question_.expression, failure_);
    // A limit of 0 would be none.
    operationsLeft_ -= std::min(context_->opCount, operationsLeft_ - 1);
    return result;
}

void Query::addNodes(const xmlXPathObject &result, Seen &seen, Hits &hits) {
    const xmlNodeSet *found = result.nodesetval;
    for (int i = 0; found && i < found->nodeNr; ++i) {
        const LibxmlTree::Ordinal ordinal = LibxmlTree::ordinalOf(found->nodeTab[i]);
        if (ordinal != 0 && !seen[ordinal]) {
            seen[ordinal] = true;
            hits.push_back({ordinal, found->nodeTab[i]});
        }
    }
}

std::optional<Hits> Query::take(const std::vector<Compiled> &steps, XPathOutcome &outcome) {
    Hits hits = {{LibxmlTree::ordinalOf(question_.context), question_.context}};
    for (const Compiled &step : steps) {
        Hits next;
        Seen seen(std::size_t(tree_.lastOrdinal()) + 1);
        for (const Hit &hit : hits) {
            const Result result = evaluate(hit.node, step.get());
            if (result->type == XPATH_NODESET) {
                addNodes(*result, seen, next);
                continue;
            }
            if (steps.size() > 1) {
                // No step leads on from it.
                failure_.code = XPATH_INVALID_TYPE;
                raiseXPathError(question_.expression, failure_);
            }
            xmlChar *text = xmlXPathCastToString(result.get());
            outcome.value = startOf(text);
            xmlFree(text);
            return {};
        }
        if (!std::is_sorted(next.begin(), next.end()))
            std::sort(next.begin(), next.end());
        hits = std::move(next);
    }
    return hits;
}

XPathOutcome Query::run() {
    const Silence silence;
    // Whatever is wrong with the text shows here, at its place in the whole.
    compile(question_.expression);
    declarePrefixes();
    XPathOutcome outcome;
    Hits hits;
    for (const std::vector<std::string> &texts : asked_.steps()) {
        std::vector<Compiled> steps;
        // Without a bracket, libxml2 may choose a way of its own for simple paths, on which it
        // passes over what is nested more than 10,000 deep.
        for (const std::string &text : texts)
            steps.push_back(compile(XPathExpression("(" + text + ")")));
        const std::optional<Hits> found = take(steps, outcome);
        if (!found)
            return outcome;
        Hits merged;
        std::set_union(hits.begin(), hits.end(), found->begin(), found->end(),
                       std::back_inserter(merged));
        hits = std::move(merged);
    }
    outcome.nodes.reserve(hits.size());
    for (const Hit &hit : hits)
        outcome.nodes.push_back(hit.ordinal);
    return outcome;
}

/// Whether an element in that namespace, null for none, has one of the names.
bool hasElement(const LibxmlTree &tree, const std::set<std::string_view> &names,
                const xmlChar *uri) {
    const auto *top = reinterpret_cast<const xmlNode *>(tree.document());
    for (const xmlNode *node = top; node; node = followingNode(node)) {
        if (node->type == XML_ELEMENT_NODE && names.contains(view(node->name)) &&
            xmlStrEqual(node->ns ? node->ns->href : nullptr, uri))
            return true;
    }
    return false;
}

} // namespace

XPathOutcome evaluated(LibxmlTree &tree, const XPathQuestion &question) {
    return Query(tree, question).run();
}

XPathOutcome evaluatedWithDefaults(LibxmlTree &tree, const XPathQuestion &question) {
    XPathOutcome plain = evaluated(tree, question);
    std::set<std::string_view> names;
    for (const XPathToken &name : question.expression.plainNames())
        names.insert(question.expression.text(name));
    if (names.empty() || !plain.nodes.empty())
        return plain;
    const xmlChar *atRoot = defaultNamespaceAt(xmlDocGetRootElement(tree.document()));
    const xmlChar *atContext = defaultNamespaceAt(question.context);
    std::vector<const xmlChar *> defaults;
    for (const xmlChar *uri : {atContext, atRoot}) {
        if (uri && (defaults.empty() || !xmlStrEqual(defaults.front(), uri)))
            defaults.push_back(uri);
    }
    // A number of nodes, say, is an answer, also 0, unless the names mean nothing as they are.
    if (plain.value && (defaults.empty() || hasElement(tree, names, nullptr)))
        return plain;
    for (const xmlChar *uri : defaults) {
        if (plain.value && !hasElement(tree, names, uri))
            continue;
        Query query(tree, question);
        query.setDefaultNamespace(uri);
        XPathOutcome outcome = query.run();
        outcome.inDefaultNamespace = true;
        if (outcome.value || !outcome.nodes.empty())
            return outcome;
    }
    return plain;
}

} // namespace quillon::xml
