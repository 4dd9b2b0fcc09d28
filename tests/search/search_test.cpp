#include "platform/runtime/error.h"
#include "search/caption_search.h"
#include "search/path_query.h"
#include "tests/support/headless_editor.h"

#include <QSignalSpy>

namespace quillon::test {

namespace {

/// The window's parts with the two searches on top, whose texts are kept.
class SearchTest : public HeadlessEditor {
protected:
    SearchTest() {
        const auto keep = [this](const QString &text) { texts.append(text); };
        QObject::connect(&captionSearch, &search::CaptionSearch::statusText, keep);
        QObject::connect(&pathQuery, &search::PathQuery::statusText, keep);
    }

    QString selected() { return tree().SelectedItem().Text(); }
    QString lastText() { return texts.isEmpty() ? QString() : texts.takeLast(); }
    void find(const QString &pattern) {
        dialogs.answerInput(pattern);
        captionSearch.mnuEditFind_Click();
    }
    void query(const QString &path) {
        cboPath().setText(path);
        pathQuery.SelectByPath();
    }
    QStringList bold() {
        QStringList captions;
        items::Nodes &nodes = tree().nodes();
        for (int i = 1; i <= nodes.Count(); ++i) {
            if (nodes.Item(i).Bold())
                captions.append(nodes.Item(i).Text());
        }
        return captions;
    }

