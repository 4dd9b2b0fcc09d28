#include "resources/child_process_texts.h"
#include "resources/xslt_texts.h"
#include "tests/platform/xml/transform/xslt_test_support.h"

#include <gmock/gmock.h>

namespace quillon::xml::test {

namespace {

namespace texts = resources::xslt_texts;
namespace child_process_texts = resources::child_process_texts;
using testing::HasSubstr;

std::string sentence(QStringView text) {
    return text.toString().toStdString();
}

const std::string Meta = R"(<META http-equiv="Content-Type" content="text/html; charset=UTF-16">)";

TEST(Xslt, MethodsAndTheirDeclarations) {
    const struct {
        std::string output;
        std::string body;
        std::string result;
    } cases[] = {
        {"", "<r>é</r>", "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<r>é</r>\n"},
        {"<xsl:output method='xml' encoding='Shift_JIS' standalone='yes'/>", "<r>日é</r>",
         "<?xml version=\"1.0\" encoding=\"UTF-16\" standalone=\"yes\"?>\n<r>日é</r>\n"},
        {"<xsl:output omit-xml-declaration='yes'/>", "<r a='&lt;日'/>", "<r a=\"&lt;日\"/>\n"},
        {"<xsl:output method='text' encoding='Shift_JIS'/>", "a&lt;<b>é</b>", "a<é"},
        {"<xsl:output indent='no'/>", "<html><head><title/></head><body>é<br/></body></html>",
         "<html><head>" + Meta + "<title></title></head><body>é<br></body></html>\n"},
        {"<xsl:output indent='no'/>", "<HTML><HEAD/></HTML>",
         "<HTML><HEAD>" + Meta + "</HEAD></HTML>\n"},
        // No head, no META; a head that is not of HTML is none.
        {"<xsl:output indent='no'/>", "<html><body/></html>", "<html><body></body></html>\n"},
        {"<xsl:output method='html' indent='no'/>", "<p><x:head xmlns:x='u'/></p>",
         "<p><x:head xmlns:x=\"u\"></x:head></p>\n"},
        {"<xsl:output method='html' indent='no'/>", "<p/><html><Head>x</Head></html>",
         "<p></p><html><Head>" + Meta + "x</Head></html>\n"},
        {"<xsl:output omit-xml-declaration='yes'/>", "<html xmlns='u'><head/></html>",
         "<html xmlns=\"u\"><head/></html>\n"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(transformed("<d/>", stylesheet(c.output + "<xsl:template match='/'>" + c.body +
                                                 "</xsl:template>")),
                  c.result);
}

TEST(Xslt, TheSourceAsXPathSeesIt) {
    const std::string source =
        "<?xml version='1.0'?><!DOCTYPE r [<!ENTITY e 'x<b/>y'><!ATTLIST i k ID #IMPLIED>]>"
        "<r xmlns:p='u' p:a='1'>a<![CDATA[<]]>c&e;<i k='k1' xml:id='k2'>I</i><p:e q:a='z'/>"
        "<q:u/><n xmlns=''/><i k='k1'/></r>";
    const struct {
        const char *expression;
        const char *result;
    } cases[] = {
        {"/r/text()[1]", "a<cx"}, {"count(/r/b)", "1"},
        {"count(/node())", "1"},  {"string-length(/r)", "6"},
        {"id('k1')", "I"},        {"id('k2')", "I"},
        {"count(/r/@*)", "1"},    {"namespace-uri(/r/@*)", "u"},
        {"name(/r/*[3])", "p:e"}, {"local-name(/r/*[3])", "e"},
        {"name(/r/*[4])", "q:u"}, {"name(/r/*[3]/@*)", "q:a"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(transformed(source, textOf(c.expression)), c.result) << c.expression;
}

TEST(Xslt, AnElementIsADocumentOfItsOwn) {
    const DOMDocument40 document = parsed("<r xmlns='u' xmlns:p='v'><p:a><b/><p:c/></p:a><z/></r>");
    const Node element = document.documentElement().firstChild();
    const auto ask = [&](const Node &node, const char *expression) {
        return transformNode(node, parsed(textOf(expression))).toStdString();
    };
    EXPECT_EQ(ask(element, "concat(name(/*), ' ', namespace-uri(/*), ' ', count(//*))"), "p:a v 3");
    EXPECT_EQ(ask(element, "namespace-uri(/*/*[1])"), "u");
    EXPECT_EQ(ask(element, "count(/*/following-sibling::node())"), "0");
    EXPECT_THROW(ask(document.createTextNode("x"), "1"), runtime::Error);
    EXPECT_THROW(ask(Node(), "1"), runtime::Error);
}

TEST(Xslt, ExtensionFunctions) {
    const std::string variable = "<xsl:variable name='v'><a>1</a><a>2</a></xsl:variable>";
    for (const char *prefix : {"msxsl", "exsl"})
        EXPECT_EQ(transformed("<d/>", stylesheet("<xsl:output method='text'/><xsl:template "
                                                 "match='/'>" +
                                                 variable + "<xsl:value-of select='count(" +
                                                 prefix + ":node-set($v)/a)'/></xsl:template>")),
                  "2");
    EXPECT_EQ(transformed("<d><a>3</a><a>7</a></d>",
                          textOf("concat(math:max(//a), count(set:distinct(//a)), "
                                 "count(str:tokenize('a b c', ' ')))")),
              "723");
}

TEST(Xslt, MessagesThatDoNotEndItChangeNothing) {
    EXPECT_EQ(transformed("<d/>", stylesheet("<xsl:output method='text'/><xsl:template match='/'>"
                                             "<xsl:message>m</xsl:message>x</xsl:template>")),
              "x");
}

TEST(Xslt, ReadsBesideTheStylesheetThenInTheWorkingFolder) {
    const Files beside;
    const Files working;
    const TransformOptions options{{beside.path("."), working.path(".")}};
    const auto named = [](const char *name, const char *value) {
        return stylesheet("<xsl:template name='" + std::string(name) + "'>" + value +
                          "</xsl:template>");
    };
    beside.write("both.xsl", named("both", "B"));
    working.write("both.xsl", named("both", "W"));
    QDir(working.path(".")).mkdir("sub");
    working.write("日本 語.xsl", named("ja", "J"));
    working.write("sub/chain.xsl", "<xsl:stylesheet version='1.0' "
                                   "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
                                   "<xsl:include href='../日本 語.xsl'/></xsl:stylesheet>");
    beside.write("data.xml", "<d>1</d>");
    working.write("資料.xml", "<d>2</d>");
    const std::string sheet = stylesheet(
        "<xsl:import href='both.xsl'/><xsl:include href='sub/chain.xsl'/>"
        "<xsl:output method='text'/><xsl:template match='/'><xsl:call-template name='both'/>"
        "<xsl:call-template name='ja'/><xsl:value-of select=\"document('data.xml')/d\"/>"
        "<xsl:value-of select=\"document('資料.xml', /)/d\"/>"
        "<xsl:value-of select=\"count(document('')//xsl:call-template)\"/></xsl:template>");
    EXPECT_EQ(transformed("<d/>", sheet, options), "BJ122");
}

TEST(Xslt, ReadsNothingElse) {
    const Files folder;
    const Files other;
    const Listener listener;
    other.write("secret.xml", "<d>SECRET</d>");
    other.write("secret.xsl", stylesheet("<xsl:template match='/'>SECRET</xsl:template>"));
    QFile::link(other.path("secret.xml"), folder.path("link.xml"));
    folder.write("entity.xml", "<!DOCTYPE d [<!ENTITY e SYSTEM '" +
                                   other.path("secret.xml").toStdString() + "'>]><d>&e;</d>");
    const TransformOptions options{{folder.path(".")}};
    const std::string path = other.path("secret.xml").toStdString();
    const std::string upward = QDir(folder.path(".")).relativeFilePath(q(path)).toStdString();
    ASSERT_TRUE(upward.starts_with("../") && QFile::exists(folder.path(q(upward)))) << upward;
    for (const std::string &name :
         {path, "file://" + path, std::string("link.xml"), std::string("absent.xml"), upward,
          listener.url("x.xml"), std::string("/dev/zero")}) {
        EXPECT_EQ(transformed("<d/>", textOf("document('" + name + "')"), options), "") << name;
    }
    EXPECT_FALSE(listener.wasCalled());
    EXPECT_EQ(transformed("<d/>", textOf("document('link.xml')")), "");
    const std::string sheet = other.path("secret.xsl").toStdString();
    QFile::link(q(sheet), folder.path("link.xsl"));
    for (const std::string &name :
         {sheet, "file://" + sheet, std::string("link.xsl"),
          QDir(folder.path(".")).relativeFilePath(q(sheet)).toStdString()}) {
        for (const std::string element : {"import", "include"})
            EXPECT_NE(
                failure("<d/>", stylesheet("<xsl:" + element + " href='" + name + "'/>"), options),
                "")
                << element << " " << name;
    }
    EXPECT_EQ(transformed("<d/>", textOf("document('entity.xml')"), options), "");
    EXPECT_THAT(transformed("<!DOCTYPE d [<!ENTITY e SYSTEM '" + path + "'>]><d>&e;</d>",
                            textOf("/"), options),
                testing::Not(HasSubstr("SECRET")));
}

TEST(Xslt, WritesNothing) {
    const Files folder;
    const std::string path = folder.path("out.xml").toStdString();
    EXPECT_NE(failure("<d/>",
                      stylesheet("<xsl:template match='/'><exsl:document href='" + path +
                                 "'>x</exsl:document></xsl:template>"),
                      {{folder.path(".")}}),
              "");
    EXPECT_FALSE(QFile::exists(folder.path("out.xml")));
}

TEST(Xslt, DocumentsOfManyLevelsAreTransformed) {
    std::string deep;
    for (int i = 0; i < 5000; ++i)
        deep += "<d>";
    deep += "x";
    for (int i = 0; i < 5000; ++i)
        deep += "</d>";
    EXPECT_EQ(transformed(deep, stylesheet("<xsl:output method='text'/><xsl:template match='d'>"
                                           "<xsl:apply-templates/></xsl:template>")),
              "x");
}

TEST(Xslt, EndlessRecursionIsStopped) {
    const std::string call = "<xsl:call-template name='t'/>";
    std::string nested = call;
    for (int i = 0; i < 40; ++i)
        nested = "<xsl:if test='true()'><x>" + nested + "</x></xsl:if>";
    for (const std::string &body : {call, nested}) {
        const std::string reason = failure(
            "<d/>", stylesheet("<xsl:template match='/' name='t'>" + body + "</xsl:template>"));
        EXPECT_THAT(reason,
                    testing::AnyOf(sentence(texts::TooDeep), sentence(child_process_texts::Died)));
    }
    EXPECT_EQ(
        failure("<d/>", stylesheet("<xsl:template match='/' name='t'>" + call + "</xsl:template>")),
        sentence(texts::TooDeep));
}

TEST(Xslt, LimitsOnOutputMemoryAndTime) {
    std::string source = "<d>";
    for (int i = 0; i < 200; ++i)
        source += "<e/>";
    source += "</d>";
    // Each of the loops goes over all the elements, so the work is 200 to the power of their count.
    const auto loops = [](int count, std::string body) {
        for (int i = 0; i < count; ++i)
            body = "<xsl:for-each select='//e'>" + body + "</xsl:for-each>";
        return stylesheet("<xsl:output method='text'/><xsl:template match='/'>" + body +
                          "</xsl:template>");
    };
    TransformOptions options;
    options.outputLimit = 39999;
    EXPECT_EQ(failure(source, loops(2, "x"), options), sentence(texts::OutputLimit));
    options.outputLimit = 40000;
    EXPECT_EQ(transformed(source, loops(2, "x"), options).size(), 40000u);

    options.memoryLimit = 32 << 20;
    EXPECT_EQ(failure(source, loops(6, "<y/>"), options),
              sentence(child_process_texts::MemoryLimit));

    options.timeLimit = std::chrono::milliseconds(200);
    EXPECT_EQ(failure(source, loops(6, ""), options), sentence(child_process_texts::TimeLimit));
    // One XPath expression without a single instruction in it.
    EXPECT_EQ(failure(source,
                      textOf("count(//e[count(//e[count(//e[count(//e) &gt; 1]) &gt; 1]) "
                             "&gt; 1])"),
                      options),
              sentence(child_process_texts::TimeLimit));
}

TEST(Xslt, ATransformationCanBeCancelled) {
    int told = 0;
    TransformOptions options;
    options.progress = [&](double done) {
        EXPECT_EQ(done, runtime::UnknownProgress);
        return ++told < 3;
    };
    const std::string endless =
        stylesheet("<xsl:template match='/'><xsl:value-of select=\""
                   "count(//e[count(//e[count(//e[count(//e) &gt; 1]) &gt; 1]) &gt; 1])"
                   "\"/></xsl:template>");
    std::string source = "<d>";
    for (int i = 0; i < 200; ++i)
        source += "<e/>";
    try {
        transformed(source + "</d>", endless, options);
        FAIL() << "not cancelled";
    } catch (const runtime::Error &error) {
        EXPECT_EQ(error.number(), runtime::error_number::Cancelled);
    }
    EXPECT_EQ(told, 3);
}

TEST(Xslt, EntitiesThatGrowOutOfProportionAreNotExpanded) {
    std::string subset = "<!DOCTYPE d [<!ENTITY e0 'hahahahahahahahahaha'>";
    for (int i = 1; i < 10; ++i) {
        subset += "<!ENTITY e" + std::to_string(i) + " '";
        for (int k = 0; k < 10; ++k)
            subset += "&e" + std::to_string(i - 1) + ";";
        subset += "'>";
    }
    const Files folder;
    folder.write("bomb.xml", subset + "]><d>&e9;</d>");
    TransformOptions options{{folder.path(".")}};
    options.memoryLimit = 256 << 20;
    EXPECT_NE(failure("<d/>", textOf("string-length(document('bomb.xml'))"), options), "");
}

TEST(Xslt, DeepDocumentsHarmNothing) {
    constexpr int Levels = 50000;
    std::string deep;
    for (int i = 0; i < Levels; ++i)
        deep += "<a>";
    deep += "x";
    for (int i = 0; i < Levels; ++i)
        deep += "</a>";
    EXPECT_EQ(transformed(deep, textOf("count(//a)")), std::to_string(Levels));
    const std::string copy = "<xsl:copy><xsl:apply-templates/></xsl:copy>";
    EXPECT_EQ(failure(deep, stylesheet("<xsl:template match='*'>" + copy + "</xsl:template>")),
              sentence(texts::TooDeep));
    EXPECT_EQ(transformed("<d>y</d>", textOf("/d")), "y");
}

TEST(Xslt, TheSourceIsLeftAsItWas) {
    const DOMDocument40 source = parsed("<d>&#32;<a>x</a>&#32;</d>");
    const std::string before = xml(source);
    EXPECT_EQ(
        transformNode(source.node(), parsed(stylesheet("<xsl:strip-space elements='*'/><xsl:output "
                                                       "method='text'/>"))),
        "x");
    EXPECT_EQ(xml(source), before);
}

} // namespace

} // namespace quillon::xml::test
