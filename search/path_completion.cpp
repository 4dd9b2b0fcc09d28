#include "search/path_completion.h"

#include "platform/xml/query/known_names.h"
#include "platform/xml/query/xpath_expression.h"

#include <algorithm>

namespace quillon::search {

namespace {

constexpr qsizetype MostProposals = 20;

/// Where the name starts that the text ends with, in UTF-8; the end of the text for none.
std::size_t startOfLastName(const xml::XPathExpression &text) {
    using Kind = xml::XPathToken::Kind;
    const auto &tokens = text.tokens();
    const std::size_t end = text.utf8().size();
    // The last one of all is the end.
    std::size_t last = tokens.size() - 1;
    const auto precedes = [&](std::string_view symbol) {
        return last > 0 && text.text(tokens[last - 1]) == symbol;
    };
    if (last == 0 || tokens[last - 1].kind != Kind::Name || tokens[last - 1].end != end)
        return end;
    --last;
    if (last > 1 && precedes(":") && tokens[last - 2].kind == Kind::Name)
        last -= 2;
    return precedes("$") ? end : tokens[last].start;
}

} // namespace

QStringList PathCompletion::proposals(const QString &typed) const {
    QStringList all;
    if (typed.isEmpty())
        return all;
    const QStringList earlier = cboPath_.List();
    for (auto at = earlier.rbegin(); at != earlier.rend(); ++at) {
        if (at->startsWith(typed, Qt::CaseInsensitive))
            all.append(*at);
    }
    const xml::XPathExpression text(typed.toStdString());
    const std::size_t start = startOfLastName(text);
    if (start != text.utf8().size()) {
        const QString before = QString::fromStdString(text.utf8().substr(0, start));
        const QString name = typed.sliced(before.size());
        for (const QString &known : xml::namesStartingWith(state_.m_DOM, name, MostProposals))
            all.append(before + known);
    }
    all.removeDuplicates();
    all.removeAll(typed);
    return all.first(std::min(all.size(), MostProposals));
}

} // namespace quillon::search
