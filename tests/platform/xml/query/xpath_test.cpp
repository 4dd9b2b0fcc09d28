#include "platform/runtime/error.h"
#include "platform/xml/query/xpath.h"
#include "tests/platform/xml/xml_test_support.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

namespace quillon::xml::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What was found, as "name" for elements and attributes and "name=value" for the others.
std::vector<std::string> found(const Node &context, const std::string &expression) {
    std::vector<std::string> names;
    for (const Node &node : selectNodes(context, q(expression))) {
        std::string name = node.nodeName().toStdString();
        const bool named =
            node.nodeType() == NodeType::Element || node.nodeType() == NodeType::Document;
        names.push_back(named ? name : name + "=" + node.nodeValue().toStdString());
    }
    return names;
}
std::vector<std::string> found(const DOMDocument40 &document, const std::string &expression) {
    return found(document.node(), expression);
}

/// What a query raises; "" for nothing.
std::string failure(const Node &context, const std::string &expression) {
    try {
        selectNodes(context, q(expression));
    } catch (const runtime::Error &error) {
        EXPECT_EQ(error.number(), runtime::error_number::Fail);
        return error.description().toStdString();
    }
    return {};
}

Node only(const Node &context, const std::string &expression) {
    const std::vector<Node> nodes = selectNodes(context, q(expression));
    EXPECT_EQ(nodes.size(), 1u) << expression;
    return nodes.empty() ? Node() : nodes.front();
}

std::string repeated(int times, const std::string &text) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

TEST(XPath, EveryKindOfNodeIsFoundAsItself) {
    const DOMDocument40 document =
        parsed("<?xml version='1.0'?><!--before--><!DOCTYPE r [<!ENTITY e 'two'>]>\n"
               "<r a='1&amp;2' b=''>\n  <c> one <![CDATA[<raw>]]>-&e; end</c>\n  <?go on?>\n"
               "  <s xml:space='preserve'> <t/> </s>\n</r><!--after-->");
    EXPECT_THAT(found(document, "/node()"), ElementsAre("#comment=before", "r", "#comment=after"));
    EXPECT_THAT(found(document, "/r/node()"), ElementsAre("c", "go=on", "s"));
    EXPECT_THAT(found(document, "//c/text()"),
                ElementsAre("#text= one ", "#cdata-section=<raw>", "#text=-", "e=", "#text= end"));
    EXPECT_EQ(only(document.node(), "//c/text()[4]").nodeType(), NodeType::EntityReference);
    EXPECT_THAT(found(document, "//*[.=' one <raw>-two end']"), ElementsAre("c"));
    EXPECT_THAT(found(document, "//s/text()"), ElementsAre("#text= ", "#text= "));
    EXPECT_THAT(found(document, "//@*"), ElementsAre("a=1&2", "b=", "xml:space=preserve"));
    EXPECT_THAT(found(document, "//@a[.='1&2']/.."), ElementsAre("r"));
    EXPECT_THAT(found(document, "/"), ElementsAre("#document"));
    EXPECT_THAT(found(document, "//processing-instruction() | //@b | //comment()"),
                ElementsAre("#comment=before", "b=", "go=on", "#comment=after"));
    EXPECT_TRUE(only(document.node(), "//@a") == document.documentElement().getAttributeNode("a"));
}

TEST(XPath, PathsStartFromTheContext) {
    const DOMDocument40 document =
        parsed("<r><a n='1'><b>x</b><b>y</b></a><a n='2'><b>z</b></a>tail</r>");
    const Node second = only(document.node(), "/r/a[2]");
    EXPECT_THAT(found(second, "b/text()"), ElementsAre("#text=z"));
    EXPECT_THAT(found(second, "../a/@n"), ElementsAre("n=1", "n=2"));
    EXPECT_THAT(found(second, "/r/text()"), ElementsAre("#text=tail"));
    EXPECT_THAT(found(second.getAttributeNode("n"), ". | .."), ElementsAre("a", "n=2"));
    EXPECT_THAT(found(only(document.node(), "/r/text()"), "preceding-sibling::a[1]/@n"),
                ElementsAre("n=2"));
    EXPECT_THAT(found(second, "nothing"), IsEmpty());
}

