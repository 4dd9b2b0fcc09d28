#include "tests/validation/live_fixture.h"

#include <QSignalSpy>

namespace quillon::test {

namespace {

const QByteArray Valid = R"(<orders>
  <order id="1" state="open"><item>a</item><total>1</total></order>
  <order id="2"><item>b</item><total>2</total></order>
</orders>)";

TEST_F(Live, FaultsComeAndGoWithTheEdit) {
    open(Valid);
    useSchema(Orders);
    waitForChecks();
    EXPECT_EQ(found(), "");

    typeAt("/orders/order[1]", "<order state='lost'><item>a</item></order>");
    waitForChecks();
    const std::string faulty = "/orders/order[1]: content | /orders/order[1]: attributes | "
                               "/orders/order[1]/@state: value";
    EXPECT_EQ(found(), faulty);
    EXPECT_EQ(live().faults()[1].sentence, "要素 'order' に必須の属性 'id' がありません。");
    typeAt("/orders/order[2]", "<order id='2'><total>2</total><item>b</item></order>");
    waitForChecks();
    EXPECT_EQ(found(), faulty + " | /orders/order[2]: content | /orders/order[2]/total: content");

    editor().history.UndoCommand();
    waitForChecks();
    EXPECT_EQ(found(), faulty);
    editor().history.UndoCommand();
    waitForChecks();
    EXPECT_EQ(found(), "");
    editor().history.RedoCommand();
    waitForChecks();
    EXPECT_EQ(found(), faulty);
}

TEST_F(Live, OnlyWhatAnEditTouchesIsLookedAtBeforeTheWholeDocument) {
    // The verdict says the opposite of the grammar, so that it can be told who has spoken.
    open("<orders><order id='1'/><order/></orders>");
    useSchema(Orders, [](const xml::DOMDocument40 &document) {
        xml::SchemaError error;
        error.errorCode = xml::schema_error::InvalidDatatype;
        error.reason = "engine\nsays";
        error.node = document.documentElement().lastChild();
        return std::vector{error};
    });
    waitForChecks();
    EXPECT_EQ(found(), "/orders/order[1]: content | /orders/order[2]: content | "
                       "/orders/order[2]: attributes | /orders/order[2]: value");
    EXPECT_EQ(live().faults().back().sentence, "engine says");
    // Followed in the first slice, ahead of any child.
    QSignalSpy followed(&live(), &validation::LiveValidation::followed);
    nodeAt("/orders/order[2]").removeAttribute("none");
    state().m_DOM.documentElement().removeChild(nodeAt("/orders/order[1]"));
    live().documentChanged();
    ASSERT_TRUE(followed.wait(Patience));
    EXPECT_EQ(found(), "/orders/order: content | /orders/order: attributes | /orders/order: value");
    waitForChecks();
}

TEST_F(Live, TheVerdictDecidesWhetherThereIsAnyFault) {
    open("<orders><order/></orders>");
    useSchema(Orders, [](const xml::DOMDocument40 &) { return std::vector<xml::SchemaError>(); });
    waitForChecks();
    EXPECT_EQ(found(), "");
    useSchema(Orders, [](const xml::DOMDocument40 &) -> std::vector<xml::SchemaError> {
        throw runtime::Error(runtime::error_number::Fail, "no verdict");
    });
    waitForChecks();
    EXPECT_EQ(live().faults().size(), 2U) << "what the grammar knows";
    // One thing is told once, whether the engine names the parent or the child.
    open("<orders><order id='1'><total>1</total></order></orders>");
    useSchema(Orders, [](const xml::DOMDocument40 &document) {
        xml::SchemaError error;
        error.errorCode = xml::schema_error::IncompleteContent;
        error.node = document.documentElement().firstChild();
        return std::vector{error};
    });
    waitForChecks();
    EXPECT_EQ(found(), "/orders/order/total: content");
}

TEST_F(Live, WhatIsBelowARenamedElementIsLookedAtAnew) {
    open("<a><b><c/></b></a>");
    useSchema("<!ELEMENT a (b|x)><!ELEMENT b (c)><!ELEMENT x (d)><!ELEMENT c EMPTY>"
              "<!ELEMENT d EMPTY>",
              {}, "a.dtd");
    waitForChecks();
    EXPECT_EQ(found(), "");
    QString name = "x";
    editor().labels.tvw_AfterLabelEdit(item("b"), name);
    QSignalSpy followed(&live(), &validation::LiveValidation::followed);
    ASSERT_TRUE(followed.wait(Patience));
    EXPECT_EQ(found(), "/a/x/c: content");
    waitForChecks();
    EXPECT_EQ(found(), "/a/x/c: content");
}

TEST_F(Live, TextThatIsNoXmlIsMarkedAtTheCause) {
    open("<a><b>1</b></a>");
    select("b");
    type("<b>\n1</c>");
    waitForChecks();
    ASSERT_EQ(found(), "/a/b: syntax");
    EXPECT_TRUE(live().faults()[0].sentence.startsWith("構文エラー（2 行 "))
        << live().faults()[0].sentence.toStdString();
    editor().paneMarks.mark();
    ASSERT_EQ(txtEdit().marks.size(), 1U);
    EXPECT_TRUE(txtEdit().marks[0].isBroken);
    EXPECT_EQ(txtEdit().utf8().mid(txtEdit().marks[0].at), "</c>");
    type("<b/>");
    waitForChecks();
    EXPECT_EQ(found(), "");
    editor().paneMarks.mark();
    EXPECT_TRUE(txtEdit().marks.empty());
}

TEST_F(Live, MarksInThePaneStandAtNamesAndAttributes) {
    open("<orders><!--<order>--><order id='1' state='lost'><item>a</item><total>1</total>"
         "<extra/></order></orders>");
    useSchema(Orders);
    waitForChecks();
    select("orders");
    editor().paneMarks.mark();
    QStringList marked;
    for (const ui::TextMark &mark : txtEdit().marks)
        marked << txtEdit().utf8().mid(mark.at, mark.length);
    EXPECT_EQ(marked, (QStringList{"state='lost'", "extra"}));
    select("state=\"lost\"");
    editor().paneMarks.mark();
    ASSERT_EQ(txtEdit().marks.size(), 1U);
    EXPECT_EQ(txtEdit().marks[0].length, 4) << "all of the value";
}

TEST_F(Live, ItemsAreMarkedAndWhatIsAboveThem) {
    open("<orders><order id='1' state='lost'><item>a</item><total>1</total></order></orders>");
    useSchema(Orders);
    waitForChecks();
    const items::Nodes &nodes = tree().nodes();
    using items::Mark;
    const items::TreeItem order = item("order");
    EXPECT_EQ(nodes.mark(order), Mark::None);
    EXPECT_EQ(nodes.markBelow(order), Mark::Invalid);
    EXPECT_EQ(nodes.markBelow(nodes.item(1)), Mark::Invalid) << "the document's";
    EXPECT_EQ(nodes.mark(item("state=\"lost\"")), Mark::Invalid);
    EXPECT_EQ(nodes.markReasons(item("state=\"lost\"")), live().faults()[0].sentence);
    EXPECT_EQ(nodes.markBelow(item("item")), Mark::None);
    // An attribute that is added has an item for a copy of it.
    editor().builder.AddAttributeToTree(
        order,
        *[&] {
            static xml::Node attribute;
            attribute = state().m_DOM.createAttribute("extra");
            return &attribute;
        }(),
        false);
    live().documentChanged();
    waitForChecks();
    const items::TreeItem added = item("extra=\"\"");
    ASSERT_TRUE(added);
    EXPECT_EQ(nodes.mark(added), Mark::Invalid);
}

TEST_F(Live, TheListFollowsAndKeepsItsPlace) {
    open("<orders><order/><order id='1'/><order/></orders>");
    useSchema(Orders);
    waitForChecks();
    const search::HitList &list = editor().faults;
    ASSERT_EQ(list.rowCount(), 5);
    EXPECT_EQ(list.row(1).text, "要素 'order' に必須の属性 'id' がありません。");
    editor().faultNavigation.goTo(2);
    EXPECT_EQ(tree().SelectedItem(), editor().builder.itemOf(nodeAt("/orders/order[2]")));
    const QString path = list.row(2).path;
    nodeAt("/orders/order[1]").setAttribute("id", "0");
    live().documentChanged();
    waitForChecks();
    EXPECT_EQ(list.rowCount(), 4);
    EXPECT_EQ(list.row(list.currentRow()).path, path);
    editor().faultNavigation.mnuViewNextHit_Click();
    EXPECT_EQ(list.currentRow(), 2);
}

TEST_F(Live, NothingIsLeftWhenItIsSwitchedOffOrTheDocumentGoes) {
    open("<orders><order/></orders>");
    useSchema(Orders);
    waitForChecks();
    EXPECT_EQ(live().faults().size(), 2U);
    live().setOn(false);
    EXPECT_EQ(found(), "");
    typeAt("/orders/order", "<order id='1'/>");
    waitForChecks();
    EXPECT_EQ(found(), "");
    live().setOn(true);
    waitForChecks();
    EXPECT_EQ(live().faults().size(), 1U);
    // While the child is at work, too.
    live().documentChanged();
    editor().commands.ClearStatus();
    waitForChecks();
    EXPECT_EQ(found(), "");
    open("<other/>", "other.xml");
    live().setSchemas({}, {});
    waitForChecks();
    EXPECT_EQ(found(), "");
}

} // namespace

} // namespace quillon::test
