#include "edit/pretty_printing.h"
#include "platform/runtime/error.h"
#include "tests/support/headless_editor.h"

namespace quillon::test {

namespace {

using edit::LayoutPreview;
using Scope = edit::PrettyPrinting::Scope;

class PrettyPrintingTest : public HeadlessEditor {
protected:
    edit::PrettyPrinting &printing() { return editor().prettyPrinting; }
    /// Lines as the dialog marks them.
    static QString marked(const std::vector<LayoutPreview::Line> &lines) {
        QString all;
        for (const LayoutPreview::Line &line : lines)
            all += (line.isChanged ? '*' : ' ') + line.text + '\n';
        return all;
    }
};

TEST_F(PrettyPrintingTest, IsOneStepThatLeavesTheTreeAsItIs) {
    const QByteArray text = "<r><a><b/></a><c/></r>";
    open(text);
    editor().builder.ExpandSubtree(tree().nodes().Item(1));
    select("b");
    editor().selection.ShowNode(item("a"), true);
    printing().format({}, Scope::Document);
    EXPECT_EQ(xml(), "<r>\n  <a>\n    <b/>\n  </a>\n  <c/>\n</r>");
    EXPECT_EQ(tree().SelectedItem().Text(), "a");
    EXPECT_TRUE(item("a").Expanded());
    EXPECT_EQ(txtEdit().utf8(), "<a>\n    <b/>\n  </a>");
    EXPECT_TRUE(state().m_Modified);
    printing().format({}, Scope::Document);
    EXPECT_TRUE(status().startsWith("すでに"));
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), text);
    EXPECT_FALSE(editor().history.CanUndo());
    state().m_ReadOnly = true;
    printing().format({}, Scope::Document);
    EXPECT_EQ(xml(), text);
}

TEST_F(PrettyPrintingTest, FormatsTheSelectedElementsAlone) {
    open("<r>\n  <a><x/></a>\n  <b><y><z/></y></b>\n  <c><w/></c></r>");
    editor().builder.ExpandSubtree(tree().nodes().Item(1));
    select("a");
    EXPECT_TRUE(printing().hasSelectedElements());
    tree().toggleSelected(item("b"));
    tree().toggleSelected(item("z"));
    const LayoutPreview preview = printing().preview({}, Scope::SelectedElements);
    EXPECT_TRUE(preview.isWhole);
    EXPECT_EQ(marked(preview.before), "*  <a><x/></a>\n*  <b><y><z/></y></b>\n");
    EXPECT_EQ(marked(preview.after), "*  <a>\n*    <x/>\n*  </a>\n*  <b>\n*    <y>\n*      <z/>\n"
                                     "*    </y>\n*  </b>\n");
    printing().format({}, Scope::SelectedElements);
    EXPECT_EQ(xml(), "<r>\n  <a>\n    <x/>\n  </a>\n  <b>\n    <y>\n      <z/>\n    </y>\n  </b>\n"
                     "  <c><w/></c></r>");
    EXPECT_EQ(tree().selectedCount(), 3);
    editor().history.UndoCommand();
    EXPECT_FALSE(editor().history.CanUndo());
    select("#document");
    EXPECT_FALSE(printing().hasSelectedElements());
}

TEST_F(PrettyPrintingTest, ShowsWhichLinesChange) {
    const QByteArray text = "<r>\n  <a></a>\n\n\n  <b x='1'\n y='2'/>\n  <c/></r>";
    open(text);
    xml::LayoutStyle style;
    style.empty = xml::LayoutStyle::Empty::Closed;
    const LayoutPreview preview = printing().preview(style, Scope::Document);
    EXPECT_EQ(marked(preview.before),
              " <r>\n*  <a></a>\n \n \n*  <b x='1'\n* y='2'/>\n*  <c/></r>\n");
    EXPECT_EQ(marked(preview.after), " <r>\n*  <a/>\n \n*  <b x='1' y='2'/>\n*  <c/>\n*</r>\n");
    EXPECT_EQ(xml(), text) << "only shown";

    QByteArray large = "<r>";
    for (int i = 0; i < 40'000; ++i)
        large += "<a/>";
    open(large + "</r>");
    const LayoutPreview beginning = printing().preview({}, Scope::Document);
    EXPECT_FALSE(beginning.isWhole);
    EXPECT_EQ(beginning.after[1].text, "  <a/>");
    EXPECT_EQ(beginning.after[beginning.after.size() - 2].text, "  <a/>");
}

TEST_F(PrettyPrintingTest, LeavesEverythingAsItWasWhenStopped) {
    QByteArray large = "<r>";
    for (int i = 0; i < 30'000; ++i)
        large += "<a/>";
    large += "</r>";
    open(large);
    window->longWork.isStopWanted = true;
    EXPECT_THROW(printing().format({}, Scope::Document), runtime::Error);
    EXPECT_EQ(xml(), large);
    EXPECT_FALSE(state().m_Modified);
    EXPECT_FALSE(editor().history.CanUndo());
}

} // namespace

} // namespace quillon::test
