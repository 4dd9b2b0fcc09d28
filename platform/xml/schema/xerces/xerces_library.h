#pragma once

#include <QString>
#include <QStringList>

#include <xercesc/util/XercesDefs.hpp>

namespace quillon::xml {

/// Makes Xerces ready for use: without a network, and with no more memory than so many bytes at a
/// time; std::bad_alloc is thrown beyond that. Once in a process, which must be a child that is
/// made for this work.
void startXerces(qint64 memory);

inline QString fromXerces(const XMLCh *text) {
    return text ? QString::fromUtf16(text) : QString();
}
/// Valid as long as the text is not changed.
inline const XMLCh *toXerces(const QString &text) {
    return reinterpret_cast<const XMLCh *>(text.utf16());
}

/// Where the number of a report counts.
enum class ReportDomain : quint8 {
    /// xercesc::XMLErrs: syntax, and the rules of XML Schema for schemas.
    Error,
    /// xercesc::XMLValid: a document against its schema.
    Validity,
    /// xercesc::XMLExcepts: values, among much else.
    Value
};

/// One report of Xerces, without its English sentence.
struct Report {
    ReportDomain domain = ReportDomain::Error;
    int code = 0;
    /// What the sentence names, in the library's order.
    QStringList arguments;
    bool isWarning = false;
    bool isFatal = false;
    /// Where it was noticed: just behind what is wrong. The address of the file; 0 when unknown.
    QString file;
    int line = 0;
    int column = 0;

    bool is(ReportDomain otherDomain, int otherCode) const {
        return domain == otherDomain && code == otherCode;
    }
    QString argument(int i) const { return arguments.value(i); }
};

/// The domain of that name in Xerces.
ReportDomain domainOf(const XMLCh *name);
/// What a sentence of Xerces names: the parts that differ from one report of that number to the
/// next.
QStringList argumentsIn(const XMLCh *sentence, ReportDomain domain, int code);

} // namespace quillon::xml
