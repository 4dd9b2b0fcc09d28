#include "resources/messages.h"
#include "tests/support/scripted_dialogs.h"
#include "tree/node_keys.h"
#include "tree/tree_builder.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace quillon::tree {

namespace {

using items::Relationship;
using items::TreeItem;
using xml::Node;

class TreeBuilderTest : public testing::Test {
protected:
    void load(const char *text) {
        state.m_DOM = xml::DOMDocument40::create();
        ASSERT_TRUE(state.m_DOM.loadXML(QByteArray(text)));
        builder.BuildTree(state.m_DOM, true);
    }
    TreeItem root() { return tree.nodes().Item(1); }
    /// The item with a caption; Nothing when there is none.
    TreeItem item(const QString &caption) {
        for (int i = 1; i <= tree.nodes().Count(); ++i) {
            if (tree.nodes().Item(i).Text() == caption)
                return tree.nodes().Item(i);
        }
        return {};
    }
    /// Captions and image keys of the whole tree, one item a line, indented by depth.
    QString drawn(const TreeItem &from, int depth = 0) {
        QString out = QString(depth, QLatin1Char(' ')) + from.Text() + QLatin1Char('|') +
                      imageKeyOf(builder.registry().Item(from)) + QLatin1Char('\n');
        for (TreeItem child = from.Child(); child; child = child.Next())
            out += drawn(child, depth + 1);
        return out;
    }
    QStringList captions(const TreeItem &parent) {
        QStringList out;
        for (TreeItem child = parent.Child(); child; child = child.Next())
            out.append(child.Text());
        return out;
    }
    TreeItem add(TreeItem relItem, Node node, Relationship relationship) {
        return builder.AddNodeToTree(relItem, node, false, relationship);
    }

    state::DocumentState state;
    state::ViewOptions options;
    items::Tree tree;
    TreeBuilder builder{state, options, tree};
    test::ScriptedDialogs dialogs;
};

constexpr auto Sample = "<?xml version='1.0'?><!--note--><!DOCTYPE r [<!ELEMENT r ANY>]>"
                        "<r id='\"1&amp;&#10;'><![CDATA[c]]>te\nxt<e/></r>";

TEST_F(TreeBuilderTest, CaptionsAndImagesOfEveryKind) {
    options.viewText = false;
    load(Sample);
    EXPECT_EQ(drawn(root()), "#document|DOMDocument\n"
                             " xml|IXMLDOMProcessingInstruction\n"
                             " #comment|IXMLDOMComment\n"
                             " r|IXMLDOMComment\n"
                             " r|IXMLDOMElement\n"
                             "  id|IXMLDOMAttribute\n"
                             "  #cdata-section|IXMLDOMComment\n"
                             "  #text|IXMLDOMText\n"
                             "  e|IXMLDOMElement\n");
    QStringList kinds;
    for (int i = 1; i <= tree.nodes().Count(); ++i)
        kinds << tree.nodes().kind(tree.nodes().Item(i));
    EXPECT_EQ(kinds.join(' '), "ドキュメント 処理命令 コメント 文書型宣言 要素 属性 "
                               "CDATA セクション テキスト 要素");
    options.viewText = true;
    builder.BuildTree(state.m_DOM, true);
    EXPECT_EQ(captions(root()), QStringList({"xml", "note", "r", "r"}));
    EXPECT_EQ(captions(item("r").Next()), QStringList({"id=\"\"1&\n\"", "c", "te\nxt", "e"}));
    EXPECT_EQ(tree.nodes().indexOf(item("te\nxt")).data().toString(), "te\nxt");
}

TEST_F(TreeBuilderTest, EveryItemIsRegisteredUnderAKeyThatNeverComesBack) {
    load(Sample);
    QStringList keys;
    for (int i = 1; i <= tree.nodes().Count(); ++i) {
        const TreeItem at = tree.nodes().Item(i);
        EXPECT_EQ(captionOf(builder.registry().Item(at), true), at.Text());
        EXPECT_TRUE(at.Key().endsWith("Node"));
        keys.append(at.Key());
    }
    EXPECT_EQ(builder.registry().Item(root()), state.m_DOM.node());
    const int last = keys.last().chopped(4).toInt();
    EXPECT_EQ(NewNodeKey(), QString::number(last + 1) + "Node");
    builder.BuildTree(state.m_DOM, true);
    EXPECT_EQ(root().Key(), QString::number(last + 2) + "Node");
    EXPECT_FALSE(root().Expanded());
    EXPECT_FALSE(tree.SelectedItem());
    // A change through the registry is a change of the document.
    builder.registry().Item(item("te\nxt")).setText("new");
    EXPECT_TRUE(state.m_DOM.xml().contains("new"));
    builder.BuildTree(xml::DOMDocument40(), true);
    EXPECT_EQ(tree.nodes().Count(), keys.size());
}

TEST_F(TreeBuilderTest, InsertionPutsACopyIntoDocumentAndTreeAlike) {
    load("<r a='1' b='2'><x/></r>");
    const Node made = state.m_DOM.createElement("n");
    const TreeItem child = add(item("r"), made, Relationship::Child);
    EXPECT_EQ(child.Previous().Text(), "x");
    EXPECT_FALSE(made.parentNode());
    EXPECT_EQ(builder.registry().Item(child).parentNode(), state.m_DOM.documentElement());
    add(item("x"), state.m_DOM.createTextNode("t"), Relationship::Previous);
    EXPECT_EQ(state.m_DOM.xml(), "<r a='1' b='2'>t<x/><n/></r>");
    EXPECT_EQ(captions(item("r")), QStringList({"a=\"1\"", "b=\"2\"", "t", "x", "n"}));

    xml::DOMDocument40 other = xml::DOMDocument40::create();
    ASSERT_TRUE(other.loadXML(QByteArray("<sub k='v'><deep>d</deep></sub>")));
    QSignalSpy preview(&builder, &TreeBuilder::syncPreviewRequested);
    const TreeItem sub = add(item("x"), other.documentElement(), Relationship::Child);
    EXPECT_EQ(preview.count(), 1);
    EXPECT_EQ(captions(sub), QStringList({"k=\"v\"", "deep"}));
    EXPECT_EQ(other.xml(), "<sub k='v'><deep>d</deep></sub>");
    builder.m_bNoSync = true;
    add(item("x"), other.documentElement(), Relationship::Child);
    EXPECT_EQ(preview.count(), 1);
}

TEST_F(TreeBuilderTest, AttributesGoBehindTheOtherAttributes) {
    load("<r a='1' b='2'><x/></r>");
    Node attr = state.m_DOM.createAttribute("c");
    const TreeItem made = builder.AddAttributeToTree(item("r"), attr, false);
    EXPECT_EQ(made.Next().Text(), "x");
    EXPECT_EQ(made.Previous().Text(), "b=\"2\"");
    EXPECT_EQ(state.m_DOM.xml(), "<r a='1' b='2' c=\"\"><x/></r>");
    // The registry holds a copy of it.
    EXPECT_FALSE(builder.registry().Item(made) ==
                 state.m_DOM.documentElement().getAttributeNode("c"));
    EXPECT_EQ(builder.registry().Item(made), attr);

    // One that is there already gets the value and, where captions are bare names, no second item.
    Node again = state.m_DOM.createAttribute("a");
    again.setNodeValue("9");
    EXPECT_TRUE(builder.AddAttributeToTree(item("r"), again, false));
    EXPECT_EQ(state.m_DOM.documentElement().getAttribute("a"), QString("9"));
    EXPECT_EQ(captions(item("r")), QStringList({"a=\"1\"", "b=\"2\"", "c=\"\"", "a=\"9\"", "x"}));
    options.viewText = false;
    builder.BuildTree(state.m_DOM, true);
    EXPECT_FALSE(builder.AddAttributeToTree(item("r"), again, false));
    EXPECT_EQ(captions(item("r")), QStringList({"a", "b", "c", "x"}));
}

TEST_F(TreeBuilderTest, TheDocumentTakesOneElementAndNoText) {
    load("<r/>");
    QSignalSpy status(&builder, &TreeBuilder::statusText);
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_FALSE(add(root(), state.m_DOM.createElement("second"), Relationship::Child));
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].text, "ルート要素がすでに存在します。");
    EXPECT_EQ(dialogs.messages[0].style, 48);
    EXPECT_EQ(status.at(0).at(0).toString(), "ルート要素がすでに存在します。");
    EXPECT_FALSE(add(root(), state.m_DOM.createTextNode("t"), Relationship::Child));
    EXPECT_FALSE(add(item("r"), state.m_DOM.createCDATASection("t"), Relationship::Previous));
    EXPECT_TRUE(add(item("r"), state.m_DOM.createComment("c"), Relationship::Previous));
    EXPECT_EQ(state.m_DOM.xml(), "<!--c-->\n<r/>");
    EXPECT_TRUE(builder.HasRootElement());
    state.m_DOM = xml::DOMDocument40::create();
    builder.BuildTree(state.m_DOM, true);
    EXPECT_EQ(tree.nodes().Count(), 1);
    EXPECT_FALSE(builder.HasRootElement());
    EXPECT_TRUE(add(root(), state.m_DOM.createElement("e"), Relationship::Child));
    EXPECT_TRUE(builder.HasRootElement());
}

