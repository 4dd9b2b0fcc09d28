#include "platform/xml/transform/xslt_log.h"

#include "platform/xml/engine/libxml_handles.h"
#include "platform/xml/engine/libxml_message.h"
#include "resources/xslt_texts.h"

#include <QRegularExpression>
#include <QUrl>

#include <algorithm>
#include <cstdarg>
#include <cstring>
#include <libxml/xpath.h>
#include <utility>
#include <vector>

namespace quillon::xml {

namespace texts = resources::xslt_texts;

namespace {

/// The processor's words for an instruction that it does not know.
constexpr char NotCompiled[] = "xsltApplySequenceConstructor: %s was not compiled\n";

/// What follows a first error seldom helps.
constexpr qsizetype MostMessages = 4;

/// A message of the processor in Japanese. Of one that is not known no more than that there was
/// one.
QString inJapanese(const QString &said) {
    // Names of files are shown as the user knows them.
    const QString message =
        said.contains(QStringLiteral("file:/")) ? QUrl::fromPercentEncoding(said.toUtf8()) : said;
    return translated(message, texts::Translations).value_or(texts::UnknownMessage.toString());
}

bool isRecovered(const QString &said) {
    // Made once: such errors may come by the thousand.
    static const std::vector<QRegularExpression> patterns = [] {
        std::vector<QRegularExpression> made;
        for (const QStringView pattern : texts::Recovered)
            made.emplace_back(QRegularExpression::anchoredPattern(pattern.toString()),
                              QRegularExpression::DotMatchesEverythingOption);
        return made;
    }();
    return std::ranges::any_of(patterns, [&](const QRegularExpression &pattern) {
        return pattern.match(said).hasMatch();
    });
}

} // namespace

void XsltLog::add(const QString &message, const QByteArray &url, int line) {
    if (!message.isEmpty()) {
        endsWithInstruction_ = false;
        if (messages_.size() < MostMessages && !messages_.contains(message))
            messages_.append(message);
    }
    // Of some errors the place comes only with one that follows and says nothing more.
    if (line_ == 0 && !messages_.isEmpty()) {
        line_ = line;
        url_ = url;
    }
}

void XsltLog::addFailure(const QString &message, const QByteArray &url, int line) {
    failure_ = true;
    add(message, url, line);
}

QString XsltLog::reason() const {
    return messages_.isEmpty() ? texts::NoMessage.toString() : messages_.join(QLatin1Char('\n'));
}

int XsltLog::line() const {
    if (line_ == 0)
        return instructionLine_;
    return isInMainFile() ? line_ : 0;
}

QString XsltLog::text() const {
    const QString all = reason();
    if (line_ == 0)
        return all;
    if (isInMainFile())
        return texts::AtLine.toString().arg(all, QString::number(line_));
    return texts::AtLineOfFile.toString().arg(all, QUrl::fromEncoded(url_).fileName(),
                                              QString::number(line_));
}

void XsltLog::onXmlError(void *log, xmlErrorPtr error) {
    if (error->level == XML_ERR_WARNING || error->domain != XML_FROM_XPATH)
        return;
    auto &self = *static_cast<XsltLog *>(log);
    // EXSLT's functions go on where one of them has called itself without an end.
    self.recursion_ = self.recursion_ ||
                      error->code == XML_XPATH_EXPRESSION_OK + int(XPATH_RECURSION_LIMIT_EXCEEDED);
    // Its position is one in the expression; libxslt says where the expression stands.
    QString message = inJapanese(QString::fromUtf8(error->message).trimmed());
    const QByteArray expression(error->str1);
    if (!message.isEmpty() && !expression.trimmed().isEmpty())
        message = texts::InExpression.toString().arg(message, QString::fromUtf8(error->str1));
    self.add(message, {}, 0);
    const xmlNode *here = self.transform_ ? self.transform_->inst : nullptr;
    if (here && self.instructionLine_ == 0 && here->doc && self.mainUrl_ == bytes(here->doc->URL))
        self.instructionLine_ = int(xmlGetLineNo(here));
}

void XsltLog::addPlaced(QString said) {
    if (transform_ && isRecovered(said)) {
        // libxslt gives no result where an error has been, so it is as if there had been none.
        if (!failed_ && transform_->state == XSLT_STATE_ERROR)
            transform_->state = XSLT_STATE_OK;
        return;
    }
    failed_ = failed_ || (transform_ && transform_->state != XSLT_STATE_OK);
    recursion_ = recursion_ || said.contains(QStringLiteral("otentially infinite")) ||
                 said.contains(QStringLiteral("otential infinite"));
    // A variable that refers to itself is then said not to be there, which is not so.
    circular_ = circular_ || said.startsWith(QStringLiteral("Recursive definition of "));
    if (circular_ && said.endsWith(QStringLiteral(" has not been declared.")))
        said.clear();
    // Other messages name the element that they are about.
    if (said.startsWith(QStringLiteral("The attribute 'name' is missing")) ||
        said.startsWith(QStringLiteral("The value '")))
        said.prepend(QStringLiteral("xsl:%1: ").arg(nextElement_));
    add(said.isEmpty() ? said : inJapanese(said), nextUrl_, nextLine_);
}

void XsltLog::addNotCompiled(const QString &said) {
    // Said of an instruction without a fallback; the processor passes over it. An xsl:fallback does
    // nothing where there is nothing to stand in for.
    if (said.contains(QStringLiteral(": fallback was")))
        return;
    const xmlNode *here = transform_ ? transform_->inst : nullptr;
    addFailure(inJapanese(said),
               here && here->doc ? QByteArray(bytes(here->doc->URL)) : QByteArray(),
               here ? int(xmlGetLineNo(here)) : 0);
}

void XsltLog::onXsltError(void *log, const char *format, ...) {
    static const QRegularExpression place(
        QStringLiteral("^(?:(?:compilation|runtime) )?error(?:: file (.*?))?(?: line (\\d+))?(?::? "
                       "element (\\S+))?$"));
    va_list arguments;
    va_start(arguments, format);
    const QString said = QString::vasprintf(format, arguments).trimmed();
    va_end(arguments);
    auto &self = *static_cast<XsltLog *>(log);
    if (std::strcmp(format, "%s") == 0) {
        // An error follows its place; the text of xsl:message comes alone.
        if (!std::exchange(self.placeGiven_, false)) {
            self.instructionMessage_ = said;
            self.endsWithInstruction_ = true;
            return;
        }
        self.addPlaced(said);
    } else if (const auto match = place.match(said); match.hasMatch()) {
        self.placeGiven_ = true;
        self.nextUrl_ = match.captured(1).toUtf8();
        self.nextLine_ = match.captured(2).toInt();
        self.nextElement_ = match.captured(3);
    } else if (std::strcmp(format, NotCompiled) == 0) {
        self.addNotCompiled(said);
    } else if (!said.isEmpty()) {
        const bool isPlaced = std::exchange(self.placeGiven_, false);
        self.add(inJapanese(said), isPlaced ? self.nextUrl_ : QByteArray(),
                 isPlaced ? self.nextLine_ : 0);
    }
}

} // namespace quillon::xml
