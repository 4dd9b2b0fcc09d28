#pragma once

#include <QString>

#include <vector>

namespace quillon::xml {

/// One symbol of a pattern of the old stylesheet dialect.
struct WdToken {
    enum class Kind { Name, Number, String, Symbol, End };

    Kind kind;
    /// As written; the operators `$...$` without the dollar signs. A string has its quotes.
    QString text;
    /// For a name that stands before "(".
    bool isCall = false;
};

/// The symbols of a pattern, an End behind them. Raises Fail for a character that no symbol has
/// and for a string or operator that does not end.
std::vector<WdToken> wdTokens(const QString &pattern);

/// Raises Fail for a construct that has no equivalent, or, without one, for a pattern that ends too
/// early.
[[noreturn]] void refuseWdPattern(const QString &construct, const QString &pattern);

} // namespace quillon::xml
