#include "platform/xml/syntax/syntax_fault.h"

#include "platform/xml/syntax/judge.h"
#include "resources/syntax_texts.h"

#include <QList>

#include <algorithm>

namespace quillon::xml {

namespace texts = resources::syntax_texts;

namespace {

QString toText(QByteArrayView utf8) {
    return QString::fromUtf8(utf8);
}

QString codeOf(QByteArrayView character) {
    const QList<uint> codes = QString::fromUtf8(character).toUcs4();
    return codes.isEmpty()
               ? QString()
               : QStringLiteral("U+%1").arg(codes.first(), 4, 16, QLatin1Char('0')).toUpper();
}

QStringView plainSentence(SyntaxFaultKind kind) {
    switch (kind) {
    case SyntaxFaultKind::BareAmpersand:
        return texts::BareAmpersand;
    case SyntaxFaultKind::BareLessThan:
        return texts::BareLessThan;
    case SyntaxFaultKind::TextOutsideRoot:
        return texts::TextOutsideRoot;
    case SyntaxFaultKind::NoElement:
        return texts::NoElement;
    case SyntaxFaultKind::DoubleHyphenInComment:
        return texts::DoubleHyphen;
    case SyntaxFaultKind::UnclosedComment:
        return texts::UnclosedComment;
    case SyntaxFaultKind::UnclosedSection:
        return texts::UnclosedSection;
    case SyntaxFaultKind::UnclosedInstruction:
        return texts::UnclosedInstruction;
    case SyntaxFaultKind::SectionEndInText:
        return texts::SectionEnd;
    default:
        return {};
    }
}

/// For kinds whose sentence takes the name of the cause, and nothing else.
QStringView sentenceWithName(SyntaxFaultKind kind) {
    switch (kind) {
    case SyntaxFaultKind::UnquotedValue:
        return texts::UnquotedValue;
    case SyntaxFaultKind::UnclosedQuote:
        return texts::UnclosedQuote;
    case SyntaxFaultKind::UndeclaredEntity:
        return texts::UndeclaredEntity;
    case SyntaxFaultKind::BadReference:
        return texts::BadReference;
    case SyntaxFaultKind::MissingEquals:
        return texts::MissingEquals;
    case SyntaxFaultKind::MissingValue:
        return texts::MissingValue;
    case SyntaxFaultKind::MissingBlank:
        return texts::MissingBlank;
    case SyntaxFaultKind::SecondRoot:
        return texts::SecondRoot;
    default:
        return {};
    }
}

QString sentenceOf(QByteArrayView text, const Cause &cause, const QString &parsersReason) {
    const auto lineOf = [&](qsizetype at) { return QString::number(placeInText(text, at).line); };
    const QString name = toText(cause.name);
    if (const QStringView sentence = plainSentence(cause.kind); !sentence.isEmpty())
        return sentence.toString();
    if (const QStringView sentence = sentenceWithName(cause.kind); !sentence.isEmpty())
        return sentence.toString().arg(name);
    switch (cause.kind) {
    case SyntaxFaultKind::MissingEndTag:
        return texts::MissingEndTag.toString().arg(name, lineOf(cause.start));
    case SyntaxFaultKind::WrongCaseOfEndTag:
    case SyntaxFaultKind::StrayEndTag: {
        if (cause.other < 0)
            return texts::StrayEndTag.toString().arg(name);
        const bool isCase = cause.kind == SyntaxFaultKind::WrongCaseOfEndTag;
        return (isCase ? texts::WrongCase : texts::OtherEndTag)
            .toString()
            .arg(name, toText(markup::tagName(text, cause.other)), lineOf(cause.other));
    }
    case SyntaxFaultKind::DuplicateAttribute:
        return texts::DuplicateAttribute.toString().arg(name, lineOf(cause.other));
    case SyntaxFaultKind::UnclosedTag:
        return texts::UnclosedTag.toString().arg(toText(text.sliced(cause.start, cause.length)));
    case SyntaxFaultKind::ForbiddenCharacter:
        return texts::ForbiddenCharacter.toString().arg(codeOf(cause.name));
    case SyntaxFaultKind::AheadOfDeclaration:
        return (cause.start == 0 ? texts::BlanksAhead : texts::AheadOfDeclaration).toString();
    default:
        return QString(parsersReason).replace(u'\n', u' ');
    }
}

} // namespace

std::optional<SyntaxFault> firstSyntaxFault(QByteArrayView utf8, const SyntaxScope &scope,
                                            const runtime::Progress &progress) {
    const ParseError error = judged(utf8, scope, progress);
    if (error.errorCode == 0)
        return std::nullopt;
    const StopPlace stop = stopPlaceOf(utf8, error, scope);
    const Cause cause = causeOf(utf8, stop, progress);
    // Of what is in a value the parser may tell at the start of the tag.
    const bool isReference = cause.kind == SyntaxFaultKind::UndeclaredEntity;
    return SyntaxFault{cause.kind, cause.start, cause.length,
                       isReference ? std::max(stop.at, cause.start) : stop.at,
                       sentenceOf(utf8, cause, error.reason)};
}

TextPlace placeInText(QByteArrayView utf8, qsizetype at) {
    const QByteArrayView ahead = utf8.first(std::clamp<qsizetype>(at, 0, utf8.size()));
    TextPlace place;
    qsizetype lineStart = 0;
    for (qsizetype end; (end = ahead.indexOf('\n', lineStart)) >= 0; lineStart = end + 1)
        ++place.line;
    for (const char byte : ahead.sliced(lineStart))
        place.column += (static_cast<unsigned char>(byte) & 0xc0) != 0x80;
    return place;
}

} // namespace quillon::xml
