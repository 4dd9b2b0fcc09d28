#include "platform/xml/query/xpath_expression.h"

#include <algorithm>
#include <array>

namespace quillon::xml {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isNameStart(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}
bool isNamePart(char c) {
    return isNameStart(c) || isDigit(c) || c == '-' || c == '.';
}

constexpr std::string_view Axis = "child::";

/// libxml2 takes no more than 5,000 at once.
constexpr std::size_t MostStepsAtOnce = 1000;

template <std::size_t N>
bool isOneOf(std::string_view text, const std::array<std::string_view, N> &all) {
    return std::find(all.begin(), all.end(), text) != all.end();
}

} // namespace

XPathExpression::XPathExpression(std::string utf8) : utf8_(std::move(utf8)) {
    scan();
}

void XPathExpression::scan() {
    std::size_t at = 0;
    for (;;) {
        while (at < utf8_.size() && isBlank(utf8_[at]))
            ++at;
        if (at == utf8_.size())
            break;
        Kind kind = Kind::Symbol;
        const std::size_t end = endOfToken(at, kind);
        tokens_.push_back({kind, at, end});
        at = end;
    }
    tokens_.push_back({Kind::End, at, at});
    findOperators();
}

void XPathExpression::findOperators() {
    constexpr std::array<std::string_view, 8> Always = {"=", "!=", "<", "<=", ">", ">=", "+", "-"};
    constexpr std::array<std::string_view, 5> Sometimes = {"*", "and", "or", "div", "mod"};
    constexpr std::array<std::string_view, 10> AheadOfOperand = {"@", "::", ":",  "(", "[",
                                                                 ",", "/",  "//", "|", "$"};
    operators_.resize(tokens_.size());
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
        const XPathToken &own = tokens_[i];
        if (own.kind == Kind::Symbol && isOneOf(text(own), Always)) {
            operators_[i] = true;
        } else if (i > 0 && own.kind != Kind::Literal && isOneOf(text(own), Sometimes)) {
            const XPathToken &before = tokens_[i - 1];
            operators_[i] = !operators_[i - 1] &&
                            (before.kind != Kind::Symbol || !isOneOf(text(before), AheadOfOperand));
        }
    }
}

std::size_t XPathExpression::endOfToken(std::size_t start, Kind &kind) const {
    const auto endOfRun = [this](std::size_t from, auto belongs) {
        while (from < utf8_.size() && belongs(utf8_[from]))
            ++from;
        return from;
    };
    const char c = utf8_[start];
    if (isNameStart(c)) {
        kind = Kind::Name;
        return endOfRun(start + 1, isNamePart);
    }
    if (isDigit(c)) {
        kind = Kind::Digits;
        return endOfRun(start + 1, [](char next) { return isDigit(next) || next == '.'; });
    }
    if (c == '"' || c == '\'') {
        kind = Kind::Literal;
        const std::size_t close = utf8_.find(c, start + 1);
        return close == std::string::npos ? utf8_.size() : close + 1;
    }
    constexpr std::array<std::string_view, 6> Pairs = {"//", "::", "..", "!=", "<=", ">="};
    return start + (isOneOf(std::string_view(utf8_).substr(start, 2), Pairs) ? 2 : 1);
}

const XPathToken &XPathExpression::tokenAt(std::size_t position) const {
    return *std::find_if(tokens_.begin(), tokens_.end() - 1,
                         [position](const XPathToken &token) { return token.end > position; });
}

const XPathToken &XPathExpression::callOf(std::string_view function) const {
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
        if (text(tokens_[i]) == function && is(i + 1, "("))
            return tokens_[i];
    }
    return tokens_.back();
}

const XPathToken &XPathExpression::useOf(std::string_view variable) const {
    for (std::size_t i = 1; i < tokens_.size(); ++i) {
        if (text(tokens_[i]) == variable && (is(i - 1, "$") || is(i - 1, ":")))
            return tokens_[i];
    }
    return tokens_.back();
}

bool XPathExpression::usesVariable() const {
    return std::any_of(tokens_.begin(), tokens_.end(),
                       [this](const XPathToken &token) { return text(token) == "$"; });
}

bool XPathExpression::lacksParenthesis() const {
    constexpr std::array<std::string_view, 5> EndOfOperand = {")", "]", ".", "..", "*"};
    std::string open;
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
        if (is(i, "(") || is(i, "["))
            open += utf8_[tokens_[i].start];
        else if ((is(i, ")") || is(i, "]")) && !open.empty())
            open.pop_back();
    }
    if (!open.ends_with('('))
        return false;
    const XPathToken &last = *(tokens_.end() - 2);
    return last.kind != Kind::Symbol || isOneOf(text(last), EndOfOperand);
}

std::vector<XPathToken> XPathExpression::prefixes() const {
    std::vector<XPathToken> found;
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
        if (tokens_[i].kind == Kind::Name && is(i + 1, ":") &&
            tokens_[i + 1].start == tokens_[i].end)
            found.push_back(tokens_[i]);
    }
    return found;
}

std::vector<XPathToken> XPathExpression::plainNames() const {
    constexpr std::array<std::string_view, 2> OtherAxes = {"attribute", "namespace"};
    constexpr std::array<std::string_view, 3> AheadOfOther = {"@", "$", ":"};
    constexpr std::array<std::string_view, 3> BehindOther = {"(", "::", ":"};
    std::vector<XPathToken> found;
    for (std::size_t i = 0; i + 1 < tokens_.size(); ++i) {
        const bool isName = tokens_[i].kind == Kind::Name && !isOperator(i);
        if (!isName || isOneOf(text(tokens_[i + 1]), BehindOther) ||
            (i > 0 && isOneOf(text(tokens_[i - 1]), AheadOfOther)) ||
            (i > 1 && is(i - 1, "::") && isOneOf(text(tokens_[i - 2]), OtherAxes)))
            continue;
        found.push_back(tokens_[i]);
    }
    return found;
}

