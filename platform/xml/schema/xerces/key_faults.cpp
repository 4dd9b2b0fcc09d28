#include "platform/xml/schema/xerces/key_faults.h"

#include "platform/xml/dom/qualified_name.h"
#include "resources/validation_texts.h"

#include <QSet>
#include <QStringList>

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

/// What a field is at an element; nothing when it is not there.
std::optional<QString> fieldOf(const Node &element, const KeyPath &path) {
    for (auto steps : path) {
        const bool isAttribute = !steps.empty() && steps.back().axis == KeyStep::Axis::Attribute;
        const KeyStep last = isAttribute ? steps.back() : KeyStep();
        if (isAttribute)
            steps.pop_back();
        for (const Node &node : selected(element, steps)) {
            if (!isAttribute)
                return node.text().simplified();
            for (const Node &attribute : node.attributes().all()) {
                if (matches(last, node, attribute.nodeName()))
                    return attribute.nodeValue().simplified();
            }
        }
    }
    return {};
}

/// The values of all fields, as they are shown; nothing when one is not there.
std::optional<QString> keyOf(const Node &element, const std::vector<KeyPath> &fields) {
    QStringList values;
    for (const KeyPath &field : fields) {
        const std::optional<QString> value = fieldOf(element, field);
        if (!value)
            return {};
        values.append(u'\'' + *value + u'\'');
    }
    return u'[' + values.join(QStringLiteral(", ")) + u']';
}

void findUnmatched(const Node &scope, const IdentityConstraint &constraint,
                   std::vector<KeyFault> &faults) {
    QSet<QString> keys;
    for (const Node &element : selected(scope, constraint.keySelector)) {
        if (const auto key = keyOf(element, constraint.keyFields))
            keys.insert(*key);
    }
    for (const Node &element : selected(scope, constraint.selector)) {
        const auto key = keyOf(element, constraint.fields);
        if (key && !keys.contains(*key))
            faults.push_back({element, texts::UnmatchedKeyRef.toString().arg(
                                           element.nodeName(), *key, constraint.name)});
    }
}

void findDuplicates(const Node &scope, const IdentityConstraint &constraint,
                    std::vector<KeyFault> &faults) {
    QSet<QString> keys;
    for (const Node &element : selected(scope, constraint.selector)) {
        const auto key = keyOf(element, constraint.fields);
        if (!key) {
            if (constraint.kind == Kind::Key)
                faults.push_back({element, texts::IncompleteKey.toString().arg(element.nodeName(),
                                                                               constraint.name)});
        } else if (keys.contains(*key)) {
            faults.push_back({element, texts::DuplicateKey.toString().arg(element.nodeName(), *key,
                                                                          constraint.name)});
        } else {
            keys.insert(*key);
        }
    }
}

} // namespace

std::vector<KeyFault> keyFaults(const Node &scope,
                                const std::vector<IdentityConstraint> &constraints) {
    std::vector<KeyFault> faults;
    for (const IdentityConstraint &constraint : constraints) {
        if (constraint.kind == Kind::Reference)
            findUnmatched(scope, constraint, faults);
        else
            findDuplicates(scope, constraint, faults);
    }
    return faults;
}

} // namespace quillon::xml
