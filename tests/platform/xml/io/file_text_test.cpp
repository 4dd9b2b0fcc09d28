#include "platform/runtime/error.h"
#include "platform/xml/io/file_text.h"

#include <gtest/gtest.h>

namespace quillon::xml {

namespace {

using namespace std::string_literals;

std::string replaced(std::string text, std::string_view old, std::string_view now) {
    const std::size_t at = text.find(old);
    EXPECT_NE(at, text.npos) << old << " in " << text;
    return text.replace(at, old.size(), now);
}

/// ASCII as UTF-16.
std::string utf16(std::string_view ascii, bool isBigEndian) {
    std::string out = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : ascii)
        out += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    return out;
}

std::string declared(std::string_view encoding, std::string_view rest) {
    return "<?xml version=\"1.0\" encoding=\"" + std::string(encoding) + "\"?>" + std::string(rest);
}

TEST(FileText, OnlyWhatIsEditedIsWrittenAnew) {
    struct Case {
        const char *what;
        std::string bytes;
        /// In the text, and what becomes of it there and in the file.
        std::string old;
        std::string now;
        std::string bytesNow;
    };
    // 0x81CA and 0xEEF9 are one character in CP932, as are 0x8790 and 0x81E0.
    const std::string duplicates = "\xEE\xF9\x87\x90\x81\xCA";
    const Case cases[] = {
        {"UTF-8 with CR LF", "<r>\r\n<a>\r\n</r>\r\n", "<a>", "<a>\n</a>",
         "<r>\r\n<a>\r\n</a>\r\n</r>\r\n"},
        {"a mark and mixed line ends", "\xEF\xBB\xBF<r>\r\n<a>\n<b>\r</r>", "<b>", "<b/>",
         "\xEF\xBB\xBF<r>\r\n<a>\n<b/>\r</r>"},
        {"UTF-16LE", utf16("<r>\r\n<a>", false), "<a>", "<a/>", utf16("<r>\r\n<a/>", false)},
        {"UTF-16BE", utf16("<r><a>", true), "<a>", "<a/>", utf16("<r><a/>", true)},
        {"Shift_JIS with two codes for one character",
         declared("Shift_JIS", "\n<r t=\"" + duplicates + "\">\n<a>" + duplicates + "\n</r>"),
         "<a>", "<a>あ",
         declared("Shift_JIS",
                  "\n<r t=\"" + duplicates + "\">\n<a>\x82\xA0" + duplicates + "\n</r>")},
        {"EUC-JP", declared("EUC-JP", "<r>\xA4\xA2<a>\xA4\xA2</r>"), "<a>", "<a>い",
         declared("EUC-JP", "<r>\xA4\xA2<a>\xA4\xA4\xA4\xA2</r>")},
        // One escape sequence more than need be, which stays.
        {"ISO-2022-JP", declared("ISO-2022-JP", "<r>\x1B$B$\"\x1B(B\x1B$B$\"\x1B(B<a></r>"), "<a>",
         "<a>あ</a>",
         declared("ISO-2022-JP", "<r>\x1B$B$\"\x1B(B\x1B$B$\"\x1B(B<a>\x1B$B$\"\x1B(B</a></r>")},
        {"a NUL", "<r>\0<a></r>"s, "<a>", "<a/>", "<r>\0<a/></r>"s},
        {"nothing", "", "", "<r/>", "<r/>"},
    };
    for (const Case &c : cases) {
        const auto text = FileText::of(c.bytes);
        ASSERT_TRUE(text) << c.what;
        const std::string shown = text->shown();
        EXPECT_EQ(shown.find('\r'), shown.npos) << c.what;
        EXPECT_EQ(text->bytesOf(shown), c.bytes) << c.what;
        EXPECT_EQ(text->bytesOf(replaced(shown, c.old, c.now)), c.bytesNow) << c.what;
    }
}

TEST(FileText, BytesThatDoNotDecodeAreShownAndWrittenUnchanged) {
    struct Case {
        const char *what;
        std::string bytes;
        std::string undecodable;
        bool dependsOnPlace = false;
    };
    const Case cases[] = {
        {"UTF-8", "<r>\xE3\x81\x82\x8F<a>\xE3\x81\r\n\xED\xA0\x80</r>", "\x8F\xE3\x81\xED\xA0\x80"},
        {"Shift_JIS", declared("Shift_JIS", "<r>\x82\xA0\x8F<a>\xEE\xF9\xFF</r>"), "\x8F\xFF"},
        {"EUC-JP", declared("EUC-JP", "<r>\xA4\xA2\xA4<a></r>"), "\xA4"},
        {"a pair in ISO-2022-JP",
         declared("ISO-2022-JP", "<r>\x1B$B$\"\x7E\x7E$\"\x1B(B<a>\xFF</r>"), "\x7E\x7E\xFF", true},
        {"half a pair in UTF-16", utf16("<r>", false) + "\x00\xD8"s + "<\0a\0>"s, "\x00\xD8>"s,
         true},
    };
    for (const Case &c : cases) {
        const auto text = FileText::of(c.bytes);
        ASSERT_TRUE(text) << c.what;
        const std::string shown = text->shown();
        const ByteCharacters &characters = text->byteCharacters();
        std::string undecodable;
        std::size_t at = 0;
        for (; (at = characters.find(shown, at)) != shown.npos; at += ByteCharacters::Length)
            undecodable += characters.byteAt(shown, at);
        EXPECT_EQ(undecodable, c.undecodable) << c.what;
        EXPECT_EQ(text->bytesOf(shown), c.bytes) << c.what;
        // They move with the text around them, where a byte does not depend on what is ahead of it.
        const std::string twice = shown + "\n" + shown;
        EXPECT_EQ(FileText::of(text->bytesOf(twice))->shown() == twice, !c.dependsOnPlace)
            << c.what;
        const std::size_t first = characters.find(shown);
        std::string without = shown;
        without.erase(first, ByteCharacters::Length);
        EXPECT_EQ(text->bytesOf(without).size(), c.bytes.size() - 1) << c.what;
    }
    // The text's own characters of private use are no bytes.
    const auto own = FileText::of("<r>\xEF\x9E\x8F\x8F</r>");
    EXPECT_EQ(own->bytesOf(own->shown()), "<r>\xEF\x9E\x8F\x8F</r>");
}

TEST(FileText, ANewDeclarationConvertsOrSaysWhatTheBytesAre) {
    const std::string sjis = "<r>\x82\xA0</r>";
    const std::string utf8 = "<r>あ</r>";
    struct Case {
        std::string bytes;
        std::string now;
        std::string bytesNow;
    };
    for (const Case &c : {
             Case{declared("utf-8", sjis), "Shift_JIS", declared("Shift_JIS", sjis)},
             Case{declared("utf-8", utf8), "Shift_JIS", declared("Shift_JIS", sjis)},
             Case{declared("Shift_JIS", sjis), "utf-8", declared("utf-8", utf8)},
             Case{declared("Shift_JIS", utf8), "utf-8", declared("utf-8", utf8)},
             Case{declared("x-nobody", sjis), "Shift_JIS", declared("Shift_JIS", sjis)},
             Case{declared("x-nobody", utf8), "utf-8", declared("utf-8", utf8)},
             Case{declared("utf-8", utf8), "x-nobody", declared("x-nobody", utf8)},
         }) {
        const auto text = FileText::of(c.bytes);
        ASSERT_TRUE(text) << c.bytes;
        EXPECT_EQ(text->bytesOf(replaced(text->shown(), '"' + text->declaredEncoding() + '"',
                                         '"' + c.now + '"')),
                  c.bytesNow);
    }
    EXPECT_FALSE(FileText::of(declared("x-nobody", sjis))->declarationError().isNull());
    EXPECT_FALSE(FileText::of(declared("utf-16", utf8))->declarationError().isNull());
    EXPECT_TRUE(FileText::of(declared("sjis", sjis))->declarationError().isNull());
}

TEST(FileText, SaysWhatItsEncodingDoesNotHave) {
    const auto text = FileText::of(declared("Shift_JIS", "<r>\x82\xA0</r>"));
    const std::string edited = replaced(text->shown(), "あ", "あ한い");
    const auto found = text->firstUnencodable(edited);
    ASSERT_TRUE(found);
    EXPECT_EQ(edited.substr(found->start, found->length), "한");
    EXPECT_THROW(text->bytesOf(edited), runtime::Error);
    EXPECT_FALSE(text->firstUnencodable(text->shown()));
}

TEST(FileText, OtherFilesAreNoText) {
    std::string japanese = "<r>";
    for (int i = 0; i < 1000; ++i)
        japanese += "\x93\xFA\x96\x7B\x8C\xEA";
    EXPECT_TRUE(FileText::of(japanese)) << "in an encoding that it does not tell";
    std::string random;
    for (unsigned i = 0, value = 1; i < 4096; ++i, value = value * 1103515245 + 12345)
        random += static_cast<char>(value >> 16);
    const std::string image = "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\x10\0\0\0\x10\x08\x06\0\0\0"s;
    const std::string program = "\x7F"
                                "ELF\2\1\1\0\0\0\0\0\0\0\0\0\3\0>\0\1\0\0\0"s;
    for (const std::string &bytes :
         {random, image + image, program + program, "\xFF\xFE\0\0<\0\0\0"s})
        EXPECT_FALSE(FileText::of(bytes));
}

} // namespace

} // namespace quillon::xml
