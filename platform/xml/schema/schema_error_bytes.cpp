#include "platform/xml/schema/schema_error_bytes.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>

namespace quillon::xml {

QByteArray toBytes(const std::vector<SchemaError> &errors, const DOMDocument40 &document) {
    std::vector<Node> nodes;
    for (const SchemaError &error : errors)
        nodes.push_back(error.node);
    const std::vector<qint64> positions = positionsOf(document, nodes);
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (std::size_t i = 0; i < errors.size(); ++i)
        stream << errors[i].errorCode << errors[i].reason << positions[i] << errors[i].line
               << errors[i].column << errors[i].attribute << errors[i].isWarning;
    return bytes;
}

std::vector<SchemaError> schemaErrorsFrom(const QByteArray &bytes, const DOMDocument40 &document) {
    std::vector<SchemaError> errors;
    std::vector<qint64> positions;
    QDataStream stream(bytes);
    while (!stream.atEnd()) {
        SchemaError error;
        qint64 position = -1;
        stream >> error.errorCode >> error.reason >> position >> error.line >> error.column >>
            error.attribute >> error.isWarning;
        if (stream.status() != QDataStream::Ok)
            break;
        errors.push_back(std::move(error));
        positions.push_back(position);
    }
    std::vector<qint64> ascending = positions;
    std::ranges::sort(ascending);
    const std::vector<Node> nodes = elementsAt(document, ascending);
    for (std::size_t i = 0; i < errors.size(); ++i) {
        const auto at = std::ranges::lower_bound(ascending, positions[i]) - ascending.begin();
        errors[i].node = nodes[static_cast<std::size_t>(at)];
    }
    return errors;
}

} // namespace quillon::xml
