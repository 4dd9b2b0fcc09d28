#include "app/main_window/window.h"
#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QAccessible>
#include <QApplication>
#include <QMenuBar>
#include <QSignalSpy>
#include <QSplitter>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>
#include <QWindow>

namespace quillon::test {

namespace {

class WindowTest : public EditorWindow {
protected:
    void show() {
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get(), Patience));
    }
};

TEST_F(WindowTest, ARelativePathLeadsToTheSameFileFromAnyFolder) {
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.path());
    write("doc.xml", "<r/>");
    app::Window window(environment());
    window.OpenFile("doc.xml");
    QDir::setCurrent(before);
    const std::unique_ptr<app::frmMain> opened(window.form());
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->editor().state.m_FileName, path("doc.xml"));
}

TEST_F(WindowTest, ThePathBoxReachesTheRightEdge) {
    show();
    for (const int width : {1200, 900}) {
        form->resize(width, 600);
        QCoreApplication::processEvents();
        const QWidget *holder = form->findChild<QWidget *>("picPath");
        EXPECT_EQ(holder->mapTo(form.get(), holder->rect().topRight()).x(), form->width() - 1);
        EXPECT_EQ(cboPath().width(), holder->width());
        EXPECT_EQ(cboPath().y(), 2);
    }
}

TEST_F(WindowTest, TheSplittersStandWhereTheyStoodTheSessionBefore) {
    const system::SettingsStore store(path("settings.ini"));
    const auto session = [&] {
        form = std::make_unique<app::frmMain>(app::Environment{folder.path(), store, {}});
        show();
        // A part of the window gets taller, as the status bar does once its font is known.
        form->statusBar()->setMinimumHeight(form->statusBar()->height() + 10);
        QCoreApplication::processEvents();
        QPointer<app::frmMain> window = form.release();
        window->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return QStringList{store.GetSetting("Application", "SplitLeft"),
                           store.GetSetting("Application", "SplitTop")};
    };
    EXPECT_EQ(session(), QStringList({"6000", "5100"})) << "the places they are designed for";
    store.SaveSetting("Application", "SplitLeft", "4515");
    store.SaveSetting("Application", "SplitTop", "3015");
    for (int sessions = 0; sessions < 3; ++sessions)
        EXPECT_EQ(session(), QStringList({"4515", "3015"}));
}

TEST_F(WindowTest, MenusShowWhatApplies) {
    form->actions().showStates(u"mnuFile");
    const auto enabled = [&](QStringView name) {
        return form->actions().action(name)->isEnabled();
    };
    EXPECT_FALSE(enabled(u"mnuFileSave"));
    EXPECT_FALSE(enabled(u"mnuFileReload"));
    EXPECT_TRUE(enabled(u"mnuFileNew"));
    EXPECT_FALSE(form->actions().action(u"mnuToolOpenEditor")->isVisible());
    open("<r/>");
    form->actions().showStates(u"mnuFile");
    EXPECT_TRUE(enabled(u"mnuFileSave"));
    EXPECT_TRUE(enabled(u"mnuFileReload"));
    editor().commands.mnuFileNew_Click();
    form->actions().showStates(u"mnuFile");
    EXPECT_FALSE(enabled(u"mnuFileReload"));
}

TEST_F(WindowTest, KeysWorkFromTreeAndPane) {
    show();
    open("<r/>");
    form->activateWindow();
    state().m_DOM.documentElement().setAttribute("a", "1");
    editor().commands.DocumentModified();
    txtEdit().setFocus();
    QTest::keyClick(&txtEdit(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(xml(), "<r/>");
    tvw().setFocus();
    QTest::keyClick(&tvw(), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(xml(), "<r a=\"1\"/>");
    QTest::keyClick(&tvw(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(read("doc.xml"), "<r a=\"1\"/>");
}

TEST_F(WindowTest, TheTreesMenuHasAKey) {
    show();
    open("<r/>");
    form->activateWindow();
    tvw().setFocus();
    QTest::keyClick(&tvw(), Qt::Key_F10, Qt::ShiftModifier);
    QWidget *menu = QApplication::activePopupWidget();
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu, form->actions().action(u"treeMenu")->menu());
    menu->close();
}

TEST_F(WindowTest, TheTitleShowsANameAsItIs) {
    show();
    open("<r/>", "a[*].xml");
    EXPECT_EQ(form->windowHandle()->title(), "a[*].xml - Quillon XML Editor");
}

TEST_F(WindowTest, EveryControlHasANameAndEveryNodeAPicture) {
    show();
    open("<r/>");
    for (const char *name : {"tbr", "tbrMove", "cboPath", "tvw", "txtEdit", "ie"}) {
        QWidget *widget = form->findChild<QWidget *>(name);
        ASSERT_TRUE(widget) << name;
        EXPECT_FALSE(
            QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty())
            << name;
    }
    QAccessibleInterface *tree = QAccessible::queryAccessibleInterface(&tvw());
    EXPECT_EQ(tree->child(0)->text(QAccessible::Name), "#document");
    EXPECT_EQ(tvw().imageList().size(), tree::imageKeys().size());
    for (const QIcon &image : tvw().imageList())
        EXPECT_FALSE(image.pixmap(16, 16).isNull());
    for (const QAction *action : form->findChild<QToolBar *>("tbr")->actions()) {
        if (!action->isSeparator() && !action->objectName().isEmpty()) {
            EXPECT_FALSE(action->toolTip().isEmpty()) << action->objectName().toStdString();
        }
    }
}

TEST_F(WindowTest, ClosingAsksAndClearsTheWorkingFolderAway) {
    open("<r/>");
    EXPECT_FALSE(working().isEmpty());
    editor().commands.DocumentModified();
    editor().recovery.keep();
    QPointer<app::frmMain> window = form.release();
    dialogs.answerMessage(ui::message_answer::Cancel);
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(QDir(path("Temp")).exists());
    dialogs.answerMessage(ui::message_answer::No);
    EXPECT_TRUE(window->close());
    EXPECT_FALSE(QDir(path("Temp")).exists());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(window);

    // Another window, of whatever instance, has its copies there.
    auto *first =
        new app::frmMain({folder.path(), system::SettingsStore(path("settings.ini")), {}});
    auto *second =
        new app::frmMain({folder.path(), system::SettingsStore(path("settings.ini")), {}});
    ASSERT_TRUE(second->OpenFile(write("doc.xml", "<r/>")));
    EXPECT_TRUE(first->close());
    EXPECT_FALSE(working().isEmpty());
    EXPECT_TRUE(second->close());
    EXPECT_FALSE(QDir(path("Temp")).exists());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

} // namespace quillon::test