TEST_F(TreeBuilderTest, EntityReferencesHaveTheirItemsAndOneBoxForADocument) {
    for (unsigned opened = 1; opened <= 2; ++opened) {
        dialogs.answerMessage(ui::message_answer::Ok);
        load("<!DOCTYPE r [<!ENTITY e 'x'>]><r>a&e;b&e;</r>");
        ASSERT_EQ(dialogs.messages.size(), opened);
        EXPECT_EQ(dialogs.messages.back().text, "IXMLDOMEntityReference is added to tree");
        EXPECT_EQ(dialogs.messages.back().style, 0);
        EXPECT_EQ(captions(item("r").Next()), QStringList({"a", "e", "b", "e"}));
        builder.rebuildTree();
        add(item("r").Next(), state.m_DOM.createEntityReference("e"), Relationship::Child);
        builder.BuildTree(state.m_DOM, true, TreeBuilder::Reason::Changed);
        EXPECT_EQ(captions(item("r").Next()).size(), 5);
        EXPECT_EQ(dialogs.messages.size(), opened);
    }
    load("<r/>");
    dialogs.answerMessage(ui::message_answer::Ok);
    add(item("r"), state.m_DOM.createEntityReference("e"), Relationship::Child);
    EXPECT_EQ(dialogs.messages.size(), 3u) << "where opening has met none";
}

TEST_F(TreeBuilderTest, DepthHasNoLimit) {
    constexpr int Depth = 100'000;
    QByteArray text;
    for (int i = 0; i < Depth; ++i)
        text += "<d>";
    for (int i = 0; i < Depth; ++i)
        text += "</d>";
    load(text.constData());
    EXPECT_EQ(tree.nodes().Count(), Depth + 1);
    builder.ExpandSubtree(root());
    EXPECT_TRUE(tree.nodes().Item(Depth).Expanded());
    builder.CollapseSubtree(root());
    EXPECT_FALSE(tree.nodes().Item(2).Expanded());
}

} // namespace

} // namespace quillon::tree
