#pragma once

#include "candidates/candidate_finder.h"
#include "platform/items/tree.h"
#include "tree/node_registry.h"

namespace quillon::completion {

/// Where a schema declares something.
struct Declaration {
    /// A grammar's element or attribute; at most one of the two.
    grammar::Index element = grammar::None;
    const grammar::Attribute *attribute = nullptr;

    explicit operator bool() const { return element != grammar::None || attribute; }
};

/// What an attribute is that an element of a type has, or may have by itself; null for none.
const grammar::Attribute *declaredAttribute(const grammar::Grammar &grammar, grammar::Index type,
                                            const xml::Node &element, const QString &name);

/// What a schema says of a declaration, in plain text: the kind and name, what it holds, its
/// documentation. Cut to a length that a tool-tip has room for.
QString explanationOf(const grammar::Grammar &grammar, const Declaration &declaration);

/// Says what nodes are by the schema in force, and where it says so.
class NodeExplanation : public QObject {
    Q_OBJECT

public:
    NodeExplanation(candidates::CandidateFinder &finder, const tree::NodeRegistry &registry,
                    items::Tree &tree);

    /// Plain text; empty where the schema does not know the node. For a text what is said of its
    /// element.
    QString explanation(const items::TreeItem &item) const;
    /// Whether the selected node is declared anywhere.
    bool isDeclared() const;

    /// Says in a message box what the selected node is.
    void mnuNodeExplain_Click();
    /// Has the declaration of the selected node shown, or says in a message box where it is.
    void mnuNodeDefinition_Click();

Q_SIGNALS:
    /// An XML file is to be shown at a 1-based line, in a window of its own.
    void definitionRequested(const QString &path, quint32 line);

private:
    Declaration declarationOf(const items::TreeItem &item) const;

    candidates::CandidateFinder &finder_;
    const tree::NodeRegistry &registry_;
    items::Tree &tree_;
};

} // namespace quillon::completion
