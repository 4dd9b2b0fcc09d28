#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/schema/grammar/content_matcher.h"
#include "platform/xml/schema/grammar/document_names.h"
#include "validation/fault.h"

namespace quillon::validation {

/// Finds what is wrong in a document as far as a grammar alone can tell: the names, order and
/// number of children, the names of attributes, values that are none of an enumeration.
class ElementFaults {
public:
    explicit ElementFaults(const grammar::Grammar &grammar)
        : grammar_(grammar), matcher_(grammar) {}

    /// What is wrong with the tag and the content of one element, in document order; its children
    /// themselves are not looked at. An element without a type is not looked at, but for a root of
    /// which the grammar knows nothing.
    std::vector<Fault> of(const xml::Node &element, const grammar::KnownElement &known);
    std::vector<Fault> of(const xml::Node &element) {
        return of(element, grammar::knownElement(grammar_, element));
    }
    /// What is wrong in a whole document, in document order; at most one more than MostFaults.
    std::vector<Fault> in(const xml::DOMDocument40 &document);

    const grammar::Grammar &grammar() const { return grammar_; }

private:
    struct Found;

    Found find(const xml::Node &element, const grammar::KnownElement &known);
    void findInTag(const xml::Node &element, const grammar::KnownElement &known, Found &found);
    void findInChildren(const xml::Node &element, const grammar::KnownElement &known, Found &found);
    void findInText(const xml::Node &element, const grammar::KnownElement &known, Found &found);

    grammar::Grammar grammar_;
    grammar::ContentMatcher matcher_;
};

/// Whether a grammar of a language tells of a fault only where an engine does. RELAX NG may decide
/// by what else stands there which of several models holds, and XDR has rules of its own for what
/// it does not know; there the grammar is no more than a reading of them.
bool isExact(grammar::Language language);

/// The values that a simple type allows where these are all there are and each is written in one
/// way only; none for any other type, and for None.
QStringList valuesOf(const grammar::Grammar &grammar, grammar::Index simpleType);
/// Whether a value is one of those, given as it stands in a document.
bool isOneOf(const QStringList &values, const grammar::Grammar &grammar, grammar::Index simpleType,
             const QString &value);

/// The children of an element that are text, or stand for text, and are not white space alone.
std::vector<xml::Node> textIn(const xml::Node &element);

} // namespace quillon::validation
