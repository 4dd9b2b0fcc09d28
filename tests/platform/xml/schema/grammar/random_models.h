#pragma once

#include <random>
#include <string>

namespace quillon::grammar::test {

/// Content models and words over the elements a to d, the same for the same seed.
class RandomModels {
public:
    explicit RandomModels(unsigned seed) : random_(seed) {}

    int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }
    std::string model(int depth) {
        static const char *const occurrences[] = {"",  "",      "",      "?",    "*",     "+",
                                                  "?", "{2,3}", "{0,2}", "{2,}", "{1,4}", "{3,3}"};
        std::string text(1, static_cast<char>('a' + below(4)));
        if (depth > 0 && below(3) != 0) {
            const char separator = ",,||&"[below(5)];
            text = "(" + model(depth - 1);
            for (int more = below(3); more > 0; --more)
                text += separator + model(depth - 1);
            text += ")";
        }
        return text + occurrences[below(12)];
    }
    /// One in the markup of XML Schema. Each element, named from 'a' on, stands in it once, and
    /// only elements are counted: of other models libxml2 gets some wrong, or does not come to an
    /// end.
    std::string xsdModel(int depth, char &nextName) {
        static const char *const occurrences[] = {
            "",
            "",
            " minOccurs='0'",
            " maxOccurs='unbounded'",
            " minOccurs='0' maxOccurs='unbounded'",
            " minOccurs='2' maxOccurs='3'",
            " minOccurs='0' maxOccurs='2'",
        };
        if (depth == 0 || below(3) == 0)
            return std::string("<xs:element name='") + nextName++ + "' type='xs:string'" +
                   occurrences[below(7)] + "/>";
        const std::string kind = below(2) == 0 ? "xs:sequence" : "xs:choice";
        // A loop within another is what libxml2 needs all the time there is for.
        std::string text = "<" + kind + occurrences[below(depth == 2 ? 5 : 3)] + ">";
        for (int more = below(3); more >= 0; --more)
            text += xsdModel(depth - 1, nextName);
        return text + "</" + kind + ">";
    }
    std::string word() {
        std::string text;
        for (int length = below(6); length > 0; --length)
            text += static_cast<char>('a' + below(4));
        return text;
    }

private:
    std::mt19937 random_;
};

} // namespace quillon::grammar::test
