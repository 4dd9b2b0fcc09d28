#pragma once

#include "platform/xml/schema/grammar/attribute_choices.h"
#include "platform/xml/schema/grammar/content_matcher.h"
#include "platform/xml/schema/grammar/grammar_builder.h"

#include <cctype>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace quillon::grammar::test {

/// A grammar with one type, 0, whose content model is given as in "a,b{2,5},(c|d)*,(e&f?)".
/// Elements have names of one letter; '.' lets in elements of any namespace.
class ModelGrammar {
public:
    explicit ModelGrammar(const std::string &model) : rest_(model) {
        builder_.data.types.push_back({});
        builder_.data.types[0].content = Content::Elements;
        builder_.data.types[0].particle = readGroup();
        EXPECT_TRUE(rest_.empty()) << model << " at " << rest_;
    }
    const Data &data() const { return builder_.data; }

private:
    Index readGroup() {
        std::vector<Index> parts{readPart()};
        const char separator = rest_.empty() ? ')' : rest_.front();
        while (!rest_.empty() && rest_.front() == separator && separator != ')') {
            rest_.erase(0, 1);
            parts.push_back(readPart());
        }
        const ParticleKind kind = separator == '|'   ? ParticleKind::Choice
                                  : separator == '&' ? ParticleKind::Interleave
                                                     : ParticleKind::Sequence;
        return parts.size() == 1 ? parts.front() : builder_.group(kind, parts);
    }
    Index readPart() {
        const char first = rest_.front();
        rest_.erase(0, 1);
        if (first != '(') {
            const Index leaf = first == '.' ? wildcard() : element(first);
            return repeated(leaf);
        }
        const Index group = readGroup();
        rest_.erase(0, 1);
        return repeated(builder_.group(ParticleKind::Sequence, {group}));
    }
    Index repeated(Index part) {
        Particle &particle = builder_.data.particles[part];
        const char sign = rest_.empty() ? ' ' : rest_.front();
        if (sign == '{') {
            const std::size_t comma = rest_.find(','), end = rest_.find('}');
            particle.minimum = static_cast<quint32>(std::stoul(rest_.substr(1)));
            particle.maximum = comma + 1 == end
                                   ? Unbounded
                                   : static_cast<quint32>(std::stoul(rest_.substr(comma + 1)));
            rest_.erase(0, end + 1);
        } else if (sign == '?' || sign == '*' || sign == '+') {
            particle.minimum = sign == '+' ? 1 : 0;
            particle.maximum = sign == '?' ? 1 : Unbounded;
            rest_.erase(0, 1);
        }
        return part;
    }
    Index element(char name) {
        if (!elements_.contains(name)) {
            Element element;
            element.name = builder_.name(QString(), QString(QLatin1Char(name)));
            element.type = 0;
            elements_[name] = static_cast<Index>(builder_.data.elements.size());
            builder_.data.elements.push_back(element);
        }
        return builder_.particle(ParticleKind::Element, elements_[name]);
    }
    Index wildcard() {
        builder_.data.wildcards.push_back({});
        return builder_.particle(ParticleKind::Wildcard,
                                 static_cast<Index>(builder_.data.wildcards.size()) - 1);
    }

    GrammarBuilder builder_{Language::Xsd};
    std::string rest_;
    std::map<char, Index> elements_;
};

/// Children with names of one letter each.
inline std::vector<Symbol> children(const Grammar &grammar, const std::string &names) {
    std::vector<Symbol> symbols;
    for (const char name : names)
        symbols.push_back(grammar.symbol(u"", QString(QLatin1Char(name))));
    return symbols;
}

inline std::string textOf(const Grammar &grammar, Index text) {
    return grammar.text(text).toString().toStdString();
}

/// A line for each: name, type, values, "!" when it is missing.
inline std::string shown(const Grammar &grammar, const AttributeChoices &choices) {
    std::string shown;
    for (const AttributeChoice &choice : choices.attributes) {
        const Attribute &attribute = *choice.attribute;
        const SimpleType type =
            attribute.type == None ? SimpleType() : grammar.data().simpleTypes[attribute.type];
        shown += textOf(grammar, attribute.name.local) + " " + textOf(grammar, type.builtIn);
        for (Index i = 0; i < type.enumeration.count; ++i)
            shown +=
                " " + textOf(grammar, grammar.data().enumerations[type.enumeration.first + i].text);
        if (attribute.valueRule != ValueRule::Free)
            shown += (attribute.valueRule == ValueRule::Fixed ? " == " : " = ") +
                     textOf(grammar, attribute.value);
        shown += std::string(choice.isMissing() ? "!" : "") +
                 (choice.present >= 0 ? " is there" : "") + "\n";
    }
    return shown;
}

inline std::string nameOf(const Grammar &grammar, Index element) {
    return textOf(grammar, grammar.element(element).name.local);
}

inline std::string namesOf(const Grammar &grammar, const std::vector<Index> &elements) {
    std::string names;
    for (const Index element : elements)
        names += (names.empty() ? "" : " ") + nameOf(grammar, element);
    return names;
}

/// Those that fit, "!" behind what is needed; behind a slash those that do not, "+" behind what
/// needs more, "<" behind what would break what follows.
inline std::string shown(const Grammar &grammar, const Candidates &candidates) {
    std::string fits, misfits;
    for (const Candidate &candidate : candidates.elements) {
        std::string &to = candidate.misfit == Misfit::Fits ? fits : misfits;
        to += (to.empty() ? "" : " ") + nameOf(grammar, candidate.element) +
              (candidate.isNeeded ? "!" : "") + (candidate.misfit == Misfit::NeedsMore ? "+" : "") +
              (candidate.misfit == Misfit::BreaksWhatFollows ? "<" : "");
    }
    return fits + (misfits.empty() ? "" : " / " + misfits);
}

} // namespace quillon::grammar::test
