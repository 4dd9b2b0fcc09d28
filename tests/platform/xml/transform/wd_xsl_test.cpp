#include "platform/xml/transform/wd_xsl.h"
#include "platform/xml/transform/wd_xsl_pattern.h"
#include "tests/platform/xml/transform/xslt_test_support.h"

#include <QRegularExpression>

#include <gmock/gmock.h>

namespace quillon::xml::test {

namespace {

using testing::HasSubstr;

std::string oldSheet(const std::string &content, const std::string &attributes = {}) {
    return "<xsl:stylesheet xmlns:xsl='http://www.w3.org/TR/WD-xsl' " + attributes + ">" + content +
           "</xsl:stylesheet>";
}

/// What the template for the root puts into <o/>, with text around it.
std::string output(const std::string &source, const std::string &body,
                   const std::string &moreTemplates = {}) {
    const std::string result = transformed(source, oldSheet("<xsl:template match='/'><o>" + body +
                                                            "</o></xsl:template>" + moreTemplates));
    const std::size_t start = result.find("<o>");
    const std::size_t end = result.rfind("</o>");
    if (result.find("<o/>") != result.npos)
        return {};
    return start == result.npos ? result : result.substr(start + 3, end - start - 3);
}

/// An expression with a capital A to D for "any element that is named so in small letters".
QString byName(QString expression) {
    static const QRegularExpression capital(QStringLiteral("[A-D](?![a-z])"));
    for (auto match = capital.match(expression); match.hasMatch();
         match = capital.match(expression))
        expression.replace(match.capturedStart(), 1,
                           QStringLiteral("*[name()='%1']").arg(match.captured().toLower()));
    return expression;
}

TEST(WdXsl, Patterns) {
    const struct {
        const char *old;
        const char *xpath;
    } cases[] = {
        {"a/b//c", "A/B//C"},
        {"/", "/"},
        {"//*|@x", "//*|@x"},
        {"a[0]", "A[1]"},
        {"a[3]/b[end()]", "A[4]/B[last()]"},
        {"a[-1]", "A[last()-0]"},
        {"a[index() = 2]", "A[(position()-1)=2]"},
        {"a[@x='1' $and$ b $or$ c]", "A[@x='1' and B or C]"},
        {"a[@x='1' and b or c]", "A[@x='1' and B or C]"},
        {"a[b && c || d]", "A[B and C or D]"},
        {"a[$not$ b]", "A[not(B)]"},
        {"a[not(b or c) and not (d)]", "A[not(B or C) and not(D)]"},
        {"a[$not$ @x $lt$ 3]", "A[not(@x<3)]"},
        {"a[b $ge$ 3.5]", "A[B>=3.5]"},
        {"a[b $lt$ 'm']", "A[quillon-wd:compare(B,'<','m')]"},
        {"a[@x > @y]", "A[quillon-wd:compare(@x,'>',@y)]"},
        {"a[b $ile$ 'm']", "A[quillon-wd:compareIgnoringCase(B,'<=','m')]"},
        {"a[$all$ b $ieq$ 'm']", "A[not(quillon-wd:compareIgnoringCase(B,'!=','m'))]"},
        {"a[$any$ b='x']", "A[B='x']"},
        {"a[$all$ b='x']", "A[not(B!='x')]"},
        {"a[$all$ b$lt$2]", "A[not(B>=2)]"},
        {".[@x]", "self::node()[@x]"},
        {"..", ".."},
        {"../..[a]", "../parent::node()[A]"},
        {"textnode()|cdata()|comment()", "text()|text()|comment()"},
        {"pi('t')|pi()", "processing-instruction('t')|processing-instruction()"},
        {"element('d')/attribute('m')", "D/@m"},
        {"element()/attribute()", "*/@*"},
        {"a[nodeName()='x']", "A[name()='x']"},
        {"a[nodeType() = 1]", "A[quillon-wd:nodeType(.)=1]"},
        {"a!nodeType()", "quillon-wd:nodeType(A)"},
        {"a!nodeName()", "name(A)"},
        {"a/b!value()", "string(A/B)"},
        {"a!text()", "A/text()"},
        {"ancestor(a[0])", "ancestor::A[1][1]"},
        {"context(-1)/@id", "current()/@id"},
        {"id('x')", "id('x')"},
        {"p:x/@q:y", "*[name()='p:x']/@*[name()='q:y']"},
        {"p:*/@xml:lang", "*[starts-with(name(),'p:')]/@xml:lang"},
        {"(a|b)[0]", "(A|B)[1]"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(translateWdPattern(c.old), byName(c.xpath)) << c.old;
}

TEST(WdXsl, PatternsWithoutEquivalentNameTheConstruct) {
    const auto refused = [](const std::string &pattern, const std::string &construct) {
        return "旧形式のスタイルシートのパターン '" + pattern + "' の " + construct +
               " は XSLT 1.0 に変換できません。";
    };
    const struct {
        const char *pattern;
        const char *construct;
    } cases[] = {
        {"a[@d $gt$ date('2000-01-01')]", "'date()'"},
        {"a!index()", "'!index()'"},
        {"a[context(0)]", "'context()'"},
        {"a $intersect$ b", "'intersect'"},
        {"a[%1]", "'%'"},
        {"position()", "'position()'"},
    };
    const auto said = [](const char *pattern) {
        try {
            return translateWdPattern(pattern).toStdString();
        } catch (const runtime::Error &error) {
            return error.description().toStdString();
        }
    };
    for (const auto &c : cases)
        EXPECT_EQ(said(c.pattern), refused(c.pattern, c.construct));
    EXPECT_EQ(said("a[b"), "旧形式のスタイルシートのパターン 'a[b' は途中で終わっています。");
    EXPECT_EQ(said(""), "旧形式のスタイルシートに空のパターンがあります。");
}

TEST(WdXsl, OnlyTemplatesOutputAndTheLastMatchWins) {
    const std::string source = "<r>t<a i='1'>x</a><b>y</b></r>";
    EXPECT_EQ(transformed(source, oldSheet("")), transformed("<r/>", oldSheet("")));
    EXPECT_EQ(output(source, "<xsl:apply-templates/>"), "");
    EXPECT_EQ(output(source, "<xsl:apply-templates select='r/*'/>",
                     "<xsl:template match='a'>1</xsl:template>"
                     "<xsl:template match='r/*'>2</xsl:template>"
                     "<xsl:define-template-set><xsl:template match='b'>3</xsl:template>"
                     "</xsl:define-template-set>"),
              "23");
    // Without a pattern a template matches all elements and the root.
    EXPECT_THAT(transformed(source, oldSheet("<xsl:template match='/'>/</xsl:template>"
                                             "<xsl:template><o/></xsl:template>")),
                HasSubstr("<o/>"));
}

TEST(WdXsl, LocalTemplatesFallBackToTheGeneralOnes) {
    EXPECT_EQ(output("<r><a/><b/></r>",
                     "<xsl:apply-templates select='r/*'><xsl:template match='a'>local "
                     "</xsl:template></xsl:apply-templates><xsl:apply-templates select='r/*'/>",
                     "<xsl:template match='a'>A</xsl:template><xsl:template "
                     "match='b'>B</xsl:template>"),
              "local BAB");
}

TEST(WdXsl, Instructions) {
    const std::string source =
        "<r><a n='10'>x</a><a n='9'>y</a><a n='9'>&lt;</a><p:q xmlns:p='u'/><?t d?></r>";
    const struct {
        const char *body;
        const char *result;
    } cases[] = {
        {"<xsl:for-each select='r/a' order-by='number(@n); -.'><xsl:value-of/></xsl:for-each>",
         "y&lt;x"},
        {"<xsl:for-each select='r/a' order-by='+@n'><xsl:value-of select='@n'/>,</xsl:for-each>",
         "10,9,9,"},
        {"<xsl:if test='r/a[@n=\"9\"]'>yes</xsl:if><xsl:if match='.[zz]'>no</xsl:if>", "yes"},
        {"<xsl:choose><xsl:when test='zz'>1</xsl:when><xsl:otherwise>2</xsl:otherwise>"
         "</xsl:choose>",
         "2"},
        {"<xsl:for-each select='r/*'><xsl:node-name/>,</xsl:for-each>", "a,a,a,p:q,"},
        {"<xsl:for-each select='r/p:q'>found</xsl:for-each>", "found"},
        {"<e b='{x}'><xsl:attribute name='c'>v</xsl:attribute></e>", "<e b=\"{x}\" c=\"v\"/>"},
        {"<xsl:element name='e'><xsl:comment>c</xsl:comment><xsl:pi name='p'>d</xsl:pi>"
         "</xsl:element>",
         "<e><!--c--><?p d?></e>"},
        {"<xsl:cdata>&amp;<xsl:value-of select='r/a[2]'/></xsl:cdata>", "<![CDATA[&<]]>"},
        {"<xsl:entity-ref name='nbsp'/>", "&nbsp;"},
        {"<xsl:for-each select='r/a[0]'><xsl:copy><xsl:apply-templates "
         "select='@*'/></xsl:copy></xsl:for-each>",
         "<a/>"},
        {"<xsl:for-each select='r/a'><xsl:eval>formatIndex(childNumber(this), \"i\");</xsl:eval>"
         "<xsl:eval>childNumber(this)</xsl:eval></xsl:for-each>",
         "i1ii2iii3"},
        {"<xsl:for-each select='r/a[0]/@n'><xsl:eval>formatNumber(this.nodeTypedValue, "
         "'0.0')</xsl:eval></xsl:for-each>",
         "10.0"},
        {"<x xml:space='preserve'> <y/></x>", "<x xml:space=\"preserve\"> <y/></x>"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(output(source, c.body), c.result) << c.body;
}

TEST(WdXsl, ComparisonsOfText) {
    const std::string source = "<r><a i='K'>Mori</a><a i='9'>10</a><b>Ｋ</b>t</r>";
    const struct {
        const char *condition;
        bool holds;
    } cases[] = {
        {"r/a[@i $ieq$ 'k']", true},
        {"r/a[@i $eq$ 'k']", false},
        {"r/a[. $lt$ 'N']", true},
        {"r/a[. $gt$ 'Z']", false},
        {"r/a[. $lt$ 'm' and . $gt$ 'A']", true},
        {"r/a[. $igt$ 'mORA']", true},
        {"r/a[. $ilt$ 'mora' and @i = 'K']", false},
        {"r/a[@i $lt$ . and @i='9']", true},
        {"r/a $igt$ 'mz'", false},
        {"r/b[. $ieq$ 'ｋ']", true},
        {"$all$ r/a $ge$ '10'", true},
        {"$all$ r/a $ieq$ 'MORI'", false},
        {"r/node()[nodeType() = 3]", true},
        {"r/a/@*[nodeType() $ne$ 2]", false},
    };
    for (const auto &c : cases)
        EXPECT_EQ(output(source, "<xsl:if test=\"" + std::string(c.condition) + "\">+</xsl:if>"),
                  c.holds ? "+" : "")
            << c.condition;
}

TEST(WdXsl, NamesAreComparedAsWritten) {
    const std::string source = "<表 xmlns='urn:d' xmlns:p='urn:p'><行>1</行><p:行>2</p:行>"
                               "<行 n='x'>3</行></表>";
    EXPECT_EQ(output(source,
                     "<xsl:for-each select='/表/行[1]'><xsl:value-of select='@n'/></xsl:for-each>"
                     "<xsl:apply-templates select='表/行'/>",
                     "<xsl:template match='表/行'>[<xsl:value-of/>]</xsl:template>"),
              "x[1][3]");
    EXPECT_EQ(output(source, "<xsl:if test='表[p:行=\"2\"]'>+</xsl:if>"
                             "<xsl:if test='/表[count]'>-</xsl:if>"),
              "+");
}

TEST(WdXsl, WhatCannotBeTranslatedIsNamed) {
    const auto atRoot = [](const std::string &body) {
        return "<xsl:template match='/'>" + body + "</xsl:template>";
    };
    const struct {
        std::string content;
        const char *sentence;
    } cases[] = {
        {"<xsl:script>f()</xsl:script>",
         "旧形式のスタイルシートのスクリプト (xsl:script) はサポートされていません。"},
        {atRoot("<xsl:eval>this.f(%1)</xsl:eval>"),
         "旧形式のスタイルシートのスクリプト (this.f(%1)) はサポートされていません。"},
        {atRoot("<xsl:eval> </xsl:eval>"),
         "旧形式のスタイルシートのスクリプト (xsl:eval) はサポートされていません。"},
        {atRoot("<xsl:if expr='f()'/>"),
         "旧形式のスタイルシートのスクリプト (xsl:if の属性 expr) はサポートされていません。"},
        {atRoot("<xsl:variable name='v'/>"),
         "旧形式のスタイルシートの要素 <xsl:variable> は XSLT 1.0 に変換できません。"},
        {atRoot("<xsl:attribute/>"),
         "旧形式のスタイルシートの要素 <xsl:attribute> に属性 name がありません。"},
        {"<b/>", "旧形式のスタイルシートの要素 <b> は XSLT 1.0 に変換できません。"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(failure("<d/>", oldSheet(c.content)), c.sentence) << c.content;
}

TEST(WdXsl, StylesheetAttributesAndOtherPrefixes) {
    EXPECT_EQ(transformed("<r/>", "<x:stylesheet xmlns:x='http://www.w3.org/TR/WD-xsl' "
                                  "xmlns:k='u' result-ns='html' indent-result='no'>"
                                  "<x:template match='/'><p k:a='1'><br/></p></x:template>"
                                  "</x:stylesheet>"),
              "<p xmlns:k=\"u\" k:a=\"1\"><br></p>\n");
    EXPECT_FALSE(isWdXsl(parsed(stylesheet(""))));
}

} // namespace

} // namespace quillon::xml::test
