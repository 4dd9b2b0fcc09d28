#pragma once

#include <QString>

#include <unordered_map>
#include <vector>

namespace quillon::xml {

/// Children of a node that follow one another, from one to another.
struct ChildRun {
    /// Those that are kept are in a page already that is to take in what the stylesheet makes.
    enum class Kind { Shown, LeftOut, Kept };

    Kind kind = Kind::Shown;
    /// Node::number() of the first and the last.
    quint32 first = 0;
    quint32 last = 0;
    quint32 count = 0;
    /// What stands for them where they are left out.
    QString label = {};
};

/// A part of a document: for some nodes, by their number, the runs that together are all of their
/// children in their order. The children of all other nodes that belong to the part do so, too.
using DocumentPart = std::unordered_map<quint32, std::vector<ChildRun>>;

} // namespace quillon::xml
