#pragma once

#include "platform/xml/dom/dom.h"
#include "platform/xml/schema/grammar/grammar_builder.h"
#include "platform/xml/schema/grammar/schema_files.h"

#include <QHash>
#include <QSet>

#include <vector>

namespace quillon::grammar {

/// Simple and complex types share their names, as elements and attributes do not.
enum class ComponentKind : quint8 { Element, Attribute, Type, Group, AttributeGroup };

struct ExpandedName {
    QString space;
    QString local;
};

/// A file of a schema.
struct XsdDocument {
    QString path;
    xml::Node root;
    /// That of who includes it, when it has none of its own.
    QString targetNamespace;
    /// What includes it gives it its namespace.
    bool isChameleon = false;
    bool qualifiesElements = false;
    bool qualifiesAttributes = false;
    /// The 1-based lines of its elements, by the numbers of the nodes.
    QHash<quint32, quint32> lines;
};

/// A declaration with a name at the top of a schema.
struct XsdComponent {
    ComponentKind kind;
    ExpandedName name;
    xml::Node node;
    int document;
    /// Of all(): what it redefines, or -1.
    int original = -1;
};

/// The files of an XML Schema and what they declare at their top.
class XsdComponents {
public:
    XsdComponents(SchemaFiles &files, GrammarBuilder &builder) : files_(files), builder_(builder) {}

    /// Reads schemas and all that belongs to them. Raises Fail when one is none.
    void load(const QStringList &paths);

    const std::vector<XsdComponent> &all() const { return components_; }
    const std::vector<XsdDocument> &documents() const { return documents_; }
    /// The place in all() of a component; -1 when there is none.
    int find(ComponentKind kind, const ExpandedName &name) const;
    /// What a qualified name in an attribute of a node stands for.
    ExpandedName expanded(const xml::Node &at, const QString &qualifiedName, int document) const;
    /// The local name of an element of the schema language; empty for any other node.
    QString kindOf(const xml::Node &node) const;

    /// Calls a function with each child that is an element of the schema language, and its kind.
    template <typename Function>
    void forEachPart(const xml::Node &node, Function &&function) const {
        for (xml::Node child = node.firstChild(); child; child = child.nextSibling()) {
            if (const QString kind = kindOf(child); !kind.isEmpty())
                function(child, kind);
        }
    }

private:
    int readDocument(const QString &path, const QString &includingNamespace, bool isInclude);
    void readTop(int document);
    void readReference(const xml::Node &node, const QString &kind, int document);
    void redefine(const xml::Node &node, int document);
    void add(ComponentKind kind, const xml::Node &node, int document, bool redefines);
    static QString key(ComponentKind kind, const ExpandedName &name) {
        return QString::number(int(kind)) + name.local + u' ' + name.space;
    }

    SchemaFiles &files_;
    GrammarBuilder &builder_;
    std::vector<XsdDocument> documents_;
    std::vector<XsdComponent> components_;
    QHash<QString, int> places_;
    QSet<QString> read_;
    /// Elements that redefine wait until all files are there.
    std::vector<std::pair<xml::Node, int>> redefinitions_;
};

} // namespace quillon::grammar