    QStringList texts;
    search::CaptionSearch captionSearch{tree(), editor().selection};
    WorkAtOnce longWork;
    search::PathQuery pathQuery{tree(), cboPath(), editor().selection, editor().builder.registry(),
                                longWork};
};

constexpr auto Items = "<items><item n='1'/><b><item>text</item></b><c>item</c></items>";

TEST_F(SearchTest, CaptionsMatchAsAWholeInTheOrderOfTheItems) {
    open(Items);
    tree().setSelectedItem({});
    find("item");
    EXPECT_EQ(dialogs.prompts, std::vector<QString>{"検索する文字列を入力してください。"});
    EXPECT_EQ(selected(), "item");
    EXPECT_EQ(cboPath().Text(), "items/item/");
    EXPECT_EQ(lastText(), "");
    captionSearch.mnuEditFindNext_Click();
    EXPECT_EQ(cboPath().Text(), "items/b/item/");
    EXPECT_TRUE(item("b").Expanded()) << "what is found is to be seen";
    captionSearch.mnuEditFindNext_Click();
    EXPECT_EQ(tree().SelectedItem().Parent().Text(), "c");
    EXPECT_EQ(lastText(), "");
    captionSearch.mnuEditFindNext_Click();
    EXPECT_EQ(lastText(), "終わりまで検索しました。");
    EXPECT_EQ(tree().SelectedItem().Parent().Text(), "c") << "the search does not wrap";

    EXPECT_TRUE(captionSearch.SearchBackward(tree().SelectedItem(), "item"));
    EXPECT_EQ(cboPath().Text(), "items/b/item/");
    EXPECT_TRUE(captionSearch.SearchBackward(tree().SelectedItem(), "*\"1\""));
    EXPECT_EQ(selected(), "n=\"1\"");
    EXPECT_FALSE(captionSearch.SearchBackward(tree().SelectedItem(), "b"));
    EXPECT_EQ(lastText(), "先頭まで検索しました。");
    EXPECT_FALSE(captionSearch.SearchBackward({}, "item"));
    EXPECT_TRUE(texts.isEmpty() || lastText().isEmpty()) << "without a start nothing is said";

    const items::TreeItem top = tree().nodes().Item(1);
    EXPECT_FALSE(captionSearch.SearchForward(top, "Item"));
    EXPECT_TRUE(captionSearch.SearchForward(top, "item*"));
    EXPECT_EQ(selected(), "items");
    EXPECT_THROW(captionSearch.SearchForward(top, "[a"), runtime::Error);
}

TEST_F(SearchTest, TheFirstItemIsNeverFoundFromNothing) {
    open(Items);
    tree().setSelectedItem({});
    find("#document");
    EXPECT_EQ(lastText(), "終わりまで検索しました。");
    EXPECT_FALSE(tree().SelectedItem());
    EXPECT_TRUE(captionSearch.SearchBackward(item("items"), "[#]document"));
    EXPECT_EQ(tree().SelectedItem().Index(), 1);
    EXPECT_FALSE(captionSearch.SearchBackward(tree().SelectedItem(), "*"));
}

TEST_F(SearchTest, CancellingForgetsThePattern) {
    open(Items);
    find("b");
    EXPECT_EQ(captionSearch.pattern(), "b");
    find("");
    EXPECT_EQ(captionSearch.pattern(), "");
    EXPECT_EQ(selected(), "b");
    dialogs.answerInput("c");
    captionSearch.mnuEditFindNext_Click();
    EXPECT_EQ(dialogs.prompts.size(), 3u) << "it asks when it has no pattern";
    EXPECT_EQ(selected(), "c");
    tree().nodes().Clear();
    captionSearch.mnuEditFindNext_Click();
    EXPECT_EQ(dialogs.prompts.size(), 3u);
}

TEST_F(SearchTest, PositionsHaveSixteenBits) {
    // With the document and the root, 32,767 items.
    open("<r>" + QByteArray("<c/>").repeated(32'764) + "<d/></r>");
    ASSERT_EQ(tree().nodes().Count(), 32'767);
    EXPECT_TRUE(captionSearch.SearchForward(item("r"), "d"));
    EXPECT_FALSE(captionSearch.SearchForward(tree().SelectedItem(), "d"));
    editor().nodeInsertion.InsertNodeFromText(item("r"), "<e/>");
    ASSERT_EQ(tree().nodes().Count(), 32'768);
    const items::TreeItem start = item("r");
    for (const auto direction :
         {&search::CaptionSearch::SearchForward, &search::CaptionSearch::SearchBackward}) {
        try {
            (captionSearch.*direction)(start, "d");
            ADD_FAILURE();
        } catch (const runtime::Error &error) {
            EXPECT_EQ(error.number(), runtime::error_number::Overflow);
        }
    }
}

TEST_F(SearchTest, AQueryMarksSelectsCountsAndIsRemembered) {
    open(Items);
    select("items");
    const QSignalSpy focused(&tree(), &items::Tree::focusRequested);
    query("//item");
    EXPECT_EQ(bold(), (QStringList{"item", "item"}));
    EXPECT_EQ(lastText(), "2件検索されました。");
    EXPECT_EQ(cboPath().Text(), "items/item/") << "the path of the first match";
    EXPECT_TRUE(item("b").Expanded()) << "every match is to be seen";
    EXPECT_TRUE(tree().treeVisible());
    EXPECT_EQ(focused.size(), 1);
    query("//c");
    EXPECT_EQ(bold(), QStringList{"c"}) << "earlier marks go";
    query("//item");
    EXPECT_EQ(cboPath().List(), (QStringList{"//item", "//c"})) << "each query once";

    query("//nothing");
    EXPECT_EQ(lastText(), "見つかりませんでした");
    query("//item[");
    EXPECT_TRUE(lastText().contains("//item[-->")) << "the parser's own words";
    EXPECT_EQ(bold(), (QStringList{"item", "item"})) << "marks stay";
    EXPECT_EQ(cboPath().Text(), "//item[");
    EXPECT_EQ(cboPath().List().size(), 2);
    EXPECT_TRUE(dialogs.messages.empty());

    tree().setSelectedItem({});
    texts.clear();
    query("//c");
    EXPECT_TRUE(texts.isEmpty()) << "without a selected node there is no query";
}

TEST_F(SearchTest, RelativePathsStartAtTheSelectedElementOrTheOwner) {
    open("<r><a k='1'>t<x/></a><b><x/><x/></b><?pi?></r>");
    for (const char *at : {"a", "k=\"1\"", "t"}) {
        select(at);
        query("x");
        EXPECT_EQ(lastText(), "1件検索されました。") << at;
        EXPECT_EQ(cboPath().Text(), "r/a/x/") << at;
    }
    select("#document");
    query("r/b/x");
    EXPECT_EQ(lastText(), "2件検索されました。");
    EXPECT_FALSE(item("a").Child().Bold());
}

TEST_F(SearchTest, AMatchWithoutAnItemEndsTheMarking) {
    open("<r><a/><b/><c/></r>");
    // The node is there, but no item shows it.
    state().m_DOM.documentElement().insertBefore(state().m_DOM.createElement("x"),
                                                 editor().selection.GetDOMNode(item("b")));
    select("r");
    query("*");
    EXPECT_EQ(lastText(), "4件検索されました。") << "the count is that of the query";
    EXPECT_EQ(bold(), QStringList{"a"});
    query("/r/x");
    EXPECT_EQ(lastText(), "1件検索されました。");
    EXPECT_EQ(bold(), QStringList{});
    EXPECT_EQ(selected(), "a") << "nothing to select";
}

TEST_F(SearchTest, AttributesJustAddedAreMarked) {
    open("<r><a k='1'/><b/><a k='2'/></r>");
    for (const char *at : {"r", "b"}) {
        // The tree shows a copy of what the element has.
        xml::Node attribute = state().m_DOM.createAttribute("Attribute1");
        editor().builder.AddAttributeToTree(item(at), attribute, false);
    }
    select("#document");
    query("//@Attribute1");
    EXPECT_EQ(lastText(), "2件検索されました。");
    EXPECT_EQ(bold(), (QStringList{"Attribute1=\"\"", "Attribute1=\"\""}));
    EXPECT_EQ(tree().SelectedItem().Parent().Text(), "r");
    query("//b/@*");
    EXPECT_EQ(bold().size(), 1);
    EXPECT_EQ(tree().SelectedItem().Parent().Text(), "b");
}

TEST_F(SearchTest, MatchesBelowOneAnotherAreAllShown) {
    open(QByteArray("<d>").repeated(20'000) + QByteArray("</d>").repeated(20'000));
    select("d");
    query("//d");
    EXPECT_EQ(lastText(), "20000件検索されました。");
    EXPECT_EQ(expanded().size(), 20'000) << "all but the innermost, and the document";
}

} // namespace

} // namespace quillon::test
