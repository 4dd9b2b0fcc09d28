#include "platform/xml/syntax/syntax_mends.h"

#include <gmock/gmock.h>
#include <random>

namespace quillon::xml {

namespace {

using testing::ElementsAreArray;

std::vector<SyntaxMend> mendsOf(const QByteArray &text, const SyntaxScope &scope = {}) {
    const std::optional<SyntaxFault> fault = firstSyntaxFault(text, scope);
    return fault ? syntaxMends(text, *fault, scope) : std::vector<SyntaxMend>();
}

/// "title -> text" of each mend.
std::vector<std::string> outcomes(const QByteArray &text) {
    std::vector<std::string> all;
    for (const SyntaxMend &mend : mendsOf(text))
        all.push_back(mend.title.toStdString() + " -> " +
                      withReplacements(text, mend.replacements).toStdString());
    return all;
}

struct Row {
    const char *text;
    std::vector<std::string> outcomes;
};

TEST(SyntaxMends, MakeTheTextWellFormed) {
    const Row table[] = {
        // End tags.
        {"<a>\n  <b>\n    <c/>\n</a>",
         {"終了タグ </b> を挿入 (3 行目) -> <a>\n  <b>\n    <c/>\n  </b>\n</a>",
          "<b> を空要素 <b/> に変更 -> <a>\n  <b/>\n    <c/>\n</a>",
          "開始タグ <b> (2 行目) を削除 -> <a>\n    <c/>\n</a>"}},
        {"<l>\n  <i>a\n  <i>b</i>\n</l>",
         {"終了タグ </i> を挿入 (2 行目) -> <l>\n  <i>a</i>\n  <i>b</i>\n</l>",
          "終了タグ </i> を挿入 (3 行目) -> <l>\n  <i>a\n  <i>b</i></i>\n</l>",
          "<i> を空要素 <i/> に変更 -> <l>\n  <i/>a\n  <i>b</i>\n</l>",
          "開始タグ <i> (2 行目) を削除 -> <l>\n  a\n  <i>b</i>\n</l>"}},
        {"<d>\n  <d>\n    x\n</d>",
         {"終了タグ </d> を挿入 (3 行目) -> <d>\n  <d>\n    x\n  </d>\n</d>",
          "<d> を空要素 <d/> に変更 -> <d>\n  <d/>\n    x\n</d>",
          "開始タグ <d> (2 行目) を削除 -> <d>\n    x\n</d>"}},
        {"<l>\n  <i>a\n  <i>b\n</l>",
         {"不足している終了タグ 2 個を挿入 -> <l>\n  <i>a</i>\n  <i>b</i>\n</l>",
          "不足している終了タグ 2 個を挿入 -> <l>\n  <i>a\n  <i>b</i></i>\n</l>"}},
        {"<a><b>t</a></a>",
         {"終了タグ </a> を </b> に変更 -> <a><b>t</b></a>",
          "開始タグ <b> (1 行目) を <a> に変更 -> <a><a>t</a></a>"}},
        {"<a><b>t</B></a>",
         {"終了タグ </B> を </b> に変更 -> <a><b>t</b></a>",
          "開始タグ <b> (1 行目) を <B> に変更 -> <a><B>t</B></a>"}},
        {"<a>t</c></a>", {"終了タグ </c> を削除 -> <a>t</a>"}},
        // Attributes.
        {"<a x=1/>", {"値を引用符で囲む: x=\"1\" -> <a x=\"1\"/>"}},
        {"<a x=y/z>t</a>", {"値を引用符で囲む: x=\"y/z\" -> <a x=\"y/z\">t</a>"}},
        {"<a x=y z y='1'/>", {"値を引用符で囲む: x=\"y z\" -> <a x=\"y z\" y='1'/>"}},
        {"<a x=1'/>", {"値を引用符で囲む: x='1' -> <a x='1'/>"}},
        {"<a x=\"1 y=\"2\"/>", {"引用符を閉じる: x=\"1\" -> <a x=\"1\" y=\"2\"/>"}},
        {"<a x=\"1/>", {"引用符を閉じる: x=\"1\" -> <a x=\"1\"/>"}},
        {"<a x=\"http://h/>t</a>", {"引用符を閉じる: x=\"http://h/\" -> <a x=\"http://h/\">t</a>"}},
        {"<a x=\"1'>t</a>",
         {"引用符を閉じる: x=\"1\" -> <a x=\"1\">t</a>",
          "引用符を閉じる: x=\"1'\" -> <a x=\"1'\">t</a>"}},
        {"<a x='1' x2='' x='2'/>",
         {"2 つ目の属性 'x' の名前を 'x3' に変更 -> <a x='1' x2='' x3='2'/>",
          "2 つ目の属性 x='2' を削除 -> <a x='1' x2=''/>",
          "1 つ目の属性 x='1' を削除 -> <a x2='' x='2'/>"}},
        {"<a x='1' x='1'/>",
         {"2 つ目の属性 x='1' を削除 -> <a x='1'/>",
          "2 つ目の属性 'x' の名前を 'x2' に変更 -> <a x='1' x2='1'/>"}},
        {"<a x '1'/>", {"属性 'x' の後に = を挿入 -> <a x= '1'/>"}},
        {"<a x/>",
         {"値を付ける: x=\"x\" -> <a x=\"x\"/>", "値を付ける: x=\"\" -> <a x=\"\"/>",
          "属性 'x' を削除 -> <a/>"}},
        {"<a x='1'y='2'/>", {"属性 'y' の前に空白を挿入 -> <a x='1' y='2'/>"}},
        // Characters.
        {"<a>R&D &amp; &</a>", {"& を &amp; に変更 -> <a>R&amp;D &amp; &</a>"}},
        {"<a>&lt </a>",
         {"&lt を &lt; に変更 -> <a>&lt; </a>", "& を &amp; に変更 -> <a>&amp;lt </a>"}},
        {"<a x='&nbsp;'/>",
         {"&nbsp; を &#160; に変更 -> <a x='&#160;'/>",
          "& を &amp; に変更 -> <a x='&amp;nbsp;'/>"}},
        {"<a x='&b; &c;' y='&d;'/>", {"& を &amp; に変更 -> <a x='&amp;b; &c;' y='&d;'/>"}},
        {"<a>1 < 2</a>", {"< を &lt; に変更 -> <a>1 &lt; 2</a>"}},
        {"<a>if x<y then</a>", {"< を &lt; に変更 -> <a>if x&lt;y then</a>"}},
        {"<a>< b>t</b></a>", {"< の後の空白を削除 -> <a><b>t</b></a>"}},
        {"<a>x\x01y\x01</a>", {"同じ文字をすべて削除 (2 個) -> <a>xy</a>"}},
        {"<a>x\x01y</a>", {"この文字を削除 -> <a>xy</a>", "この文字を空白に変更 -> <a>x y</a>"}},
        {"<a>x]]>y</a>", {"]]> を ]]&gt; に変更 -> <a>x]]&gt;y</a>"}},
        // Around the root element.
        {"<a>t</a>\n<b/>\n",
         {"全体を新しいルート要素 <root> で囲む -> <root>\n<a>t</a>\n<b/>\n</root>\n",
          "後の要素をルート要素 <a> の中に入れる -> <a>t\n<b/></a>\n"}},
        {"<a>\n</a>\n<b/>\n</a>", {"終了タグ </a> (2 行目) を削除 -> <a>\n<b/>\n</a>"}},
        {"<a/>t", {"文字をコメントにする -> <a/><!-- t -->", "「t」を削除 -> <a/>"}},
        {"<a>t</a>\nu\n<!-- c -->",
         {"文字をルート要素 <a> の中に入れる -> <a>t\nu</a>\n<!-- c -->",
          "文字をコメントにする -> <a>t</a>\n<!-- u -->\n<!-- c -->",
          "「u」を削除 -> <a>t</a>\n\n<!-- c -->"}},
        {"\n <?xml version='1.0'?>\n<a/>",
         {"XML 宣言の前の空白を削除 -> <?xml version='1.0'?>\n<a/>"}},
        {"<!-- c -->\n<?xml version='1.0'?>\n<a/>",
         {"XML 宣言を先頭に移動 -> <?xml version='1.0'?>\n<!-- c -->\n<a/>",
          "「<?xml version='1.0'?>」を削除 -> <!-- c -->\n<a/>"}},
        // Other markup.
        {"<a><b x='1' </a>",
         {"タグを /> で閉じる -> <a><b x='1'/> </a>", "< を &lt; に変更 -> <a>&lt;b x='1' </a>"}},
        {"<a><!-- x -- y ---></a>", {"コメントの -- を - - に変更 -> <a><!-- x - - y - --></a>"}},
        {"<a><!-- x -> <b/></a>", {"コメントを --> で閉じる -> <a><!-- x --> <b/></a>"}},
        {"<a><![CDATA[ x</a>", {"CDATA セクションを ]]> で閉じる -> <a><![CDATA[ x]]></a>"}},
        {"<a><?p x></a>", {"処理命令を ?> で閉じる -> <a><?p x?></a>"}},
        // Nothing that would do.
        {"", {}},
        {"<!DOCTYPE a [<!ELEMENT>]><a/>", {}},
    };
    for (const Row &row : table)
        EXPECT_THAT(outcomes(row.text), ElementsAreArray(row.outcomes)) << row.text;
}

TEST(SyntaxMends, TakeOneOfSeveralFaultsAway) {
    QByteArray text = "\n<?xml version='1.0'?>\n<r>\n  <a x=1 x='2'>R&D\n  <b y=\"1>1 < 2\x02</B>\n"
                      "</r>\n<s/>";
    int steps = 0;
    for (; firstSyntaxFault(text); ++steps) {
        const std::vector<SyntaxMend> mends = mendsOf(text);
        ASSERT_FALSE(mends.empty()) << text.toStdString();
        text = withReplacements(text, mends.front().replacements);
    }
    EXPECT_EQ(text.toStdString(),
              "<?xml version='1.0'?>\n<root>\n<r>\n  <a x=\"1\" x2='2'>R&amp;D</a>\n"
              "  <b y=\"1\">1 &lt; 2</b>\n</r>\n<s/>\n</root>");
    EXPECT_EQ(steps, 10);
}

TEST(SyntaxMends, KeepTheLineEndsOfTheText) {
    EXPECT_EQ(outcomes("<a>\r\n  <b>\r\n    <c/>\r\n</a>").front(),
              "終了タグ </b> を挿入 (3 行目) -> <a>\r\n  <b>\r\n    <c/>\r\n  </b>\r\n</a>");
}

TEST(SyntaxMends, OfDeepTextsAreFoundAllTheSame) {
    constexpr int Depth = 100'000;
    const QByteArray text = "<r>" + QByteArray("<d>").repeated(Depth) + "</r>";
    const std::vector<SyntaxMend> mends = mendsOf(text);
    ASSERT_FALSE(mends.empty());
    EXPECT_EQ(withReplacements(text, mends.front().replacements),
              "<r>" + QByteArray("<d>").repeated(Depth) + QByteArray("</d>").repeated(Depth) +
                  "</r>");
    const QByteArray wide =
        "<r>" + QByteArray("<d x='1'>text</d>").repeated(Depth / 10) + "<e></r>";
    EXPECT_FALSE(mendsOf(wide).empty());
}

/// One character of well-formed texts removed, put in or changed, at random.
TEST(SyntaxMends, KeepTheirPromiseWhateverIsDamaged) {
    const QByteArray seeds[] = {
        "<?xml version=\"1.0\"?>\n<!-- c -->\n<r a=\"1\" b='2'>\n  <s>t &amp; u</s>\n  <s/>\n"
        "  <d>\n    <d x=\"/\">日本語</d>\n  </d>\n  <![CDATA[<x>]]>\n</r>\n",
        "<!DOCTYPE r [<!ENTITY e \"v\"><!ELEMENT r ANY>]><r>&e;<?p i?><a><b><c/></b></a></r>"};
    const QByteArray Characters = "<>/=\"'&;!-?[] \nax\x01]\xE3";
    std::mt19937 random(7);
    const auto below = [&](qsizetype limit) { return qsizetype(random() % std::size_t(limit)); };
    int mended = 0;
    for (int round = 0; round < 6'000; ++round) {
        QByteArray text = seeds[round % 2];
        for (int damage = round % 3; damage >= 0; --damage) {
            const qsizetype at = below(text.size());
            const char c = Characters[below(Characters.size())];
            text.replace(at, qsizetype(random() % 2), QByteArray(int(random() % 2), c));
        }
        const std::optional<SyntaxFault> fault = firstSyntaxFault(text);
        if (!fault)
            continue;
        ASSERT_GE(fault->start, 0) << text.toStdString();
        ASSERT_GT(fault->length, 0) << text.toStdString();
        ASSERT_LE(fault->start + fault->length, text.size()) << text.toStdString();
        for (const SyntaxMend &mend : syntaxMends(text, *fault)) {
            qsizetype done = 0;
            for (const Replacement &part : mend.replacements) {
                ASSERT_GE(part.start, done) << text.toStdString();
                done = part.start + part.length;
            }
            ASSERT_LE(done, text.size());
            const QByteArray better = withReplacements(text, mend.replacements);
            const std::optional<SyntaxFault> left = firstSyntaxFault(better);
            mended += !left;
            if (left) {
                ASSERT_GT(placeBefore(mend.replacements, left->noticedAt), fault->noticedAt)
                    << text.toStdString() << "\n"
                    << mend.title.toStdString();
            }
        }
    }
    EXPECT_GT(mended, 1'000);
}

} // namespace

} // namespace quillon::xml
