#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
#include "tests/support/headless_editor.h"
#include "tree/node_transfer.h"

#include <QMimeData>

namespace quillon::test {

namespace {

using edit::NodeCommands;
using edit::StructureCommands;
using ui::message_answer::No;
using ui::message_answer::Ok;
using ui::message_answer::Yes;

/// The commands on several nodes at once.
class SeveralNodes : public HeadlessEditor {
protected:
    SeveralNodes() { editor().options.viewText = false; }

    NodeCommands &nodes() { return editor().nodeCommands; }
    StructureCommands &structure() { return editor().structure; }

    void openExpanded(const QByteArray &text) {
        open(text);
        editor().builder.ExpandSubtree(tree().nodes().Item(1));
    }
    /// Selects items by their captions; the last one is the current one.
    void selectAll(const QStringList &captions) {
        tree().setSelectedItem({});
        select(captions.front());
        for (const QString &caption : captions.mid(1)) {
            ASSERT_TRUE(item(caption)) << caption.toStdString();
            tree().asUserGesture([&] { tree().toggleSelected(item(caption)); });
        }
        ASSERT_EQ(tree().selectedCount(), captions.size());
    }
    QString selected() {
        QStringList captions;
        for (const items::TreeItem &item : tree().selectedItems())
            captions << item.Text();
        return captions.join(' ');
    }
    /// Two changes, after which the history knows what is expanded.
    void recordExpansion() {
        Q_EMIT nodes().documentModified();
        Q_EMIT nodes().documentModified();
        ASSERT_TRUE(editor().history.CanUndo());
    }
    QString lastMessage() {
        return dialogs.messages.empty() ? QString() : dialogs.messages.back().text;
    }
    /// Runs a command on some items, which says why it changes nothing.
    void expectRefusal(const QByteArray &document, const QStringList &captions,
                       const std::function<void()> &command, const QString &reason) {
        SCOPED_TRACE(reason.toStdString());
        openExpanded(document);
        selectAll(captions);
        const QByteArray before = xml();
        dialogs.answerMessage(Ok);
        command();
        EXPECT_TRUE(lastMessage().contains(reason)) << lastMessage().toStdString();
        EXPECT_EQ(xml(), before);
        EXPECT_FALSE(editor().history.CanUndo());
    }
    /// What the tree shows is what it would show if it were built from the document.
    QStringList shape() {
        QStringList shape;
        for (int i = 1; i <= tree().nodes().Count(); ++i)
            shape << tree().nodes().Item(i).FullPath();
        shape.sort();
        return shape;
    }
};

constexpr auto Lines = "<r>\n  <a/>\n  <b>\n    <b1/>\n  </b>\n  <c/>\n  <d/>\n</r>\n";

TEST_F(SeveralNodes, AreDeletedAsOneStep) {
    openExpanded(Lines);
    selectAll({"d", "b1", "a", "b"});
    dialogs.answerMessage(No);
    nodes().mnuEditDelete_Click();
    EXPECT_EQ(lastMessage(), "4 個のノードを削除してもよろしいですか？");
    EXPECT_EQ(xml(), Lines);
    dialogs.answerMessage(Yes);
    nodes().mnuEditDelete_Click();
    EXPECT_EQ(xml(), "<r>\n  <c/>\n</r>\n");
    EXPECT_EQ(selected(), "c") << "the next one that stays";
    EXPECT_EQ(txtEdit().Text(), "<c/>");
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), Lines);
    EXPECT_FALSE(editor().history.CanUndo());

    editor().builder.ExpandSubtree(tree().nodes().Item(1));
    selectAll({"b1", "b"});
    EXPECT_EQ(status(), "2 個のノードを選択しています。");
    dialogs.answerMessage(Yes);
    nodes().mnuEditDelete_Click();
    EXPECT_EQ(xml(), "<r>\n  <a/>\n  <c/>\n  <d/>\n</r>\n");
    EXPECT_EQ(status(), "");
    select("a");
    dialogs.answerMessage(No);
    nodes().mnuEditDelete_Click();
    EXPECT_EQ(lastMessage(), "削除してもよろしいですか？");
    selectAll({"#document", "a"});
    dialogs.answerMessage(Ok);
    nodes().mnuEditDelete_Click();
    EXPECT_EQ(lastMessage(), "ルート要素は削除できません。");
    state().m_ReadOnly = true;
    selectAll({"a", "c"});
    nodes().mnuEditDelete_Click();
    EXPECT_EQ(xml(), "<r>\n  <a/>\n  <c/>\n  <d/>\n</r>\n");
}

