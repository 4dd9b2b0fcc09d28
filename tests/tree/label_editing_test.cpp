#include "tests/tree/editing_fixture.h"

namespace quillon::test {

namespace {

TEST_F(EditingTest, RenamingAnElementReversesWhatIsInIt) {
    open("<doc>\n  <p i='1' j='2'>\n    <a/>\n    <b/>\n    <c/>\n  </p>\n</doc>");
    select("p");
    EXPECT_TRUE(rename("新しい"));
    EXPECT_EQ(xml().toStdString(),
              "<doc>\n  <新しい j='2' i='1'>\n    <c/>\n    <b/>\n    <a/>\n  </新しい>\n</doc>");
    EXPECT_EQ(captions(item("新しい")), QStringList({"i=\"1\"", "j=\"2\"", "a", "b", "c"}));
    EXPECT_EQ(txtEdit().Text(), "/doc/新しい");
    EXPECT_TRUE(modified());
    select("doc");
    EXPECT_TRUE(rename("top"));
    EXPECT_EQ(txtEdit().Text(), "/top");
    EXPECT_EQ(state().m_DOM.documentElement().nodeName(), "top");
    EXPECT_EQ(editor().builder.registry().Item(item("#document")), state().m_DOM.node());
    modified();
    const QByteArray before = xml();
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_FALSE(rename("not a name"));
    EXPECT_EQ(dialogs.messages.back().style, 48);
    EXPECT_FALSE(rename(""));
    EXPECT_EQ(xml(), before);
    EXPECT_FALSE(modified());
}

TEST_F(EditingTest, RenamingAttributes) {
    open("<doc id='1' other='2'/>");
    select("id=\"1\"");
    EXPECT_EQ(labels().editorText(item("id=\"1\"")), "id");
    EXPECT_TRUE(rename("id"));
    EXPECT_EQ(selected(), "id=\"1\"");
    EXPECT_FALSE(modified());
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_FALSE(rename("other"));
    EXPECT_EQ(dialogs.messages.back().text, "Already Exists. Cannot change");
    EXPECT_EQ(xml(), "<doc id='1' other='2'/>");
    EXPECT_TRUE(rename("key"));
    EXPECT_EQ(selected(), "key=\"1\"");
    EXPECT_EQ(xml(), "<doc other='2' key='1'/>");
    EXPECT_EQ(txtEdit().Text(), "1");
    EXPECT_TRUE(modified());
    editor().options.viewText = false;
    EXPECT_TRUE(rename("name"));
    EXPECT_EQ(selected(), "name");
    // The old attribute is gone although the new name is not valid; its item stays.
    modified();
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_FALSE(rename("1 2"));
    EXPECT_EQ(xml(), "<doc other='2'/>");
    EXPECT_EQ(selected(), "name");
    EXPECT_TRUE(modified());
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), "<doc other='2' name='1'/>");
    EXPECT_EQ(selected(), "name");
    editor().history.RedoCommand();
    EXPECT_EQ(xml(), "<doc other='2'/>");
    EXPECT_EQ(selected(), "doc");
}

TEST_F(EditingTest, RenamingAnElementKeepsTheLinesOfItsFile) {
    open("<doc>\r\n\t<p>\r\n\t\t<a />\r\n\r\n\t</p>\r\n\t<q></q>\r\n</doc>\r\n");
    for (const char *caption : {"p", "q"}) {
        select(caption);
        EXPECT_TRUE(rename(caption + QString("2")));
    }
    editor().commands.SaveFile(path("doc.xml"));
    EXPECT_EQ(read("doc.xml"),
              "<doc>\r\n\t<p2>\r\n\t\t<a />\r\n\r\n\t</p2>\r\n\t<q2></q2>\r\n</doc>\r\n");
}

TEST_F(EditingTest, WhichLabelsMayBeEdited) {
    open(Sample);
    const auto allowed = [&](const QString &caption) {
        select(caption);
        return labels().tvw_BeforeLabelEdit();
    };
    EXPECT_TRUE(allowed("a"));
    EXPECT_TRUE(allowed("id=\"1\""));
    EXPECT_TRUE(allowed("note"));
    EXPECT_TRUE(allowed("xml")) << "refused afterwards";
    EXPECT_FALSE(allowed("#document"));
    EXPECT_FALSE(allowed("doc")) << "the document type";
    editor().options.viewLock = true;
    EXPECT_FALSE(allowed("a"));
    EXPECT_FALSE(allowed("id=\"1\""));
    EXPECT_TRUE(allowed("note"));
    editor().options = {false, false};
    editor().builder.BuildTree(state().m_DOM, true);
    EXPECT_TRUE(allowed("a"));
    EXPECT_FALSE(allowed("#comment"));
    state().m_ReadOnly = true;
    EXPECT_FALSE(allowed("a"));
}

} // namespace

} // namespace quillon::test
