#include "platform/runtime/error.h"
#include "platform/xml/dom/pretty_print.h"
#include "platform/xml/dom/xml_beginning.h"
#include "tests/platform/xml/xml_test_support.h"

#include <random>

namespace quillon::xml::test {

namespace {

using Attributes = LayoutStyle::Attributes;
using Empty = LayoutStyle::Empty;

/// The text of a document, or of its element `only`, laid out.
std::string laidOut(const std::string &text, const LayoutStyle &style, const char *only = nullptr) {
    const DOMDocument40 d = parsed(text);
    Node top = d.node();
    while (only && top && top.nodeName() != only)
        top = top.firstChild().nodeType() == NodeType::Element || !top.nextSibling()
                  ? top.firstChild()
                  : top.nextSibling();
    const LayoutPlan plan = planLayout(top, style);
    applyLayout(top, plan);
    EXPECT_TRUE(planLayout(top, style).isEmpty()) << xml(d);
    return xml(d);
}

TEST(PrettyPrint, PutsEachNodeOnItsLineAndLeavesAloneWhatMayMeanSomething) {
    const struct {
        const char *before;
        const char *after;
    } cases[] = {
        {"<r><a><b>1</b></a><c/></r>", "<r>\n  <a>\n    <b>1</b>\n  </a>\n  <c/>\n</r>"},
        // What stands so already, with its own line ends and blanks inside of tags.
        {"<?xml version='1.0'  ?>\n<r >\n  <a x = '1' />\n</r >\n",
         "<?xml version='1.0'  ?>\n<r >\n  <a x = '1' />\n</r >\n"},
        // The prolog.
        {"<?xml version='1.0'?><!DOCTYPE r [ <!ENTITY e 'x'>\n\n ]><!--c--><?p  d?><r/>  ",
         "<?xml version='1.0'?>\n<!DOCTYPE r [ <!ENTITY e 'x'>\n\n ]>\n<!--c-->\n<?p  d?>\n<r/>\n"},
        {"\n <r/>", "<r/>"},
        // Character data, and all that stands beside it.
        {"<r><p>x <b> <i/> <i/></b>\n y</p><p><![CDATA[ ]]> <i/></p><p>&#32;</p></r>",
         "<r>\n  <p>x <b> <i/> <i/></b>\n y</p>\n  <p><![CDATA[ ]]> <i/></p>\n  "
         "<p>&#32;</p>\n</r>"},
        {"<!DOCTYPE r [<!ENTITY e 'x'>]><r><p>&e; <i/>  </p></r>",
         "<!DOCTYPE r [<!ENTITY e 'x'>]>\n<r>\n  <p>&e; <i/>  </p>\n</r>"},
        {"<r><a xml:space='preserve'> <b><c/></b></a><d xml:space='default'><e/></d></r>",
         "<r>\n  <a xml:space='preserve'> <b><c/></b></a>\n  <d xml:space='default'>\n    "
         "<e/>\n  </d>\n</r>"},
        {"<!DOCTYPE r [<!ATTLIST a xml:space CDATA 'preserve'>]>\n<r><a><b/></a></r>",
         "<!DOCTYPE r [<!ATTLIST a xml:space CDATA 'preserve'>]>\n<r>\n  <a><b/></a>\n</r>"},
        // A comment behind the last thing on a line; one of several lines.
        {"<r>\n<a/> <!-- a\n  b -->\n<!--c--><b/><!--d--></r>",
         "<r>\n  <a/> <!-- a\n  b -->\n  <!--c-->\n  <b/>\n  <!--d-->\n</r>"},
        // Blank lines.
        {"<r>\n\n\n \n<a/>\n\n</r>\n\n", "<r>\n\n  <a/>\n</r>\n"},
        // Nothing in it but white space: a value, perhaps, unless it is a line.
        {"<r><a> </a><b>\n</b><c>\n\n\n</c></r>",
         "<r>\n  <a> </a>\n  <b>\n  </b>\n  <c>\n  </c>\n</r>"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(laidOut(c.before, {}), c.after);
}

TEST(PrettyPrint, GoesByTheStyle) {
    const auto style = [](auto set) {
        LayoutStyle one;
        set(one);
        return one;
    };
    const std::string tags = "<r><e a='1'  b='22'\n c='333'\n/><f x='1'/></r>";
    const struct {
        LayoutStyle style;
        std::string before;
        const char *after;
    } cases[] = {
        {style([](LayoutStyle &s) { s.step = "\t"; }), "<r><a><b/></a></r>",
         "<r>\n\t<a>\n\t\t<b/>\n\t</a>\n</r>"},
        {{}, tags, "<r>\n  <e a='1' b='22' c='333'/>\n  <f x='1'/>\n</r>"},
        {style([](LayoutStyle &s) { s.attributes = Attributes::Keep; }), tags,
         "<r>\n  <e a='1'  b='22'\n c='333'\n/>\n  <f x='1'/>\n</r>"},
        {style([](LayoutStyle &s) { s.attributes = Attributes::OnePerLine; }), tags,
         "<r>\n  <e a='1'\n     b='22'\n     c='333'/>\n  <f x='1'/>\n</r>"},
        {style([](LayoutStyle &s) {
             s.attributes = Attributes::OnePerLine;
             s.alignsAttributes = false;
         }),
         tags, "<r>\n  <e\n      a='1'\n      b='22'\n      c='333'/>\n  <f x='1'/>\n</r>"},
        // The end of the tag counts, and a full-width character twice.
        {style([](LayoutStyle &s) { s.width = 27; }), "<r><e a='1' b='22' c='333'/></r>",
         "<r>\n  <e a='1' b='22' c='333'/>\n</r>"},
        {style([](LayoutStyle &s) { s.width = 26; }), "<r><e a='1' b='22' c='333'/></r>",
         "<r>\n  <e a='1' b='22'\n     c='333'/>\n</r>"},
        {style([](LayoutStyle &s) { s.width = 27; }), "<r><e a='1' b='22' c='漢3'/></r>",
         "<r>\n  <e a='1' b='22' c='漢3'/>\n</r>"},
        {style([](LayoutStyle &s) { s.width = 27; }), "<r><e a='1' b='22' c='漢字'/></r>",
         "<r>\n  <e a='1' b='22'\n     c='漢字'/>\n</r>"},
        {style([](LayoutStyle &s) { s.empty = Empty::Closed; }),
         "<r><a></a><b /><c x='1' ></c><d> </d><e>\n</e><p>x</p></r>",
         "<r>\n  <a/>\n  <b />\n  <c x='1'/>\n  <d> </d>\n  <e/>\n  <p>x</p>\n</r>"},
        {style([](LayoutStyle &s) { s.empty = Empty::WithEndTag; }),
         "<r><a/><b x='1' /><c></c></r>", "<r>\n  <a></a>\n  <b x='1'></b>\n  <c></c>\n</r>"},
        {style([](LayoutStyle &s) { s.keepsBlankLines = false; }), "<r>\n\n<a/>\n\n<b/></r>",
         "<r>\n  <a/>\n  <b/>\n</r>"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(laidOut(c.before, c.style), c.after);
    EXPECT_EQ(laidOut("<r>\n    <a><b><c/></b></a><z><y/></z></r>", {}, "a"),
              "<r>\n    <a>\n      <b>\n        <c/>\n      </b>\n    </a><z><y/></z></r>");
    EXPECT_EQ(laidOut("<r xml:space='preserve'><a><b/></a></r>", {}, "a"),
              "<r xml:space='preserve'><a><b/></a></r>");
}

TEST(PrettyPrint, AnAttributeThatWasSetPreservesWhiteSpaceAsOneThatWasRead) {
    const DOMDocument40 d = parsed("<r><a><b/></a></r>");
    d.documentElement().firstChild().setAttribute("xml:space", "preserve");
    for (const Node &top : {d.node(), d.documentElement().firstChild().firstChild()})
        applyLayout(top, planLayout(top, {}));
    EXPECT_EQ(xml(d), "<r>\n  <a xml:space=\"preserve\"><b/></a>\n</r>");
}

TEST(PrettyPrint, LeavesTheBytesOfTheFileAsTheyAreOtherwise) {
    const Files files;
    // CR LF, a code that would be written otherwise (NEC's, not IBM's), a rare space in a tag.
    const std::string declaration = "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\r\n";
    DOMDocument40 d = DOMDocument40::create();
    ASSERT_TRUE(
        d.load(files.write("in.xml", declaration + "<r>\r\n  <a>\xED\x40</a><b\r\n/></r>")));
    applyLayout(d.node(), planLayout(d.node(), {}));
    d.save(files.path("out.xml"));
    EXPECT_EQ(files.read("out.xml"), declaration + "<r>\r\n  <a>\xED\x40</a>\r\n  <b/>\r\n</r>");
}

/// A document of anything, in random layout.
class RandomDocument {
public:
    explicit RandomDocument(unsigned seed) : random_(seed) {}

    std::string text() {
        const std::string prolog =
            any({"", "<?xml version='1.0'?>", "<?xml version=\"1.0\" ?>\n\n"});
        return prolog + blank() + "<!DOCTYPE r [<!ENTITY e 'x &lt;'>]>" + misc() + element(5) +
               misc();
    }
    unsigned below(unsigned count) { return unsigned(random_() % count); }

private:
    std::string any(std::initializer_list<const char *> choices) {
        return *(choices.begin() + below(unsigned(choices.size())));
    }
    std::string blank() { return any({"", "", " ", "\n", "\n\t", "\n\n\n  ", "  \n"}); }
    std::string misc() { return blank() + any({"", "<!-- c\n  d -->", "<?p  x?>"}) + blank(); }
    std::string element(unsigned depth) {
        const std::string name = any({"r", "p:e", "漢"});
        std::string tag = "<" + name;
        for (const char *attribute : {" a='1'", "\n  b=\"&lt;&#10;x\"", "  c = 'y\n z'",
                                      " xmlns:p='u'", " xml:space='preserve'"}) {
            if (below(attribute[1] == 'x' ? 12 : 3) == 0)
                tag += attribute;
        }
        if (below(4) == 0)
            return tag + any({"/>", " />", "\n/>"});
        std::string inside = blank();
        for (unsigned i = depth == 0 ? 0 : below(5); i > 0; --i)
            inside += part(depth - 1) + blank();
        return tag + any({">", " >", "\n>"}) + inside + "</" + name + any({">", " >"});
    }
    std::string part(unsigned depth) {
        return below(8) == 0   ? any({"text", "&e;", "<![CDATA[ ]]>", "a &amp; b", "&#32;"})
               : below(5) == 0 ? any({"<!--c-->", "<?i d?>"})
                               : element(depth);
    }

    std::mt19937 random_;
};

/// All that there is of a document but its layout.
std::string content(const DOMDocument40 &document) {
    struct Writer : NodeVisitor {
        explicit Writer(DOMDocument40 d) : document(std::move(d)) {}
        void enter(quint32 number, NodeType) override {
            const Node n = document.nodeByNumber(number);
            out += "(" + (TypeName(n) + n.nodeName() + "=" + n.nodeValue()).toStdString();
            if (n.nodeType() == NodeType::Attribute || n.nodeType() == NodeType::DocumentType ||
                n.nodeType() == NodeType::Text)
                out += "|" + xml(n);
        }
        void leave() override { out += ")"; }
        DOMDocument40 document;
        std::string out;
    } writer(document);
    visitSubtree(document.node(), writer);
    return writer.out;
}

TEST(PrettyPrint, ChangesNoDocumentAndNothingTheSecondTime) {
    for (unsigned seed = 1; seed <= 400; ++seed) {
        RandomDocument random(seed);
        const std::string text = random.text();
        const DOMDocument40 d = parsed(text);
        LayoutStyle style;
        style.step = random.below(2) == 0 ? "\t" : "   ";
        style.attributes = Attributes(random.below(3));
        style.width = int(20 + random.below(60));
        style.alignsAttributes = random.below(2) == 0;
        style.empty = Empty(random.below(3));
        style.keepsBlankLines = random.below(2) == 0;
        const std::string before = content(d);
        const DOMDocument40 untouched = d.clone();
        applyLayout(d.node(), planLayout(d.node(), style));
        const std::string after = xml(d);
        EXPECT_EQ(content(d), before) << text;
        EXPECT_EQ(xml(untouched), text);
        const DOMDocument40 again = parsed(after);
        EXPECT_EQ(content(again), before) << text;
        EXPECT_TRUE(planLayout(d.node(), style).isEmpty()) << seed << after;
        EXPECT_TRUE(planLayout(again.node(), style).isEmpty()) << seed << after;
        bool isWhole = false;
        const QByteArray beginning = beginningOfXml(d.node(), 100, isWhole);
        EXPECT_EQ(isWhole, after.size() <= 100);
        EXPECT_TRUE(after.starts_with(beginning.toStdString()));
        EXPECT_GE(std::size_t(beginning.size()), std::min<std::size_t>(after.size(), 97));
    }
}

TEST(PrettyPrint, IsStoppedWithoutATraceAndBearsDeepDocuments) {
    std::string wide = "<r>";
    for (int i = 0; i < 30'000; ++i)
        wide += "<a/>";
    const DOMDocument40 d = parsed(wide + "</r>");
    try {
        planLayout(d.node(), {}, [](double) { return false; });
        ADD_FAILURE() << "not stopped";
    } catch (const runtime::Error &error) {
        EXPECT_EQ(error.number(), runtime::error_number::Cancelled);
    }
    EXPECT_EQ(xml(d), wide + "</r>");
    EXPECT_FALSE(planLayout(d.node(), {}, {}, 100).isWhole());

    std::string deep;
    for (int i = 0; i < 20'000; ++i)
        deep += "<a>";
    for (int i = 0; i < 20'000; ++i)
        deep += "</a>";
    EXPECT_LT(laidOut(deep, {}).size(), 20'000 * 2 * (MostLevels * 2 + 10));
}

} // namespace

} // namespace quillon::xml::test