TEST_F(SeveralNodes, WhatCannotGoKeepsTheOthers) {
    const std::function<void()> del = [&] { nodes().mnuEditDelete_Click(); };
    const std::function<void()> cut = [&] { nodes().mnuEditCut_Click(); };
    clipboard.setText("x");
    // An entity reference is told of when it is added to the tree, and when it is shown.
    const QByteArray entities = "<!DOCTYPE r [<!ENTITY e 'v'>]><r>&e;<a/><b/></r>";
    for (const auto &command : {del, cut}) {
        dialogs.answerMessage(Ok);
        dialogs.answerMessage(Ok);
        expectRefusal(entities, {"e", "a"}, command, "実体 e の参照は");
    }
    EXPECT_EQ(clipboard.text(), "x");
}

TEST_F(SeveralNodes, TravelInDocumentOrder) {
    openExpanded("<r x='1'><a/>t<!--c--><b><b1/></b></r>");
    selectAll({"b1", "b", "#comment", "x", "a"});
    nodes().mnuEditCopy_Click();
    EXPECT_EQ(clipboard.text(), "x='1'\n<a/>\n<!--c-->\n<b><b1/></b>");
    EXPECT_FALSE(clipboard.mimeData()->hasFormat(tree::NodeFormat))
        << "who knows one node only must not take the first for all";
    open("<r><k/></r>");
    select("k");
    nodes().mnuEditPaste_Click();
    EXPECT_EQ(xml(), "<r><k x='1'><a/><!--c--><b><b1/></b></k></r>");
    EXPECT_EQ(selected(), "x a #comment b");
    EXPECT_EQ(tree().SelectedItem().Text(), "b");
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), "<r><k/></r>");
    EXPECT_FALSE(editor().history.CanUndo());

    openExpanded(Lines);
    selectAll({"a", "c"});
    nodes().mnuEditCut_Click();
    EXPECT_EQ(xml(), "<r>\n  <b>\n    <b1/>\n  </b>\n  <d/>\n</r>\n");
    select("b");
    nodes().mnuEditPaste_Click();
    EXPECT_EQ(xml(), "<r>\n  <b>\n    <b1/>\n    <a/>\n    <c/>\n  </b>\n  <d/>\n</r>\n");
}

TEST_F(SeveralNodes, ArePastedAllOrNone) {
    const auto copy = [&](const QByteArray &from, const QStringList &captions) {
        openExpanded(from);
        selectAll(captions);
        nodes().mnuEditCopy_Click();
        state().m_Modified = false;
    };
    const auto paste = [&] { nodes().mnuEditPaste_Click(); };
    copy("<r><a/><?p?></r>", {"a", "p"});
    expectRefusal("<r><k/></r>", {"k"}, paste, "処理命令と文書型宣言は");
    copy("<r><a i='1'/><b i='2'/></r>", {"i", "b"});
    openExpanded("<r><a i='1'/><b i='2'/></r>");
    tree().selectItems({item("a").Child(), item("b").Child()}, item("b").Child());
    nodes().mnuEditCopy_Click();
    expectRefusal("<r><k/></r>", {"k"}, paste, "同じ名前の属性「i」が");
    copy("<r>t<b/></r>", {"#text", "b"});
    expectRefusal("<!--c--><r/>", {"#document"}, paste, "要素とコメントだけ");
    copy("<r><a/><b/></r>", {"a", "b"});
    expectRefusal("<r/>", {"#document"}, paste, "ルート要素がすでに存在します。");
    editor().commands.mnuFileNew_Click();
    select("#document");
    dialogs.answerMessage(Ok);
    paste();
    EXPECT_TRUE(lastMessage().startsWith("ルート要素は 1 つだけ"));
}

