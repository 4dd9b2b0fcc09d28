#pragma once

#include "platform/xml/dom/dom.h"
#include "platform/xml/schema/grammar/grammar_builder.h"
#include "platform/xml/schema/grammar/schema_files.h"

#include <QHash>
#include <QSet>

#include <memory>
#include <vector>

namespace quillon::grammar {

/// The local name of an element of RELAX NG; empty for any other node.
QString relaxNgKind(const xml::Node &node);

/// Calls a function with each child that is an element of RELAX NG, and its kind.
template <typename Function>
void forEachPattern(const xml::Node &node, Function &&function) {
    for (xml::Node child = node.firstChild(); child; child = child.nextSibling()) {
        if (const QString kind = relaxNgKind(child); !kind.isEmpty())
            function(child, kind);
    }
}

/// A file of the schema.
struct RelaxNgFile {
    QString path;
    xml::Node root;
    /// The 1-based lines of its elements, by the numbers of the nodes.
    QHash<quint32, quint32> lines;
};

/// What one name of a grammar stands for: one define, or several that are combined.
struct RelaxNgDefinition {
    struct Part {
        xml::Node node;
        int file;
    };
    std::vector<Part> parts;
    bool isInterleaved = false;
};

/// A grammar element with what its includes bring; "" is the start.
struct RelaxNgScope {
    QHash<QString, RelaxNgDefinition> definitions;
    /// Of the scopes; -1 for the outermost.
    int parent = -1;
};

/// The files of a RELAX NG schema and what they define.
class RelaxNgDefinitions {
public:
    RelaxNgDefinitions(SchemaFiles &files, GrammarBuilder &builder)
        : files_(files), builder_(builder) {}

    /// The number of a file; -1, noted, when it cannot be read. Raises Fail for what is no RELAX
    /// NG.
    int open(const QString &address, int from);
    const RelaxNgFile &file(int number) const { return opened_[static_cast<std::size_t>(number)]; }
    /// The scope of a grammar element, made when it is asked for the first time.
    int scopeOf(const xml::Node &grammar, int file, int parent);
    const RelaxNgScope &scope(int number) const {
        return scopes_[static_cast<std::size_t>(number)];
    }

private:
    void readGrammar(const xml::Node &grammar, int file, const QSet<QString> &overridden,
                     RelaxNgScope &scope, int depth);
    void readInclude(const xml::Node &include, int file, const QSet<QString> &overridden,
                     RelaxNgScope &scope, int depth);

    SchemaFiles &files_;
    GrammarBuilder &builder_;
    std::vector<RelaxNgFile> opened_;
    std::vector<RelaxNgScope> scopes_;
    QHash<QString, int> scopeNumbers_;
};

} // namespace quillon::grammar
