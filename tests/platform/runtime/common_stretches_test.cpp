#include "platform/runtime/common_stretches.h"

#include <gtest/gtest.h>
#include <string>

namespace quillon::runtime {

namespace {

/// The edited text with what is not kept in brackets, and what has gone from the one before behind
/// a slash in them.
std::string shown(std::string_view before, std::string_view after) {
    std::string out;
    std::size_t x = 0;
    std::size_t y = 0;
    const auto differ = [&](std::size_t toBefore, std::size_t toAfter) {
        if (toBefore > x || toAfter > y)
            out.append("[")
                .append(after.substr(y, toAfter - y))
                .append("/")
                .append(before.substr(x, toBefore - x))
                .append("]");
    };
    for (const CommonStretch &kept : commonStretches(before, after)) {
        EXPECT_EQ(before.substr(kept.before, kept.length), after.substr(kept.after, kept.length));
        differ(kept.before, kept.after);
        out += after.substr(kept.after, kept.length);
        x = kept.before + kept.length;
        y = kept.after + kept.length;
    }
    differ(before.size(), after.size());
    return out;
}

TEST(CommonStretches, KeepEverythingButTheEdits) {
    EXPECT_EQ(shown("", ""), "");
    EXPECT_EQ(shown("<a/>", "<a/>"), "<a/>");
    EXPECT_EQ(shown("", "<a/>"), "[<a/>/]");
    EXPECT_EQ(shown("<a/>", ""), "[/<a/>]");
    EXPECT_EQ(shown("<a>x</a>", "<a>xy</a>"), "<a>x[y/]</a>");
    EXPECT_EQ(shown("<a>あ</a>", "<a>い</a>"), "<a>[い/あ]</a>") << "not within a character";
    EXPECT_EQ(shown("<a>é</a>", "<a>ê</a>"), "<a>[ê/é]</a>");
    // Far apart, in a line each and in one.
    EXPECT_EQ(shown("<r>\n<a x=1>\n<b>\n<c y=2>\n</r>", "<r>\n<a x='1'>\n<b>\n<c y='2'>\n</r>"),
              "<r>\n<a x=['1'/1]>\n<b>\n<c y=['2'/2]>\n</r>");
    EXPECT_EQ(shown("<a x=1><b/><c y=2></c>", "<a x='1'><b/><c y='2'></c>"),
              "<a x=['1'/1]><b/><c y=['2'/2]></c>");
    // What comes, goes and stands twice.
    EXPECT_EQ(shown("1\n2\n3\n4\n5\n", "0\n1\n3\n4\n4\n5\n"), "[0\n/]1\n[/2\n]3\n[4\n/]4\n5\n");
}

TEST(CommonStretches, ManyDifferencesCostNoMoreThanTheMiddle) {
    std::string before = "<start>";
    std::string after = before;
    for (int i = 0; i < 10'000; ++i) {
        before += std::to_string(i) + "\n";
        after += std::to_string(-i) + "\n";
    }
    const auto kept = commonStretches(before + "<end>", after + "<end>");
    ASSERT_FALSE(kept.empty());
    EXPECT_EQ(kept.front().before, 0u);
    EXPECT_GE(kept.front().length, 7u);
    EXPECT_GE(kept.back().length, 5u);
}

} // namespace

} // namespace quillon::runtime
