#include "platform/runtime/error.h"
#include "platform/xml/dom/handle_access.h"
#include "platform/xml/query/simple_path.h"
#include "platform/xml/query/simple_query.h"
#include "platform/xml/query/xpath.h"
#include "platform/xml/query/xpath_evaluation.h"
#include "tests/platform/xml/query/random_markup.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml::test {

namespace {

/// Expressions of the usual kind, and some beside them.
class RandomPath : RandomChoices {
public:
    using RandomChoices::RandomChoices;

    std::string expression() {
        const unsigned form = number(10);
        if (form == 0)
            return "count(" + alternatives() + ")";
        if (form > 2)
            return alternatives();
        isOfElements_ = true;
        std::string text = "(" + alternatives() + ")";
        isOfElements_ = false;
        for (unsigned i = number(3); i > 0; --i)
            text += predicate();
        return form == 1 ? text : text + slash() + steps();
    }

private:
    std::string slash() { return one({"/", "/", "//"}); }
    std::string blank() { return chance(12) ? " " : ""; }

    std::string alternatives() {
        std::string text = location();
        while (chance(7))
            text += blank() + "|" + blank() + location();
        return text;
    }
    std::string location() {
        if (chance(25))
            return isOfElements_ ? "/*" : "/";
        return one({"", "/", "//", "//", "//", ".//", "../", "./", "../../"}) + steps();
    }
    std::string steps() {
        std::string text = step();
        while (chance(2))
            text += blank() + slash() + blank() + step();
        return text;
    }
    std::string step() {
        if (!isOfElements_ && chance(12))
            return one({".", ".."});
        const std::string axis =
            one({"", "", "", "", "", "", "", "", "@", "@", "child::", "descendant::",
                 "descendant-or-self::", "self::", "parent::", "attribute::", "ancestor::"});
        std::string text = axis + blank();
        if (axis == "@" || axis == "attribute::")
            text += one({"id", "id", "no", "no", "値", "p:id", "u:id", "*", "*", "xml:id", "node()",
                         "xml:*", "p:*", "xmlns"});
        else
            text += test();
        while (chance(3))
            text += blank() + predicate();
        return text;
    }
    std::string test() {
        if (!isOfElements_ && chance(4))
            return one({"node()", "node()", "text()", "text()", "comment()",
                        "processing-instruction()", "processing-instruction('p')"});
        if (chance(4))
            return one({"要素", "q:a", "r:a", "u:a", "p:*", "div", "xml:a", "無い", "ａ"});
        return one({"a", "a", "a", "b", "p:a", "*", "*"});
    }
    std::string predicate() { return "[" + blank() + condition(0) + blank() + "]"; }

    /// A path from the node in question.
    std::string near() {
        if (chance(4))
            return ".";
        if (chance(6))
            return one({".//a", ".//*", ".//@id", ".//*/@*", ".//p:a[1]", "../a//b"});
        std::string text = one({"", "", "", "./", "../"});
        if (chance(2))
            return text + one({"@id", "@no", "@id", "@no", "@*", "@値"});
        text += one({"a", "b", "*", "text()", "node()", "要素", "p:a"});
        if (chance(4))
            text += predicate();
        return chance(3) ? text + "/" + one({"a", "*", "@id", "text()", ".."}) : text;
    }
    std::string string() {
        switch (number(7)) {
        case 0:
        case 1:
            return near();
        case 2:
            return "normalize-space(" + (chance(2) ? near() : "") + ")";
        case 3:
            return one({"name(", "local-name("}) + (chance(2) ? near() : "") + ")";
        case 4:
            return "concat(" + string() + ", " + string() + ")";
        case 5:
            return "string(" + (chance(2) ? near() : "") + ")";
        default:
            return one({"'1'", "'2'", "'a'", "\"it's\"", "'t'", "''", "'あ'", "'p:a'", "'10'",
                        "'x'", "'2 '"});
        }
    }
    std::string number() {
        switch (RandomChoices::number(8)) {
        case 0:
            return "position()";
        case 1:
            return "last()";
        case 2:
            return "count(" + near() + ")";
        case 3:
            return "string-length(" + (chance(2) ? string() : "") + ")";
        case 4:
            return "number(" + (chance(2) ? string() : "") + ")";
        case 5:
            return number() + one({" + ", " - ", " * ", " div ", " mod "}) + number();
        default:
            return one({"1", "1", "2", "3", "0", "1.5", "10", "100"});
        }
    }
    using RandomChoices::number;

