#include "platform/runtime/error.h"
#include "search/caption_search.h"
#include "search/path_completion.h"
#include "search/path_copy.h"
#include "search/path_query.h"
#include "search/query_history.h"
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
    ASSERT_EQ(dialogs.prompts.size(), 1u);
    EXPECT_TRUE(dialogs.prompts[0].startsWith("検索する文字列を入力してください。\n* は任意"));
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

TEST_F(SearchTest, TheDefaultNamespaceIsNamed) {
    open("<注文 xmlns='urn:d'><品/><品/></注文>");
    select("#document");
    query("//品");
    EXPECT_EQ(lastText(), "既定の名前空間で 2 件");
    EXPECT_EQ(bold().size(), 2);
    EXPECT_EQ(cboPath().List(), QStringList{"//品"});
    query("count(//品)");
    EXPECT_EQ(lastText(), "結果: 2 (既定の名前空間)");
}

TEST_F(SearchTest, AResultThatIsNoNodesIsShown) {
    open("<r><a n='100'>あ\n\t𠮟</a><a n='250'/></r>");
    select("n=\"100\"");
    const struct {
        QString query;
        QString text;
    } cases[] = {
        {"sum(//@n)", "結果: 350"},
        {"//a = ''", "結果: true"},
        {"string(//a)", "結果: あ  𠮟"},
        {"string(//a[2])", "結果: (空の文字列)"},
        {"'%1'", "結果: %1"},
        {"str:padding(3000, 'x')", "結果: " + QString(1000, 'x') + "…"},
        {"count($selection) + $selection", "結果: 101"},
    };
    QStringList queries;
    for (const auto &c : cases) {
        query(c.query);
        EXPECT_EQ(lastText(), c.text);
        EXPECT_EQ(cboPath().Text(), c.query) << "stays to be gone on with";
        queries.append(c.query);
    }
    EXPECT_EQ(cboPath().List(), queries);
    EXPECT_EQ(selected(), "n=\"100\"");
    EXPECT_EQ(bold(), QStringList());
}

TEST_F(SearchTest, TheLastQueriesAreKept) {
    open(Items);
    const auto kept = [this] {
        const auto later = makeWindow();
        return later->cboPath.List();
    };
    const auto ask = [&](app::Editor &by, ui::PathBox &box, const QString &path) {
        box.setText(path);
        by.pathQuery.SelectByPath();
    };
    select("items");
    const auto other = makeWindow();
    other->editor.loader.LoadXML("<r/>");
    other->editor.selection.ShowNode(other->editor.tree.nodes().Item(1), true);
    ask(editor(), cboPath(), "//item");
    ask(other->editor, other->cboPath, "//r");
    ask(editor(), cboPath(), "//none");
    ask(editor(), cboPath(), "//b[");
    ask(editor(), cboPath(), "//b");
    EXPECT_EQ(kept(), (QStringList{"//item", "//r", "//b"})) << "of both windows, if answered";
    ask(editor(), cboPath(), "//item");
    EXPECT_EQ(kept(), (QStringList{"//r", "//b", "//item"}));
    EXPECT_EQ(cboPath().List(), (QStringList{"//item", "//b"})) << "the box keeps its order";
    for (int i = 0; i < 30; ++i)
        ask(editor(), cboPath(), QString("/items[%1 > 0]").arg(i + 1));
    EXPECT_EQ(kept().size(), 30);
    EXPECT_EQ(kept().first(), "/items[1 > 0]");
    EXPECT_EQ(cboPath().List().size(), 32);
}

TEST_F(SearchTest, TypingIsCompletedFromQueriesAndNames) {
    open("<orders><order no='1' 値='2'/><p:order xmlns:p='u'/></orders>");
    const search::PathCompletion completion(state(), cboPath());
    for (const char *query : {"//order", "/orders/x", "//ORDER[1]", "//o"})
        cboPath().AddItem(query);
    const struct {
        const char *typed;
        QStringList proposals;
    } cases[] = {
        {"", {}},
        {"//", {"//o", "//ORDER[1]", "//order"}},
        {"//o", {"//ORDER[1]", "//order", "//orders"}},
        {"/orders/x/ORD", {"/orders/x/order", "/orders/x/orders"}},
        {"//order/@", {}},
        {"//order/@値", {}},
        {"//order[@n", {"//order[@no"}},
        {"値 = p:o", {"値 = p:order"}},
        {"//x[. = 'or", {}},
        {"//order ", {}},
        {"$or", {}},
        {"xm", {}},
    };
    for (const auto &c : cases)
        EXPECT_EQ(completion.proposals(c.typed), c.proposals) << c.typed;
    open("<r><" + QByteArray("n").repeated(5) + "/></r>");
    EXPECT_EQ(completion.proposals("n"), QStringList{"nnnnn"}) << "not the names of others";
    editor().commands.ClearStatus();
    EXPECT_EQ(completion.proposals("n"), QStringList());
}

TEST_F(SearchTest, ThePathOfTheSelectedNodeIsCopied) {
    dialogs.answerMessage(ui::message_answer::Ok);
    open("<?xml version='1.0'?><!DOCTYPE r [<!ENTITY e 'x'>]>"
         "<r xmlns='urn:d'><a k='1'>t&e;</a><b xmlns=''/></r>");
    search::PathCopy copy(tree(), editor().selection, clipboard);
    QObject::connect(&copy, &search::PathCopy::statusText,
                     [this](const QString &text) { texts.append(text); });
    xml::Node attribute = state().m_DOM.createAttribute("added");
    editor().builder.AddAttributeToTree(item("a"), attribute, false);
    const struct {
        const char *caption;
        QString path;
    } cases[] = {
        {"a", "/r/a"},           {"k=\"1\"", "/r/a/@k"}, {"added=\"\"", "/r/a/@added"},
        {"t", "/r/a/text()[1]"}, {"#document", "/"},     {"e", "/r/a/text()[2]"},
    };
    for (const auto &c : cases) {
        if (c.caption == QString("e"))
            dialogs.answerMessage(ui::message_answer::Ok);
        select(c.caption);
        copy.mnuEditCopyXPath_Click();
        EXPECT_EQ(clipboard.text(), c.path);
        EXPECT_EQ(lastText(), "XPath をコピーしました: " + c.path);
    }
    const auto copyNode = [&](const xml::Node &node) {
        editor().selection.ShowNode(editor().builder.itemOf(node), true);
        copy.mnuEditCopyXPath_Click();
        return lastText();
    };
    const xml::Node root = state().m_DOM.documentElement();
    EXPECT_EQ(copyNode(root.previousSibling()), "文書型宣言を選択する XPath はありません。");
    EXPECT_EQ(copyNode(state().m_DOM.node().firstChild()),
              "XML 宣言を選択する XPath はありません。");
    EXPECT_EQ(copyNode(root.lastChild().getAttributeNode("xmlns")),
              "名前空間の宣言を取り消す属性を選択する XPath はありません。");
    EXPECT_EQ(clipboard.text(), "/r/a/text()[2]") << "what was copied stays";
}

} // namespace

} // namespace quillon::test
