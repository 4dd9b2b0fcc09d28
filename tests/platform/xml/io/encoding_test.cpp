#include "platform/runtime/error.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml::test {

namespace {

using namespace std::string_literals;

std::string declared(const std::string &encoding) {
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>\n";
}

std::string replaced(std::string text, const std::string &from, const std::string &to) {
    return text.replace(text.find(from), from.size(), to);
}

DOMDocument40 loaded(const Files &files, const std::string &bytes) {
    DOMDocument40 document = DOMDocument40::create();
    EXPECT_TRUE(document.load(files.write("in.xml", bytes)))
        << document.parseError().reason.toStdString() << bytes;
    return document;
}

TEST(ShiftStates, KeepTheirBytesUnderEveryName) {
    const Files files;
    // The Roman set, in which a backslash is a yen sign, stays in force to the end, or to the next
    // line; escapes stand where none is needed, and a kanji looks like the end of a tag.
    const std::string bodies[] = {
        "<r>\n<a>\x1B$BF|K\\\x1B(J</a>\n<b>keep me</b>\n</r>\n",
        "<r>\n<a>\x1B$BF|K\\\x1B(J\\</a>\n<b>\\ ~</b>\n\x1B(B</r>\n",
        "<r><a>\x1B(B\x1B$B0>\x1B(B\x1B$B0<\x1B(B</a>\n<b>\x1B(B</b></r>\x1B(J\n\x1B(B",
        "<!DOCTYPE r [<!ATTLIST r d CDATA 'v'>]><r><a>\x1B(J\\</a>\n<b>\\</b>\x1B(B</r>",
    };
    for (const char *name :
         {"ISO-2022-JP", "csISO2022JP", "ISO2022JP", "ISO-2022-JP-2", "ISO-2022-JP-3"}) {
        for (const std::string &body : bodies)
            EXPECT_EQ(reloaded(files, declared(name) + body), declared(name) + body);
        std::string lines;
        for (int i = 0; i < 1000; ++i)
            lines += "<l n='" + std::to_string(i) + "'>\x1B$B$\"\x1B(J\\\x1B$B$$" +
                     (i % 3 ? "\x1B(J" : "\x1B(B") + "</l>" + (i % 10 ? "" : "\n");
        lines = declared(name) + "<r>" + lines + "</r>";
        EXPECT_EQ(reloaded(files, lines), lines);
    }
    const std::string chinese = declared("ISO-2022-CN") +
                                "<r>\n<a>\x1B$)A\x0EVP\x0F</a>\n<b>\x0EVP\x0F "
                                "\x1B$)A\x0EVP\x0F</b>\n</r>\n";
    EXPECT_EQ(reloaded(files, chinese), chinese);
}

TEST(ShiftStates, WhatFollowsAnEditStartsInItsOwn) {
    const Files files;
    const std::string start = declared("csISO2022JP") + "<r>\n<a k='1'>\x1B$BF|K\\\x1B(J\\</a>\n";
    const std::string before = start + "<b>\\x</b><c/>\n</r>\n";
    const struct {
        const char *what;
        void (*edit)(const Node &root);
        std::string after;
    } cases[] = {
        {"text", [](const Node &root) { root.childNodes().item(1).setText("\\日"); },
         start + "<b>\x1B(B\\\x1B$BF|\x1B(B\x1B(J</b><c/>\n</r>\n"},
        {"attribute", [](const Node &root) { root.firstChild().setAttribute("k", "2"); },
         replaced(before, "k='1'", "k='2'")},
        {"removed", [](const Node &root) { root.removeChild(root.firstChild()); },
         declared("csISO2022JP") + "<r>\x1B(J\n<b>\\x</b><c/>\n</r>\n"},
        {"moved", [](const Node &root) { root.insertBefore(root.lastChild(), root.firstChild()); },
         declared("csISO2022JP") +
             "<r>\n\x1B(J<c/>\x1B(B\n<a k='1'>\x1B$BF|K\\\x1B(J\\</a>\n<b>\\x</b>\n</r>\n"},
    };
    for (const auto &c : cases) {
        DOMDocument40 document = loaded(files, before);
        c.edit(document.documentElement());
        const std::string saved = document.serialize().toStdString();
        EXPECT_EQ(saved, c.after) << c.what;
        EXPECT_EQ(xml(loaded(files, saved)), xml(document)) << c.what;
    }
}

TEST(Encodings, WithOneCodeForTwoCharactersLoseNone) {
    const Files files;
    // A letter and its accent, together and apart; the same with a kana and its mark.
    const std::string vietnamese = declared("CP1258") + "<r>\n<a>e\xCC \xE9</a></r>";
    const std::string japanese = declared("SHIFT_JISX0213") + "<r>\n<a>\x82\xA9\x82\xF5</a></r>";
    EXPECT_EQ(reloaded(files, vietnamese), vietnamese);
    EXPECT_EQ(reloaded(files, japanese), japanese);
    DOMDocument40 document = loaded(files, vietnamese);
    const Node text = document.documentElement().firstChild().firstChild();
    text.setNodeValue("e\u0301 x\ne\u0301");
    EXPECT_EQ(document.serialize(), "<?xml version=\"1.0\" encoding=\"CP1258\"?>\n"
                                    "<r>\n<a>e&#769; x\ne&#769;</a></r>");
    text.parentNode().appendChild(document.createComment("e\u0301"));
    EXPECT_THROW(document.serialize(), runtime::Error);
}

TEST(Encodings, AreDeclaredHoweverFarInTheDeclaration) {
    const Files files;
    const std::string far =
        "<?xml version='1.0'" + std::string(2000, ' ') + "encoding='Shift_JIS'?><a>\x82\xA0</a>";
    EXPECT_EQ(reloaded(files, far), far);
    EXPECT_EQ(loaded(files, far).node().text(), q("あ"));
}

TEST(Encodings, AMarkInTheTextIsACharacter) {
    const Files files;
    const QString mark(QChar::ByteOrderMark);
    const std::string text = "<r>\uFEFFtext<b c=\"&#xFEFF;\"/>\uFEFF\uFEFF</r>";
    DOMDocument40 document = loaded(files, text);
    const Node root = document.documentElement();
    EXPECT_EQ(root.firstChild().nodeValue(), mark + "text");
    EXPECT_EQ(root.text(), mark + "text" + mark + mark);
    EXPECT_EQ(root.childNodes().item(1).getAttribute("c"), mark);
    root.childNodes().item(1).setAttribute("d", mark + "&");
    EXPECT_EQ(document.serialize().toStdString(),
              replaced(text, "c=\"&#xFEFF;\"", "c=\"&#xFEFF;\" d=\"\uFEFF&amp;\""));
    // Where the encoding lacks it, a reference stands for it.
    for (const char *encoding : {"Shift_JIS", "ISO-8859-1", "EUC-JP", "ISO-2022-JP"}) {
        const std::string saved = parsed(declared(encoding) + text).serialize().toStdString();
        EXPECT_EQ(saved, declared(encoding) + "<r>&#65279;text<b c=\"&#xFEFF;\"/>"
                                              "&#65279;&#65279;</r>");
        EXPECT_EQ(loaded(files, saved).node().text(), root.text());
    }
}

} // namespace

} // namespace quillon::xml::test
