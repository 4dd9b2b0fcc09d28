#include "platform/runtime/error.h"
#include "platform/xml/dom/encoding_change.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml::test {

namespace {

DOMDocument40 loaded(const Files &files, const std::string &bytes) {
    DOMDocument40 d = DOMDocument40::create();
    EXPECT_TRUE(d.load(files.write("in.xml", bytes))) << d.parseError().reason.toStdString();
    return d;
}

std::string saved(const Files &files, const DOMDocument40 &d) {
    d.save(files.path("out.xml"));
    return files.read("out.xml");
}

/// "node kind or name:character@line:column" for each, with a "&" where a reference is written.
std::string found(const DOMDocument40 &d, const char *name, std::size_t most = 100) {
    std::string all;
    for (const UnheldCharacter &one : checkEncoding(d, {name}, most).characters) {
        all += one.node.nodeName().toStdString() + ":" +
               QString::fromUcs4(&one.character, 1).toStdString() + "@" + std::to_string(one.line) +
               ":" + std::to_string(one.column) + (one.becomesReference ? "& " : " ");
    }
    return all;
}

TEST(EncodingChange, IsWhatIsSavedAndReadBack) {
    const std::string body = "<r a='漢'>日本語<!-- 語 --><b/>\r\n</r>";
    const struct {
        FileEncoding encoding;
        const char *before;
        const char *declaration;
        const char *start;
    } cases[] = {
        {{"Shift_JIS"},
         "<?xml version='1.0'?>\r\n",
         "<?xml version='1.0' encoding=\"Shift_JIS\"?>\r\n",
         "<?xml"},
        {{"EUC-JP"},
         "<?xml version='1.0' encoding='UTF-8'  standalone='yes'?>",
         "<?xml version='1.0' encoding='EUC-JP'  standalone='yes'?>",
         "<?xml"},
        {{"ISO-2022-JP"}, "", "<?xml version=\"1.0\" encoding=\"ISO-2022-JP\"?>\n", "<?xml"},
        {{"UTF-8"}, "", "", "<r"},
        {{"UTF-8", true}, "<?xml version='1.0'?>", "<?xml version='1.0'?>", "\xEF\xBB\xBF<?xml"},
        {{"UTF-16", true},
         "\r\n",
         "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n",
         "\xFF\xFE<"},
        {{"UTF-16", true, true},
         "<?xml version='1.0'?>",
         "<?xml version='1.0' encoding=\"UTF-16\"?>",
         "\xFE\xFF"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.declaration);
        const Files files;
        const DOMDocument40 d = loaded(files, c.before + body);
        const DOMDocument40 before = d.clone();
        changeEncoding(d, c.encoding, LineEnds::Keep);
        const std::string bytes = saved(files, d);
        EXPECT_TRUE(bytes.starts_with(c.start)) << bytes;
        DOMDocument40 again = DOMDocument40::create();
        ASSERT_TRUE(again.load(files.path("out.xml"))) << again.parseError().reason.toStdString();
        std::string unified = c.declaration + body;
        unified.erase(std::remove(unified.begin(), unified.end(), '\r'), unified.end());
        EXPECT_EQ(xml(again), unified);
        EXPECT_TRUE(isSameEncoding(fileEncodingOf(again), c.encoding));
        // And back: the file that was there, but for what the declaration says.
        EXPECT_EQ(saved(files, before), c.before + body);
        changeEncoding(again, {"UTF-8"}, LineEnds::Keep);
        EXPECT_EQ(saved(files, again).substr(saved(files, again).find("<r")), body);
    }
}

TEST(EncodingChange, UnifiesLineEndsAndLeavesRareCodesAlone) {
    const Files files;
    const std::string declaration = "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>";
    DOMDocument40 d = loaded(files, declaration + "\n<r a='\xED\x40\n'>\r\n\xED\x40\r<b/>\n</r>\r");
    d.documentElement().appendChild(d.createComment("x\ny"));
    changeEncoding(d, fileEncodingOf(d), LineEnds::CRLF);
    EXPECT_EQ(saved(files, d), declaration + "\r\n<r a='\xED\x40\r\n'>\r\n\xED\x40\r\n<b/>"
                                             "<!--x\r\ny-->\r\n</r>\r\n");
    changeEncoding(d, {"UTF-8"}, LineEnds::LF);
    const std::string utf8 = saved(files, d);
    EXPECT_EQ(utf8.find('\r'), utf8.npos);
    EXPECT_NE(utf8.find("encoding=\"UTF-8\"?>\n<r a='纊\n'>\n纊\n"), utf8.npos) << utf8;
}

TEST(EncodingChange, FindsWhatTheEncodingLacksAheadOfTime) {
    const Files files;
    const std::string text = "<?xml version='1.0'?>\n"
                             "<!DOCTYPE r [<!ENTITY e '😀'>]>\n"
                             "<r a='1' b='é&#x1F600;'>漢字é\n 😀😀<é/>&e;</r>";
    const DOMDocument40 d = loaded(files, text);
    EXPECT_EQ(found(d, "Shift_JIS"),
              "r:😀@2:26 b:é@3:13& #text:é@3:27& #text:😀@4:2& #text:😀@4:3& é:é@4:5 ");
    EXPECT_EQ(found(d, "ISO-8859-1"),
              "r:😀@2:26 #text:漢@3:25& #text:字@3:26& #text:😀@4:2& #text:😀@4:3& ");
    EXPECT_EQ(found(d, "UTF-16"), "");
    EXPECT_FALSE(checkEncoding(d, {"Shift_JIS"}, 2).isWhole);
    try {
        changeEncoding(d, {"Shift_JIS"}, LineEnds::LF);
        ADD_FAILURE() << "it cannot be saved";
    } catch (const runtime::Error &error) {
        EXPECT_NE(error.description().indexOf("1F600"), -1);
    }
    EXPECT_EQ(saved(files, d), text);

    // What becomes a reference is the same when it is read again; an attribute that was set, too.
    const DOMDocument40 e = loaded(files, "<r a='é'>漢😀<c/></r>");
    e.documentElement().setAttribute("b", "é");
    EXPECT_EQ(found(e, "Shift_JIS"), "a:é@1:7& b:é@0:0& #text:😀@1:11& ");
    const std::string before = xml(e.documentElement());
    changeEncoding(e, {"Shift_JIS"}, LineEnds::Keep);
    saved(files, e);
    DOMDocument40 again = DOMDocument40::create();
    ASSERT_TRUE(again.load(files.path("out.xml")));
    EXPECT_EQ(again.documentElement().getAttribute("b"), QString("é"));
    EXPECT_EQ(again.documentElement().text(), QString("漢😀"));
}

TEST(EncodingChange, MendsADeclarationThatCannotBeSaved) {
    const Files files;
    const DOMDocument40 d = parsed("<?xml version='1.0'?><r>漢</r>");
    d.node().replaceChild(
        d.createProcessingInstruction("xml", "version='1.0' encoding='x-nobody-knows'"),
        d.node().firstChild());
    EXPECT_THROW(fileEncodingOf(d), runtime::Error);
    changeEncoding(d, {"EUC-JP"}, LineEnds::Keep);
    EXPECT_EQ(saved(files, d), "<?xml version='1.0' encoding='EUC-JP'?><r>\xB4\xC1</r>");
}

} // namespace

} // namespace quillon::xml::test
