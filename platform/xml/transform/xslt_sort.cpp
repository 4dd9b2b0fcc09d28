#include "platform/xml/transform/xslt_sort.h"

#include "platform/xml/engine/libxml_handles.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <cmath>
#include <libxslt/templates.h>
#include <libxslt/xsltutils.h>
#include <numeric>
#include <unicode/ucol.h>
#include <vector>

namespace quillon::xml {

namespace {

/// The same everywhere, and not what the machine happens to be set to.
constexpr char DefaultLanguage[] = "ja";

using Collator = std::unique_ptr<UCollator, Releaser<ucol_close>>;

/// The value of an attribute of xsl:sort, which may be a template; null without one.
QByteArray valueOf(xsltTransformContextPtr context, xmlNodePtr sort, const char *attribute) {
    return taken(xsltEvalAttrValueTemplate(context, sort, utf8(attribute), nullptr));
}

Collator openCollator(const QByteArray &language, const QByteArray &caseOrder) {
    UErrorCode status = U_ZERO_ERROR;
    Collator collator(
        ucol_open(language.isEmpty() ? DefaultLanguage : language.constData(), &status));
    if (U_FAILURE(status)) {
        // The root's order, which suits most languages.
        status = U_ZERO_ERROR;
        collator.reset(ucol_open("", &status));
    }
    if (!collator)
        throw std::bad_alloc();
    if (caseOrder == "upper-first")
        ucol_setAttribute(collator.get(), UCOL_CASE_FIRST, UCOL_UPPER_FIRST, &status);
    else if (caseOrder == "lower-first")
        ucol_setAttribute(collator.get(), UCOL_CASE_FIRST, UCOL_LOWER_FIRST, &status);
    return collator;
}

/// Bytes whose order is that of the text.
QByteArray collationKey(const UCollator *collator, const xmlChar *text) {
    const QString utf16 = QString::fromUtf8(bytes(text));
    const auto write = [&](QByteArray &to) {
        return ucol_getSortKey(collator, reinterpret_cast<const UChar *>(utf16.utf16()),
                               int(utf16.size()), reinterpret_cast<uint8_t *>(to.data()),
                               int(to.size()));
    };
    QByteArray key(4 * utf16.size() + 16, Qt::Uninitialized);
    const int32_t size = write(key);
    const bool fitted = size <= key.size();
    key.resize(size);
    if (!fitted)
        write(key);
    return key;
}

/// What one xsl:sort makes of each of the nodes, in the order they stand in.
class Keys {
public:
    Keys(xsltTransformContextPtr context, xmlNodePtr sort);

    /// Below 0 where the node at `a` stands ahead of the one at `b`, 0 where they are alike.
    int compare(std::size_t a, std::size_t b) const {
        const int order =
            isNumber_ ? compareNumbers(numbers_[a], numbers_[b]) : texts_[a].compare(texts_[b]);
        return isDescending_ ? -order : order;
    }

private:
    static int compareNumbers(double a, double b) {
        if (std::isnan(a) || std::isnan(b))
            return int(std::isnan(b)) - int(std::isnan(a));
        return int(a > b) - int(a < b);
    }

    bool isNumber_;
    bool isDescending_;
    std::vector<double> numbers_;
    std::vector<QByteArray> texts_;
};

Keys::Keys(xsltTransformContextPtr context, xmlNodePtr sort)
    : isNumber_(valueOf(context, sort, "data-type") == "number"),
      isDescending_(valueOf(context, sort, "order") == "descending") {
    // libxslt converts as its own notes of the element say, which it fills in for fixed values.
    auto *notes = static_cast<xsltStylePreComp *>(sort->psvi);
    const int isNumberThere = notes->number;
    notes->number = isNumber_;
    xmlXPathObjectPtr *results = xsltComputeSortResult(context, sort);
    notes->number = isNumberThere;

    const auto count = std::size_t(context->nodeList->nodeNr);
    const Collator collator =
        openCollator(valueOf(context, sort, "lang"), valueOf(context, sort, "case-order"));
    for (std::size_t i = 0; i < count; ++i) {
        const xmlXPathObject *result = results ? results[i] : nullptr;
        if (isNumber_)
            numbers_.push_back(result ? result->floatval : NAN);
        else
            texts_.push_back(result ? collationKey(collator.get(), result->stringval)
                                    : QByteArray());
        if (result)
            xmlXPathFreeObject(results[i]);
    }
    xmlFree(results);
}

} // namespace

void sortNodes(xsltTransformContextPtr context, xmlNodePtr *sorts, int count) {
    xmlNodeSetPtr list = context->nodeList;
    if (!list || list->nodeNr < 2)
        return;
    std::vector<Keys> keys;
    for (int i = 0; i < count; ++i) {
        // An element that could not be compiled has no notes.
        if (sorts[i] && sorts[i]->psvi)
            keys.emplace_back(context, sorts[i]);
    }
    std::vector<std::size_t> order(std::size_t(list->nodeNr));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        for (const Keys &key : keys) {
            if (const int found = key.compare(a, b); found != 0)
                return found < 0;
        }
        return false;
    });
    const std::vector<xmlNodePtr> nodes(list->nodeTab, list->nodeTab + list->nodeNr);
    for (std::size_t i = 0; i < nodes.size(); ++i)
        list->nodeTab[i] = nodes[order[i]];
}

} // namespace quillon::xml
