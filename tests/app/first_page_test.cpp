#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QCheckBox>
#include <QDropEvent>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QTest>
#include <QUrl>

namespace quillon::test {

namespace {

/// The window without a document.
class FirstPageTest : public EditorWindow {
protected:
    void show() {
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get(), Patience));
    }
    void openAnew() {
        form.reset();
        form = std::make_unique<app::frmMain>(environment());
        show();
    }
    QWidget &page() { return *form->findChild<QWidget *>("firstPage"); }
    bool isShown() { return page().isVisible(); }
    bool comes() {
        return QTest::qWaitFor([this] { return isShown(); }, Patience);
    }
    QPushButton *link(const QString &name) {
        for (QPushButton *button : page().findChildren<QPushButton *>()) {
            if (button->accessibleName().startsWith(name) && !button->isHidden())
                return button;
        }
        return nullptr;
    }
    int paneHeight() { return form->findChild<QSplitter *>("hsp")->sizes().value(0); }
};

TEST_F(FirstPageTest, GoesWithTheFirstDocumentAndComesBack) {
    show();
    EXPECT_TRUE(isShown());
    EXPECT_TRUE(txtEdit().isHidden() || !txtEdit().isVisible());
    EXPECT_TRUE(link("新規作成")->hasFocus()) << "Enter begins a document";
    QTest::keyClick(link("新規作成"), Qt::Key_Space);
    EXPECT_TRUE(editor().state.m_DOM);
    EXPECT_FALSE(isShown());
    EXPECT_TRUE(txtEdit().isVisible());
    EXPECT_TRUE(tvw().hasFocus());

    auto &rows = *form->findChild<QSplitter *>("hsp");
    rows.setSizes({150, rows.height() - 150 - rows.handleWidth()});
    const int height = paneHeight();
    form->actions().action(u"mnuFileClose")->trigger();
    EXPECT_TRUE(comes());
    form->close();
    openAnew();
    open("<r/>");
    EXPECT_NEAR(paneHeight(), height, 2) << "the splitter is where the user has put it";
}

TEST_F(FirstPageTest, OpensRecentFilesAndKnowsThoseThatAreGone) {
    write("gone.xml", "<gone/>");
    write("kept.xml", "<kept/>");
    for (const char *name : {"kept.xml", "gone.xml"})
        editor().recentFiles.add(path(name));
    ASSERT_TRUE(QFile::remove(path("gone.xml")));
    openAnew();
    ASSERT_TRUE(isShown());
    ASSERT_NE(link("gone.xml"), nullptr);
    EXPECT_FALSE(link("gone.xml")->isEnabled());
    EXPECT_TRUE(link("gone.xml")->accessibleName().contains("見つかりません"));
    link("kept.xml")->click();
    EXPECT_EQ(xml(), "<kept/>");
    EXPECT_TRUE(title().startsWith("kept.xml - "));
    EXPECT_FALSE(isShown());
}

TEST_F(FirstPageTest, TakesDrops) {
    show();
    QWidget &viewport = *qobject_cast<QScrollArea *>(&page())->viewport();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(write("dropped.xml", "<dropped/>"))});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&viewport, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&viewport, &drop);
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_EQ(xml(), "<dropped/>");
    EXPECT_FALSE(isShown());
}

TEST_F(FirstPageTest, StaysAwayWhenItIsNotWanted) {
    show();
    form->findChild<QCheckBox *>("firstPageAgain")->click();
    EXPECT_TRUE(isShown()) << "it can be thought over";
    form->close();
    openAnew();
    EXPECT_FALSE(isShown());
    EXPECT_TRUE(txtEdit().isVisible());
    open("<r/>");
    form->actions().action(u"mnuFileClose")->trigger();
    QTest::qWait(100);
    EXPECT_FALSE(isShown());
}

} // namespace

} // namespace quillon::test
