#include "fuzz/fuzz_support.h"
#include "platform/xml/syntax/syntax_mends.h"

using namespace quillon;
using namespace quillon::fuzz;

/// Any text: its fault lies within it, and no mend makes the text worse.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const TwoParts parts(bytesOf(data, size));
    const QByteArray text = toQByteArray(parts.first);
    const xml::SyntaxScope scope{.declarations = toQByteArray(parts.second)};
    const std::optional<xml::SyntaxFault> fault = xml::firstSyntaxFault(text, scope);
    if (!fault)
        return 0;
    require(fault->start >= 0 && fault->length >= (text.isEmpty() ? 0 : 1) &&
                fault->start + fault->length <= text.size(),
            "the cause lies within the text");
    require(!fault->sentence.isEmpty() && !fault->sentence.contains(u'\n'),
            "a fault is told on one line");
    for (const xml::SyntaxMend &mend : xml::syntaxMends(text, *fault, scope)) {
        qsizetype done = 0;
        for (const xml::Replacement &part : mend.replacements) {
            require(part.start >= done && part.length >= 0 &&
                        part.start + part.length <= text.size(),
                    "replacements are in order and within the text");
            done = part.start + part.length;
        }
        const QByteArray mended = xml::withReplacements(text, mend.replacements);
        require(mended != text, "a mend changes something");
        const std::optional<xml::SyntaxFault> left = xml::firstSyntaxFault(mended, scope);
        require(!left || xml::placeBefore(mend.replacements, left->noticedAt) > fault->noticedAt,
                "the parser comes farther");
    }
    return 0;
}
