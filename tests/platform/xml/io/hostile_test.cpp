#include "tests/platform/xml/xml_test_support.h"

#include <algorithm>
#include <random>

namespace quillon::xml::test {

namespace {

using namespace std::string_literals;

std::string repeated(const std::string &text, int count) {
    std::string out;
    for (int i = 0; i < count; ++i)
        out += text;
    return out;
}

TEST(Hostile, DepthAndWidthHaveNoLimit) {
    constexpr int Depth = 100'000;
    const std::string deep = repeated("<a>\n", Depth) + "<b>text</b>" + repeated("</a>", Depth);
    DOMDocument40 document = parsed(deep);
    EXPECT_EQ(xml(document), deep);
    EXPECT_EQ(document.node().text(), "text");
    Node copy = document.documentElement().cloneNode(true);
    copy.setAttribute("x", "1");
    Node innermost = copy;
    while (innermost.firstChild().nodeName() != "b")
        innermost = innermost.firstChild();
    innermost.firstChild().setAttribute("y", "2");
    DOMDocument40 other = DOMDocument40::create();
    const Node adopted = other.node().appendChild(copy);
    EXPECT_EQ(xml(adopted).size(), deep.size() + 2 * std::string(" x=\"1\"").size());
    adopted.setText("");
    EXPECT_FALSE(adopted.hasChildNodes());

    constexpr int Width = 1'000'000;
    const std::string wide = "<a>" + repeated("<b/>", Width) + "</a>";
    DOMDocument40 flat = parsed(wide);
    EXPECT_EQ(flat.documentElement().childNodes().length(), Width);
    flat.documentElement().removeChild(flat.documentElement().childNodes().item(Width / 2));
    EXPECT_EQ(xml(flat).size(), wide.size() - 4);
}

TEST(Hostile, EntitiesAreNeitherExpandedNorFetched) {
    std::string declarations = "<!ENTITY e0 'ha'>";
    for (int i = 1; i <= 40; ++i) {
        const std::string inner = "&e" + std::to_string(i - 1) + ";";
        declarations += "<!ENTITY e" + std::to_string(i) + " '" + repeated(inner, 10) + "'>";
    }
    const std::string head = "<!DOCTYPE a [" + declarations + "]>";
    const DOMDocument40 bomb = parsed(head + "<a>&e40;</a>");
    EXPECT_EQ(bomb.documentElement().firstChild().nodeName(), "e40");
    EXPECT_LT(bomb.documentElement().text().size(), 30'000'000);
    DOMDocument40 attribute = DOMDocument40::create();
    EXPECT_FALSE(attribute.loadXML(QByteArray::fromStdString(head + "<a b='&e40;'/>")));

    const DOMDocument40 loop =
        parsed("<!DOCTYPE a [<!ENTITY x '&y;'><!ENTITY y '&x;'>]><a>&x;</a>");
    EXPECT_EQ(loop.documentElement().text(), "");

    std::string chain = "<!ENTITY c0 'end'>";
    for (int i = 1; i <= 20'000; ++i)
        chain += "<!ENTITY c" + std::to_string(i) + " '&c" + std::to_string(i - 1) + ";'>";
    DOMDocument40 nested = DOMDocument40::create();
    EXPECT_FALSE(
        nested.loadXML(QByteArray::fromStdString("<!DOCTYPE a [" + chain + "]><a b='&c20000;'/>")));

    const Files files;
    const QString secret = files.write("secret.txt", "top secret");
    DOMDocument40 external = DOMDocument40::create();
    EXPECT_TRUE(external.load(
        files.write("a.xml", "<!DOCTYPE a SYSTEM 'secret.txt' [<!ENTITY x SYSTEM 'secret.txt'>"
                             "<!ENTITY % p SYSTEM 'secret.txt'> %p;]><a>&x;</a>")));
    EXPECT_FALSE(external.documentElement().text().contains("secret"));
    EXPECT_EQ(TypeName(external.documentElement().firstChild()), "IXMLDOMEntityReference");
}

TEST(Hostile, DamagedInputNeverDoesMoreThanFail) {
    const std::string whole =
        "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?>\r\n<!DOCTYPE r [<!ENTITY e 'x&#65;'>"
        "<!ATTLIST r d CDATA 'v'>]>\n<!-- c --><r a='1&lt;' b=\"&e;\"><![CDATA[x]]>&e;"
        "<あ>テキスト</あ><?pi x?>\n  <e/></r>\n";
    const Files files;
    std::mt19937 random(20261124);
    int survivors = 0;
    for (int i = 0; i < 3000; ++i) {
        std::string bytes = whole.substr(0, i % 3 == 0 ? random() % whole.size() : whole.size());
        for (auto flips = i % 3 == 0 ? 0 : 1 + random() % 3; flips > 0 && !bytes.empty(); --flips)
            bytes[random() % bytes.size()] ^= static_cast<char>(1 << (random() % 8));
        DOMDocument40 document = DOMDocument40::create();
        if (!document.load(files.write("in.xml", bytes))) {
            EXPECT_NE(document.parseError().errorCode, 0);
            EXPECT_FALSE(document.parseError().reason.isEmpty());
            continue;
        }
        ++survivors;
        EXPECT_EQ(document.serialize().toStdString(), bytes);
        document.documentElement().setAttribute("new", document.documentElement().text());
        EXPECT_TRUE(DOMDocument40::create().loadXML(document.xml()));
    }
    EXPECT_GT(survivors, 100);
}

/// The UTF-16 or UTF-32 of a text, with its low bytes first or last.
std::string widened(const std::string &utf8, int width, bool lowFirst) {
    std::string out;
    const auto append = [&](char32_t unit) {
        for (int i = 0; i < width; ++i)
            out += static_cast<char>(unit >> 8 * (lowFirst ? i : width - 1 - i));
    };
    const QString text = q(utf8);
    if (width == 2) {
        for (const QChar c : text)
            append(c.unicode());
    } else {
        for (const char32_t c : text.toStdU32String())
            append(c);
    }
    return out;
}

TEST(Hostile, EveryStartOfATextIsReadOrRefused) {
    const Files files;
    const auto loads = [&](const std::string &bytes) {
        DOMDocument40 document = DOMDocument40::create();
        if (document.load(files.write("in.xml", bytes))) {
            EXPECT_EQ(document.serialize().toStdString(), bytes);
            return true;
        }
        EXPECT_FALSE(document.parseError().reason.isEmpty());
        return false;
    };
    for (const char *text :
         {"<root><a k='v'>あ</a></root>", "\r\n<a/>", "<!--c--><a/>", "<辞書/>"}) {
        for (const bool lowFirst : {true, false}) {
            for (const std::string mark : {"", "\uFEFF"}) {
                EXPECT_TRUE(loads(widened(mark + text, 2, lowFirst))) << text << lowFirst << mark;
                EXPECT_FALSE(loads(widened(mark + text, 4, lowFirst))) << text << lowFirst << mark;
            }
        }
    }
    EXPECT_TRUE(loads("\uFEFF<a/>"));
    EXPECT_FALSE(loads("\uFEFF\uFEFF<a/>")) << "the second mark is a character";
    EXPECT_EQ(xml(parsed("\uFEFF<a/>")), "<a/>");
    // What the parser could take for a sign of another encoding.
    const std::string Signs = "\0\t\n <?a\xEF\xBB\xBF\xFE\xFF"s;
    for (const char first : Signs) {
        for (const char second : Signs) {
            for (const char third : Signs) {
                const std::string start{first, second, third};
                loads(start + "<a b='c'/>");
                DOMDocument40::create().loadXML(QByteArray::fromStdString(start + "<a b='c'/>"));
            }
        }
    }
}

TEST(Hostile, RandomEditsKeepTheDocumentReadable) {
    std::mt19937 random(7);
    DOMDocument40 document =
        parsed("<?xml version='1.0'?>\n<!--p-->\n<r>\n  <a>x</a>\n  <b/>\n</r>");
    const char *const values[] = {"", " ", "x", "--", "]]>", "?>", "a\n b", "&<>\"'", "-", "あ"};
    const auto value = [&] { return QString::fromUtf8(values[random() % std::size(values)]); };
    std::vector<Node> nodes{document.documentElement()};
    for (int i = 0; i < 4000; ++i) {
        const Node at = nodes[random() % nodes.size()];
        Node made;
        switch (random() % 9) {
        case 0:
            made = document.createElement("e");
            break;
        case 1:
            made = document.createTextNode(value());
            break;
        case 2:
            made = document.createComment(value());
            break;
        case 3:
            made = document.createCDATASection(value());
            break;
        case 4:
            made = document.createProcessingInstruction("p", value());
            break;
        case 5:
            made = nodes[random() % nodes.size()].cloneNode(true);
            break;
        case 6:
            if (at.parentNode().nodeType() == NodeType::Element)
                at.parentNode().removeChild(at);
            break;
        case 7:
            if (at.nodeType() == NodeType::Element)
                at.setAttribute("a" + QString::number(random() % 3), value());
            break;
        default:
            document = random() % 2 ? document.clone() : document;
            nodes = {document.documentElement()};
            break;
        }
        if (made && at.nodeType() == NodeType::Element && made.nodeType() != NodeType::Attribute)
            nodes.push_back(at.insertBefore(
                made, random() % 2 ? at.childNodes().item(int(random() % 4)) : Node()));
        if (i % 50 != 0)
            continue;
        DOMDocument40 again = DOMDocument40::create();
        ASSERT_TRUE(again.loadXML(document.xml()))
            << again.parseError().reason.toStdString() << "\n"
            << xml(document).substr(0, 2000);
        EXPECT_EQ(again.xml(), document.xml());
        EXPECT_EQ(again.node().text(), document.node().text()) << xml(document).substr(0, 3000);
        if (document.xml().size() > 100'000)
            document.documentElement().setText("");
        nodes = {document.documentElement()};
        for (Node n = document.documentElement().firstChild(); n && nodes.size() < 50;
             n = n.nextSibling())
            nodes.push_back(n);
    }
}

} // namespace

} // namespace quillon::xml::test
