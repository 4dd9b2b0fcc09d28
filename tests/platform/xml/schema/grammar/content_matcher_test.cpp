#include "tests/platform/xml/schema/grammar/grammar_test_support.h"
#include "tests/platform/xml/schema/grammar/random_models.h"

namespace quillon::grammar {

namespace {

using namespace test;

/// Says whether a word is of a model by trying every way to take it apart.
class Oracle {
public:
    explicit Oracle(const Data &data) : data_(data) {}

    bool takes(Index particle, const std::string &word) {
        const Particle &piece = data_.particles[particle];
        return repeats(particle, piece.minimum, piece.maximum, word);
    }

private:
    bool repeats(Index particle, quint32 minimum, quint32 maximum, const std::string &word) {
        // An empty turn helps to get to the minimum only.
        if (word.empty())
            return minimum == 0 || once(particle, word);
        if (maximum == 0)
            return false;
        const auto key = std::tuple(particle, minimum, maximum, word);
        if (const auto known = known_.find(key); known != known_.end())
            return known->second;
        bool found =
            once(particle, word) && (minimum <= 1 || repeats(particle, minimum - 1, Unbounded, ""));
        for (std::size_t at = 1; at < word.size() && !found; ++at)
            found = once(particle, word.substr(0, at)) &&
                    repeats(particle, minimum == 0 ? 0 : minimum - 1,
                            maximum == Unbounded ? Unbounded : maximum - 1, word.substr(at));
        return known_[key] = found;
    }
    bool once(Index particle, const std::string &word) {
        const Particle &piece = data_.particles[particle];
        if (piece.kind == ParticleKind::Wildcard)
            return word.size() == 1;
        if (piece.kind == ParticleKind::Element)
            return word == nameOf(piece.target);
        if (piece.kind != ParticleKind::Choice)
            return inOrder(piece, 0, word);
        for (Index i = 0; i < piece.parts.count; ++i) {
            if (takes(data_.particleLists[piece.parts.first + i], word))
                return true;
        }
        return false;
    }
    bool inOrder(const Particle &piece, Index from, const std::string &word) {
        if (from == piece.parts.count)
            return word.empty();
        const Index part = data_.particleLists[piece.parts.first + from];
        const bool mingles = piece.kind == ParticleKind::Interleave;
        const unsigned ways = mingles ? 1U << word.size() : unsigned(word.size()) + 1;
        for (unsigned way = 0; way < ways; ++way) {
            std::string mine, others;
            for (std::size_t i = 0; i < word.size(); ++i)
                (mingles ? way >> i & 1 : i < way) ? mine += word[i] : others += word[i];
            if (takes(part, mine) && inOrder(piece, from + 1, others))
                return true;
        }
        return false;
    }
    std::string nameOf(Index element) const {
        return data_.strings.at(data_.elements[element].name.local).toString().toStdString();
    }

