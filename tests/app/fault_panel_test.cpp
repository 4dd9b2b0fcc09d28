#include "app/main_window/result_panel.h"
#include "platform/xml/schema/grammar/load_grammar.h"
#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>

namespace quillon::test {

namespace {

/// What a window shows of what is wrong in its document.
class FaultPanel : public EditorWindow {
protected:
    FaultPanel() {
        form->show();
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get(), Patience));
        editor().schemas.disconnect();
    }

    void useDtd(const QByteArray &dtd) {
        const grammar::Grammar grammar = grammar::loadGrammar({.path = write("r.dtd", dtd)});
        editor().candidateFinder.setGrammar(grammar);
        editor().live.setSchemas(grammar, {});
        waitForChecks();
    }
    void waitForChecks() {
        ASSERT_TRUE(QTest::qWaitFor(
            [this] { return editor().live.isUpToDate() && !editor().paneSyntax.isChecking(); },
            Patience));
    }
    app::ResultPanel &panel() { return *form->findChild<app::ResultPanel *>("resultPanel"); }
    controls::RowTable &table() { return *panel().findChild<controls::RowTable *>("faultTable"); }
    QPushButton &button() { return *form->findChild<QPushButton *>("faultsButton"); }
    QString selected() { return tree().SelectedItem().Text(); }
    /// Opens the list of mends; its captions.
    QStringList mends() {
        form->mnuNodeMend_Click();
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QStringList captions;
        for (const QAction *action : menu ? menu->actions() : QList<QAction *>()) {
            if (action->isEnabled() && !action->isSeparator())
                captions << action->text();
        }
        return captions;
    }
};

const QByteArray Dtd = "<!ELEMENT r (a, b?)><!ELEMENT a (#PCDATA)><!ELEMENT b EMPTY>"
                       "<!ATTLIST b k CDATA #REQUIRED>";

TEST_F(FaultPanel, TheButtonCountsAndOpensTheList) {
    open("<r><a/><b/><c/></r>");
    EXPECT_FALSE(button().isVisible()) << "nothing is known";
    useDtd(Dtd);
    EXPECT_TRUE(button().isVisible());
    EXPECT_EQ(button().text(), "エラー 2 件");
    EXPECT_EQ(button().accessibleName(), button().text());
    QTest::mouseClick(&button(), Qt::LeftButton);
    ASSERT_TRUE(table().isVisible());
    EXPECT_TRUE(table().hasFocus());
    EXPECT_EQ(table().model()->index(0, 2).data().toString(),
              "要素 'b' に必須の属性 'k' がありません。");
    useDtd("<!ELEMENT r ANY><!ELEMENT a ANY><!ELEMENT b ANY><!ELEMENT c ANY>");
    EXPECT_EQ(button().text(), "エラーなし");
}

TEST_F(FaultPanel, LeadsFromOneToTheNextAndToItsMends) {
    open("<r><a/><b/><c/></r>");
    useDtd(Dtd);
    panel().openFaults();
    table().selectRow(0);
    EXPECT_EQ(mends(), QStringList{"属性 'k' を追加"});
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([this] { return form->isActiveWindow(); }, Patience));
    EXPECT_EQ(xml(), "<r><a/><b k=\"\"/><c/></r>");
    waitForChecks();
    EXPECT_EQ(button().text(), "エラー 1 件");
    form->mnuViewNextHit_Click();
    EXPECT_EQ(selected(), "c");
    tvw().setFocus();
    EXPECT_TRUE(mends().contains("要素 'c' を削除"));
    QApplication::activePopupWidget()->close();
    select("a");
    tvw().setFocus();
    EXPECT_EQ(mends(), QStringList());
    EXPECT_EQ(status(), "ここにエラーはありません。");
}

TEST_F(FaultPanel, ThePaneTellsWhatIsAtTheCaret) {
    open("<r><a/><b/></r>");
    useDtd(Dtd);
    select("r");
    editor().paneMarks.mark();
    txtEdit().setFocus();
    const auto at = txtEdit().Text().indexOf("b/");
    txtEdit().setSelStart(at);
    ASSERT_EQ(txtEdit().marksAtCaret().size(), 1U);
    txtEdit().setSelStart(0);
    EXPECT_TRUE(txtEdit().marksAtCaret().empty());
    txtEdit().setSelStart(at);
    EXPECT_EQ(mends(), QStringList{"属性 'k' を追加"});
    QApplication::activePopupWidget()->close();
    txtEdit().setText(QString("<r><b/></r>"));
    EXPECT_TRUE(txtEdit().marksAtCaret().empty()) << "text that is set anew has no marks";
}

TEST_F(FaultPanel, TextThatIsNoXmlIsToldAndMended) {
    open("<r>\n<a/>\n</r>");
    auto *label = form->findChild<QLabel *>("syntaxLabel");
    EXPECT_FALSE(label->isVisible());
    select("r");
    txtEdit().setText(QString("<r>\n<a>\n</r>"));
    waitForChecks();
    const QString told = "2 行 1 桁: <a> (2 行目) に対応する終了タグがありません。";
    EXPECT_EQ(status(), "構文エラー");
    EXPECT_TRUE(label->isVisible());
    EXPECT_EQ(label->text(), told);
    EXPECT_EQ(txtEdit().accessibleDescription(), told);

    tvw().setFocus();
    form->mnuViewNextHit_Click();
    EXPECT_TRUE(txtEdit().hasFocus());
    EXPECT_EQ(txtEdit().selectedText(), "<a");
    editor().paneMarks.mark();
    ASSERT_EQ(txtEdit().marksInLine(1).size(), 1U);
    EXPECT_TRUE(txtEdit().marksInLine(0).empty());
    EXPECT_TRUE(txtEdit().marksInLine(2).empty());

    const QStringList expected{"終了タグ </a> を挿入 (2 行目)", "<a> を空要素 <a/> に変更",
                               "開始タグ <a> (2 行目) を削除"};
    EXPECT_EQ(mends(), expected);
    QApplication::activePopupWidget()->close();
    // The same for the symbol in the margin.
    Q_EMIT txtEdit().SCN_MARGINCLICK(5, 0, 1);
    ASSERT_TRUE(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([this] { return form->isActiveWindow(); }, Patience));
    EXPECT_EQ(xml(), "<r>\n<a></a>\n</r>");
    EXPECT_FALSE(label->isVisible());
    EXPECT_EQ(txtEdit().accessibleDescription(), "");
}

TEST_F(FaultPanel, TheTreeSaysWhatIsMarked) {
    open("<r><a/><b/></r>");
    useDtd(Dtd);
    const auto description = [this](const QString &caption) {
        QAccessibleInterface *tree = QAccessible::queryAccessibleInterface(&tvw());
        const int row = tvw().rows().rowOf(this->tree().nodes().slotOf(item(caption)));
        return tree->child(row)->text(QAccessible::Description);
    };
    editor().builder.ExpandSubtree(tree().nodes().Item(1));
    EXPECT_TRUE(description("b").endsWith("要素 'b' に必須の属性 'k' がありません。"));
    EXPECT_FALSE(description("r").contains("エラー"));
    editor().builder.CollapseSubtree(item("r"));
    EXPECT_TRUE(description("r").endsWith("この中にエラーがあります"));
}

} // namespace

} // namespace quillon::test
