#pragma once

#include "platform/xml/schema/schematron/schematron_schema.h"

#include <QByteArray>

#include <map>

namespace quillon::schematron {

/// A schema as a stylesheet of XSLT 1.0. Applied to a document it gives an element without
/// attributes that has a child for each assertion that fails and each report that is made:
/// attribute "check" is the place in `checks`, "node" the Node::number() of the element concerned
/// (0 for none, which means the root element), "attribute" the name of its attribute or nothing,
/// and its text is what the author says.
struct SchemaStylesheet {
    /// In UTF-8.
    QByteArray text;
    std::vector<const Check *> checks;
    /// Where that comes from which starts in a line, 1-based, of the text.
    std::map<int, Place> places;

    /// What the line of an error of the processor is in the schema.
    Place placeOf(int line) const;
};

/// The result refers to the schema.
SchemaStylesheet stylesheetFor(const Schema &schema);

} // namespace quillon::schematron
