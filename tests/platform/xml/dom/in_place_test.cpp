#include "platform/runtime/error.h"
#include "platform/xml/dom/document_encoding.h"
#include "platform/xml/dom/in_place.h"
#include "platform/xml/dom/part_walk.h"
#include "platform/xml/io/encoding.h"
#include "tests/platform/xml/xml_test_support.h"

#include <random>

namespace quillon::xml::test {

namespace {

/// Replaces the n-th "x" of a value by `text`.
void replaceX(const Node &node, const QString &text) {
    std::vector<ValueChange> changes;
    const QString value = node.nodeValue();
    for (qsizetype at = value.indexOf('x'); at >= 0; at = value.indexOf('x', at + 1))
        changes.push_back({at, 1, text});
    replaceInValue(node, changes);
}

void forEachValue(const DOMDocument40 &document, const std::function<void(const Node &)> &f) {
    constexpr unsigned Values = part_kind::AttributeValue | part_kind::Text | part_kind::CData |
                                part_kind::Comment | part_kind::InstructionValue;
    std::vector<quint32> nodes;
    PartWalk walk(document.node(), Values);
    for (NodePart part; walk.next(part);)
        nodes.push_back(part.node);
    for (const quint32 number : nodes)
        f(document.nodeByNumber(number));
}

std::string encoded(const std::string &codec, const std::string &utf8) {
    std::string bytes;
    EXPECT_TRUE(Encoder(codec).encode(utf8, bytes)) << codec;
    return bytes;
}

std::string replaced(std::string text, const std::string &what, const std::string &with) {
    for (std::size_t at = 0; (at = text.find(what, at)) != text.npos; at += with.size())
        text.replace(at, what.size(), with);
    return text;
}

TEST(InPlace, OnlyTheReplacedPlacesOfAFileChange) {
    // Line ends of two kinds, references where characters would do, blanks everywhere, and codes
    // that the encoder would not choose ("\xFA\x4A" and "\x87\x54" are one character).
    const std::string text =
        "<?xml version='1.0' encoding='Shift_JIS'?>\r\n<!DOCTYPE r [<!ENTITY co '株 式'>]>\r\n"
        "<r\r\n  a = 'x&#x3042;&co;>\"x'\tb=\"&lt;x\"  ><!-- x\r\n表x-->\r\n"
        "  <?p   ソx ?>\n<c >\r\n あ&gt;>x&amp;&#65;\r\nx</c\r\n><![CDATA[x&amp;\r\n]] x]]></r "
        ">\r\n";
    const std::string rare = encoded("CP932", "Ⅰ");
    const std::string other = rare == "\x87\x54" ? "\xFA\x4A" : "\x87\x54";
    const auto bytes = [&](const std::string &utf8) {
        return replaced(encoded("CP932", replaced(utf8, "表", "表@@")), "@@", other);
    };
    const Files files;
    for (const std::string with : {"置換", "", "Y&<>'\"", "y\ny"}) {
        DOMDocument40 document = DOMDocument40::create();
        ASSERT_TRUE(document.load(files.write("in.xml", bytes(text))));
        forEachValue(document, [&](const Node &node) {
            if (node.nodeName() != "xml")
                replaceX(node, q(with));
        });
        const std::string written = document.serialize().toStdString();
        DOMDocument40 again = DOMDocument40::create();
        ASSERT_TRUE(again.load(files.write("out.xml", written))) << with;
        EXPECT_EQ(xml(again), xml(document));
        if (with == "置換" || with.empty()) {
            std::string expected = replaced(text, "x", with);
            EXPECT_EQ(written, bytes(replaced(replaced(expected, "<?" + with + "ml", "<?xml"),
                                              "&#" + with + "3042", "&#x3042")));
        }
    }
}

struct Token {
    std::string raw;
    std::string value;
};

/// A value put together from tokens, and the same with some of them replaced.
TEST(InPlace, WhatStandsBetweenReplacementsStaysAsItIsWritten) {
    const std::vector<Token> plain = {{"a", "a"},   {"\r\n", "\n"}, {"\n", "\n"}, {"あ", "あ"},
                                      {"𠮷", "𠮷"}, {" ", " "},     {"]", "]"}};
    std::vector<Token> withReferences = plain;
    withReferences.insert(withReferences.end(),
                          {{"&amp;", "&"}, {"&#x1F600;", "😀"}, {"&#10;", "\n"}});
    std::vector<Token> inAttributes = withReferences;
    inAttributes.insert(inAttributes.end(),
                        {{"&e;", "ent"}, {"&none;", ""}, {"\"", "\""}, {">", ">"}});
    const struct {
        std::string open;
        std::vector<Token> tokens;
        std::string close;
    } forms[] = {{"<r k='z", inAttributes, "'/>"},
                 {"<r>z", withReferences, "</r>"},
                 {"<r><![CDATA[z", plain, "]]></r>"},
                 {"<r><!--z", plain, "--></r>"},
                 {"<r><?p z", plain, "?></r>"}};
    const std::string subset = "<!DOCTYPE r [<!ENTITY e 'ent'><!ENTITY none ''>]>\r\n";
    const Files files;
    std::mt19937 random(20261125);
    for (int round = 0; round < 400; ++round) {
        const auto &form = forms[round % std::size(forms)];
        std::string raw = form.open;
        std::string expected = form.open;
        QString value = "z";
        std::vector<ValueChange> changes;
        for (auto count = random() % 20; count > 0; --count) {
            const Token &token = form.tokens[random() % form.tokens.size()];
            const bool changed = random() % 3 == 0;
            if (changed && !token.value.empty())
                changes.push_back({value.size(), q(token.value).size(), "R"});
            expected += changed && !token.value.empty() ? "R" : token.raw;
            raw += token.raw;
            value += q(token.value);
        }
        DOMDocument40 document = DOMDocument40::create();
        ASSERT_TRUE(document.load(files.write("in.xml", subset + raw + form.close))) << raw;
        Node node = document.documentElement().firstChild();
        if (!node)
            node = document.documentElement().getAttributeNode("k");
        ASSERT_EQ(node.nodeValue(), value) << raw;
        // In two steps, so that the second finds a value that was changed in places already.
        const auto half = changes.begin() + std::ptrdiff_t(changes.size() / 2);
        replaceInValue(node, {half, changes.end()});
        const DOMDocument40 snapshot = document.clone();
        replaceInValue(node, {changes.begin(), half});
        EXPECT_EQ(document.serialize().toStdString(), subset + expected + form.close) << raw;
        DOMDocument40 copy = DOMDocument40::create();
        copy.node().appendChild(document.documentElement());
        EXPECT_EQ(xml(copy), replaced(expected, "\r\n", "\n") + form.close);
        EXPECT_EQ(snapshot.nodeByNumber(node.number()).nodeValue().count('R'),
                  changes.end() - half);
    }
}

TEST(InPlace, WhatTheFormatCannotHoldIsWrittenAsEver) {
    const struct {
        std::string before;
        QString with;
        std::string after;
    } cases[] = {
        {"<r><![CDATA[x]>]]></r>", "]", "<r><![CDATA[]]]]><![CDATA[>]]></r>"},
        {"<r><!--x-->&#66;</r>", "-", "<r><!--- -->&#66;</r>"},
        {"<r><?p x>?></r>", "?", "<r><?p ? >?></r>"},
        // New and kept characters must not make what only references may.
        {"<r>x>&#65;</r>", "]]", "<r>]]&gt;A</r>"},
        // A text of blanks would be layout.
        {"<r>x</r>", " ", "<r>&#32;</r>"},
        {"<r> x\n</r>", "", "<r>&#32;\n</r>"},
    };
    for (const auto &one : cases) {
        const DOMDocument40 document = parsed(one.before);
        replaceX(document.documentElement().firstChild(), one.with);
        EXPECT_EQ(xml(document), one.after);
        EXPECT_EQ(xml(parsed(one.after)), one.after);
    }
}

TEST(InPlace, LineEndsOfTwoKindsDoNotGrowIntoOne) {
    const Files files;
    for (const std::string text : {"<r>\n<a>z\rx</a></r>", "<r>\r<a>x\nz</a></r>"}) {
        DOMDocument40 document = DOMDocument40::create();
        ASSERT_TRUE(document.load(files.write("in.xml", text)));
        replaceX(document.documentElement().firstChild().firstChild(), "\n");
        DOMDocument40 again = DOMDocument40::create();
        ASSERT_TRUE(again.load(files.write("out.xml", document.serialize().toStdString())));
        EXPECT_EQ(again.documentElement().text().remove('z'), "\n\n");
    }
}

TEST(InPlace, ReferencesThatNobodyDeclaresStayReferences) {
    const DOMDocument40 document = parsed("<!DOCTYPE r SYSTEM 'r.dtd'><r a='x&un;x&un;&#120;'/>");
    const Node attribute = document.documentElement().getAttributeNode("a");
    ASSERT_EQ(attribute.nodeValue(), "x&un;x&un;x");
    replaceX(attribute, "y&");
    EXPECT_EQ(xml(document.documentElement()), "<r a='y&amp;&un;y&amp;&un;y&amp;'/>");
    EXPECT_EQ(document.node().referredEntity(), "un");
}

TEST(InPlace, NamesChangeAndNothingElse) {
    const std::string text =
        "<?xml version='1.0'?>\r\n<a  i = '1'\r\n\tj=\"&#65;\" >\r\n\r\n <b/>t&#65;"
        "<a ></a\r\n ><!----></a >\r\n";
    const Files files;
    DOMDocument40 document = DOMDocument40::create();
    ASSERT_TRUE(document.load(files.write("in.xml", text)));
    const Node root = document.documentElement();
    const Node inner = root.lastChild().previousSibling();
    const DOMDocument40 snapshot = document.clone();
    changeName(root, "書類");
    changeName(inner, "p:a");
    changeNames(root, {{root.getAttributeNode("i"), "j"}, {root.getAttributeNode("j"), "i"}});
    EXPECT_EQ(document.serialize().toStdString(),
              "<?xml version='1.0'?>\r\n<書類  j = '1'\r\n\ti=\"&#65;\" >\r\n\r\n <b/>t&#65;"
              "<p:a ></p:a\r\n ><!----></書類 >\r\n");
    EXPECT_EQ(root, document.documentElement());
    EXPECT_EQ(root.getAttribute("i"), "A");
    EXPECT_EQ(snapshot.serialize().toStdString(), text);

    const std::string before = xml(document);
    EXPECT_THROW(changeName(root, "1"), runtime::Error);
    EXPECT_THROW(changeName(root.firstChild().nextSibling(), "b"), runtime::Error);
    EXPECT_THROW(changeNames(root, {{root.getAttributeNode("i"), "j"}}), runtime::Error);
    EXPECT_THROW(changeNames(inner, {{root.getAttributeNode("i"), "k"}}), runtime::Error);
    EXPECT_THROW(replaceInValue(root, {}), runtime::Error);
    EXPECT_THROW(replaceInValue(root.getAttributeNode("i"), {{1, 1, "x"}}), runtime::Error);
    EXPECT_THROW(replaceInValue(document.node().firstChild(), {{0, 1, "x"}}), runtime::Error);
    EXPECT_EQ(xml(document), before);
}

TEST(DocumentEncoding, SaysWhichCharacterItLacks) {
    const Files files;
    DOMDocument40 document = DOMDocument40::create();
    ASSERT_TRUE(
        document.load(files.write("in.xml", "<?xml version='1.0' encoding='Shift_JIS'?><r/>")));
    DocumentEncoding encoding(document);
    EXPECT_NO_THROW(encoding.check("漢字ABC①"));
    try {
        encoding.check("漢字😀");
        FAIL();
    } catch (const runtime::Error &error) {
        EXPECT_TRUE(error.description().contains("'😀' (U+1F600)")) << error.what();
    }
    EXPECT_NO_THROW(DocumentEncoding(parsed("<r/>")).check("😀"));
}

TEST(PartWalk, PartsComeInDocumentOrder) {
    const DOMDocument40 document = parsed("<?xml version='1.0'?><r a='1' b='&#50;'>t<i "
                                          "c=''/><![CDATA[d]]><!--e--><?f g?></r><!--h-->");
    const auto walked = [&](const Node &top, unsigned kinds, const Node &start = {}) {
        PartWalk walk(top, kinds);
        if (start)
            walk.startAt(start);
        std::string all;
        for (NodePart part; walk.next(part);)
            all += std::string(part.characters) + (part.isName() ? ":" : ",");
        return all;
    };
    const Node root = document.documentElement();
    EXPECT_EQ(walked(document.node(), 255), "xml:version='1.0',r:a:1,b:2,t,i:c:,d,e,f:g,h,");
    EXPECT_EQ(walked(root, part_kind::ElementName | part_kind::Comment), "r:i:e,");
    EXPECT_EQ(walked(root.firstChild().nextSibling(), 255), "i:c:,");
    EXPECT_EQ(walked(root.getAttributeNode("b"), 255), "b:2,");
    EXPECT_EQ(walked(document.node(), 255, root.getAttributeNode("b")), "b:2,t,i:c:,d,e,f:g,h,");
    EXPECT_EQ(walked(root, 255, root.lastChild()), "f:g,");
    EXPECT_EQ(walked(Node(), 255), "");
}

} // namespace

} // namespace quillon::xml::test
