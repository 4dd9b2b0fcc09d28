#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QMenu>
#include <QSettings>
#include <QSplitter>
#include <QTest>
#include <QWindow>

namespace quillon::test {

namespace {

class SettingsTest : public EditorWindow {
protected:
    QString stored(const QString &key) {
        return system::SettingsStore(path("settings.ini"))
            .GetSetting(key.section('/', 0, 0), key.section('/', 1));
    }
    void store(const QString &key, const QString &value) {
        system::SettingsStore(path("settings.ini"))
            .SaveSetting(key.section('/', 0, 0), key.section('/', 1), value);
    }
    /// Closes the window and opens another one with what is stored.
    void restart() {
        QPointer<app::frmMain> old = form.release();
        if (old)
            old->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        form = std::make_unique<app::frmMain>(
            app::Environment{folder.path(), system::SettingsStore(path("settings.ini")), {}});
    }
};

/// A window and its frame are no larger than the screen.
QSize designSize() {
    return QSize(1000, 680).boundedTo(QGuiApplication::primaryScreen()->availableSize() -
                                      QSize(16, 40));
}

TEST_F(SettingsTest, WhatIsMissingHasItsDefault) {
    EXPECT_EQ(editor().settings.fontName, "MS UI Gothic");
    EXPECT_EQ(editor().settings.fontSize, 10);
    EXPECT_TRUE(editor().settings.editors.empty());
    EXPECT_EQ(form->size(), designSize());
}

TEST_F(SettingsTest, EverythingComesBackAfterARestart) {
    form->show();
    form->move(40, 60);
    form->resize(700, 500);
    editor().settings.fontName = "Sans Serif";
    editor().settings.fontSize = 12;
    editor().settings.editors = {{"一つ目", "/usr/bin/one"}, {"two", "/usr/bin/two"}};
    QSplitter &vsp = *form->findChild<QSplitter *>("vsp");
    vsp.setSizes({300, 390});
    const int split = vsp.sizes().value(0);
    restart();
    EXPECT_EQ(stored("Application/Width"), QString::number(700 * 15));
    EXPECT_EQ(form->pos(), QPoint(40, 60));
    EXPECT_EQ(form->size(), QSize(700, 500));
    EXPECT_EQ(editor().settings.fontName, "Sans Serif");
    EXPECT_EQ(tvw().font().pointSize(), 12);
    ASSERT_EQ(editor().settings.editors.size(), 2u);
    EXPECT_EQ(editor().settings.editors[0].name, "一つ目");
    form->show();
    EXPECT_EQ(form->findChild<QSplitter *>("vsp")->sizes().value(0), split);
    EXPECT_TRUE(form->actions().action(u"mnuToolOpenEditor")->isVisible());
    // An editor taken off the end comes back.
    editor().settings.editors.pop_back();
    restart();
    EXPECT_EQ(editor().settings.editors.size(), 2u);
}

TEST_F(SettingsTest, AMaximizedWindowKeepsItsNormalPlace) {
    form->show();
    form->resize(700, 500);
    restart();
    form->showMaximized();
    // There may be no window manager that makes it larger.
    form->windowHandle()->resize(800, 600);
    ASSERT_TRUE(QTest::qWaitFor([this] { return form->width() != 700; }, Patience));
    restart();
    EXPECT_EQ(stored("Application/Width"), QString::number(700 * 15));
    EXPECT_TRUE(editor().settings.maximized);
    EXPECT_TRUE(form->isMaximized());
}

TEST_F(SettingsTest, WhatIsTooLargeIsStoredAtTheLimit) {
    form->show();
    form->resize(3000, 500);
    restart();
    EXPECT_EQ(stored("Application/Width"), "32767");
}

TEST_F(SettingsTest, BrokenValuesAreToldAndDoNotKeepTheUserOut) {
    store("Font/Size", "0");
    dialogs.answerMessage(ui::message_answer::Ok);
    form.reset();
    restart();
    EXPECT_EQ(editor().settings.fontSize, 10) << "nobody could read that";
    dialogs.messages.clear();
    store("Font/Size", "large");
    store("Application/Width", "99999");
    store("Programs/Name0", "a");
    store("Programs/Path0", "/a");
    store("Programs/Name2", "c");
    store("Programs/Path2", "/c");
    dialogs.answerMessage(ui::message_answer::Ok);
    dialogs.answerMessage(ui::message_answer::Ok);
    form.reset();
    restart();
    ASSERT_EQ(dialogs.messages.size(), 2u);
    EXPECT_TRUE(dialogs.messages[0].text.contains("型が一致しません。"));
    EXPECT_TRUE(dialogs.messages[1].text.contains("オーバーフロー"));
    EXPECT_EQ(editor().settings.fontSize, 10);
    EXPECT_EQ(form->width(), designSize().width());
    EXPECT_EQ(editor().settings.editors.size(), 1u) << "a gap ends the list";
    store("Programs/Name1", "a");
    store("Programs/Path1", "/b");
    store("Font/Size", "11");
    store("Application/Width", "15000");
    dialogs.answerMessage(ui::message_answer::Ok);
    form.reset();
    restart();
    EXPECT_TRUE(dialogs.messages.back().text.contains("二重"));
}

TEST_F(SettingsTest, AWindowOffEveryScreenComesBack) {
    store("Application/Left", "-32000");
    store("Application/Top", "32000");
    form.reset();
    restart();
    EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().intersects(form->geometry()));
}

TEST_F(SettingsTest, TheFileMenuListsRecentFiles) {
    const auto entries = [&] {
        QMenu *menu = form->actions().action(u"mnuFileMRU")->menu();
        Q_EMIT form->actions().action(u"mnuFile")->menu()->aboutToShow();
        QStringList out;
        for (const QAction *action : menu->actions()) {
            if (action->isVisible())
                out.append(action->text());
        }
        return out;
    };
    EXPECT_EQ(entries(), QStringList("(なし)"));
    EXPECT_FALSE(form->actions().action(u"mnuFileMRU")->isEnabled());
    open("<a/>", "a.xml");
    open("<b/>", "b&c.xml");
    EXPECT_EQ(entries(), QStringList({"&1 " + path("b&&c.xml"), "&2 " + path("a.xml")}));
    EXPECT_TRUE(form->actions().action(u"mnuFileMRU")->isEnabled());
    form->actions().action(u"mnuFileMRU")->menu()->actions().last()->trigger();
    EXPECT_EQ(form->windowTitle(), "a.xml - Quillon XML Editor");
}

} // namespace

} // namespace quillon::test
