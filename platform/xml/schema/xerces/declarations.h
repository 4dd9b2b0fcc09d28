#pragma once

#include "platform/xml/schema/grammar/content_matcher.h"
#include "platform/xml/schema/grammar/document_names.h"
#include "platform/xml/schema/grammar/load_grammar.h"

#include <optional>

namespace quillon::xml {

/// What schemas say of the elements of a document. They are read when that is asked for.
class Declarations {
public:
    explicit Declarations(grammar::SchemaSource schemas) : schemas_(std::move(schemas)) {}

    /// What the schemas say of an element.
    struct Declared {
        /// Null when they cannot be read.
        grammar::ContentMatcher *matcher = nullptr;
        grammar::KnownElement known;

        explicit operator bool() const { return matcher && known.type != grammar::None; }
        const grammar::Grammar &grammar() const { return matcher->grammar(); }
    };
    Declared of(const Node &element);
    /// The type of the text of an element, or of an attribute's value; null when it is not known,
    /// or has none.
    const grammar::SimpleType *typeOfText(const Declared &declared) const;
    const grammar::SimpleType *typeOfAttribute(const Declared &declared, const Node &element,
                                               const QString &name) const;

    /// Content models that Xerces would write out until there is no memory left: groups that repeat
    /// many times.
    bool hasLargeGroups();
    /// The entities of a DTD multiply beyond bounds, which Xerces does not have.
    bool expandsTooMuch();

private:
    grammar::ContentMatcher *matcher();

    grammar::SchemaSource schemas_;
    std::optional<grammar::ContentMatcher> matcher_;
    bool isRead_ = false;
    bool expandsTooMuch_ = false;
};

} // namespace quillon::xml
