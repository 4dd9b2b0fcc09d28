#include "platform/xml/query/xpath.h"

#include "platform/runtime/error.h"
#include "platform/xml/dom/handle_access.h"
#include "platform/xml/engine/child_process.h"
#include "platform/xml/engine/document_type.h"
#include "platform/xml/engine/libxml_tree.h"
#include "platform/xml/query/simple_query.h"
#include "platform/xml/query/xpath_error.h"
#include "platform/xml/query/xpath_evaluation.h"
#include "resources/xml_texts.h"
#include "resources/xpath_texts.h"

#include <QDataStream>
#include <QIODevice>

#include <cstring>

namespace quillon::xml {

namespace {

/// What a child reports: one of these, then numbers of nodes, or a text in UTF-8.
enum class Report : char { Nodes, NodesInDefaultNamespace, Value, ValueInDefaultNamespace };

QByteArray reported(const XPathOutcome &outcome, const LibxmlTree &tree) {
    const Report kind =
        outcome.value ? outcome.inDefaultNamespace ? Report::ValueInDefaultNamespace : Report::Value
        : outcome.inDefaultNamespace ? Report::NodesInDefaultNamespace
                                     : Report::Nodes;
    QByteArray report(1, char(kind));
    if (outcome.value)
        return report.append(*outcome.value);
    report.reserve(qsizetype(1 + outcome.nodes.size() * sizeof(Number)));
    for (const LibxmlTree::Ordinal ordinal : outcome.nodes) {
        const Number n = tree.numberAt(ordinal);
        report.append(reinterpret_cast<const char *>(&n), sizeof n);
    }
    return report;
}

XPathAnswer answerOf(const QByteArray &report, const Node &context) {
    const auto kind = Report(report.at(0));
    XPathAnswer answer;
    answer.inDefaultNamespace =
        kind == Report::NodesInDefaultNamespace || kind == Report::ValueInDefaultNamespace;
    if (kind == Report::Value || kind == Report::ValueInDefaultNamespace) {
        answer.value = QString::fromUtf8(QByteArrayView(report).sliced(1));
        return answer;
    }
    Number n;
    answer.nodes.reserve(std::size_t(report.size()) / sizeof n);
    for (qsizetype at = 1; at < report.size(); at += qsizetype(sizeof n)) {
        std::memcpy(&n, report.constData() + at, sizeof n);
        answer.nodes.push_back(HandleAccess::node(context, n));
    }
    return answer;
}

XPathAnswer answerOf(const SimpleAnswer &simple, const Node &context) {
    XPathAnswer answer;
    answer.inDefaultNamespace = simple.inDefaultNamespace;
    if (simple.count)
        answer.value = QString::number(*simple.count);
    answer.nodes.reserve(simple.nodes.size());
    for (const Number n : simple.nodes)
        answer.nodes.push_back(HandleAccess::node(context, n));
    return answer;
}

xmlNode *contextIn(LibxmlTree &tree, const Node &context) {
    xmlNode *found = tree.find(context.number());
    if (!found)
        throw runtime::Error(runtime::error_number::InvalidArgument,
                             resources::xpath_texts::BadContext.toString());
    return found;
}

void requireNode(const Node &context) {
    if (context.isNull())
        throw runtime::Error(runtime::error_number::InvalidArgument,
                             resources::xml_texts::NoNode.toString());
}

/// Has the library evaluate an expression by one of the functions of xpath_evaluation.h, in a child
/// that makes its own copy of the document.
template <typename Evaluate>
XPathAnswer ask(const Node &context, const XPathExpression &parsed, const Node &selection,
                const runtime::Progress &progress, Evaluate &&evaluate) {
    const Arena &arena = HandleAccess::arena(context);
    const bool asksForIds = parsed.callOf("id").kind != XPathToken::Kind::End;
    const QByteArray documentType =
        asksForIds ? documentTypeOf(context.ownerDocument()) : QByteArray();
    // The limit on operations does not see what comparing sets of nodes costs; a child can be
    // stopped at any time.
    const QByteArray report = runInChild(
        [&] {
            LibxmlTree tree(arena);
            xmlNode *start = contextIn(tree, context);
            xmlNode *selected = parsed.usesVariable() ? tree.find(selection.number()) : nullptr;
            if (asksForIds)
                tree.indexIdentifiers(documentType);
            return reported(evaluate(tree, {parsed, start, selected}), tree);
        },
        {}, progress);
    return answerOf(report, context);
}

std::vector<std::optional<QString>> valuesByLibrary(const std::vector<Node> &contexts,
                                                    const XPathExpression &parsed,
                                                    const runtime::Progress &progress) {
    const Arena &arena = HandleAccess::arena(contexts.front());
    const QByteArray report = runInChild(
        [&] {
            LibxmlTree tree(arena);
            QByteArray all;
            QDataStream stream(&all, QIODevice::WriteOnly);
            for (const Node &context : contexts) {
                const XPathOutcome outcome =
                    evaluatedWithDefaults(tree, {parsed, contextIn(tree, context)});
                const Number first =
                    outcome.nodes.empty() ? 0 : tree.numberAt(outcome.nodes.front());
                stream << first << outcome.value.value_or(QByteArray()) << !outcome.value;
            }
            return all;
        },
        {}, progress);
    QDataStream stream(report);
    std::vector<std::optional<QString>> values;
    for (std::size_t i = 0; i < contexts.size(); ++i) {
        Number first = 0;
        QByteArray value;
        bool isNodes = false;
        stream >> first >> value >> isNodes;
        if (!isNodes)
            values.emplace_back(QString::fromUtf8(value));
        else if (first != 0)
            values.emplace_back(HandleAccess::node(contexts.front(), first).text());
        else
            values.emplace_back();
    }
    return values;
}

} // namespace

std::vector<Node> selectNodes(const Node &context, const QString &expression,
                              const runtime::Progress &progress) {
    requireNode(context);
    const XPathExpression parsed(expression.toStdString());
    const std::optional<SimpleAnswer> simple =
        simplyEvaluated(HandleAccess::arena(context), context.number(), parsed,
                        DefaultNamespaces::NotTried, progress);
    if (simple && simple->count)
        raiseNotNodes(parsed);
    if (simple)
        return answerOf(*simple, context).nodes;
    return ask(context, parsed, {}, progress,
               [](LibxmlTree &tree, const XPathQuestion &question) {
                   XPathOutcome outcome = evaluated(tree, question);
                   if (outcome.value)
                       raiseNotNodes(question.expression);
                   return outcome;
               })
        .nodes;
}

XPathAnswer evaluateXPath(const Node &context, const QString &expression, const Node &selection,
                          const runtime::Progress &progress) {
    requireNode(context);
    const XPathExpression parsed(expression.toStdString());
    const std::optional<SimpleAnswer> simple = simplyEvaluated(
        HandleAccess::arena(context), context.number(), parsed, DefaultNamespaces::Tried, progress);
    if (simple)
        return answerOf(*simple, context);
    return ask(context, parsed, selection, progress, evaluatedWithDefaults);
}

std::vector<std::optional<QString>> valuesAt(const std::vector<Node> &contexts,
                                             const QString &expression,
                                             const runtime::Progress &progress) {
    if (contexts.empty())
        return {};
    const XPathExpression parsed(expression.toStdString());
    std::vector<Number> numbers;
    for (const Node &context : contexts)
        numbers.push_back(context.number());
    const auto simple =
        simplyEvaluatedAt(HandleAccess::arena(contexts.front()), numbers, parsed, progress);
    if (!simple)
        return valuesByLibrary(contexts, parsed, progress);
    std::vector<std::optional<QString>> values;
    for (const SimpleAnswer &answer : *simple) {
        if (answer.count)
            values.emplace_back(QString::number(*answer.count));
        else if (!answer.nodes.empty())
            values.emplace_back(HandleAccess::node(contexts.front(), answer.nodes.front()).text());
        else
            values.emplace_back();
    }
    return values;
}

Node ownerElement(const Node &attribute) {
    if (attribute.nodeType() != NodeType::Attribute)
        return {};
    const Arena &arena = HandleAccess::arena(attribute);
    return HandleAccess::node(attribute, arena.record(attribute.number()).parent);
}

} // namespace quillon::xml
