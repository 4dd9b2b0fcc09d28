#pragma once

#include "platform/xml/dom/dom.h"

#include <vector>

/// Changes that leave nodes where they are, with their numbers, and everything else in the file as
/// it is written.
namespace quillon::xml {

/// What is to stand in the place of a stretch of a value, in UTF-16 units; an empty stretch
/// inserts.
struct ValueChange {
    qsizetype at;
    qsizetype length;
    QString text;
};

/// Replaces stretches of nodeValue(), ascending and not overlapping. What stands between them stays
/// as it is written: references, line ends, the bytes of the file. Raises as setNodeValue() does,
/// and InvalidArgument for a stretch outside of the value.
void replaceInValue(const Node &node, const std::vector<ValueChange> &changes);

/// A stretch of a value, in UTF-16 units.
struct ValueStretch {
    qsizetype at;
    qsizetype length;
};

/// Where in an attribute's value references stand whose texts are not known, as they are written.
std::vector<ValueStretch> referencesIn(const Node &attribute);

/// Gives an element another name. Raises Fail for a name that XML does not allow and on anything
/// but an element.
void changeName(const Node &element, const QString &name);

struct AttributeName {
    Node attribute;
    QString name;
};

/// Gives attributes of an element other names, all at once, so that they may take each other's.
/// Raises Fail for a name that XML does not allow and where two attributes would have one name,
/// InvalidArgument for a node that is no attribute of the element.
void changeNames(const Node &element, const std::vector<AttributeName> &names);

} // namespace quillon::xml
