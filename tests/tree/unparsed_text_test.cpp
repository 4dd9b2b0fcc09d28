#include "platform/ui/message_box.h"
#include "resources/texts.h"
#include "tests/support/headless_editor.h"

#include <QMimeData>

#include <functional>
#include <utility>
#include <vector>

namespace quillon::test {

namespace {

constexpr int Yes = ui::message_answer::Yes;
constexpr int No = ui::message_answer::No;

const QByteArray Document = "<doc><a>1</a><b>2</b></doc>";
const QString Broken = "<a>1</a";

/// A document whose element `a` is shown with text in the pane that does not parse.
class UnparsedText : public HeadlessEditor {
protected:
    void SetUp() override {
        open(Document);
        editor().builder.ExpandSubtree(tree().nodes().Item(1));
    }
    void typeBroken() {
        select("a");
        type(Broken);
        ASSERT_EQ(status(), "構文エラー");
    }

    struct Way {
        const char *name;
        std::function<void()> go;
    };
    /// The ways in which the text could go without a command of a menu.
    std::vector<Way> ways() {
        return {
            {"click", [this] { tree().selectAsUser(item("b")); }},
            {"search", [this] { editor().captionSearch.SearchForward(item("doc"), "b"); }},
            {"query",
             [this] {
                 cboPath().setText("/doc/b");
                 editor().pathQuery.SelectByPath();
             }},
            {"show", [this] { editor().selection.ShowNode(item("b"), true); }},
            {"label", [this] { EXPECT_FALSE(tree().beforeLabelEdit(item("a"))); }},
            {"drag",
             [this] {
                 editor().dragAndDrop.m_nodDown = item("a");
                 EXPECT_EQ(editor().dragAndDrop.tvw_OLEStartDrag().data, nullptr);
             }},
            {"drop",
             [this] {
                 QMimeData data;
                 data.setText("<x/>");
                 editor().dragAndDrop.tvw_OLEDragDrop(
                     {item("b"), {}, Qt::CopyAction, Qt::CopyAction}, data);
             }},
            {"save as", [this] { editor().commands.mnuFileSaveAs_Click(); }},
        };
    }
};

TEST_F(UnparsedText, IsAskedAboutBeforeItGoes) {
    select("b");
    type("<b>3</b>");
    select("a");
    const QByteArray before = xml();
    for (const Way &way : ways()) {
        SCOPED_TRACE(way.name);
        typeBroken();
        const size_t asked = dialogs.messages.size();
        dialogs.answerMessage(No);
        way.go();
        ASSERT_EQ(dialogs.messages.size(), asked + 1);
        EXPECT_EQ(dialogs.messages.back().text, resources::texts::GiveUpUnparsedText.toString());
        // Yes and No, and No for Return and Escape.
        EXPECT_EQ(dialogs.messages.back().style, 4 + 32 + 256);
        EXPECT_EQ(xml(), before);
        EXPECT_EQ(txtEdit().Text(), Broken);
        EXPECT_EQ(tree().SelectedItem(), item("a"));
        EXPECT_EQ(status(), "構文エラー");
        EXPECT_TRUE(std::exchange(txtEdit().hasFocus, false));
        ASSERT_TRUE(editor().selection.hasUnparsedText());
    }
    EXPECT_EQ(read("doc.xml"), Document);

    // Going on with it, the user makes it part of the document.
    type("<a>4</a>");
    EXPECT_EQ(xml(), "<doc><a>4</a><b>3</b></doc>");
    select("b");
}

TEST_F(UnparsedText, GoesWhenTheUserSaysSo) {
    typeBroken();
    dialogs.answerMessage(Yes);
    tree().selectAsUser(item("b"));
    EXPECT_EQ(txtEdit().utf8(), "<b>2</b>");
    EXPECT_EQ(status(), "");
    // A query is remembered as it was asked, though the box shows another path by then.
    typeBroken();
    dialogs.answerMessage(Yes);
    cboPath().setText("//b");
    editor().pathQuery.SelectByPath();
    EXPECT_EQ(cboPath().List(), QStringList("//b"));
}

TEST_F(UnparsedText, StaysWithoutAQuestionWhereNothingHappensToIt) {
    typeBroken();
    tree().selectAsUser(item("a"));
    editor().selection.ShowNode(item("a"), true);
    EXPECT_EQ(txtEdit().Text(), Broken);
    // Nor is anybody asked about a text that the document has, or an emptied one.
    type("<a>5</a>");
    select("5");
    type("");
    select("b");
    EXPECT_EQ(xml(), "<doc><a>5</a><b>2</b></doc>");
}

TEST_F(UnparsedText, OfTheDocumentIsNoOther) {
    select("#document");
    type("<doc><a>");
    dialogs.answerMessage(No);
    tree().selectAsUser(item("a"));
    EXPECT_EQ(tree().SelectedItem(), item("#document"));
    type("<doc><c/></doc>");
    EXPECT_EQ(xml(), "<doc><c/></doc>");
    select("c");
}

} // namespace

} // namespace quillon::test
