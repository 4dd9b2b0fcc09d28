#include "platform/xml/dom/part_walk.h"
#include "platform/xml/query/xpath.h"
#include "search/find_and_replace.h"
#include "tests/support/headless_editor.h"

#include <QSignalSpy>

namespace quillon::test {

namespace {

using search::PatternKind;
using search::SearchRequest;
using search::SearchScope;
namespace part_kind = xml::part_kind;

constexpr unsigned Names = part_kind::ElementName | part_kind::AttributeName;
constexpr unsigned Values = part_kind::AttributeValue | part_kind::Text | part_kind::CData |
                            part_kind::Comment | part_kind::InstructionValue;
constexpr unsigned All = Names | Values | part_kind::InstructionName;

class FindAndReplaceTest : public HeadlessEditor {
protected:
    search::FindAndReplace &commands() { return editor().findAndReplace; }
    search::HitList &hits() { return editor().hits; }

    SearchRequest request(const QString &what, const QString &with = {}, unsigned parts = All) {
        return {what, with, {}, parts, scope};
    }
    SearchRequest regular(const QString &what, const QString &with = {}, unsigned parts = All) {
        SearchRequest made = request(what, with, parts);
        made.pattern.kind = PatternKind::RegularExpression;
        return made;
    }
    QString selected() { return tree().SelectedItem().Text(); }
    /// What is selected after each of some searches.
    QStringList walk(const SearchRequest &request, int steps) {
        QStringList captions;
        for (int i = 0; i < steps; ++i)
            captions.append(commands().findNext(request) ? selected() : "-");
        return captions;
    }
    /// The rows of the plan: what is to be there, and why not.
    QStringList plan(const SearchRequest &request) {
        commands().planAll(request);
        QStringList rows;
        for (int row = 0; row < hits().rowCount() && hits().hasChanges(); ++row) {
            const search::Change &change = hits().change(row);
            const search::Hit &hit = hits().hit(row);
            const xml::Node node = hits().node(row);
            QString text = hit.part == search::Part::Name ? node.nodeName() : node.nodeValue();
            text.replace(qsizetype(hit.at), qsizetype(hit.length), change.after);
            rows.append(change.obstacle.isEmpty() ? text : "! " + change.obstacle);
        }
        return rows;
    }
    void replaceAll(const SearchRequest &request) {
        commands().planAll(request);
        commands().execute();
    }
    /// Undoes until nothing is left; tells how many steps that took.
    int undoAll() {
        int steps = 0;
        for (; editor().history.CanUndo(); ++steps)
            editor().history.UndoCommand();
        return steps;
    }