    std::string condition(int depth) {
        const auto comparison = [this] { return one({"=", "=", "!=", "<", "<=", ">", ">="}); };
        const auto any = [this] { return chance(2) ? near() : chance(2) ? string() : number(); };
        switch (number(depth < 3 ? 12 : 7)) {
        case 0:
        case 1:
            return number();
        case 2:
            return near();
        case 3:
        case 4:
        case 5:
            return any() + blank() + comparison() + blank() + any();
        case 6:
            return one({"contains(", "starts-with("}) + string() + "," + string() + ")";
        case 7:
            return "not(" + condition(depth + 1) + ")";
        case 8:
            return condition(depth + 1) + " and " + condition(depth + 1);
        case 9:
            return condition(depth + 1) + " or " + condition(depth + 1);
        case 10:
            return "(" + condition(depth + 1) + ")";
        default:
            return condition(depth + 1) + one({" = ", " != "}) + "(" + condition(depth + 1) + ")";
        }
    }

    /// The library does not know the order of a text and of what stands in an element ahead of it,
    /// which matters where nodes from anywhere are counted.
    bool isOfElements_ = false;
};

/// Both ways to an answer, in words.
class BothWays {
public:
    explicit BothWays(const DOMDocument40 &document)
        : arena_(HandleAccess::arena(document)), tree_(arena_) {}

    Number randomContext(RandomChoices &choices) const {
        Number n = 0;
        while (n == 0 || !arena_.hasPart(n))
            n = tree_.numberAt(1 + choices.number(tree_.lastOrdinal()));
        return n;
    }

