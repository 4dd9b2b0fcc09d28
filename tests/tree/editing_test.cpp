#include "tests/tree/editing_fixture.h"

namespace quillon::test {

namespace {

TEST_F(EditingTest, ShowingANodeFillsPathAndPane) {
    open(Sample);
    const struct {
        QString caption;
        const char *path;
        const char *pane;
        bool locked;
    } cases[] = {
        {"#document", "/", nullptr, false},        {"a", "doc/a/", "<a k='v\r\nw'/>", false},
        {"k=\"v\nw\"", "doc/a/", "v\r\nw", false}, {"one\ntwo", "doc/a/", "one\r\ntwo", false},
        {"raw", "doc/a/", "raw", false},           {"note", "doc/a/", "note", false},
        {"xml", "/", "version='1.0'", true},
    };
    for (const auto &c : cases) {
        select(c.caption);
        EXPECT_EQ(cboPath().Text(), c.path) << c.caption.toStdString();
        EXPECT_EQ(txtEdit().Text(),
                  c.pane ? QString(c.pane) : QString(Sample).replace("\n", "\r\n"))
            << c.caption.toStdString();
        EXPECT_EQ(txtEdit().Locked(), c.locked) << c.caption.toStdString();
        EXPECT_EQ(selected(), c.caption);
    }
    state().m_ReadOnly = true;
    select("a");
    EXPECT_TRUE(txtEdit().Locked());
    state().m_ReadOnly = false;
    editor().options.viewLock = true;
    select("a");
    EXPECT_TRUE(txtEdit().Locked());
    select("id=\"1\"");
    EXPECT_FALSE(txtEdit().Locked());
    // The document type, named like the root element.
    editor().selection.ShowNode(item("doc"), true);
    EXPECT_EQ(editor().selection.GetSelectedDOMNode().nodeType(), xml::NodeType::DocumentType);
    EXPECT_TRUE(txtEdit().Locked());
    EXPECT_EQ(cboPath().Text(), "/");
}

TEST_F(EditingTest, TypingAValueChangesTheNode) {
    open(Sample);
    select("one\ntwo");
    type("three\r\nfour");
    EXPECT_EQ(state().m_DOM.documentElement().childNodes().item(1).text(), "three\nfour");
    EXPECT_EQ(selected(), "three\nfour");
    EXPECT_EQ(title(), "doc.xml * - Quillon XML Editor");
    EXPECT_TRUE(editor().history.CanUndo());
    EXPECT_EQ(txtEdit().Text(), "three\r\nfour");
    // Emptying the pane empties the caption and leaves the text.
    type("");
    EXPECT_EQ(selected(), "");
    EXPECT_EQ(state().m_DOM.documentElement().childNodes().item(1).text(), "three\nfour");

    select("k=\"v\nw\"");
    type("<\">");
    EXPECT_EQ(selected(), "k=\"<\">\"");
    EXPECT_TRUE(xml().contains("<a k='&lt;\"&gt;'/>"));
    const QString mark(QChar::ByteOrderMark);
    select("note");
    type(mark + "changed");
    EXPECT_EQ(state().m_DOM.node().childNodes().item(1).text(), mark + "changed");
    type("changed");
    select("raw");
    type("new ]]> raw");
    EXPECT_TRUE(xml().contains("<!--changed-->"));
    EXPECT_TRUE(xml().contains("<![CDATA[new ]]]]><![CDATA[> raw]]>"));
}

TEST_F(EditingTest, TypingMarkupReplacesTheElementInItsPlace) {
    open("<doc>\n\n  <a><x/></a>\n  <b/>\n</doc>");
    item("a").setExpanded(true);
    select("a");
    type("<a><x/");
    EXPECT_EQ(status(), "構文エラー");
    EXPECT_FALSE(state().m_Modified);
    EXPECT_EQ(xml(), "<doc>\n\n  <a><x/></a>\n  <b/>\n</doc>");
    type("<a2 n='1'>\r\n<x/></a2>");
    EXPECT_EQ(status(), "");
    EXPECT_EQ(xml(), "<doc>\n\n  <a2 n='1'>\n<x/></a2>\n  <b/>\n</doc>");
    EXPECT_EQ(selected(), "a2");
    EXPECT_EQ(captions(item("doc")), QStringList({"a2", "b"}));
    EXPECT_TRUE(item("a2").Expanded());
    EXPECT_EQ(txtEdit().Text(), "<a2 n='1'>\r\n<x/></a2>");
    EXPECT_FALSE(editor().builder.m_bNoSync);
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), "<doc>\n\n  <a><x/></a>\n  <b/>\n</doc>");
    EXPECT_EQ(selected(), "doc") << "the element before is another node";
}

