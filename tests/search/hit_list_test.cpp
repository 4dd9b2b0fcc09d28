#include "platform/runtime/error.h"
#include "search/hit_list.h"
#include "tests/support/headless_editor.h"

namespace quillon::test {

namespace {

using search::Change;
using search::Hit;
using search::HitOrder;
using search::HitRow;
using search::Part;

/// An editor whose list is filled by searching all texts and values.
class HitListTest : public HeadlessEditor {
protected:
    search::HitList &hits() { return editor().hits; }

    static std::vector<Hit> find(const QString &what, const xml::Node &node, Part part) {
        std::vector<Hit> found;
        const QString text = part == Part::Value ? node.nodeValue() : node.nodeName();
        for (qsizetype at = text.indexOf(what); at >= 0; at = text.indexOf(what, at + 1))
            found.push_back({node.number(), part, quint32(at), quint32(what.size())});
        return found;
    }
    /// Searches what the items show.
    void search(const QString &what, const QString &after = {}) {
        search::Hits list;
        list.title = what;
        for (int i = 2; i <= tree().nodes().Count(); ++i) {
            const xml::Node node = editor().selection.GetDOMNode(tree().nodes().Item(i));
            const auto found =
                find(what, node, node.nodeValue().isNull() ? Part::Name : Part::Value);
            list.hits.insert(list.hits.end(), found.begin(), found.end());
        }
        if (!after.isNull())
            list.changes.assign(list.hits.size(), Change{after});
        list.findAgain = [what](const xml::Node &node, Part part) {
            return find(what, node, part);
        };
        hits().show(std::move(list));
    }
    QStringList rows() {
        hits().sweepAll();
        QStringList texts;
        for (int i = 0; i < hits().rowCount(); ++i) {
            HitRow row = hits().row(i);
            row.text.insert(row.mark.at + row.mark.length, "]").insert(row.mark.at, "[");
            texts.append(row.path + " " + row.text);
        }
        return texts;
    }
    void remove(const QString &caption) {
        select(caption);
        dialogs.answerMessage(ui::message_answer::Yes);
        editor().nodeCommands.mnuEditDelete_Click();
    }
};

TEST_F(HitListTest, RowsReadByKind) {
    open("<!DOCTYPE r [<!ENTITY e 'x'>]><r><a k='find me' l='2'>one\n   two <![CDATA[raw]]></a>"
         "<!--note--><a><b>deep</b></a><?go on?></r>");
    const xml::Node root = state().m_DOM.documentElement();
    const xml::Node a = root.firstChild();
    const struct {
        xml::Node node;
        Part part;
        quint32 at, length;
        const char *kind, *path, *text;
        search::Span mark;
    } cases[] = {
        {a.getAttributeNode("k"), Part::Value, 5, 2, "属性", "/r/a[1]/@k", "k=\"find me\"", {8, 2}},
        {a.getAttributeNode("k"), Part::Name, 0, 1, "属性", "/r/a[1]/@k", "k=\"find me\"", {0, 1}},
        {a, Part::Name, 0, 1, "要素", "/r/a[1]", "a k=\"find me\" l=\"2\"", {0, 1}},
        {a, Part::Node, 0, 0, "要素", "/r/a[1]", "<a k=\"find me\" l=\"2\"> one two raw", {0, 0}},
        {a.firstChild(), Part::Value, 3, 5, "テキスト", "/r/a[1]/text()[1]", "one↵   two ", {3, 5}},
        {a.lastChild(), Part::Value, 1, 1, "CDATA", "/r/a[1]/text()[2]", "raw", {1, 1}},
        {root.childNodes().item(1), Part::Value, 0, 9, "コメント", "/r/comment()", "note", {0, 4}},
        {root.childNodes().item(2), Part::Node, 0, 0, "要素", "/r/a[2]", "<a> deep", {0, 0}},
        {root.lastChild(),
         Part::Value,
         0,
         2,
         "処理命令",
         "/r/processing-instruction('go')",
         "on",
         {0, 2}},
        {state().m_DOM.node(), Part::Node, 0, 0, "ドキュメント", "/", "#document", {0, 0}},
    };
    const search::HitRowReader reader;
    for (const auto &c : cases) {
        const HitRow row = reader.read(c.node, {c.node.number(), c.part, c.at, c.length}, nullptr);
        EXPECT_EQ(row.kind, c.kind);
        EXPECT_EQ(row.path, c.path);
        EXPECT_EQ(row.text, c.text);
        EXPECT_EQ(row.mark, c.mark) << row.text.toStdString();
    }
    const Change change{"YOU", "だめです。"};
    const HitRow row = reader.read(a.getAttributeNode("k"), {0, Part::Value, 5, 2}, &change);
    EXPECT_EQ(row.after, "k=\"find YOU\"");
    EXPECT_EQ(row.afterMark, (search::Span{8, 3}));
    EXPECT_EQ(row.obstacle, "だめです。");
}

TEST_F(HitListTest, LongTextsAndPathsAreCut) {
    open("<r>" + QByteArray("<d>").repeated(100) + QByteArray("x").repeated(5'000) + "hit " +
         QByteArray("\xf0\xa0\xae\xb7").repeated(5'000) + QByteArray("</d>").repeated(100) +
         "</r>");
    search("hit");
    const HitRow row = hits().row(0);
    EXPECT_TRUE(row.path.startsWith("…/d/d/")) << row.path.toStdString();
    EXPECT_LT(row.path.size(), 100);
    EXPECT_EQ(row.text.sliced(row.mark.at, row.mark.length), "hit");
    EXPECT_TRUE(row.text.startsWith("…xxx") && row.text.endsWith("𠮷…")) << row.text.toStdString();
    EXPECT_LT(row.text.size(), 300);
}

TEST_F(HitListTest, WhatIsRemovedGoesAndComesBack) {
    open("<r><a>x</a><b><c>x</c></b><d>x</d></r>");
    search("x");
    const QStringList all{"/r/a/text() [x]", "/r/b/c/text() [x]", "/r/d/text() [x]"};
    EXPECT_EQ(rows(), all);
    remove("b");
    EXPECT_EQ(rows(), (QStringList{all[0], all[2]}));
    editor().history.UndoCommand();
    EXPECT_EQ(rows(), all);
    editor().history.RedoCommand();
    EXPECT_EQ(rows().size(), 2);
    editor().history.UndoCommand();

    // The whole source is other nodes, whatever numbers they have.
    select("#document");
    type("<r><y>x</y><a>x</a><b>x</b></r>");
    EXPECT_EQ(rows(), QStringList());
    EXPECT_FALSE(hits().node(0));
    editor().history.UndoCommand();
    EXPECT_EQ(rows(), all);
    open("<r>x</r>", "other.xml");
    EXPECT_TRUE(hits().isEmpty());
}

TEST_F(HitListTest, WhatIsChangedIsSearchedAgain) {
    open("<r><a>x-x</a><b k='x'/></r>");
    search("x");
    EXPECT_EQ(rows(), (QStringList{"/r/a/text() [x]-x", "/r/a/text() x-[x]", "/r/b/@k k=\"[x]\""}));
    select("x-x");
    type("yyx");
    EXPECT_TRUE(hits().isStale());
    EXPECT_EQ(rows(), (QStringList{"/r/a/text() yy[x]", "/r/b/@k k=\"[x]\""}));
    type("none");
    EXPECT_EQ(rows(), QStringList{"/r/b/@k k=\"[x]\""});
    editor().history.UndoCommand();
    editor().history.UndoCommand();
    EXPECT_EQ(rows().size(), 3) << "both are there again";
    select("k=\"x\"");
    type("");
    EXPECT_EQ(rows().size(), 2);
}

TEST_F(HitListTest, ANodeThatNothingLeadsToAnyMoreIsNotTakenForAnother) {
    open("<r><a/></r>");
    select("a");
    editor().creation.mnuNodeAddText_Click();
    tree().endLabelEdit();
    search::Hits made;
    const xml::Node text = state().m_DOM.documentElement().firstChild().firstChild();
    made.hits = {{text.number(), Part::Node}};
    hits().show(made);
    editor().history.UndoCommand();
    EXPECT_EQ(rows(), QStringList());
    editor().history.RedoCommand();
    EXPECT_EQ(rows().size(), 1);
    editor().history.UndoCommand();
    select("r");
    editor().creation.mnuNodeAddComment_Click();
    ASSERT_TRUE(state().m_DOM.nodeByNumber(text.number())) << "the number is used again";
    EXPECT_EQ(rows(), QStringList());
}

TEST_F(HitListTest, RowsAreSortedAndStayInDocumentOrderWhereEqual) {
    open("<r><b k='x3'/><a>x2</a><b k='x1'/><!--x4--><a>x0</a></r>");
    search("x", "y");
    const auto texts = [&] {
        QStringList all;
        for (int i = 0; i < hits().rowCount(); ++i)
            all.append(hits().row(i).text.remove("k=").remove('"'));
        return all.join(' ');
    };
    const struct {
        HitOrder by;
        Qt::SortOrder direction;
        const char *texts;
    } cases[] = {
        {HitOrder::Kind, Qt::AscendingOrder, "x3 x1 x2 x0 x4"},
        {HitOrder::Kind, Qt::DescendingOrder, "x4 x2 x0 x3 x1"},
        {HitOrder::Path, Qt::AscendingOrder, "x2 x0 x3 x1 x4"},
        {HitOrder::Text, Qt::AscendingOrder, "x1 x3 x0 x2 x4"},
        {HitOrder::After, Qt::DescendingOrder, "x4 x2 x0 x3 x1"},
        {HitOrder::Document, Qt::DescendingOrder, "x0 x4 x1 x2 x3"},
        {HitOrder::Document, Qt::AscendingOrder, "x3 x2 x1 x4 x0"},
    };
    for (const auto &c : cases) {
        hits().sort(c.by, c.direction);
        EXPECT_EQ(texts(), c.texts) << int(c.by);
    }
    hits().sort(HitOrder::Text, Qt::AscendingOrder);
    remove("x0");
    hits().sweepAll();
    EXPECT_EQ(texts(), "x1 x3 x2 x4");
    editor().history.UndoCommand();
    hits().sweepAll();
    EXPECT_EQ(texts(), "x1 x3 x0 x2 x4") << "it comes back to its place";
}

TEST_F(HitListTest, TicksAreForChangesThatCanBeMade) {
    open("<r><a>x</a><b>x</b><c>x</c><d>x</d></r>");
    search::Hits list;
    for (xml::Node at = state().m_DOM.documentElement().firstChild(); at; at = at.nextSibling())
        list.hits.push_back({at.firstChild().number(), Part::Value, 0, 1});
    list.changes = {{"1"}, {"2", "できません。"}, {"3"}, {"4"}};
    list.planAgain = [](const xml::Node &node, const Hit &) { return Change{node.text()}; };
    list.findAgain = [](const xml::Node &node, Part part) { return find("x", node, part); };
    hits().show(list);
    const auto ticked = [&] {
        QStringList after;
        hits().forEachTicked(
            [&](const Hit &, const Change &change) { after.append(change.after); });
        return after.join(' ');
    };
    EXPECT_EQ(ticked(), "1 3 4");
    hits().sort(HitOrder::After, Qt::DescendingOrder);
    hits().setTicked(0, false);
    EXPECT_EQ(ticked(), "1 3");
    EXPECT_FALSE(hits().isTicked(2)) << "it cannot be made";
    hits().setAllTicked(true);
    remove("c");
    hits().sweepAll();
    EXPECT_EQ(ticked(), "1 4");
    select("a");
    select("x");
    type("new x");
    hits().sweepAll();
    EXPECT_EQ(ticked(), "new x 4") << "planned anew";
    hits().setAllTicked(false);
    EXPECT_EQ(ticked(), "");
}

TEST_F(HitListTest, TheCurrentRowGivesItsPlaceToTheNext) {
    open("<r><a>x</a><b>x</b><c>x</c></r>");
    search("x");
    EXPECT_EQ(hits().rowAfter(), 0);
    EXPECT_EQ(hits().rowBefore(), 2);
    hits().setCurrentRow(1);
    EXPECT_EQ(hits().rowAfter(), 2);
    EXPECT_EQ(hits().rowBefore(), 0);
    remove("b");
    hits().sweepAll();
    EXPECT_EQ(hits().rowAfter(), 1) << "what was behind it";
    EXPECT_EQ(hits().rowBefore(), 0);
    hits().setCurrentRow(1);
    remove("a");
    hits().sweepAll();
    EXPECT_EQ(hits().currentRow(), 0);
    EXPECT_EQ(hits().rowAfter(), -1);
}

TEST_F(HitListTest, SortingStopsWhenAsked) {
    QByteArray text = "<r>";
    for (int i = 0; i < 20'000; ++i)
        text += "<a>x" + QByteArray::number(i) + "</a>";
    open(text + "</r>");
    search("x");
    for (const HitOrder by : {HitOrder::Kind, HitOrder::Path, HitOrder::Text}) {
        EXPECT_THROW(hits().sort(by, Qt::DescendingOrder, [](double) { return false; }),
                     runtime::Error);
        EXPECT_EQ(hits().order(), HitOrder::Document);
        EXPECT_EQ(hits().row(0).text, "x0");
    }
}

/// Each node above is to be looked at once, or this takes hours.
TEST_F(HitListTest, DeepNestingCostsNoMore) {
    open(QByteArray("<d>").repeated(20'000) + QByteArray("</d>").repeated(20'000));
    search("d");
    EXPECT_EQ(hits().rowCount(), 20'000);
    hits().documentChanged();
    hits().sweepAll();
    hits().sort(HitOrder::Path, Qt::DescendingOrder);
    EXPECT_TRUE(hits().row(19'999).path == "/d") << hits().row(19'999).path.toStdString();
}

} // namespace

} // namespace quillon::test
