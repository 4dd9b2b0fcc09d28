#include "tests/platform/xml/transform/xslt_test_support.h"

/// All that is said of stylesheets that are wrong, as it is said.
namespace quillon::xml::test {

namespace {

const std::string Faulty = "スタイルシートに誤りがあります。\n";
const std::string Failed = "スタイルシートを適用できませんでした。\n";

/// Something wrong, and the whole of what is said of it.
struct Said {
    std::string fault;
    std::string sentences;
};

/// `wrap` makes a stylesheet of each fault.
template <typename Wrap>
void expectSaid(const std::vector<Said> &rows, Wrap &&wrap, const TransformOptions &options = {}) {
    for (const Said &row : rows)
        EXPECT_EQ(failure("<d><a/></d>", wrap(row.fault), options), row.sentences) << row.fault;
}

std::string repeated(int times, const std::string &text) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

/// On the third line.
std::string atTop(const std::string &content) {
    return stylesheet("\n\n" + content);
}

/// On the third line, too.
std::string atRoot(const std::string &body) {
    return stylesheet("\n<xsl:template match='/'>\n" + body + "</xsl:template>");
}

TEST(XsltSentences, Expressions) {
    expectSaid(
        {
            {"", Faulty + "XPath 式の構文が正しくありません。\n"
                          "xsl:value-of の select の式が空です。 (3 行目)"},
            {"a[", Faulty + "XPath 式の構文が正しくありません。式: a[\n"
                            "xsl:value-of の select の式 'a[' が正しくありません。 (3 行目)"},
            {"'a", Faulty + "XPath 式の文字列が閉じていません。式: 'a\n"
                            "xsl:value-of の select の式 ''a' が正しくありません。 (3 行目)"},
            {"a[1", Faulty + "XPath 式の述語が正しくありません。式: a[1\n"
                             "xsl:value-of の select の式 'a[1' が正しくありません。 (3 行目)"},
            {"$", Faulty + "XPath 式の '$' の後には変数名が必要です。式: $\n"
                           "xsl:value-of の select の式 '$' が正しくありません。 (3 行目)"},
            {"a b", Faulty + "XPath 式の構文が正しくありません。式: a b\n"
                             "xsl:value-of の select の式 'a b' が正しくありません。 (3 行目)"},
            {"1 | 2", Failed + "XPath 式の値の型が正しくありません。 (3 行目)"},
            {"concat('a')", Failed + "関数の引数の数が正しくありません。 (3 行目)"},
            {"%1[", Faulty + "XPath 式の構文が正しくありません。式: %1[\n"
                             "xsl:value-of の select の式 '%1[' が正しくありません。 (3 行目)"},
            {"f()", Failed + "関数 'f' はありません。 (3 行目)"},
            {"x:f()", Failed + "関数 'f' の接頭辞 'x' は宣言されていません。 (3 行目)"},
            {"x:a", Failed + "宣言されていない接頭辞が使用されています。 (3 行目)"},
            {"math:none()", Failed + "関数 'none' はありません。 (3 行目)"},
            {"$v", Failed + "変数 'v' は宣言されていません。 (3 行目)"},
            {"$x:v", Failed + "変数 'v' の接頭辞 'x' は宣言されていません。 (3 行目)"},
            {"count(1)", Failed + "XPath 式の値の型が正しくありません。 (3 行目)"},
            {"format-number(1, '0', 'f')",
             Failed + "format-number() の数値書式 'f' は xsl:decimal-format で宣言されていません。 "
                      "(3 行目)"},
            {"format-number(1, '0', 'x:f')",
             Failed + "format-number() の数値書式 'x:f' の接頭辞は宣言されていません。 (3 行目)"},
            {"generate-id(1)",
             Failed + "関数 generate-id() の引数の型が正しくありません。 (3 行目)"},
            {"generate-id(1, 2)",
             Failed + "関数 generate-id() の引数の数が正しくありません。 (3 行目)"},
            {"current(1)", Failed + "関数 current() の引数の数が正しくありません。 (3 行目)"},
            {"key('k')", Failed + "関数 key() の引数の数が正しくありません。 (3 行目)"},
            {"key('x:k', 1)",
             Failed + "関数 key() の引数の接頭辞 'x' は宣言されていません。 (3 行目)"},
            {"document()", Failed + "関数 document() の引数の数が正しくありません。 (3 行目)"},
            {"document('', 'a')",
             Failed + "関数 document() の引数の型が正しくありません。 (3 行目)"},
            {"system-property('x:p')",
             Failed + "関数 system-property() の引数の接頭辞 'x' は宣言されていません。 (3 行目)"},
            {"element-available()",
             Failed + "関数 element-available() の引数の数が正しくありません。 (3 行目)"},
            {"msxsl:node-set()",
             Failed + "関数 node-set() の引数の数が正しくありません。 (3 行目)"},
        },
        [](const std::string &expression) {
            return atRoot("<xsl:value-of select=\"" + expression + "\"/>");
        });
}

TEST(XsltSentences, Instructions) {
    expectSaid(
        {
            {"<xsl:for-each/>", Faulty + "xsl:for-each に属性 select がありません。 (3 行目)"},
            {"<xsl:for-each select='1'/>",
             Failed + "select の式の結果がノードではありません。 (3 行目)"},
            {"<xsl:for-each select='a['/>",
             Faulty + "XPath 式の構文が正しくありません。式: a[\n"
                      "xsl:for-each の select の式 'a[' が正しくありません。 (3 行目)"},
            {"<xsl:apply-templates select='1'/>",
             Failed + "select の式の結果がノードではありません。 (3 行目)"},
            {"<xsl:apply-templates mode='1'/>",
             Faulty + "xsl:apply-templates の属性 mode の値 '1' が正しくありません。 (3 行目)"},
            {"<xsl:apply-templates mode='x:m'/>",
             Faulty + "接頭辞 'x' は宣言されていません。 (3 行目)"},
            {"<xsl:copy-of/>", Faulty + "xsl:copy-of に属性 select がありません。 (3 行目)"},
            {"<xsl:if/>", Faulty + "xsl:if に属性 test がありません。 (3 行目)"},
            {"<xsl:if test=' '/>", Faulty + "XPath 式の構文が正しくありません。\n"
                                            "xsl:if の test の式が空です。 (3 行目)"},
            {"<xsl:when test='1'/>", Faulty + "xsl:when はこの位置では使用できません。 (3 行目)"},
            {"<xsl:choose/>", Failed + "xsl:choose に内容がありません。 (3 行目)"},
            // What can be recovered from makes nothing of an error before it.
            {"<r><xsl:choose/>a<xsl:attribute name='b'/></r>",
             Failed + "xsl:choose に内容がありません。 (3 行目)"},
            {"<xsl:choose><xsl:otherwise/></xsl:choose>",
             Failed + "xsl:choose は xsl:when で始まらなければなりません。 (3 行目)"},
            {"<xsl:variable/>", Faulty + "xsl:variable に属性 name がありません。 (3 行目)"},
            {"<xsl:variable name='1'/>",
             Faulty + "xsl:variable の名前 '1' が正しくありません。 (3 行目)"},
            {"<xsl:variable name='x:v'/>", Faulty + "接頭辞 'x' は宣言されていません。 (3 行目)"},
            {"<xsl:variable name='v' select=''/>",
             Faulty + "XPath 式の構文が正しくありません。\n"
                      "xsl:variable の select の式が空です。 (3 行目)"},
            {"<xsl:variable name='v' select='1]'/>",
             Faulty + "XPath 式の構文が正しくありません。式: 1]\n"
                      "xsl:variable の select の式 '1]' が正しくありません。 (3 行目)"},
            {"<xsl:variable name='v' select='1'>a</xsl:variable>",
             Faulty +
                 "xsl:variable に属性 select がある場合、内容を書くことはできません。 (3 行目)"},
            {"<xsl:variable name='v'/><xsl:variable name='v'/>",
             Failed + "変数 'v' が二重に定義されています。 (3 行目)"},
            {"<xsl:param name='v' select='1]'/>",
             Faulty + "XPath 式の構文が正しくありません。式: 1]\n"
                      "xsl:param の select の式 '1]' が正しくありません。 (3 行目)"},
            {"<xsl:attribute/>", Faulty + "xsl:attribute に属性 name がありません。 (3 行目)"},
            {"<xsl:attribute name=''/>", Faulty + "xsl:attribute の名前が空です。 (3 行目)"},
            {"<xsl:attribute name='1'/>",
             Faulty + "xsl:attribute の名前 '1' が正しくありません。 (3 行目)"},
            {"<xsl:attribute name='xmlns'/>",
             Faulty + "xsl:attribute で名前空間を宣言することはできません。 (3 行目)"},
            {"<xsl:attribute name='x:a'/>",
             Faulty + "xsl:attribute の名前 'x:a' の接頭辞は宣言されていません。 (3 行目)"},
            {"<r><xsl:attribute name='{1}'/></r>",
             Failed + "xsl:attribute の名前 '1' が正しくありません。 (3 行目)"},
            {"<r><xsl:attribute name='a' namespace='http://www.w3.org/2000/xmlns/'/></r>",
             Failed + "xsl:attribute で名前空間を宣言することはできません。 (3 行目)"},
            {"<xsl:element/>", Faulty + "xsl:element に属性 name がありません。 (3 行目)"},
            {"<xsl:element name='1'/>",
             Faulty + "xsl:element の名前 '1' が正しくありません。 (3 行目)"},
            {"<xsl:element name='{\"\"}'/>", Failed + "xsl:element の名前が空です。 (3 行目)"},
            {"<xsl:element name='{\"x:a\"}'/>",
             Failed + "xsl:element の名前 'x:a' の接頭辞は宣言されていません。 (3 行目)"},
            {"<xsl:element name='{'/>", Failed +
                                            "属性の値の '{' に対応する括弧がありません。\n"
                                            "xsl:element の名前 '{' が正しくありません。 (3 行目)"},
            {"<xsl:element name='a' use-attribute-sets='1'/>",
             Failed + "use-attribute-sets の名前 '1' が正しくありません。 (3 行目)"},
            {"<r xsl:use-attribute-sets='x:s'/>",
             Failed + "use-attribute-sets の名前 'x:s' の接頭辞は宣言されていません。 (3 行目)"},
            {"<a b='{'/>", Faulty + "属性 b の値の '{' に対応する括弧がありません。 (3 行目)"},
            {"<a b='{}'/>", Failed + "属性 b の値の式が正しくありません。 (3 行目)"},
            {"<a b='{a[}'/>", Faulty + "XPath 式の構文が正しくありません。式: a[\n"
                                       "属性 b の値の式 'a[' が正しくありません。 (3 行目)"},
            {"<xsl:call-template/>",
             Faulty + "xsl:call-template に属性 name がありません。 (3 行目)"},
            {"<xsl:call-template name='t'/>", Failed + "テンプレート 't' がありません。 (3 行目)"},
            {"<xsl:call-template name='t'><xsl:with-param/></xsl:call-template>",
             Faulty + "xsl:with-param に属性 name がありません。 (3 行目)"},
            {"<xsl:with-param name='p'/>",
             Faulty + "xsl:with-param はこの位置では使用できません。 (3 行目)"},
            {"<xsl:for-each select='a'><xsl:sort select=''/></xsl:for-each>",
             Faulty + "XPath 式の構文が正しくありません。\n"
                      "xsl:sort の select の式が空です。 (3 行目)"},
            {"<xsl:for-each select='a'><xsl:sort select='a['/></xsl:for-each>",
             Faulty + "XPath 式の構文が正しくありません。式: a[\n"
                      "xsl:sort の select の式 'a[' が正しくありません。 (3 行目)"},
            {"<xsl:for-each select='a'><xsl:sort>a</xsl:sort></xsl:for-each>",
             Faulty + "xsl:sort に内容を書くことはできません。 (3 行目)"},
            {"<xsl:for-each select='//*'>a<xsl:sort/></xsl:for-each>",
             Failed + "xsl:sort はこの位置では使用できません。 (3 行目)"},
            {"<xsl:for-each select='//*'>" + repeated(16, "<xsl:sort/>") + "</xsl:for-each>",
             Failed + "xsl:sort が多すぎます。 (3 行目)"},
            {"<xsl:number count='a['/>", Faulty + "パターンに ']' が必要です。\n"
                                                  "パターン 'a[' が正しくありません。 (3 行目)"},
            {"<xsl:text><a/></xsl:text>",
             Faulty + "xsl:text に要素を書くことはできません。 (3 行目)"},
            {"<xsl:message terminate='maybe'/>",
             Failed + "xsl:message の属性 terminate の値は 'yes' か 'no' でなければなりません。 (3 "
                      "行目)"},
            {"<xsl:message>a</xsl:message><xsl:message terminate='yes'>だめ %1</xsl:message>",
             "スタイルシートが処理を中止しました。\n"
             "だめ %1"},
            {"<xsl:message terminate='yes'/>", "スタイルシートが処理を中止しました。"},
            {"<xsl:template match='a'/>",
             Faulty + "xsl:template はこの位置では使用できません。 (3 行目)"},
            {"<xsl:nonsense/>",
             Faulty + "XSLT 1.0 に xsl:nonsense という要素はありません。 (3 行目)"},
            {"<exsl:nonsense/>", Failed + "拡張要素 nonsense はサポートされていません。 (3 行目)"},
            {"<exsl:document href='o.xml'>a</exsl:document>",
             Failed + "スタイルシートからファイルに書き込むことはできません。 (3 行目)"},
        },
        atRoot);
}

TEST(XsltSentences, Declarations) {
    expectSaid(
        {
            {"<a/>", Faulty + "最上位の要素 a には名前空間が必要です。 (3 行目)"},
            {"text", Faulty + "文字列 'text' をこの位置に書くことはできません。 (3 行目)"},
            {"<xsl:if test='1'/>", Faulty + "xsl:if はこの位置では使用できません。 (3 行目)"},
            {"<xsl:nonsense/>",
             Faulty + "XSLT 1.0 に xsl:nonsense という要素はありません。 (3 行目)"},
            {"<msxsl:script/>",
             Faulty + "msxsl:script によるスクリプトはサポートされていません。 (3 行目)"},
            {"<xsl:output/><xsl:import href='part.xsl'/>",
             Faulty + "xsl:import は、ほかの要素より前に書かなければなりません。 (3 行目)"},
            {"<xsl:variable/>", Faulty + "xsl:variable に属性 name がありません。 (3 行目)"},
            {"<xsl:variable name='v'/><xsl:variable name='v'/>",
             Faulty + "変数 'v' が二重に定義されています。 (3 行目)"},
            {"<xsl:param name='v'/><xsl:variable name='v'/>",
             Failed + "変数 'v' が二重に定義されています。 (3 行目)"},
            {"<xsl:variable name='v' select='$v'/><xsl:template match='/'><xsl:value-of "
             "select='$v'/></xsl:template>",
             Failed + "変数 'v' の定義が循環しています。 (3 行目)"},
            {"<xsl:variable name='v' select='$w'/><xsl:variable name='w' "
             "select='$v'/><xsl:template match='/'><xsl:value-of select='$v'/></xsl:template>",
             Failed + "変数 'w' の定義が循環しています。\n"
                      "変数 'v' の定義が循環しています。 (3 行目)"},
            {"<xsl:template/>",
             Faulty + "xsl:template には属性 match または name が必要です。 (3 行目)"},
            {"<xsl:template name='1'/>",
             Faulty + "xsl:template の名前 '1' が正しくありません。 (3 行目)"},
            {"<xsl:template name='x:t'/>", Faulty + "接頭辞 'x' は宣言されていません。"},
            {"<xsl:template name='t'/><xsl:template name='t'/>",
             Faulty + "テンプレート 't' が二重に定義されています。 (3 行目)"},
            {"<xsl:template match=''/>", Faulty + "パターンが空です。 (3 行目)"},
            {"<xsl:template match='a['/>", Faulty + "パターンに ']' が必要です。\n"
                                                    "パターン 'a[' が正しくありません。 (3 行目)"},
            {"<xsl:template match='%1'/>", Faulty + "パターンの構文が正しくありません。\n"
                                                    "パターン '%1' が正しくありません。 (3 行目)"},
            {"<xsl:template match='key(\"k\")'/>",
             Faulty + "パターンに ',' が必要です。\n"
                      "パターン 'key(\"k\")' が正しくありません。 (3 行目)"},
            {"<xsl:template match='x:a'/>", Faulty +
                                                "接頭辞 'x' は宣言されていません。\n"
                                                "パターン 'x:a' が正しくありません。 (3 行目)"},
            {"<xsl:template match='/'/><xsl:template match='a[f()]'/><xsl:template "
             "match='/'><xsl:apply-templates select='//a'/></xsl:template>",
             Failed + "関数 'f' はありません。"},
            {"<xsl:key match='a' use='b'/>",
             Faulty + "xsl:key に属性 name がありません。 (3 行目)"},
            {"<xsl:key name='k' use='b'/>",
             Faulty + "xsl:key に属性 match がありません。 (3 行目)"},
            {"<xsl:key name='k' match='a'/>",
             Faulty + "xsl:key に属性 use がありません。 (3 行目)"},
            {"<xsl:key name='k' match='' use='b'/>", Faulty + "パターンが空です。 (3 行目)"},
            {"<xsl:key name='k' match='a[' use='b'/>",
             Faulty + "パターン 'a[' が正しくありません。 (3 行目)"},
            {"<xsl:key name='k' match='a' use='b['/>",
             Faulty + "XPath 式の構文が正しくありません。式: b[\n"
                      "xsl:key の use の式 'b[' が正しくありません。 (3 行目)"},
            {"<xsl:key name='k' match='a' use=''/>", Faulty +
                                                         "XPath 式の構文が正しくありません。\n"
                                                         "xsl:key の use の式が空です。 (3 行目)"},
            {"<xsl:key name='k' match='a' use='$v'/>",
             Faulty + "この式で使用できない変数が使用されています。式: $v\n"
                      "xsl:key の use の式 '$v' が正しくありません。 (3 行目)"},
            {"<xsl:attribute-set name='1'/>",
             Faulty + "xsl:attribute-set の名前 '1' が正しくありません。 (3 行目)"},
            {"<xsl:attribute-set name='x:s'/>",
             Faulty + "xsl:attribute-set の名前 'x:s' の接頭辞は宣言されていません。 (3 行目)"},
            {"<xsl:attribute-set name='s' use-attribute-sets='x:s'/>",
             Faulty + "use-attribute-sets の名前 'x:s' の接頭辞は宣言されていません。 (3 行目)"},
            {"<xsl:attribute-set name='s' use-attribute-sets='s'/>",
             Faulty + "属性セット 's' が循環しています。"},
            {"<xsl:output indent='maybe'/>",
             Faulty + "xsl:output の属性 indent の値 'maybe' は 'yes' か 'no' "
                      "でなければなりません。 (3 行目)"},
            {"<xsl:output method='msxsl:m'/><xsl:template match='/'/>",
             Failed + "出力方法 'm' はサポートされていません。"},
            {"<xsl:output cdata-section-elements='1'/>",
             Faulty + "属性 cdata-section-elements の名前 '1' が正しくありません。 (3 行目)"},
            {"<xsl:output cdata-section-elements='x:a'/>",
             Faulty + "接頭辞 'x' は宣言されていません。\n"
                      "属性 cdata-section-elements の名前が正しくありません。 (3 行目)"},
        },
        atTop);
}

TEST(XsltSentences, FunctionsOfTheStylesheet) {
    expectSaid(
        {
            {"", Failed + "関数 'f' はありません。 (3 行目)"},
            {"<func:function name='my:f'><func:result select='my:f()'/></func:function>",
             "テンプレートの呼び出しが深すぎるか、終わりのない再帰になっているため、処理を中止しま"
             "した。"},
            {"<func:function name='my:f'><func:result select='1'/></func:function><xsl:variable "
             "name='v' select='my:f(1)'/>",
             Failed + "関数 'f' の引数が多すぎます。 (3 行目)"},
            {"<func:function name='my:f'><a/></func:function>",
             Failed + "関数 'f' の中では、結果に書き出すことはできません。 (3 行目)"},
            {"<func:function name='x:f'></func:function>",
             Failed + "関数 'f' はありません。 (3 行目)"},
            {"<func:function name='1'></func:function>",
             Failed + "関数 'f' はありません。 (3 行目)"},
            {"<func:function name='my:f'></func:function><func:function "
             "name='my:f'></func:function>",
             Faulty + "関数 'f' が二重に定義されています。 (3 行目)"},
            {"<func:function name='my:f'><func:result select='1'/><a/></func:function>",
             Faulty + "func:result の後に書けるのは xsl:fallback だけです。"},
            {"<func:function name='my:f'><func:result select='1'>a</func:result></func:function>",
             Failed +
                 "func:result に属性 select がある場合、内容を書くことはできません。 (3 行目)"},
            {"<func:function name='my:f'><xsl:if test='1'><func:result "
             "select='1'/></xsl:if><func:result select='2'/></func:function>",
             Failed + "関数の中で func:result が 2 回実行されました。 (3 行目)"},
            {"<func:function name='my:f'><func:result select='dyn:evaluate()'/></func:function>",
             Failed + "関数 dyn:evaluate() の引数の数が正しくありません。 (3 行目)"},
            {"<func:function name='my:f'><func:result "
             "select='dyn:evaluate(\"$v\")'/></func:function>",
             Failed + "変数 'v' は宣言されていません。\n"
                      "dyn:evaluate() の式 '$v' を評価できません。 (3 行目)"},
            {"<xsl:template match='a'><func:result select='1'/></xsl:template>",
             Faulty + "func:result はこの位置では使用できません。"},
        },
        [](const std::string &content) {
            return "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform' "
                   "xmlns:func='http://exslt.org/functions' xmlns:dyn='http://exslt.org/dynamic' "
                   "xmlns:my='urn:my' extension-element-prefixes='func'>\n\n" +
                   content +
                   "<xsl:template match='/'><xsl:value-of "
                   "select='my:f()'/></xsl:template></xsl:stylesheet>";
        });
}

TEST(XsltSentences, OtherFiles) {
    const Files folder;
    const std::string open =
        "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>";
    folder.write("open.xsl", open + "\n<a></b></xsl:stylesheet>");
    folder.write("part.xsl", open + "\n<xsl:template match='a['/></xsl:stylesheet>");
    folder.write("loop.xsl", open + "<xsl:import href='loop.xsl'/></xsl:stylesheet>");
    folder.write("bytes.xsl", "<?xml version='1.0' encoding='Shift_JIS'?><a>\x87</a>");
    folder.write("日本.xsl", "<a/>");
    expectSaid(
        {
            {"<xsl:import/>", Faulty + "xsl:import に属性 href がありません。 (3 行目)"},
            {"<xsl:import href='%'/>",
             Faulty + "xsl:import の属性 href の値 '%' が正しくありません。 (3 行目)"},
            {"<xsl:import href=''/>", Faulty + "xsl:import が循環しています。 (3 行目)"},
            {"<xsl:include href=''/>",
             Faulty + "xsl:include で指定されたファイルを読み込めません。 (3 行目)"},
            {"<xsl:import href='#a'/>",
             Faulty + "xsl:import で指定されたファイルを読み込めません。 (3 行目)"},
            {"<xsl:import href='absent.xsl'/>",
             Faulty + "'absent.xsl' "
                      "を読み込むことはできません。使用できるのは、スタイルシートのフォルダーと作業"
                      "フォルダーにあるファイルだけです。\n"
                      "xsl:import で指定されたファイルを読み込めません。 (3 行目)"},
            {"<xsl:include href='sub/無い.xsl'/>",
             Faulty + "'sub/無い.xsl' "
                      "を読み込むことはできません。使用できるのは、スタイルシートのフォルダーと作業"
                      "フォルダーにあるファイルだけです。\n"
                      "xsl:include で指定されたファイルを読み込めません。 (3 行目)"},
            {"<xsl:import href='/absent.xsl'/>",
             Faulty + "'/absent.xsl' "
                      "を読み込むことはできません。使用できるのは、スタイルシートのフォルダーと作業"
                      "フォルダーにあるファイルだけです。\n"
                      "xsl:import で指定されたファイルを読み込めません。 (3 行目)"},
            {"<xsl:import href='http://127.0.0.1:9/a.xsl'/>",
             Faulty + "'http://127.0.0.1:9/a.xsl' "
                      "を読み込むことはできません。使用できるのは、スタイルシートのフォルダーと作業"
                      "フォルダーにあるファイルだけです。"},
            {"<xsl:import href='open.xsl'/>",
             Faulty + "終了タグが開始タグと一致しません。\n"
                      "xsl:import で指定されたファイルを読み込めません。 (open.xsl、2 行目)"},
            {"<xsl:include href='bytes.xsl'/>",
             Faulty + "エンコード 'CP932' として正しくない文字コードがあります。\n"
                      "xsl:include で指定されたファイルを読み込めません。 (bytes.xsl、1 行目)"},
            {"<xsl:import href='日本.xsl'/>",
             Faulty + "スタイルシートではありません。ルート要素は、名前空間 "
                      "http://www.w3.org/1999/XSL/Transform の xsl:stylesheet または xsl:transform "
                      "か、属性 xsl:version のある要素でなければなりません。 (日本.xsl、1 行目)"},
            {"<xsl:import href='loop.xsl'/>",
             Faulty + "xsl:import が循環しています。 (loop.xsl、1 行目)"},
            {"<xsl:include href='part.xsl'/>",
             Faulty + "パターンに ']' が必要です。\n"
                      "パターン 'a[' が正しくありません。 (part.xsl、2 行目)"},
            {"<xsl:template match='/'><xsl:value-of "
             "select=\"document('open.xsl')\"/></xsl:template>",
             Failed + "終了タグが開始タグと一致しません。 (open.xsl、2 行目)"},
        },
        atTop, {{folder.path(".")}});
    expectSaid({{"<xsl:import href='absent.xsl'/>",
                 Faulty + "'absent.xsl' "
                          "を読み込むことはできません。使用できるのは、スタイルシートのフォルダーと"
                          "作業フォルダーにあるファイルだけです。"}},
               atTop);
}

TEST(XsltSentences, WholeStylesheets) {
    const std::string xsl = " xmlns:xsl='http://www.w3.org/1999/XSL/Transform'";
    expectSaid(
        {
            {"<a/>",
             Faulty + "スタイルシートではありません。ルート要素は、名前空間 "
                      "http://www.w3.org/1999/XSL/Transform の xsl:stylesheet または xsl:transform "
                      "か、属性 xsl:version のある要素でなければなりません。 (1 行目)"},
            {"\n<xsl:if" + xsl + "/>",
             Faulty + "スタイルシートではありません。ルート要素は、名前空間 "
                      "http://www.w3.org/1999/XSL/Transform の xsl:stylesheet または xsl:transform "
                      "か、属性 xsl:version のある要素でなければなりません。 (2 行目)"},
            {"<a" + xsl + " xsl:version='1.0'>\n<xsl:value-of/></a>",
             Faulty + "xsl:value-of に属性 select がありません。 (2 行目)"},
            // Whatever it warns of first, what it says of an error is the error and its line.
            {"<xsl:stylesheet" + xsl +
                 ">\n\n<xsl:template match='/'><xsl:value-of/></xsl:template></xsl:stylesheet>",
             Faulty + "xsl:value-of に属性 select がありません。 (3 行目)"},
            {"<xsl:stylesheet version='2.0'" + xsl +
                 "><xsl:template match='/'>\n<xsl:later/></xsl:template></xsl:stylesheet>",
             Failed + "XSLT 1.0 に xsl:later という要素はありません。 (2 行目)"},
            {"<xsl:stylesheet version='1.0'" + xsl +
                 ">\n<xsl:template match='/'><r><xsl:attribute name='a'/><b/>\n<xsl:attribute "
                 "name='c'/><xsl:value-of select='$v'/></r></xsl:template></xsl:stylesheet>",
             Failed + "変数 'v' は宣言されていません。 (3 行目)"},
        },
        [](const std::string &whole) { return whole; });
}

} // namespace

} // namespace quillon::xml::test