TEST_F(EditingTest, TypingInTheRootElementKeepsWhatIsAroundIt) {
    const QByteArray before =
        "<?xml version='1.0'?>\r\n<!--a-->\r\n\r\n<doc><x/></doc>\r\n<!--b-->\r\n";
    open(before);
    select("doc");
    for (const char *text : {"<doc><x/>1</doc>", "<doc><x/>12</doc>"})
        type(text);
    editor().commands.SaveFile(path("doc.xml"));
    EXPECT_EQ(read("doc.xml"), QByteArray(before).replace("<x/>", "<x/>12"));
    EXPECT_EQ(selected(), "doc");
    EXPECT_TRUE(item("doc").Expanded());
    EXPECT_TRUE(tree().treeVisible());
    // From now on the tree asks for no preview.
    EXPECT_TRUE(editor().builder.m_bNoSync);
    editor().history.UndoCommand();
    EXPECT_TRUE(xml().contains("<doc><x/>1</doc>")) << "no state is without a root";
    editor().history.RedoCommand();
    EXPECT_TRUE(xml().contains("<doc><x/>12</doc>"));
}

TEST_F(EditingTest, TypingInTheDocumentReplacesItWhole) {
    write("doc.xml", "\xEF\xBB\xBF<doc>\r\n</doc>\r\n");
    ASSERT_TRUE(OpenFile(path("doc.xml")));
    select("#document");
    type("<!--new--><doc>\r\n<y/></doc>\r\n");
    EXPECT_EQ(captions(tree().nodes().Item(1)), QStringList({"new", "doc"}));
    EXPECT_TRUE(tree().nodes().Item(1).Expanded());
    EXPECT_EQ(selected(), "#document");
    type("no markup");
    EXPECT_EQ(status(), "構文エラー");
    EXPECT_TRUE(item("new"));
    state().m_DOM.save(path("doc.xml"));
    EXPECT_EQ(read("doc.xml"), "\xEF\xBB\xBF<!--new--><doc>\r\n<y/></doc>\r\n");
}

TEST_F(EditingTest, TypingKeepsWhatWasExpandedBelow) {
    const struct {
        const char *shown;
        const char *typed;
        /// In alphabetical order; the elements called c by the value of their k.
        const char *expanded;
    } cases[] = {
        {"#document", "<r><a><b>1</b></a><c k='1'/><c k='2'/></r>", "#document 2 a r"},
        {"#document", "<r><a><b/></a><c k='1'/><!--n--><c k='2'/></r>\n", "#document 2 a r"},
        {"#document", "<!--n--><s><a><b/></a><c k='1'/><c k='2'/></s>", "#document 2 a s"},
        {"r", "<r><a><b/></a><c k='1'/><c k='2'>1</c></r>", "#document 2 a r"},
        {"r", "<r><n/><a><b/></a><c k='1'/><c k='2'/></r>", "#document 2 a r"},
        {"r", "<r><a><b/></a><c k='1'/><n/><c k='2'/></r>", "#document 2 a r"},
        {"r", "<r><a><b/></a><c k='2'/></r>", "#document 2 a r"},
        {"r", "<r><c k='1'/><c k='2'/></r>", "#document 2 r"},
        {"a", "<aa><b/></aa>", "#document 2 aa r"},
        {"a", "<a><b/><b/></a>", "#document 2 a r"},
    };
    for (const auto &c : cases) {
        open("<r><a><b/></a><c k='1'/><c k='2'/></r>");
        for (const items::TreeItem &wanted : {item("a"), item("k=\"2\"").Parent()})
            items::TreeItem(wanted).setExpanded(true);
        select(c.shown);
        const auto found = [&] {
            QStringList names;
            tree().nodes().forEachExpanded([&](const items::TreeItem &at) {
                const xml::Node node = editor().selection.GetDOMNode(at);
                names.append(node.getAttribute("k").value_or(node.nodeName()));
            });
            names.sort();
            return names.join(' ').toStdString();
        };
        type(c.typed);
        EXPECT_EQ(status(), "") << c.typed;
        EXPECT_EQ(found(), c.expanded) << c.shown << " " << c.typed;
        editor().history.UndoCommand();
        EXPECT_EQ(found(), "#document");
        editor().history.RedoCommand();
        EXPECT_EQ(found(), c.expanded) << c.shown << " " << c.typed;
    }
}

