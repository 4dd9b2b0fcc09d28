#include "tests/support/patience.h"
#include "tests/view/browser/browser_fixture.h"

#include <QWebEngineProfile>

#include <unistd.h>

namespace quillon::test {

namespace {

/// The browser keeps the network that it has when its first profile is made. Here it is open, so
/// that the filter stands alone.
class BrowserFilterTest : public BrowserFixture {
protected:
    BrowserFilterTest() {
        // As the browser pane would have it, but for the network.
        if (::geteuid() == 0)
            qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
        unguarded = std::make_unique<QWebEngineProfile>();
    }

    std::unique_ptr<QWebEngineProfile> unguarded;
    Listener listener;
};

TEST_F(BrowserFilterTest, ARequestToTheWebIsRefused) {
    // Its styles are asked for before any policy of the page is in force.
    show("<?xml version='1.0'?><?xml-stylesheet type='text/css' href='http://" + listener.host() +
             "/a.css'?><doc><s xmlns='http://www.w3.org/1999/xhtml'/></doc>",
         "preview.xml");
    EXPECT_EQ(listener.visits, QStringList());
    // One without a filter gets through.
    QWebEnginePage page(unguarded.get());
    page.load(QUrl("http://" + listener.host() + "/"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !listener.visits.empty(); }, Patience));
}

} // namespace

} // namespace quillon::test
