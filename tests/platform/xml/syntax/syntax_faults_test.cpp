#include "platform/runtime/error.h"
#include "platform/xml/syntax/syntax_mends.h"

#include <gmock/gmock.h>

namespace quillon::xml {

namespace {

using Kind = SyntaxFaultKind;

/// A text, in which what is to be marked stands between "⟦" and "⟧", and the kind of its fault.
struct Marked {
    const char *text;
    Kind kind;
};

/// The text with the cause that has been found between the same brackets.
std::string found(QByteArray text, Kind &kind) {
    text.replace("⟦", "").replace("⟧", "");
    const std::optional<SyntaxFault> fault = firstSyntaxFault(text);
    if (!fault)
        return "(well-formed)";
    kind = fault->kind;
    EXPECT_FALSE(fault->sentence.isEmpty()) << text.toStdString();
    EXPECT_FALSE(fault->sentence.contains(u'\n'));
    EXPECT_FALSE(fault->sentence.contains(u"%1")) << fault->sentence.toStdString();
    return text.insert(fault->start + fault->length, "⟧").insert(fault->start, "⟦").toStdString();
}

TEST(SyntaxFaults, AreMarkedAtTheirCause) {
    const Marked table[] = {
        // The usual ten.
        {"<a>\n  ⟦<b⟧>\n  <c/>\n</a>", Kind::MissingEndTag},
        {"<a>\n<b>t⟦</B>⟧</a>", Kind::WrongCaseOfEndTag},
        {"<a>\n<b x=⟦1⟧/></a>", Kind::UnquotedValue},
        {"<a>\n<b x=⟦\"1⟧/></a>", Kind::UnclosedQuote},
        {"<a>\nR⟦&⟧D</a>", Kind::BareAmpersand},
        {"<a>\n1 ⟦<⟧ 2</a>", Kind::BareLessThan},
        {"<a x='1' y='' ⟦x⟧='2'/>", Kind::DuplicateAttribute},
        {"<a/>\n⟦<b⟧/>", Kind::SecondRoot},
        {"<a>\nt⟦\x01⟧t</a>", Kind::ForbiddenCharacter},
        {"⟦\n ⟧<?xml version='1.0'?><a/>", Kind::AheadOfDeclaration},
        // Which of several elements.
        {"<l>\n  ⟦<i⟧>a\n  <i>b</i>\n</l>", Kind::MissingEndTag},
        {"<d>\n  <d>\n    ⟦<d⟧>\n    x\n  </d>\n</d>", Kind::MissingEndTag},
        {"<d>\n  <d>\n    <d>\n    x\n    </d>\n  </d>\n  ⟦<p⟧>\n</d>", Kind::MissingEndTag},
        {"<d><d>⟦<p⟧></d></d>", Kind::MissingEndTag},
        {"<a><b>⟦</c>⟧</b></a>", Kind::StrayEndTag},
        {"<a/>⟦</a>⟧", Kind::StrayEndTag},
        {"<a>\n  ⟦<b⟧>\n", Kind::MissingEndTag},
        // Attributes.
        {"<a x=⟦\"1⟧>\n<b y=\"2\"/></a>", Kind::UnclosedQuote},
        {"<a x=⟦\"1 y=\"2\"⟧/>", Kind::UnclosedQuote},
        {"<a x=⟦'1⟧></a>", Kind::UnclosedQuote},
        {"<a x=\"1⟦<⟧2\"/>", Kind::BareLessThan},
        {"<a x=\"1⟦&⟧2\"/>", Kind::BareAmpersand},
        {"<a x='1' z='&lt;' y='⟦&e;⟧'/>", Kind::UndeclaredEntity},
        {"<a ⟦x⟧ '1'/>", Kind::MissingEquals},
        {"<a ⟦x⟧/>", Kind::MissingValue},
        {"<a ⟦x⟧= />", Kind::MissingValue},
        {"<a x='1'⟦y⟧='2'/>", Kind::MissingBlank},
        {"<a>⟦<b⟧ x='1' <c/></a>", Kind::UnclosedTag},
        {"<a>⟦</a⟧", Kind::UnclosedTag},
        {"⟦<a⟧", Kind::UnclosedTag},
        // The rest.
        {"<a>⟦&e;⟧</a>", Kind::UndeclaredEntity},
        {"<a>⟦&#0;⟧</a>", Kind::BadReference},
        {"<a>x ⟦&⟧ y</a>", Kind::BareAmpersand},
        {"<a>⟦&⟧</a>", Kind::BareAmpersand},
        {"⟦t⟧<a/>", Kind::TextOutsideRoot},
        {"<a/>\n⟦some text⟧\n", Kind::TextOutsideRoot},
        {"<a><!-- x ⟦--⟧ y --></a>", Kind::DoubleHyphenInComment},
        {"<a>⟦<!--⟧ x</a>", Kind::UnclosedComment},
        {"<a>⟦<!--⟧ x <b/> <!-- y --></a>", Kind::UnclosedComment},
        {"<a>⟦<![CDATA[⟧ x</a>", Kind::UnclosedSection},
        {"<a>⟦<?⟧p x></a>", Kind::UnclosedInstruction},
        {"<a>x⟦]]>⟧y</a>", Kind::SectionEndInText},
        {"<!-- c -->\n⟦<?xml version='1.0'?>⟧<a/>", Kind::AheadOfDeclaration},
        {"⟦ ⟧", Kind::NoElement},
        {"⟦\xEF\xBB\xBF⟧<a/>", Kind::ForbiddenCharacter},
        {"<a>⟦<⟧1a/></a>", Kind::BareLessThan},
        {"<日本>⟦<本⟧>語</日本>", Kind::MissingEndTag},
        {"<!DOCTYPE a [<!ENTITY e ''>]><a x='&e;⟦&f;⟧'/>", Kind::UndeclaredEntity},
    };
    for (const Marked &row : table) {
        Kind kind = Kind::Other;
        EXPECT_EQ(found(row.text, kind), row.text);
        EXPECT_EQ(int(kind), int(row.kind)) << row.text;
    }
}

std::string sentenceOf(const char *text) {
    const std::optional<SyntaxFault> fault = firstSyntaxFault(text);
    return fault ? fault->sentence.toStdString() : "(well-formed)";
}

TEST(SyntaxFaults, AreSaidInOneSentence) {
    const std::pair<const char *, const char *> table[] = {
        {"<a>\n<b>\n</a>", "<b> (2 行目) に対応する終了タグがありません。"},
        {"<a><b>\n</B></a>",
         "終了タグ </B> は、大文字と小文字が開始タグ <b> (1 行目) と一致しません。"},
        {"<a><b>\n</c></a>", "終了タグ </c> が開始タグ <b> (1 行目) と一致しません。"},
        {"<a/></a>", "終了タグ </a> に対応する開始タグがありません。"},
        {"<a x=1/>", "属性 'x' の値が引用符で囲まれていません。"},
        {"<a x='1>", "属性 'x' の値の引用符が閉じていません。"},
        {"<a x=''\n x=''/>", "属性 'x' が重複しています (1 つ目は 1 行目)。"},
        {"<a>&\n;</a>", "& がそのまま書かれています (文字としての & は &amp; と書きます)。"},
        {"<a>&e;</a>", "実体 'e' は宣言されていません。"},
        {"<a>\x1f</a>", "XML で使用できない文字 (U+001F) があります。"},
        {"<a>\xEF\xBF\xBF</a>", "XML で使用できない文字 (U+FFFF) があります。"},
        {"<a/><b/>", "ルート要素の後に別の要素 <b> があります (最上位の要素は 1 つだけです)。"},
        {"<!DOCTYPE a [<!ELEMENT>]><a/>", "無効な文字または構文があります。"},
    };
    for (const auto &[text, sentence] : table)
        EXPECT_EQ(sentenceOf(text), sentence) << text;
}

TEST(SyntaxFaults, KnowTheEntitiesOfTheDocument) {
    const SyntaxScope scope{.declarations = "<!DOCTYPE r [<!ENTITY e 'x'>]>"};
    EXPECT_FALSE(firstSyntaxFault("<a>&e;</a>", scope));
    const std::optional<SyntaxFault> fault = firstSyntaxFault("<a>&e;&f;</a>", scope);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->start, 6);
    EXPECT_EQ(fault->length, 3);
}

TEST(SyntaxFaults, ArePlacedInCharacters) {
    const QByteArray text = "<a>\r\n 𠮷野<b></a>";
    const TextPlace place = placeInText(text, text.indexOf("<b>"));
    EXPECT_EQ(place.line, 2);
    EXPECT_EQ(place.column, 4);
}

TEST(SyntaxFaults, LookingForThemCanBeStopped) {
    const QByteArray text = "<a>" + QByteArray("<b/>").repeated(100'000) + "<c></a>";
    EXPECT_THROW(firstSyntaxFault(text, {}, [](double) { return false; }), runtime::Error);
}

} // namespace

} // namespace quillon::xml
