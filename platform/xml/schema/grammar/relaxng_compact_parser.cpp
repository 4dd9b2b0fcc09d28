#include "platform/xml/schema/grammar/relaxng_compact_parser.h"

#include "platform/xml/schema/schema_error.h"
#include "resources/relaxng_texts.h"

namespace quillon::grammar {

void CompactParser::fail() const {
    xml::raiseSchemaError(fileName_, now_.line,
                          resources::relaxng_texts::CompactFault.toString().arg(now_.text));
}

QString CompactParser::takeLiteral() {
    QString text;
    do {
        if (now_.kind != Kind::Literal)
            fail();
        text += take().text;
    } while (takeIf("~"));
    return text;
}

void CompactParser::declareNamespace(bool isDefault) {
    QString prefix;
    if (!now_.is("="))
        prefix = takeName();
    expect("=");
    const QString uri = takeWord("inherit") ? QString() : takeLiteral();
    if (isDefault)
        defaultNamespace_ = uri;
    if (!prefix.isEmpty() && !uri.isEmpty() && prefix != QLatin1String("xml"))
        namespaces_.emplace_back(prefix, uri);
}

void CompactParser::declarations() {
    while (true) {
        if (now_.isWord("default") && then_.isWord("namespace")) {
            take();
            take();
            declareNamespace(true);
        } else if (now_.isWord("namespace") && !isAssignment(then_)) {
            take();
            declareNamespace(false);
        } else if (now_.isWord("datatypes") && !isAssignment(then_)) {
            take();
            const QString prefix = takeName();
            expect("=");
            libraries_.insert(prefix, takeLiteral());
        } else {
            return;
        }
    }
}

void CompactParser::skipBrackets() {
    expect("[");
    for (int depth = 1; depth > 0; take()) {
        if (now_.kind == Kind::End || now_.kind == Kind::Wrong)
            fail();
        depth += now_.is("[") ? 1 : now_.is("]") ? -1 : 0;
    }
}

CompactParser::Notes CompactParser::notes() {
    Notes found;
    while (true) {
        if (now_.kind == Kind::Documentation) {
            found.documentation = take().text;
        } else if (now_.is("[") && then_.kind == Kind::QualifiedName) {
            // Attributes come first; elements, which may follow, say nothing here.
            take();
            while (now_.kind == Kind::QualifiedName && then_.is("=")) {
                const QString name = take().text;
                take();
                found.attributes.emplace_back(name, takeLiteral());
            }
            for (int depth = 1; depth > 0; take()) {
                if (now_.kind == Kind::End || now_.kind == Kind::Wrong)
                    fail();
                depth += now_.is("[") ? 1 : now_.is("]") ? -1 : 0;
            }
        } else if (now_.is("[")) {
            skipBrackets();
        } else {
            return found;
        }
    }
}

void CompactParser::skipFollowing() {
    while (takeIf(">>")) {
        take();
        skipBrackets();
    }
}

void CompactParser::apply(const Notes &notes, CompactElement &to) {
    if (to.name == QLatin1String("value"))
        to.documentationBehind = notes.documentation;
    else if (!notes.documentation.isEmpty())
        to.children.insert(to.children.begin(),
                           {CompactDocumentation, to.line, {}, notes.documentation});
    to.attributes.insert(to.attributes.end(), notes.attributes.begin(), notes.attributes.end());
}

CompactElement CompactParser::schema() {
    declarations();
    const Notes first = notes();
    CompactElement root{QStringLiteral("grammar"), 1};
    if (isGrammarContent() || now_.kind == Kind::End) {
        grammarContent(root, nullptr);
    } else {
        root = pattern();
        root.line = 1;
        apply(first, root);
    }
    if (now_.kind != Kind::End)
        fail();
    root.attributes.emplace_back(QStringLiteral("xmlns"),
                                 QStringLiteral("http://relaxng.org/ns/structure/1.0"));
    root.attributes.emplace_back(
        QStringLiteral("xmlns:") + CompactDocumentation.section(u':', 0, 0),
        QStringLiteral("http://relaxng.org/ns/compatibility/annotations/1.0"));
    for (const auto &[prefix, uri] : namespaces_)
        root.attributes.emplace_back(QStringLiteral("xmlns:") + prefix, uri);
    if (!defaultNamespace_.isEmpty())
        root.attributes.emplace_back(QStringLiteral("ns"), defaultNamespace_);
    return root;
}

void CompactParser::grammarContent(CompactElement &to, const char *end) {
    if (++depth_ > MaxDepth)
        fail();
    while (true) {
        // Annotations between definitions belong to none of them.
        const Notes ahead = notes();
        if (end ? takeIf(end) : now_.kind == Kind::End)
            break;
        if ((now_.kind == Kind::QualifiedName || now_.kind == Kind::Name) && then_.is("[")) {
            take();
            skipBrackets();
            continue;
        }
        if (now_.isWord("div") && then_.is("{")) {
            CompactElement div{QStringLiteral("div"), take().line};
            take();
            grammarContent(div, "}");
            to.children.push_back(std::move(div));
        } else if (now_.isWord("include") && then_.kind == Kind::Literal) {
            to.children.push_back(include());
        } else {
            CompactElement defined = definition();
            apply(ahead, defined);
            to.children.push_back(std::move(defined));
        }
    }
    --depth_;
}

CompactElement CompactParser::definition() {
    const bool isStart = now_.isWord("start");
    CompactElement defined{isStart ? QStringLiteral("start") : QStringLiteral("define"), now_.line};
    const QString name = takeName();
    if (!isStart)
        defined.attributes.emplace_back(QStringLiteral("name"), name);
    if (!isAssignment(now_))
        fail();
    const CompactToken way = take();
    if (!way.is("="))
        defined.attributes.emplace_back(QStringLiteral("combine"),
                                        way.is("|=") ? QStringLiteral("choice")
                                                     : QStringLiteral("interleave"));
    defined.children.push_back(pattern());
    return defined;
}

void CompactParser::inheritance() {
    if (takeWord("inherit")) {
        expect("=");
        takeName();
    }
}

CompactElement CompactParser::include() {
    CompactElement included{QStringLiteral("include"), take().line};
    included.attributes.emplace_back(QStringLiteral("href"), takeLiteral());
    inheritance();
    if (takeIf("{"))
        grammarContent(included, "}");
    return included;
}

} // namespace quillon::grammar
