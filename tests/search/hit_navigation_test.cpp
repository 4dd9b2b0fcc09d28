#include "tests/support/headless_editor.h"

namespace quillon::test {

namespace {

using search::Hit;
using search::Part;

/// Where hits come from and lead to, in a whole editor.
class HitNavigation : public HeadlessEditor {
protected:
    search::HitList &hits() { return editor().hits; }
    search::HitNavigation &navigation() { return editor().hitNavigation; }

    void find(const QString &pattern) {
        dialogs.answerInput(pattern);
        editor().captionSearch.mnuEditFind_Click();
    }
    void query(const QString &path) {
        cboPath().setText(path);
        editor().pathQuery.SelectByPath();
    }
    void show(std::vector<Hit> list) {
        hits().show({search::HitSource::Text, {}, std::move(list)});
    }
    /// Title and rows.
    QString listed() {
        hits().sweepAll();
        QStringList texts{hits().title() + ':'};
        for (int i = 0; i < hits().rowCount(); ++i)
            texts.append(hits().row(i).path);
        return texts.join(' ');
    }
    QString selected() { return tree().SelectedItem().Text(); }
};

TEST_F(HitNavigation, AQueryFillsTheListAlsoWithWhatHasNoItem) {
    open("<r><a/><b/><a/></r>");
    state().m_DOM.documentElement().insertBefore(state().m_DOM.createElement("x"),
                                                 editor().selection.GetDOMNode(item("b")));
    select("r");
    query("*");
    EXPECT_EQ(listed(), "*: /r/a[1] /r/x /r/b /r/a[2]");
    EXPECT_EQ(status(), "4件検索されました。");
    query("nothing");
    query("a[");
    EXPECT_EQ(listed(), "*: /r/a[1] /r/x /r/b /r/a[2]") << "what has been found before stays";
    navigation().goTo(1);
    EXPECT_EQ(selected(), "r") << "the nearest above that has an item";
    navigation().goTo(3);
    EXPECT_EQ(selected(), "a");
}

TEST_F(HitNavigation, ACaptionSearchListsWhatIsBeforeItsStartToo) {
    open("<r><item/><b>item</b><c item='x'/><!--items--></r>");
    select("b");
    find("item*");
    EXPECT_EQ(selected(), "item");
    EXPECT_EQ(tree().SelectedItem().Parent().Text(), "b");
    EXPECT_EQ(listed(), "item*: /r/item /r/b/text() /r/c/@item /r/comment()");
    editor().captionSearch.mnuEditFindNext_Click();
    EXPECT_EQ(selected(), "item=\"x\"");
    find("nothing");
    EXPECT_TRUE(listed().startsWith("item*:"));
    select("items");
    type("other");
    EXPECT_EQ(listed(), "item*: /r/item /r/b/text() /r/c/@item");

    editor().options.viewText = false;
    editor().builder.rebuildTree();
    find("item");
    EXPECT_EQ(listed(), "item: /r/item /r/c/@item");
    EXPECT_EQ(hits().hit(1).part, Part::Name);
    find("[#]text");
    EXPECT_EQ(listed(), "[#]text: /r/b/text()");
}

TEST_F(HitNavigation, TheHitIsSelectedInThePane) {
    open("<r><long k='one two'/>first\nsecond\nthird<!--c-c--><?p data?></r>");
    const xml::Node root = state().m_DOM.documentElement();
    const xml::Node element = root.firstChild();
    const auto child = [&](int i) { return root.childNodes().item(i).number(); };
    xml::Node attribute = state().m_DOM.createAttribute("added");
    editor().builder.AddAttributeToTree(item("long"), attribute, false);
    select("added=\"\"");
    type("new");
    const struct {
        Hit hit;
        const char *item, *selected;
        bool isSelected;
    } cases[] = {
        {{element.number(), Part::Name, 1, 2}, "long", "on", true},
        {{element.getAttributeNode("k").number(), Part::Value, 4, 3}, "k=\"one two\"", "two", true},
        {{child(1), Part::Value, 4, 13}, "first\nsecond\nthird", "t\r\nsecond\r\nthir", true},
        {{child(1), Part::Value, 13, 5}, "first\nsecond\nthird", "third", true},
        {{child(2), Part::Value, 2, 1}, "c-c", "c", true},
        {{child(3), Part::Name, 0, 1}, "p", "", false},
        {{child(3), Part::Value, 2, 2}, "p", "ta", true},
        {{element.getAttributeNode("k").number(), Part::Name, 0, 1}, "k=\"one two\"", "", false},
        {{element.number(), Part::Node, 0, 0}, "long", "", false},
    };
    for (const auto &c : cases) {
        show({c.hit});
        txtEdit().selected.clear();
        EXPECT_EQ(navigation().goTo(0), c.isSelected) << c.item;
        EXPECT_EQ(selected(), c.item);
        EXPECT_EQ(txtEdit().selected, c.selected) << c.item;
        EXPECT_EQ(status(), "検索結果 1 / 1");
    }
    show({{element.getAttributeNode("added").number(), Part::Value, 0, 2}});
    navigation().goTo(0);
    EXPECT_EQ(tree().SelectedItem().Parent().Text(), "long");
    EXPECT_EQ(txtEdit().selected, "ne") << "its item shows a copy";
}

TEST_F(HitNavigation, TheKeysWalkAndStopAtTheEnds) {
    navigation().mnuViewNextHit_Click();
    EXPECT_EQ(status(), "検索結果はありません。");
    open("<r><a>x</a><b>x</b><c>x</c></r>");
    select("r");
    query("*");
    const auto next = [&] {
        navigation().mnuViewNextHit_Click();
        return selected() + ' ' + status();
    };
    const auto previous = [&] {
        navigation().mnuViewPreviousHit_Click();
        return selected() + ' ' + status();
    };
    EXPECT_EQ(previous(), "a これより前の検索結果はありません。") << "the query has led there";
    EXPECT_EQ(next(), "b 検索結果 2 / 3");
    editor().nodeCommands.mnuEditCut_Click();
    EXPECT_EQ(next(), "c 検索結果 2 / 2") << "the one behind the one that is gone";
    EXPECT_EQ(next(), "c これより後の検索結果はありません。");
    editor().history.UndoCommand();
    EXPECT_EQ(previous(), "b 検索結果 2 / 3");

    type("<b>x<");
    dialogs.answerMessage(ui::message_answer::No);
    EXPECT_EQ(next(), "b 構文エラー");
    EXPECT_EQ(hits().currentRow(), 1);
    txtEdit().selected = "kept";
    navigation().goTo(1);
    EXPECT_EQ(txtEdit().selected, "kept") << "the source there is not that of the document";
}

} // namespace

} // namespace quillon::test