    SearchScope scope = SearchScope::Document;
};

constexpr auto Orders = "<orders><!--item 1--><item no='item'>an item item</item>"
                        "<b><item/></b><?p item?><![CDATA[item]]></orders>";

TEST_F(FindAndReplaceTest, GoesFromHitToHitAndAround) {
    open(Orders);
    EXPECT_EQ(walk(request("item"), 10),
              QStringList({"item 1", "item", "no=\"item\"", "an item item", "an item item", "item",
                           "p", "item", "item 1", "item"}));
    EXPECT_EQ(txtEdit().selected, "item") << "it is to be seen in the pane, too";
    // From wherever the selection is.
    select("b");
    EXPECT_EQ(walk(request("item", {}, part_kind::ElementName), 3),
              QStringList({"item", "item", "item"}));
    EXPECT_EQ(status(), "");
    commands().findNext(request("item", {}, part_kind::ElementName));
    EXPECT_EQ(status(), "終わりまで検索したので、先頭に戻りました。");
    EXPECT_FALSE(commands().findNext(request("none")));
    EXPECT_EQ(status(), "見つかりませんでした。");
    EXPECT_FALSE(commands().findNext(regular("(")));
    EXPECT_TRUE(status().startsWith("正規表現の "));
    EXPECT_EQ(commands().whats(), QStringList({"none", "item"}));
}

TEST_F(FindAndReplaceTest, ASearchBelowTheSelectionStaysThere) {
    open("<r><a>x<b>x</b>x</a><c>x</c></r>");
    scope = SearchScope::Selection;
    select("a");
    QStringList paths;
    for (int i = 0; i < 4; ++i) {
        commands().findNext(request("x"));
        paths.append(tree().SelectedItem().Parent().Text());
    }
    EXPECT_EQ(paths, QStringList({"a", "b", "a", "a"}));
    // Another selection is another place to search in.
    select("c");
    commands().findAll(request("x"));
    EXPECT_EQ(hits().rowCount(), 1);
}

TEST_F(FindAndReplaceTest, SearchesAmongTheHitsOfAQuery) {
    open("<r><a x='1'>1<a>1</a></a><b>1</b><a>1</a></r>");
    scope = SearchScope::QueryHits;
    commands().findAll(request("1"));
    EXPECT_TRUE(status().startsWith("検索の対象になる XPath の検索結果がありません。"));
    const auto query = [&](const QString &path) {
        search::Hits found{search::HitSource::Query, path, {}};
        for (const xml::Node &node : xml::selectNodes(state().m_DOM.node(), path))
            found.hits.push_back({node.number()});
        hits().show(std::move(found));
    };
    query("//a");
    commands().findAll(request("1"));
    EXPECT_EQ(hits().rowCount(), 4);
    // These are other hits, but no other query.
    commands().findAll(request("1", {}, part_kind::Text));
    EXPECT_EQ(hits().rowCount(), 3);
    query("//@x");
    replaceAll(request("1", "2"));
    EXPECT_EQ(xml(), "<r><a x='2'>1<a>1</a></a><b>1</b><a>1</a></r>");
}

TEST_F(FindAndReplaceTest, ReplacesOneByOne) {
    open("<x a='xx'>x</x>");
    SearchRequest wanted = request("x", "y");
    commands().replaceNext(wanted);
    EXPECT_EQ(xml(), "<x a='xx'>x</x>") << "the first step only finds";
    QStringList states;
    for (int i = 0; i < 4; ++i) {
        commands().replaceNext(wanted);
        states.append(xml());
    }
    EXPECT_EQ(states, QStringList({"<y a='xx'>x</y>", "<y a='yx'>x</y>", "<y a='yy'>x</y>",
                                   "<y a='yy'>y</y>"}));
    EXPECT_EQ(txtEdit().Text(), "y");
    EXPECT_EQ(status(), "見つかりませんでした。");
    EXPECT_EQ(undoAll(), 4);
    // What has been put there is not looked at again, and what moves up is.
    wanted = request("x", "xx", part_kind::AttributeValue);
    for (int i = 0; i < 3; ++i)
        commands().replaceNext(wanted);
    EXPECT_EQ(xml(), "<x a='xxxx'>x</x>");
    undoAll();
    wanted.with.clear();
    for (int i = 0; i < 3; ++i)
        commands().replaceNext(wanted);
    EXPECT_EQ(xml(), "<x a=''>x</x>");
    // What cannot be is told, and the document does not change.
    undoAll();
    wanted = request("x", "1", part_kind::ElementName);
    commands().replaceNext(wanted);
    commands().replaceNext(wanted);
    EXPECT_EQ(status(), "「1」は名前として使用できません。");
    EXPECT_EQ(xml(), "<x a='xx'>x</x>");
    EXPECT_EQ(undoAll(), 0);
}

TEST_F(FindAndReplaceTest, ReplacingAllIsOneStepAndTouchesNothingElse) {
    QByteArray bytes = "<?xml version='1.0' encoding='Shift_JIS'?>\r\n<r\tk = '&#65;x' >\r\n\r\n"
                       "  <x  a=\"x\"\r\n b='1'>x\r\n&gt;x</x ><!-- x \x83\x5C-->\n</r >\r\n";
    open(bytes);
    items::TreeItem element = item("x");
    element.setExpanded(true);
    item("r").setExpanded(true);
    editor().selection.ShowNode(element, true);
    const QStringList before = expanded();
    const int count = tree().nodes().Count();
    QSignalSpy previews(&editor().builder, &tree::TreeBuilder::syncPreviewRequested);
    commands().planAll(request("x", "\u7F6E"));
    EXPECT_EQ(status(), "6 か所を置換します。1 か所は置換できません。"
                        "内容を確認して「実行」を押してください。")
        << "the name of the XML declaration is left out";
    EXPECT_EQ(read("doc.xml"), bytes);
    commands().execute();
    EXPECT_EQ(status(), "6 か所を置換しました。");
    EXPECT_EQ(selected(), "\u7F6E");
    EXPECT_EQ(expanded().join(' '),
              before.join(' ').replace("x", "\u7F6E").replace("\u7F6Eml", "xml"));
    EXPECT_EQ(captions(element), QStringList({"a=\"\u7F6E\"", "b=\"1\"", "\u7F6E\n>\u7F6E"}));
    EXPECT_EQ(tree().nodes().Count(), count);
    EXPECT_EQ(previews.count(), 1);
    EXPECT_TRUE(txtEdit().Text().startsWith("<\u7F6E  a=\"\u7F6E\""));
    EXPECT_TRUE(state().m_Modified);
    // The list shows what has been done, and another step would find nothing to do.
    EXPECT_FALSE(commands().hasPlan());
    EXPECT_EQ(hits().rowCount(), 6);
    state().m_DOM.save(path("out.xml"));
    QByteArray expected = bytes;
    expected.replace("x", "\x92\x75").replace("<?\x92\x75ml", "<?xml");
    EXPECT_EQ(read("out.xml"), expected);
    EXPECT_EQ(undoAll(), 1);
    EXPECT_EQ(state().m_DOM.serialize(), bytes);
    hits().sweepAll();
    EXPECT_EQ(hits().rowCount(), 0);
    editor().history.RedoCommand();
    hits().sweepAll();
    EXPECT_EQ(hits().rowCount(), 6);
    EXPECT_EQ(state().m_DOM.serialize(), expected);
}

TEST_F(FindAndReplaceTest, OnlyTickedChangesAreMade) {
    open("<r><a>banana</a></r>");
    EXPECT_EQ(plan(request("a", "oo")), QStringList({"oo", "boonana", "banoona", "bananoo"}));
    hits().setTicked(0, false);
    hits().setTicked(2, false);
    commands().execute();
    EXPECT_EQ(xml(), "<r><a>boonanoo</a></r>");
    QStringList places;
    for (int row = 0; row < hits().rowCount(); ++row)
        places.append(QString::number(hits().hit(row).at));
    EXPECT_EQ(places, QStringList({"1", "6"}));
    commands().planAll(request("o", "0"));
    hits().setAllTicked(false);
    commands().execute();
    EXPECT_EQ(status(), "置換する項目が選択されていません。");
    commands().discard();
    EXPECT_TRUE(hits().isEmpty());
    commands().execute();
    EXPECT_EQ(xml(), "<r><a>boonanoo</a></r>");
    // Groups; and the case where all of a name is put together anew.
    EXPECT_EQ(plan(regular("^(.)(.*)$", "$2$1", part_kind::Text)), QStringList("oonanoob"));
}

struct Obstacle {
    const char *document;
    QString what;
    QString with;
    QStringList plan;
};

class ObstacleTest : public FindAndReplaceTest, public testing::WithParamInterface<Obstacle> {};

TEST_P(ObstacleTest, IsTold) {
    const auto &[document, what, with, expected] = GetParam();
    open(document);
    const QByteArray before = xml();
    EXPECT_EQ(plan(request(what, with)).join('|').toStdString(), expected.join('|').toStdString());
    EXPECT_EQ(status().startsWith("0 "), false);
    // What is left out does not keep the rest from being done, and that can be read again.
    commands().execute();
    xml::DOMDocument40 again = xml::DOMDocument40::create();
    EXPECT_TRUE(again.loadXML(xml())) << xml().toStdString();
    EXPECT_EQ(again.xml(), xml());
    EXPECT_EQ(xml() != before,
              std::ranges::any_of(expected, [](const QString &row) { return row[0] != '!'; }));
}

INSTANTIATE_TEST_SUITE_P(
    Names, ObstacleTest,
    testing::Values(
        Obstacle{"<r><xa/><xb/></r>", "x", "", {"a", "b"}},
        Obstacle{"<r><xa/><x1/></r>", "x", "", {"a", "! 「1」は名前として使用できません。"}},
        Obstacle{"<r><xa/></r>", "x", ":", {"! 「:a」は名前として使用できません。"}},
        Obstacle{"<r a1='' a2='' b=''/>", "a", "b", {"b1", "b2"}},
        Obstacle{"<r xa='' a=''/>", "x", "", {"! 同じ要素に属性「a」が 2 つできてしまいます。"}},
        Obstacle{"<r aa='' ax='' xa=''/>",
                 "x",
                 "a",
                 {"! 同じ要素に属性「aa」が 2 つできてしまいます。",
                  "! 同じ要素に属性「aa」が 2 つできてしまいます。"}},
        Obstacle{"<!DOCTYPE r [<!ATTLIST r x CDATA 'd'>]><r/>",
                 "x",
                 "y",
                 {"! 文書型宣言の既定値による属性なので、名前は変更できません。"}},
        Obstacle{"<r><?x ?></r>", "x", "y", {"! 処理命令の名前は変更できません。"}},
        Obstacle{"<?xml version='1.0'?><r/>", "1", "2", {"! XML 宣言は変更できません。"}}));

INSTANTIATE_TEST_SUITE_P(
    Prefixes, ObstacleTest,
    testing::Values(
        Obstacle{
            "<r><xa/></r>", "x", "p:", {"! 名前空間の接頭辞「p」は、ここでは宣言されていません。"}},
        Obstacle{"<r xmlns:p='u'><xa/><xa xb=''/></r>",
                 "x",
                 "p:",
                 {"! 「p:mlns:p」は名前として使用できません。", "p:a", "p:a", "p:b"}},
        // A prefix that changes everywhere, and one that would be left behind.
        Obstacle{
            "<q:r xmlns:q='u'><q:a q:b=''/></q:r>", "q", "p", {"p:r", "xmlns:p", "p:a", "p:b"}},
        Obstacle{"<r xmlns:q='u'><q:a/></r>",
                 "ns:q",
                 "ns:p",
                 {"! 接頭辞「q」を使用する名前が残るため、その宣言の名前は変更できません。"}},
        Obstacle{"<q:r xmlns:q='u' xmlns:p=''/>",
                 "q",
                 "p",
                 {"p:r", "! 同じ要素に属性「xmlns:p」が 2 つできてしまいます。"}},
        // Undeclared before, undeclared afterwards.
        Obstacle{"<r><q:xa/></r>", "x", "y", {"q:ya"}},
        Obstacle{"<r xmlns:p='u'/>",
                 "u",
                 "",
                 {"! 接頭辞のある名前空間宣言の値を空にすることはできません。"}}));

INSTANTIATE_TEST_SUITE_P(
    Values, ObstacleTest,
    testing::Values(
        Obstacle{
            "<r><!--a+b--><!--+-->+</r>",
            "+",
            "-",
            {"a-b", "! コメントに「--」を含めることや、「-」で終わらせることはできません。", "-"}},
        Obstacle{
            "<r><?p a+b?>+</r>", "+", "?>", {"! 処理命令に「?>」を含めることはできません。", "?>"}},
        Obstacle{"<r><![CDATA[]]+]]>+</r>",
                 "+",
                 ">",
                 {"! CDATA セクションに「]]>」を含めることはできません。", ">"}},
        Obstacle{"<r a='+'>+</r>",
                 "+",
                 "\u0001",
                 {"! XML で使用できない文字 (U+0001) が含まれています。",
                  "! XML で使用できない文字 (U+0001) が含まれています。"}},
        Obstacle{"<!DOCTYPE r SYSTEM 'x'><r a='n&none;n'/>",
                 "n",
                 "m",
                 {"! 実体参照の一部だけを置換することはできません。",
                  "! 実体参照の一部だけを置換することはできません。",
                  "! 実体参照の一部だけを置換することはできません。",
                  "! 実体参照の一部だけを置換することはできません。"}}));

TEST_F(FindAndReplaceTest, WhatTheEncodingLacksIsLeftOutWhereNoReferenceCanStand) {
    open("<?xml version='1.0' encoding='Shift_JIS'?>"
         "<q a='q'>q<!--q--><![CDATA[q]]><?p q?></q>");
    const QStringList rows = plan(request("q", "\u00E9"));
    ASSERT_EQ(rows.size(), 6);
    EXPECT_EQ(rows.mid(1, 2), QStringList({"\u00E9", "\u00E9"}));
    for (const int row : {0, 3, 4, 5})
        EXPECT_TRUE(rows[row].startsWith("! 文字 '\u00E9' (U+00E9) は、ドキュメントのエンコード"))
            << rows[row].toStdString();
    commands().execute();
    EXPECT_TRUE(
        state().m_DOM.serialize().endsWith("<q a='&#233;'>&#233;<!--q--><![CDATA[q]]><?p q?></q>"));
}

TEST_F(FindAndReplaceTest, APlanFollowsWhatIsEditedMeanwhile) {
    open("<r><a>x</a><b>x</b><c>x</c></r>");
    commands().planAll(request("x", "y"));
    editor().selection.ShowNode(item("a").Child(), true);
    type("zzx");
    editor().selection.ShowNode(item("b").Child(), true);
    type("z");
    commands().execute();
    EXPECT_EQ(xml(), "<r><a>zzy</a><b>z</b><c>y</c></r>");
}

TEST_F(FindAndReplaceTest, NumbersOfAnotherDocumentMeanNothing) {
    open("<r><a>x</a><b>x</b></r>");
    scope = SearchScope::QueryHits;
    cboPath().setText("//b");
    editor().pathQuery.SelectByPath();
    commands().planAll(request("x", "y"));
    ASSERT_EQ(hits().rowCount(), 1);
    // Typed anew as a whole, the document has the same numbers for other nodes.
    editor().selection.ShowNode(tree().nodes().Item(1), true);
    type("<q><x/>t<b>xx</b></q>");
    commands().execute();
    EXPECT_EQ(xml(), "<q><x/>t<b>xx</b></q>");
    commands().findAll(request("x"));
    EXPECT_TRUE(status().startsWith("検索の対象になる XPath の検索結果がありません。"));
}

TEST_F(FindAndReplaceTest, WhatMayNotChangeDoesNot) {
    open("<a a='a'>a</a>");
    editor().options.viewLock = true;
    EXPECT_EQ(plan(request("a", "b")),
              QStringList({"! 要素・属性名はロックされています。",
                           "! 要素・属性名はロックされています。", "b", "b"}));
    state().m_ReadOnly = true;
    commands().execute();
    EXPECT_EQ(status(), "ドキュメントは読み取り専用なので、置換できません。");
    commands().replaceNext(request("a", "b"));
    EXPECT_EQ(status(), "ドキュメントは読み取り専用なので、置換できません。");
    hits().clear();
    commands().planAll(request("a", "b"));
    EXPECT_FALSE(commands().hasPlan());
    EXPECT_EQ(xml(), "<a a='a'>a</a>");
}

TEST_F(FindAndReplaceTest, TextThatDoesNotParseIsAskedAbout) {
    open("<a>a</a>");
    select("a");
    type("<a>");
    dialogs.answerMessage(ui::message_answer::No);
    commands().planAll(request("a", "b"));
    EXPECT_FALSE(commands().hasPlan());
    dialogs.answerMessage(ui::message_answer::Yes);
    commands().planAll(request("a", "b"));
    type("<a>");
    dialogs.answerMessage(ui::message_answer::No);
    commands().execute();
    EXPECT_EQ(xml(), "<a>a</a>");
    EXPECT_TRUE(commands().hasPlan());
}

TEST_F(FindAndReplaceTest, ItemsThatShowCopiesOfAttributesFollow) {
    open("<r k='x'><e x='x'/></r>");
    // One that was added, and those of an element that was renamed.
    xml::Node added = state().m_DOM.createAttribute("x");
    added.setNodeValue("x");
    editor().builder.AddAttributeToTree(item("r"), added, false);
    QString name = "f";
    editor().labels.tvw_AfterLabelEdit(item("e"), name);
    select("x=\"x\"");
    replaceAll(request("x", "y"));
    EXPECT_EQ(xml(), "<r k='y' y=\"y\"><f y='y'/></r>");
    EXPECT_EQ(captions(tree().nodes().Item(2)), QStringList({"k=\"y\"", "y=\"y\"", "f"}));
    EXPECT_EQ(captions(item("f")), QStringList("y=\"y\""));
    EXPECT_EQ(txtEdit().Text(), "y");
    type("z");
    EXPECT_EQ(xml(), "<r k='y' y=\"y\"><f y='z'/></r>");
    // The item of an attribute that is pasted once more keeps its caption, as long as it does.
    xml::Node pasted = state().m_DOM.createAttribute("k");
    pasted.setNodeValue("z");
    editor().builder.AddAttributeToTree(item("r"), pasted, false);
    EXPECT_EQ(captions(item("r")), QStringList({"k=\"y\"", "y=\"y\"", "k=\"z\"", "f"}));
    select("y=\"z\"");
    replaceAll(request("z", "w"));
    EXPECT_EQ(captions(item("r")), QStringList({"k=\"w\"", "y=\"y\"", "k=\"w\"", "f"}));
    EXPECT_EQ(selected(), "y=\"w\"");
    EXPECT_EQ(walk(request("w"), 1), QStringList("y=\"w\""));
}

} // namespace

} // namespace quillon::test
