#include "platform/xml/schema/xerces/xerces_library.h"

#include <QHash>
#include <QRegularExpression>

#include <array>
#include <cstdlib>
#include <malloc.h>
#include <new>
#include <xercesc/framework/MemoryManager.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLMsgLoader.hpp>
#include <xercesc/util/XMLNetAccessor.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

namespace quillon::xml {

using xercesc::XMLPlatformUtils;
using xercesc::XMLUni;

namespace {

/// Lends Xerces memory up to a bound.
class BoundedMemory final : public xercesc::MemoryManager {
public:
    explicit BoundedMemory(qint64 allowed) : allowed_(allowed) {}

    // What is thrown while memory is short needs some, too.
    MemoryManager *getExceptionMemoryManager() override { return this; }

    void *allocate(XMLSize_t size) override {
        void *const block = qint64(size) > allowed_ ? nullptr : std::malloc(size);
        if (!block)
            throw std::bad_alloc();
        allowed_ -= qint64(::malloc_usable_size(block));
        return block;
    }

    void deallocate(void *block) override {
        if (block)
            allowed_ += qint64(::malloc_usable_size(block));
        std::free(block);
    }

private:
    qint64 allowed_;
};

const XMLCh *nameOf(ReportDomain domain) {
    switch (domain) {
    case ReportDomain::Error:
        return XMLUni::fgXMLErrDomain;
    case ReportDomain::Validity:
        return XMLUni::fgValidityDomain;
    case ReportDomain::Value:
        break;
    }
    return XMLUni::fgExceptDomain;
}

/// The sentence of a report with {0}, {1} where arguments stand.
QString templateOf(ReportDomain domain, int code) {
    static std::array<xercesc::XMLMsgLoader *, 3> loaders{};
    auto &loader = loaders.at(std::size_t(domain));
    if (!loader)
        loader = XMLPlatformUtils::loadMsgSet(nameOf(domain));
    std::array<XMLCh, 2048> text{};
    if (!loader ||
        !loader->loadMsg(xercesc::XMLMsgLoader::XMLMsgId(code), text.data(), text.size() - 1))
        return {};
    return fromXerces(text.data());
}

/// An expression that fits all sentences of a template; `places`: which argument each of its groups
/// is.
QRegularExpression expressionFor(const QString &sentence, QList<int> &places) {
    static const QRegularExpression place(QStringLiteral("\\{(\\d)\\}"));
    QString pattern;
    qsizetype end = 0;
    for (auto at = place.globalMatch(sentence); at.hasNext();) {
        const QRegularExpressionMatch match = at.next();
        pattern += QRegularExpression::escape(sentence.sliced(end, match.capturedStart() - end)) +
                   QStringLiteral("(.*)");
        places.append(match.captured(1).toInt());
        end = match.capturedEnd();
    }
    pattern += QRegularExpression::escape(sentence.sliced(end));
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                              QRegularExpression::DotMatchesEverythingOption);
}

struct Pattern {
    QRegularExpression expression;
    QList<int> places;
};

const Pattern &patternOf(ReportDomain domain, int code) {
    static QHash<int, Pattern> known;
    const int key = code * 4 + int(domain);
    if (const auto found = known.constFind(key); found != known.constEnd())
        return *found;
    Pattern pattern;
    pattern.expression = expressionFor(templateOf(domain, code), pattern.places);
    return *known.insert(key, pattern);
}

} // namespace

void startXerces(qint64 memory) {
    // Lives as long as the process, as what it lends does.
    static BoundedMemory bounded(memory);
    XMLPlatformUtils::Initialize(xercesc::XMLUni::fgXercescDefaultLocale, nullptr, nullptr,
                                 &bounded);
    delete XMLPlatformUtils::fgNetAccessor;
    XMLPlatformUtils::fgNetAccessor = nullptr;
}

ReportDomain domainOf(const XMLCh *name) {
    for (const ReportDomain domain : {ReportDomain::Error, ReportDomain::Validity}) {
        if (xercesc::XMLString::equals(name, nameOf(domain)))
            return domain;
    }
    return ReportDomain::Value;
}

QStringList argumentsIn(const XMLCh *sentence, ReportDomain domain, int code) {
    const Pattern &pattern = patternOf(domain, code);
    const QRegularExpressionMatch match = pattern.expression.match(fromXerces(sentence));
    QStringList arguments;
    for (qsizetype group = 0; group < pattern.places.size(); ++group) {
        const qsizetype place = pattern.places[group];
        while (arguments.size() <= place)
            arguments.append(QString());
        arguments[place] = match.captured(int(group) + 1);
    }
    return arguments;
}

} // namespace quillon::xml
