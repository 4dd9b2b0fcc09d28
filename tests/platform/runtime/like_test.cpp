#include "platform/runtime/error.h"
#include "platform/runtime/like.h"

#include <QString>

#include <gtest/gtest.h>

using namespace quillon::runtime;

namespace {

struct Case {
    QStringView pattern;
    QStringView text;
    bool matches;
};

class Like : public testing::TestWithParam<Case> {};

TEST_P(Like, MatchesTheWholeText) {
    const auto &[pattern, text, matches] = GetParam();
    EXPECT_EQ(like(text, pattern), matches) << '"' << qPrintable(text.toString()) << "\" like \""
                                            << qPrintable(pattern.toString()) << '"';
}

INSTANTIATE_TEST_SUITE_P(
    Wildcards, Like,
    testing::Values(Case{u"", u"", true}, Case{u"", u"a", false}, Case{u"order", u"order", true},
                    Case{u"order", u"orders", false}, Case{u"order", u"Order", false},
                    Case{u"*", u"", true}, Case{u"a*c", u"abbc", true}, Case{u"a*c", u"ac", true},
                    Case{u"a*c", u"acb", false}, Case{u"*a*b*", u"xxaxxbxx", true},
                    Case{u"*ab*cd*ab", u"abcdcdabxab", true}, Case{u"**a", u"aba", true},
                    Case{u"?", u"", false}, Case{u"??", u"日本", true}, Case{u"?", u"𠮷", false},
                    Case{u"*?", u"", false}, Case{u"#", u"7", true}, Case{u"#", u"７", false},
                    Case{u"n#*", u"n1x", true}, Case{u"a\nb*", u"a\nbc", true}));

INSTANTIATE_TEST_SUITE_P(
    Lists, Like,
    testing::Values(
        Case{u"[abc]", u"b", true}, Case{u"[abc]", u"", false}, Case{u"[a-cx-z]", u"y", true},
        Case{u"[a-cx-z]", u"d", false}, Case{u"[A-Z]", u"a", false}, Case{u"[-ab]", u"-", true},
        Case{u"[--0]", u".", false}, Case{u"[ab-]", u"-", true}, Case{u"[!-a]", u"-", false},
        Case{u"[!a-c]", u"d", true}, Case{u"[!a-c]", u"b", false}, Case{u"[!a]", u"", false},
        Case{u"[a!]", u"!", true}, Case{u"[!]", u"!", true}, Case{u"[]", u"", true},
        Case{u"a[]b", u"ab", true}, Case{u"[]", u"a", false}, Case{u"[*][?][#][[]", u"*?#[", true},
        Case{u"[*]", u"a", false}, Case{u"]", u"]", true}, Case{u"*[0-9]x", u"a1b2x", true}));

// The patterns that tell pasted markup apart.
INSTANTIATE_TEST_SUITE_P(
    Markup, Like,
    testing::Values(Case{u"<!--*-->", u"<!-- a -->", true}, Case{u"<!--*-->", u"<!-->", false},
                    Case{u"*=\"*\"", u"id=\"1\"", true}, Case{u"*=\"*\"", u"id='1'", false},
                    Case{u"<[?]*[?]>", u"<?xml?>", true}, Case{u"<[?]*[?]>", u"<x>", false},
                    Case{u"<![[]CDATA[[]*]]>", u"<![CDATA[a]]>", true},
                    Case{u"<![[]CDATA[[]*]]>", u"<![CDATA[a]>", false}));

TEST(LikePattern, RefusesWhatIsNoPattern) {
    for (const QStringView pattern :
         std::initializer_list<QStringView>{u"[", u"a[b", u"[a]*[!", u"[z-a]"}) {
        try {
            LikePattern{pattern};
            ADD_FAILURE() << qPrintable(pattern.toString());
        } catch (const Error &error) {
            EXPECT_EQ(error.number(), 93);
            EXPECT_EQ(error.description(), u"パターン文字列が不正です。");
        }
    }
}

TEST(LikePattern, SurvivesPatternsMadeToBacktrack) {
    // Trying every split of the text over the stars would take longer than anybody lives.
    const QString text(5000, u'a');
    EXPECT_FALSE(like(text, QStringLiteral("*a").repeated(200) + u'b'));
    EXPECT_TRUE(like(text, QStringLiteral("*a").repeated(200)));
}

} // namespace
