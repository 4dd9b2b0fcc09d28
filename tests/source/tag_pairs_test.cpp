#include "source/tag_pairs.h"

#include <gtest/gtest.h>

namespace quillon::source {

namespace {

/// A text without its "|", and where that stands.
struct At {
    explicit At(const char *marked) : text(marked), caret(text.indexOf('|')) {
        text.remove(caret, 1);
    }
    QByteArray text;
    qsizetype caret;
};

QByteArray pairIn(const QByteArray &text, const std::optional<ui::TextPair> &pair) {
    if (!pair)
        return "-";
    const auto shown = [&](const ui::TextStretch &stretch) {
        return QByteArray::number(stretch.at) + ':' + text.mid(stretch.at, stretch.length);
    };
    return shown(pair->here) + ' ' + shown(pair->partner);
}

TEST(TagPairs, AreFoundAroundTheCaret) {
    const std::pair<const char *, const char *> table[] = {
        {"<a>b|</a>", "6:a 1:a"},
        {"<|a>b</a>", "1:a 6:a"},
        {"<a x='>'|>b</a>", "1:a 12:a"},
        {"<a>b</a|>", "6:a 1:a"},
        {"<a><b>x|</b></a>", "9:b 4:b"},
        {"<a><b>x</b>|</a>", "13:a 1:a"},
        {"<a>|<a>x</a></a>", "13:a 1:a"},
        {"<a><!-- </a> -->|</a>", "18:a 1:a"},
        {"<日本>|</日本>", "10:日本 1:日本"},
        {"<a>|<b></a>", "8:a 1:a"},
        {"<a><b>|</a>", "-"},
        {"<a/|>", "-"},
        {"<a>|", "-"},
        {"|<a></a>", "-"},
        {"<a></b|>", "-"},
        {"", "-"},
    };
    for (const auto &[marked, expected] : table) {
        const At at(QByteArray(marked).contains('|') ? marked : "|");
        completion::TextContexts contexts;
        EXPECT_EQ(pairIn(at.text, tagPairAt(contexts, at.text, at.caret)), expected) << marked;
    }
    completion::TextContexts contexts;
    const QByteArray far = "<a>" + QByteArray("<b></b>").repeated(400'000) + "</a>";
    EXPECT_FALSE(tagPairAt(contexts, far, 1)) << "more than 2 MB away";
    const At empty("<a><b k='1'/|></a>");
    EXPECT_EQ(tagNamesAt(contexts, empty.text, empty.caret), (std::vector<Stretch>{{4, 5}}));
}

TEST(BracketPairs, AreFoundBesideTheCaret) {
    const std::pair<const char *, const char *> table[] = {
        {"f(a(b)c)|", "7:) 1:("},
        {"f|(a(b)c)", "1:( 7:)"},
        {"f(|a(b)c)", "1:( 7:)"},
        {"f(a(b)c|)", "7:) 1:("},
        {"f(a|(b)c)", "3:( 5:)"},
        {"「日『本』」|", "15:」 0:「"},
        {"「日|『本』」", "6:『 12:』"},
        {"[x)|", "-"},
        {"(x|", "-"},
        {"a|b", "-"},
    };
    for (const auto &[marked, expected] : table) {
        const At at(marked);
        EXPECT_EQ(pairIn(at.text, bracketPairAt(at.text, at.caret)), expected) << marked;
    }
    const QByteArray far = '(' + QByteArray(100'000, ' ') + ')';
    EXPECT_FALSE(bracketPairAt(far, 1));
}

TEST(Closing, NamesTheElementThatIsOpen) {
    const std::pair<const char *, const char *> table[] = {
        {"<a><b>x</|", "b>"},
        {"<a><b>x</|</a>", "b>"},
        {"<a><b></b></|", "a>"},
        {"<a><b/></|", "a>"},
        {"<p:日本>x</|", "p:日本>"},
        {"<a>x</|>", "a"},
        {"<a></|a>", ""},
        {"<a></|b><c/></a>", ""},
        {"</|", ""},
        {"<a><!-- </|", ""},
        {"<a><![CDATA[</|", ""},

        {"<a></a></|", ""},
        {"<a>x</ |", ""},
    };
    for (const auto &[marked, expected] : table) {
        const At at(marked);
        completion::TextContexts contexts;
        EXPECT_EQ(closingAt(contexts, at.text, at.caret), expected) << marked;
    }
}

} // namespace

} // namespace quillon::source