TEST(XPath, NamesBeyondAsciiMayFollowTheRoot) {
    const DOMDocument40 document = parsed("<文書 版='1'><章/><章><節 q='/文書'/></章></文書>");
    const struct {
        const char *path;
        std::size_t hits;
    } cases[] = {
        {"/文書/章", 2},
        {"/ 文書", 1},
        {"//章[/文書/章[2]/節]", 2},
        {"//章[count(/文書/章) = 2 and /文書]", 2},
        {"/文書/章[1] | /文書/章/.. | /無/章", 2},
        {"(/文書/章)[2]", 1},
        {"//節[@q = '/文書' and concat('/文書', /文書) = \"/文書\"]", 1},
        {"//節[2 - /文書/@版 = 1]", 1},
        {"/文書/@版", 1},
    };
    for (const auto &c : cases)
        EXPECT_EQ(selectNodes(document.node(), q(c.path)).size(), c.hits) << c.path;
}

TEST(XPath, IdentifiersAreThoseThatAreDeclared) {
    const DOMDocument40 document = parsed(
        "<!DOCTYPE r [<!ATTLIST a k ID #IMPLIED j CDATA #IMPLIED>"
        "<!ATTLIST p:b p:k ID #REQUIRED><!ATTLIST c k CDATA 'x'>]>"
        "<r xmlns:p='u'><c k='x'/><a k='x' j='z'/><a k='x'><d xml:id='y'/></a><p:b p:k='w'/></r>");
    EXPECT_EQ(xml(only(document.node(), "id('x')")), "<a k='x' j='z'/>") << "the first one";
    EXPECT_THAT(found(document, "id('w y z')"), ElementsAre("d", "p:b"));
    EXPECT_THAT(found(document, "//c[id(@k)]/@k"), ElementsAre("k=x"));
    only(document.node(), "//c").setAttribute("xml:id", "new");
    EXPECT_THAT(found(document, "id('new')"), ElementsAre("c"));
    EXPECT_THAT(found(parsed("<r id='x'/>"), "id('x')"), IsEmpty());
}

TEST(XPath, StepsThatMeetNodesAgainGiveEachOnceInDocumentOrder) {
    const DOMDocument40 document =
        parsed("<r><a i='1'><b i='2'><a i='3'><b i='4'/></a></b><b i='5'/></a><c i='6'/></r>");
    const auto ids = [&](const std::string &path) {
        std::string all;
        for (const Node &node : selectNodes(document.node(), q(path)))
            all += node.getAttribute("i").value_or("-").toStdString();
        return all;
    };
    EXPECT_EQ(ids("//b/.."), "13");
    EXPECT_EQ(ids("//b/../b"), "245");
    EXPECT_EQ(ids("//a//b"), "245");
    EXPECT_EQ(ids("//a//b[1]"), "24");
    EXPECT_EQ(ids("//b/ancestor::*[1]"), "13");
    EXPECT_EQ(ids("//b/ancestor::a/b[last()]"), "45");
    EXPECT_EQ(ids("//b/ancestor-or-self::*"), "-12345");
    EXPECT_EQ(ids("//c/preceding::b | //a/following-sibling::* | //a"), "123456");
    EXPECT_EQ(ids("(//c | //b)/.."), "-13");
    EXPECT_EQ(ids("((//c | //b)/.. | //c)//b[1]"), "24");
    EXPECT_EQ(ids("(//c | (//a)/b)[2]/.."), "3");
    EXPECT_EQ(ids("(//b)[last()]"), "5");
    EXPECT_EQ(ids("//a/b[../@i = '3' or @i = '5']/self::b"), "45");
    EXPECT_EQ(ids("//*[@i='4' and 'a|b/..' != \"'/..|\"]"), "4");
    EXPECT_EQ(ids("//*[local-name(..)='a' and ../@i * 2 div 2 - 3 = 0]/.."), "3");
}

