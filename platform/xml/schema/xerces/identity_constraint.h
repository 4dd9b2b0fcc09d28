#pragma once

#include <QString>

#include <vector>

namespace quillon::xml {

/// A step of the XPath that keys are made of.
struct KeyStep {
    enum class Axis : quint8 { Self, Child, Descendants, Attribute };
    Axis axis = Axis::Child;
    /// The name, or its namespace alone, does not matter.
    bool anyName = false;
    bool anyNamespace = false;
    QString namespaceName;
    QString localName;
};

/// Alternatives, each of them steps.
using KeyPath = std::vector<std::vector<KeyStep>>;

/// A unique, key or keyref declaration of XML Schema.
struct IdentityConstraint {
    enum class Kind : quint8 { Unique, Key, Reference };
    Kind kind = Kind::Unique;
    QString name;
    KeyPath selector;
    std::vector<KeyPath> fields;
    /// Of a reference: the name of the key, and what makes it.
    QString keyName;
    KeyPath keySelector;
    std::vector<KeyPath> keyFields;
};

} // namespace quillon::xml
