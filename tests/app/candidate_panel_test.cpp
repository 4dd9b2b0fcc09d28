#include "app/main_window/candidate_panel.h"
#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeView>

namespace quillon::test {

namespace {

const QByteArray Subset = "<!DOCTYPE r [<!-- doc: ルート --><!ELEMENT r (h?,(カード|item)*)>"
                          "<!ELEMENT h (#PCDATA)><!-- 札です。 --><!ELEMENT カード EMPTY>"
                          "<!ELEMENT item (h,(x|y))><!ELEMENT x EMPTY><!ELEMENT y EMPTY>"
                          "<!ATTLIST item k CDATA #REQUIRED l (p|q) 'q'>]>";

/// The panel with what may be inserted, in a window.
class CandidatePanel : public EditorWindow {
protected:
    CandidatePanel() {
        form->show();
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get(), Patience));
        tvw().setFocus();
    }

    /// Opens a document, and the panel, and waits for the schema.
    void openWith(const QByteArray &root) {
        open(Subset + root);
        editor().builder.ExpandSubtree(tree().nodes().Item(1));
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return editor().schemas.grammar().has_value(); }, Patience));
        QTest::keyClick(&tvw(), Qt::Key_F9);
        EXPECT_TRUE(filter().hasFocus());
    }
    app::CandidatePanel &panel() {
        return *form->findChild<app::CandidatePanel *>("candidatePanel");
    }
    QLineEdit &filter() { return *panel().findChild<QLineEdit *>("candidateFilter"); }
    QTreeView &list() { return *panel().findChild<QTreeView *>("candidateList"); }
    QTabBar &tabs() { return *panel().findChild<QTabBar *>("candidateTabs"); }
    QString details() { return panel().findChild<QTextEdit *>("candidateDetails")->toPlainText(); }
    QString rows() {
        QStringList names;
        for (int row = 0; row < list().model()->rowCount(); ++row)
            names.append(list().model()->index(row, 0).data().toString());
        return names.join(' ');
    }
    /// Waits for the list of a tab to be this one.
    void expectRows(int tab, const QString &expected) {
        tabs().setCurrentIndex(tab);
        EXPECT_TRUE(QTest::qWaitFor([&] { return rows() == expected; }, Patience))
            << rows().toStdString();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&filter(), key, modifiers);
    }
    /// The document type reads the same.
    void selectRoot() {
        const xml::Node root = state().m_DOM.documentElement();
        editor().selection.ShowNode(editor().builder.itemOf(root), true);
    }
    /// On one line.
    QByteArray root() {
        return state().m_DOM.documentElement().xml().replace("\n", "").replace("  ", "");
    }
};

TEST_F(CandidatePanel, ListsWhatMayStandAtTheSelectedNode) {
    openWith("<r><item/></r>");
    select("item");
    expectRows(0, "h ! x y");
    expectRows(1, "h カード item");
    expectRows(2, "カード item h");
    expectRows(3, "k ! l");
    EXPECT_EQ(tabs().tabText(0) + '|' + tabs().tabText(2), "子 (1) !|後 (2)");
    EXPECT_EQ(details(), "k\n必須、string");
    tabs().setCurrentIndex(2);
    EXPECT_EQ(details(), "カード\n空要素\n札です。") << "the first, whatever was chosen ahead";
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(details(), "h\nこの位置には置けません。\nテキスト");
    EXPECT_TRUE(filter().hasFocus());
    // What cannot be done is said, and not done.
    press(Qt::Key_Return);
    EXPECT_EQ(status(), "この位置には置けません。");
    EXPECT_EQ(root(), "<r><item/></r>");
    // Text has no children, and its element's attributes.
    editor().commands.mnuFileNew_Click();
    open("<a b='1'>t</a>");
    editor().builder.ExpandSubtree(tree().nodes().Item(1));
    select("t");
    expectRows(3, "b");
    expectRows(0, "");
    EXPECT_EQ(panel().findChild<QLabel *>("candidatesEmpty")->text(),
              "このノードに子は置けません。");
}

TEST_F(CandidatePanel, InsertsWithKeysAlone) {
    openWith("<r/>");
    selectRoot();
    expectRows(0, "h カード item");
    // Width and kind of kana do not matter.
    filter().setText(QStringLiteral("ｶｰ"));
    EXPECT_EQ(rows(), "カード");
    press(Qt::Key_Return);
    EXPECT_EQ(root(), "<r><カード/></r>");
    EXPECT_EQ(filter().text(), "");
    EXPECT_TRUE(filter().hasFocus()) << "there is nothing to be typed";
    press(Qt::Key_PageDown, Qt::ControlModifier);
    press(Qt::Key_PageDown, Qt::ControlModifier);
    expectRows(2, "カード item h");
    press(Qt::Key_Down);
    dialogs.answerChoice(1);
    press(Qt::Key_Return);
    EXPECT_EQ(root(), "<r><カード/><item k=\"\"><h></h><y/></item></r>");
    editor().history.UndoCommand();
    EXPECT_EQ(root(), "<r><カード/></r>");
    selectRoot();
    expectRows(0, "カード item h");
    // Something with a text goes on in the pane.
    select(QStringLiteral("カード"));
    expectRows(1, "h カード item");
    press(Qt::Key_Return);
    EXPECT_TRUE(txtEdit().hasFocus());
    QTest::keyClicks(&txtEdit(), "T");
    EXPECT_EQ(root(), "<r><h>T</h><カード/></r>");
}

TEST_F(CandidatePanel, GivesTheKeyboardBackAndCloses) {
    openWith("<r/>");
    QTest::keyClicks(&filter(), "x");
    press(Qt::Key_Escape);
    EXPECT_EQ(filter().text(), "");
    EXPECT_TRUE(filter().hasFocus());
    press(Qt::Key_Escape);
    EXPECT_TRUE(tvw().hasFocus());
    EXPECT_TRUE(panel().isVisible());
    for (int parts = 0; parts < 3; ++parts)
        form->focusPart(+1);
    EXPECT_TRUE(filter().hasFocus());
    panel().findChild<QToolButton *>()->click();
    EXPECT_FALSE(panel().isVisible());
    EXPECT_TRUE(tvw().hasFocus());
}

TEST_F(CandidatePanel, HasItsListsInTheMenuOfTheTree) {
    openWith("<r><item/></r>");
    select("item");
    const auto entries = [&](QStringView name) {
        QMenu &menu = *form->actions().action(name)->menu();
        Q_EMIT menu.aboutToShow();
        QStringList texts;
        for (const QAction *entry : menu.actions()) {
            if (entry->isVisible())
                texts.append(entry->text());
        }
        return texts.join(' ');
    };
    EXPECT_EQ(entries(u"treeMenuChildren"), "h !");
    EXPECT_EQ(entries(u"treeMenuAhead"), "h カード item");
    EXPECT_EQ(entries(u"treeMenuBehind"), "カード item");
    EXPECT_EQ(entries(u"treeMenuAttributes"), "k ! l");
    form->actions().action(u"treeMenuAttributes")->menu()->actions().at(2)->trigger();
    EXPECT_EQ(root(), "<r><item l=\"q\"/></r>");
    selectRoot();
    EXPECT_EQ(entries(u"treeMenuBehind"), "(候補はありません)");
}

} // namespace

} // namespace quillon::test
