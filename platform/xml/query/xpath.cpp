#include "platform/xml/query/xpath.h"

#include "platform/runtime/error.h"
#include "platform/xml/dom/handle_access.h"
#include "platform/xml/engine/child_process.h"
#include "platform/xml/engine/document_type.h"
#include "platform/xml/engine/libxml_handles.h"
#include "platform/xml/engine/libxml_tree.h"
#include "platform/xml/query/xpath_error.h"
#include "resources/xml_texts.h"
#include "resources/xpath_texts.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>
#include <set>

namespace quillon::xml {

namespace {

/// Upper bound of the operations of one query, most of them a look at one node: a few seconds.
constexpr unsigned long MaxOperations = 100'000'000;

using Context = std::unique_ptr<xmlXPathContext, Releaser<xmlXPathFreeContext>>;
using Compiled = std::unique_ptr<xmlXPathCompExpr, Releaser<xmlXPathFreeCompExpr>>;
using Result = std::unique_ptr<xmlXPathObject, Releaser<xmlXPathFreeObject>>;

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

/// One expression, evaluated from one node.
class Query {
public:
    Query(LibxmlTree &tree, xmlNode *start, const XPathExpression &expression);

    Hits run();

private:
    static void onError(void *data, xmlError *error);
    static xmlXPathFunction onFunction(void *data, const xmlChar *name, const xmlChar *);
    static xmlXPathObject *onVariable(void *data, const xmlChar *name, const xmlChar *);

    void declarePrefixes();
    Compiled compile(const std::string &text);
    void checkPrefixes() const;
    void addFrom(xmlNode *node, xmlXPathCompExpr *step, Seen &seen, Hits &hits);
    Hits take(const std::vector<Compiled> &steps);