std::string XPathExpression::withPrefix(std::string_view prefix) const {
    std::string result;
    std::size_t copied = 0;
    for (const XPathToken &name : plainNames()) {
        result.append(utf8_, copied, name.start - copied).append(prefix).append(":");
        copied = name.start;
    }
    return result.append(utf8_, copied);
}

std::vector<std::size_t> XPathExpression::placesOfAxes() const {
    constexpr std::array<std::string_view, 4> AheadOfPath = {"(", "[", ",", "|"};
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i + 1 < tokens_.size(); ++i) {
        const XPathToken &next = tokens_[i + 1];
        const bool isBeyondAscii =
            next.kind == Kind::Name && static_cast<unsigned char>(utf8_[next.start]) >= 0x80;
        if (!is(i, "/") || !isBeyondAscii)
            continue;
        const bool startsPath =
            i == 0 || isOperator(i - 1) ||
            (tokens_[i - 1].kind == Kind::Symbol && isOneOf(text(tokens_[i - 1]), AheadOfPath));
        if (startsPath)
            places.push_back(next.start);
    }
    return places;
}

std::string XPathExpression::forLibxml2() const {
    std::string result;
    std::size_t copied = 0;
    for (const std::size_t place : placesOfAxes()) {
        result.append(utf8_, copied, place - copied).append(Axis);
        copied = place;
    }
    return result.append(utf8_, copied);
}

std::size_t XPathExpression::positionOf(std::size_t positionForLibxml2) const {
    std::size_t position = positionForLibxml2;
    for (const std::size_t place : placesOfAxes()) {
        if (position > place)
            position -= std::min(Axis.size(), position - place);
    }
    return position;
}

bool XPathExpression::is(std::size_t token, std::string_view symbol) const {
    return token < tokens_.size() && tokens_[token].kind == Kind::Symbol &&
           text(tokens_[token]) == symbol;
}

bool XPathExpression::findsNodesTwice(std::size_t firstOfStep) const {
    constexpr std::array<std::string_view, 3> Once = {"child", "attribute", "self"};
    return is(firstOfStep - 1, "//") || is(firstOfStep, "..") ||
           (is(firstOfStep + 1, "::") && !isOneOf(text(tokens_[firstOfStep]), Once));
}

std::size_t XPathExpression::closeOf(std::size_t open) const {
    int depth = 0;
    std::size_t i = open;
    for (; i + 1 < tokens_.size(); ++i) {
        if (is(i, "(") || is(i, "["))
            ++depth;
        else if ((is(i, ")") || is(i, "]")) && --depth == 0)
            break;
    }
    return i;
}

XPathExpression::Steps XPathExpression::stepsBetween(std::size_t first, std::size_t end,
                                                     bool isAfterGroup) const {
    Steps steps;
    std::string axis = isAfterGroup && is(first, "//") ? ".//" : "";
    std::size_t start = isAfterGroup ? first + 1 : first;
    bool cutting = isAfterGroup;
    std::size_t together = 0;
    const auto cut = [&](std::size_t at) {
        const std::size_t from = tokens_[start].start;
        steps.push_back(axis + utf8_.substr(from, tokens_[at].start - from));
    };
    for (std::size_t i = first; i < end; ++i) {
        if (is(i, "(") || is(i, "["))
            i = closeOf(i);
        if (i == first || (!is(i, "/") && !is(i, "//")))
            continue;
        // From here on step by step: what follows must start from each node once.
        cutting = cutting || findsNodesTwice(i + 1);
        if (!cutting && ++together < MostStepsAtOnce)
            continue;
        together = 0;
        cut(i);
        axis = is(i, "//") ? ".//" : "";
        start = i + 1;
    }
    cut(end);
    return steps;
}

bool XPathExpression::addAlternative(std::size_t first, std::size_t end,
                                     std::vector<Steps> &all) const {
    const std::size_t close = is(first, "(") ? closeOf(first) : end;
    const bool isGroup =
        close + 1 == end || (close < end && (is(close + 1, "/") || is(close + 1, "//")));
    if (!isGroup) {
        all.push_back(stepsBetween(first, end, false));
        return true;
    }
    // (a | b)/c is (a)/c | (b)/c.
    const std::size_t firstInside = all.size();
    if (!addAlternatives(first + 1, close, all))
        return false;
    if (close + 1 == end)
        return true;
    const Steps rest = stepsBetween(close + 1, end, true);
    for (std::size_t i = firstInside; i < all.size(); ++i)
        all[i].insert(all[i].end(), rest.begin(), rest.end());
    return true;
}

bool XPathExpression::addAlternatives(std::size_t first, std::size_t end,
                                      std::vector<Steps> &all) const {
    for (std::size_t i = first; i < end; ++i) {
        if (isOperator(i))
            return false;
        if (is(i, "(") || is(i, "[")) {
            i = closeOf(i);
        } else if (is(i, "|")) {
            if (!addAlternative(first, i, all))
                return false;
            first = i + 1;
        }
    }
    return addAlternative(first, end, all);
}

std::vector<XPathExpression::Steps> XPathExpression::steps() const {
    std::vector<Steps> alternatives;
    // Namespace nodes last as long as the result that they come in.
    const bool hasNamespaceNodes =
        std::any_of(tokens_.begin(), tokens_.end(),
                    [this](const XPathToken &token) { return text(token) == "namespace"; });
    if (hasNamespaceNodes || !addAlternatives(0, tokens_.size() - 1, alternatives))
        return {{utf8_}};
    return alternatives;
}

} // namespace quillon::xml
