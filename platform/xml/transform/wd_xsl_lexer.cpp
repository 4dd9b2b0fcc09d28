#include "platform/xml/transform/wd_xsl_lexer.h"

#include "platform/runtime/error.h"
#include "resources/xslt_texts.h"

#include <QRegularExpression>

namespace quillon::xml {

void refuseWdPattern(const QString &construct, const QString &pattern) {
    namespace texts = resources::xslt_texts;
    QString sentence = texts::WdPatternRefused.toString().arg(construct, pattern);
    if (construct.isEmpty())
        sentence = pattern.trimmed().isEmpty() ? texts::WdPatternEmpty.toString()
                                               : texts::WdPatternUnfinished.toString().arg(pattern);
    throw runtime::Error(runtime::error_number::Fail, sentence);
}

std::vector<WdToken> wdTokens(const QString &pattern) {
    using Kind = WdToken::Kind;
    // In the order of trial: a longer symbol before the one it starts with.
    static const QRegularExpression token(
        QStringLiteral(
            R"((?<space>\s+))"
            R"(|(?<string>"[^"]*"|'[^']*'))"
            R"(|(?<number>\d+(?:\.\d+)?))"
            R"(|\$(?<operator>[a-z]+)\$)"
            R"(|(?<name>[\p{L}_][\p{L}\p{N}_.\-]*(?::(?:[\p{L}_][\p{L}\p{N}_.\-]*|\*))?))"
            R"(|(?<symbol>//|\.\.|&&|\|\||!=|<=|>=|[/.@*()\[\]|=<>!,\-]))"),
        QRegularExpression::UseUnicodePropertiesOption);
    std::vector<WdToken> tokens;
    for (qsizetype at = 0; at < pattern.size();) {
        const auto match = token.match(pattern, at, QRegularExpression::NormalMatch,
                                       QRegularExpression::AnchorAtOffsetMatchOption);
        if (!match.hasMatch())
            refuseWdPattern(pattern.mid(at, 1), pattern);
        at = match.capturedEnd();
        if (match.hasCaptured(u"string"))
            tokens.push_back({Kind::String, match.captured()});
        else if (match.hasCaptured(u"number"))
            tokens.push_back({Kind::Number, match.captured()});
        else if (match.hasCaptured(u"operator"))
            tokens.push_back({Kind::Symbol, match.captured(u"operator")});
        else if (match.hasCaptured(u"name"))
            tokens.push_back({Kind::Name, match.captured(),
                              QStringView(pattern).mid(at).trimmed().startsWith(u'(')});
        else if (match.hasCaptured(u"symbol"))
            tokens.push_back({Kind::Symbol, match.captured()});
    }
    tokens.push_back({Kind::End, QString()});
    return tokens;
}

} // namespace quillon::xml
