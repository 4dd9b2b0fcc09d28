#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
#include "tests/support/headless_editor.h"
#include "tree/node_mime_data.h"

#include <QMimeData>

namespace quillon::test {

namespace {

class NodeTransfer : public HeadlessEditor {
protected:
    /// Copies the node with a caption in one document and pastes it in another, or the same.
    void copyAndPaste(const QByteArray &from, const QString &caption, const QByteArray &to,
                      const QString &target) {
        open(from, "from.xml");
        select(caption);
        editor().nodeCommands.mnuEditCopy_Click();
        open(to, "to.xml");
        select(target);
        editor().nodeCommands.mnuEditPaste_Click();
    }
    /// The document without the layout that a node gets at its new place.
    std::string flat() { return xml().replace("\n  ", "").replace("\n", "").toStdString(); }
    void offer(const QByteArray &packed, const QString &text) {
        auto data = std::make_unique<QMimeData>();
        data->setText(text);
        data->setData(tree::NodeFormat, packed);
        clipboard.setMimeData(std::move(data));
    }
};

TEST_F(NodeTransfer, ANodeArrivesAsWhatItWas) {
    editor().options.viewText = false;
    const struct {
        const char *from, *caption, *result;
    } cases[] = {
        {"<r><e k='v &amp; w&#10;'/></r>", "k", "<r k='v &amp; w&#10;'/>"},
        {"<r>a &lt; &amp;amp; &#x41;</r>", "#text", "<r>a &lt; &amp;amp; &#x41;</r>"},
        {"<r>x=\"y\"</r>", "#text", "<r>x=\"y\"</r>"},
        {"<r>&lt;e/></r>", "#text", "<r>&lt;e/></r>"},
        {"<r> blanks </r>", "#text", "<r> blanks </r>"},
        {"<r>&#32;</r>", "#text", "<r>&#32;</r>"},
        {"<r>\xEF\xBB\xBFt</r>", "#text", "<r>\xEF\xBB\xBFt</r>"},
        {"<r><![CDATA[k=\"v\"<&]]></r>", "#cdata-section", "<r><![CDATA[k=\"v\"<&]]></r>"},
        {"<r><!--k=\"v\"--></r>", "#comment", "<r><!--k=\"v\"--></r>"},
        {"<r><e  k='&gt;' ><f></f></e></r>", "e", "<r><e  k='&gt;' ><f></f></e></r>"},
        // Instructions and the document type are refused.
        {"<r><?p k=\"v\"?></r>", "p", "<r/>"},
        {"<?p k=\"v\"?><r/>", "p", "<r/>"},
        {"<!DOCTYPE d [<!ENTITY k \"v\">]><r/>", "d", "<r/>"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.from);
        copyAndPaste(c.from, c.caption, "<r/>", "r");
        EXPECT_EQ(flat(), c.result);
        state().m_Modified = false;
    }
    copyAndPaste("<r>\xEF\xBB\xBFt</r>", "#text", "<r/>", "r");
    EXPECT_EQ(clipboard.text(), QChar(0xFEFF) + QString("t"));
}

TEST_F(NodeTransfer, NamespacesComeAlongWhereTheyAreNeeded) {
    editor().options.viewText = false;
    const QByteArray scope = "<r xmlns='d' xmlns:a='u' xmlns:b='w' xmlns:c='z'>"
                             "<a:e><f b:k='1' t='a:T'/></a:e><g a:k='2'/><h xmlns='' n='zc:'/></r>";
    const struct {
        const char *caption, *to, *result;
    } cases[] = {
        // What is declared alike at the new place is not repeated.
        {"a:e", "<r xmlns='d' xmlns:b='w'><t xmlns:a='u'/></r>",
         "<r xmlns='d' xmlns:b='w'><t xmlns:a='u'><a:e><f b:k='1' t='a:T'/></a:e></t></r>"},
        {"a:e", "<t xmlns:b='other'/>",
         "<t xmlns:b='other'><a:e xmlns=\"d\" xmlns:a=\"u\" xmlns:b=\"w\">"
         "<f b:k='1' t='a:T'/></a:e></t>"},
        // It keeps out of a namespace that it was not in.
        {"h", "<t xmlns='d'/>", "<t xmlns='d'><h xmlns='' n='zc:'/></t>"},
        {"a:k", "<t/>", "<t a:k='2' xmlns:a=\"u\"/>"},
        {"a:k", "<t xmlns:a='other'/>", "<t xmlns:a='other' a:k='2'/>"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.caption << " to " << c.to);
        copyAndPaste(scope, c.caption, c.to, "t");
        EXPECT_EQ(flat(), c.result);
        state().m_Modified = false;
    }
    copyAndPaste("<r><e/></r>", "e", "<t xmlns='d'/>", "t");
    EXPECT_EQ(flat(), "<t xmlns='d'><e xmlns=\"\"/></t>");

    // Other programs get an element that can be read on its own; the pane shows it as it is.
    open(scope);
    select("a:e");
    EXPECT_EQ(txtEdit().utf8(), "<a:e><f b:k='1' t='a:T'/></a:e>");
    editor().nodeCommands.mnuEditCopy_Click();
    EXPECT_EQ(clipboard.text(),
              "<a:e xmlns=\"d\" xmlns:a=\"u\" xmlns:b=\"w\"><f b:k='1' t='a:T'/></a:e>");
}

TEST_F(NodeTransfer, EntitiesMustStandForTheSame) {
    const QByteArray declared = "<!DOCTYPE r [<!ENTITY co \"A &amp; B\"><!ENTITY other \"x\">]>";
    const QByteArray from = declared + "<r><e k='&co;'>by &co;.</e></r>";
    for (const QByteArray &entity : {QByteArray("\"A &amp; B\""), QByteArray("\"C\"")}) {
        const QByteArray head = "<!DOCTYPE d [<!ENTITY co " + entity + ">]>";
        const bool alike = !entity.contains('C');
        // The reference is told of as it is shown in the tree, and the refusal.
        for (int box = 0; box < (alike ? 2 : 1); ++box)
            dialogs.answerMessage(ui::message_answer::Ok);
        const size_t before = dialogs.messages.size();
        open(from, "from.xml");
        select("e");
        editor().nodeCommands.mnuEditCopy_Click();
        open(head + "<t/>", "to.xml");
        select("t");
        if (alike) {
            editor().nodeCommands.mnuEditPaste_Click();
            EXPECT_EQ(flat(), head.toStdString() + "<t><e k='&co;'>by &co;.</e></t>");
            EXPECT_EQ(dialogs.messages.size(), before + 2);
        } else {
            EXPECT_THROW(editor().nodeCommands.mnuEditPaste_Click(), runtime::Error);
            EXPECT_EQ(flat(), head.toStdString() + "<t/>");
        }
        state().m_Modified = false;
    }
}

TEST_F(NodeTransfer, WhatOnlyClaimsToBeOursGoesByItsText) {
    const QByteArray scope = "<scope/>";
    const auto root = [](const QByteArray &kind, const QByteArray &inside) {
        return "<quillon-node version=\"1\" kind=\"" + kind + "\">" + inside + "</quillon-node>";
    };
    const QByteArray bad[] = {
        "",
        "<quillon-node",
        "<other/>",
        "<quillon-node version=\"1\"/>",
        "<quillon-node kind=\"IXMLDOMElement\"><scope/><content><e/></content></quillon-node>",
        root("IXMLDOMElement", scope),
        root("IXMLDOMElement", scope + "<content/>"),
        root("IXMLDOMElement", scope + "<content><e/><f/></content>"),
        root("IXMLDOMElement", scope + "<content>text</content>"),
        root("IXMLDOMElement", scope + "<content><e/></content><more/>"),
        root("IXMLDOMElement", "<scope k=\"v\"/><content><e/></content>"),
        root("IXMLDOMAttribute", scope + "<content k=\"v\" l=\"w\"/>"),
        root("IXMLDOMCDATASection", scope + "<content>text</content>"),
        root("IXMLDOMText", scope + "<content>text<e/></content>"),
        root("DOMDocument", scope + "<content><e/></content>"),
    };
    open("<r/>");
    for (const QByteArray &packed : bad) {
        SCOPED_TRACE(packed.constData());
        select("r");
        offer(packed, "<seen/>");
        editor().nodeCommands.mnuEditPaste_Click();
        EXPECT_EQ(flat(), "<r><seen/></r>");
        editor().history.UndoCommand();
    }
    // The same parts in their places are taken.
    offer(root("IXMLDOMElement", scope + "<content><e/></content>"), "<seen/>");
    select("r");
    editor().nodeCommands.mnuEditPaste_Click();
    EXPECT_EQ(flat(), "<r><e/></r>");
    // Another program has replaced the text.
    clipboard.setText("<later/>");
    select("r");
    editor().nodeCommands.mnuEditPaste_Click();
    EXPECT_EQ(flat(), "<r><e/><later/></r>");
}

TEST_F(NodeTransfer, TheRulesForWhereNodesStandHold) {
    editor().options.viewText = false;
    // Told of, and refused.
    dialogs.answerMessage(ui::message_answer::Ok);
    copyAndPaste("<r><e/></r>", "e", "<t/>", "#document");
    EXPECT_EQ(flat(), "<t/>");
    copyAndPaste("<r>text</r>", "#text", "<t/>", "#document");
    EXPECT_EQ(flat(), "<t/>");
    copyAndPaste("<r k='1'/>", "k", "<t k='2'/>", "k");
    EXPECT_EQ(flat(), "<t k='2'/>");
}

} // namespace

} // namespace quillon::test
