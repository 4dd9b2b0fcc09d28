#include "schemas/element_facts.h"

#include "platform/xml/dom/qualified_name.h"

#include <QDate>
#include <QRegularExpression>

#include <algorithm>

namespace quillon::schemas {

using xml::Node;
using xml::NodeType;

namespace {

const QString InstanceNamespace = QStringLiteral("http://www.w3.org/2001/XMLSchema-instance");
const QString XmlNamespace = QStringLiteral("http://www.w3.org/XML/1998/namespace");

bool matches(const QString &value, const QRegularExpression &pattern) {
    return pattern.match(value).hasMatch();
}

bool isTruth(const QString &value) {
    return value == QLatin1String("true") || value == QLatin1String("false");
}

bool isInteger(const QString &value) {
    static const QRegularExpression pattern(QStringLiteral(R"(\A[+-]?[0-9]+\z)"));
    return matches(value, pattern);
}

bool isDecimal(const QString &value) {
    static const QRegularExpression pattern(
        QStringLiteral(R"(\A[+-]?([0-9]+(\.[0-9]*)?|\.[0-9]+)\z)"));
    return matches(value, pattern);
}

bool isDay(const QString &value) {
    static const QRegularExpression pattern(QStringLiteral(R"(\A[0-9]{4}-[0-9]{2}-[0-9]{2}\z)"));
    return matches(value, pattern) && QDate::fromString(value, Qt::ISODate).isValid();
}

bool isTime(const QString &value) {
    static const QRegularExpression pattern(
        QStringLiteral(R"(\A([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9](\.[0-9]+)?)"
                       R"((Z|[+-]0[0-9]:[0-5][0-9]|[+-]1[0-3]:[0-5][0-9])?\z)"));
    return matches(value, pattern);
}

bool isMoment(const QString &value) {
    return value.size() > 10 && value[10] == u'T' && isDay(value.left(10)) && isTime(value.mid(11));
}

struct ValueType {
    const char *name;
    bool (*accepts)(const QString &value);
};

/// The narrowest first.
constexpr ValueType ValueTypes[] = {{"boolean", isTruth},   {"integer", isInteger},
                                    {"decimal", isDecimal}, {"date", isDay},
                                    {"dateTime", isMoment}, {"time", isTime}};

/// Whether there is anything between the tags of an element without elements.
bool hasBlanks(const Node &element) {
    if (element.hasChildNodes())
        return true;
    const QByteArray markup = element.xml();
    const qsizetype endTag = markup.lastIndexOf("</");
    return endTag > 0 && markup[endTag - 1] != '>';
}

/// An element on the way through a document, with what its prefixes mean.
struct Frame {
    Node element;
    int facts;
    QHash<QString, QString> scope;
};

class Observer {
public:
    explicit Observer(bool wholeNames) { facts_.takesWholeNames = wholeNames; }

    DocumentFacts run(const Node &root) {
        Frame first{root, 0, scopeOf(root, {{QStringLiteral("xml"), XmlNamespace}})};
        facts_.rootNamespace = spaceOf(root, first.scope);
        first.facts = factsFor(root);
        std::vector<Frame> waiting{first};
        while (!waiting.empty()) {
            const Frame frame = waiting.back();
            waiting.pop_back();
            observe(frame, waiting);
        }
        return std::move(facts_);
    }

private:
    static QHash<QString, QString> scopeOf(const Node &element, QHash<QString, QString> scope) {
        for (const Node &attribute : element.attributes().all()) {
            const QString name = attribute.nodeName();
            if (name == QLatin1String("xmlns"))
                scope.insert(QString(), attribute.nodeValue());
            else if (xml::prefixOf(name) == QLatin1String("xmlns"))
                scope.insert(xml::localNameOf(name), attribute.nodeValue());
        }
        return scope;
    }
    static QString spaceOf(const Node &element, const QHash<QString, QString> &scope) {
        return scope.value(xml::prefixOf(element.nodeName()));
    }

    int factsFor(const Node &element) {
        const QString name =
            facts_.takesWholeNames ? element.nodeName() : xml::localNameOf(element.nodeName());
        const auto known = places_.constFind(name);
        if (known != places_.constEnd())
            return *known;
        const auto place = int(facts_.elements.size());
        facts_.elements.emplace_back().name = name;
        places_.insert(name, place);
        return place;
    }

    void observe(const Frame &frame, std::vector<Frame> &waiting);
    bool observeAttributes(const Frame &frame);
    void observeChildren(const Frame &frame, std::vector<Frame> &waiting, bool isNil);
    static void take(ElementFacts &facts, const std::vector<int> &children);

