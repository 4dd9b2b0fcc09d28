#pragma once

#include "platform/xml/schema/grammar/relaxng_compact_lexer.h"

#include <QHash>

#include <utility>
#include <vector>

namespace quillon::grammar {

/// The prefix, which no schema has, and the name of documentation in the XML syntax.
inline const QString CompactDocumentation = QStringLiteral("quillon-a:documentation");

/// An element of the XML syntax.
struct CompactElement {
    QString name;
    int line = 1;
    std::vector<std::pair<QString, QString>> attributes = {};
    QString text = {};
    std::vector<CompactElement> children = {};
    /// What is said of one that may not hold it itself.
    QString documentationBehind = {};
};

/// Makes of a RELAX NG schema in the compact syntax one in the XML syntax.
class CompactParser {
public:
    CompactParser(const QString &text, const QString &fileName)
        : lexer_(text), fileName_(fileName) {
        take();
        take();
    }

    /// The root element. Raises Fail, with the line, for what is no such schema.
    CompactElement schema();

private:
    using Kind = CompactToken::Kind;
    /// Of patterns, names and grammars in one another.
    static constexpr int MaxDepth = 200;

    /// What stands ahead of a pattern or a definition and says something about it.
    struct Notes {
        QString documentation;
        std::vector<std::pair<QString, QString>> attributes;
    };

    CompactToken take() {
        CompactToken token = std::exchange(now_, std::exchange(then_, lexer_.next()));
        return token;
    }
    bool takeIf(const char *symbol) {
        if (!now_.is(symbol))
            return false;
        take();
        return true;
    }
    bool takeWord(const char *word) {
        if (!now_.isWord(word))
            return false;
        take();
        return true;
    }
    void expect(const char *symbol) {
        if (!takeIf(symbol))
            fail();
    }
    [[noreturn]] void fail() const;
    QString takeName() {
        if (now_.kind != Kind::Name && now_.kind != Kind::QuotedName)
            fail();
        return take().text;
    }
    QString takeLiteral();
    bool isAssignment(const CompactToken &token) const {
        return token.is("=") || token.is("|=") || token.is("&=");
    }

    void declarations();
    void declareNamespace(bool isDefault);
    Notes notes();
    void skipBrackets();
    void skipFollowing();
    static void apply(const Notes &notes, CompactElement &to);

    bool isGrammarContent() const {
        return now_.isWord("include") || now_.isWord("div") ||
               (now_.kind == Kind::QualifiedName && then_.is("[")) ||
               ((now_.kind == Kind::Name || now_.kind == Kind::QuotedName) && isAssignment(then_));
    }
    void grammarContent(CompactElement &to, const char *end);
    CompactElement definition();
    CompactElement include();
    void inheritance();

    CompactElement pattern();
    CompactElement particle();
    CompactElement primary();
    CompactElement braced(const QString &name, int line);
    CompactElement named(const QString &name);
    CompactElement value(const QString &type, const QString &library, int line);
    CompactElement datatype(const QString &type, const QString &library, int line);
    CompactElement nameClass(bool isAttribute);
    CompactElement simpleNameClass(bool isAttribute);
    void except(CompactElement &to, bool isAttribute);

    CompactLexer lexer_;
    QString fileName_;
    CompactToken now_;
    CompactToken then_;
    std::vector<std::pair<QString, QString>> namespaces_;
    QString defaultNamespace_;
    QHash<QString, QString> libraries_{
        {"xsd", QStringLiteral("http://www.w3.org/2001/XMLSchema-datatypes")}};
    int depth_ = 0;
};

} // namespace quillon::grammar
