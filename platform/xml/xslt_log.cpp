#include "platform/xml/xslt_log.h"

#include "resources/xslt_texts.h"

#include <QRegularExpression>
#include <QUrl>

#include <cstdarg>
#include <cstring>
#include <utility>

namespace quillon::xml {

namespace text = resources::xslt_text;

namespace {

/// What follows a first error seldom helps.
constexpr qsizetype MostMessages = 4;

/// A message of the processor in Japanese, if it is one of those that are known.
QString translated(const QString &message) {
    for (const text::Translation &known : text::Translations) {
        const QRegularExpression pattern(
            QRegularExpression::anchoredPattern(known.pattern.toString()));
        const QRegularExpressionMatch match = pattern.match(message);
        if (!match.hasMatch())
            continue;
        const QString text = known.text.toString();
        // All at once, so that what a group holds is not taken for the place of another.
        switch (pattern.captureCount()) {
        case 0:
            return text;
        case 1:
            return text.arg(match.captured(1));
        case 2:
            return text.arg(match.captured(1), match.captured(2));
        default:
            return text.arg(match.captured(1), match.captured(2), match.captured(3));
        }
    }
    return message;
}

} // namespace

void XsltLog::add(const QString &said) {
    const QString message = translated(said);
    if (!message.isEmpty() && messages_.size() < MostMessages && !messages_.contains(message))
        messages_.append(message);
}

void XsltLog::addPlace(const QByteArray &url, int line) {
    if (line_ != 0)
        return;
    line_ = line;
    url_ = url;
}

void XsltLog::addFailure(const QString &message, const QByteArray &url, int line) {
    failure_ = true;
    add(message);
    addPlace(url, line);
}

QString XsltLog::text() const {
    if (messages_.isEmpty())
        return text::NoMessage.toString();
    const QString all = messages_.join(QLatin1Char('\n'));
    if (line_ == 0)
        return all;
    if (url_.isEmpty() || url_ == mainUrl_)
        return text::AtLine.toString().arg(all, QString::number(line_));
    return text::AtLineOfFile.toString().arg(all, QUrl::fromEncoded(url_).fileName(),
                                             QString::number(line_));
}

void XsltLog::onXmlError(void *log, xmlErrorPtr error) {
    if (error->level == XML_ERR_WARNING)
        return;
    auto &self = *static_cast<XsltLog *>(log);
    const QString message = QString::fromUtf8(error->message).trimmed();
    if (error->domain == XML_FROM_XPATH)
        // Its position is one in the expression; libxslt says where the expression stands.
        return self.add(error->str1
                            ? message + QStringLiteral(": ") + QString::fromUtf8(error->str1)
                            : message);
    if (error->level == XML_ERR_FATAL)
        return self.addFailure(message, QByteArray(error->file), error->line);
    self.add(message);
}

void XsltLog::onXsltError(void *log, const char *format, ...) {
    static const QRegularExpression place(
        QStringLiteral("^(?:(?:compilation|runtime) )?error(?:: file (.*?))?(?: line (\\d+))?(?::? "
                       "element \\S+)?$"));
    va_list arguments;
    va_start(arguments, format);
    const QString said = QString::vasprintf(format, arguments).trimmed();
    va_end(arguments);
    auto &self = *static_cast<XsltLog *>(log);
    if (std::strcmp(format, "%s") == 0) {
        // An error follows its place; the text of xsl:message comes alone.
        if (!std::exchange(self.placeGiven_, false)) {
            self.instructionMessage_ = said;
            return;
        }
        self.recursion_ =
            self.recursion_ || said.contains(QStringLiteral("infinite template recursion"));
        self.add(said);
    } else if (const auto match = place.match(said); match.hasMatch()) {
        self.placeGiven_ = true;
        self.addPlace(match.captured(1).toUtf8(), match.captured(2).toInt());
    }
}

} // namespace quillon::xml
