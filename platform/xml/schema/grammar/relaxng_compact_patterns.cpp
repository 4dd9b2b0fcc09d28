#include "platform/xml/schema/grammar/relaxng_compact_parser.h"

#include <algorithm>

namespace quillon::grammar {

CompactElement CompactParser::pattern() {
    CompactElement first = particle();
    for (const auto &[symbol, name] :
         {std::pair(",", "group"), std::pair("&", "interleave"), std::pair("|", "choice")}) {
        if (!now_.is(symbol))
            continue;
        CompactElement whole{QLatin1String(name), first.line};
        whole.children.push_back(std::move(first));
        while (takeIf(symbol))
            whole.children.push_back(particle());
        return whole;
    }
    return first;
}

CompactElement CompactParser::particle() {
    if (++depth_ > MaxDepth)
        fail();
    const Notes ahead = notes();
    CompactElement inner = primary();
    apply(ahead, inner);
    skipFollowing();
    for (const auto &[symbol, name] :
         {std::pair("?", "optional"), std::pair("*", "zeroOrMore"), std::pair("+", "oneOrMore")}) {
        if (!takeIf(symbol))
            continue;
        CompactElement repeated{QLatin1String(name), inner.line};
        repeated.children.push_back(std::move(inner));
        inner = std::move(repeated);
        break;
    }
    skipFollowing();
    --depth_;
    return inner;
}

CompactElement CompactParser::braced(const QString &name, int line) {
    CompactElement element{name, line};
    expect("{");
    element.children.push_back(pattern());
    expect("}");
    return element;
}

CompactElement CompactParser::named(const QString &name) {
    const int line = take().line;
    CompactElement names = nameClass(name == QLatin1String("attribute"));
    CompactElement element = braced(name, line);
    element.children.insert(element.children.begin(), std::move(names));
    return element;
}

CompactElement CompactParser::primary() {
    const int line = now_.line;
    if (takeIf("(")) {
        CompactElement inner = pattern();
        expect(")");
        return inner;
    }
    if (now_.kind == Kind::Literal)
        return value({}, {}, line);
    if (now_.kind == Kind::QualifiedName) {
        const QString name = take().text;
        return datatype(name.section(u':', 1), libraries_.value(name.section(u':', 0, 0)), line);
    }
    const QString word = now_.text;
    if (now_.kind == Kind::Name) {
        if (word == QLatin1String("element") || word == QLatin1String("attribute"))
            return named(word);
        for (const char *container : {"list", "mixed"}) {
            if (takeWord(container))
                return braced(word, line);
        }
        for (const char *single : {"empty", "text", "notAllowed"}) {
            if (takeWord(single))
                return {word, line};
        }
        for (const char *type : {"string", "token"}) {
            if (takeWord(type))
                return datatype(word, {}, line);
        }
        if (takeWord("parent"))
            return {QStringLiteral("parentRef"), line, {{QStringLiteral("name"), takeName()}}};
        if (takeWord("external")) {
            CompactElement external{
                QStringLiteral("externalRef"), line, {{QStringLiteral("href"), takeLiteral()}}};
            inheritance();
            return external;
        }
        if (takeWord("grammar")) {
            expect("{");
            CompactElement inner{word, line};
            grammarContent(inner, "}");
            return inner;
        }
    }
    return {QStringLiteral("ref"), line, {{QStringLiteral("name"), takeName()}}};
}

CompactElement CompactParser::value(const QString &type, const QString &library, int line) {
    CompactElement result{QStringLiteral("value"), line};
    if (!type.isEmpty())
        result.attributes = {{QStringLiteral("type"), type},
                             {QStringLiteral("datatypeLibrary"), library}};
    result.text = takeLiteral();
    return result;
}

CompactElement CompactParser::datatype(const QString &type, const QString &library, int line) {
    if (now_.kind == Kind::Literal)
        return value(type, library, line);
    CompactElement data{
        QStringLiteral("data"),
        line,
        {{QStringLiteral("type"), type}, {QStringLiteral("datatypeLibrary"), library}}};
    if (takeIf("{")) {
        while (!takeIf("}")) {
            notes();
            CompactElement parameter{QStringLiteral("param"), now_.line};
            parameter.attributes.emplace_back(QStringLiteral("name"), takeName());
            expect("=");
            parameter.text = takeLiteral();
            data.children.push_back(std::move(parameter));
        }
    }
    if (takeIf("-")) {
        CompactElement excepted{QStringLiteral("except"), now_.line};
        excepted.children.push_back(primary());
        data.children.push_back(std::move(excepted));
    }
    return data;
}

CompactElement CompactParser::nameClass(bool isAttribute) {
    if (++depth_ > MaxDepth)
        fail();
    CompactElement first = simpleNameClass(isAttribute);
    if (now_.is("|")) {
        CompactElement choice{QStringLiteral("choice"), first.line};
        choice.children.push_back(std::move(first));
        while (takeIf("|"))
            choice.children.push_back(simpleNameClass(isAttribute));
        first = std::move(choice);
    }
    --depth_;
    return first;
}

void CompactParser::except(CompactElement &to, bool isAttribute) {
    if (!takeIf("-"))
        return;
    CompactElement excepted{QStringLiteral("except"), now_.line};
    excepted.children.push_back(simpleNameClass(isAttribute));
    to.children.push_back(std::move(excepted));
}

CompactElement CompactParser::simpleNameClass(bool isAttribute) {
    notes();
    const int line = now_.line;
    if (takeIf("(")) {
        CompactElement inner = nameClass(isAttribute);
        expect(")");
        return inner;
    }
    if (takeIf("*")) {
        CompactElement any{QStringLiteral("anyName"), line};
        except(any, isAttribute);
        return any;
    }
    if (now_.kind == Kind::AnyOfPrefix) {
        const QString prefix = take().text;
        const auto known = std::ranges::find(namespaces_, prefix,
                                             [](const auto &declared) { return declared.first; });
        CompactElement any{QStringLiteral("nsName"), line};
        any.attributes.emplace_back(QStringLiteral("ns"),
                                    known == namespaces_.end() ? QString() : known->second);
        except(any, isAttribute);
        return any;
    }
    CompactElement name{QStringLiteral("name"), line};
    if (now_.kind == Kind::QualifiedName) {
        name.text = take().text;
    } else {
        // Attributes without a prefix are in no namespace.
        if (isAttribute)
            name.attributes.emplace_back(QStringLiteral("ns"), QString());
        name.text = takeName();
    }
    return name;
}

} // namespace quillon::grammar
