#include "candidates/grammar_entries.h"

#include "candidates/type_words.h"
#include "resources/candidate_texts.h"

#include <QStringList>

#include <algorithm>
#include <unordered_set>

namespace quillon::candidates {

using namespace grammar;
namespace texts = resources::candidate_texts;

namespace {

/// So many of the elements that a wildcard lets in are listed.
constexpr std::size_t MaxByWildcard = 1000;

Entry elementEntry(const SkeletonMaker &maker, Index element, const NameScope &scope) {
    const Grammar &grammar = maker.grammar();
    Entry entry{maker.elementName(element, scope), element};
    entry.type = wordsForElement(grammar, element);
    entry.documentation = documentationOf(grammar, element);
    return entry;
}

QString remarkFor(Misfit misfit) {
    switch (misfit) {
    case Misfit::Fits:
        return {};
    case Misfit::NeedsMore:
        return texts::NeedsMore.toString();
    case Misfit::NotHere:
        return texts::NotHere.toString();
    case Misfit::BreaksWhatFollows:
        return texts::BreaksWhatFollows.toString();
    }
    return {};
}

QString wordsForWildcard(const Grammar &grammar, const Wildcard &wildcard) {
    if (wildcard.rule == NamespaceRule::Any)
        return texts::AnyElement.toString();
    QStringList namespaces;
    for (Index i = 0; i < wildcard.namespaces.count; ++i) {
        const Index space = grammar.data().stringLists[wildcard.namespaces.first + i];
        namespaces.append(space == 0 ? texts::NoNamespace.toString()
                                     : grammar.text(space).toString());
    }
    const bool isListed = wildcard.rule == NamespaceRule::Listed;
    return (isListed ? texts::AnyElementOf : texts::AnyElementNotOf)
        .toString()
        .arg(namespaces.join(u", "));
}

} // namespace

EntryList elementEntries(const SkeletonMaker &maker, const Candidates &found,
                         const NameScope &scope) {
    const Grammar &grammar = maker.grammar();
    EntryList list;
    std::vector<Entry> refused;
    std::unordered_set<Index> listed;
    for (const Candidate &candidate : found.elements) {
        if (!listed.insert(candidate.element).second)
            continue;
        Entry entry = elementEntry(maker, candidate.element, scope);
        entry.isMandatory = candidate.isNeeded;
        entry.remark = remarkFor(candidate.misfit);
        entry.isAllowed = candidate.misfit == Misfit::Fits || candidate.misfit == Misfit::NeedsMore;
        if (entry.isAllowed && maker.isEndless(candidate.element))
            entry.remark = texts::Endless.toString();
        (entry.isAllowed ? list.entries : refused).push_back(std::move(entry));
    }
    std::ranges::stable_partition(list.entries, &Entry::isMandatory);
    QStringList remarks;
    for (const Index wildcard : found.wildcards) {
        const QString remark = wordsForWildcard(grammar, grammar.data().wildcards[wildcard]);
        if (!remarks.contains(remark))
            remarks.append(remark);
        for (const Index element : grammar.standingForWildcard(wildcard)) {
            if (list.entries.size() >= MaxByWildcard)
                break;
            if (!listed.insert(element).second)
                continue;
            list.entries.push_back(elementEntry(maker, element, scope));
            list.entries.back().remark = texts::ByWildcard.toString();
        }
    }
    std::ranges::move(refused, std::back_inserter(list.entries));
    if (remarks.isEmpty() && list.entries.empty())
        remarks.append(texts::NoElementsLeft.toString());
    list.remark = remarks.join(u'\n');
    return list;
}

EntryList rootEntries(const SkeletonMaker &maker, const QString &firstName) {
    EntryList list;
    for (const Index element : maker.grammar().globalElements()) {
        if (!maker.grammar().element(element).isAbstract)
            list.entries.push_back(elementEntry(maker, element, {}));
    }
    std::ranges::stable_partition(list.entries,
                                  [&](const Entry &entry) { return entry.name == firstName; });
    return list;
}

EntryList attributeEntries(const SkeletonMaker &maker, Index type,
                           const std::vector<Symbol> &present, const NameScope &scope) {
    const Grammar &grammar = maker.grammar();
    EntryList list;
    for (const AttributeChoice &choice : attributeChoices(grammar, type, present).attributes) {
        const Attribute &attribute = *choice.attribute;
        Entry entry{maker.attributeName(attribute, scope),
                    static_cast<Index>(&attribute - grammar.data().attributes.data())};
        entry.isMandatory = choice.isMissing();
        entry.isAllowed = choice.present < 0;
        if (!entry.isAllowed)
            entry.remark = texts::IsThere.toString();
        entry.type = wordsForAttribute(grammar, attribute);
        entry.documentation = documentationOf(grammar, attribute);
        list.entries.push_back(std::move(entry));
    }
    const auto order = [](const Entry &entry) {
        return entry.isMandatory ? 0 : entry.isAllowed ? 1 : 2;
    };
    std::ranges::stable_sort(list.entries, {}, order);
    if (list.entries.empty())
        list.remark = texts::NoAttributes.toString();
    return list;
}

} // namespace quillon::candidates
