#pragma once

#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

namespace quillon::search {

/// A text in which characters that count as equal are the same, with the way back to the text that
/// it was made of. One piece of that may be several units here, and the other way round: "ｶﾞ" and
/// "ガ", "㌔" and "キロ".
class FoldedText {
public:
    QStringView text() const { return text_; }
    /// Where in the original the piece starts that a position here belongs to; the end for the end.
    qsizetype original(qsizetype at) const {
        return isOneToOne_ ? at : starts_[static_cast<std::size_t>(at)];
    }
    /// Whether no piece of the original stands on both sides of a position here.
    bool isBetweenPieces(qsizetype at) const {
        return isOneToOne_ || at == 0 || at == text_.size() ||
               starts_[static_cast<std::size_t>(at)] != starts_[static_cast<std::size_t>(at) - 1];
    }

private:
    friend class TextFolding;

    void add(QStringView folded, qsizetype start);

    QString text_;
    bool isOneToOne_ = true;
    /// For every unit and for the end, where its piece starts; empty while that is the same place.
    std::vector<qsizetype> starts_;
};

/// Which characters count as equal.
class TextFolding {
public:
    /// `ignoreCase`: capital and small letters. `ignoreWidth`: full-width and half-width forms and
    /// words in one square, hiragana and katakana; letters with their marks apart or together, too.
    TextFolding(bool ignoreCase, bool ignoreWidth);
    ~TextFolding();

    /// Whether every character is equal to itself alone.
    bool isExact() const { return !ignoreCase_ && !ignoreWidth_; }
    /// Folds a text; what was in `out` goes.
    void fold(QStringView text, FoldedText &out) const;
    QString folded(QStringView text) const;

private:
    struct Table;

    std::shared_ptr<const Table> table() const;
    bool startsPiece(char32_t c) const;
    QString foldedPiece(QStringView piece) const;
    QString foldedAlone(char32_t c) const;

    bool ignoreCase_;
    bool ignoreWidth_;
    std::shared_ptr<const Table> table_;
};

} // namespace quillon::search
