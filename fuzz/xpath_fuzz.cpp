#include "fuzz/fuzz_support.h"
#include "platform/xml/query/xpath.h"
#include "platform/xml/query/xpath_expression.h"

#include <set>

using namespace quillon;
using namespace quillon::fuzz;

namespace {

void requireTokens(const xml::XPathExpression &expression) {
    std::size_t end = 0;
    for (const xml::XPathToken &token : expression.tokens()) {
        require(token.start >= end && token.end >= token.start, "tokens follow one another");
        end = token.end;
    }
    require(end <= expression.utf8().size(), "tokens stand in the text");
    require(expression.tokens().back().kind == xml::XPathToken::Kind::End, "the end is a token");
    const std::string rewritten = expression.forLibxml2();
    for (std::size_t at = 0; at <= rewritten.size(); ++at)
        require(expression.positionOf(at) <= expression.utf8().size(), "a position has its origin");
    expression.lacksParenthesis();
    expression.prefixes();
    expression.steps();
    const xml::XPathExpression prefixed(expression.withPrefix("p"));
    require(prefixed.utf8().size() == expression.utf8().size() + 2 * expression.plainNames().size(),
            "each name is given one prefix");
}

xml::DOMDocument40 sample() {
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    document.loadXML(QStringLiteral(
        "<!DOCTYPE r [<!ENTITY e 'two'><!ATTLIST s i ID #IMPLIED>]>\n<r xmlns='urn:d' "
        "xmlns:p='urn:p' a='1'>"
        "<!--c--><s i='one'>text<![CDATA[x]]>&e;<p:t b='2'/></s><s/><?q d?><あ/></r>"));
    return document;
}

} // namespace

/// An expression: its tokens stand in it one after the other, and where it selects nodes, in the
/// default namespace or out of it, each is found once.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QString expression = QString::fromUtf8(toQByteArray(bytesOf(data, size)));
    requireTokens(xml::XPathExpression(expression.toStdString()));
    static const xml::DOMDocument40 document = sample();
    succeeds([&] {
        std::set<quint32> numbers;
        const xml::Node context = document.node();
        for (const xml::Node &node : xml::evaluateXPath(context, expression, context).nodes)
            require(numbers.insert(node.number()).second, "a node is found once");
    });
    return 0;
}