TEST(XPath, NamespacesAreThoseInScope) {
    const DOMDocument40 document =
        parsed("<r xmlns='urn:d' xmlns:p='urn:1' p:k='v' u:k='w'><p:a><x xmlns=''/><u:b/>"
               "<c xmlns:p='urn:2'><p:a/></c></p:a><z xml:lang='ja'/></r>");
    const Node root = document.documentElement();
    EXPECT_THAT(found(document, "//x"), ElementsAre("x"));
    EXPECT_THAT(found(document, "//z"), IsEmpty()) << "a default namespace is no namespace";
    EXPECT_EQ(selectNodes(document.node(), "//p:a").size(), 1u);
    EXPECT_EQ(selectNodes(only(document.node(), "//*[local-name()='c']"), "//p:a").size(), 1u);
    EXPECT_FALSE(only(document.node(), "//p:a") ==
                 only(only(document.node(), "//*[local-name()='c']"), "//p:a"));
    EXPECT_THAT(found(root, "@*"), ElementsAre("p:k=v", "u:k=w"));
    EXPECT_THAT(found(root, "@p:k"), ElementsAre("p:k=v"));
    EXPECT_THAT(found(root, "//*[name()='u:b' and namespace-uri()='']"), ElementsAre("u:b"));
    EXPECT_THAT(found(root, "//*[namespace-uri()='urn:d']"), ElementsAre("r", "c", "z"));
    EXPECT_THAT(found(root, "//@xml:lang"), ElementsAre("xml:lang=ja"));
    EXPECT_THAT(found(root, "namespace::*"), ElementsAre("xmlns=urn:d", "xmlns:p=urn:1"));
    EXPECT_EQ(failure(root, "//p:a/u:b"),
              "この接頭辞は宣言されていません。宣言済みの接頭辞を使用してください。"
              "式: //p:a/-->u<--:b");
}

