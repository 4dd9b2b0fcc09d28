#include "search/replace_plan.h"

#include "platform/runtime/error.h"
#include "platform/xml/dom/in_place.h"
#include "platform/xml/dom/part_walk.h"
#include "platform/xml/dom/qualified_name.h"
#include "platform/xml/query/xpath.h"
#include "platform/xml/storage/values.h"
#include "resources/search_texts.h"

#include <map>

namespace quillon::search {

using xml::Node;
using xml::NodeType;
namespace texts = resources::search_texts;

namespace {

constexpr QStringView DeclarationPrefix = u"xmlns:";

bool isDeclaration(const Node &node) {
    return node.nodeType() == NodeType::ProcessingInstruction &&
           node.nodeName() == QLatin1String("xml");
}

Node elementOf(const Node &node) {
    return node.nodeType() == NodeType::Attribute ? xml::ownerElement(node) : node;
}

/// What a function says of a text, asked once for each text.
template <typename F>
QString remembered(QHash<QString, QString> &known, const QString &text, F &&ask) {
    const auto found = known.constFind(text);
    if (found != known.constEnd())
        return *found;
    QString said;
    try {
        ask();
    } catch (const runtime::Error &error) {
        said = error.description();
    }
    known.insert(text, said);
    return said;
}

} // namespace

std::vector<PartHits> hitsByPart(const std::vector<Hit> &hits) {
    std::vector<PartHits> parts;
    for (std::size_t at = 0; at < hits.size(); ++at) {
        const bool isSame =
            at > 0 && hits[at].node == hits[at - 1].node && hits[at].part == hits[at - 1].part;
        if (!isSame)
            parts.push_back({at, at});
        parts.back().end = at + 1;
    }
    return parts;
}

ReplacePlan::ReplacePlan(const xml::DOMDocument40 &document, bool namesLocked)
    : document_(document), namesLocked_(namesLocked) {
    try {
        encoding_.emplace(document);
    } catch (const runtime::Error &) {
        // Saving will say so; it is no fault of what is replaced.
    }
}

void ReplacePlan::findObstacles(const std::vector<Hit> &hits, std::vector<Change> &changes,
                                const runtime::Progress &progress) {
    constexpr std::size_t PartsBetween = 1024;
    hits_ = &hits;
    changes_ = &changes;
    names_.clear();
    renamed_.clear();
    renamesAttributes_ = false;
    const std::vector<PartHits> parts = hitsByPart(hits);
    for (std::size_t at = 0; at < parts.size(); ++at) {
        if (at % PartsBetween == 0 && progress && !progress(double(at) / double(parts.size())))
            runtime::raise(runtime::error_number::Cancelled);
        const PartHits &part = parts[at];
        const Hit &hit = hits[part.first];
        const Node node = document_.nodeByNumber(hit.node);
        if (hit.part != Part::Name) {
            refuse(part, obstacleOfValue(node, part));
            continue;
        }
        const QString name = textAfter(node.nodeName(), part);
        const QString obstacle = obstacleOfName(node, name);
        refuse(part, obstacle);
        if (!obstacle.isEmpty())
            continue;
        names_.insert({hit.node, {name, part}});
        renamed_.push_back(hit.node);
        renamesAttributes_ = renamesAttributes_ || node.nodeType() == NodeType::Attribute;
    }
    for (bool again = !names_.empty(); again;) {
        again = refuseDoubleAttributes();
        again = refuseUndeclaredPrefixes() || again;
        again = refuseLostPrefixes() || again;
        if (again && progress && !progress(runtime::UnknownProgress))
            runtime::raise(runtime::error_number::Cancelled);
    }
}

void ReplacePlan::refuse(const PartHits &part, const QString &why) {
    for (std::size_t at = part.first; at < part.end; ++at)
        (*changes_)[at].obstacle = why;
}

QString ReplacePlan::textAfter(const QString &text, const PartHits &part) const {
    QString after;
    qsizetype from = 0;
    for (std::size_t at = part.first; at < part.end; ++at) {
        const Hit &hit = (*hits_)[at];
        after += QStringView(text).mid(from, hit.at - from);
        after += (*changes_)[at].after;
        from = qsizetype(hit.at) + hit.length;
    }
    after += QStringView(text).mid(from);
    return after;
}

QString ReplacePlan::obstacleOfName(const Node &node, const QString &name) {
    if (node.nodeType() == NodeType::ProcessingInstruction)
        return (isDeclaration(node) ? texts::DeclarationIsFixed : texts::InstructionTarget)
            .toString();
    if (namesLocked_)
        return texts::NamesLocked.toString();
    if (!node.specified())
        return texts::DefaultAttribute.toString();
    const QString fault = remembered(nameObstacles_, name, [&] { xml::checkedName(name); });
    return fault.isEmpty() ? obstacleOfEncoding(name) : texts::NotAName.toString().arg(name);
}

QString ReplacePlan::obstacleOfCharacters(const QString &text) {
    return remembered(characterObstacles_, text, [&] { xml::checkedValue(text); });
}

QString ReplacePlan::obstacleOfEncoding(const QString &text) {
    return remembered(encodingObstacles_, text, [&] {
        if (encoding_)
            encoding_->check(text);
    });
}

QString ReplacePlan::obstacleOfValue(const Node &node, const PartHits &part) {
    if (isDeclaration(node))
        return texts::DeclarationIsFixed.toString();
    const NodeType kind = node.nodeType();
    const bool takesReferences = kind == NodeType::Text || kind == NodeType::Attribute;
    for (std::size_t at = part.first; at < part.end; ++at) {
        const QString &after = (*changes_)[at].after;
        QString obstacle = obstacleOfCharacters(after);
        if (obstacle.isEmpty() && !takesReferences)
            obstacle = obstacleOfEncoding(after);
        if (!obstacle.isEmpty())
            return obstacle;
    }
    if (kind == NodeType::Text)
        return {};
    if (kind == NodeType::Attribute) {
        for (const xml::ValueStretch &reference : xml::referencesIn(node)) {
            for (std::size_t at = part.first; at < part.end; ++at) {
                const Hit &hit = (*hits_)[at];
                const qsizetype end = qsizetype(hit.at) + hit.length;
                const bool isApart =
                    end <= reference.at || hit.at >= reference.at + reference.length;
                const bool isWhole =
                    hit.at <= reference.at && end >= reference.at + reference.length;
                if (!isApart && !isWhole)
                    return texts::PartOfReference.toString();
            }
        }
        return node.nodeName().startsWith(DeclarationPrefix) &&
                       textAfter(node.nodeValue(), part).isEmpty()
                   ? texts::EmptyNamespace.toString()
                   : QString();
    }
    const std::string after = textAfter(node.nodeValue(), part).toStdString();
    if (xml::holdsAsItIs(kind, after))
        return {};
    return (kind == NodeType::Comment                 ? texts::CommentHyphens
            : kind == NodeType::ProcessingInstruction ? texts::InstructionEnd
                                                      : texts::CDataEnd)
        .toString();
}

QString ReplacePlan::nameAfter(const Node &node) const {
    const auto changed = names_.find(node.number());
    return changed != names_.end() ? changed->second.name : node.nodeName();
}

bool ReplacePlan::refuseName(quint32 node, const QString &why) {
    const auto name = names_.find(node);
    if (name == names_.end())
        return false;
    refuse(name->second.part, why);
    names_.erase(name);
    return true;
}

bool ReplacePlan::refuseDoubleAttributes() {
    if (!renamesAttributes_)
        return false;
    bool refused = false;
    quint32 lastElement = 0;
    for (const quint32 number : renamed_) {
        const Node node = document_.nodeByNumber(number);
        if (node.nodeType() != NodeType::Attribute)
            continue;
        const Node element = xml::ownerElement(node);
        if (std::exchange(lastElement, element.number()) == element.number())
            continue;
        // Names that stay are there first, whatever their place.
        std::map<QString, int> kept;
        const std::vector<Node> attributes = element.attributes().all();
        for (const Node &attribute : attributes) {
            if (!names_.contains(attribute.number()))
                ++kept[attribute.nodeName()];
        }
        for (const Node &attribute : attributes) {
            const auto changed = names_.find(attribute.number());
            if (changed == names_.end() || kept[changed->second.name]++ == 0)
                continue;
            refused = refuseName(attribute.number(),
                                 texts::AttributeExists.toString().arg(changed->second.name));
        }
    }
    return refused;
}

bool ReplacePlan::isDeclaredAfter(const QString &prefix, Node element) const {
    if (prefix == QLatin1String("xml") || prefix == QLatin1String("xmlns"))
        return true;
    const QString declaration = DeclarationPrefix.toString() + prefix;
    for (; element.nodeType() == NodeType::Element; element = element.parentNode()) {
        if (!renamesAttributes_) {
            if (element.getAttributeNode(declaration))
                return true;
            continue;
        }
        for (const Node &attribute : element.attributes().all()) {
            if (nameAfter(attribute) == declaration)
                return true;
        }
    }
    return false;
}

bool ReplacePlan::refuseUndeclaredPrefixes() {
    bool refused = false;
    for (const quint32 number : renamed_) {
        const auto changed = names_.find(number);
        if (changed == names_.end())
            continue;
        const QString prefix = xml::prefixOf(changed->second.name);
        const Node node = document_.nodeByNumber(number);
        // A prefix that was there before may have been undeclared before.
        if (!prefix.isEmpty() && prefix != xml::prefixOf(node.nodeName()) &&
            !isDeclaredAfter(prefix, elementOf(node)))
            refused = refuseName(number, texts::UndeclaredPrefix.toString().arg(prefix));
    }
    return refused;
}

bool ReplacePlan::refuseLostPrefixes() {
    bool refused = false;
    for (const quint32 number : renamed_) {
        const Node node = document_.nodeByNumber(number);
        const QString name = node.nodeName();
        if (!names_.contains(number) || node.nodeType() != NodeType::Attribute ||
            !name.startsWith(DeclarationPrefix))
            continue;
        const QString prefix = name.mid(DeclarationPrefix.size());
        if (leavesPrefixBehind(xml::ownerElement(node), prefix))
            refused = refuseName(number, texts::PrefixInUse.toString().arg(prefix));
    }
    return refused;
}

bool ReplacePlan::leavesPrefixBehind(const Node &element, const QString &prefix) const {
    xml::PartWalk walk(element, xml::part_kind::ElementName | xml::part_kind::AttributeName);
    for (xml::NodePart part; walk.next(part);) {
        const Node node = document_.nodeByNumber(part.node);
        if (xml::prefixOf(nameAfter(node)) == prefix && !isDeclaredAfter(prefix, elementOf(node)))
            return true;
    }
    return false;
}

} // namespace quillon::search
