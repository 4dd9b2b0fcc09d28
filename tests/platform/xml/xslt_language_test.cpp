#include "tests/platform/xml/xslt_test_support.h"

#include <QRegularExpression>

#include <gmock/gmock.h>

/// What stylesheets may say, and what is said of those that are wrong.
namespace quillon::xml::test {

namespace {

using testing::HasSubstr;

/// A stylesheet as it stands, without the version and the prefixes of stylesheet().
std::string bareSheet(const std::string &attributes, const std::string &content) {
    return "<xsl:stylesheet xmlns:xsl='http://www.w3.org/1999/XSL/Transform' " + attributes +
           "><xsl:output method='text'/>" + content + "</xsl:stylesheet>";
}

std::string atRoot(const std::string &body) {
    return "<xsl:template match='/'>" + body + "</xsl:template>";
}

TEST(XsltLanguage, NamesBeyondAsciiMayFollowTheRootOfAPath) {
    const std::string source = "<文書 版='2'><章><題>一</題></章><章><題>二</題></章></文書>";
    for (const char *expression :
         {"count(/文書/章[/文書/@版 = 2])", "count(//章[1 &lt; 2 and /文書]) + 0",
          "string-length(concat('/文書', /文書/章)) - 2", "count(/ 文書 | /文書/章) - 1",
          "2 * count(/文書/章) - count( /文書/章)"})
        EXPECT_EQ(transformed(source, textOf(expression)), "2") << expression;

    const auto sheet = [](const std::string &content) {
        return stylesheet("<xsl:output omit-xml-declaration='yes'/>" + content);
    };
    const struct {
        std::string content;
        const char *result;
    } cases[] = {
        {atRoot("<r a='{{/文書}}{count(/文書/章)}{\"}/文書\"}{string(/文書/@版)}'/>"),
         "<r a=\"{/文書}2}/文書2\"/>\n"},
        {atRoot("<xsl:element name='x{count(/文書/章)}'><xsl:if test='not(/文書/節)'>"
                "<xsl:attribute name='n{count(/文書)}'>/文書</xsl:attribute></xsl:if>"
                "</xsl:element>"),
         "<x2 n1=\"/文書\"/>\n"},
        {"<xsl:template match='/文書[count(/文書/章) = 2]|/無'><m/></xsl:template>", "<m/>\n"},
        {"<xsl:key name='k' match='題' use='count(/文書/章)'/><xsl:template "
         "match='/'><xsl:for-each "
         "select='key(\"k\", count(/文書/章))'><xsl:sort select='count(/文書) * "
         "position()' data-type='number' order='descending'/><r><xsl:value-of "
         "select='.'/></r></xsl:for-each></xsl:template>",
         "<r>二</r><r>一</r>\n"},
        {"<t:d xmlns:t='u' select='{/文書}'/>" + atRoot("<r select='/文書'/>"),
         "<r select=\"/文書\"/>\n"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(transformed(source, sheet(c.content)), c.result) << c.content;

    const Files folder;
    folder.write("part.xsl", stylesheet("<xsl:template name='t'><xsl:value-of "
                                        "select='count(/文書/章)'/></xsl:template>"));
    for (const char *how : {"import", "include"})
        EXPECT_EQ(transformed(source,
                              stylesheet("<xsl:" + std::string(how) +
                                         " href='part.xsl'/><xsl:output method='text'/>" +
                                         atRoot("<xsl:call-template name='t'/>")),
                              {{folder.path(".")}}),
                  "2");
}

TEST(XsltLanguage, WhatIsOnlyWarnedOfIsCarriedOut) {
    const std::string source = "<d><n/><n/></d>";
    const std::string format = "<xsl:decimal-format name='f' decimal-separator=','/>";
    const std::string later = "<xsl:later/>";
    const struct {
        std::string attributes;
        std::string content;
        const char *result;
    } cases[] = {
        {"version='1.0'",
         atRoot("<xsl:for-each select='//n'><xsl:number format='a' letter-value='alphabetic' "
                "lang='en'/></xsl:for-each>"),
         "ab"},
        {"version='1.0'",
         format + format + atRoot("<xsl:value-of select=\"format-number(1.5, '0,0', 'f')\"/>"),
         "1,5"},
        {"version='1.0' exclude-result-prefixes='#default'", atRoot("x"), "x"},
        {"", atRoot("x"), "x"},
        {"version='1.0'", atRoot("<xsl:later>no<xsl:fallback>instead</xsl:fallback></xsl:later>"),
         "instead"},
        {"version='2.0'",
         "<xsl:later-still/>" + atRoot("<xsl:if test='no'>" + later + "</xsl:if>x"), "x"},
        {"version='1.0'",
         atRoot("<r xsl:version='1.7'><xsl:if test='no'>" + later + "</xsl:if>x</r>"), "x"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(transformed(source, bareSheet(c.attributes, c.content)), c.result)
            << c.attributes << c.content;

    // Whatever it warns of first, what it says of an error is the error and its line.
    const std::string reason = failure(source, bareSheet("", "\n\n" + atRoot("<xsl:value-of/>")));
    EXPECT_THAT(reason, HasSubstr("xsl:value-of に属性 select がありません。 (3 行目)"));
    EXPECT_THAT(failure(source, bareSheet("version='2.0'", atRoot(later))),
                HasSubstr("XSLT 1.0 に xsl:later という要素はありません。"));
}

TEST(XsltLanguage, TheModulesOfExsltAreThere) {
    const std::string open = "version='1.0' xmlns:func='http://exslt.org/functions' "
                             "xmlns:dyn='http://exslt.org/dynamic' xmlns:my='urn:my' "
                             "xmlns:date='http://exslt.org/dates-and-times' "
                             "extension-element-prefixes='func'";
    EXPECT_EQ(
        transformed(
            "<文><a>3</a></文>",
            bareSheet(open, "<func:function name='my:twice'><xsl:param name='n'/>"
                            "<func:result select='$n * 2 * count(/文)'/></func:function>" +
                                atRoot("<xsl:value-of select='my:twice(//a)'/>"
                                       "<xsl:value-of select='dyn:evaluate(\"//a\")'/>"
                                       "<xsl:value-of select='date:year(\"2001-02-03\")'/>"))),
        "632001");
    EXPECT_THAT(failure("<d/>", bareSheet(open, "<func:function name='my:f'><func:result "
                                                "select='my:f()'/></func:function>" +
                                                    atRoot("<xsl:value-of select='my:f()'/>"))),
                HasSubstr("深すぎる"));
}

TEST(XsltLanguage, PartsAreDecodedAsTheMainFileIs) {
    const Files folder;
    const std::string declared = "<?xml version='1.0' encoding='Shift_JIS'?>";
    // ①㈱髙 in CP932, as the Shift_JIS of Windows has it.
    const std::string vendors = "\x87\x40\x87\x8a\xfb\xfc";
    folder.write("data.xml", declared + "<d>" + vendors + "</d>");
    for (const char *name : {"imported", "included"})
        folder.write(name + QStringLiteral(".xsl"),
                     declared + stylesheet("<xsl:template name='" + std::string(name) + "'>" +
                                           vendors + "</xsl:template>"));
    EXPECT_EQ(transformed("<d/>",
                          stylesheet("<xsl:import href='imported.xsl'/><xsl:include "
                                     "href='included.xsl'/><xsl:output method='text'/>" +
                                     atRoot("<xsl:call-template name='imported'/>"
                                            "<xsl:call-template name='included'/>"
                                            "<xsl:value-of select=\"document('data.xml')\"/>")),
                          {{folder.path(".")}}),
              "①㈱髙①㈱髙①㈱髙");
}

TEST(XsltLanguage, TextIsSortedAsItsLanguageAsks) {
    const struct {
        const char *words;
        const char *attributes;
        const char *sorted;
    } cases[] = {
        {"Pear apple Zoo", "", "apple Pear Zoo "},
        {"ん か が ア い", "", "ア い か が ん "},
        // The order of JIS X 0208, which is not that of Unicode.
        {"山 亜 一 唖", "", "亜 唖 一 山 "},
        {"z ä a", "lang='sv'", "a z ä "},
        {"z ä a", "lang='de'", "a ä z "},
        {"b a B A", "case-order='upper-first'", "A a B b "},
        {"B A b a", "case-order='lower-first' lang='en'", "a A b B "},
        {"b a B A", "case-order='{\"upper\"}-first' order='{\"descending\"}'", "b B a A "},
        {"10 9 x 1e", "data-type='number'", "x 1e 9 10 "},
        {"10 9 1", "data-type='{\"number\"}' order='descending'", "10 9 1 "},
        {"10 9 1", "data-type='text'", "1 10 9 "},
        {"b a c", "lang='no-such-language'", "a b c "},
    };
    for (const auto &c : cases) {
        std::string source = "<d>";
        for (const QString &word : QString::fromUtf8(c.words).split(u' '))
            source += "<w>" + word.toStdString() + "</w>";
        EXPECT_EQ(
            transformed(source + "</d>", stylesheet("<xsl:output method='text'/>" +
                                                    atRoot("<xsl:for-each select='//w'><xsl:sort " +
                                                           std::string(c.attributes) +
                                                           "/><xsl:value-of select='.'/><xsl:text> "
                                                           "</xsl:text></xsl:for-each>"))),
            c.sorted)
            << c.words << c.attributes;
    }
    // Further keys decide between what is alike, and then the place in the document.
    EXPECT_EQ(
        transformed("<d><w a='2' n='1'/><w a='10' n='2'/><w a='2' n='0'/><w a='2' n='0'/></d>",
                    stylesheet("<xsl:output method='text'/>" +
                               atRoot("<xsl:apply-templates select='//w'><xsl:sort "
                                      "select='@a' data-type='number'/><xsl:sort "
                                      "select='@n'/></xsl:apply-templates>") +
                               "<xsl:template match='w'><xsl:value-of "
                               "select='count(preceding-sibling::w)'/></xsl:template>")),
        "2301");
}

TEST(XsltLanguage, FaultsAreToldInJapanese) {
    const Files folder;
    folder.write("open.xsl", "<xsl:stylesheet xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>\n"
                             "<a></b></xsl:stylesheet>");
    folder.write("bytes.xsl", "<?xml version='1.0' encoding='Shift_JIS'?><a>\x87</a>");
    folder.write("other.xsl", "<a/>");
    folder.write("日本.xsl", "<a/>");
    const std::string value = "<xsl:value-of select=\"";
    const struct {
        std::string content;
        const char *sentence;
    } cases[] = {
        {atRoot(value + "a[\"/>"), "XPath 式の構文が正しくありません。式: a["},
        {atRoot(value + "'a\"/>"), "XPath 式の文字列が閉じていません。"},
        {atRoot(value + "f()\"/>"), "関数 'f' はありません。"},
        {atRoot(value + "x:f()\"/>"), "関数 'f' の接頭辞 'x' は宣言されていません。"},
        {atRoot(value + "concat('a')\"/>"), "関数の引数の数が正しくありません。"},
        {atRoot(value + "format-number(1, '0', 'f')\"/>"), "数値書式 'f' は"},
        {atRoot(value + "generate-id(1)\"/>"), "関数 generate-id() の引数の型が正しくありません。"},
        {atRoot(value + "generate-id(1, 2)\"/>"),
         "関数 generate-id() の引数の数が正しくありません。"},
        {atRoot("<xsl:for-each select='1'/>"), "select の式の結果がノードではありません。"},
        {atRoot("<xsl:for-each select='a'><xsl:sort select='a['/></xsl:for-each>"),
         "xsl:sort の select の式 'a[' が正しくありません。"},
        {atRoot("<xsl:variable name='v' select='1]'/>"),
         "xsl:variable の select の式 '1]' が正しくありません。"},
        {atRoot("<xsl:variable name='v'/><xsl:variable name='v'/>"),
         "変数 'v' が二重に定義されています。"},
        {"<xsl:variable name='v' select='$v'/>" + atRoot(value + "$v\"/>"),
         "変数 'v' の定義が循環しています。"},
        {atRoot("<xsl:element name='1'/>"), "xsl:element の名前 '1' が正しくありません。"},
        {atRoot("<xsl:element name='x:a'/>"), "名前 'x:a' の接頭辞は宣言されていません。"},
        {atRoot("<a>b<xsl:attribute name='c'/></a>"), "属性を追加することはできません。"},
        {atRoot("<xsl:attribute/>"), "xsl:attribute に属性 name がありません。"},
        {atRoot("<a b='{'/>"), "属性 b の値の '{' に対応する括弧がありません。"},
        {atRoot("<xsl:choose/>"), "xsl:choose に内容がありません。"},
        {atRoot("<xsl:call-template name='t'/>"), "テンプレート 't' がありません。"},
        {atRoot("<xsl:call-template/>"), "属性 name がありません。"},
        {atRoot("<xsl:when test='1'/>"), "この位置では使用できません。"},
        {"<xsl:template match='a['/>", "パターン 'a[' が正しくありません。"},
        {"<xsl:template match='x:a'/>", "接頭辞 'x' は宣言されていません。"},
        {"<xsl:template/>", "属性 match または name が必要です。"},
        {"<xsl:key match='a' use='b'/>", "xsl:key に属性 name がありません。"},
        {"<xsl:import/>", "xsl:import に属性 href がありません。"},
        {"<xsl:output/><xsl:import href='other.xsl'/>", "ほかの要素より前に"},
        {"<a/>", "最上位の要素 a には名前空間が必要です。"},
        {"text", "この位置に文字を書くことはできません: text"},
        {"<xsl:import href='open.xsl'/>", "(open.xsl、2 行目)"},
        {"<xsl:import href='bytes.xsl'/>", "(bytes.xsl、1 行目)"},
        {"<xsl:import href='日本.xsl'/>", "スタイルシートではありません。"},
        {"<xsl:include href='日本.xsl'/>", "日本.xsl"},
        {"<xsl:import href='http://127.0.0.1:9/x.xsl'/>",
         "'http://127.0.0.1:9/x.xsl' を読み込むことはできません。"},
        {"<xsl:import href='absent.xsl'/>", "absent.xsl' を読み込むことはできません。"},
        {atRoot("<exsl:document href='o.xml'>x</exsl:document>"),
         "スタイルシートからファイルに書き込むことはできません。"},
        {atRoot(value + "document('open.xsl')\"/>"), "(open.xsl、2 行目)"},
    };
    // Whatever English there is: words of more than one letter outside names of the stylesheet.
    const QRegularExpression english(QStringLiteral("[A-Za-z]{2,} [a-z]{2,}"));
    for (const auto &c : cases) {
        const std::string reason =
            failure("<d><a/></d>", stylesheet(c.content), {{folder.path(".")}});
        EXPECT_THAT(reason, HasSubstr(c.sentence)) << c.content;
        EXPECT_FALSE(english.match(q(reason)).hasMatch()) << reason;
        EXPECT_THAT(reason, testing::Not(HasSubstr("特定できない"))) << c.content;
    }
    EXPECT_THAT(failure("<d/>", "<a/>"), HasSubstr("スタイルシートではありません。"));
}

} // namespace

} // namespace quillon::xml::test
