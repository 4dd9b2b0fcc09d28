#include "platform/xml/schema/grammar/attribute_choices.h"

#include <algorithm>

namespace quillon::grammar {

namespace {

Symbol symbolOf(const Name &name) {
    return {name.space, name.local};
}

} // namespace

AttributeChoices attributeChoices(const Grammar &grammar, Index type,
                                  const std::vector<Symbol> &present) {
    const Data &data = grammar.data();
    const Type &declared = grammar.type(type);
    AttributeChoices choices;
    std::vector<bool> known(present.size());
    const auto add = [&](const Attribute &attribute) {
        const auto at = std::ranges::find(present, symbolOf(attribute.name));
        const int place = at == present.end() ? -1 : static_cast<int>(at - present.begin());
        if (place >= 0)
            known[static_cast<std::size_t>(place)] = true;
        choices.attributes.push_back({&attribute, place});
    };
    for (const Attribute &attribute : grammar.attributesOf(declared))
        add(attribute);
    const std::size_t own = choices.attributes.size();
    if (declared.anyAttribute != None) {
        const Wildcard &wildcard = data.wildcards[declared.anyAttribute];
        for (Index i = 0; i < data.globalAttributes.count; ++i) {
            const Attribute &attribute = data.attributes[data.globalAttributes.first + i];
            const bool isOwn =
                std::any_of(choices.attributes.begin(),
                            choices.attributes.begin() + static_cast<std::ptrdiff_t>(own),
                            [&](const AttributeChoice &choice) {
                                return choice.attribute->name == attribute.name;
                            });
            // Required is what the type says, and a wildcard requires nothing.
            if (!isOwn && grammar.matches(wildcard, symbolOf(attribute.name)))
                add(attribute);
        }
        for (std::size_t i = 0; i < present.size(); ++i)
            known[i] = known[i] || (wildcard.process != Process::Strict &&
                                    grammar.matches(wildcard, present[i]));
    }
    for (std::size_t i = 0; i < known.size(); ++i) {
        if (!known[i])
            choices.unexpected.push_back(static_cast<int>(i));
    }
    return choices;
}

} // namespace quillon::grammar
