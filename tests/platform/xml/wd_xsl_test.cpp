#include "platform/xml/wd_xsl.h"
#include "platform/xml/wd_xsl_pattern.h"
#include "tests/platform/xml/xslt_test_support.h"

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

TEST(WdXsl, Patterns) {
    const struct {
        const char *old;
        const char *xpath;
    } cases[] = {
        {"a/b//c", "a/b//c"},
        {"/", "/"},
        {"//*|@x", "//*|@x"},
        {"a[0]", "a[1]"},
        {"a[3]/b[end()]", "a[4]/b[last()]"},
        {"a[-1]", "a[last()-0]"},
        {"a[index() = 2]", "a[(position()-1)=2]"},
        {"a[@x='1' $and$ b $or$ c]", "a[@x='1' and b or c]"},
        {"a[b && c || d]", "a[b and c or d]"},
        {"a[$not$ b]", "a[not(b)]"},
        {"a[$not$ @x $lt$ 3]", "a[not(@x<3)]"},
        {"a[b $ge$ 3.5]", "a[b>=3.5]"},
        {"a[$any$ b='x']", "a[b='x']"},
        {"a[$all$ b='x']", "a[not(b!='x')]"},
        {"a[$all$ b$lt$2]", "a[not(b>=2)]"},
        {".[@x]", "self::node()[@x]"},
        {"..", ".."},
        {"../..[a]", "../parent::node()[a]"},
        {"textnode()|cdata()|comment()", "text()|text()|comment()"},
        {"pi('t')|pi()", "processing-instruction('t')|processing-instruction()"},
        {"element('n')/attribute('m')", "n/@m"},
        {"a[nodeName()='x']", "a[name()='x']"},
        {"a!nodeName()", "name(a)"},
        {"a/b!value()", "string(a/b)"},
        {"a!text()", "a/text()"},
        {"ancestor(a[0])", "ancestor::a[1][1]"},
        {"context(-1)/@id", "current()/@id"},
        {"id('x')", "id('x')"},
        {"p:x/@q:y", "*[name()='p:x']/@*[name()='q:y']"},
        {"p:*/@xml:lang", "*[starts-with(name(),'p:')]/@xml:lang"},
        {"(a|b)[0]", "(a|b)[1]"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(translateWdPattern(c.old), c.xpath) << c.old;
}

TEST(WdXsl, PatternsWithoutEquivalentNameTheConstruct) {
    const struct {
        const char *pattern;
        const char *construct;
    } cases[] = {
        {"a[@d $gt$ date('2000-01-01')]", "'date()'"},
        {"a!index()", "'!index()'"},
        {"a[context(0)]", "'context()'"},
        {"a $intersect$ b", "'intersect'"},
        {"a[b", "''"},
        {"a[%]", "'%'"},
        {"position()", "'position()'"},
        {"", "''"},
    };
    for (const auto &c : cases) {
        try {
            ADD_FAILURE() << translateWdPattern(c.pattern).toStdString();
        } catch (const runtime::Error &error) {
            EXPECT_THAT(error.what(), HasSubstr(c.construct));
        }
    }
}

TEST(WdXsl, OnlyTemplatesOutputAndTheLastMatchWins) {
    const std::string source = "<r>t<a i='1'>x</a><b>y</b></r>";
    EXPECT_EQ(transformed(source, oldSheet("")).find('t', 60), std::string::npos);
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
    EXPECT_EQ(output("<r><a i='K'/></r>", "<xsl:if test=\"r/a[@i $ieq$ 'k']\">=</xsl:if>"), "=");
}

TEST(WdXsl, WhatCannotBeTranslatedIsNamed) {
    const struct {
        std::string content;
        const char *construct;
    } cases[] = {
        {"<xsl:script>f()</xsl:script>", "(xsl:script)"},
        {"<xsl:template match='/'><xsl:eval>this.f()</xsl:eval></xsl:template>", "(this.f())"},
        {"<xsl:template match='/'><xsl:if expr='f()'/></xsl:template>", "(xsl:if expr)"},
        {"<xsl:template match='/'><xsl:variable name='v'/></xsl:template>", "<xsl:variable>"},
        {"<xsl:template match='/'><xsl:attribute/></xsl:template>", "<xsl:attribute> に属性 name"},
        {"<b/>", "<b>"},
    };
    for (const auto &c : cases)
        EXPECT_THAT(failure("<d/>", oldSheet(c.content)), HasSubstr(c.construct));
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
