#include "platform/xml/schema/schema_error.h"

#include "platform/runtime/error.h"
#include "platform/xml/dom/handle_access.h"
#include "resources/validation_texts.h"

#include <QHash>

#include <algorithm>

namespace quillon::xml {

namespace texts = resources::validation_texts;

namespace {

/// Counts the lines of a text on from where it stopped last.
class LineCounter {
public:
    int lineAt(const SourceText &source, std::uint32_t position) {
        if (&source != source_ || position < position_) {
            source_ = &source;
            position_ = 0;
            line_ = 1;
        }
        const std::string_view text = source.utf8;
        for (; position_ < position; ++position_) {
            const char c = text[position_];
            if (c == '\n' || (c == '\r' && text.substr(position_ + 1, 1) != "\n"))
                ++line_;
        }
        return line_;
    }

    int lineOf(const Node &node) {
        if (node.isNull())
            return 0;
        const Arena &arena = HandleAccess::arena(node);
        const Record &record = arena.record(node.number());
        return record.has(record_flag::Source) ? lineAt(*arena.source(node.number()), record.start)
                                               : 0;
    }

private:
    const SourceText *source_ = nullptr;
    std::uint32_t position_ = 0;
    int line_ = 1;
};

} // namespace

void setLines(std::vector<SchemaError> &errors) {
    LineCounter counter;
    for (SchemaError &error : errors)
        error.line = counter.lineOf(error.node);
}

int lineOf(const Node &node) {
    return LineCounter().lineOf(node);
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

void raiseSchemaError(const QString &schemaName, int line, const QString &reason) {
    const QString place = line > 0 ? texts::SchemaLine.toString().arg(line) : QString();
    throw runtime::Error(runtime::error_number::Fail,
                         texts::CannotLoadSchema.toString().arg(schemaName, place + reason));
}

} // namespace quillon::xml
