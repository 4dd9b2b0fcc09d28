#include "platform/xml/query/xpath.h"

#include "platform/runtime/error.h"
#include "platform/xml/dom/handle_access.h"
#include "platform/xml/engine/child_process.h"
#include "platform/xml/engine/document_type.h"
#include "platform/xml/engine/libxml_tree.h"
#include "platform/xml/query/xpath_error.h"
#include "platform/xml/query/xpath_evaluation.h"
#include "resources/xml_texts.h"
#include "resources/xpath_texts.h"

#include <QDataStream>
#include <QIODevice>

#include <cstring>

namespace quillon::xml {

namespace {

/// What a child reports: one of these, then places of nodes, or a text in UTF-8.
enum class Report : char { Nodes, NodesInDefaultNamespace, Value, ValueInDefaultNamespace };

LibxmlTree &treeOf(Arena &arena) {
    if (!arena.derived.get())
        arena.derived.keep(std::make_unique<LibxmlTree>(arena));
    return static_cast<LibxmlTree &>(*arena.derived.get());
}

QByteArray reported(const XPathOutcome &outcome) {
    const Report kind =
        outcome.value ? outcome.inDefaultNamespace ? Report::ValueInDefaultNamespace : Report::Value
        : outcome.inDefaultNamespace ? Report::NodesInDefaultNamespace
                                     : Report::Nodes;
    QByteArray report(1, char(kind));
    if (outcome.value)
        return report.append(*outcome.value);
    return report.append(reinterpret_cast<const char *>(outcome.nodes.data()),
                         qsizetype(outcome.nodes.size() * sizeof(LibxmlTree::Ordinal)));
}

XPathAnswer answerOf(const QByteArray &report, const Node &context, const LibxmlTree &tree) {
    const auto kind = Report(report.at(0));
    XPathAnswer answer;
    answer.inDefaultNamespace =
        kind == Report::NodesInDefaultNamespace || kind == Report::ValueInDefaultNamespace;
    if (kind == Report::Value || kind == Report::ValueInDefaultNamespace) {
        answer.value = QString::fromUtf8(QByteArrayView(report).sliced(1));
        return answer;
    }
    LibxmlTree::Ordinal ordinal;
    answer.nodes.reserve(std::size_t(report.size()) / sizeof ordinal);
    for (qsizetype at = 1; at < report.size(); at += qsizetype(sizeof ordinal)) {
        std::memcpy(&ordinal, report.constData() + at, sizeof ordinal);
        answer.nodes.push_back(HandleAccess::node(context, tree.numberAt(ordinal)));
    }
    return answer;
}

/// Has a child evaluate an expression by one of the functions of xpath_evaluation.h.
template <typename Evaluate>
XPathAnswer ask(const Node &context, const QString &expression, const Node &selection,
                const runtime::Progress &progress, Evaluate &&evaluate) {
    using namespace runtime;
    if (context.isNull())
        throw Error(error_number::InvalidArgument, resources::xml_texts::NoNode.toString());
    LibxmlTree &tree = treeOf(HandleAccess::arena(context));
    xmlNode *start = tree.find(context.number());
    if (!start)
        throw Error(error_number::InvalidArgument, resources::xpath_texts::BadContext.toString());
    const XPathExpression parsed(expression.toStdString());
    xmlNode *selected = parsed.usesVariable() ? tree.find(selection.number()) : nullptr;
    const bool asksForIds = parsed.callOf("id").kind != XPathToken::Kind::End;
    const QByteArray documentType =
        asksForIds ? documentTypeOf(context.ownerDocument()) : QByteArray();
    // The limit on operations does not see what comparing sets of nodes costs; a child can be
    // stopped at any time.
    const QByteArray report = runInChild(
        [&] {
            if (asksForIds)
                tree.indexIdentifiers(documentType);
            return reported(evaluate(tree, {parsed, start, selected}));
        },
        {}, progress);
    return answerOf(report, context, tree);
}

} // namespace

std::vector<Node> selectNodes(const Node &context, const QString &expression,
                              const runtime::Progress &progress) {
    return ask(context, expression, {}, progress,
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
    return ask(context, expression, selection, progress, evaluatedWithDefaults);
}

std::vector<std::optional<QString>> valuesAt(const std::vector<Node> &contexts,
                                             const QString &expression,
                                             const runtime::Progress &progress) {
    std::vector<std::optional<QString>> values;
    if (contexts.empty())
        return values;
    LibxmlTree &tree = treeOf(HandleAccess::arena(contexts.front()));
    const XPathExpression parsed(expression.toStdString());
    const QByteArray report = runInChild(
        [&] {
            QByteArray all;
            QDataStream stream(&all, QIODevice::WriteOnly);
            for (const Node &context : contexts) {
                const XPathOutcome outcome =
                    evaluatedWithDefaults(tree, {parsed, tree.find(context.number())});
                const LibxmlTree::Ordinal first = outcome.nodes.empty() ? 0 : outcome.nodes.front();
                stream << first << outcome.value.value_or(QByteArray()) << !outcome.value;
            }
            return all;
        },
        {}, progress);
    QDataStream stream(report);
    for (std::size_t i = 0; i < contexts.size(); ++i) {
        LibxmlTree::Ordinal first = 0;
        QByteArray value;
        bool isNodes = false;
        stream >> first >> value >> isNodes;
        if (!isNodes)
            values.emplace_back(QString::fromUtf8(value));
        else if (first != 0)
            values.emplace_back(HandleAccess::node(contexts.front(), tree.numberAt(first)).text());
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

void dropXPathCache(const DOMDocument40 &document) {
    if (document)
        HandleAccess::arena(document).derived.drop();
}

} // namespace quillon::xml