TEST_F(SeveralNodes, ComeFromOtherProgramsAsText) {
    const struct {
        const char *text, *result;
    } cases[] = {
        {"<a/><b>t</b>", "<k><a/><b>t</b></k>"},
        {" <a/>\n <!--c-->\n<b x=\"1\"/> ", "<k><a/><!--c--><b x=\"1\"/></k>"},
        {"<a/>t<b/>", "<k>&lt;a/&gt;t&lt;b/&gt;</k>"},
        {"<a/></list><list><b/>", "<k>&lt;a/&gt;&lt;/list&gt;&lt;list&gt;&lt;b/&gt;</k>"},
        {"<!--a--><b/><!--c-->", "<k><b/></k>"},
        {"<p:a xmlns:p='u'/><a xmlns='v'/>", "<k><p:a xmlns:p='u'/><a/></k>"},
    };
    for (const auto &c : cases) {
        open("<r xmlns='v'><k/></r>");
        select("k");
        clipboard.setText(QString::fromUtf8(c.text));
        nodes().mnuEditPaste_Click();
        EXPECT_EQ(xml().replace("<r xmlns='v'>", "").replace("</r>", ""), c.result);
        state().m_Modified = false;
    }
}

TEST_F(SeveralNodes, KeepTheirNamespaces) {
    openExpanded("<r xmlns:p='u' xmlns:q='v' xmlns='w'><p:a/><b q:x='1'/></r>");
    selectAll({"p:a", "b"});
    nodes().mnuEditCopy_Click();
    open("<r xmlns:p='other' xmlns:q='v'><k/></r>");
    select("k");
    nodes().mnuEditPaste_Click();
    EXPECT_EQ(xml(), "<r xmlns:p='other' xmlns:q='v'><k><p:a xmlns:p=\"u\"/>"
                     "<b q:x='1' xmlns=\"w\"/></k></r>");
    select("k");
    nodes().mnuEditCopy_Click();
    open("<r xmlns='w' xmlns:q='v'/>");
    select("r");
    nodes().mnuEditPaste_Click();
    EXPECT_TRUE(xml().contains("<b q:x='1' xmlns=\"w\"/>")) << "within what comes all stays";
}

TEST_F(SeveralNodes, MoveTogether) {
    openExpanded(Lines);
    recordExpansion();
    const quint32 b1 = editor().builder.registry().Item(item("b1")).number();
    selectAll({"c", "d", "b"});
    nodes().mnuNodeMoveUp_Click();
    EXPECT_EQ(xml(), "<r>\n  <b>\n    <b1/>\n  </b>\n  <c/>\n  <d/>\n  <a/>\n</r>\n");
    EXPECT_EQ(selected(), "b c d");
    EXPECT_EQ(tree().SelectedItem().Text(), "b");
    EXPECT_TRUE(item("b").Expanded());
    EXPECT_EQ(editor().builder.registry().Item(item("b1")).number(), b1);
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), Lines);
    EXPECT_EQ(selected(), "b c d");
    editor().history.RedoCommand();
    EXPECT_EQ(selected(), "b c d");
    nodes().mnuNodeMoveDown_Click();
    EXPECT_EQ(xml(), Lines);

    const auto up = [&] { nodes().mnuNodeMoveUp_Click(); };
    const auto down = [&] { nodes().mnuNodeMoveDown_Click(); };
    expectRefusal(Lines, {"a", "c"}, up, "「a」は上へ移動できない");
    expectRefusal(Lines, {"a", "d"}, down, "「d」は下へ移動できない");
    expectRefusal("<r x='1'><a/><b/></r>", {"x", "b"}, up, "「x」は上へ移動できない");
    expectRefusal("<r x='1'><a/><b/></r>", {"a", "b"}, up, "「a」は上へ移動できない");
    expectRefusal("<!--c--><r><a/></r>", {"r", "#comment"}, down, "は下へ移動できない");
}

TEST_F(SeveralNodes, AreDuplicated) {
    openExpanded(Lines);
    selectAll({"b", "d", "a"});
    structure().duplicateSelected();
    EXPECT_EQ(xml(), "<r>\n  <a/>\n  <b>\n    <b1/>\n  </b>\n  <a/>\n  <b>\n    <b1/>\n  </b>\n"
                     "  <c/>\n  <d/>\n  <d/>\n</r>\n");
    EXPECT_EQ(selected(), "a b d");
    EXPECT_EQ(tree().SelectedItem(), item("r").Child().Next().Next());
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), Lines);
    const auto duplicate = [&] { structure().duplicateSelected(); };
    expectRefusal("<r x='1'/>", {"x"}, duplicate, "「x」は複製できない");
    expectRefusal("<r/>", {"r"}, duplicate, "ルート要素は 1 つだけ");
    expectRefusal("<?xml version='1.0'?><r/>", {"xml"}, duplicate, "「xml」は複製できない");
}