    DocumentFacts facts_;
    QHash<QString, int> places_;
};

void Observer::observe(const Frame &frame, std::vector<Frame> &waiting) {
    if (frame.facts < 0) {
        // It is nobody's business, but what is in it may be.
        for (Node child = frame.element.lastChild(); child; child = child.previousSibling()) {
            if (child.nodeType() != NodeType::Element)
                continue;
            Frame next{child, ElementFacts::Foreign, scopeOf(child, frame.scope)};
            if (spaceOf(child, next.scope) == facts_.rootNamespace)
                next.facts = factsFor(child);
            waiting.push_back(std::move(next));
        }
        return;
    }
    ++facts_.elements[std::size_t(frame.facts)].count;
    const bool isNil = observeAttributes(frame);
    observeChildren(frame, waiting, isNil);
}

/// Whether the element says that it has no content.
bool Observer::observeAttributes(const Frame &frame) {
    ElementFacts &facts = facts_.elements[std::size_t(frame.facts)];
    bool isNil = false;
    for (const Node &attribute : frame.element.attributes().all()) {
        const QString name = attribute.nodeName();
        const QString prefix = xml::prefixOf(name);
        if (!facts_.takesWholeNames) {
            if (name == QLatin1String("xmlns") || prefix == QLatin1String("xmlns"))
                continue;
            const QString space = prefix.isEmpty() ? QString() : frame.scope.value(prefix);
            if (space == InstanceNamespace) {
                isNil =
                    isNil || (xml::localNameOf(name) == QLatin1String("nil") &&
                              QStringList{"true", "1"}.contains(attribute.nodeValue().trimmed()));
                continue;
            }
            if (!prefix.isEmpty()) {
                facts.foreignAttributes.insert(space);
                continue;
            }
        }
        auto place = facts.placeOfAttribute.constFind(name);
        if (place == facts.placeOfAttribute.constEnd()) {
            place = facts.placeOfAttribute.insert(name, int(facts.attributes.size()));
            facts.attributes.emplace_back().name = name;
        }
        AttributeFacts &seen = facts.attributes[std::size_t(*place)];
        ++seen.count;
        seen.values.add(attribute.nodeValue());
    }
    facts.nilCount += isNil ? 1 : 0;
    return isNil;
}

void Observer::observeChildren(const Frame &frame, std::vector<Frame> &waiting, bool isNil) {
    std::vector<int> children;
    bool hasText = false;
    const std::size_t first = waiting.size();
    for (Node child = frame.element.firstChild(); child; child = child.nextSibling()) {
        ElementFacts &facts = facts_.elements[std::size_t(frame.facts)];
        switch (child.nodeType()) {
        case NodeType::Element: {
            Frame next{child, ElementFacts::Foreign, scopeOf(child, frame.scope)};
            const QString space = spaceOf(child, next.scope);
            if (facts_.takesWholeNames || space == facts_.rootNamespace)
                next.facts = factsFor(child);
            else
                facts.foreignChildren.insert(space);
            children.push_back(next.facts);
            waiting.push_back(std::move(next));
            break;
        }
        case NodeType::Text:
        case NodeType::CDATASection:
            hasText = true;
            break;
        case NodeType::EntityReference:
            facts.hasEntity = true;
            break;
        default:
            break;
        }
    }
    // The last one that is put there comes out first.
    std::reverse(waiting.begin() + std::ptrdiff_t(first), waiting.end());
    ElementFacts &facts = facts_.elements[std::size_t(frame.facts)];
    facts.hasText = facts.hasText || hasText;
    if (isNil)
        return;
    if (children.empty()) {
        const QString text = frame.element.text();
        facts.text.add(text);
        // Blanks alone are no node, but stand in the way of being empty.
        facts.isEverBlank = facts.isEverBlank || hasText || hasBlanks(frame.element);
    }
    take(facts, children);
}

/// Takes over which children an element has, in their order.
void Observer::take(ElementFacts &facts, const std::vector<int> &children) {
    QHash<int, int> runs;
    int before = ElementFacts::Foreign - 1;
    for (std::size_t i = 0; i < children.size(); ++i) {
        const int child = children[i];
        auto place = facts.placeOfChild.constFind(child);
        if (place == facts.placeOfChild.constEnd()) {
            place = facts.placeOfChild.insert(child, int(facts.children.size()));
            facts.children.push_back({child});
        }
        ElementFacts::Child &seen = facts.children[std::size_t(*place)];
        if (i > 0 && child == before) {
            seen.repeats = true;
            continue;
        }
        if (i > 0)
            facts.order.insert({before, child});
        before = child;
        if (++runs[child] == 1)
            ++seen.count;
        else
            seen.repeats = true;
        facts.standTogether = facts.standTogether && runs[child] == 1;
    }
}

} // namespace

void ValueFacts::add(const QString &value) {
    // What XML calls white space, and no more.
    static const QRegularExpression around(QStringLiteral(R"(\A[ \t\r\n]+|[ \t\r\n]+\z)"));
    const QString word = QString(value).remove(around);
    isAny_ = true;
    for (unsigned type = 0; type < std::size(ValueTypes); ++type) {
        if ((possible_ & (1U << type)) != 0 && !ValueTypes[type].accepts(word))
            possible_ &= ~(1U << type);
    }
}

QString ValueFacts::type() const {
    for (unsigned type = 0; isAny_ && type < std::size(ValueTypes); ++type) {
        if ((possible_ & (1U << type)) != 0)
            return QString::fromLatin1(ValueTypes[type].name);
    }
    return QStringLiteral("string");
}

std::vector<ElementFacts::Child> ElementFacts::sequence() const {
    if (!standTogether)
        return {};
    // Of those that may come next the one that has appeared first.
    std::vector<Child> sequence;
    std::vector<Child> waiting = children;
    std::set<std::pair<int, int>> rest = order;
    while (!waiting.empty()) {
        const auto next = std::ranges::find_if(waiting, [&](const Child &child) {
            return std::ranges::none_of(
                rest, [&](const auto &pair) { return pair.second == child.element; });
        });
        if (next == waiting.end())
            return {};
        sequence.push_back(*next);
        std::erase_if(rest, [&](const auto &pair) { return pair.first == next->element; });
        waiting.erase(next);
    }
    return sequence;
}

DocumentFacts factsOf(const xml::DOMDocument40 &document, bool wholeNames) {
    return Observer(wholeNames).run(document.documentElement());
}

} // namespace quillon::schemas
