#pragma once

#include "platform/xml/dom/dom.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace quillon::schemas {

/// A document type declaration.
struct DocumentTypeParts {
    QString publicId;
    QString systemId;
    /// What stands between the brackets, in UTF-8.
    QByteArray internalSubset;

    bool operator==(const DocumentTypeParts &) const = default;
};

/// A pair of xsi:schemaLocation; without a namespace one of xsi:noNamespaceSchemaLocation.
struct LocationPair {
    QString namespaceName;
    QString location;

    bool operator==(const LocationPair &) const = default;
};

/// An instruction <?xml-model ...?>: its pseudo-attributes.
struct ModelInstruction {
    QString href;
    QString type;
    QString schemaTypeNamespace;

    bool operator==(const ModelInstruction &) const = default;
};

/// Everything in a document by which a schema for it is found.
struct DocumentReferences {
    DocumentTypeParts documentType;
    std::vector<ModelInstruction> models;
    /// The local name of the root element; empty when there is none.
    QString rootName;
    QString rootNamespace;
    /// Those of the root element first; each once.
    std::vector<LocationPair> locations;

    bool operator==(const DocumentReferences &) const = default;
};

/// What the prolog and the root element say. Costs what these are long.
DocumentReferences referencesOf(const xml::DOMDocument40 &document);

/// Adds what elements below the root element say of xsi:schemaLocation and its like; false when
/// none says anything. Looks at every name in the document.
bool addDeeperLocations(const xml::DOMDocument40 &document, DocumentReferences &references);

/// Whether the difference between two states of a document may be one of these. `wereThere`: the
/// former has, or has had, some. Costs what has changed.
bool mayDifferInDeeperLocations(const xml::DOMDocument40 &before, const xml::DOMDocument40 &now,
                                bool wereThere);

/// The parts of a document type declaration, given its markup, which is well-formed.
DocumentTypeParts documentTypeParts(const QByteArray &markup);

/// The pseudo-attribute of an instruction; null when it has none of that name.
QString pseudoAttribute(const QString &instruction, const QString &name);

} // namespace quillon::schemas
