#include "edit/child_sorting.h"
#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
#include "tests/support/headless_editor.h"

namespace quillon::test {

namespace {

using edit::SortOrder;
using By = SortOrder::By;

class ChildSortingTest : public HeadlessEditor {
protected:
    void sort(const SortOrder &order) {
        select("r");
        editor().sorting.sort(order);
    }
};

TEST_F(ChildSortingTest, SortsByNameAttributeOrPath) {
    const struct {
        const char *children;
        SortOrder order;
        const char *sorted;
    } cases[] = {
        {"<b/><a/><c/><a i='2'/>", {By::Name, {}, false}, "<a/><a i='2'/><b/><c/>"},
        {"<b/><a/><c/><a i='2'/>", {By::Name, {}, true}, "<c/><b/><a/><a i='2'/>"},
        {"<い/><あ/><漢/><ア/>", {By::Name, {}, false}, "<あ/><ア/><い/><漢/>"},
        // Numbers as such, ahead of texts; without a value last.
        {"<a n='10'/><a/><a n='x'/><a n='９'/><a n='-1.5'/>",
         {By::Attribute, "n", false},
         "<a n='-1.5'/><a n='９'/><a n='10'/><a n='x'/><a/>"},
        {"<a n='10'/><a/><a n='x'/><a n='９'/><a n='-1.5'/>",
         {By::Attribute, "n", true},
         "<a n='x'/><a n='10'/><a n='９'/><a n='-1.5'/><a/>"},
        {"<a><p>30</p></a><a><p>4</p></a><a><p k='1'/></a>",
         {By::Path, "p[text()]", false},
         "<a><p>4</p></a><a><p>30</p></a><a><p k='1'/></a>"},
        {"<a x='1'/><a/><a x='1' y='2'/>",
         {By::Path, "count(@*)", true},
         "<a x='1' y='2'/><a x='1'/><a/>"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.sorted);
        open(QByteArray("<r>") + c.children + "</r>");
        sort(c.order);
        EXPECT_EQ(xml(), QByteArray("<r>") + c.sorted + "</r>");
        editor().history.UndoCommand();
        EXPECT_EQ(xml(), QByteArray("<r>") + c.children + "</r>");
        EXPECT_FALSE(editor().history.CanUndo());
    }
    open("<r xmlns='u'><a><p>2</p></a><a><p>1</p></a></r>");
    sort({By::Path, "p", false});
    EXPECT_EQ(xml(), "<r xmlns='u'><a><p>1</p></a><a><p>2</p></a></r>");
}

TEST_F(ChildSortingTest, KeepsLinesAndWhatBelongsTogether) {
    open("<r k='1'>\n"
         "  <!-- about c -->\n"
         "  <c>\n    <y/>\n  </c> <!-- too -->\n"
         "\n"
         "  <?b?><b/>\n"
         "  <a/>\n"
         "  <!-- the end -->\n"
         "</r>\n");
    editor().builder.ExpandSubtree(tree().nodes().Item(1));
    sort({By::Name, {}, false});
    EXPECT_EQ(xml(), "<r k='1'>\n"
                     "  <a/>\n"
                     "\n"
                     "  <?b?><b/>\n"
                     "  <!-- about c -->\n"
                     "  <c>\n    <y/>\n  </c> <!-- too -->\n"
                     "  <!-- the end -->\n"
                     "</r>\n");
    EXPECT_EQ(captions(item("r")),
              (QStringList{"k=\"1\"", "a", "b", "b", " about c ", "c", " too ", " the end "}));
    EXPECT_TRUE(item("c").Expanded());
    EXPECT_EQ(tree().SelectedItem(), item("r"));
    xml::DOMDocument40 again = xml::DOMDocument40::create();
    ASSERT_TRUE(again.loadXML(xml()));
    EXPECT_EQ(again.xml(), xml());
}

TEST_F(ChildSortingTest, SaysWhyItDoesNot) {
    const auto refused = [&](const QByteArray &text) {
        open(text);
        select("r");
        dialogs.answerMessage(ui::message_answer::Ok);
        EXPECT_FALSE(editor().sorting.maySort());
        return dialogs.messages.back().text;
    };
    EXPECT_TRUE(refused("<r>t<b/><a/></r>").contains("「r」の子にはテキストがあり"));
    EXPECT_TRUE(refused("<r><!--c--><a/></r>").contains("子要素が 2 つ以上ない"));
    open("<r><b/><a/></r>");
    select("r");
    EXPECT_THROW(editor().sorting.sort({By::Path, "1 +", false}), runtime::Error);
    editor().sorting.sort({By::Name, {}, true});
    EXPECT_EQ(status(), "すでにこの順序に並んでいます。");
    state().m_ReadOnly = true;
    editor().sorting.sort({By::Name, {}, false});
    EXPECT_EQ(xml(), "<r><b/><a/></r>");
    EXPECT_FALSE(state().m_Modified);
}

} // namespace

} // namespace quillon::test
