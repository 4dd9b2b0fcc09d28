#include "platform/xml/schema/xerces/key_faults.h"

#include "platform/xml/dom/qualified_name.h"
#include "resources/validation_texts.h"

#include <QSet>
#include <QStringList>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <optional>

namespace quillon::xml {

namespace texts = resources::validation_texts;

namespace {

using Kind = IdentityConstraint::Kind;

bool matches(const KeyStep &step, const Node &element, const QString &qualifiedName) {
    if (!step.anyName && localNameOf(qualifiedName) != step.localName)
        return false;
    if (step.anyNamespace)
        return true;
    const QString prefix = prefixOf(qualifiedName);
    // Attributes have no namespace without a prefix.
    const bool hasNone = step.axis == KeyStep::Axis::Attribute && prefix.isEmpty();
    return (hasNone ? QString() : namespaceAt(element, prefix)) == step.namespaceName;
}

Node nextBelow(const Node &at, const Node &top) {
    if (const Node child = at.firstChild())
        return child;
    for (Node up = at; !(up == top); up = up.parentNode()) {
        if (const Node next = up.nextSibling())
            return next;
    }
    return {};
}

/// The elements that steps lead to.
std::vector<Node> selected(const Node &from, const std::vector<KeyStep> &steps) {
    std::vector<Node> nodes{from};
    for (const KeyStep &step : steps) {
        std::vector<Node> next;
        for (const Node &node : nodes) {
            if (step.axis == KeyStep::Axis::Self) {
                next.push_back(node);
            } else if (step.axis == KeyStep::Axis::Child) {
                for (Node child = node.firstChild(); child; child = child.nextSibling()) {
                    if (child.nodeType() == NodeType::Element &&
                        matches(step, child, child.nodeName()))
                        next.push_back(child);
                }
            } else if (step.axis == KeyStep::Axis::Descendants) {
                for (Node at = node; at; at = nextBelow(at, node)) {
                    if (at.nodeType() == NodeType::Element)
                        next.push_back(at);
                }
            }
        }
        nodes = std::move(next);
    }
    return nodes;
}

std::vector<Node> selected(const Node &from, const KeyPath &path) {
    std::vector<Node> all;
    QSet<quint32> known;
    for (const auto &steps : path) {
        for (const Node &node : selected(from, steps)) {
            if (!known.contains(node.number())) {
                known.insert(node.number());
                all.push_back(node);
            }
        }
    }
    return all;
}

/// Whether white space at the ends of values counts is a matter of their types.
enum class Blanks : quint8 { Ignored, Kept };

QString value(const QString &text, Blanks blanks) {
    return blanks == Blanks::Ignored ? text.simplified() : text;
}

/// What a field is at an element; nothing when it is not there.
std::optional<QString> fieldOf(const Node &element, const KeyPath &path, Blanks blanks) {
    for (auto steps : path) {
        const bool isAttribute = !steps.empty() && steps.back().axis == KeyStep::Axis::Attribute;
        const KeyStep last = isAttribute ? steps.back() : KeyStep();
        if (isAttribute)
            steps.pop_back();
        for (const Node &node : selected(element, steps)) {
            if (!isAttribute)
                return value(node.text(), blanks);
            for (const Node &attribute : node.attributes().all()) {
                if (matches(last, node, attribute.nodeName()))
                    return value(attribute.nodeValue(), blanks);
            }
        }
    }
    return {};
}

/// The values of all fields, as they are shown; nothing when one is not there.
std::optional<QString> keyOf(const Node &element, const std::vector<KeyPath> &fields,
                             Blanks blanks) {
    QStringList values;
    for (const KeyPath &field : fields) {
        const std::optional<QString> found = fieldOf(element, field, blanks);
        if (!found)
            return {};
        values.append(u'\'' + *found + u'\'');
    }
    return u'[' + values.join(QStringLiteral(", ")) + u']';
}

using Faults = std::vector<KeyFault>;

Faults unmatched(const Node &scope, const IdentityConstraint &constraint, Blanks blanks) {
    QSet<QString> keys;
    for (const Node &element : selected(scope, constraint.keySelector)) {
        if (const auto key = keyOf(element, constraint.keyFields, blanks))
            keys.insert(*key);
    }
    Faults faults;
    for (const Node &element : selected(scope, constraint.selector)) {
        const auto key = keyOf(element, constraint.fields, blanks);
        if (key && !keys.contains(*key))
            faults.push_back({element, texts::UnmatchedKeyRef.toString().arg(
                                           element.nodeName(), *key, constraint.name)});
    }
    return faults;
}

Faults duplicate(const Node &scope, const IdentityConstraint &constraint, Blanks blanks) {
    QSet<QString> keys;
    Faults faults;
    for (const Node &element : selected(scope, constraint.selector)) {
        const auto key = keyOf(element, constraint.fields, blanks);
        if (key && keys.contains(*key))
            faults.push_back({element, texts::DuplicateKey.toString().arg(element.nodeName(), *key,
                                                                          constraint.name)});
        else if (key)
            keys.insert(*key);
    }
    return faults;
}

Faults incomplete(const Node &scope, const IdentityConstraint &constraint, Blanks blanks) {
    Faults faults;
    for (const Node &element : selected(scope, constraint.selector)) {
        if (!keyOf(element, constraint.fields, blanks))
            faults.push_back({element, texts::IncompleteKey.toString().arg(element.nodeName(),
                                                                           constraint.name)});
    }
    return faults;
}

/// What one of the functions above finds for all constraints of some kinds, in the way that comes
/// to the number that was told.
template <typename Find>
void append(Faults &all, const Node &scope, const std::vector<IdentityConstraint> &constraints,
            std::initializer_list<Kind> kinds, int count, Find &&find) {
    if (count == 0)
        return;
    Faults found;
    for (const Blanks blanks : {Blanks::Kept, Blanks::Ignored}) {
        found.clear();
        for (const IdentityConstraint &constraint : constraints) {
            if (std::ranges::find(kinds, constraint.kind) != kinds.end())
                std::ranges::move(find(scope, constraint, blanks), std::back_inserter(found));
        }
        if (int(found.size()) == count)
            break;
    }
    std::ranges::move(found, std::back_inserter(all));
}

} // namespace

std::vector<KeyFault> keyFaults(const Node &scope,
                                const std::vector<IdentityConstraint> &constraints,
                                const KeyReports &reports) {
    Faults faults;
    append(faults, scope, constraints, {Kind::Reference}, reports.unmatched, unmatched);
    append(faults, scope, constraints, {Kind::Unique, Kind::Key}, reports.duplicate, duplicate);
    append(faults, scope, constraints, {Kind::Key}, reports.incomplete, incomplete);
    return faults;
}

} // namespace quillon::xml
