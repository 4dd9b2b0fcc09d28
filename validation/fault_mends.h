#pragma once

#include "candidates/candidate_finder.h"
#include "validation/element_faults.h"

namespace quillon::validation {

/// One way to mend a fault.
struct Mend {
    enum class Action : quint8 {
        /// Puts `entries`, elements, ahead of the child `node`; as the last children of it where
        /// `isAtEnd` is set.
        InsertElements,
        /// Gives an element, an attribute or a value `text` in the place of what it has.
        Rename,
        SetValue,
        /// Adds the only one of `entries`.
        AddAttribute,
        /// Removes the node.
        Remove,
    };
    Action action = Action::Remove;
    quint32 node = 0;
    bool isAtEnd = false;
    QString text = {};
    std::vector<candidates::Entry> entries = {};
    /// What it does, in Japanese.
    QString caption = {};

    /// Whether two do the same.
    bool operator==(const Mend &other) const {
        return action == other.action && node == other.node && caption == other.caption;
    }
};

/// Finds what may be done about faults, by the grammar of the document: nothing without one.
class FaultMends {
public:
    explicit FaultMends(candidates::CandidateFinder &finder) : finder_(finder) {}

    /// The mends of everything that is wrong at a node: an element, an attribute or text; the
    /// nearest first. Names are not changed where `areNamesLocked`.
    std::vector<Mend> at(const xml::Node &node, bool areNamesLocked);

private:
    struct Element;

    void ofContent(const Element &element, std::vector<Mend> &mends);
    void ofAttributes(const Element &element, const xml::Node &only, std::vector<Mend> &mends);
    void ofPlace(const xml::Node &child, bool areNamesLocked, std::vector<Mend> &mends);
    void ofText(const Element &element, std::vector<Mend> &mends);
    Mend insertion(const xml::Node &parent, const xml::Node &before,
                   const std::vector<grammar::Index> &elements) const;
    void addRenames(const xml::Node &element, const std::vector<grammar::Index> &elements,
                    std::vector<Mend> &mends) const;

    candidates::CandidateFinder &finder_;
};

/// Those of some words that are most like another one, the nearest first; none that has hardly
/// anything in common with it.
QStringList nearest(const QString &word, const QStringList &words, qsizetype most);

} // namespace quillon::validation