TEST(XPath, ErrorsSayWhatIsWrongAndShowTheBadPart) {
    const Node root = parsed("<r><a/></r>").documentElement();
    const struct {
        const char *expression;
        const char *sentences;
    } cases[] = {
        {"", "XPath 式が空です。ノードを返す式が必要です。式: -->(式の終わり)<--"},
        {"//a[",
         "XPath 式の構文が正しくありません。この位置には式が必要です。式: //a[-->(式の終わり)<--"},
        {"//a[1", "XPath 式の構文が正しくありません。この位置には ']' が必要です。式: "
                  "//a[1-->(式の終わり)<--"},
        {"//a]/b", "XPath 式の構文が正しくありません。この部分を解釈できません。式: //a-->]<--/b"},
        {"a b", "XPath 式の構文が正しくありません。この部分を解釈できません。式: a -->b<--"},
        {"(a",
         "XPath 式の構文が正しくありません。この位置には ')' が必要です。式: (a-->(式の終わり)<--"},
        {"a['x]", "XPath 式の文字列が閉じていません。閉じる引用符が必要です。式: a[-->'x]<--"},
        {"名前[%1",
         "XPath 式の構文が正しくありません。この部分を解釈できません。式: 名前[-->%<--1"},
        {"node(1)",
         "XPath 式の構文が正しくありません。この位置には ')' が必要です。式: node(-->1<--)"},
        {"processing-instruction(1)",
         "XPath 式の構文が正しくありません。この部分を解釈できません。式: "
         "processing-instruction(-->1<--)"},
        {"$", "XPath 式の '$' の後には変数名が必要です。式: $-->(式の終わり)<--"},
        {"//a[nope(1)]", "この名前の関数はありません。式: //a[-->nope<--(1)]"},
        {"//a[concat('concat')]",
         "関数の引数の数が正しくありません。式: //a[-->concat<--('concat')]"},
        {"//a[@k = $v]", "この変数は定義されていません。使用できる変数は、選択中のノードを表す "
                         "$selection だけです。式: //a[@k = $-->v<--]"},
        {"x:a",
         "この接頭辞は宣言されていません。宣言済みの接頭辞を使用してください。式: -->x<--:a"},
        {"//a[x:f()]", "この接頭辞は宣言されていません。宣言済みの接頭辞を使用してください。式: "
                       "//a[-->x<--:f()]"},
        {"count(//a)",
         "XPath 式の結果がノードではありません。ノードを返す式が必要です。式: -->count(//a)<--"},
        {"//a = //b/..",
         "XPath 式の結果がノードではありません。ノードを返す式が必要です。式: -->//a = //b/..<--"},
        {"'a'/b", "XPath 式の値の型が正しくありません。この式にはノード "
                  "セットが必要な箇所があります。式: -->'a'/b<--"},
        {"/文書/章[/文書]/]",
         "XPath 式の構文が正しくありません。この部分を解釈できません。式: /文書/章[/文書]/-->]<--"},
        {"/文書 [", "XPath 式の構文が正しくありません。この位置には式が必要です。式: /文書 "
                    "[-->(式の終わり)<--"},
        {"/%文書", "XPath 式の構文が正しくありません。この部分を解釈できません。式: /-->%<--文書"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(failure(root, c.expression), c.sentences) << c.expression;
}

TEST(XPath, HostileExpressionsAreRefused) {
    const DOMDocument40 document = parsed("<r>" + repeated(20'000, "<c/>") + "</r>");
    const std::string deep = repeated(100'000, "(") + "r" + repeated(100'000, ")");
    const std::string tooDeep = "XPath 式の入れ子が深すぎます。入れ子を浅くしてください。";
    EXPECT_EQ(failure(document.node(), deep), tooDeep + "式: -->" + deep + "<--");
    const std::string predicates = "r" + repeated(20'000, "[r") + repeated(20'000, "]");
    EXPECT_EQ(failure(document.node(), predicates), tooDeep + "式: -->" + predicates + "<--");
    EXPECT_EQ(failure(document.node(), "//c/preceding::c/following::c"),
              "XPath 式の評価に必要な処理が多すぎるため中止しました。式の範囲を絞ってください。"
              "式: -->//c/preceding::c/following::c<--");
    rusage ofChildren{};
    ASSERT_EQ(::getrusage(RUSAGE_CHILDREN, &ofChildren), 0);
    EXPECT_LT(ofChildren.ru_maxrss, 1024 * 1024) << "nodes found again do not pile up";
}

TEST(XPath, DepthIsNoObstacle) {
    const DOMDocument40 document =
        parsed(repeated(100'000, "<d>") + "x" + repeated(100'000, "</d>"));
    EXPECT_EQ(selectNodes(document.node(), "//d").size(), 100'000u);
    EXPECT_EQ(selectNodes(document.node(), "//text()/ancestor::d").size(), 100'000u);
    EXPECT_THAT(found(document, "//text()[.='x']"), ElementsAre("#text=x"));
    EXPECT_THAT(found(document, "/d[.='x']"), ElementsAre("d"));
    EXPECT_EQ(selectNodes(only(document.node(), "//text()"), "../../d/text()").size(), 1u);
}

TEST(XPath, QueriesSeeEveryChange) {
    const DOMDocument40 document = parsed("<r><a k='1'>t</a><b/></r>");
    const Node root = document.documentElement();
    const Node a = only(root, "a");
    const auto count = [&](const std::string &path) { return selectNodes(root, q(path)).size(); };

    EXPECT_EQ(count("a[@k='2']"), 0u);
    a.setAttribute("k", "2");
    EXPECT_EQ(count("a[@k='2']"), 1u);
    a.setAttribute("new", "");
    EXPECT_EQ(count("a/@new"), 1u);
    a.removeAttribute("new");
    EXPECT_EQ(count("a/@new"), 0u);
    only(a, "text()").setNodeValue("changed");
    EXPECT_EQ(count("a[.='changed']"), 1u);
    root.appendChild(document.createElement("n"));
    EXPECT_EQ(count("n"), 1u);
    const DOMDocument40 before = document.clone();
    root.replaceChild(document.createElement("m"), only(root, "n"));
    EXPECT_EQ(count("n"), 0u);
    EXPECT_EQ(count("m"), 1u);
    EXPECT_THAT(found(before, "/r/*"), ElementsAre("a", "b", "n"));
    EXPECT_TRUE(only(before.node(), "/r/n").ownerDocument() == before);
    root.removeChild(a);
    EXPECT_EQ(count("a"), 0u);
    EXPECT_EQ(count("*"), 2u);
    DOMDocument40(document).loadXML(QByteArray("<other/>"));
    EXPECT_THAT(found(document, "/*"), ElementsAre("other"));
}

TEST(XPath, ContextsOutsideTheDocumentAreRefused) {
    const DOMDocument40 document = parsed("<?xml version='1.0'?><r><a/></r>");
    const Node a = only(document.node(), "//a");
    document.documentElement().removeChild(a);
    for (const Node &context : {Node(), a, document.node().firstChild()}) {
        try {
            selectNodes(context, ".");
            ADD_FAILURE() << TypeName(context).toStdString();
        } catch (const runtime::Error &error) {
            EXPECT_EQ(error.number(), runtime::error_number::InvalidArgument);
            EXPECT_EQ(error.description().toStdString(),
                      context ? "このノードを起点として XPath 式を評価することはできません。"
                              : "ノードが指定されていません。");
        }
    }
}

} // namespace

} // namespace quillon::xml::test
