#include "platform/runtime/error.h"
#include "search/text_pattern.h"

#include <gtest/gtest.h>

namespace quillon::search::test {

namespace {

constexpr PatternOptions Exact{};
constexpr PatternOptions AnyCase{.matchCase = false};
constexpr PatternOptions AnyWidth{.matchWidth = false};
constexpr PatternOptions Loose{.matchCase = false, .matchWidth = false};
constexpr PatternOptions Words{.wholeWord = true};
constexpr PatternOptions Wild{.kind = PatternKind::Wildcards};
constexpr PatternOptions WildLoose{
    .kind = PatternKind::Wildcards, .matchCase = false, .matchWidth = false};
constexpr PatternOptions Regular{.kind = PatternKind::RegularExpression};

/// The text with what is found in brackets.
QString marked(const QString &pattern, const PatternOptions &options, const QString &text) {
    std::vector<Span> spans;
    TextPattern(pattern, options).findAll(text, spans);
    QString out = text;
    for (auto span = spans.rbegin(); span != spans.rend(); ++span)
        out.insert(span->at + span->length, ']').insert(span->at, '[');
    return out;
}

struct Case {
    QString pattern;
    PatternOptions options;
    QString marked;
};

class TextPatternTest : public testing::TestWithParam<Case> {};

TEST_P(TextPatternTest, Finds) {
    const auto &[pattern, options, expected] = GetParam();
    QString text = expected;
    text.remove('[').remove(']');
    EXPECT_EQ(marked(pattern, options, text).toStdString(), expected.toStdString());
    // What is found can be anywhere in a longer text, too.
    const TextPattern compiled(pattern, options);
    EXPECT_TRUE(!expected.contains('[') || compiled.mayBeIn(("前" + text).toStdString()));
}

INSTANTIATE_TEST_SUITE_P(
    Plain, TextPatternTest,
    testing::Values(Case{"aa", Exact, "[aa][aa]a Aa"}, Case{"a.c", Exact, "abc [a.c]"},
                    Case{"ÄB", AnyCase, "[äb] [ÄB] ab"}, Case{"Я", AnyCase, "[я]"},
                    Case{"価格", Exact, "定[価格]表[価格]"},
                    // Width: what is found is found whole, and where it is.
                    Case{"ガ", AnyWidth, "x[ｶﾞ]y[が]z[ガ][か\u3099]カｶ"},
                    Case{"カ", AnyWidth, "[ｶ]ｷ ｶﾞ"},
                    Case{"ﾊﾟｿｺﾝ", AnyWidth, "[パソコン]と[ぱそこん]と[ﾊﾟｿｺﾝ]"},
                    Case{"ABC１", AnyWidth, "[ＡＢＣ１][ABC1]abc1"},
                    Case{"abc1", Loose, "[ＡＢＣ１][Abc1]"}, Case{"キロ", AnyWidth, "1[㌔]2[ｷﾛ]3"},
                    Case{"キ", AnyWidth, "㌔[キ]"}, Case{"㌔", AnyWidth, "[キロ][㌔]ラム"},
                    Case{"1", AnyWidth, "①²[１]"}, Case{"ヴ", AnyWidth, "[ｳﾞ]"},
                    Case{"ー", AnyWidth, "ラ[ｰ]メン"}, Case{"b c", AnyWidth, "a[b　c]"},
                    Case{"𠮷", Loose, "a[𠮷]ｶﾞ[𠮷]"}, Case{"a", Words, "[a] ab _a ([a])a1 あ[a]あ"},
                    Case{"東京", Words, "[東京]は東京都の[東京]"},
                    Case{"カー", Words, "[カー]とカード"},
                    Case{"ネット", Words, "インターネットと[ネット]"}));

INSTANTIATE_TEST_SUITE_P(
    Wildcards, TextPatternTest,
    testing::Values(Case{"a*c", Wild, "[abbc] [ac]"}, Case{"b*", Wild, "a[bcb\nx]"},
                    Case{"*b", Wild, "[aab][ab]c"}, Case{"a?c", Wild, "[a𠮷c] ac"},
                    Case{"第#章", Wild, "[第1章] 第１章 第十章"}, Case{"a.", Wild, "[a.] ab"},
                    Case{"x(", Wild, "[x(]"}, Case{"第#章", WildLoose, "[第１章]"},
                    Case{"ｱ*ﾝ", WildLoose, "x[あいん]x[アン]"}));

INSTANTIATE_TEST_SUITE_P(Lists, TextPatternTest,
                         testing::Values(Case{"[ab-d]1", Wild, "[a1][c1]e1-1"},
                                         Case{"[!a]1", Wild, "a1[b1]"}, Case{"[!]", Wild, "a[!]"},
                                         Case{"[あ-ん]x", WildLoose, "[ｶX]亜x"},
                                         Case{"[*^]", Wild, "a[*][^]"}));

INSTANTIATE_TEST_SUITE_P(
    RegularExpressions, TextPatternTest,
    testing::Values(
        Case{"\\d+", Regular, "a[12]b[3]"}, Case{"^", Regular, "[]ab"}, Case{"$", Regular, "𠮷[]"},
        Case{"^$", Regular, "[]"}, Case{"x*", Regular, "[]a[xx][]"},
        Case{"\\p{Han}+", Regular, "あ[漢字]か"}, Case{"(?i)ab", Regular, "[AB]"},
        Case{"ab",
             {.kind = PatternKind::RegularExpression, .matchCase = false, .wholeWord = true},
             "[AB] abc"},
        // Width is nothing to regular expressions.
        Case{"ガ", {.kind = PatternKind::RegularExpression, .matchWidth = false}, "ｶﾞ[ガ]"}));

QString replaced(const QString &pattern, const QString &with, QString text) {
    const TextPattern compiled(pattern, Regular);
    const Replacement replacement(with, compiled);
    std::vector<Span> spans;
    compiled.findAll(text, spans);
    const QString before = text;
    for (auto span = spans.rbegin(); span != spans.rend(); ++span)
        text.replace(span->at, span->length, replacement.at(before, *span));
    return text;
}

TEST(ReplacementTest, PutsGroupsIn) {
    EXPECT_EQ(replaced("(\\d+)-(\\d+)", "$2/\\1", "a10-20b"), "a20/10b");
    EXPECT_EQ(replaced("(?<y>\\d{4})年", "${y}-$&-\\0", "2026年"), "2026-2026年-2026年");
    EXPECT_EQ(replaced("(a)|(b)", "[$1$2]", "ab"), "[a][b]");
    EXPECT_EQ(replaced("(a)", "$10$$\\\\\\n\\t$x", "a"), "a0$\\\n\t$x");
    // What stands around decides what is found, and so about its groups.
    EXPECT_EQ(replaced("(?<=x)(.)", "<$1>", "axbxc"), "ax<b>x<c>");
    EXPECT_EQ(replaced("^", "p:", "name"), "p:name");
    const TextPattern plain("a", Exact);
    EXPECT_EQ(Replacement("$1\\n", plain).at(u"a", {0, 1}), "$1\\n");
}

std::string faultOf(const std::function<void()> &compile) {
    try {
        compile();
    } catch (const runtime::Error &error) {
        EXPECT_EQ(error.number(), runtime::error_number::InvalidPattern);
        return error.what();
    }
    return {};
}

TEST(TextPatternFaults, AreToldInJapanese) {
    const auto pattern = [](const QString &text, const PatternOptions &options) {
        return faultOf([&] { TextPattern(text, options); });
    };
    EXPECT_EQ(pattern("", Exact), "検索する文字列を入力してください。");
    EXPECT_EQ(pattern("a(b", Regular), "正規表現の 4 文字目の付近: ( に対応する ) がありません。");
    EXPECT_EQ(pattern("[z-a]", Regular),
              "正規表現の 4 文字目の付近: [ ] の中の文字の範囲の前後が逆です。");
    EXPECT_NE(pattern("[ab", Wild), "");
    EXPECT_NE(pattern("[b-a]", Wild), "");
    EXPECT_EQ(faultOf([] { Replacement("$2", TextPattern("(a)", Regular)); }),
              "置換後の文字列の $2 に当たるグループが、正規表現にありません。");
    EXPECT_EQ(faultOf([] { Replacement("${n}", TextPattern("(a)", Regular)); }),
              "置換後の文字列の ${n} に当たるグループが、正規表現にありません。");
    // No words of the library, whatever is wrong.
    for (const char *bad :
         {"*", "a\\", "[a", "(?<1>a)", "(?<a", "\\p{Xx}", "(?<=a+)b", "a{2,1}", "\\1", ")", "(?z)",
          "\\x{ffffffff}", "[[:x:]]", "(?P>n)", "(?(1)a|b|c)", "\\cあ", "(*X)", "(?<a>.)(?<a>.)"}) {
        const QString said = QString::fromStdString(pattern(bad, Regular));
        EXPECT_TRUE(said.startsWith("正規表現の ")) << bad << said.toStdString();
        EXPECT_TRUE(said.endsWith("。")) << bad << said.toStdString();
    }
    std::vector<Span> spans;
    EXPECT_NE(
        faultOf([&] { TextPattern("(a+)+$", Regular).findAll(QString(40, 'a') + 'b', spans); }),
        "");
}

} // namespace

} // namespace quillon::search::test