    const Data &data_;
    std::map<std::tuple<Index, quint32, quint32, std::string>, bool> known_;
};

TEST(ContentMatcher, AgreesWithEveryWayToTakeAWordApart) {
    int valid = 0, fitting = 0;
    for (unsigned seed = 0; seed < 250; ++seed) {
        RandomModels random(seed);
        const std::string model = random.model(3);
        const Grammar grammar{ModelGrammar(model).data()};
        Oracle oracle(grammar.data());
        ContentMatcher matcher(grammar);
        const Index whole = grammar.type(0).particle;
        for (int count = 0; count < 12; ++count) {
            const std::string word = random.word();
            const std::string what = model + " / " + word;
            const ContentRun run = matcher.run(0, children(grammar, word));
            ASSERT_EQ(run.isValid(), oracle.takes(whole, word)) << what;
            if (!run.isValid()) {
                // Up to the first fault it is the start of something valid.
                std::string mended = word.substr(0, run.faults().front().child);
                for (const auto &step : matcher.completion(0, children(grammar, mended)))
                    mended += nameOf(grammar, step.front());
                EXPECT_TRUE(mended.size() > 12 || oracle.takes(whole, mended)) << what;
                continue;
            }
            ++valid;
            for (std::size_t place = 0; place <= word.size(); ++place) {
                for (const Candidate &candidate : run.insertable(place).elements) {
                    std::string changed = word;
                    changed.insert(place, nameOf(grammar, candidate.element));
                    ASSERT_EQ(candidate.misfit == Misfit::Fits, oracle.takes(whole, changed))
                        << model << " / " << changed;
                    fitting += candidate.misfit == Misfit::Fits;
                }
                if (place == word.size())
                    continue;
                for (const Candidate &candidate : run.replaceable(place).elements) {
                    std::string changed = word;
                    changed.replace(place, 1, nameOf(grammar, candidate.element));
                    ASSERT_EQ(candidate.misfit == Misfit::Fits, oracle.takes(whole, changed))
                        << model << " / " << changed;
                }
            }
        }
    }
    EXPECT_GT(valid, 250);
    EXPECT_GT(fitting, 250);
}

TEST(ContentMatcher, TellsWhatMayStandWhere) {
    const struct {
        std::string model, names;
        std::size_t place;
        std::string insertable, replaceable;
    } cases[] = {
        // What may follow, what would break what follows, and what has its place elsewhere.
        {"a,b?,c", "ac", 1, "b / c< a", "c / b+ a"},
        {"a,b?,c", "ac", 0, " / a< b c", "a / b c"},
        {"(a,b)*", "abab", 2, " / a+ b", "a / b"},
        {"(a,b)?,c", "c", 0, " / a+ c< b", "c / a+ b"},
        {"a{1,3}", "aaa", 1, " / a<", "a"},
        {"a{2,3}", "aa", 2, "a", ""},
        // What is missing is marked; of a choice all, as one of them has to come.
        {"a,b?,c", "a", 1, "b c! / a", ""},
        {"a,(b|c),d", "ad", 1, "b! c! / a d", " / b+ c+ a d"},
        {"a,b", "", 0, "a! / b", ""},
        // In invalid content: ahead of, at and behind what is wrong.
        {"a,b?,c", "axc", 2, "b / c< a", "c / b+ a"},
        {"a,b,c", "axc", 1, "b / a c", "b! / a c"},
        {"a*,b", "xyz", 0, "a b", "a b"},
    };
    for (const auto &at : cases) {
        const Grammar grammar{ModelGrammar(at.model).data()};
        ContentMatcher matcher(grammar);
        const ContentRun run = matcher.run(0, children(grammar, at.names));
        const std::string what = at.model + " / " + at.names + " at " + std::to_string(at.place);
        EXPECT_EQ(shown(grammar, run.insertable(at.place)), at.insertable) << what;
        if (at.place < at.names.size()) {
            EXPECT_EQ(shown(grammar, run.replaceable(at.place)), at.replaceable) << what;
        }
    }
}

TEST(ContentMatcher, FindsWhatIsWrongAndGoesOn) {
    using Kind = ContentFault::Kind;
    struct Fault {
        Kind kind;
        std::size_t child;
        std::string expected;
    };
    const struct {
        std::string model, names;
        std::vector<Fault> faults;
    } cases[] = {
        {"a,b,c", "abc", {}},
        {"a,b,c", "ac", {{Kind::Missing, 1, "b"}}},
        {"a,b,c", "a", {{Kind::Missing, 1, "b"}}},
        {"a,b,c", "axc", {{Kind::Misnamed, 1, "b"}}},
        {"a,b,c", "axbc", {{Kind::Unexpected, 1, "b"}}},
        {"a,b,c", "abcx", {{Kind::Unexpected, 3, ""}}},
        {"a,(b|c),d", "ad", {{Kind::Missing, 1, "b c"}}},
        {"a,(b,c)?,d", "acd", {{Kind::Missing, 1, "b"}}},
        {"a,b,c,d", "ad", {{Kind::Missing, 1, "b"}}},
        {"(a,b)*", "abaabab", {{Kind::Missing, 3, "b"}}},
        {"(a,b)*", "abxabyab", {{Kind::Unexpected, 2, "a"}, {Kind::Unexpected, 5, "a"}}},
        {"a{2,2},b", "aaab", {{Kind::Unexpected, 2, "b"}}},
        {"a&b&c", "cab", {}},
        {"a&b&c", "cc", {{Kind::Unexpected, 1, "a b"}, {Kind::Missing, 2, "a"}}},
        {"a,.", "ax", {}},
    };
    for (const auto &at : cases) {
        const Grammar grammar{ModelGrammar(at.model).data()};
        ContentMatcher matcher(grammar);
        const ContentRun run = matcher.run(0, children(grammar, at.names));
        const std::string what = at.model + " / " + at.names;
        ASSERT_EQ(run.faults().size(), at.faults.size()) << what;
        for (std::size_t i = 0; i < at.faults.size(); ++i) {
            EXPECT_EQ(run.faults()[i].kind, at.faults[i].kind) << what;
            EXPECT_EQ(run.faults()[i].child, at.faults[i].child) << what;
            EXPECT_EQ(namesOf(grammar, run.faults()[i].expected), at.faults[i].expected) << what;
        }
    }
}

TEST(ContentMatcher, CompletesWithNothingThatMayBeLeftOut) {
    const struct {
        std::string model, names, completion;
    } cases[] = {
        {"a?,b,c*,(d|e),f{2,9}", "", "b, d e, f, f"},
        {"a?,b,c*,(d|e),f{2,9}", "abe", "f, f"},
        {"(a,b)*", "a", "b"},
        {"a&b?&c", "c", "a"},
        {"a{1000000000,}", "", "a, a, a, a, a"},
    };
    for (const auto &at : cases) {
        const Grammar grammar{ModelGrammar(at.model).data()};
        ContentMatcher matcher(grammar);
        std::string completion;
        for (const auto &step : matcher.completion(0, children(grammar, at.names), 5))
            completion += (completion.empty() ? "" : ", ") + namesOf(grammar, step);
        EXPECT_EQ(completion, at.completion) << at.model << " / " << at.names;
    }
}

/// Whatever a model does, an answer takes a time in proportion to the children.
TEST(ContentMatcher, CountsAndDoesNotUnroll) {
    std::string doubling = "a?";
    for (int depth = 0; depth < 12; ++depth)
        doubling = "(" + doubling + "," + doubling + ")";
    const struct {
        std::string model;
        bool hasRoom;
    } cases[] = {
        {"(a,b){0,1000000000}", false},
        {"((a,b){1,1000}){1,1000}", false},
        {"((a,b)?){60000,1000000000}", false},
        {"(((a?,b?)*)*)*", true},
        {"((a|b){0,40}){0,40},(a|b)*", true},
        {doubling + ",(a|b)*", true},
        {"(a,b){50000,50000}", false},
        {"(a|b){0,100001}", true},
        {"(a|b){0,100000}", false},
    };
    std::string names;
    for (int i = 0; i < 50'000; ++i)
        names += "ab";
    for (const auto &at : cases) {
        const Grammar grammar{ModelGrammar(at.model).data()};
        ContentMatcher matcher(grammar);
        const ContentRun run = matcher.run(0, children(grammar, names));
        EXPECT_TRUE(run.isValid()) << at.model.substr(0, 60);
        EXPECT_EQ(run.insertable(70'001).elements.front().misfit == Misfit::Fits, at.hasRoom)
            << at.model.substr(0, 60);
    }
}

/// A choice of very many, of which most are substitutes: each of them is tried in turn.
TEST(ContentMatcher, OffersVeryMany) {
    GrammarBuilder builder(Language::Xsd);
    Data &data = builder.data;
    data.types.resize(1);
    std::vector<Index> parts, substitutes;
    for (Index i = 0; i < 40'000; ++i) {
        Element element;
        element.name = builder.name({}, QString::number(i));
        element.type = 0;
        data.elements.push_back(element);
        if (i % 2 == 0)
            parts.push_back(builder.particle(ParticleKind::Element, i));
        else
            substitutes.push_back(i);
    }
    data.elements[0].substitutes = builder.elementList(substitutes);
    data.types[0].content = Content::Elements;
    data.types[0].particle = builder.group(
        ParticleKind::Sequence, {builder.group(ParticleKind::Choice, parts, 0, Unbounded),
                                 builder.particle(ParticleKind::Element, 0)});
    const Grammar grammar(std::move(data));
    ContentMatcher matcher(grammar);
    const Candidates candidates = matcher.run(0, {grammar.symbol(u"", u"39")}).insertable(0);
    EXPECT_EQ(candidates.elements.size(), 40'000U);
    EXPECT_TRUE(std::ranges::all_of(candidates.elements, [](const Candidate &candidate) {
        return candidate.misfit == Misfit::Fits;
    }));
}

/// A model that is in more and more states at once is given up, and then nothing is called wrong.
TEST(ContentMatcher, GivesUpAModelMadeForIt) {
    std::string model = "a?";
    for (int i = 0; i < 40; ++i)
        model += std::string("&(a,") + "bcdefg"[i % 6] + (i % 2 ? "?,a)*" : ",a?)*");
    const Grammar grammar{ModelGrammar(model).data()};
    ContentMatcher matcher(grammar);
    EXPECT_TRUE(matcher.run(0, children(grammar, std::string(200, 'a') + "zz")).isValid());
    EXPECT_FALSE(matcher.run(0, children(grammar, "z")).isValid());
}

} // namespace

} // namespace quillon::grammar
