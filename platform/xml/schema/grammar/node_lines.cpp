#include "platform/xml/schema/grammar/node_lines.h"

#include "platform/xml/schema/schema_error.h"

namespace quillon::grammar {

namespace {

class Elements final : public xml::NodeVisitor {
public:
    explicit Elements(const xml::DOMDocument40 &document) : document_(document) {}

    void enter(quint32 number, xml::NodeType kind) override {
        if (kind == xml::NodeType::Element)
            found.emplace_back().node = document_.nodeByNumber(number);
    }
    void leave() override {}

    std::vector<xml::SchemaError> found;

private:
    const xml::DOMDocument40 &document_;
};

} // namespace

QHash<quint32, quint32> linesOfElements(const xml::DOMDocument40 &document) {
    Elements elements(document);
    xml::visitSubtree(document.node(), elements);
    xml::setLines(elements.found);
    QHash<quint32, quint32> lines;
    lines.reserve(static_cast<qsizetype>(elements.found.size()));
    for (const xml::SchemaError &element : elements.found)
        lines.insert(element.node.number(), static_cast<quint32>(element.line));
    return lines;
}

} // namespace quillon::grammar
