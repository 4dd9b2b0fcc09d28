#include "platform/xml/syntax/syntax_mends.h"

#include "platform/xml/syntax/judge.h"
#include "platform/xml/syntax/mend_candidates.h"

#include <algorithm>

namespace quillon::xml {

namespace {

/// Nobody reads a longer list.
constexpr std::size_t MostMends = 6;

/// Where a byte of a text with replacements stood before; of what has been put in, where that was.
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

} // namespace

std::vector<SyntaxMend> syntaxMends(QByteArrayView utf8, const SyntaxFault &fault,
                                    const SyntaxScope &scope, const runtime::Progress &progress) {
    const ParseError error = judged(utf8, scope, progress);
    if (error.errorCode == 0)
        return {};
    const StopPlace stop = stopPlaceOf(utf8, error, scope);
    const Cause cause = causeOf(utf8, stop, progress);
    if (cause.kind != fault.kind || cause.start != fault.start)
        return {};
    // Farther than this the parser has to come.
    const qsizetype wrong = std::max(stop.at, cause.start + cause.length - 1);
    std::vector<SyntaxMend> perfect;
    std::vector<SyntaxMend> helpful;
    for (SyntaxMend &mend : mendCandidates(utf8, cause, stop.at)) {
        const QByteArray mended = withReplacements(utf8, mend.replacements);
        const ParseError left = judged(mended, scope, progress);
        const bool isPerfect = left.errorCode == 0;
        if (!isPerfect && placeBefore(mend.replacements, left.filepos) <= wrong)
            continue;
        (isPerfect ? perfect : helpful).push_back(std::move(mend));
        if (perfect.size() == MostMends)
            break;
    }
    if (!perfect.empty())
        return perfect;
    helpful.resize(std::min(helpful.size(), MostMends));
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

} // namespace quillon::xml
