#pragma once

#include <QSet>
#include <QString>

#include <libxml/tree.h>
#include <libxml/xmlerror.h>
#include <map>
#include <vector>

namespace quillon::xml {

/// Finds the elements that errors of key references are about: such an error has a line only.
class ElementsByLine {
public:
    /// Of a document that a SchemaSession has parsed.
    explicit ElementsByLine(xmlDoc *doc) : doc_(doc) {}

    /// The 0-based position of the element in the document; -1 when there is none.
    qint64 find(const xmlError &error);

private:
    void fill();

    xmlDoc *doc_;
    /// By the line that the library keeps, in document order.
    std::multimap<int, xmlNode *> elements_;
};

/// An attribute of the type xs:IDREF or xs:IDREFS and one of its values.
struct Reference {
    const xmlAttr *attribute;
    QString value;
};

/// The references, in a document that has been validated by an XML Schema, to identifiers that
/// nothing in it has. The library notes references but leaves it at that. In document order.
std::vector<Reference> danglingReferences(xmlDoc *doc);

} // namespace quillon::xml
