#include "platform/runtime/error.h"
#include "tests/platform/xml/xml_test_support.h"

#include <csignal>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillon::xml::test {

namespace {

using namespace std::string_literals;

std::string encoded(const std::string &utf8, const char *codec) {
    Files files;
    files.write("in", utf8);
    const std::string command = "iconv -f UTF-8 -t "s + codec + " '" +
                                files.path("in").toStdString() + "' > '" +
                                files.path("out").toStdString() + "'";
    EXPECT_EQ(system(command.c_str()), 0) << codec;
    return files.read("out");
}

const char *const Texts[] = {
    "<a/>",
    "<a />",
    "<a></a>",
    "<a\t\n  ></a\n>",
    "<a> </a>",
    "<a b='1' c=\"2\"\n   d = 'x'/>",
    "<a b=\"&lt;&#65;&#x42;&amp;\" c='\"'/>",
    "<a b=\"x\ty\nz\"/>",
    "<a>&lt;&#65;&#x3042;&amp;&apos;&gt;></a>",
    "<a>one <b>two</b> three</a>",
    "<a>\n  <b/>\n\n  <c/>\n</a>\n",
    "<a>\r\n  <b/>\r\n</a>\r\n",
    "<a>\r  <b/>\r</a>\r",
    "<a>\n  <b/>\r\n  <c>x\ry</c>\n</a>",
    "<?xml version=\"1.0\"?><a/>",
    "<?xml version='1.0' standalone='yes' ?>\n<!-- before -->\n<?pi  data "
    "?>\n<a/>\n<!--after--><?p?>\n",
    "<!DOCTYPE a>\n<a/>",
    "<!DOCTYPE a [\n<!-- c --><?p q?>\n<!ELEMENT a ANY>\n<!ENTITY e \"x<b/>y\">\n"
    "<!ATTLIST a d CDATA 'def'>\n]>\n<a>&e; &e;</a>",
    "<!DOCTYPE a SYSTEM \"no such file.dtd\"><a>&unknown;</a>",
    "<!DOCTYPE a PUBLIC '-//x' 'http://127.0.0.1:1/x.dtd' [<!ENTITY % p 'z'> %p;]><a/>",
    "<a><![CDATA[ <x> & ]]><![CDATA[]]></a>",
    "<a xml:space=\"preserve\"> <b/> <c xml:space='default'> <d/> </c></a>",
    "<p:a xmlns:p=\"urn:x\"><p:b/></p:a>",
    "<undeclared:a b:c=\"\"/>",
    "<a><!----><!-- - --><?x?></a>",
    "\n<a/>\n\n",
};

TEST(RoundTrip, NothingChangesUnlessItIsChanged) {
    const Files files;
    for (const std::string text : Texts) {
        EXPECT_EQ(reloaded(files, text), text);
        // A change undone by its opposite is still only a change of its own bytes.
        DOMDocument40 document = DOMDocument40::create();
        ASSERT_TRUE(document.load(files.path("in.xml")));
        document.documentElement().setAttribute("added", "1");
        document.documentElement().removeAttribute("added");
        document.save(files.path("out.xml"));
        EXPECT_EQ(files.read("out.xml"), text);
        // Copied piece by piece into another tree it is still the same.
        DOMDocument40 again = document.clone();
        const Node copy = document.documentElement().cloneNode(true);
        again.setDocumentElement(copy);
        again.save(files.path("out.xml"));
        EXPECT_EQ(files.read("out.xml"), text);
    }
}

TEST(RoundTrip, EveryEncodingGivesItsBytesBack) {
    const Files files;
    const struct {
        const char *declared;
        const char *codec;
        const char *content;
    } cases[] = {
        {"UTF-8", "UTF-8", "日本語 é 😀"},
        {"Shift_JIS", "CP932", "日本語ソース表示～①"},
        {"x-sjis", "CP932", "ﾊﾝｶｸ 髙"},
        {"windows-31j", "CP932", "表\\示"},
        {"EUC-JP", "EUC-JP-MS", "日本語①"},
        {"ISO-2022-JP", "ISO-2022-JP", "日本語\n改行あり"},
        {"ISO-8859-1", "ISO-8859-1", "café"},
        {"iso-8859-15", "ISO-8859-15", "€"},
        {"windows-1252", "CP1252", "“quoted”"},
        {"windows-1251", "CP1251", "Привет"},
        {"GB18030", "GB18030", "汉字 😀"},
        {"gb2312", "GBK", "汉字 镕"},
        {"Big5", "BIG5", "漢字"},
        {"EUC-KR", "EUC-KR", "한글"},
        {"koi8-r", "KOI8-R", "Привет"},
        {"US-ASCII", "ASCII", "plain"},
    };
    for (const auto &c : cases) {
        for (const char *lineEnd : {"\n", "\r\n", "\r"}) {
            const std::string text = "<?xml version=\"1.0\" encoding=\""s + c.declared + "\"?>" +
                                     lineEnd + "<!--" + c.content + "--><a b='" + c.content + "'>" +
                                     lineEnd + c.content + "<b/>" + lineEnd + "</a>" + lineEnd;
            const std::string bytes = encoded(text, c.codec);
            EXPECT_EQ(reloaded(files, bytes), bytes) << c.declared;
        }
    }
    const std::string marked = "\xEF\xBB\xBF<a>\r\nあ</a>";
    EXPECT_EQ(reloaded(files, marked), marked);
    for (const char *codec : {"UTF-16LE", "UTF-16BE"}) {
        const std::string text = "\uFEFF<?xml version='1.0' encoding='UTF-16'?>\r\n<a>あ😀</a>\r\n";
        const std::string bytes = encoded(text, codec);
        EXPECT_EQ(reloaded(files, bytes), bytes) << codec;
        EXPECT_EQ(reloaded(files, bytes.substr(2)), bytes.substr(2)) << codec;
    }
}

TEST(RoundTrip, CharactersWithSeveralCodesKeepTheirOwn) {
    const Files files;
    // Two codes for each of these characters in Shift_JIS; an escape too many in ISO-2022-JP.
    const std::string sjis = "<?xml version='1.0' encoding='Shift_JIS'?><a b='\x81\xE6\x87\x9A'>"
                             "\xFA\x54\x81\xCA\xEE\xF9<b/>\xED\x40\xFA\x5C</a>";
    EXPECT_EQ(reloaded(files, sjis), sjis);
    DOMDocument40 document = DOMDocument40::create();
    ASSERT_TRUE(document.load(files.path("in.xml")));
    document.documentElement().setAttribute("c", "1");
    document.save(files.path("out.xml"));
    std::string expected = sjis;
    expected.insert(expected.find('>', expected.find("<a")), " c=\"1\"");
    EXPECT_EQ(files.read("out.xml"), expected);
    const std::string jis = "<?xml version='1.0' encoding='ISO-2022-JP'?>\n"
                            "<a>\x1B$B$\"\x1B(B\x1B$B$$\x1B(B</a>\n<!-- \x1B(B -->\n";
    EXPECT_EQ(reloaded(files, jis), jis);
}

// What is not encoded as it was read is looked for piece by piece.
TEST(RoundTrip, CharactersWithSeveralCodesAreFoundAnywhere) {
    const Files files;
    std::mt19937 random(7);
    const std::string parts[] = {"<b>",      "</b>",     ">",        "\x81\xE6",
                                 "\x87\x9A", "\xFA\x54", "\x81\xCA", "\x83\x5C",
                                 "\xED\x40", "plain ",   "\n",       "\xFA\x5C"};
    for (int round = 0; round < 60; ++round) {
        std::string bytes = "<?xml version='1.0' encoding='Shift_JIS'?><a>";
        int open = 0;
        for (auto count = random() % 60; count > 0; --count) {
            const std::string &part = parts[random() % std::size(parts)];
            if (part == "</b>" && open == 0)
                continue;
            open += part == "<b>" ? 1 : part == "</b>" ? -1 : 0;
            bytes += part;
        }
        while (open-- > 0)
            bytes += "</b>";
        bytes += "</a>";
        EXPECT_EQ(reloaded(files, bytes), bytes);
    }
}

TEST(RoundTrip, OneEditChangesItsOwnBytesOnly) {
    const Files files;
    const std::string before = "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\r\n"
                               "<r  a='1'\r\n    b = '2' >\r\n"
                               "\t<x></x>\r\n\r\n"
                               "\t<y >t&#101;xt</y>\r\n"
                               "\t<!-- c -->\r\n"
                               "</r>\r\n";
    const struct {
        std::string what;
        void (*edit)(DOMDocument40 &);
        std::string from;
        std::string to;
    } cases[] = {
        {"attribute", [](DOMDocument40 &d) { d.documentElement().setAttribute("b", "<\"'"); },
         "b = '2'", "b = '&lt;\"&apos;'"},
        {"new attribute", [](DOMDocument40 &d) { d.documentElement().setAttribute("c", "\t\n\""); },
         "b = '2'", "b = '2'\r\n    c=\"&#9;&#10;&quot;\""},
        {"removed attribute", [](DOMDocument40 &d) { d.documentElement().removeAttribute("a"); },
         "  a='1'", ""},
        {"text",
         [](DOMDocument40 &d) {
             d.documentElement().childNodes().item(1).firstChild().setText("あ😀\n&");
         },
         "t&#101;xt", "\x82\xA0&#128512;\r\n&amp;"},
        {"comment", [](DOMDocument40 &d) { d.documentElement().lastChild().setNodeValue("a--b-"); },
         "<!-- c -->", "<!--a- -b- -->"},
        {"filled", [](DOMDocument40 &d) { d.documentElement().firstChild().setText("]]>"); },
         "<x></x>", "<x>]]&gt;</x>"},
    };
    for (const auto &c : cases) {
        DOMDocument40 document = DOMDocument40::create();
        ASSERT_TRUE(document.load(files.write("in.xml", before)));
        c.edit(document);
        document.save(files.path("out.xml"));
        std::string expected = before;
        expected.replace(expected.find(c.from), c.from.size(), c.to);
        EXPECT_EQ(files.read("out.xml"), expected) << c.what;
    }
}

TEST(RoundTrip, NewLinesAreThoseOfTheFile) {
    const Files files;
    for (const std::string end : {"\r", "\n", "\r\n"}) {
        const auto lines = [&](const std::string &text) {
            std::string out;
            for (const char c : text)
                out += c == '\n' ? end : std::string(1, c);
            return out;
        };
        DOMDocument40 document = DOMDocument40::create();
        ASSERT_TRUE(document.load(files.write("in.xml", lines("<r>\n  <a>x\ny</a>\n</r>\n"))));
        const Node root = document.documentElement();
        EXPECT_EQ(root.text(), "x\ny");
        EXPECT_EQ(xml(document), "<r>\n  <a>x\ny</a>\n</r>\n");
        root.appendChild(document.createElement("b"));
        root.firstChild().firstChild().setText("1\r2\n3");
        root.appendChild(document.createComment("c\nd"));
        document.save(files.path("out.xml"));
        EXPECT_EQ(files.read("out.xml"),
                  lines("<r>\n  <a>1\n2\n3</a>\n  <b/>\n  <!--c\nd-->\n</r>\n"));
    }
}

TEST(Encoding, WhatTheEncodingCannotHoldIsReferredToOrRefused) {
    const Files files;
    const std::string old = "<?xml version='1.0' encoding='Shift_JIS'?><a/>";
    DOMDocument40 document = DOMDocument40::create();
    ASSERT_TRUE(document.load(files.write("a.xml", old)));
    const DOMDocument40 typed = parsed("<a b='\u301C'>é<c/>é</a>");
    document.setDocumentElement(typed.documentElement());
    document.save(files.path("b.xml"));
    EXPECT_EQ(files.read("b.xml"), "<?xml version='1.0' encoding='Shift_JIS'?>"
                                   "<a b='&#12316;'>&#233;<c/>&#233;</a>");
    document.documentElement().appendChild(document.createComment("é"));
    try {
        document.save(files.path("a.xml"));
        FAIL() << "a comment cannot hold the character";
    } catch (const runtime::Error &error) {
        EXPECT_TRUE(error.description().contains("é")) << error.what();
        EXPECT_TRUE(error.description().contains("00E9")) << error.what();
    }
    EXPECT_EQ(files.read("a.xml"), old);
    EXPECT_EQ(files.names(), QStringList({"a.xml", "b.xml"}));
}

TEST(Encoding, TheDeclarationDecidesForTextAndAfterAChange) {
    const Files files;
    DOMDocument40 text = parsed("<?xml version='1.0' encoding='Shift_JIS'?><a>\xE3\x81\x82</a>");
    EXPECT_EQ(text.serialize(), "<?xml version='1.0' encoding='Shift_JIS'?><a>\x82\xA0</a>");
    EXPECT_EQ(parsed("<a>\xE3\x81\x82</a>").serialize(), "<a>\xE3\x81\x82</a>");
    const QByteArray utf16 = parsed("<?xml version='1.0' encoding='UTF-16'?><a/>").serialize();
    EXPECT_EQ(utf16.left(4), QByteArray("\xFF\xFE<\0", 4));
    DOMDocument40 changed = DOMDocument40::create();
    ASSERT_TRUE(changed.load(
        files.write("a.xml", "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?><a>é</a>")));
    changed.node().replaceChild(
        changed.createProcessingInstruction("xml", "version=\"1.0\" encoding=\"ISO-8859-1\""),
        changed.node().firstChild());
    EXPECT_EQ(changed.serialize(), "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE9</a>");
}

TEST(Encoding, WrongBytesAndUnknownNamesAreParseFailures) {
    const Files files;
    const struct {
        const char *bytes;
        int line;
    } cases[] = {
        {"<?xml version='1.0' encoding='no-such'?><a/>", 1},
        {"<?xml version='1.0' encoding='utf-7'?><a/>", 1},
        {"<?xml version='1.0' encoding='utf7'?><a/>", 1},
        {"<?xml version='1.0' encoding='ISO-2022-KR'?>\n<!--\x1B$)C--><a>\x0E\x30\x21\x0F</a>", 1},
        {"<?xml version='1.0' encoding='windows-9'?><a/>", 1},
        {"<?xml version='1.0' encoding='UTF-16'?><a/>", 1},
        {"<?xml version='1.0' encoding='Shift_JIS'?>\n<a>\n\x82</a>", 3},
        {"<?xml version='1.0' encoding='EUC-JP'?>\n<a>\xFF\xFF</a>", 2},
        {"<a>\n\xE3\x81</a>", 2},
        {"\xFF\xFE<\0a\0/\0", 0},
        {"<a>\x01</a>", 1},
    };
    for (const auto &c : cases) {
        DOMDocument40 document = DOMDocument40::create();
        EXPECT_FALSE(document.load(files.write("a.xml", c.bytes))) << c.bytes;
        EXPECT_NE(document.parseError().errorCode, 0);
        EXPECT_FALSE(document.parseError().reason.isEmpty());
        if (c.line != 0) {
            EXPECT_EQ(document.parseError().line, c.line) << c.bytes;
        }
        EXPECT_EQ(document.xml(), "");
    }
}

TEST(Save, ReplacesTheFileWholeOrNotAtAll) {
    const Files files;
    files.write("old.xml", "<old/>");
    const DOMDocument40 document = parsed("<new/>");
    ASSERT_EQ(::chmod(files.path("old.xml").toUtf8().constData(), 0640), 0);
    ASSERT_EQ(::symlink("old.xml", files.path("link.xml").toUtf8().constData()), 0);
    document.save(files.path("link.xml"));
    EXPECT_EQ(files.read("old.xml"), "<new/>");
    EXPECT_TRUE(QFileInfo(files.path("link.xml")).isSymbolicLink());
    struct stat status {};
    ASSERT_EQ(::stat(files.path("old.xml").toUtf8().constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);

    ASSERT_EQ(::chmod(files.path("old.xml").toUtf8().constData(), 0440), 0);
    EXPECT_THROW(parsed("<x/>").save(files.path("old.xml")), runtime::Error);
    EXPECT_EQ(files.read("old.xml"), "<new/>");
    document.save(files.path("old.xml"), {.readOnly = ReadOnlyFile::Replace});
    ASSERT_EQ(::stat(files.path("old.xml").toUtf8().constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);

    const DOMDocument40 large = parsed("<a>" + std::string(100'000, 'x') + "</a>");
    rlimit old{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const rlimit full{4096, old.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &full), 0);
    EXPECT_THROW(large.save(files.path("old.xml")), runtime::Error);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &old), 0);
    EXPECT_EQ(files.read("old.xml"), "<new/>");
    EXPECT_EQ(files.names(), QStringList({"link.xml", "old.xml"}));

    EXPECT_THROW(document.save(files.path("no/such/folder.xml")), runtime::Error);
    EXPECT_THROW(document.save(files.path("")), runtime::Error);
    EXPECT_THROW(document.save("/dev/full"), runtime::Error);
}

TEST(Load, TellsWhereAndWhyItStopped) {
    const struct {
        const char *text;
        int line;
        int column;
        const char *reason;
    } cases[] = {
        {"", 1, 1, "最上位の要素"},
        {"<a>\n<b></a>", 2, 6, "終了タグ"},
        {"<a/>\n<b/>", 2, 1, "最上位"},
        {"<a b='1' b='2'/>", 1, 10, "重複"},
        {"<a>&nope;</a>", 1, 4, "未定義の実体"},
        {"<a>", 1, 4, "途中"},
        {"<あ>\n <い></う>\n</あ>", 2, 7, "終了タグ"},
        {" <?xml version='1.0'?><a/>", 1, 2, "XML 宣言"},
        {"plain text", 1, 1, "構文"},
    };
    for (const auto &c : cases) {
        DOMDocument40 document = DOMDocument40::create();
        EXPECT_FALSE(document.loadXML(QByteArray(c.text))) << c.text;
        const ParseError &error = document.parseError();
        EXPECT_EQ(error.line, c.line) << c.text;
        EXPECT_EQ(error.linepos, c.column) << c.text;
        EXPECT_TRUE(error.reason.contains(q(c.reason))) << c.text << error.reason.toStdString();
        EXPECT_FALSE(document.documentElement());
    }
    DOMDocument40 missing = DOMDocument40::create();
    EXPECT_FALSE(missing.load("/no/such/file.xml"));
    EXPECT_EQ(missing.parseError().line, 0);
    EXPECT_EQ(missing.parseError().url, "/no/such/file.xml");
    EXPECT_TRUE(missing.loadXML(QByteArray("<a/>")));
    EXPECT_EQ(missing.parseError().errorCode, 0);
}

/// The parser gets long texts in pieces. Whatever stands where one ends is read as if it did not.
TEST(RoundTrip, LongTextsAreReadAsShortOnes) {
    constexpr std::size_t Piece = 1 << 20;
    const std::string markup = "<名 属='値&amp;'>文&lt;字\n<!--注--><![CDATA[節]]><?命令 x?></名>";
    const std::string faulty = "<名>字&undefined;";
    const auto structure = [](const DOMDocument40 &document) {
        std::string out;
        for (Node at = document.documentElement().firstChild().nextSibling(); at;
             at = at.hasChildNodes() ? at.firstChild() : at.nextSibling())
            out += at.nodeName().toStdString() + "=" + at.text().toStdString() + "\n";
        return out;
    };
    const auto text = [&](std::size_t filler, const std::string &content) {
        return "<r><!--" + std::string(filler, 'x') + "-->" + content + "</r>";
    };
    const DOMDocument40 expected = parsed(text(0, markup));
    DOMDocument40 wrong = DOMDocument40::create();
    wrong.loadXML(QByteArray::fromStdString(text(0, faulty)));
    const int column = wrong.parseError().linepos;
    ASSERT_GT(column, 0);
    for (std::size_t ahead = 0; ahead <= markup.size(); ++ahead) {
        const std::size_t filler = Piece - text(0, "").size() - ahead + 4;
        const DOMDocument40 document = parsed(text(filler, markup));
        ASSERT_EQ(structure(document), structure(expected)) << ahead;
        ASSERT_TRUE(xml(document) == text(filler, markup)) << ahead;
    }
    for (std::size_t ahead = 0; ahead <= faulty.size() + 4; ++ahead) {
        const std::size_t filler = Piece - text(0, "").size() - ahead + 4;
        DOMDocument40 document = DOMDocument40::create();
        EXPECT_FALSE(document.loadXML(QByteArray::fromStdString(text(filler, faulty))));
        EXPECT_EQ(document.parseError().reason, wrong.parseError().reason) << ahead;
        EXPECT_EQ(document.parseError().linepos, column + int(filler)) << ahead;
    }
}

} // namespace

} // namespace quillon::xml::test
