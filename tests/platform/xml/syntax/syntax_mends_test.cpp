#include "platform/xml/syntax/syntax_mends.h"

#include <gmock/gmock.h>
#include <random>

namespace quillon::xml {

namespace {

using testing::ElementsAreArray;

std::vector<SyntaxMend> mendsOf(const QByteArray &text, const SyntaxScope &scope = {}) {
    const std::optional<SyntaxFault> fault = firstSyntaxFault(text, scope);
    return fault ? syntaxMends(text, *fault, scope) : std::vector<SyntaxMend>();
}

/// "title -> text" of each mend.
std::vector<std::string> outcomes(const QByteArray &text) {
    std::vector<std::string> all;
    for (const SyntaxMend &mend : mendsOf(text))
        all.push_back(mend.title.toStdString() + " -> " +
                      withReplacements(text, mend.replacements).toStdString());
    return all;
}

struct Row {
    const char *text;
    std::vector<std::string> outcomes;
};

TEST(SyntaxMends, MakeTheTextWellFormed) {
    const Row table[] = {
        {"<a>\n  <b>\n    <c/>\n</a>",
         {"終了タグ </b> を挿入 (3 行目) -> <a>\n  <b>\n    <c/>\n  </b>\n</a>",
          "<b> を空要素 <b/> に変更 -> <a>\n  <b/>\n    <c/>\n</a>",
          "開始タグ <b> (2 行目) を削除 -> <a>\n    <c/>\n</a>"}},
    };
    for (const Row &row : table)
        EXPECT_THAT(outcomes(row.text), ElementsAreArray(row.outcomes)) << row.text;
}

} // namespace

} // namespace quillon::xml
