#pragma once

#include "platform/xml/schema/grammar/expressions.h"

#include <memory>

namespace quillon::grammar {

/// Whether an element that the type of the parent knows fits at a place, or why not.
enum class Misfit : quint8 {
    Fits,
    /// When what it needs comes right behind it, as a and b do in (a, b)?.
    NeedsMore,
    /// Not behind what stands ahead of the place.
    NotHere,
    /// It would fit there, but what stands behind would not behind it any more.
    BreaksWhatFollows
};

/// An element that may stand in a parent.
struct Candidate {
    /// Of `elements`.
    Index element = None;
    Misfit misfit = Misfit::Fits;
    /// Without it, or another one that is marked so, the content stays incomplete here.
    bool isNeeded = false;
};

struct Candidates {
    /// All that fit, in the order of the model; then what needs more, what would break something,
    /// and all that the type allows somewhere else.
    std::vector<Candidate> elements;
    /// Of `wildcards`: those that let in others at this place.
    std::vector<Index> wildcards;
};

/// One thing that is wrong with the children of an element.
struct ContentFault {
    enum class Kind : quint8 {
        /// The child may not stand here; nothing is missing.
        Unexpected,
        /// The child may not stand here; one of `expected` may, in its place.
        Misnamed,
        /// One of `expected` is missing ahead of the child, or at the end.
        Missing
    };
    Kind kind = Kind::Unexpected;
    /// 0-based; the number of children for the end.
    std::size_t child = 0;
    /// Of `elements`: what might have come here.
    std::vector<Index> expected;
};

/// The children of one element against the content model of its type. Where a child is wrong, what
/// follows is looked at as if that were mended, so that everything can be asked at any place of any
/// content.
class ContentRun {
public:
    /// In the order of the children.
    const std::vector<ContentFault> &faults() const { return faults_; }
    bool isValid() const { return faults_.empty(); }

    /// What may be inserted ahead of a child, given by its 0-based place; at the end when it is the
    /// number of children.
    Candidates insertable(std::size_t place) const;
    /// What may stand instead of a child: the names it may have.
    Candidates replaceable(std::size_t place) const;

    /// The element of the grammar that a child is; None for one that is wrong there or that a
    /// wildcard lets in. `wildcard`, when wanted, becomes that wildcard, else None.
    Index elementOf(std::size_t place, Index *wildcard = nullptr) const;

    /// All that a child may be: RELAX NG lets several elements of one name stand at a place.
    std::vector<Index> elementsAt(std::size_t place) const;

private:
    friend class ContentMatcher;
    using Id = Expressions::Id;

    ContentRun(std::shared_ptr<Expressions> expressions, const Grammar &grammar, Id start,
               const std::vector<Symbol> &children);

    void mend(std::size_t place);
    int accepted(Id state, std::size_t from) const;
    /// The state behind what is missing ahead of a child; Nothing when nothing would help.
    Id behindMissing(Id state, quint32 child, std::vector<Index> &missing) const;
    Candidates candidates(std::size_t place, std::size_t next) const;
    Misfit misfitOf(Id state, std::size_t next, std::size_t &budget) const;
    bool keepsWhatFollows(Id state, std::size_t next, std::size_t &budget) const;
    std::vector<Index> elementsOf(const std::vector<Expressions::Leaf> &leaves) const;
    quint32 symbolOf(Index element) const;

    std::shared_ptr<Expressions> expressions_;
    Grammar grammar_;
    std::vector<quint32> symbols_;
    /// What may come at each place, the end included.
    std::vector<Id> states_;
    std::vector<ContentFault> faults_;
};

/// Answers what may stand in elements, by the content models of a grammar.
class ContentMatcher {
public:
    explicit ContentMatcher(const Grammar &grammar) : grammar_(grammar) {}

    /// The names of all children that are elements, in order, of an element of a type. Costs time
    /// in proportion to their number.
    ContentRun run(Index type, const std::vector<Symbol> &children);

    /// What has to be put, in this order, behind those children for the content to be complete:
    /// one each of those lists, of which the first element is taken where there are more. No more
    /// than `limit` of them; nothing that may be left out.
    std::vector<std::vector<Index>> completion(Index type, const std::vector<Symbol> &children,
                                               int limit = 100);

    const Grammar &grammar() const { return grammar_; }

private:
    Grammar grammar_;
    std::shared_ptr<Expressions> expressions_;
    /// Numbers of occurrences are looked at up to here.
    quint32 countLimit_ = 0;
};

} // namespace quillon::grammar
