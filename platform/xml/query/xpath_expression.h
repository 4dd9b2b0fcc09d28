#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::xml {

/// A part of the text of an expression: byte positions, end exclusive.
struct XPathToken {
    enum class Kind { Name, Digits, Literal, Symbol, End };

    Kind kind;
    std::size_t start;
    std::size_t end;
};

/// The text of an XPath expression, cut into tokens. Says what can be said without grammar.
class XPathExpression {
public:
    using Steps = std::vector<std::string>;

    explicit XPathExpression(std::string utf8);

    const std::string &utf8() const { return utf8_; }
    std::string_view text(const XPathToken &token) const {
        return std::string_view(utf8_).substr(token.start, token.end - token.start);
    }
    /// All tokens; the last one is of the kind End.
    const std::vector<XPathToken> &tokens() const { return tokens_; }
    /// The token at a position, else the first one after it.
    const XPathToken &tokenAt(std::size_t position) const;
    /// The name of the first call of that function; the end for none.
    const XPathToken &callOf(std::string_view function) const;
    /// The name of the first use of that variable; the end for none.
    const XPathToken &useOf(std::string_view variable) const;
    bool usesVariable() const;
    /// Whether the text ends inside parentheses, right after something that is complete.
    bool lacksParenthesis() const;
    /// The prefixes of the names in it, in order.
    std::vector<XPathToken> prefixes() const;
    /// The names of elements in it that have no prefix, in order.
    std::vector<XPathToken> plainNames() const;
    /// The same expression with that prefix ahead of every one of them.
    std::string withPrefix(std::string_view prefix) const;

    /// The same expression or pattern in words that libxml2 understands: it takes "/" alone for a
    /// whole path where a name beyond ASCII follows, unless the name's axis is written.
    std::string forLibxml2() const;
    /// The byte position in utf8() of one in that text.
    std::size_t positionOf(std::size_t positionForLibxml2) const;

    /// The same query as alternatives (cut at "|") of steps that are to be taken one after the
    /// other, each from every node that the one before has found, where finding a node again
    /// counts for nothing. libxml2 compares each node that a step finds with all found before
    /// when the step may find one twice (as parent, ancestor or descendant of several nodes), and
    /// each node of a union with all others. Found nodes can be told apart in less time, so cuts
    /// are made where it would do that; what it does at once stays together. It also refuses a path
    /// of thousands of steps, so that one is cut now and then.
    std::vector<Steps> steps() const;

private:
    using Kind = XPathToken::Kind;

    void scan();
    void findOperators();
    std::size_t endOfToken(std::size_t start, Kind &kind) const;
    bool is(std::size_t token, std::string_view symbol) const;
    /// Whether a token that may be a name, or "*", stands where only an operator can.
    bool isOperator(std::size_t token) const { return operators_[token]; }
    bool findsNodesTwice(std::size_t firstOfStep) const;
    /// Where libxml2 needs the axis written, ascending.
    std::vector<std::size_t> placesOfAxes() const;
    /// The token that closes the bracket in that place.
    std::size_t closeOf(std::size_t open) const;
    /// Adds the alternatives between two tokens; false when that part cannot select nodes.
    bool addAlternatives(std::size_t first, std::size_t end, std::vector<Steps> &all) const;
    bool addAlternative(std::size_t first, std::size_t end, std::vector<Steps> &all) const;
    /// The steps between two tokens; all of them when the first token is the "/" after a group.
    Steps stepsBetween(std::size_t first, std::size_t end, bool isAfterGroup) const;

    std::string utf8_;
    std::vector<XPathToken> tokens_;
    /// By token.
    std::vector<bool> operators_;
};

} // namespace quillon::xml
