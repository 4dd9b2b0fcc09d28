#include "platform/runtime/error.h"
#include "platform/xml/query/xpath.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml::test {

namespace {

/// What an expression leads to, in one line: the values of attribute `n` of the elements found (the
/// names of other nodes), or "=" and the value; ahead of it "default: " where that was asked for.
std::string answer(const Node &context, const std::string &expression, const Node &selection = {}) {
    XPathAnswer found;
    try {
        found = evaluateXPath(context, q(expression), selection);
    } catch (const runtime::Error &error) {
        return error.description().toStdString();
    }
    std::string line = found.inDefaultNamespace ? "default:" : "";
    if (found.value)
        return line + "=" + found.value->toStdString();
    for (const Node &node : found.nodes)
        line += " " + node.getAttribute("n").value_or(node.nodeName()).toStdString();
    return line;
}

TEST(XPathAnswer, NamesThatFindNothingAreThoseOfTheDefaultNamespace) {
    const DOMDocument40 document =
        parsed("<注文 xmlns='urn:d' n='1'><品 n='2'><品 xmlns='' n='3'/></品>"
               "<island xmlns='urn:i' n='4'><品 n='5'/><only n='6'/><a:b xmlns:a='urn:a'/></island>"
               "<div n='7'><mod n='8'/></div></注文>");
    const Node root = document.documentElement();
    const Node island = selectNodes(root, "//*[@n=4]").front();
    const struct {
        const Node &context;
        const char *expression;
        const char *answer;
    } cases[] = {
        {root, "//品", " 3"},
        {root, "/注文/品", "default: 2"},
        {document.node(), "/注文/品[@n='2' and ../品]", "default: 2"},
        {root, "only", ""},
        {island, "only", "default: 6"},
        {island, "/注文/品", "default: 2"},
        {island, "//only | //div", "default: 6"},
        {root, "attribute::n | child::none", " n"},
        {root, "div/@n", "default: n"},
        {root, "div/mod[6 div 2 mod 4 = 3]", "default: 8"},
        {root, "div[* and mod or div]", "default: 7"},
        {root, "//div[count(mod) * 1 = 1]", "default: 7"},
        {root, "/注文[processing-instruction('x') or self::注文]", "default: 1"},
        {root, "/注文/nothing", ""},
        {root, "//default:a",
         "この接頭辞は宣言されていません。宣言済みの接頭辞を使用してください。"
         "式: //-->default<--:a"},
        {root, "count(//div)", "default:=1"},
        {root, "count(//品)", "=1"},
        {root, "count(//nothing)", "=0"},
        {root, "1 + 1", "=2"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(answer(c.context, c.expression), c.answer) << c.expression;
    EXPECT_EQ(answer(parsed("<r xmlns:default='u' xmlns='d'><default:a n='1'/></r>").node(),
                     "/r/default:a"),
              "default: 1");
}

TEST(XPathAnswer, PrefixesDeclaredAnywhereCanBeUsed) {
    const DOMDocument40 document =
        parsed("<r><a xmlns:p='urn:1'><p:x n='1'/></a><b xmlns:p='urn:2'><p:x n='2'/></b>"
               "<c xmlns:q=''/><d xmlns:q='urn:1'/><str:e xmlns:str='urn:1' n='3'/></r>");
    const Node second = selectNodes(document.node(), "/r/b").front();
    EXPECT_EQ(answer(document.node(), "//p:x"), " 1") << "the first one counts";
    EXPECT_EQ(answer(second, "//p:x"), " 2") << "unless the context has one of its own";
    EXPECT_EQ(answer(document.node(), "//q:x"), " 1");
    EXPECT_EQ(answer(document.node(), "//str:e"), " 3");
    EXPECT_EQ(answer(document.node(), "/r[u:x]"),
              "この接頭辞は宣言されていません。宣言済みの接頭辞を使用してください。"
              "式: /r[-->u<--:x]");
}

TEST(XPathAnswer, FunctionsAndVariables) {
    const DOMDocument40 document =
        parsed("<r xmlns:m='http://exslt.org/math' n='r'><a n='1' v='x'/><a n='2' v='y'/>"
               "<a n='3' v='x'><b n='4'/></a></r>");
    const Node root = document.documentElement();
    const Node third = selectNodes(root, "a[3]").front();
    const struct {
        const char *expression;
        const char *answer;
    } cases[] = {
        {"set:distinct(//@v)", " v v"},
        {"set:distinct(//a/@v)/..", " 1 2"},
        {"//a[. = current()]", " 1 2 3"},
        {"current()", " 3"},
        {"/r/a[@v = current()/@v]", " 1 3"},
        {"//b/../a | current()//b", " 4"},
        {"math:max(//a/@n)", "=3"},
        {"m:min(//a/@n)", "=1"},
        {"date:year('2026-11-25')", "=2026"},
        {"str:padding(3, 'あ')", "=あああ"},
        {"string(/r/a[2]/@v)", "=y"},
        {"string(/r/nothing)", "="},
        {"count(//a) > 2", "=true"},
        {"1 div 0", "=Infinity"},
        {"sum(//a/@n) div 4", "=1.5"},
        {"$selection/..", " 3"},
        {"//a[@v = $selection]", " 1 3"},
        {"count(//a)/b", "XPath 式の値の型が正しくありません。この式にはノード "
                         "セットが必要な箇所があります。式: -->count(//a)/b<--"},
        {"count(//a)//b", "XPath 式の値の型が正しくありません。この式にはノード "
                          "セットが必要な箇所があります。式: -->count(//a)//b<--"},
        {"current(1)", "関数の引数の数が正しくありません。式: -->current<--(1)"},
        {"math:nope()", "この名前の関数はありません。式: math:-->nope<--()"},
        {"$x", "この変数は定義されていません。使用できる変数は、選択中のノードを表す $selection "
               "だけです。式: $-->x<--"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(answer(third, c.expression, third.getAttributeNode("v")), c.answer)
            << c.expression;
    EXPECT_EQ(answer(root, "$selection"), "") << "nothing is selected";
}

TEST(XPathAnswer, APathOfAnyLengthIsFollowed) {
    std::string start;
    std::string end;
    std::string path;
    for (int i = 0; i < 12'000; ++i) {
        start += "<d>";
        end += "</d>";
        path += "/d[1]";
    }
    EXPECT_EQ(answer(parsed(start + "<e n='1'/>" + end).node(), path + "/e"), " 1");
}

TEST(XPathAnswer, TextsOfAnyLengthAreSeen) {
    const std::string text(5'000'000, 'x');
    EXPECT_EQ(
        answer(parsed("<r><a>1</a><b>" + text + "</b><c v='" + text + "'/><d>2</d></r>").node(),
               "concat(//a, string-length(//b), string-length(//c/@v), //d)"),
        "=1500000050000002");
    const XPathAnswer padding =
        evaluateXPath(parsed("<r/>").node(), q("str:padding(1000000, 'あ')"));
    EXPECT_EQ(padding.value, QString(21'845, u'あ')) << "as much as anybody reads";
}

} // namespace

} // namespace quillon::xml::test
