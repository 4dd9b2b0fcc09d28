#include "document/text_fault.h"

#include "platform/runtime/strings.h"
#include "platform/xml/dom/dom.h"
#include "platform/xml/io/encoding.h"
#include "resources/broken_texts.h"

#include <QDataStream>

#include <algorithm>
#include <array>

namespace quillon::document {

namespace texts = resources::broken_texts;
using xml::ByteCharacters;
using xml::FileText;
using xml::SyntaxMend;
using Kind = TextFault::Kind;
using Outcome = TextCheck::Outcome;

namespace {

/// Those that a file may really be in which declares another one, by their names in a declaration.
constexpr std::array<std::string_view, 4> LikelyEncodings = {"UTF-8", "Shift_JIS", "EUC-JP",
                                                             "ISO-2022-JP"};

std::string_view viewOf(const QByteArray &text) {
    return {text.constData(), std::size_t(text.size())};
}

/// The bytes that stand together at a place, in hexadecimal digits.
QString bytesAt(const FileText &file, std::string_view text, qsizetype at, qsizetype length) {
    QByteArray bytes;
    for (qsizetype place = at; place < at + length; place += ByteCharacters::Length)
        bytes += file.byteCharacters().byteAt(text, std::size_t(place));
    return QString::fromLatin1(bytes.toHex(' ').toUpper());
}

/// Where the value of `encoding` stands in the XML declaration, or its place behind the version
/// where there is none; and what is to stand there for an encoding to be declared.
xml::Replacement declarationOf(const QByteArray &text, std::string_view encoding) {
    const QByteArray name(encoding.data(), qsizetype(encoding.size()));
    const qsizetype end = text.startsWith("<?xml ") ? text.indexOf("?>") : -1;
    if (end < 0)
        return {0, 0, "<?xml version=\"1.0\" encoding=\"" + name + "\"?>\n"};
    const std::string declared = xml::declaredEncoding(viewOf(text));
    if (declared.empty()) {
        qsizetype behind = end;
        while (text[behind - 1] == ' ')
            --behind;
        return {behind, end - behind, " encoding=\"" + name + "\""};
    }
    const qsizetype at = text.indexOf(declared.c_str(), text.indexOf("encoding") + 8);
    return {at, qsizetype(declared.size()), name};
}

std::optional<TextFault> declarationFault(const FileText &file, const QByteArray &edited) {
    if (file.declarationError().isNull())
        return std::nullopt;
    const xml::Replacement value = declarationOf(edited, {});
    TextFault fault{Kind::Declaration, {}, {}};
    fault.at.start = fault.at.noticedAt = value.start;
    fault.at.length = std::max<qsizetype>(value.length, 1);
    fault.at.sentence = file.declarationError();
    return fault;
}

std::optional<TextFault> unencodableFault(const FileText &file, const QByteArray &edited) {
    const auto found = file.firstUnencodable(viewOf(edited));
    if (!found)
        return std::nullopt;
    TextFault fault{Kind::Unencodable, {}, {}};
    fault.at.start = fault.at.noticedAt = qsizetype(found->start);
    fault.at.length = qsizetype(found->length);
    const QString character = QString::fromUtf8(edited.mid(fault.at.start, fault.at.length));
    const std::string declared = xml::declaredEncoding(viewOf(edited));
    fault.at.sentence = texts::Unencodable.toString().arg(
        character, file.goesByDeclaration() && !declared.empty() ? QString::fromStdString(declared)
                                                                 : file.encodingName());
    return fault;
}

std::optional<TextFault> undecodableFault(const FileText &file, const QByteArray &edited) {
    const std::string_view text = viewOf(edited);
    const std::size_t first = file.byteCharacters().find(text);
    if (first == text.npos)
        return std::nullopt;
    // As many as stand together, which may be one character of another encoding.
    constexpr std::size_t Most = 8 * ByteCharacters::Length;
    std::size_t end = first;
    while (end < first + Most && file.byteCharacters().find(text.substr(0, end + 3), end) == end)
        end += ByteCharacters::Length;
    TextFault fault{Kind::Undecodable, {}, {}};
    fault.at.start = fault.at.noticedAt = qsizetype(first);
    fault.at.length = qsizetype(end - first);
    fault.at.sentence = texts::Undecodable.toString().arg(
        file.encodingName(), bytesAt(file, text, fault.at.start, fault.at.length));
    return fault;
}

/// What the parser says where nothing else has been found.
TextFault parserFault(const xml::ParseError &error, const QByteArray &edited) {
    TextFault fault;
    qsizetype at = 0;
    for (int line = 1; line < error.line && at >= 0; ++line)
        at = edited.indexOf('\n', at) + 1;
    fault.at.start = fault.at.noticedAt = std::clamp<qsizetype>(at, 0, edited.size());
    fault.at.sentence = error.reason;
    return fault;
}

/// The first of what is wrong in the text itself.
std::optional<TextFault> firstInText(const FileText &file, const QByteArray &edited) {
    std::optional<TextFault> first = undecodableFault(file, edited);
    const std::optional<xml::SyntaxFault> syntax = xml::firstSyntaxFault(edited);
    if (syntax && (!first || syntax->start < first->at.start))
        first = TextFault{Kind::Syntax, *syntax, {}};
    return first;
}

/// Whether the bytes are those of a text in the encoding that it declares.
bool decodes(const std::string &bytes) {
    const std::optional<FileText> text = FileText::of(bytes);
    return text && text->declarationError().isNull() && text->byteCharacters().first() == 0;
}

} // namespace

TextCheck checkText(const FileText &file, const QByteArray &edited) {
    const auto faulty = [&](TextFault fault) {
        fault.place = xml::placeInText(edited, fault.at.start);
        return TextCheck{Outcome::Faulty, std::move(fault)};
    };
    if (const auto fault = unencodableFault(file, edited))
        return faulty(*fault);
    std::string bytes = file.bytesOf(viewOf(edited));
    const bool isDeclaredAnew = xml::declaredEncoding(viewOf(edited)) != file.declaredEncoding() &&
                                file.goesByDeclaration();
    const std::optional<FileText> again =
        isDeclaredAnew ? FileText::of(bytes) : std::optional<FileText>(file);
    if (isDeclaredAnew && again && again->declarationError().isNull() &&
        again->shown() != viewOf(edited))
        return {Outcome::ReadsOtherwise, {}};
    if (const auto fault = declarationFault(again.value_or(file), edited))
        return faulty(*fault);
    if (const auto fault = firstInText(file, edited))
        return faulty(*fault);
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    document.loadBytes(std::move(bytes));
    if (!document.documentElement())
        return faulty(parserFault(document.parseError(), edited));
    return {Outcome::WellFormed, {}};
}

std::vector<SyntaxMend> textMends(const FileText &file, const QByteArray &edited,
                                  const TextFault &fault, const runtime::Progress &progress) {
    if (fault.kind == Kind::Syntax)
        return xml::syntaxMends(edited, fault.at, {}, progress);
    std::vector<SyntaxMend> mends;
    const auto declare = [&](std::string_view encoding, QStringView title) {
        const std::vector<xml::Replacement> replacements = {declarationOf(edited, encoding)};
        const QByteArray text = xml::withReplacements(edited, replacements);
        if (!file.firstUnencodable(viewOf(text)) && decodes(file.bytesOf(viewOf(text))))
            mends.push_back(
                {title.toString().arg(QLatin1String(encoding.data(), qsizetype(encoding.size()))),
                 replacements});
    };
    const xml::Replacement removal{fault.at.start, fault.at.length, {}};
    if (fault.kind == Kind::Unencodable) {
        const QString character = QString::fromUtf8(edited.mid(removal.start, removal.length));
        const QString reference = QStringLiteral("&#x%1;").arg(
            QString::number(character.toUcs4().value(0), 16).toUpper());
        const std::vector<xml::Replacement> written = {
            {removal.start, removal.length, reference.toUtf8()}};
        // There are places where no reference may stand.
        const auto wrong = xml::firstSyntaxFault(xml::withReplacements(edited, written));
        if (!wrong || wrong->start > removal.start)
            mends.push_back({texts::WriteReference.toString().arg(character, reference), written});
        declare("UTF-8", texts::ConvertEncoding);
        mends.push_back({texts::RemoveCharacter.toString().arg(character), {removal}});
        return mends;
    }
    if (file.goesByDeclaration()) {
        for (const std::string_view encoding : LikelyEncodings)
            declare(encoding, texts::DeclareEncoding);
    }
    if (fault.kind == Kind::Undecodable)
        mends.push_back({texts::RemoveBytes.toString().arg(
                             bytesAt(file, viewOf(edited), removal.start, removal.length)),
                         {removal}});
    return mends;
}

QByteArray toBytes(const TextCheck &check) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    const TextFault &fault = check.fault;
    out << quint8(check.outcome) << quint8(fault.kind) << quint8(fault.at.kind)
        << qint64(fault.at.start) << qint64(fault.at.length) << qint64(fault.at.noticedAt)
        << fault.at.sentence << qint32(fault.place.line) << qint32(fault.place.column);
    return bytes;
}

TextCheck textCheckFrom(const QByteArray &bytes) {
    QDataStream in(bytes);
    TextCheck check;
    quint8 outcome = 0;
    quint8 kind = 0;
    quint8 syntaxKind = 0;
    qint64 start = 0;
    qint64 length = 0;
    qint64 noticedAt = 0;
    in >> outcome >> kind >> syntaxKind >> start >> length >> noticedAt >>
        check.fault.at.sentence >> check.fault.place.line >> check.fault.place.column;
    check.outcome = Outcome(outcome);
    check.fault.kind = Kind(kind);
    check.fault.at.kind = xml::SyntaxFaultKind(syntaxKind);
    check.fault.at.start = start;
    check.fault.at.length = length;
    check.fault.at.noticedAt = noticedAt;
    return check;
}

} // namespace quillon::document
