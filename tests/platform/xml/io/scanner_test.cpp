#include "platform/xml/io/encoding.h"
#include "platform/xml/io/scanner.h"
#include "tests/platform/xml/io/both_parsers.h"
#include "tests/platform/xml/io/random_text.h"

#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

namespace quillon::xml::test {

namespace {

using namespace std::string_literals;

ScanResult scanned(const std::string &text, const runtime::Progress &progress = {}) {
    Arena arena;
    const Ref<SourceText> source(new SourceText);
    source->utf8 = text;
    NodeAppender nodes(arena, source);
    const std::optional<Prolog> prolog = parseProlog(arena, nodes, text);
    return prolog ? scanElements(arena, nodes, text, prolog->end, prolog->subset, progress)
                  : ScanResult::NotUnderstood;
}

std::string utf8(char32_t c) {
    return QString::fromUcs4(&c, 1).toStdString();
}

TEST(Scanner, ReadsWhatTheParserReadsInTheSameWay) {
    for (unsigned seed = 1; seed <= 250; ++seed) {
        RandomText random(seed);
        const std::string text = random.document();
        ASSERT_TRUE(random.hasNewerNames() || scanned(text) == ScanResult::Read) << text;
        ASSERT_EQ(faultOfReading(text, seed % 4 == 0), "") << seed << "\n" << text;
        for (int i = 0; i < 15; ++i) {
            const std::string damaged = random.damaged(text);
            ASSERT_EQ(faultOfReading(damaged), "") << seed << "\n" << damaged;
        }
    }
}

TEST(Scanner, ReadsTheFilesThatThereAre) {
    int count = 0;
    for (const char *folder : {"resources", "fuzz/seeds", "packaging"}) {
        QDirIterator files(QStringLiteral(SOURCE_DIR "/") + QLatin1String(folder), QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const std::string text = decodeFile(file.readAll().toStdString()).utf8;
            EXPECT_EQ(faultOfReading(text), "") << file.fileName().toStdString();
            ++count;
        }
    }
    EXPECT_GT(count, 50);
}

TEST(Scanner, AcceptsTheCharactersThatTheParserAccepts) {
    for (char32_t c = 1; c < 0x10FFFF; c += c < 0x10010 ? 1 : 0x777) {
        if (c >= 0xD800 && c <= 0xDFFF)
            continue;
        const std::string character = utf8(c);
        if (c < 0x100 || c % 16 == 0 || c > 0xFFF0) {
            ASSERT_EQ(faultOfReading("<a b='" + character + "'>" + character + "</a>"), "")
                << unsigned(c);
        }
        // The tables of names of the two editions differ; the newer one has all of the older.
        ASSERT_TRUE(isNameCharacter(c) || !expatReads("<a" + character + "b/>")) << unsigned(c);
        ASSERT_TRUE(isNameStart(c) || !expatReads("<" + character + "/>")) << unsigned(c);
        ASSERT_TRUE(isNameCharacter(c) || !isNameStart(c)) << unsigned(c);
    }
    // Every beginning of a character, well-formed or not, and what may be made of it.
    for (int lead = 0x80; lead < 0x100; ++lead) {
        for (const int second : {0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0}) {
            for (const char *rest : {"", "\x80", "\xBD", "\xBE", "\xBF", "\x80\x80", "\xBF\xBF"}) {
                const std::string bytes = std::string() + char(lead) + char(second) + rest;
                for (const std::string &text :
                     {"<a>" + bytes + "</a>", "<a><!--" + bytes + "--></a>",
                      "<a b='" + bytes + "'/>", "<" + bytes + "/>", "<a" + bytes + "/>",
                      "<a>" + bytes})
                    ASSERT_EQ(faultOfReading(text), "") << lead << " " << second;
            }
        }
    }
}

TEST(Scanner, LeavesWhatItDoesNotUnderstandToTheParser) {
    const std::string texts[] = {
        "",
        " ",
        "a",
        "<",
        "<a",
        "<a>",
        "</a>",
        "<a/><a/>",
        "<a/>x",
        "x<a/>",
        "<a></b>",
        "<a></aa>",
        "<aa></a>",
        "<a></a",
        "<a b/>",
        "<a b=c/>",
        "<a b='c/>",
        "<a b='<'/>",
        "<a b=''c=''/>",
        "<a b='' b=''/>",
        "<a / >",
        "< a/>",
        "<a></ a>",
        "<a>]]></a>",
        "<a>]]]></a>",
        "<a>&</a>",
        "<a>&e;</a>",
        "<a>&lt</a>",
        "<a>&LT;</a>",
        "<a>&#;</a>",
        "<a>&#x;</a>",
        "<a>&#X41;</a>",
        "<a>&#0;</a>",
        "<a>&#8;</a>",
        "<a>&#xD800;</a>",
        "<a>&#xFFFE;</a>",
        "<a>&#x110000;</a>",
        "<a>&#99999999999999999999;</a>",
        "<a b='&e;'/>",
        "<a><!-- -- --></a>",
        "<a><!-- ---></a>",
        "<a><!-></a>",
        "<a><!--></a>",
        "<a><!-- </a>",
        "<a><![CDATA[</a>",
        "<a><![CDATA[]]</a>",
        "<a><![cdata[]]></a>",
        "<![CDATA[]]><a/>",
        "<a/><![CDATA[]]>",
        "<a><?xml version='1.0'?></a>",
        "<a><?XmL ?></a>",
        "<a><?\?></a>",
        "<a><? x?></a>",
        "<a><?x</a>",
        "<a><?x?y?></a>",
        " <?xml version='1.0'?><a/>",
        "<?xml version='1.0'><a/>",
        "<?xml?><a/>",
        "<a/><!DOCTYPE a>",
        "<!DOCTYPE a [<a/>",
        "<a>\x01</a>",
        "<a>\0</a>"s,
        "<a/>\0"s,
        "<a \0/>"s,
        "<a>\xFF</a>",
        "<a\x80/>",
        "<1/>",
        "<-/>",
        // Entities.
        "<!DOCTYPE a [<!ENTITY e '&f;'><!ENTITY f '&e;'>]><a b='&e;'/>",
        "<!DOCTYPE a [<!ENTITY e '&#60;'>]><a b='&e;'/>",
        "<!DOCTYPE a [<!ENTITY e SYSTEM 'x'>]><a b='&e;'/>",
        "<!DOCTYPE a [<!NOTATION n SYSTEM 'n'><!ENTITY e SYSTEM 'x' NDATA n>]><a>&e;</a>",
        "<!DOCTYPE a [<!ENTITY e 'x'>]><a>&f;</a>",
        "<!DOCTYPE a [<!ENTITY e 'x'>]><a/>&e;",
        "<?xml version='1.0' standalone='yes'?><!DOCTYPE a SYSTEM 'x'><a>&f;</a>",
    };
    for (const std::string &text : texts) {
        EXPECT_EQ(scanned(text), ScanResult::NotUnderstood) << text;
        EXPECT_EQ(faultOfReading(text), "") << text;
    }
}

TEST(Scanner, KnowsWhatTheDocumentTypeDeclares) {
    const std::string subset = "<!DOCTYPE a [<!ENTITY e 'x'><!ENTITY g 'y&e;'>"
                               "<!ENTITY f SYSTEM 'f'><!ATTLIST a x CDATA #IMPLIED>"
                               "<!ATTLIST a x CDATA '1' y CDATA '2' xml:space CDATA 'preserve'>"
                               "<!ATTLIST b y NMTOKENS ' 1  2 ' z CDATA '3'>]>\n";
    for (const std::string &text : {
             subset + "<a> <b/> <b z='4'/>&e; &f; &g;</a>",
             subset + "<a xml:space='default'> <b/> </a>",
             subset + "<a y='&e;&e;'> &e;<b/>&f; </a>",
             "<!DOCTYPE a SYSTEM 'x'>\n<a b='&u;'>&u;</a>"s,
             "<?xml version='1.0' standalone='no'?><!DOCTYPE a PUBLIC '-' 'x'><a>&u;</a>"s,
         }) {
        EXPECT_EQ(scanned(text), ScanResult::Read) << text;
        EXPECT_EQ(faultOfReading(text), "") << text;
    }
    // Entities may make a value long that many elements have: it is there once.
    const Ref<SourceText> source(new SourceText);
    source->utf8 = subset + "<a><b/><b/></a>";
    for (const auto read :
         {parse, +[](Arena &arena, const Ref<SourceText> &text, const runtime::Progress &progress) {
              return parseByExpat(arena, text, progress);
          }}) {
        Arena arena;
        EXPECT_EQ(read(arena, source, {}).errorCode, 0);
        const Number root = arena.part(arena.documentNumber()).lastChild;
        const auto value = [&](Number element) {
            return arena.ownText(arena.part(element).firstAttribute, OwnTextKind::Value);
        };
        const Number first = arena.part(root).firstChild;
        EXPECT_EQ(value(first), "1 2");
        EXPECT_EQ(value(first).data(), value(arena.record(first).next).data());
    }
    // What expat expands itself it bounds, too; so it is left to it.
    std::string bomb = "<!DOCTYPE a [<!ENTITY e '" + std::string(1'000, 'x') + "'>]><a>";
    for (int i = 0; i < 2'000; ++i)
        bomb += "<a b='&e;'/>";
    EXPECT_EQ(scanned(bomb + "</a>"), ScanResult::NotUnderstood);
}

TEST(Scanner, TakesNoLongerForWhatIsMany) {
    constexpr int Many = 40'000;
    std::string deep, wide = "<a", names = "<a>";
    for (int i = 0; i < Many; ++i) {
        deep += "<a>";
        wide += " a" + std::to_string(i) + "=''";
        names += "<name-of-an-element-" + std::to_string(i) + "/>";
    }
    for (int i = 0; i < Many; ++i)
        deep += "</a>";
    names += "</a>";
    for (const std::string &text : {deep, wide + "/>", names})
        EXPECT_EQ(faultOfReading(text), "");
    EXPECT_EQ(scanned(wide + " a7=''/>"), ScanResult::NotUnderstood);
    int reports = 0;
    EXPECT_EQ(scanned(names,
                      [&](double done) {
                          EXPECT_TRUE(done > 0 && done < 1);
                          return ++reports < 2;
                      }),
              ScanResult::Stopped);
    EXPECT_EQ(reports, 2);
}

} // namespace

} // namespace quillon::xml::test
