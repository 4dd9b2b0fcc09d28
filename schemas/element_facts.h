#pragma once

#include "platform/xml/dom/dom.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <set>
#include <utility>
#include <vector>

namespace quillon::schemas {

/// Which simple types all values seen so far belong to.
class ValueFacts {
public:
    void add(const QString &value);
    /// The name of the narrowest built-in type of XML Schema, e.g. "integer"; "string" when there
    /// is no narrower one.
    QString type() const;

private:
    /// A bit for each type, the narrowest first.
    unsigned possible_ = ~0U;
    bool isAny_ = false;
};

struct AttributeFacts {
    QString name;
    quint64 count = 0;
    ValueFacts values;
};

/// What elements of one name have had in them so far.
struct ElementFacts {
    struct Child {
        /// A place in DocumentFacts::elements; Foreign for any element of another namespace.
        int element;
        /// In so many elements, and more than once in one of them.
        quint64 count = 0;
        bool repeats = false;
    };
    static constexpr int Foreign = -1;

    QString name;
    quint64 count = 0;
    /// Those of them that xsi:nil says to be empty are not asked for what must be in them.
    quint64 nilCount = 0;
    /// In the order in which they have appeared first.
    std::vector<Child> children;
    QHash<int, int> placeOfChild;
    /// One child comes right ahead of another one.
    std::set<std::pair<int, int>> order;
    /// Equal children always stand together.
    bool standTogether = true;
    bool hasText = false;
    /// There was something, if only blanks, in each that has no child.
    bool isEverBlank = false;
    /// What it holds is not to be seen.
    bool hasEntity = false;
    ValueFacts text;
    std::vector<AttributeFacts> attributes;
    QHash<QString, int> placeOfAttribute;
    /// The namespaces of children and of attributes that the schema does not speak of.
    std::set<QString> foreignChildren;
    std::set<QString> foreignAttributes;

    /// The children in an order that every element seen keeps to; none when there is none.
    std::vector<Child> sequence() const;
};

/// What is in a document, element by element.
struct DocumentFacts {
    /// The namespace of the root element; it alone is looked at closely. Null where names are
    /// taken whole, with their prefixes.
    QString rootNamespace;
    bool takesWholeNames = false;
    /// In the order in which they have appeared first.
    std::vector<ElementFacts> elements;
};

/// Looks at every element of a document. `wholeNames`: as a DTD sees them, without namespaces.
DocumentFacts factsOf(const xml::DOMDocument40 &document, bool wholeNames);

} // namespace quillon::schemas
