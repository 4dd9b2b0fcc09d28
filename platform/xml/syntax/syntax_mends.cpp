#include "platform/xml/syntax/syntax_mends.h"

#include "platform/xml/syntax/judge.h"
#include "platform/xml/syntax/mend_candidates.h"

#include <algorithm>

namespace quillon::xml {

namespace {

/// Nobody reads a longer list.
constexpr std::size_t MostMends = 6;
/// In a longer text each of them takes seconds to be judged.
constexpr qsizetype LongText = 10'000'000;
constexpr std::size_t MostMendsOfLongText = 2;

} // namespace

std::vector<SyntaxMend> syntaxMends(QByteArrayView utf8, const SyntaxFault &fault,
                                    const SyntaxScope &scope, const runtime::Progress &progress) {
    const Cause cause = causeOf(utf8, stopPlaceOf(fault, scope), progress);
    if (cause.kind != fault.kind || cause.start != fault.start)
        return {};
    // Farther than this the parser has to come.
    const qsizetype wrong = std::max(fault.noticedAt, cause.start + cause.length - 1);
    const std::size_t most = utf8.size() <= LongText ? MostMends : MostMendsOfLongText;
    std::vector<SyntaxMend> candidates = mendCandidates(utf8, cause, fault.noticedAt);
    std::vector<SyntaxMend> perfect;
    std::vector<SyntaxMend> helpful;
    for (std::size_t at = 0; at < candidates.size() && perfect.size() < most; ++at) {
        SyntaxMend &mend = candidates[at];
        const std::optional<SyntaxFault> left =
            firstSyntaxFault(withReplacements(utf8, mend.replacements), scope, [&](double done) {
                return !progress || progress((double(at) + done) / double(candidates.size()));
            });
        if (!left)
            perfect.push_back(std::move(mend));
        else if (placeBefore(mend.replacements, left->noticedAt) > wrong)
            helpful.push_back(std::move(mend));
    }
    if (!perfect.empty())
        return perfect;
    helpful.resize(std::min(helpful.size(), most));
    return helpful;
}

QByteArray withReplacements(QByteArrayView text, const std::vector<Replacement> &replacements) {
    QByteArray result;
    qsizetype done = 0;
    for (const Replacement &replacement : replacements) {
        result += text.sliced(done, replacement.start - done);
        result += replacement.text;
        done = replacement.start + replacement.length;
    }
    result += text.sliced(done);
    return result;
}

qsizetype placeBefore(const std::vector<Replacement> &replacements, qsizetype at) {
    qsizetype shift = 0;
    for (const Replacement &replacement : replacements) {
        const qsizetype start = replacement.start + shift;
        if (at < start)
            break;
        if (at < start + replacement.text.size())
            return replacement.start;
        shift += replacement.text.size() - replacement.length;
    }
    return at - shift;
}

} // namespace quillon::xml
