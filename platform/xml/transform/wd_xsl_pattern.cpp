#include "platform/xml/transform/wd_xsl_pattern.h"

#include "platform/xml/transform/wd_xsl_functions.h"
#include "platform/xml/transform/wd_xsl_lexer.h"

#include <QHash>
#include <QStringList>

namespace quillon::xml {

namespace {

QString latin(const char *text) {
    return QString::fromLatin1(text);
}

/// A call of one of the functions that wd_xsl_functions.h describes.
QString functionCall(const char *name, const QString &arguments) {
    return latin("%1:%2(%3)").arg(latin(WdFunctionsPrefix), latin(name), arguments);
}

bool isNumber(const QString &expression) {
    bool isNumber = false;
    expression.toDouble(&isNumber);
    return isNumber;
}

struct Comparison {
    const char *xpath;
    bool ignoresCase;
};

const QHash<QString, Comparison> &comparisons() {
    static const QHash<QString, Comparison> table = {
        {"=", {"=", false}},  {"!=", {"!=", false}}, {"<", {"<", false}},  {"<=", {"<=", false}},
        {">", {">", false}},  {">=", {">=", false}}, {"eq", {"=", false}}, {"ne", {"!=", false}},
        {"lt", {"<", false}}, {"le", {"<=", false}}, {"gt", {">", false}}, {"ge", {">=", false}},
        {"ieq", {"=", true}}, {"ine", {"!=", true}}, {"ilt", {"<", true}}, {"ile", {"<=", true}},
        {"igt", {">", true}}, {"ige", {">=", true}},
    };
    return table;
}

/// The comparison that is true where the given one is false.
QString opposite(const QString &xpathOperator) {
    static const QHash<QString, QString> table = {{"=", "!="}, {"!=", "="}, {"<", ">="},
                                                  {">=", "<"}, {">", "<="}, {"<=", ">"}};
    return table.value(xpathOperator);
}

/// Reads a pattern by recursive descent and writes XPath on the way.
class Translator {
public:
    explicit Translator(const QString &pattern) : pattern_(pattern), tokens_(wdTokens(pattern)) {}

    QString translate() {
        const QString result = disjunction();
        if (token().kind != WdToken::Kind::End)
            refuse(token().text);
        return result;
    }

private:
    const WdToken &token() const { return tokens_[position_]; }
    bool at(const char *symbol) const {
        return token().kind == WdToken::Kind::Symbol && token().text == QLatin1String(symbol);
    }
    bool take(const char *symbol) {
        const bool found = at(symbol);
        position_ += found;
        return found;
    }
    void expect(const char *symbol) {
        if (!take(symbol))
            refuse(token().text);
    }
    QString takeText() { return tokens_[position_++].text; }
    /// Takes an operator that is a word, with its dollar signs or without.
    bool takeWord(const char *word) {
        const bool found =
            token().kind != WdToken::Kind::String && token().text == QLatin1String(word);
        position_ += found;
        return found;
    }
    [[noreturn]] void refuse(const QString &construct) const {
        refuseWdPattern(construct, pattern_);
    }

    QString disjunction();
    QString conjunction();
    QString negation();
    QString comparison();
    QString unionOfPaths();
    QString path();
    QString step();
    QString primary();
    QString name();
    /// The test for elements or attributes with a name as it is written in the document, whatever
    /// its prefix, or the default namespace, means.
    static QString named(const QString &name, bool isAttribute);
    QString call(const QString &name);
    QString method(const QString &operand);
    QString predicate();
    /// The string in the parentheses of a call, with its quotes; empty for none.
    QString optionalString();

