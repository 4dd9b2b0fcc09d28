#include "app/main_window/result_panel.h"
#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

namespace quillon::test {

namespace {

/// The panel with the hits, in a window.
class ResultPanel : public EditorWindow {
protected:
    ResultPanel() {
        form->show();
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get(), Patience));
    }

    app::ResultPanel &panel() { return *form->findChild<app::ResultPanel *>("resultPanel"); }
    controls::RowTable &table() { return *panel().findChild<controls::RowTable *>("hitTable"); }
    QPushButton &offer() { return *form->findChild<QPushButton *>("hitsButton"); }
    void query(const QString &path) {
        select("r");
        cboPath().setText(path);
        editor().pathQuery.SelectByPath();
    }
    QString cell(int row, int column) {
        return table().model()->index(row, column).data().toString();
    }
    QString selected() { return tree().SelectedItem().Text(); }
    void click(int row, bool twice = false) {
        const QPoint at = table().visualRect(table().model()->index(row, 1)).center();
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, at);
        if (twice)
            QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, at);
    }
    void press(QStringView accessibleName) {
        for (QToolButton *button : panel().findChildren<QToolButton *>()) {
            if (button->accessibleName() == accessibleName)
                return button->click();
        }
        FAIL() << accessibleName.toUtf8().data();
    }
};

constexpr auto Sample = "<r><a>one</a><b k='2'>two</b><a>three</a></r>";

TEST_F(ResultPanel, IsOfferedAndOpensOnlyWhenAsked) {
    open(Sample);
    EXPECT_FALSE(offer().isVisible());
    query("a");
    EXPECT_FALSE(panel().isVisible());
    EXPECT_EQ(status(), "2件検索されました。");
    EXPECT_TRUE(tvw().hasFocus());
    EXPECT_EQ(offer().text(), "検索結果: 2 件(&R)");
    offer().click();
    EXPECT_TRUE(table().hasFocus());
    EXPECT_FALSE(offer().isVisible());
    EXPECT_EQ(table().currentIndex().row(), 0) << "where the query has led";
    EXPECT_EQ(panel().findChild<QTabBar *>()->tabText(0), "検索結果 (2)");
    EXPECT_EQ(cell(1, 0) + cell(1, 1) + ' ' + cell(1, 2), "要素/r/a[2] <a> three");
    QTest::keyClick(&table(), Qt::Key_Escape);
    EXPECT_FALSE(panel().isVisible());
    EXPECT_TRUE(tvw().hasFocus()) << "who had the keyboard before";
    EXPECT_TRUE(offer().isVisible());
    editor().commands.ClearStatus();
    EXPECT_FALSE(offer().isVisible());
}

TEST_F(ResultPanel, LeadsToNodesAndPlaces) {
    open(Sample);
    panel().open();
    query("//text()");
    EXPECT_TRUE(tvw().hasFocus());
    click(1);
    EXPECT_EQ(selected(), "two");
    EXPECT_TRUE(table().hasFocus() || !table().isActiveWindow()) << "one click goes and stays";
    QTest::keyClick(&table(), Qt::Key_Down);
    EXPECT_EQ(selected(), "two");
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_EQ(selected(), "three");
    EXPECT_TRUE(tvw().hasFocus());
    cboPath().setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4);
    EXPECT_TRUE(cboPath().view()->isVisible()) << "there the key opens the list";
    EXPECT_EQ(selected(), "three");
    cboPath().hidePopup();
    QTest::keyClick(&tvw(), Qt::Key_F4, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "two");
    EXPECT_EQ(table().currentIndex().row(), 1) << "the table follows the keys";

    dialogs.answerInput("t*");
    editor().captionSearch.mnuEditFind_Click();
    click(0, true);
    EXPECT_TRUE(txtEdit().hasFocus()) << "the place is in the pane";
    EXPECT_EQ(txtEdit().SelLength(), 3);
}