TEST_F(EditingTest, TypingNeverGoesToAnItemThatThePaneDoesNotShow) {
    open("<doc><a>text</a><b/></doc>");
    select("text");
    // As a drag does that hovers over the tree.
    tree().setSelectedItem(item("b"));
    type("textx");
    EXPECT_EQ(xml(), "<doc><a>text</a><b/></doc>");
    EXPECT_EQ(txtEdit().Text(), "<b/>");
    type("<b>1</b>");
    EXPECT_EQ(xml(), "<doc><a>text</a><b>1</b></doc>");
}

TEST_F(EditingTest, KindsThatCannotBeEditedSaySo) {
    dialogs.answerMessage(ui::message_answer::Ok);
    open("<!DOCTYPE r [<!ENTITY e 'x'>]><r>&e;</r>");
    select("r");
    dialogs.answerMessage(ui::message_answer::Ok);
    select("e");
    EXPECT_EQ(dialogs.messages.back().text, "IXMLDOMEntityReference cannot modify");
    dialogs.answerMessage(ui::message_answer::Ok);
    type("y");
    EXPECT_EQ(dialogs.messages.back().text, "IXMLDOMEntityReference edit is not implemented yet");
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_FALSE(rename("y"));
    EXPECT_EQ(dialogs.messages.back().text,
              "IXMLDOMEntityReference labeledit is not implemented yet");
    dialogs.answerMessage(ui::message_answer::Ok);
    editor().removal.DeleteNode(item("e"));
    EXPECT_EQ(dialogs.messages.back().text, "IXMLDOMEntityReference cannot delete");
    EXPECT_FALSE(item("e"));
    EXPECT_TRUE(xml().contains("<r>&e;</r>"));
    EXPECT_TRUE(state().m_Modified);
}

TEST_F(EditingTest, AReferenceToAnEntityOfAnUnreadDtdStays) {
    open("<!DOCTYPE doc SYSTEM 'doc.dtd'>\n<doc href='&base;/&#x69;'/>");
    select("href=\"&base;/i\"");
    EXPECT_EQ(txtEdit().Text(), "&base;/i");
    EXPECT_TRUE(rename("src"));
    EXPECT_TRUE(xml().endsWith("<doc src='&base;/&#x69;'/>"));
    for (const char *text : {"&bas;/j", "&base;/j"})
        type(text);
    EXPECT_TRUE(xml().endsWith("<doc src='&base;/j'/>"));
    editor().history.UndoCommand();
    EXPECT_TRUE(xml().endsWith("<doc src='&amp;bas;/j'/>"));
    editor().history.RedoCommand();
    select("src=\"&base;/j\"");
    type("&base;&base;");
    EXPECT_TRUE(xml().endsWith("<doc src='&base;&base;'/>"));
}

