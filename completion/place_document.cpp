#include "completion/place_document.h"

#include <QSet>

namespace quillon::completion {

using xml::Node;
using xml::NodeType;

namespace {

bool isDeclaration(const QByteArray &name) {
    return name == "xmlns" || name.startsWith("xmlns:");
}

bool mayNameType(const QByteArray &name) {
    return name.endsWith(":type");
}

class Writer {
public:
    /// Opens an element of the document, with what decides what it and the names in it mean.
    void open(const Node &element) {
        const QByteArray name = element.nodeName().toUtf8();
        text_ += '<' + name;
        for (const Node &attribute : element.attributes().all()) {
            const QByteArray attributeName = attribute.nodeName().toUtf8();
            if (isDeclaration(attributeName) || mayNameType(attributeName))
                write(attributeName, attribute.nodeValue().toHtmlEscaped().toUtf8());
        }
        text_ += '>';
        open_.push_back(name);
    }

    void open(QByteArrayView text, const Stretch &tag) {
        const QByteArray name = startTag(text, tag, Attributes::Meaning, {});
        text_ += '>';
        open_.push_back(name);
    }

    void empty(QByteArrayView text, const Stretch &tag, const Stretch &without) {
        startTag(text, tag, Attributes::All, without);
        text_ += "/>";
    }

    void sibling(QByteArrayView text, const Stretch &tag) {
        startTag(text, tag, Attributes::Meaning, {});
        text_ += "/>";
    }

    QByteArray finished() {
        for (; !open_.empty(); open_.pop_back())
            text_ += "</" + open_.back() + '>';
        return text_;
    }

    int depth() const { return int(open_.size()); }

private:
    enum class Attributes { Meaning, All };

    QByteArray startTag(QByteArrayView text, const Stretch &tag, Attributes which,
                        const Stretch &without) {
        const QByteArray name = tagName(text, tag).in(text).toByteArray();
        text_ += '<' + name;
        if (which == Attributes::Meaning && !tag.in(text).contains("xmlns") &&
            !tag.in(text).contains(":type"))
            return name;
        QSet<QByteArray> written;
        for (const TextAttribute &attribute : tagAttributes(text, tag)) {
            const QByteArray attributeName = attribute.name.in(text).toByteArray();
            const bool hasMeaning = isDeclaration(attributeName) || mayNameType(attributeName);
            if (!attribute.hasEquals || attribute.name == without ||
                (which == Attributes::Meaning && !hasMeaning) || written.contains(attributeName))
                continue;
            written.insert(attributeName);
            write(attributeName, escaped(attribute.value.in(text)));
        }
        return name;
    }

    /// A value as it is written somewhere, with whatever quotes. References to entities, which
    /// nothing here depends on, are not resolved.
    static QByteArray escaped(QByteArrayView value) {
        return value.toByteArray()
            .replace('&', "&amp;")
            .replace('<', "&lt;")
            .replace('"', "&quot;");
    }

    void write(const QByteArray &name, const QByteArray &value) {
        text_ += ' ' + name + "=\"" + value + '"';
    }

    QByteArray text_;
    std::vector<QByteArray> open_;
};

bool isInTag(Place place) {
    return place == Place::AttributeName || place == Place::AttributeValue;
}

} // namespace

std::optional<PlaceDocument> placeDocument(const Node &around, QByteArrayView text,
                                           const TextContext &context) {
    Writer writer;
    std::vector<Node> ancestors;
    for (Node at = around; at.nodeType() == NodeType::Element; at = at.parentNode())
        ancestors.push_back(at);
    for (auto at = ancestors.rbegin(); at != ancestors.rend(); ++at)
        writer.open(*at);
    for (const Stretch &tag : context.open)
        writer.open(text, tag);
    const int depth = writer.depth();
    PlaceDocument found;
    if (isInTag(context.place)) {
        writer.empty(text, context.tag, context.attribute.name);
    } else if (depth > 0) {
        for (const Stretch &tag : context.before)
            writer.sibling(text, tag);
        for (const Stretch &tag : context.after)
            writer.sibling(text, tag);
        found.place = context.before.size();
    } else if (!context.before.empty() || !context.after.empty()) {
        // Beside the root no element stands.
        return std::nullopt;
    }
    found.document = xml::DOMDocument40::create();
    found.parent = found.document.node();
    const QByteArray markup = writer.finished();
    if (markup.isEmpty())
        return found;
    if (!found.document.loadXML(markup))
        return std::nullopt;
    found.parent = found.document.node();
    for (int i = 0; i < depth; ++i)
        found.parent = found.parent.firstChild();
    if (isInTag(context.place))
        found.element = found.parent.firstChild();
    return found;
}

} // namespace quillon::completion
