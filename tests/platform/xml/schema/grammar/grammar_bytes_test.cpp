#include "platform/xml/schema/grammar/grammar_bytes.h"
#include "platform/xml/schema/grammar/grammar_from_dtd.h"
#include "tests/platform/xml/schema/grammar/grammar_test_support.h"

#include <cstring>
#include <random>

namespace quillon::grammar {

namespace {

using namespace test;

Data sample() {
    SchemaFiles files({}, {});
    return grammarFromDtd({},
                          "<!--A--><!ELEMENT a (b?,(c|d)+,b)><!ELEMENT b (#PCDATA|a)*>"
                          "<!ELEMENT c ANY><!ELEMENT d EMPTY>"
                          "<!ATTLIST a id ID #REQUIRED kind (x|y) 'x' refs IDREFS #IMPLIED>",
                          files);
}

/// Asks a grammar everything there is to ask.
void askAll(const Grammar &grammar) {
    ContentMatcher matcher(grammar);
    const Data &data = grammar.data();
    for (Index i = 0; i < data.strings.count(); ++i)
        grammar.text(i);
    for (const Element &element : data.elements)
        grammar.childElement(element.type, grammar.symbol(u"", u"b"));
    for (Index type = 0; type < data.types.size(); ++type) {
        const ContentRun run = matcher.run(type, children(grammar, "bcxdb"));
        for (std::size_t place = 0; place < 5; ++place) {
            run.insertable(place);
            run.replaceable(place);
            run.elementOf(place);
        }
        matcher.completion(type, {});
        attributeChoices(grammar, type, children(grammar, "a"));
        grammar.typesFor(type);
    }
}

TEST(GrammarBytes, GiveTheSameGrammar) {
    const Data data = sample();
    const std::optional<Data> back = fromBytes(toBytes(data));
    ASSERT_TRUE(back);
    EXPECT_EQ(toBytes(*back), toBytes(data));
    askAll(Grammar(*back));
    EXPECT_FALSE(fromBytes(toBytes(data) + '\0'));
    EXPECT_FALSE(fromBytes({}));
}

/// Whoever has the bytes sent: a grammar that comes out of them can be asked everything.
TEST(GrammarBytes, AreCheckedWhoeverWroteThem) {
    const QByteArray bytes = toBytes(sample());
    std::mt19937 random(1);
    int accepted = 0;
    for (int count = 0; count < 20'000; ++count) {
        QByteArray changed = bytes;
        static const quint32 values[] = {0, 1, 2, 5, 40, 0x7FFFFFFF, 0xFFFFFFFF, 0xFFFFFFFE};
        for (int change = 0; change <= count % 3; ++change)
            std::memcpy(changed.data() + random() % std::size_t(changed.size() / 4) * 4,
                        &values[random() % std::size(values)], 4);
        if (count % 10 == 0)
            changed.truncate(random() % std::size_t(changed.size()));
        const std::optional<Data> data = fromBytes(changed);
        if (!data)
            continue;
        ++accepted;
        askAll(Grammar(*data));
    }
    EXPECT_GT(accepted, 1000);
}

} // namespace

} // namespace quillon::grammar
