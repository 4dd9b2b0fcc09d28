#include "app/start_up/splash.h"
#include "app/start_up/start_up.h"

#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon::app {

namespace {

TEST(StartUp, TheCommandLineIsOnePath) {
    const struct {
        QStringList arguments;
        const char *path;
    } cases[] = {
        {{}, ""},
        {{"/a/b.xml"}, "/a/b.xml"},
        {{"/a/my", "file.xml"}, "/a/my file.xml"},
        {{"/a/b.xml", "/c/d.xml"}, "/a/b.xml /c/d.xml"},
        {{"\"/a/b.xml\""}, "/a/b.xml"},
        {{"\"/a/my", "file.xml\""}, "/a/my file.xml"},
        {{"\"/a/b.xml"}, "/a/b.xm"},
        {{"\""}, ""},
        {{"-platform"}, "-platform"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(commandLinePath(c.arguments), c.path) << c.path;
}

TEST(StartUp, TheSplashShowsTheVersionAndGoesOnADoubleClick) {
    frmSplash splash;
    splash.show();
    EXPECT_EQ(splash.findChild<QLabel *>("lblVersion")->text(), "Version " QUILLON_VERSION);
    EXPECT_TRUE(splash.isVisible());
    QTest::mouseDClick(&splash, Qt::LeftButton);
    EXPECT_FALSE(splash.isVisible());
}

} // namespace

} // namespace quillon::app