TEST_F(ResultPanel, SortsByItsColumnsAndBack) {
    open("<r><b>2</b><a>1</a><b>3</b></r>");
    panel().open();
    query("*");
    const auto paths = [&] { return cell(0, 1) + cell(1, 1) + cell(2, 1); };
    QHeaderView &head = *table().horizontalHeader();
    const auto clickHead = [&](int column) {
        QTest::mouseClick(head.viewport(), Qt::LeftButton, {},
                          QPoint(head.sectionViewportPosition(column) + 20, 5));
    };
    EXPECT_EQ(paths(), "/r/b[1]/r/a/r/b[2]");
    clickHead(1);
    EXPECT_EQ(paths(), "/r/a/r/b[1]/r/b[2]");
    clickHead(1);
    EXPECT_EQ(paths(), "/r/b[1]/r/b[2]/r/a");
    clickHead(1);
    EXPECT_EQ(paths(), "/r/b[1]/r/a/r/b[2]") << "the order of the document";
    clickHead(2);
    query("*");
    EXPECT_EQ(head.sortIndicatorSection(), -1) << "other hits come in document order";
}

TEST_F(ResultPanel, ItsRowsCanBeCopiedAndSaved) {
    open("<r><a>x\ty</a><b k='2'/></r>");
    panel().open();
    query("* | */@*");
    press(u"一覧の行をコピー");
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              "要素\t/r/a\t<a> x y\n要素\t/r/b\t<b k=\"2\">\n属性\t/r/b/@k\tk=\"2\"\n");
    EXPECT_EQ(status(), "3 行をコピーしました。");
    click(2);
    QTest::keyClick(&table(), Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              "要素\t/r/b\t<b k=\"2\">\n属性\t/r/b/@k\tk=\"2\"\n");
    dialogs.answerFile({path("rows.tsv"), 0});
    press(u"一覧をファイルに保存");
    EXPECT_EQ(read("rows.tsv"), "\xef\xbb\xbf種類\tパス\tテキスト\r\n"
                                "要素\t/r/b\t<b k=\"2\">\r\n属性\t/r/b/@k\tk=\"2\"\r\n");
    dialogs.answerFile({});
    press(u"一覧をファイルに保存");
}

TEST_F(ResultPanel, ShowsChangesWithTicksAndWhatStandsAgainstThem) {
    open(Sample);
    panel().open();
    search::Hits list{search::HitSource::Text, "o", {}};
    for (xml::Node at = state().m_DOM.documentElement().firstChild(); at; at = at.nextSibling())
        list.hits.push_back({at.number(), search::Part::Name, 0, 1});
    list.changes = {{"x"}, {"1", "名前になりません。"}, {"y"}};
    editor().hits.show(list);
    ASSERT_EQ(table().model()->columnCount(), 5);
    EXPECT_EQ(cell(0, 2) + '>' + cell(0, 3), "a>x");
    EXPECT_EQ(cell(1, 4), "名前になりません。");
    const auto checks = [&] {
        QString states;
        for (int row = 0; row < 3; ++row) {
            const QModelIndex at = table().model()->index(row, 0);
            states += at.flags().testFlag(Qt::ItemIsUserCheckable) ? 'u' : '-';
            states += at.data(Qt::CheckStateRole).toInt() == Qt::Checked ? '#' : '.';
        }
        return states;
    };
    EXPECT_EQ(checks(), "u#-.u#");
    table().setCurrentIndex(table().model()->index(0, 0));
    QTest::keyClick(&table(), Qt::Key_Space);
    EXPECT_EQ(checks(), "u.-.u#");
    query("a");
    EXPECT_EQ(table().model()->columnCount(), 3);
}

TEST_F(ResultPanel, FollowsTheDocumentWhenIdle) {
    open(Sample);
    panel().open();
    query("a");
    select("three");
    type("other");
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(1, 2) == "<a> other"; }, Patience));
    select("a");
    editor().nodeCommands.mnuEditCut_Click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return table().model()->rowCount() == 1; }, Patience));
    EXPECT_EQ(panel().findChild<QTabBar *>()->tabText(0), "検索結果 (1)");
}

TEST_F(ResultPanel, ItsHeightAndWhetherItIsShownAreRemembered) {
    panel().open();
    const int height = 123;
    QCoreApplication::processEvents();
    form->resizeDocks({&panel()}, {height}, Qt::Vertical);
    ASSERT_TRUE(QTest::qWaitFor([&] { return panel().height() == height; }, Patience));
    form->close();
    form.release();
    form = std::make_unique<app::frmMain>(environment());
    form->show();
    EXPECT_TRUE(panel().isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel().height() == height; }, Patience));
    panel().shut();
    form->close();
    form.release();
    form = std::make_unique<app::frmMain>(environment());
    form->show();
    EXPECT_FALSE(panel().isVisible());
}

} // namespace

} // namespace quillon::test
