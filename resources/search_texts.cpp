#include "resources/search_texts.h"

#include <algorithm>
#include <array>

namespace quillon::resources::search_texts {

namespace {

struct Fault {
    /// What the library's words begin with.
    QLatin1String words;
    Text sentence;
};

constexpr std::array Faults = {
    Fault{QLatin1String("\\ at end of pattern"), u"末尾の \\ の後に文字がありません。"},
    Fault{QLatin1String("\\c at end of pattern"), u"\\c の後に文字がありません。"},
    Fault{QLatin1String("unrecognized character follows \\"),
          u"\\ の後に使用できない文字があります。"},
    Fault{QLatin1String("numbers out of order in {} quantifier"),
          u"繰り返しの回数 {最小,最大} の大小が逆です。"},
    Fault{QLatin1String("number too big in {} quantifier"), u"繰り返しの回数が大きすぎます。"},
    Fault{QLatin1String("missing terminating ]"), u"[ に対応する ] がありません。"},
    Fault{QLatin1String("escape sequence is invalid in character class"),
          u"[ ] の中で使用できない \\ の指定があります。"},
    Fault{QLatin1String("range out of order in character class"),
          u"[ ] の中の文字の範囲の前後が逆です。"},
    Fault{QLatin1String("invalid range in character class"),
          u"[ ] の中の文字の範囲が正しくありません。"},
    Fault{QLatin1String("quantifier does not follow a repeatable item"),
          u"繰り返し (* + ? {回数}) の前に、繰り返す文字がありません。"},
    Fault{QLatin1String("unrecognized character after (?"),
          u"(? の後に使用できない文字があります。"},
    Fault{QLatin1String("POSIX"), u"[: :] などの指定は、[ ] の中の [:alpha:] などに限られます。"},
    Fault{QLatin1String("unknown POSIX class name"), u"[: :] の中の名前が正しくありません。"},
    Fault{QLatin1String("missing closing parenthesis"), u"( に対応する ) がありません。"},
    Fault{QLatin1String("missing ) after (?# comment"), u"(?# に対応する ) がありません。"},
    Fault{QLatin1String("unmatched closing parenthesis"), u") に対応する ( がありません。"},
    Fault{QLatin1String("reference to non-existent subpattern"),
          u"存在しないグループが参照されています。"},
    Fault{QLatin1String("parentheses are too deeply nested"), u"括弧の入れ子が深すぎます。"},
    Fault{QLatin1String("regular expression is too large"), u"正規表現が長すぎます。"},
    Fault{QLatin1String("regular expression is too complicated"), u"正規表現が複雑すぎます。"},
    Fault{QLatin1String("lookbehind assertion is not fixed length"),
          u"後読み (?<= ) (?<! ) の長さが決まっていません。"},
    Fault{QLatin1String("length of lookbehind assertion is not limited"),
          u"後読み (?<= ) (?<! ) の長さが決まっていません。"},
    Fault{QLatin1String("lookbehind"), u"後読み (?<= ) (?<! ) が複雑すぎるか長すぎます。"},
    Fault{QLatin1String("conditional subpattern contains more than two branches"),
          u"条件 (?( ) ) の選択肢が 3 つ以上あります。"},
    Fault{QLatin1String("assertion expected after (?("), u"(?( の後に条件がありません。"},
    Fault{QLatin1String("two named subpatterns have the same name"),
          u"同じ名前のグループが 2 つあります。"},
    Fault{QLatin1String("subpattern name must start with a non-digit"),
          u"グループの名前を数字で始めることはできません。"},
    Fault{QLatin1String("subpattern name expected"), u"グループの名前がありません。"},
    Fault{QLatin1String("subpattern name is too long"), u"グループの名前が長すぎます。"},
    Fault{QLatin1String("syntax error in subpattern name"),
          u"グループの名前を閉じる記号がありません。"},
    Fault{QLatin1String("character code point value in \\x{} or \\o{} is too large"),
          u"文字コードの値が大きすぎます。"},
    Fault{QLatin1String("unknown property"), u"\\p{ } の中の名前が正しくありません。"},
    Fault{QLatin1String("malformed \\P or \\p sequence"), u"\\p{ } の書き方が正しくありません。"},
    Fault{QLatin1String("PCRE2 does not support"), u"\\L \\U \\l \\u \\N{名前} は使用できません。"},
};

} // namespace

QString expressionFault(const QString &message, qsizetype offset) {
    const auto *const fault = std::find_if(Faults.begin(), Faults.end(), [&](const Fault &one) {
        return message.startsWith(one.words);
    });
    const Text sentence =
        fault == Faults.end() ? Text(u"正規表現の書き方が正しくありません。") : fault->sentence;
    return Text(u"正規表現の %1 文字目の付近: ").toString().arg(offset + 1) + sentence.toString();
}

} // namespace quillon::resources::search_texts
