#include "tests/platform/xml/transform/xslt_test_support.h"

/// What stylesheets may say.
namespace quillon::xml::test {

namespace {

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

TEST(XsltLanguage, ErrorsThatXsltLetsAProcessorRecoverFromLeaveThePage) {
    const Files folder;
    const std::string copied = "<xsl:for-each select='//@*'><xsl:copy/></xsl:for-each>";
    const struct {
        std::string body;
        const char *result;
    } cases[] = {
        {"<r><xsl:attribute name='a'>1</xsl:attribute>x<xsl:attribute name='b'>2</xsl:attribute>"
         "<y/></r>",
         "<r a=\"1\">x<y/></r>"},
        {"<r><xsl:attribute name='{\"xmlns\"}'>u</xsl:attribute>x</r>", "<r>x</r>"},
        {"<r>x" + copied + "</r>", "<r>x</r>"},
        {copied + "<r/>", "<r/>"},
        {"<r>x<xsl:copy-of select='/d/namespace::n'/></r>", "<r>x</r>"},
        {"<xsl:comment>---a-</xsl:comment>", "<!--- - -a- -->"},
        {"<r><xsl:processing-instruction name='p'>?></xsl:processing-instruction>x</r>",
         "<r>x</r>"},
        {"<r><xsl:value-of select=\"concat('x', document('absent.xml'), "
         "document('http://127.0.0.1:9/x.xml'))\"/></r>",
         "<r>x</r>"},
        {"<r>x<xsl:fallback>no</xsl:fallback></r>", "<r>x</r>"},
        // What is only warned of does not count against it.
        {"<r><xsl:number value='-1'/><xsl:attribute name='b'/></r>", "<r>0</r>"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(
            transformed("<d k='v' xmlns:n='urn:n'/>",
                        stylesheet("<xsl:output omit-xml-declaration='yes'/>" + atRoot(c.body)),
                        {{folder.path(".")}}),
            c.result + std::string("\n"))
            << c.body;
}

} // namespace

} // namespace quillon::xml::test
