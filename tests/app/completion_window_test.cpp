#include "tests/support/editor_window.h"
#include "tests/support/patience.h"
#include "view/controls/proposal_list.h"

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QTest>

namespace quillon::test {

namespace {

const QByteArray Schema = R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
<xs:element name="list"><xs:complexType><xs:sequence>
<xs:element name="item" maxOccurs="unbounded"><xs:complexType>
<xs:attribute name="id" use="required"/>
<xs:attribute name="state"><xs:simpleType><xs:restriction base="xs:string">
<xs:enumeration value="new"/><xs:enumeration value="old"/>
</xs:restriction></xs:simpleType></xs:attribute>
</xs:complexType></xs:element>
<xs:element name="note" type="xs:string" minOccurs="0"/>
</xs:sequence></xs:complexType></xs:element></xs:schema>)";

class CompletionWindow : public EditorWindow {
protected:
    /// A window with a document whose schema is known, and an item selected and shown.
    void show(const QByteArray &children, const QString &caption) {
        write("list.xsd", Schema);
        editor().commands.openUnasked(
            write("list.xml", "<list xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                              "xsi:noNamespaceSchemaLocation=\"list.xsd\">" +
                                  children + "</list>"));
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get(), Patience));
        ASSERT_TRUE(QTest::qWaitFor(
            [this] { return editor().candidateFinder.grammar().has_value(); }, Patience));
        editor().builder.ExpandSubtree(tree().nodes().Item(1));
        select(caption);
        editor().selection.ShowNode(tree().SelectedItem(), true);
    }
    static QStringList shown(const controls::ProposalPopup *popup) {
        QStringList names;
        for (int row = 0; popup && popup->isVisible() && row < popup->shownCount(); ++row)
            names += popup->view().model()->index(row, 0).data().toString();
        return names;
    }
};

TEST_F(CompletionWindow, WritesAnElementByKeysInOneStep) {
    show("<note/>", QStringLiteral("list"));
    txtEdit().setFocus();
    txtEdit().setSelStart(txtEdit().Text().indexOf(u"<note"));
    QTest::keyClicks(&txtEdit(), "<i");
    EXPECT_EQ(shown(txtEdit().proposalPopup()), QStringList("item"));
    QTest::keyClick(&txtEdit(), Qt::Key_Tab);
    QTest::keyClicks(&txtEdit(), "7");
    const auto children = [this] {
        const QByteArray all = xml();
        return all.mid(all.indexOf('>') + 1).toStdString();
    };
    EXPECT_EQ(children(), "<item id=\"7\"/><note/></list>");
    editor().history.UndoCommand();
    EXPECT_EQ(children(), "<item id=\"\"/><note/></list>");
    editor().history.UndoCommand();
    EXPECT_EQ(children(), "<note/></list>");
}

TEST_F(CompletionWindow, ListsNamesWhereACaptionIsEdited) {
    show("<item id=\"1\"/><note/>", QStringLiteral("note"));
    tvw().setFocus();
    QTest::keyClick(&tvw(), Qt::Key_F2);
    ASSERT_TRUE(tvw().isEditingLabel());
    auto *const line = tvw().findChild<QLineEdit *>();
    QTest::keyClick(line, Qt::Key_Space, Qt::ControlModifier);
    const auto *const popup = line->findChild<controls::ProposalPopup *>();
    EXPECT_EQ(shown(popup), QStringList({"item", "note"}));
    // Escape closes the list first, then the editor.
    QTest::keyClick(line, Qt::Key_Escape);
    EXPECT_EQ(shown(popup), QStringList());
    EXPECT_TRUE(tvw().isEditingLabel());
    QTest::keyClick(line, Qt::Key_Space, Qt::ControlModifier);
    QTest::keyClicks(line, "i");
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(line->text(), "item");
    EXPECT_TRUE(tvw().isEditingLabel());
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return xml().contains("<item/>"); }, Patience));
}

TEST_F(CompletionWindow, ListsTheValuesOfAnAttribute) {
    show("<item id=\"1\" state=\"new\"/>", QStringLiteral("state=\"new\""));
    EXPECT_TRUE(editor().completion.hasValues());
    form->mnuNodeChooseValue_Click();
    EXPECT_EQ(shown(txtEdit().proposalPopup()), QStringList({"new", "old"}));
    QTest::keyClick(&txtEdit(), Qt::Key_Down);
    QTest::keyClick(&txtEdit(), Qt::Key_Return);
    EXPECT_TRUE(xml().contains("state=\"old\""));
    editor().history.UndoCommand();
    EXPECT_TRUE(xml().contains("state=\"new\""));
}

TEST_F(CompletionWindow, ShowsTheDefinitionInAnotherWindow) {
    show("<item id=\"1\"/>", QStringLiteral("item"));
    const auto schemaWindows = [this] {
        std::vector<app::frmMain *> found;
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *const window = qobject_cast<app::frmMain *>(widget);
            if (window && window->editor().state.m_FileName == path("list.xsd"))
                found.push_back(window);
        }
        return found;
    };
    form->editor().explanation.mnuNodeDefinition_Click();
    ASSERT_EQ(schemaWindows().size(), 1U);
    app::frmMain *const window = schemaWindows().front();
    const auto selectedName = [&] {
        const xml::Node node = window->editor().selection.GetSelectedDOMNode();
        return node.getAttribute(QStringLiteral("name")).value_or(QString());
    };
    EXPECT_EQ(selectedName(), "item");
    // It is used again.
    select("list");
    form->editor().explanation.mnuNodeDefinition_Click();
    EXPECT_EQ(schemaWindows().size(), 1U);
    EXPECT_EQ(selectedName(), "list");
    delete window;
}

} // namespace

} // namespace quillon::test