TEST_F(EditingTest, TextBecomesNodes) {
    const struct {
        QString text;
        const char *inserted;
    } cases[] = {
        {"<x y='1'><z/></x>", "<x y='1'><z/></x>"},
        {"<?xml version='1.0'?><!--c--><x/>", "<x/>"},
        {"<!--note-->", "<!--note-->"},
        {"<!---->", "<!---->"},
        {"<![CDATA[a<b]]>", "<![CDATA[a<b]]>"},
        {"plain & text", "plain &amp; text"},
        {"<broken>", "&lt;broken&gt;"},
        {"", ""},
    };
    for (const auto &c : cases) {
        open("<doc>t</doc>");
        EXPECT_TRUE(paste("doc", c.text)) << c.text.toStdString();
        EXPECT_EQ(xml(), QByteArray("<doc>t") + c.inserted + "</doc>");
    }
    open("<doc><a/></doc>");
    EXPECT_FALSE(paste("doc", "<?pi x?>"));
    EXPECT_TRUE(paste("a", "id=\"v\"w\""));
    EXPECT_EQ(xml(), "<doc><a id=\"v&quot;w\"/></doc>");
    EXPECT_TRUE(paste("a", "id=\"2\"")) << "a second item while captions show values";
    EXPECT_EQ(xml(), "<doc><a id=\"2\"/></doc>");
    // What looks like an attribute must have a name that is valid.
    EXPECT_ANY_THROW(paste("a", "not a name=\"1\""));
    EXPECT_TRUE(paste("a", "<![CDATA[x=\"1\"]]>"));
    EXPECT_FALSE(paste("id=\"2\"", "<x/>"));
    EXPECT_FALSE(paste("#document", "text"));
    EXPECT_TRUE(paste("#document", "<!--c-->"));
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_FALSE(paste("#document", "<second/>"));
    EXPECT_EQ(dialogs.messages.back().text, "ルート要素がすでに存在します。");
    EXPECT_EQ(xml(), "<doc><a id=\"2\"><![CDATA[x=\"1\"]]></a></doc>\n<!--c-->");
    EXPECT_FALSE(editor().nodeInsertion.InsertNodeFromText({}, "<x/>"));
}

TEST_F(EditingTest, AnElementMayReferToTheEntitiesOfTheDocument) {
    open("<!DOCTYPE r [<!ENTITY e 'x'>]><r><a>1&#38;</a><b/></r>");
    select("a");
    dialogs.answerMessage(ui::message_answer::Ok);
    type("<a>&e;2</a>");
    EXPECT_EQ(dialogs.messages.back().text, "IXMLDOMEntityReference is added to tree");
    EXPECT_EQ(xml(), "<!DOCTYPE r [<!ENTITY e 'x'>]><r><a>&e;2</a><b/></r>");
    EXPECT_TRUE(paste("b", "<c>&e;</c>"));
    EXPECT_EQ(xml(), "<!DOCTYPE r [<!ENTITY e 'x'>]><r><a>&e;2</a><b><c>&e;</c></b></r>");
    select("b");
    type("<b>&other;</b>");
    EXPECT_EQ(status(), "構文エラー");
    // Nor does a document type that comes along and stays outside.
    for (const char *markup : {"<!DOCTYPE b [<!ENTITY o 'y'>]><b>&o;</b>",
                               "<!DOCTYPE b [<!ENTITY o 'y'>]><b k='&o;'/>"}) {
        const QByteArray before = xml();
        type(markup);
        EXPECT_EQ(status(), "構文エラー");
        EXPECT_EQ(xml(), before);
        EXPECT_TRUE(paste("b", markup));
        EXPECT_EQ(state().m_DOM.documentElement().lastChild().lastChild().nodeName(), "#text");
    }
    type("<!DOCTYPE b [<!ENTITY e 'y'>]><b>&e;</b>");
    EXPECT_EQ(xml(), "<!DOCTYPE r [<!ENTITY e 'x'>]><r><a>&e;2</a><b>&e;</b></r>");
}

TEST_F(EditingTest, TheValueOfAnAddedAttributeIsKept) {
    open("<r/>");
    select("r");
    editor().creation.mnuNodeAddAttribute_Click();
    type("value");
    select("r");
    select("Attribute1=\"value\"");
    EXPECT_EQ(txtEdit().Text(), "value");
    EXPECT_TRUE(rename("name"));
    EXPECT_EQ(xml(), "<r name=\"value\"/>");
}

TEST_F(EditingTest, ItemsInAnotherOrderThanTheirNodesDoNotMove) {
    open("<r><a/><b/></r>");
    select("r");
    ASSERT_TRUE(rename("s"));
    ASSERT_EQ(xml(), "<s><b/><a/></s>");
    select("a");
    editor().nodeCommands.mnuNodeMoveUp_Click();
    EXPECT_EQ(xml(), "<s><b/><a/></s>") << "its item is the first";
}

} // namespace

} // namespace quillon::test
