#include "completion/text_context.h"

#include <QByteArrayList>
#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace quillon::completion {

namespace {

QByteArray names(const QByteArray &text, const std::vector<Stretch> &tags) {
    QByteArrayList all;
    for (const Stretch &tag : tags)
        all.append(tagName(text, tag).in(text).toByteArray());
    return all.join(' ');
}

QByteArray placeName(Place place) {
    switch (place) {
    case Place::Nowhere:
        return "nowhere";
    case Place::Content:
        return "content";
    case Place::ElementName:
        return "element";
    case Place::EndTag:
        return "end";
    case Place::AttributeName:
        return "attribute";
    case Place::AttributeValue:
        return "value";
    }
    return {};
}

/// All of a context in one line: place [word] open; siblings ahead | behind.
QByteArray described(const QByteArray &text, const TextContext &context) {
    QByteArray line = placeName(context.place);
    if (context.place == Place::Nowhere)
        return line;
    line += " [" + context.word.in(text).toByteArray() + ']';
    if (context.place == Place::AttributeValue)
        line += " of " + context.attribute.name.in(text).toByteArray();
    line += " in " + names(text, context.open) + "; " + names(text, context.before) + '|' +
            names(text, context.after);
    if (!context.endTag.isEmpty())
        line += " ends " + context.endTag.in(text).toByteArray();
    return line;
}

/// What is said of the place of the "|" in a text.
QByteArray at(QByteArray text) {
    const qsizetype caret = text.indexOf('|');
    text.remove(caret, 1);
    return described(text, TextContexts().at(text, caret));
}

TEST(TextContext, TellsWhatTheCaretStandsIn) {
    EXPECT_EQ(at("|<a/>"), "content [] in ; |a");
    EXPECT_EQ(at("<a><b/>te|xt<c>d</c><e/></a>"), "content [te] in a; b|c e");
    EXPECT_EQ(at("<a><b/><|</a>"), "element [] in a; b|");
    EXPECT_EQ(at("<a><b/><it|\n  <c/></a>"), "element [it] in a; b|c");
    EXPECT_EQ(at("<a><b/><it|em x='1'><c/></item><d/></a>"),
              "element [item] in a; b|d ends </item>");
    EXPECT_EQ(at("<a><b><|</b><c/></a>"), "element [] in a b; |");
    EXPECT_EQ(at("<a><b>x</|"), "end [] in a b; |");
    EXPECT_EQ(at("<a><b>x</b|></a>"), "end [b] in a b; |");
    EXPECT_EQ(at("<a><b |/></a>"), "attribute [] in a; |");
    EXPECT_EQ(at("<a><b x='1' y| z='2'>"), "attribute [y] in a; |");
    EXPECT_EQ(at("<a x='1'|>"), "nowhere");
    EXPECT_EQ(at("<a x='1'/|>"), "nowhere");
    EXPECT_EQ(at("<a><b x=\"1|2\"/><c/></a>"), "value [12] of x in a; |c");
    EXPECT_EQ(at("<a x=|>"), "value [] of x in ; |");
    EXPECT_EQ(at("<!-- <a |> --><b/>"), "nowhere");
    EXPECT_EQ(at("<a><![CDATA[<b |]]></a>"), "nowhere");
    EXPECT_EQ(at("<?p |?><a/>"), "nowhere");
    EXPECT_EQ(at("<!DOCTYPE a [<!ENTITY b '>'> |]><a/>"), "nowhere");
    EXPECT_EQ(at("<!DOCTYPE a [<!ENTITY b '>'>]><a>|</a>"), "content [] in a; |");
}

TEST(TextContext, SeesThroughWhatIsNotFinished) {
    // A quote that is not closed, ahead of another tag and of another attribute.
    EXPECT_EQ(at("<a><b x=\"| <c y=\"1\"/></a>"), "value [] of x in a; |c");
    EXPECT_EQ(at("<a x=\"pa| y=\"1\"><b/></a>"), "value [pa] of x in ; | ends </a>");
    EXPECT_EQ(at("<a x=\"| y=\"1\"><b/></a>"), "value [] of x in ; | ends </a>");
    // Elements without an end, and ends without an element.
    EXPECT_EQ(at("<a><b><c></b><d/>|<e/></a>"), "content [] in a; b d|e");
    EXPECT_EQ(at("<a></x><b/>|</a>"), "content [] in a; b|");
    EXPECT_EQ(at("<a>1 < 2 <b/>|</a>"), "content [] in a; b|");
    // A start tag whose name is not that of its end any more.
    EXPECT_EQ(at("<a><bb|>x<c/></b><d/></a>"), "element [bb] in a; |d ends </b>");
    EXPECT_EQ(at("<a><bb|>x<c/></a>"), "element [bb] in a; |");
}

/// Pieces of markup put together by chance, with all that can be wrong.
QByteArray anyText(QRandomGenerator &chance, int pieces) {
    static const QByteArrayList Pieces = {"<a>",       "</a>",     "<b x='1'>", "</b>",      "<c/>",
                                          "<",         ">",        "\"",        "'",         "=",
                                          "<!--",      "-->",      "<![CDATA[", "]]>",       "<?p",
                                          "?>",        "/",        " y=",       "日",        "\n",
                                          "<!DOCTYPE", "<d e=\"1", "[",         "text text", "</",
                                          "&amp;"};
    QByteArray text;
    for (int i = 0; i < pieces; ++i)
        text += Pieces[chance.bounded(int(Pieces.size()))];
    return text;
}

TEST(TextContext, AnswersAnywhereInAnyText) {
    QRandomGenerator chance(7);
    for (int round = 0; round < 2000; ++round) {
        const QByteArray text = anyText(chance, 1 + chance.bounded(40));
        TextContexts contexts;
        for (qsizetype caret = 0; caret <= text.size(); ++caret) {
            const TextContext context = contexts.at(text, caret);
            ASSERT_LE(context.word.start, context.word.end) << text.toStdString();
            ASSERT_LE(context.word.end, text.size()) << text.toStdString();
            if (context.place == Place::Nowhere)
                continue;
            ASSERT_LE(context.word.start, caret) << text.toStdString() << ' ' << caret;
            ASSERT_GE(context.word.end, caret) << text.toStdString() << ' ' << caret;
        }
    }
}

TEST(TextContext, RemembersNothingThatAChangeHasMadeWrong) {
    QRandomGenerator chance(11);
    QByteArray text = "<root>";
    while (text.size() < 600'000)
        text += "<r><item n='1'>text</item><!-- <x> --><other><deep><deeper/></deep>";
    TextContexts contexts;
    for (int round = 0; round < 60; ++round) {
        const qsizetype at = chance.bounded(int(text.size()));
        const QByteArray piece = anyText(chance, chance.bounded(3));
        text.replace(at, chance.bounded(30), piece);
        contexts.textChanged(at);
        const qsizetype caret = round % 3 == 0 ? at : qsizetype(chance.bounded(int(text.size())));
        const TextContext context = contexts.at(text, caret);
        const TextContext fresh = TextContexts().at(text, caret);
        ASSERT_EQ(context.place, fresh.place) << round;
        ASSERT_EQ(context.open, fresh.open) << round;
        ASSERT_EQ(context.after, fresh.after) << round;
        ASSERT_LE(context.before.size(), fresh.before.size()) << round;
    }
}

} // namespace

} // namespace quillon::completion
