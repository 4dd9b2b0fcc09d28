#include "platform/xml/schema/xerces/report_sentences.h"
#include "resources/xerces_texts.h"

#include <QRegularExpression>

#include <gtest/gtest.h>
#include <span>

namespace quillon::xml {

namespace {

namespace texts = resources::xerces_texts;
using xercesc::XMLErrs;
using xercesc::XMLExcepts;

/// What is said of a code when nothing is known but its number.
bool isBareNumber(const QString &sentence) {
    return sentence.contains(u"エラー番号");
}

QString sentenceOf(ReportDomain domain, int code) {
    Report report;
    report.domain = domain;
    report.code = code;
    report.arguments = {QStringLiteral("one"), QStringLiteral("%1two"), QStringLiteral("three")};
    return faultOf(report, {});
}

/// Codes that stand for other texts, mark ends of ranges, or belong to what is never switched on.
bool cannotCome(int code) {
    return (code <= XMLErrs::W_LowBounds) || code == XMLErrs::XMLException_Warning ||
           (code >= XMLErrs::XIncludeResourceErrorWarning && code <= XMLErrs::E_LowBounds) ||
           code == XMLErrs::XMLException_Error || code == XMLErrs::E_HighBounds ||
           code == XMLErrs::F_LowBounds || code == XMLErrs::EntityExpansionLimitExceeded ||
           code == XMLErrs::XMLException_Fatal || code >= XMLErrs::XIncludeOrphanFallback;
}

TEST(ReportSentences, AreThereForEveryCodeThatCanCome) {
    int count = 0;
    const auto check = [&](ReportDomain domain, int code) {
        const QString sentence = sentenceOf(domain, code);
        static const QRegularExpression japanese(QStringLiteral("[\\x{3040}-\\x{30FF}]"));
        EXPECT_TRUE(sentence.contains(japanese) && sentence.endsWith(u'。')) << code;
        EXPECT_FALSE(isBareNumber(sentence)) << int(domain) << ' ' << code;
        // What an argument holds is not filled in again.
        EXPECT_FALSE(QString(sentence).remove(QLatin1String("%1two")).contains(u'%')) << code;
        ++count;
    };
    for (int code = 0; code <= XMLErrs::F_HighBounds; ++code) {
        if (!cannotCome(code))
            check(ReportDomain::Error, code);
    }
    // Between the two there is what wrong uses of the library lead to.
    for (int code = XMLExcepts::FACET_Invalid_Len; code <= XMLExcepts::Regex_InvalidRepPattern;
         ++code)
        check(ReportDomain::Value, code);
    for (int code = XMLExcepts::XPath_NoAttrSelector; code <= XMLExcepts::PD_InvalidContentType;
         ++code)
        check(ReportDomain::Value, code);
    for (int code = XMLExcepts::Parser_Parse1; code <= XMLExcepts::Parser_Quantifier5; ++code)
        check(ReportDomain::Value, code);
    EXPECT_GT(count, 450);
    EXPECT_TRUE(isBareNumber(sentenceOf(ReportDomain::Error, XMLErrs::NoError)));
}

TEST(ReportSentences, TablesAscendAndDoNotOverlap) {
    for (const std::span<const texts::Sentence> table :
         {std::span<const texts::Sentence>(texts::OfErrors),
          {texts::OfDeclarations},
          {texts::OfValues}}) {
        int before = 0;
        for (const texts::Sentence &sentence : table) {
            EXPECT_LE(sentence.first, sentence.last);
            EXPECT_LT(before, sentence.first);
            before = sentence.last;
        }
    }
}

TEST(ReportSentences, NameTheDeclaration) {
    Report report;
    report.code = XMLErrs::RefElementNotFound;
    report.arguments = {QStringLiteral("q")};
    report.line = 2;
    // Columns count UTF-16 units, and the place is behind the tag.
    const QString line = QString::fromUtf8("<!--日\U0001F600--><xs:element n='>' ref='q'/>");
    report.column = int(line.size()) + 1;
    EXPECT_EQ(faultOf(report, "<r>\n" + line.toUtf8() + "</r>").toStdString(),
              "xs:element 'q' の属性 'ref': 要素 'q' は宣言されていません。");
    for (const int column : {0, 3, 10'000}) {
        report.column = column;
        EXPECT_EQ(faultOf(report, "<r>\n" + line.toUtf8() + "</r>").toStdString(),
                  "要素 'q' は宣言されていません。");
    }
}

} // namespace

} // namespace quillon::xml