    /// Empty where the library is to be asked.
    std::string simply(Number context, const XPathExpression &expression,
                       DefaultNamespaces defaults) const {
        const std::optional<SimpleAnswer> answer =
            simplyEvaluated(arena_, context, expression, defaults, {});
        if (!answer)
            return {};
        std::string text = answer->inDefaultNamespace ? "default:" : "plain:";
        if (answer->count)
            return text + " is " + std::to_string(*answer->count);
        for (const Number n : answer->nodes)
            text += " " + std::to_string(n);
        return text;
    }
    std::string byLibrary(Number context, const XPathExpression &expression,
                          DefaultNamespaces defaults) {
        const XPathQuestion question{expression, tree_.find(context)};
        try {
            const XPathOutcome outcome = defaults == DefaultNamespaces::Tried
                                             ? evaluatedWithDefaults(tree_, question)
                                             : evaluated(tree_, question);
            std::string text = outcome.inDefaultNamespace ? "default:" : "plain:";
            if (outcome.value)
                return text + " is " + outcome.value->toStdString();
            for (const LibxmlTree::Ordinal ordinal : outcome.nodes)
                text += " " + std::to_string(tree_.numberAt(ordinal));
            return text;
        } catch (const runtime::Error &error) {
            return error.description().toStdString();
        }
    }

private:
    const Arena &arena_;
    LibxmlTree tree_;
};

/// Moves nodes about, so that numbers are in another order than nodes, and changes values.
void edit(const DOMDocument40 &document, RandomChoices &choices) {
    std::vector<Node> elements;
    for (quint32 n = 1; n <= document.maxNodeCount() + 1; ++n) {
        const Node node = document.nodeByNumber(n);
        if (node.nodeType() == NodeType::Element)
            elements.push_back(node);
    }
    const auto any = [&] { return elements[choices.number(unsigned(elements.size()))]; };
    for (unsigned i = 0; i < 5; ++i) {
        try {
            const Node to = any();
            to.insertBefore(any(), choices.chance(2) ? Node() : to.firstChild());
            any().setAttribute("id", choices.chance(2) ? "2" : "\r\n<x>");
            any().appendChild(document.createTextNode(choices.chance(2) ? "2" : ""));
        } catch (const runtime::Error &) {
            // Into itself, say.
        }
    }
}

TEST(SimpleQuery, FindsWhatTheLibraryFinds) {
    constexpr unsigned Documents = 150;
    constexpr unsigned PathsEach = 60;
    // For going on where the last run has ended.
    const char *const first = std::getenv("QUILLON_FIRST_SEED");
    const unsigned start = first ? unsigned(std::stoul(first)) : 0;
    unsigned simple = 0;
    unsigned withNodes = 0;
    for (unsigned seed = start; seed < start + Documents && !HasFailure(); ++seed) {
        const DOMDocument40 document = parsed(RandomMarkup(seed).document());
        RandomChoices choices(seed);
        if (seed % 2 == 1)
            edit(document, choices);
        SCOPED_TRACE(document.xml().toStdString());
        BothWays ways(document);
        RandomPath paths(seed);
        for (unsigned i = 0; i < PathsEach; ++i) {
            const XPathExpression expression(paths.expression());
            const Number context =
                choices.chance(2) ? document.node().number() : ways.randomContext(choices);
            const auto defaults =
                choices.chance(2) ? DefaultNamespaces::Tried : DefaultNamespaces::NotTried;
            const std::string answer = ways.simply(context, expression, defaults);
            if (answer.empty())
                continue;
            ++simple;
            withNodes += answer.find(' ') != answer.npos ? 1 : 0;
            EXPECT_EQ(answer, ways.byLibrary(context, expression, defaults))
                << expression.utf8() << " from " << context;
        }
    }
    EXPECT_GT(simple, Documents * PathsEach / 3);
    EXPECT_GT(withNodes, Documents * PathsEach / 10);
}

TEST(SimpleQuery, SaysTheSameFromManyContexts) {
    const DOMDocument40 document = parsed("<r xmlns='urn:d'><a k='1'><b>x</b><b/></a><a/><a k=''>"
                                          "<b xmlns=''>y</b></a></r>");
    std::vector<Node> contexts;
    for (const char *path : {"/*/*[1]", "/*/*[2]", "/*/*[3]", "/"})
        contexts.push_back(selectNodes(document.node(), q(path)).at(0));
    const struct {
        const char *simple;
        const char *forLibrary;
    } cases[] = {
        {"@k", "@k[true()]"},
        {"b", "b[true()]"},
        {"count(b)", "count(b[true()])"},
        {"count(*)", "count(*[true()])"},
    };
    for (const auto &c : cases) {
        const XPathExpression hard(c.forLibrary);
        EXPECT_TRUE(simplePathOf(XPathExpression(c.simple)));
        EXPECT_FALSE(simplePathOf(hard));
        EXPECT_EQ(valuesAt(contexts, q(c.simple)), valuesAt(contexts, q(c.forLibrary))) << c.simple;
    }
    EXPECT_EQ(valuesAt(contexts, "b"),
              (std::vector<std::optional<QString>>{"x", std::nullopt, "y", std::nullopt}));
}

TEST(SimpleQuery, LeavesWhatTakesTooLongToTheLibraryAndCanBeStopped) {
    constexpr int Levels = 1'500;
    std::string text(2'000'000, 'x');
    for (int i = 0; i < Levels; ++i)
        text.append("</a>");
    std::string tags;
    for (int i = 0; i < Levels; ++i)
        tags += "<a>";
    const DOMDocument40 document = parsed(tags + text);
    const auto evaluate = [&](const char *expression, const runtime::Progress &progress) {
        return simplyEvaluated(HandleAccess::arena(document), document.node().number(),
                               XPathExpression(expression), DefaultNamespaces::Tried, progress);
    };
    EXPECT_TRUE(evaluate("//a[starts-with(name(), 'x')]", {}));
    EXPECT_FALSE(evaluate("//a[starts-with(., 'y')]", {})) << "each a has all of the text";
    try {
        evaluate("//a", [](double) { return false; });
        ADD_FAILURE();
    } catch (const runtime::Error &error) {
        EXPECT_EQ(error.number(), runtime::error_number::Cancelled);
    }
}

} // namespace

} // namespace quillon::xml::test
