#include "schemas/document_references.h"

#include "platform/xml/dom/document_states.h"
#include "platform/xml/dom/part_walk.h"
#include "platform/xml/dom/qualified_name.h"
#include "platform/xml/engine/document_type.h"

#include <QRegularExpression>

#include <algorithm>
#include <string_view>

namespace quillon::schemas {

using xml::Node;
using xml::NodeType;

namespace {

const QString InstanceNamespace = QStringLiteral("http://www.w3.org/2001/XMLSchema-instance");

QStringList words(const QString &text) {
    return text.simplified().split(u' ', Qt::SkipEmptyParts);
}

/// The place behind what a scan of markup has passed.
class Scan {
public:
    explicit Scan(QByteArrayView text) : text_(text) {}

    void skipBlanks() {
        while (at_ < text_.size() && QByteArrayView(" \t\r\n").contains(text_[at_]))
            ++at_;
    }
    QByteArrayView word() {
        skipBlanks();
        const qsizetype start = at_;
        while (at_ < text_.size() && !QByteArrayView(" \t\r\n[>\"'").contains(text_[at_]))
            ++at_;
        return text_.sliced(start, at_ - start);
    }
    /// A literal in quotes; empty when there is none here.
    QByteArrayView literal() {
        skipBlanks();
        if (at_ >= text_.size() || (text_[at_] != '"' && text_[at_] != '\''))
            return {};
        const qsizetype end = text_.indexOf(text_[at_], at_ + 1);
        if (end < 0)
            return {};
        const QByteArrayView found = text_.sliced(at_ + 1, end - at_ - 1);
        at_ = end + 1;
        return found;
    }
    QByteArrayView rest() const { return text_.sliced(at_); }

private:
    QByteArrayView text_;
    qsizetype at_ = 0;
};

constexpr std::string_view LocationEnd = "chemaLocation";
/// More of them come from nobody who means well.
constexpr std::size_t MostLocations = 500;

void addLocation(std::vector<LocationPair> &to, const LocationPair &pair) {
    if (!pair.location.isEmpty() && std::ranges::find(to, pair) == to.end())
        to.push_back(pair);
}

/// What an attribute of an element says, if it is one of those.
void addLocations(const Node &attribute, const Node &element, std::vector<LocationPair> &to) {
    const QString name = attribute.nodeName();
    const QString local = xml::localNameOf(name);
    const bool isPairs = local == QLatin1String("schemaLocation");
    if ((!isPairs && local != QLatin1String("noNamespaceSchemaLocation")) || local == name ||
        xml::namespaceAt(element, xml::prefixOf(name)) != InstanceNamespace)
        return;
    const QStringList values = words(attribute.nodeValue());
    if (!isPairs)
        addLocation(to, {{}, values.value(0)});
    for (qsizetype i = 0; isPairs && i + 1 < values.size(); i += 2)
        addLocation(to, {values[i], values[i + 1]});
}

} // namespace

DocumentTypeParts documentTypeParts(const QByteArray &markup) {
    DocumentTypeParts parts;
    Scan scan(markup);
    scan.word(); // <!DOCTYPE
    scan.word(); // the name of the root
    const QByteArrayView keyword = scan.word();
    if (keyword == "PUBLIC")
        parts.publicId = QString::fromUtf8(scan.literal()).simplified();
    if (keyword == "PUBLIC" || keyword == "SYSTEM")
        parts.systemId = QString::fromUtf8(scan.literal()).trimmed();
    scan.skipBlanks();
    const QByteArrayView rest = scan.rest();
    if (rest.startsWith('['))
        parts.internalSubset =
            rest.sliced(1, std::max<qsizetype>(rest.lastIndexOf(']') - 1, 0)).toByteArray();
    return parts;
}

QString pseudoAttribute(const QString &instruction, const QString &name) {
    static const QRegularExpression pair(
        QStringLiteral(R"re((?:^|\s)([^\s=]+)\s*=\s*(?:"([^"]*)"|'([^']*)'))re"));
    for (auto found = pair.globalMatch(instruction); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        if (match.captured(1) != name)
            continue;
        QString value = match.captured(2) + match.captured(3);
        for (const auto &[reference, character] :
             {std::pair("&lt;", u'<'), std::pair("&gt;", u'>'), std::pair("&quot;", u'"'),
              std::pair("&apos;", u'\''), std::pair("&amp;", u'&')})
            value.replace(QLatin1String(reference), QString(QChar(character)));
        return value.isNull() ? QStringLiteral("") : value;
    }
    return {};
}

bool addDeeperLocations(const xml::DOMDocument40 &document, DocumentReferences &references) {
    const Node root = document.documentElement();
    xml::PartWalk walk(root, xml::part_kind::ElementName | xml::part_kind::AttributeName);
    xml::NodePart part;
    quint32 element = 0;
    bool isAny = false;
    while (references.locations.size() < MostLocations && walk.next(part)) {
        if (part.kind == xml::part_kind::ElementName) {
            element = part.node;
        } else if (part.characters.ends_with(LocationEnd) && element != root.number()) {
            isAny = true;
            addLocations(document.nodeByNumber(part.node), document.nodeByNumber(element),
                         references.locations);
        }
    }
    return isAny;
}

bool mayDifferInDeeperLocations(const xml::DOMDocument40 &before, const xml::DOMDocument40 &now,
                                bool wereThere) {
    if (!xml::haveCommonOrigin(before, now))
        return true;
    constexpr std::size_t Most = 5000;
    const std::vector<quint32> changed = xml::changedNodes(before, now, Most);
    const auto concernsLocations = [&](quint32 number) {
        for (const xml::DOMDocument40 &document : {before, now}) {
            const Node node = document.nodeByNumber(number);
            // What an element that comes or goes has below it has not changed.
            if ((wereThere && node.nodeType() == NodeType::Element) ||
                (node.nodeType() == NodeType::Attribute &&
                 node.nodeName().endsWith(QLatin1String(LocationEnd.data()))))
                return true;
        }
        return false;
    };
    return changed.size() > Most || std::ranges::any_of(changed, concernsLocations);
}

DocumentReferences referencesOf(const xml::DOMDocument40 &document) {
    DocumentReferences references;
    references.documentType = documentTypeParts(xml::documentTypeOf(document));
    const Node root = document.documentElement();
    for (Node at = document.node().firstChild(); at && at != root; at = at.nextSibling()) {
        if (at.nodeType() != NodeType::ProcessingInstruction ||
            at.nodeName() != QLatin1String("xml-model"))
            continue;
        const QString data = at.nodeValue();
        references.models.push_back(
            {pseudoAttribute(data, QStringLiteral("href")).trimmed(),
             pseudoAttribute(data, QStringLiteral("type")).trimmed(),
             pseudoAttribute(data, QStringLiteral("schematypens")).trimmed()});
    }
    if (!root)
        return references;
    references.rootName = xml::localNameOf(root.nodeName());
    references.rootNamespace = xml::namespaceAt(root, xml::prefixOf(root.nodeName()));
    for (const Node &attribute : root.attributes().all())
        addLocations(attribute, root, references.locations);
    return references;
}

} // namespace quillon::schemas
