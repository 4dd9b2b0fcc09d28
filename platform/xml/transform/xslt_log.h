#pragma once

#include <QString>
#include <QStringList>

#include <libxml/xmlerror.h>
#include <libxslt/xsltInternals.h>

namespace quillon::xml {

/// Gathers what libxml2 and libxslt report, and makes one message of it, in Japanese. Of libxml2 it
/// takes only what is said of XPath expressions: who has something parsed reports that.
class XsltLog {
public:
    /// mainUrl names the stylesheet itself; for other files a message names the file.
    explicit XsltLog(QByteArray mainUrl) : mainUrl_(std::move(mainUrl)) {}

    const QByteArray &mainUrl() const { return mainUrl_; }

    /// The handlers to register with `this` as their user data.
    static void onXmlError(void *log, xmlErrorPtr error);
    static void onXsltError(void *log, const char *format, ...)
        __attribute__((format(printf, 2, 3)));

    /// Takes note of an error that makes the transformation fail even where the processor goes on.
    /// url is that of a file, or empty; line is 1-based, or 0.
    void addFailure(const QString &message, const QByteArray &url = {}, int line = 0);
    /// The transformation whose errors come from now on. One that XSLT 1.0 lets the processor
    /// recover from is passed over: the transformation has a result in spite of it.
    void follow(xsltTransformContextPtr transform) { transform_ = transform; }
    /// Forgets everything: for what turned out not to matter.
    void clear() { *this = XsltLog(mainUrl_); }

    /// Whether an xsl:message was the last to be reported, or nothing was.
    bool endsWithInstructionMessage() const { return endsWithInstruction_; }
    bool hasFailure() const { return failure_; }
    /// Whether templates were called too deeply.
    bool hasRecursion() const { return recursion_; }
    /// The messages one a line, the place of the first one that has one at the end.
    QString text() const;
    /// The same without the place.
    QString reason() const;
    /// The 1-based line of that place, or of the instruction that was carried out when an
    /// expression failed; 0 when there is none or it is in another file.
    int line() const;
    /// The text of the latest xsl:message.
    const QString &instructionMessage() const { return instructionMessage_; }

private:
    bool isInMainFile() const { return url_.isEmpty() || url_ == mainUrl_; }
    void add(const QString &message, const QByteArray &url, int line);
    void addPlaced(QString said);
    void addNotCompiled(const QString &said);

    QByteArray mainUrl_;
    QStringList messages_;
    QString instructionMessage_;
    QByteArray url_;
    int line_ = 0;
    int instructionLine_ = 0;
    bool endsWithInstruction_ = true;
    bool failure_ = false;
    bool recursion_ = false;
    /// libxslt has reported an error that is not passed over.
    bool failed_ = false;
    xsltTransformContextPtr transform_ = nullptr;
    /// libxslt has said where the error is that it describes next: here.
    bool placeGiven_ = false;
    QByteArray nextUrl_;
    int nextLine_ = 0;
    QString nextElement_;
    /// A global variable refers to itself.
    bool circular_ = false;
};

} // namespace quillon::xml
