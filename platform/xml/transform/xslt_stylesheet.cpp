#include "platform/xml/transform/xslt_stylesheet.h"

#include "platform/xml/engine/libxml_handles.h"
#include "platform/xml/engine/libxml_walk.h"
#include "platform/xml/query/xpath_expression.h"
#include "platform/xml/transform/xslt_log.h"
#include "resources/xslt_texts.h"

#include <algorithm>
#include <array>
#include <libxml/uri.h>
#include <string_view>

namespace quillon::xml {

namespace texts = resources::xslt_texts;

namespace {

constexpr std::string_view XsltNamespace = "http://www.w3.org/1999/XSL/Transform";
constexpr std::string_view ScriptNamespace = "urn:schemas-microsoft-com:xslt";
/// EXSLT's module by which a stylesheet defines functions.
constexpr std::string_view FunctionsNamespace = "http://exslt.org/functions";

/// In order. xsl:document is of XSLT 1.1.
constexpr std::array<std::string_view, 36> KnownElements = {"apply-imports",
                                                            "apply-templates",
                                                            "attribute",
                                                            "attribute-set",
                                                            "call-template",
                                                            "choose",
                                                            "comment",
                                                            "copy",
                                                            "copy-of",
                                                            "decimal-format",
                                                            "document",
                                                            "element",
                                                            "fallback",
                                                            "for-each",
                                                            "if",
                                                            "import",
                                                            "include",
                                                            "key",
                                                            "message",
                                                            "namespace-alias",
                                                            "number",
                                                            "otherwise",
                                                            "output",
                                                            "param",
                                                            "preserve-space",
                                                            "processing-instruction",
                                                            "sort",
                                                            "strip-space",
                                                            "stylesheet",
                                                            "template",
                                                            "text",
                                                            "transform",
                                                            "value-of",
                                                            "variable",
                                                            "when",
                                                            "with-param"};
static_assert(std::is_sorted(KnownElements.begin(), KnownElements.end()));

template <std::size_t N>
bool isOneOf(std::string_view name, const std::array<std::string_view, N> &all) {
    return std::find(all.begin(), all.end(), name) != all.end();
}

template <typename T>
bool isIn(const T &node, std::string_view ns) {
    return node.ns && view(node.ns->href) == ns;
}

bool isElement(const xmlNode *node, std::string_view ns, std::string_view name) {
    return node->type == XML_ELEMENT_NODE && isIn(*node, ns) && view(node->name) == name;
}

std::string valueOf(const xmlAttr &attribute) {
    return taken(xmlNodeListGetString(attribute.doc, attribute.children, 1)).toStdString();
}

/// What the value of an attribute of a stylesheet is.
enum class ValueKind { Text, Expression, Template };

ValueKind kindOf(const xmlNode &element, const xmlAttr &attribute) {
    constexpr std::array<std::string_view, 7> Expressions = {"select", "match", "test", "use",
                                                             "value",  "count", "from"};
    constexpr std::array<std::string_view, 5> HaveTemplates = {"attribute", "element", "number",
                                                               "processing-instruction", "sort"};
    const std::string_view name = view(attribute.name);
    if (isIn(element, XsltNamespace)) {
        if (attribute.ns)
            return ValueKind::Text;
        if (isOneOf(name, Expressions))
            return ValueKind::Expression;
        return isOneOf(view(element.name), HaveTemplates) ? ValueKind::Template : ValueKind::Text;
    }
    if (isIn(element, FunctionsNamespace))
        return name == "select" ? ValueKind::Expression : ValueKind::Text;
    return isIn(attribute, XsltNamespace) ? ValueKind::Text : ValueKind::Template;
}

std::string templateForLibxml2(const std::string &value) {
    std::string result;
    for (std::size_t at = 0; at < value.size();) {
        result += value[at];
        if (value[at++] != '{')
            continue;
        if (at < value.size() && value[at] == '{') {
            result += value[at++];
            continue;
        }
        // A brace in a string literal does not end the expression.
        std::size_t end = at;
        char quote = '\0';
        for (; end < value.size() && (quote != '\0' || value[end] != '}'); ++end) {
            if (value[end] == quote)
                quote = '\0';
            else if (quote == '\0' && (value[end] == '"' || value[end] == '\''))
                quote = value[end];
        }
        result += XPathExpression(value.substr(at, end - at)).forLibxml2();
        at = end;
    }
    return result;
}

void rewriteExpressions(xmlNodePtr element) {
    for (xmlAttrPtr attribute = element->properties; attribute; attribute = attribute->next) {
        const ValueKind kind = kindOf(*element, *attribute);
        if (kind == ValueKind::Text)
            continue;
        const std::string before = valueOf(*attribute);
        const std::string after = kind == ValueKind::Expression
                                      ? XPathExpression(before).forLibxml2()
                                      : templateForLibxml2(before);
        if (after != before)
            xmlSetNsProp(element, attribute->ns, attribute->name, utf8(after.c_str()));
    }
}

/// Whether an element stands where another version of XSLT than 1.0 is announced.
bool isForwardsCompatible(const xmlNode *element) {
    for (; element && element->type == XML_ELEMENT_NODE; element = element->parent) {
        const bool isInstruction = isIn(*element, XsltNamespace);
        for (const xmlAttr *at = element->properties; at; at = at->next) {
            if (view(at->name) == "version" && (isInstruction ? !at->ns : isIn(*at, XsltNamespace)))
                return valueOf(*at) != "1.0";
        }
    }
    return false;
}

bool isKnown(const xmlNode *element) {
    if (!isIn(*element, XsltNamespace) ||
        std::binary_search(KnownElements.begin(), KnownElements.end(), view(element->name)))
        return true;
    for (const xmlNode *child = element->children; child; child = child->next) {
        if (isElement(child, XsltNamespace, "fallback"))
            return true;
    }
    return isForwardsCompatible(element);
}

void escapeHref(xmlNodePtr element) {
    const QByteArray href = taken(xmlGetNoNsProp(element, utf8("href")));
    if (!href.isNull())
        xmlSetProp(element, utf8("href"), utf8(escapedReference(utf8(href))));
}

/// The element that comes next in document order, not one inside `element` if that is passed over.
xmlNodePtr following(xmlNodePtr element, bool passOver) {
    xmlNodePtr node = followingNode(element, !passOver);
    while (node && node->type != XML_ELEMENT_NODE)
        node = followingNode(node);
    return node;
}

} // namespace

QByteArray escapedReference(const xmlChar *reference) {
    constexpr char Kept[] = "%:/?#[]@!$&'()*+,;=";
    return taken(xmlURIEscapeStr(reference, utf8(Kept)));
}

bool prepareStylesheet(xmlDocPtr stylesheet, const QByteArray &url, XsltLog &log) {
    const xmlNodePtr root = xmlDocGetRootElement(stylesheet);
    const auto refuse = [&](const QString &sentence, const xmlNode *element) {
        log.addFailure(sentence, url, int(xmlGetLineNo(element)));
        return false;
    };
    bool isData = false;
    for (xmlNodePtr element = root; element; element = following(element, isData)) {
        const bool isTopLevel = element->parent == root && isIn(*root, XsltNamespace);
        if (isTopLevel && isElement(element, ScriptNamespace, "script"))
            return refuse(texts::ScriptNotSupported.toString(), element);
        if (isTopLevel && !element->ns)
            return refuse(texts::TopLevelWithoutNamespace.toString().arg(
                              QString::fromUtf8(bytes(element->name))),
                          element);
        if (!isKnown(element))
            return refuse(
                texts::UnknownInstruction.toString().arg(QString::fromUtf8(bytes(element->name))),
                element);
        // What else stands at the top is the author's own, for document('').
        isData =
            isTopLevel && !isIn(*element, XsltNamespace) && !isIn(*element, FunctionsNamespace);
        if (isData)
            continue;
        if (isElement(element, XsltNamespace, "import") ||
            isElement(element, XsltNamespace, "include"))
            escapeHref(element);
        rewriteExpressions(element);
    }
    return true;
}

} // namespace quillon::xml
