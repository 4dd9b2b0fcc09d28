#include "platform/runtime/error.h"
#include "tests/support/headless_editor.h"

#include <random>

namespace quillon::test {

namespace {

/// Thousands of commands from a seed; after each the tree, the registry and the document agree.
class RandomEditsTest : public HeadlessEditor {
protected:
    /// Items and nodes in step: the same children in the same order, attributes first. Renaming
    /// an element reverses the nodes but not the items, so it is followed by a rebuild here.
    void expectAgreement() {
        const items::Nodes &nodes = tree().nodes();
        ASSERT_GE(nodes.Count(), 1);
        ASSERT_EQ(node(nodes.Item(1)), state().m_DOM.node());
        for (int i = 1; i <= nodes.Count(); ++i) {
            const items::TreeItem at = nodes.Item(i);
            const xml::Node shown = node(at);
            ASSERT_TRUE(shown) << i;
            items::TreeItem child = at.Child();
            for (int a = 0; a < shown.attributes().length(); ++a, child = child.Next())
                ASSERT_EQ(node(child).nodeName(), shown.attributes().item(a).nodeName());
            for (xml::Node n = shown.firstChild(); n; n = n.nextSibling(), child = child.Next())
                ASSERT_EQ(node(child), n) << n.xml().toStdString();
            ASSERT_FALSE(child);
        }
    }
    xml::Node node(const items::TreeItem &at) { return editor().builder.registry().Item(at); }
    items::TreeItem anyItem() {
        return tree().nodes().Item(1 + int(random() % unsigned(tree().nodes().Count())));
    }
    /// Names and values alike, some of which cannot be what they would be.
    void replaceAll() {
        const QStringList texts{"t", "x", "e", "a", "&", "-", "xy", "1", ""};
        const auto any = [&] { return texts[qsizetype(random() % unsigned(texts.size()))]; };
        search::SearchRequest request;
        request.what = any();
        request.with = any();
        request.parts = 1 + unsigned(random() % 255);
        editor().findAndReplace.planAll(request);
        editor().findAndReplace.execute();
        editor().hits.clear();
    }
    void act() {
        edit::NodeCommands &commands = editor().nodeCommands;
        edit::NodeCreation &creation = editor().creation;
        editor().selection.ShowNode(anyItem(), true);
        switch (random() % 15) {
        case 0:
            if (tree().SelectedItem() != tree().nodes().Item(1))
                creation.mnuNodeAddElement_Click();
            break;
        case 1:
            creation.mnuNodeAddText_Click();
            break;
        case 2:
            creation.mnuNodeAddComment_Click();
            break;
        case 3:
            creation.mnuNodeAddCDATA_Click();
            break;
        case 4:
            if (tree().SelectedItem().Parent() != tree().nodes().Item(1))
                creation.mnuNodeInsElement_Click();
            break;
        case 5:
            creation.mnuNodeInsText_Click();
            break;
        case 6:
            commands.mnuNodeMoveUp_Click();
            break;
        case 7:
            commands.mnuNodeMoveDown_Click();
            break;
        case 8:
            commands.mnuEditCopy_Click();
            break;
        case 9:
            if (tree().SelectedItem() != tree().nodes().Item(1) && tree().nodes().Count() < 400)
                commands.mnuEditPaste_Click();
            break;
        case 10:
            if (tree().SelectedItem().Parent() != tree().nodes().Item(1))
                commands.mnuEditCut_Click();
            break;
        case 11:
            editor().history.UndoCommand();
            break;
        case 12:
            editor().history.RedoCommand();
            break;
        case 13:
            replaceAll();
            break;
        default:
            tree().SelectedItem().setExpanded(random() % 2);
            break;
        }
    }
    std::mt19937 random{20261124};
};

TEST_F(RandomEditsTest, TreeRegistryAndDocumentAgree) {
    open("<?xml version='1.0'?>\n<!--top-->\n<r a='1'>\n  <x k='2'>text</x>\n  <y/>\n</r>\n");
    clipboard.setText("<p q='1'>\n  <s/>\n</p>");
    int done = 0;
    for (int i = 0; i < 3000; ++i) {
        try {
            act();
            ++done;
        } catch (const runtime::Error &) {
            // Refused, e.g. inserting ahead of an attribute; nothing must have changed.
        }
        ASSERT_NO_FATAL_FAILURE(expectAgreement()) << "after step " << i;
        if (i % 20 != 0)
            continue;
        xml::DOMDocument40 again = xml::DOMDocument40::create();
        ASSERT_TRUE(again.loadXML(xml())) << xml().toStdString();
        EXPECT_EQ(again.xml(), xml());
        EXPECT_EQ(again.node().text(), state().m_DOM.node().text());
    }
    EXPECT_GT(done, 2000);
}

} // namespace

} // namespace quillon::test
