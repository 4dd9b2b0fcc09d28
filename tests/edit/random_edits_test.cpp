#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
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
            ASSERT_TRUE(shown.nodeType() == xml::NodeType::Attribute ||
                        editor().builder.itemOf(shown) == at);
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
    /// Up to five items beside the selected one.
    void selectSeveral() {
        for (int i = int(random() % 6); i > 0; --i) {
            items::TreeItem more = anyItem();
            more.EnsureVisible();
            tree().toggleSelected(more);
        }
    }
    /// The commands on all that is selected. Whatever they ask, the answer is Yes.
    void actOnSeveral() {
        edit::NodeCommands &commands = editor().nodeCommands;
        edit::StructureCommands &structure = editor().structure;
        const bool isSmall = tree().nodes().Count() < 400;
        bool hasRoot = false;
        for (const items::TreeItem &item : tree().topmostSelectedItems())
            hasRoot = hasRoot || node(item).nodeType() == xml::NodeType::Document ||
                      node(item) == state().m_DOM.documentElement();
        switch (random() % 10) {
        case 0:
            commands.mnuEditCopy_Click();
            break;
        case 1:
            if (!hasRoot)
                commands.mnuEditCut_Click();
            break;
        case 2:
            if (!hasRoot)
                commands.mnuEditDelete_Click();
            break;
        case 3:
            commands.mnuNodeMoveUp_Click();
            break;
        case 4:
            commands.mnuNodeMoveDown_Click();
            break;
        case 5:
            if (isSmall)
                structure.duplicateSelected();
            break;
        case 6:
            structure.raiseSelected();
            break;
        case 7:
            structure.lowerSelected();
            break;
        case 8:
            structure.encloseSelected();
            break;
        default:
            structure.unwrapSelected();
            break;
        }
    }
    void act() {
        edit::NodeCommands &commands = editor().nodeCommands;
        edit::NodeCreation &creation = editor().creation;
        isUndone_ = false;
        editor().selection.ShowNode(anyItem(), true);
        if (random() % 3 == 0) {
            selectSeveral();
            actOnSeveral();
            return;
        }
        switch (random() % 16) {
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
            isUndone_ = true;
            editor().history.UndoCommand();
            break;
        case 12:
            isUndone_ = true;
            editor().history.RedoCommand();
            break;
        case 13:
            replaceAll();
            break;
        case 14:
            editor().sorting.sort({edit::SortOrder::By::Name, {}, random() % 2 == 0});
            break;
        default:
            tree().SelectedItem().setExpanded(random() % 2);
            break;
        }
    }
    /// A change is one step, and undoing it brings back the very bytes.
    void expectOneStepBack(const QByteArray &before, const QByteArray &after) {
        editor().history.UndoCommand();
        ASSERT_EQ(xml(), before);
        editor().history.RedoCommand();
        ASSERT_EQ(xml(), after);
    }
    std::mt19937 random{20261124};
    /// The last command was one of the history's.
    bool isUndone_ = false;
};

/// Says Yes to everything, and names elements e.
class Agreeable : public ScriptedDialogs {
public:
    int showMessage(const QString &, int style, const QString &) override {
        return (style & ui::message_style::YesNo) != 0 ? ui::message_answer::Yes
                                                       : ui::message_answer::Ok;
    }
    QString inputText(const QString &, const ui::InputHelp &) override {
        return QStringLiteral("e");
    }
};

TEST_F(RandomEditsTest, TreeRegistryAndDocumentAgree) {
    const Agreeable agreeable;
    open("<?xml version='1.0'?>\n<!--top-->\n<r a='1'>\n  <x k='2'>text</x>\n  <y/>\n</r>\n");
    clipboard.setText("<p q='1'>\n  <s/>\n</p><p/>");
    int done = 0;
    for (int i = 0; i < 4000; ++i) {
        const QByteArray before = xml();
        const auto recorded = editor().history.current();
        try {
            act();
            ++done;
        } catch (const runtime::Error &) {
            // Refused, e.g. inserting ahead of an attribute; nothing must have changed.
        }
        ASSERT_NO_FATAL_FAILURE(expectAgreement()) << "after step " << i;
        const bool isOneChange = xml() != before && editor().history.current() != recorded;
        if (isOneChange && i % 7 == 0 && !isUndone_) {
            ASSERT_NO_FATAL_FAILURE(expectOneStepBack(before, xml())) << "after step " << i;
        }
        if (i % 20 != 0)
            continue;
        xml::DOMDocument40 again = xml::DOMDocument40::create();
        ASSERT_TRUE(again.loadXML(xml())) << xml().toStdString();
        EXPECT_EQ(again.xml(), xml());
        EXPECT_EQ(again.node().text(), state().m_DOM.node().text());
    }
    EXPECT_GT(done, 3000);
}

/// What the model and the rows know of an element with very many children is carried over from one
/// state to the next.
TEST_F(RandomEditsTest, LongListsOfChildrenFollowUndoAndRedo) {
    const Agreeable agreeable;
    open("<r a='1'>" + QByteArray("<x>t</x>").repeated(1500) + "</r>");
    const auto root = [this] { return tree().nodes().Item(1).Child(); };
    const auto expectRows = [&] {
        const items::Nodes &nodes = tree().nodes();
        const QModelIndex parent = nodes.indexOf(root());
        int row = 0;
        for (items::TreeItem child = root().Child(); child; child = child.Next())
            ASSERT_EQ(nodes.itemAt(nodes.index(row++, 0, parent)), child);
        ASSERT_EQ(nodes.rowCount(parent), row);
        row = 0;
        for (items::TreeItem at = nodes.Item(1); at; ++row) {
            ASSERT_EQ(nodes.item(tree().rows().at(row)), at);
            items::TreeItem next = at.Expanded() ? at.Child() : items::TreeItem();
            for (; at && !next; at = at.Parent())
                next = at.Next();
            at = next;
        }
        ASSERT_EQ(tree().rows().count(), row);
    };
    root().setExpanded(true);
    for (int i = 0; i < 150; ++i) {
        int place =
            int(random() % unsigned(tree().nodes().rowCount(tree().nodes().indexOf(root()))));
        place = i % 5 == 0 ? place % 3 : place;
        const auto index = tree().nodes().index(place, 0, tree().nodes().indexOf(root()));
        editor().selection.ShowNode(tree().nodes().itemAt(index), true);
        const bool isElement = node(tree().SelectedItem()).nodeType() == xml::NodeType::Element;
        switch (random() % 8) {
        case 0:
            editor().nodeCommands.mnuEditDelete_Click();
            break;
        case 1:
            if (isElement)
                editor().structure.duplicateSelected();
            break;
        case 2:
            if (isElement)
                editor().nodeCommands.mnuNodeMoveUp_Click();
            break;
        case 3:
            if (isElement)
                type("<y>" + QString::number(i) + "</y>");
            break;
        case 4:
            editor().selection.ShowNode(root(), true);
            editor().creation.mnuNodeAddElement_Click();
            break;
        case 5:
            editor().history.RedoCommand();
            break;
        default:
            editor().history.UndoCommand();
            break;
        }
        ASSERT_NO_FATAL_FAILURE(expectRows()) << "after step " << i;
    }
}

} // namespace

} // namespace quillon::test