TEST_F(SeveralNodes, AreRaisedAndLowered) {
    openExpanded("<r>\n  <a>\n    <x>\n      <y/>\n    </x>\n    <z/>\n  </a>\n  <b/>\n</r>\n");
    const QByteArray before = xml();
    recordExpansion();
    selectAll({"z", "x"});
    structure().raiseSelected();
    EXPECT_EQ(xml(), "<r>\n  <a></a>\n  <x>\n    <y/>\n  </x>\n  <z/>\n  <b/>\n</r>\n");
    EXPECT_EQ(selected(), "x z");
    structure().lowerSelected();
    EXPECT_EQ(xml(), before);
    editor().history.UndoCommand();
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), before);
    EXPECT_EQ(selected(), "x z");

    const auto raise = [&] { structure().raiseSelected(); };
    const auto lower = [&] { structure().lowerSelected(); };
    expectRefusal("<r><a/>t</r>", {"a"}, raise, "ルート要素は 1 つだけ");
    expectRefusal("<r><a/>t</r>", {"#text"}, raise, "ルート要素の外に置けない");
    expectRefusal("<r><a/>t</r>", {"r"}, raise, "一段上げることができない");
    expectRefusal("<r><a/>t<b/></r>", {"b"}, lower, "一段下げることができない");
    expectRefusal("<r><a/>t<b/></r>", {"a", "b"}, lower, "一段下げることができない");
    expectRefusal("<r x='1'><a/></r>", {"x"}, lower, "一段下げることができない");

    openExpanded("<r><a/><!--c--><b/><c xmlns:p='u'><p:d/></c></r>");
    selectAll({"p:d", "b"});
    dialogs.answerMessage(Ok);
    structure().lowerSelected();
    EXPECT_EQ(lastMessage().left(5), "「p:d」") << "what could be done with the other is not";
    EXPECT_EQ(xml(), "<r><a/><!--c--><b/><c xmlns:p='u'><p:d/></c></r>");
}

TEST_F(SeveralNodes, KeepTheirNamespacesWhenRaised) {
    openExpanded("<r><a/><!--c--><b/><c xmlns:p='u'><p:d/></c></r>");
    select("p:d");
    structure().raiseSelected();
    EXPECT_EQ(xml(), "<r><a/><!--c--><b/><c xmlns:p='u'></c><p:d xmlns:p=\"u\"/></r>");
    select("b");
    structure().lowerSelected();
    EXPECT_EQ(xml(), "<r><a><b/></a><!--c--><c xmlns:p='u'></c><p:d xmlns:p=\"u\"/></r>");
    EXPECT_TRUE(item("a").Expanded());
}

TEST_F(SeveralNodes, AreEnclosedAndUnwrapped) {
    openExpanded(Lines);
    selectAll({"b", "c"});
    dialogs.answerInput("e");
    structure().encloseSelected();
    EXPECT_EQ(xml(), "<r>\n  <a/>\n  <e>\n    <b>\n      <b1/>\n    </b>\n    <c/>\n  </e>\n"
                     "  <d/>\n</r>\n");
    EXPECT_EQ(selected(), "e");
    EXPECT_TRUE(item("e").Expanded() && item("b").Expanded());
    structure().unwrapSelected();
    EXPECT_EQ(xml(), Lines);
    EXPECT_EQ(selected(), "b c");
    editor().history.UndoCommand();
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), Lines);
    EXPECT_FALSE(editor().history.CanUndo());

    openExpanded("<!--x-->\n<r>\n  <a/>\n</r>\n<!--y-->\n");
    select("r");
    dialogs.answerInput("top");
    structure().encloseSelected();
    EXPECT_EQ(xml(), "<!--x-->\n<top>\n  <r>\n    <a/>\n  </r>\n</top>\n<!--y-->\n");
    EXPECT_EQ(state().m_DOM.documentElement().nodeName(), "top");
    dialogs.answerInput("no name");
    EXPECT_THROW(structure().encloseSelected(), runtime::Error);
    dialogs.answerInput("");
    structure().encloseSelected();
    structure().unwrapSelected();
    EXPECT_EQ(xml(), "<!--x-->\n<r>\n  <a/>\n</r>\n<!--y-->\n");
    EXPECT_EQ(shape(), [&] {
        editor().builder.rebuildTree();
        return shape();
    }());
}

