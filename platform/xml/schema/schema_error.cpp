#include "platform/xml/schema/schema_error.h"

#include "platform/runtime/error.h"
#include "platform/xml/dom/handle_access.h"
#include "platform/xml/dom/line_counter.h"
#include "resources/validation_texts.h"

#include <QHash>

#include <algorithm>

namespace quillon::xml {

namespace texts = resources::validation_texts;

void setLines(std::vector<SchemaError> &errors) {
    LineCounter counter;
    for (SchemaError &error : errors) {
        const LineCounter::Place place = counter.placeOf(error.node);
        error.line = place.line;
        error.column = place.column;
    }
}

int lineOf(const Node &node) {
    return LineCounter().placeOf(node).line;
}

std::vector<Node> elementsAt(const DOMDocument40 &document, const std::vector<qint64> &positions) {
    std::vector<Node> elements;
    elements.reserve(positions.size());
    const Arena &arena = HandleAccess::arena(document);
    const Number top = arena.documentNumber();
    qint64 position = -1;
    Number at = top;
    for (const qint64 wanted : positions) {
        while (position < wanted && at != 0) {
            at = arena.nextInSubtree(at, top);
            if (at != 0 && arena.record(at).kind == NodeType::Element)
                ++position;
        }
        elements.push_back(wanted < 0 ? Node() : HandleAccess::node(document, at));
    }
    return elements;
}

std::vector<qint64> positionsOf(const DOMDocument40 &document, const std::vector<Node> &elements) {
    // Most documents have no errors, and need not be walked through.
    if (elements.empty())
        return {};
    QHash<Number, qint64> positions;
    for (const Node &element : elements)
        positions.insert(element.number(), -1);
    const Arena &arena = HandleAccess::arena(document);
    const Number top = arena.documentNumber();
    qint64 position = -1;
    for (Number at = top; at != 0; at = arena.nextInSubtree(at, top)) {
        if (arena.record(at).kind != NodeType::Element)
            continue;
        ++position;
        if (const auto wanted = positions.find(at); wanted != positions.end())
            *wanted = position;
    }
    std::vector<qint64> result;
    for (const Node &element : elements)
        result.push_back(positions.value(element.number()));
    return result;
}

void putInDocumentOrder(std::vector<SchemaError> &errors, const DOMDocument40 &document) {
    std::vector<Node> nodes;
    for (const SchemaError &error : errors)
        nodes.push_back(error.node);
    const std::vector<qint64> positions = positionsOf(document, nodes);
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < errors.size(); ++i)
        order.push_back(i);
    std::ranges::stable_sort(order, {}, [&](std::size_t i) {
        // Unknown, which is negative, is beyond all.
        return static_cast<quint64>(positions[i]);
    });
    std::vector<SchemaError> sorted;
    for (const std::size_t i : order)
        sorted.push_back(std::move(errors[i]));
    errors = std::move(sorted);
}

QString withExpected(const QString &reason, const QStringList &names) {
    return names.isEmpty()
               ? reason
               : reason + u'\n' + texts::Expecting.toString().arg(names.join(QStringLiteral(", ")));
}

void raiseSchemaError(const QString &schemaName, int line, const QString &reason) {
    const QString place = line > 0 ? texts::SchemaLine.toString().arg(line) : QString();
    throw runtime::Error(runtime::error_number::Fail,
                         texts::CannotLoadSchema.toString().arg(schemaName, place + reason));
}

} // namespace quillon::xml
