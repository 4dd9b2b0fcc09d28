#pragma once

#include "platform/xml/dom/dom.h"

#include <string>
#include <string_view>

namespace quillon::xml {

/// Kinds of the parts of nodes that hold characters, as bits.
namespace part_kind {
constexpr unsigned ElementName = 1;
constexpr unsigned AttributeName = 2;
constexpr unsigned AttributeValue = 4;
constexpr unsigned Text = 8;
constexpr unsigned CData = 16;
constexpr unsigned Comment = 32;
/// The target of an instruction is its name. The XML declaration is one, too.
constexpr unsigned InstructionName = 64;
constexpr unsigned InstructionValue = 128;
} // namespace part_kind

/// A name or a value of a node.
struct NodePart {
    quint32 node = 0;
    /// One of part_kind.
    unsigned kind = 0;
    /// For a name: a number that is the same for equal names of the document, and no other; they
    /// are small and without great gaps. Else 0.
    quint32 nameNumber = 0;
    /// UTF-8, with LF line ends; good until the walk goes on.
    std::string_view characters;

    bool isName() const { return nameNumber != 0; }
};

/// Goes over the parts of a node and of everything below it in document order: an element's name,
/// its attributes, each name ahead of its value, then what is in it. Made for millions of parts:
/// values that were read are seen where they stand in the source. The document must not change
/// meanwhile.
class PartWalk {
public:
    /// `kinds`: a sum of part_kind, the parts that are wanted.
    PartWalk(const Node &top, unsigned kinds);

    /// Begins not with the top, but with a node below it, or an attribute of such a node.
    void startAt(const Node &node);
    /// Goes on to the next part; false when there is none. `part` is left as it was then.
    bool next(NodePart &part);
    /// The node that the walk has come to; 0 at the end.
    quint32 current() const { return attribute_ != 0 ? attribute_ : node_; }

private:
    /// What of the present node comes next.
    enum class Step : quint8 { Name, Value, Done };

    bool take(quint32 number, unsigned name, unsigned value, NodePart &part);
    bool takeNode(NodePart &part);
    void advance();

    Node top_;
    bool isAttributeAlone_;
    unsigned kinds_;
    quint32 node_;
    /// Where the walk is among the attributes of node_; 0 outside of them.
    quint32 attribute_ = 0;
    Step step_ = Step::Name;
    std::string buffer_;
};

} // namespace quillon::xml
