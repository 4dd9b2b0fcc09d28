#include "tests/validation/live_fixture.h"

namespace quillon::test {

namespace {

class PaneSyntaxTest : public Live {
protected:
    validation::PaneSyntax &syntax() { return editor().paneSyntax; }
    /// The captions of what may be done.
    QStringList titles() {
        QStringList all;
        for (const xml::SyntaxMend &mend : syntax().mends())
            all << mend.title;
        return all;
    }
};

TEST_F(PaneSyntaxTest, TextIsMendedWhereItStands) {
    open("<r>\n  <a>\n    <b/>\n  </a>\n</r>");
    select("a");
    type("<a>\n    日本<b>\n  </a>");
    waitForChecks();
    EXPECT_EQ(syntax().told(), "2 行 7 桁: <b> (2 行目) に対応する終了タグがありません。");
    EXPECT_EQ(status(), "構文エラー");
    EXPECT_TRUE(syntax().goTo());
    EXPECT_EQ(txtEdit().selected, "<b");
    EXPECT_TRUE(txtEdit().hasFocus);
    const std::vector<xml::SyntaxMend> mends = syntax().mends();
    ASSERT_FALSE(mends.empty());
    syntax().mend(mends[0]);
    EXPECT_EQ(status(), "修正しました: " + mends[0].title);
    EXPECT_EQ(xml(), "<r>\n  <a>\n    日本<b></b>\n  </a>\n</r>");
    waitForChecks();
    EXPECT_EQ(syntax().told(), "");
    EXPECT_FALSE(syntax().goTo());
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), "<r>\n  <a>\n    <b/>\n  </a>\n</r>") << "one step";
}

TEST_F(PaneSyntaxTest, NothingIsDoneToAnotherText) {
    open("<r/>");
    select("r");
    type("<r x=1/>");
    const std::vector<xml::SyntaxMend> mends = syntax().mends();
    ASSERT_EQ(mends.size(), 1U) << "asked for ahead of the pause";
    type("<r>x=1/>");
    syntax().mend(mends[0]);
    EXPECT_EQ(txtEdit().utf8(), "<r>x=1/>");
    EXPECT_EQ(status(), "ドキュメントが変わったため、この修正は行えません。");
}

TEST_F(PaneSyntaxTest, WhatIsTypedMakesItKnownAnew) {
    open("<r/>");
    select("r");
    type("<r>&</r>");
    waitForChecks();
    EXPECT_EQ(found(), "/r: syntax");
    type("<r>\n1 < 2</r>");
    EXPECT_TRUE(syntax().isChecking());
    waitForChecks();
    EXPECT_EQ(syntax().place().line, 2);
    EXPECT_EQ(titles(), QStringList{"< を &lt; に変更"});
    dialogs.answerMessage(ui::message_answer::Yes);
    EXPECT_TRUE(editor().selection.mayLeavePane());
    EXPECT_EQ(syntax().told(), "") << "it has been given up";
    waitForChecks();
    EXPECT_EQ(found(), "");
}

TEST_F(PaneSyntaxTest, IsToldWithoutLiveValidation) {
    live().setOn(false);
    open("<r/>");
    select("r");
    type("<r>&</r>");
    waitForChecks();
    EXPECT_EQ(found(), "/r: syntax");
    editor().paneMarks.mark();
    ASSERT_EQ(txtEdit().marks.size(), 1U);
    EXPECT_EQ(txtEdit().utf8().mid(txtEdit().marks[0].at, txtEdit().marks[0].length), "&");
}

TEST_F(PaneSyntaxTest, EntitiesAreThoseOfTheDocument) {
    open("<!DOCTYPE r [<!ENTITY e 'x'>]><r><a/></r>");
    select("a");
    type("<a>&e;&f;</a>");
    waitForChecks();
    EXPECT_EQ(syntax().told(), "1 行 7 桁: 実体 'f' は宣言されていません。");
    EXPECT_EQ(titles(), QStringList{"& を &amp; に変更"});
}

TEST_F(PaneSyntaxTest, LongTextIsLookedAtInAChild) {
    open("<r/>");
    select("#document");
    const QString text = "<r>\n" + QString("<a>text</a>\n").repeated(100'000);
    type(text + "<b>\n</r>");
    EXPECT_TRUE(syntax().isChecking());
    waitForChecks();
    EXPECT_EQ(syntax().told(),
              "100002 行 1 桁: <b> (100002 行目) に対応する終了タグがありません。");
    const std::vector<xml::SyntaxMend> mends = syntax().mends();
    ASSERT_FALSE(mends.empty());
    window->longWork.isStopWanted = true;
    EXPECT_THROW(syntax().mends(), runtime::Error);
    syntax().mend(mends[0]);
    EXPECT_EQ(xml().right(12), "<b></b>\n</r>");
}

} // namespace

} // namespace quillon::test