TEST_F(SeveralNodes, CannotAlwaysBeEnclosedOrUnwrapped) {
    const auto enclose = [&] { structure().encloseSelected(); };
    const auto unwrap = [&] { structure().unwrapSelected(); };
    expectRefusal(Lines, {"a", "b1"}, enclose, "同じ親を持つノードだけ");
    expectRefusal("<r x='1'/>", {"x"}, enclose, "「x」は要素で囲めない");
    expectRefusal("<!--c--><r/>", {"#comment"}, enclose, "ルート要素は 1 つだけ");
    expectRefusal("<r>t</r>", {"#text"}, unwrap, "「#text」は要素ではない");
    expectRefusal("<r><a/><b/></r>", {"r"}, unwrap, "ルート要素は 1 つだけ");
    expectRefusal("<r>t<b/></r>", {"r"}, unwrap, "ルート要素の外に置けない");
    expectRefusal("<r/>", {"r"}, unwrap, "囲みを外せません");

    openExpanded("<r><a x='1' xmlns:p='u'>t<p:b/></a></r>");
    select("a");
    dialogs.answerMessage(No);
    unwrap();
    EXPECT_EQ(lastMessage(), "囲みを外すと、要素の属性 1 個が失われます。よろしいですか？");
    dialogs.answerMessage(Yes);
    unwrap();
    EXPECT_EQ(xml(), "<r>t<p:b xmlns:p=\"u\"/></r>");
    openExpanded("<!--1--><r><!--2--><?p?><a/><!--3--></r><!--4-->");
    select("r");
    unwrap();
    EXPECT_EQ(xml().replace("\n", ""), "<!--1--><!--2--><?p?><a/><!--3--><!--4-->");
    state().m_ReadOnly = true;
    select("a");
    for (const auto command :
         {&StructureCommands::duplicateSelected, &StructureCommands::raiseSelected,
          &StructureCommands::lowerSelected, &StructureCommands::encloseSelected,
          &StructureCommands::unwrapSelected})
        (structure().*command)();
    EXPECT_EQ(xml().replace("\n", ""), "<!--1--><!--2--><?p?><a/><!--3--><!--4-->");
}

TEST_F(SeveralNodes, OfAQueryAreSelected) {
    openExpanded("<r><a><x/></a><b><x/></b></r>");
    nodes().selectMarked();
    select("r");
    cboPath().setText("//x");
    editor().pathQuery.SelectByPath();
    editor().builder.CollapseSubtree(item("b"));
    nodes().selectMarked();
    EXPECT_EQ(selected(), "x x");
    EXPECT_EQ(tree().SelectedItem(), item("a").Child());
    select("b");
    nodes().selectMarked();
    EXPECT_EQ(selected(), "x x");
    EXPECT_EQ(tree().SelectedItem(), item("a").Child());
}

TEST_F(SeveralNodes, TenThousandGoAtOnce) {
    QByteArray text = "<r>\n";
    for (int i = 0; i < 10'000; ++i)
        text += "  <a><b/></a>\n";
    open(text + "</r>\n");
    item("r").setExpanded(true);
    select("a");
    tree().extendSelection(tree().nodes().item(tree().rows().at(tree().rows().count() - 1)));
    ASSERT_EQ(tree().selectedCount(), 10'000);
    nodes().mnuEditCopy_Click();
    structure().duplicateSelected();
    EXPECT_EQ(tree().selectedCount(), 10'000);
    nodes().mnuNodeMoveUp_Click();
    dialogs.answerMessage(Yes);
    nodes().mnuEditDelete_Click();
    EXPECT_EQ(xml().size(), text.size() + 5);
    select("r");
    nodes().mnuEditPaste_Click();
    EXPECT_EQ(tree().nodes().Count(), 2 + 2 * 20'000);
}

} // namespace

} // namespace quillon::test
