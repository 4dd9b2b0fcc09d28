#include "platform/xml/transform/wd_xsl_functions.h"

#include "platform/xml/engine/libxml_handles.h"

#include <QString>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>
#include <libxslt/extensions.h>
#include <optional>

namespace quillon::xml {

namespace {

using XPathObject = std::unique_ptr<xmlXPathObject, Releaser<xmlXPathFreeObject>>;

QStringList valuesOf(xmlXPathObject *object) {
    if (object->type != XPATH_NODESET && object->type != XPATH_XSLT_TREE)
        return {QString::fromUtf8(taken(xmlXPathCastToString(object)))};
    QStringList values;
    const xmlNodeSet *nodes = object->nodesetval;
    for (int i = 0; nodes && i < nodes->nodeNr; ++i)
        values.append(QString::fromUtf8(taken(xmlXPathCastNodeToString(nodes->nodeTab[i]))));
    return values;
}

/// The number that a text is; nothing for a text that is none.
std::optional<double> numberIn(const QString &text) {
    bool isNumber = false;
    const double number = text.trimmed().toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

/// Below 0 where `a` comes ahead of `b`, 0 where they are alike.
int order(const QString &a, const QString &b, Qt::CaseSensitivity sensitivity) {
    const auto number = numberIn(a);
    const auto other = numberIn(b);
    return number && other ? int(*number > *other) - int(*number < *other)
                           : a.compare(b, sensitivity);
}

bool holds(const QString &a, const QString &comparison, const QString &b,
           Qt::CaseSensitivity sensitivity) {
    if (comparison == u"=" || comparison == u"!=")
        return (a.compare(b, sensitivity) == 0) == (comparison == u"=");
    const int found = order(a, b, sensitivity);
    return (found == 0 && comparison.endsWith(u'=')) ||
           (comparison.startsWith(u'<') ? found < 0 : found > 0);
}

void compareValues(xmlXPathParserContextPtr context, int count, Qt::CaseSensitivity sensitivity) {
    if (count != 3)
        return xmlXPathErr(context, XPATH_INVALID_ARITY);
    const XPathObject right(valuePop(context));
    const QString comparison = QString::fromUtf8(taken(xmlXPathPopString(context)));
    const XPathObject left(valuePop(context));
    const QStringList rightValues = valuesOf(right.get());
    const QStringList leftValues = valuesOf(left.get());
    const bool found = std::ranges::any_of(leftValues, [&](const QString &a) {
        return std::ranges::any_of(
            rightValues, [&](const QString &b) { return holds(a, comparison, b, sensitivity); });
    });
    valuePush(context, xmlXPathNewBoolean(found));
}

void compare(xmlXPathParserContextPtr context, int count) {
    compareValues(context, count, Qt::CaseSensitive);
}

void compareIgnoringCase(xmlXPathParserContextPtr context, int count) {
    compareValues(context, count, Qt::CaseInsensitive);
}

void nodeType(xmlXPathParserContextPtr context, int count) {
    if (count != 1 || !context->value || context->value->type != XPATH_NODESET)
        return xmlXPathErr(context, count == 1 ? XPATH_INVALID_TYPE : XPATH_INVALID_ARITY);
    const XPathObject set(valuePop(context));
    const bool isEmpty = !set->nodesetval || set->nodesetval->nodeNr == 0;
    // libxml2 numbers the kinds of nodes as the DOM does.
    const int type = isEmpty ? 0 : set->nodesetval->nodeTab[0]->type;
    valuePush(context, xmlXPathNewFloat(type));
}

} // namespace

void registerWdFunctions() {
    xsltRegisterExtModuleFunction(utf8("compare"), utf8(WdFunctionsNamespace), compare);
    xsltRegisterExtModuleFunction(utf8("compareIgnoringCase"), utf8(WdFunctionsNamespace),
                                  compareIgnoringCase);
    xsltRegisterExtModuleFunction(utf8("nodeType"), utf8(WdFunctionsNamespace), nodeType);
}

} // namespace quillon::xml