    QString pattern_;
    std::vector<WdToken> tokens_;
    std::size_t position_ = 0;
};

QString Translator::disjunction() {
    QString result = conjunction();
    while (takeWord("or") || take("||"))
        result += latin(" or ") + conjunction();
    return result;
}

QString Translator::conjunction() {
    QString result = negation();
    while (takeWord("and") || take("&&"))
        result += latin(" and ") + negation();
    return result;
}

QString Translator::negation() {
    if (take("not"))
        return latin("not(%1)").arg(negation());
    if (token().isCall && token().text == u"not") {
        ++position_;
        expect("(");
        const QString inner = disjunction();
        expect(")");
        return latin("not(%1)").arg(inner);
    }
    return comparison();
}

QString Translator::comparison() {
    // XPath compares with any node of a set by itself.
    const bool all = take("all");
    if (!all)
        take("any");
    const QString left = unionOfPaths();
    const auto found = token().kind == WdToken::Kind::Symbol ? comparisons().find(token().text)
                                                             : comparisons().end();
    if (found == comparisons().end()) {
        if (all)
            refuse(latin("$all$"));
        return left;
    }
    ++position_;
    const QString right = unionOfPaths();
    const QString wanted = latin(found->xpath);
    const QString comparison = all ? opposite(wanted) : wanted;
    // XPath itself looks for less and greater among numbers only.
    const bool isXPath =
        comparison == u"=" || comparison == u"!=" || isNumber(left) || isNumber(right);
    const QString arguments = latin("%1,'%2',%3").arg(left, comparison, right);
    QString result = left + comparison + right;
    if (found->ignoresCase)
        result = functionCall("compareIgnoringCase", arguments);
    else if (!isXPath)
        result = functionCall("compare", arguments);
    return all ? latin("not(%1)").arg(result) : result;
}

QString Translator::unionOfPaths() {
    QString result = path();
    while (take("|") || take("union"))
        result += u'|' + path();
    return result;
}

QString Translator::path() {
    QString result;
    if (take("//"))
        result = latin("//");
    else if (take("/"))
        result = latin("/");
    const bool root = result == u'/';
    const bool startsStep =
        token().kind == WdToken::Kind::Name || at("@") || at("*") || at(".") || at("..");
    if (root && !startsStep)
        return result;
    result += step();
    while (true) {
        if (take("//"))
            result += latin("//") + step();
        else if (take("/"))
            result += u'/' + step();
        else if (take("!"))
            result = method(result);
        else
            return result;
    }
}

QString Translator::step() {
    QString result = primary();
    // XPath takes no predicates after the abbreviations.
    if (at("[") && result == u'.')
        result = latin("self::node()");
    else if (at("[") && result == latin(".."))
        result = latin("parent::node()");
    while (at("["))
        result += predicate();
    return result;
}

QString Translator::primary() {
    if (token().kind == WdToken::Kind::String || token().kind == WdToken::Kind::Number)
        return takeText();
    if (token().kind == WdToken::Kind::Name)
        return name();
    if (take("(")) {
        const QString inner = disjunction();
        expect(")");
        return u'(' + inner + u')';
    }
    if (take("-")) {
        if (token().kind != WdToken::Kind::Number)
            refuse(latin("-"));
        return u'-' + takeText();
    }
    if (take("@")) {
        if (token().kind != WdToken::Kind::Name || token().isCall) {
            expect("*");
            return latin("@*");
        }
        return named(takeText(), true);
    }
    for (const char *symbol : {".", "..", "*"}) {
        if (take(symbol))
            return latin(symbol);
    }
    refuse(token().text);
}

QString Translator::name() {
    const bool isCall = token().isCall;
    const QString name = takeText();
    if (isCall)
        return call(name);
    return named(name, false);
}

QString Translator::named(const QString &name, bool isAttribute) {
    const QString axis = isAttribute ? latin("@") : QString();
    const QString prefix = name.contains(u':') ? name.section(u':', 0, 0) : QString();
    // An attribute without a prefix has no namespace.
    if (prefix == u"xml" || (isAttribute && prefix.isEmpty()))
        return axis + name;
    if (name.endsWith(u'*'))
        return axis + latin("*[starts-with(name(),'%1:')]").arg(prefix);
    return axis + latin("*[name()='%1']").arg(name);
}

QString Translator::optionalString() {
    expect("(");
    const QString argument = token().kind == WdToken::Kind::String ? takeText() : QString();
    expect(")");
    return argument;
}

QString Translator::call(const QString &name) {
    static const QHash<QString, QString> simple = {
        {"text", "text()"},       {"textnode", "text()"},      {"cdata", "text()"},
        {"comment", "comment()"}, {"node", "node()"},          {"nodeName", "name()"},
        {"value", "string()"},    {"index", "(position()-1)"}, {"end", "(position()=last())"},
    };
    if (name == u"ancestor") {
        expect("(");
        const QString pattern = unionOfPaths();
        expect(")");
        if (pattern.contains(u'/') || pattern.contains(u'|') || pattern.startsWith(u'@'))
            refuse(latin("ancestor(%1)").arg(pattern));
        return latin("ancestor::%1[1]").arg(pattern);
    }
    if (name == u"context") {
        expect("(");
        if (!take("-") || takeText() != u"1")
            refuse(latin("context()"));
        expect(")");
        return latin("current()");
    }
    const QString argument = optionalString();
    const QString bare = argument.mid(1).chopped(argument.isEmpty() ? 0 : 1);
    if (name == u"pi")
        return latin("processing-instruction(%1)").arg(argument);
    if (name == u"element")
        return bare.isEmpty() ? latin("*") : named(bare, false);
    if (name == u"attribute")
        return bare.isEmpty() ? latin("@*") : named(bare, true);
    if (name == u"id" && !bare.isEmpty())
        return latin("id(%1)").arg(argument);
    if (name == u"nodeType" && argument.isEmpty())
        return functionCall("nodeType", latin("."));
    if (!simple.contains(name) || !argument.isEmpty())
        refuse(name + latin("()"));
    return simple.value(name);
}

QString Translator::method(const QString &operand) {
    if (token().kind != WdToken::Kind::Name || !token().isCall)
        refuse(latin("!"));
    const QString name = token().text;
    const QString called = call(takeText());
    if (name == u"nodeName")
        return latin("name(%1)").arg(operand);
    if (name == u"value")
        return latin("string(%1)").arg(operand);
    if (name == u"nodeType")
        return functionCall("nodeType", operand);
    if (name == u"index" || name == u"end" || name == u"context" || name == u"id")
        refuse(u'!' + name + latin("()"));
    return operand + u'/' + called;
}

QString Translator::predicate() {
    expect("[");
    const bool negative = take("-");
    if (token().kind == WdToken::Kind::Number) {
        // Positions count from 0, and negative ones back from the end.
        const int index = takeText().toInt();
        expect("]");
        return negative ? latin("[last()-%1]").arg(index - 1) : latin("[%1]").arg(index + 1);
    }
    if (negative)
        refuse(latin("-"));
    const QString condition = disjunction();
    expect("]");
    return condition == u"(position()=last())" ? latin("[last()]") : u'[' + condition + u']';
}

} // namespace

QString translateWdPattern(const QString &pattern) {
    return Translator(pattern).translate();
}

} // namespace quillon::xml