    LibxmlTree &tree_;
    xmlNode *start_;
    const XPathExpression &expression_;
    Context context_;
    std::set<std::string, std::less<>> prefixes_ = {"xml"};
    unsigned long operationsLeft_ = MaxOperations;
    XPathFailure failure_;
};

Query::Query(LibxmlTree &tree, xmlNode *start, const XPathExpression &expression)
    : tree_(tree), start_(start), expression_(expression),
      context_(xmlXPathNewContext(tree.document())) {
    if (!context_)
        throw std::bad_alloc();
    context_->error = onError;
    context_->userData = this;
    xmlXPathContextSetCache(context_.get(), 1, -1, 0);
    xmlXPathRegisterFuncLookup(context_.get(), onFunction, this);
    xmlXPathRegisterVariableLookup(context_.get(), onVariable, this);
    declarePrefixes();
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

xmlXPathObject *Query::onVariable(void *data, const xmlChar *name, const xmlChar *) {
    static_cast<Query *>(data)->failure_.variable = view(name);
    return nullptr;
}

void Query::declarePrefixes() {
    const xmlNode *node = start_;
    if (node->type == XML_DOCUMENT_NODE)
        node = xmlDocGetRootElement(tree_.document());
    for (; node && node->type != XML_DOCUMENT_NODE; node = node->parent) {
        if (node->type != XML_ELEMENT_NODE)
            continue;
        for (const xmlNs *ns = node->nsDef; ns; ns = ns->next) {
            // Inner declarations come first and hide outer ones.
            if (ns->prefix && prefixes_.emplace(view(ns->prefix)).second)
                xmlXPathRegisterNs(context_.get(), ns->prefix, ns->href);
        }
    }
}

Compiled Query::compile(const std::string &text) {
    const XPathExpression parsed(text);
    Compiled compiled(xmlXPathCtxtCompile(context_.get(), utf8(parsed.forLibxml2().c_str())));
    if (!compiled || failure_.code != 0) {
        failure_.position = parsed.positionOf(failure_.position);
        raiseXPathError(expression_, failure_);
    }
    return compiled;
}

void Query::checkPrefixes() const {
    for (const XPathToken &prefix : expression_.prefixes()) {
        if (!prefixes_.contains(expression_.text(prefix)))
            raiseUndeclaredPrefix(expression_, prefix);
    }
}

void Query::addFrom(xmlNode *node, xmlXPathCompExpr *step, Seen &seen, Hits &hits) {
    context_->node = node;
    context_->opCount = 0;
    context_->opLimit = operationsLeft_;
    const Result result(xmlXPathCompiledEval(step, context_.get()));
    if (failure_.code != 0 || !result)
        raiseXPathError(expression_, failure_);
    // A limit of 0 would be none.
    operationsLeft_ -= std::min(context_->opCount, operationsLeft_ - 1);
    if (result->type != XPATH_NODESET)
        raiseNotNodes(expression_);
    const xmlNodeSet *found = result->nodesetval;
    for (int i = 0; found && i < found->nodeNr; ++i) {
        const LibxmlTree::Ordinal ordinal = LibxmlTree::ordinalOf(found->nodeTab[i]);
        if (ordinal != 0 && !seen[ordinal]) {
            seen[ordinal] = true;
            hits.push_back({ordinal, found->nodeTab[i]});
        }
    }
}

Hits Query::take(const std::vector<Compiled> &steps) {
    Hits hits = {{LibxmlTree::ordinalOf(start_), start_}};
    for (const Compiled &step : steps) {
        Hits next;
        Seen seen(std::size_t(tree_.lastOrdinal()) + 1);
        for (const Hit &hit : hits)
            addFrom(hit.node, step.get(), seen, next);
        if (!std::is_sorted(next.begin(), next.end()))
            std::sort(next.begin(), next.end());
        hits = std::move(next);
    }
    return hits;
}

Hits Query::run() {
    const Silence silence;
    // Whatever is wrong with the text shows here, at its place in the whole.
    compile(expression_.utf8());
    checkPrefixes();
    Hits hits;
    for (const std::vector<std::string> &texts : expression_.steps()) {
        std::vector<Compiled> steps;
        // Without a bracket, libxml2 may choose a way of its own for simple paths, on which it
        // passes over what is nested more than 10,000 deep.
        for (const std::string &text : texts)
            steps.push_back(compile("(" + text + ")"));
        const Hits found = take(steps);
        Hits merged;
        std::set_union(hits.begin(), hits.end(), found.begin(), found.end(),
                       std::back_inserter(merged));
        hits = std::move(merged);
    }
    return hits;
}

LibxmlTree &treeOf(Arena &arena) {
    if (!arena.derived.get())
        arena.derived.keep(std::make_unique<LibxmlTree>(arena));
    return static_cast<LibxmlTree &>(*arena.derived.get());
}

} // namespace

std::vector<Node> selectNodes(const Node &context, const QString &expression,
                              const runtime::Progress &progress) {
    using namespace runtime;
    if (context.isNull())
        throw Error(error_number::InvalidArgument, resources::xml_texts::NoNode.toString());
    LibxmlTree &tree = treeOf(HandleAccess::arena(context));
    xmlNode *start = tree.find(context.number());
    if (!start)
        throw Error(error_number::InvalidArgument, resources::xpath_texts::BadContext.toString());
    const XPathExpression parsed(expression.toStdString());
    const bool asksForIds = parsed.callOf("id").kind != XPathToken::Kind::End;
    const QByteArray documentType =
        asksForIds ? documentTypeOf(context.ownerDocument()) : QByteArray();
    // The limit on operations does not see what comparing sets of nodes costs; a child can be
    // stopped at any time.
    const QByteArray found = runInChild(
        [&] {
            if (asksForIds)
                tree.indexIdentifiers(documentType);
            const Hits hits = Query(tree, start, parsed).run();
            std::vector<LibxmlTree::Ordinal> ordinals;
            ordinals.reserve(hits.size());
            for (const Hit &hit : hits)
                ordinals.push_back(hit.ordinal);
            return QByteArray(reinterpret_cast<const char *>(ordinals.data()),
                              qsizetype(ordinals.size() * sizeof(LibxmlTree::Ordinal)));
        },
        {}, progress);
    std::vector<Node> nodes;
    LibxmlTree::Ordinal ordinal;
    nodes.reserve(std::size_t(found.size()) / sizeof ordinal);
    for (qsizetype at = 0; at < found.size(); at += qsizetype(sizeof ordinal)) {
        std::memcpy(&ordinal, found.constData() + at, sizeof ordinal);
        nodes.push_back(HandleAccess::node(context, tree.numberAt(ordinal)));
    }
    return nodes;
}

Node ownerElement(const Node &attribute) {
    if (attribute.nodeType() != NodeType::Attribute)
        return {};
    const Arena &arena = HandleAccess::arena(attribute);
    return HandleAccess::node(attribute, arena.record(attribute.number()).parent);
}

void dropXPathCache(const DOMDocument40 &document) {
    if (document)
        HandleAccess::arena(document).derived.drop();
}

} // namespace quillon::xml
