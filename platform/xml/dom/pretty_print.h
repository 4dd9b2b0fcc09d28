#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/dom/dom.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

/// Laying a document out anew: lines and indents, and how tags are written. Nothing else changes:
/// no node, no value, no order, no entity, and no text of a comment or a document type.
namespace quillon::xml {

struct LayoutStyle {
    enum class Attributes {
        /// As they stand.
        Keep,
        /// Side by side; where a line would be longer than `width`, on further lines.
        Wrap,
        /// Each on a line of its own, where there are several.
        OnePerLine,
    };
    enum class Empty {
        /// As it is written.
        Keep,
        /// `<a/>`
        Closed,
        /// `<a></a>`
        WithEndTag,
    };

    /// What one level adds to the indent.
    std::string step = "  ";
    Attributes attributes = Attributes::Wrap;
    /// In columns; full-width characters take two of them.
    int width = 100;
    /// Further lines of a tag begin below its first attribute, and not two steps deeper than the
    /// tag, where its first attribute then stands, too.
    bool alignsAttributes = true;
    Empty empty = Empty::Keep;
    /// One blank line stays where there are some.
    bool keepsBlankLines = true;
};

/// What is to change. Good for the document that it was made for and for copies of that, for as
/// long as nothing is inserted there or removed.
class LayoutPlan {
public:
    bool isEmpty() const { return changes_.empty(); }
    /// The number of places that change.
    std::size_t size() const { return changes_.size(); }
    /// False when the plan ends ahead of the end of what it was made for.
    bool isWhole() const { return isWhole_; }

private:
    friend class LayoutPlanner;
    friend void applyLayout(const Node &any, const LayoutPlan &plan);

    enum class Kind : std::uint32_t { Layout, EndLayout, Form };
    struct Change {
        std::uint32_t node;
        Kind kind;
        /// The text's place in texts_, or what tag_form the element gets.
        std::uint32_t value;
    };

    std::vector<Change> changes_;
    /// Every text once.
    std::vector<std::string> texts_;
    bool isWhole_ = true;
};

/// Finds what has to change in an element, or in the document, for it to be laid out in a style. An
/// element's own line stays as it is, and gives the indent of what is in it.
///
/// Elements with character data among their children are left as they are, with everything that is
/// in them, and so are those under xml:space="preserve": white space may mean something there. A
/// blank without a line break in an element that has nothing else may be a value, and stays. A
/// comment behind something on the last of its lines stays there. Lines are indented no deeper than
/// MostLevels.
///
/// Costs time in proportion to what is looked at: no more than about `mostNodes`, where the plan
/// ends. Raises Cancelled when the progress function has it stopped. Nothing changes either way.
LayoutPlan planLayout(const Node &top, const LayoutStyle &style,
                      const runtime::Progress &progress = {},
                      std::size_t mostNodes = std::numeric_limits<std::size_t>::max());

inline constexpr std::size_t MostLevels = 200;

/// Carries a plan out in the document of any of its nodes. All nodes keep their numbers.
void applyLayout(const Node &any, const LayoutPlan &plan);

} // namespace quillon::xml
