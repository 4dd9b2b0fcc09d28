#include "search/text_folding.h"

#include <array>
#include <unicode/normlzr.h>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>

namespace quillon::search {

namespace {

const UNormalizer2 *normalizer(const char *mode) {
    UErrorCode status = U_ZERO_ERROR;
    return unorm2_getInstance(nullptr, mode, UNORM2_COMPOSE, &status);
}

/// NFC, and NFKC, which knows what compatibility characters stand for.
const UNormalizer2 *canonical() {
    static const UNormalizer2 *const found = normalizer("nfc");
    return found;
}
const UNormalizer2 *compatible() {
    static const UNormalizer2 *const found = normalizer("nfkc");
    return found;
}

/// The text of a character, also of half a pair that stands alone.
QString asText(char32_t c) {
    if (!QChar::requiresSurrogates(c))
        return QString(QChar(char16_t(c)));
    return QString(QChar(QChar::highSurrogate(c))) + QChar(QChar::lowSurrogate(c));
}

/// What a character stands for in the usual width: itself unless it is a full-width or half-width
/// form or a word in one square. (Circled digits, superscripts and the like say something else.)
QString inUsualWidth(char32_t c) {
    const int type = u_getIntPropertyValue(UChar32(c), UCHAR_DECOMPOSITION_TYPE);
    if (type == U_DT_WIDE || type == U_DT_NARROW || type == U_DT_SQUARE) {
        std::array<char16_t, 32> buffer{};
        UErrorCode status = U_ZERO_ERROR;
        const int length = unorm2_getRawDecomposition(compatible(), UChar32(c), buffer.data(),
                                                      int(buffer.size()), &status);
        if (length > 0 && U_SUCCESS(status))
            return QString(reinterpret_cast<const QChar *>(buffer.data()), length);
    }
    return asText(c);
}

QString composed(const QString &text) {
    UErrorCode status = U_ZERO_ERROR;
    const auto *const source = reinterpret_cast<const char16_t *>(text.utf16());
    if (unorm2_isNormalized(canonical(), source, int(text.size()), &status) && U_SUCCESS(status))
        return text;
    status = U_ZERO_ERROR;
    QString out(text.size() * 3 + 16, Qt::Uninitialized);
    const int length =
        unorm2_normalize(canonical(), source, int(text.size()),
                         reinterpret_cast<char16_t *>(out.data()), int(out.size()), &status);
    return U_SUCCESS(status) ? out.left(length) : text;
}

/// Hiragana for katakana that have one.
char16_t inHiragana(char16_t c) {
    const bool hasHiragana = (c >= 0x30A1 && c <= 0x30F6) || c == 0x30FD || c == 0x30FE;
    return hasHiragana ? char16_t(c - 0x60) : c;
}

char32_t codePointAt(QStringView text, qsizetype at) {
    const QChar unit = text[at];
    const bool isPair =
        unit.isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
    return isPair ? QChar::surrogateToUcs4(unit, text[at + 1]) : char32_t(unit.unicode());
}

} // namespace

/// What most characters become: those of one unit that stay one unit.
struct TextFolding::Table {
    static constexpr char16_t NotSimple = 0xFFFF;

    std::array<char16_t, 0x10000> folded;
    /// Whether the character starts a piece whatever stands ahead of it.
    std::array<bool, 0x10000> starts;
};

TextFolding::TextFolding(bool ignoreCase, bool ignoreWidth)
    : ignoreCase_(ignoreCase), ignoreWidth_(ignoreWidth), table_(table()) {}

TextFolding::~TextFolding() = default;

std::shared_ptr<const TextFolding::Table> TextFolding::table() const {
    if (isExact())
        return nullptr;
    static std::array<std::shared_ptr<const Table>, 4> tables;
    std::shared_ptr<const Table> &kept =
        tables[std::size_t(ignoreCase_) + 2 * std::size_t(ignoreWidth_)];
    if (kept)
        return kept;
    auto made = std::make_shared<Table>();
    for (char32_t c = 0; c < 0x10000; ++c) {
        made->starts[c] = startsPiece(c);
        const QString folded = foldedAlone(c);
        const bool isSimple = made->starts[c] && !QChar::isSurrogate(c) && folded.size() == 1;
        made->folded[c] = isSimple ? folded[0].unicode() : Table::NotSimple;
    }
    kept = made;
    return kept;
}

bool TextFolding::startsPiece(char32_t c) const {
    if (!ignoreWidth_ || c < 0x80)
        return true;
    const QString usual = inUsualWidth(c);
    return unorm2_hasBoundaryBefore(canonical(), UChar32(codePointAt(usual, 0)));
}

QString TextFolding::foldedAlone(char32_t c) const {
    return foldedPiece(asText(c));
}

QString TextFolding::foldedPiece(QStringView piece) const {
    QString text;
    if (ignoreWidth_) {
        for (qsizetype at = 0; at < piece.size();) {
            const char32_t c = codePointAt(piece, at);
            text += inUsualWidth(c);
            at += QChar::requiresSurrogates(c) ? 2 : 1;
        }
        text = composed(text);
        for (QChar &unit : text)
            unit = QChar(inHiragana(unit.unicode()));
    } else {
        text = piece.toString();
    }
    if (!ignoreCase_)
        return text;
    QString out;
    for (qsizetype at = 0; at < text.size();) {
        const char32_t c = codePointAt(text, at);
        const auto folded = char32_t(u_foldCase(UChar32(c), U_FOLD_CASE_DEFAULT));
        out += asText(folded);
        at += QChar::requiresSurrogates(c) ? 2 : 1;
    }
    return out;
}

void FoldedText::add(QStringView folded, qsizetype start) {
    if (isOneToOne_) {
        isOneToOne_ = false;
        starts_.resize(static_cast<std::size_t>(text_.size()));
        for (std::size_t at = 0; at < starts_.size(); ++at)
            starts_[at] = qsizetype(at);
    }
    text_ += folded;
    starts_.resize(static_cast<std::size_t>(text_.size()), start);
}

void TextFolding::fold(QStringView text, FoldedText &out) const {
    out.text_.clear();
    out.text_.reserve(text.size());
    out.isOneToOne_ = true;
    out.starts_.clear();
    for (qsizetype at = 0; at < text.size();) {
        const char16_t unit = text[at].unicode();
        const bool isAlone = at + 1 == text.size() || table_->starts[text[at + 1].unicode()];
        if (isAlone && table_->folded[unit] != Table::NotSimple) {
            if (out.isOneToOne_)
                out.text_ += QChar(table_->folded[unit]);
            else
                out.add(QStringView(&table_->folded[unit], 1), at);
            ++at;
            continue;
        }
        qsizetype end = at;
        do {
            end += QChar::requiresSurrogates(codePointAt(text, end)) ? 2 : 1;
        } while (end < text.size() && !startsPiece(codePointAt(text, end)));
        out.add(foldedPiece(text.mid(at, end - at)), at);
        at = end;
    }
    if (!out.isOneToOne_)
        out.starts_.push_back(text.size());
}

QString TextFolding::folded(QStringView text) const {
    if (isExact())
        return text.toString();
    FoldedText out;
    fold(text, out);
    return out.text().toString();
}

} // namespace quillon::search
