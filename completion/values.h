#pragma once

#include "platform/ui/proposals.h"
#include "platform/xml/dom/dom.h"
#include "platform/xml/schema/grammar/grammar.h"

#include <optional>

namespace quillon::completion {

/// What a grammar says of a value, in an attribute or as the text of an element.
struct ValueType {
    /// Of `simpleTypes`; None for any text.
    grammar::Index type = grammar::None;
    grammar::ValueRule rule = grammar::ValueRule::Free;
    /// Of `strings`.
    grammar::Index value = 0;
    /// Of the attribute or the element.
    QString name;
};

/// A value is several of a type, with blanks between them.
bool isList(const grammar::Grammar &grammar, const ValueType &type);

/// A value refers to something in the document that has an ID.
bool refersToId(const grammar::Grammar &grammar, const ValueType &type);

/// The values of a type that can be listed: fixed, default, enumerated, true and false, languages.
/// Bounded, however many the schema has.
std::vector<ui::Proposal> knownValues(const grammar::Grammar &grammar, const ValueType &type);
/// What the XML recommendation itself says of an attribute: xml:space, xml:lang.
std::vector<ui::Proposal> knownValues(const QString &attribute);

/// What helps to enter a value: by its type, else by its name and by what it is at present.
/// `grammar` may be null.
ui::ValueEditor editorFor(const grammar::Grammar *grammar, const ValueType &type,
                          const QString &present);

/// The IDs in a document: the values of all attributes that are called like one the grammar calls
/// an ID, and of xml:id. In the order of the document; of a large one no more than some thousands.
QStringList idsOf(const xml::DOMDocument40 &document, const grammar::Grammar *grammar);

/// Asks for a value by an editor, and gives it in the form that the present one has; nothing when
/// the user cancelled.
std::optional<QString> askForValue(ui::ValueEditor editor, const QString &present);

} // namespace quillon::completion
