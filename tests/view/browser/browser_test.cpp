#include "tests/support/patience.h"
#include "tests/support/scripted_printer.h"
#include "tests/view/browser/browser_fixture.h"
#include "view/browser/pdf_pages.h"
#include "view/controls/theme.h"

#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QWebEngineProfile>

namespace quillon::test {

namespace {

QByteArray attackPage(const Listener &listener) {
    QFile file(ATTACK_SCRIPT);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return "<!DOCTYPE html><body>before<script>" +
           file.readAll().replace("%HOST%", listener.host()) + "all();</script></body>";
}

class BrowserTest : public BrowserFixture {
protected:
    QSignalSpy status{&browser, &browser::Browser::statusText};
    QSignalSpy clicked{&browser, &browser::Browser::clicked};

    bool hasSaid(const QString &text) {
        return std::ranges::any_of(status, [&](const auto &said) { return said[0] == text; });
    }
    /// Waits for what the status bar says when a page was stopped, and shows another one.
    void expectStoppedAndGoOn() {
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return hasSaid("プレビューのページが応答しないため、停止しました。"); },
            Patience));
        show("<body>next");
        EXPECT_EQ(script("document.body.innerText").toString().trimmed(), "next");
    }
};

TEST_F(BrowserTest, AListenerHearsWhoComes) {
    Listener listener;
    QTcpSocket tcp;
    const auto port = quint16(listener.host().mid(10).toInt());
    tcp.connectToHost(QHostAddress::LocalHost, port);
    QUdpSocket().writeDatagram("x", QHostAddress::LocalHost, port);
    EXPECT_TRUE(QTest::qWaitFor([&] { return listener.visits.size() == 2; }, Patience));
}

TEST_F(BrowserTest, APageReachesNothing) {
    Listener listener;
    show(attackPage(listener));
    ASSERT_TRUE(becomes("over"));
    EXPECT_EQ(listener.visits, QStringList());
    EXPECT_EQ(desktop.opened, QStringList());
    EXPECT_TRUE(script("document.body.innerText").toString().startsWith("before"))
        << "the page is still there";
    const QVariantMap told = script("told").toMap();
    for (auto way = told.begin(); way != told.end(); ++way)
        EXPECT_FALSE(way->toString().startsWith("came through") && !way.key().startsWith("peers"))
            << way.key().toStdString() << way->toString().toStdString();
    for (const char *refused : {"worker", "worker of a frame", "clipboard"})
        EXPECT_NE(told[refused].toString(), "tried") << refused;
}

/// Requests that no filter sees, those of connections between peers, do not leave either.
TEST_F(BrowserTest, TheBrowserHasNoNetwork) {
    show("<body>made first");
    Listener listener;
    QWebEngineProfile unguarded;
    QWebEnginePage page(&unguarded);
    QSignalSpy loaded(&page, &QWebEnginePage::loadFinished);
    page.setHtml(QString::fromUtf8(attackPage(listener)).replace("all();", R"(
        attack("peers", () => peers(RTCPeerConnection));
        attack("fetch", () => fetch(http, { mode: "no-cors" }));
        attack("image", () => loading("img", { src: http }));
        attack("preconnect", () => { element("link", { rel: "preconnect", href: http }); });
        attack("socket", () => new Promise((resolve, reject) => {
            Object.assign(new WebSocket("ws://%HOST%/"), { onopen: resolve, onerror: reject });
        }));
        Promise.all(waits).then(() => { over = true; });)"),
                 QUrl("http://other.example/"));
    ASSERT_TRUE(loaded.wait(Patience));
    ASSERT_TRUE(QTest::qWaitFor([&] { return runScript(page, "over").toBool(); }, Patience));
    EXPECT_EQ(runScript(page, "told.peers").toString(), "came through: gathered");
    EXPECT_EQ(listener.visits, QStringList());
}

TEST_F(BrowserTest, APageUsesTheFilesGivenToItAndNoOthers) {
    write("given.css", "#a { color: rgb(1, 2, 3) }");
    write("other.css", "#a { color: rgb(4, 5, 6) }");
    browser.setFiles({"given.css"});
    const QByteArray links = "<link rel=stylesheet href=given.css onload='told += \"given \"'>"
                             "<link rel=stylesheet href=other.css onerror='told += \"refused \"'>"
                             "<link rel=stylesheet href=../" +
                             QFileInfo(folder.path()).fileName().toUtf8() +
                             "/other.css onerror='told += \"outside \"'>";
    show("<!DOCTYPE html><script>var told = ''</script>" + links + "<p id=a>text");
    EXPECT_EQ(script("told.split(' ').sort().join(' ')").toString().trimmed(),
              "given outside refused");
    EXPECT_EQ(script("getComputedStyle(a).color").toString(), "rgb(1, 2, 3)");
    // A page of XML, too, before its first script.
    show("<?xml version='1.0'?><?xml-stylesheet type='text/css' href='given.css'?><doc id='a'>x"
         "<s xmlns='http://www.w3.org/1999/xhtml'/></doc>",
         "preview.xml");
    EXPECT_EQ(script("getComputedStyle(document.documentElement).color").toString(),
              "rgb(1, 2, 3)");
}

TEST_F(BrowserTest, WhatAPageStoresIsNotThereForAnotherOne) {
    const QByteArray store = "<script>function open() { return new Promise((resolve) => {"
                             "const r = indexedDB.open('kept', 1);"
                             "r.onupgradeneeded = () => { fresh = true; };"
                             "r.onsuccess = () => { done = true; }; }); }"
                             "var fresh = false, done = false; open();</script>";
    show(store, "preview.htm", "first");
    ASSERT_TRUE(becomes("done"));
    show(store, "preview.htm", "second");
    ASSERT_TRUE(becomes("done"));
    EXPECT_TRUE(script("fresh").toBool());
}

TEST_F(BrowserTest, OnlyTheUserClicks) {
    show("<p id=mine>mine</p><label id=lab for=box>label</label><input id=box>"
         "<p id=other>other");
    script("mine.click(); lab.click(); mine.dispatchEvent(new MouseEvent('mouseup'));"
           "lab.dispatchEvent(new MouseEvent('click', {bubbles: true}));"
           "addEventListener('mouseup', () => lab.click());");
    click("mine");
    ASSERT_TRUE(QTest::qWaitFor([&] { return clicked.size() > 0; }, Patience));
    click("other");
    ASSERT_TRUE(QTest::qWaitFor([&] { return clicked.size() > 1; }, Patience));
    ASSERT_EQ(clicked.size(), 2);
    EXPECT_EQ(clicked[0][0], "mine");
    EXPECT_EQ(clicked[1][0], "other");
}

TEST_F(BrowserTest, ALinkIsOpenedWhenTheUserFollowsItAndAgrees) {
    show("<p><a id=web href='http://example.invalid/path?q=%E5%80%A4#part'>web</a></p>"
         "<p><a id=own href='http://example.invalid/own' onclick='return false'>own</a></p>"
         "<p><a id=jump href='#below'>jump</a></p><label id=lab for=box>label</label>"
         "<a href='http://example.invalid/hidden'><input id=box></a>"
         "<div style='height: 2000px'></div><p id=below>below");
    script("web.click(); lab.click(); location.href = web.href;");
    dialogs.answerMessage(ui::message_answer::No);
    click("web");
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialogs.messages.size() == 1; }, Patience));
    EXPECT_EQ(dialogs.messages[0].text, "次のアドレスをブラウザーで開きますか?\n\n"
                                        "http://example.invalid/path?q=%E5%80%A4#part");
    EXPECT_EQ(desktop.opened, QStringList()) << "answered No";
    dialogs.answerMessage(ui::message_answer::Yes);
    script("web.focus()");
    QTest::keyClick(browser.view()->focusProxy(), Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return desktop.opened.size() == 1; }, Patience));
    click("own");
    click("jump");
    ASSERT_TRUE(becomes("scrollY > 0"));
    EXPECT_EQ(desktop.opened.size(), 1);
    // One that no box shows in full is not opened.
    script("scrollTo(0, 0); web.href += 'x'.repeat(1000)");
    click("web");
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            return hasSaid("リンクのアドレスが長すぎて全体を表示できないため、開きませんでした。");
        },
        Patience));
}

TEST_F(BrowserTest, BoxesOfAPageAreLinesInTheStatusBar) {
    show("<button id=b>b</button><script>alert('first\\nline');"
         "var answers = [confirm('sure?'), prompt('name?')];"
         "onbeforeunload = (event) => { event.preventDefault(); return 'stay'; };"
         "for (let i = 0; i < 100; ++i) alert(i);</script>");
    EXPECT_EQ(status[0][0], "プレビューのページからのメッセージ: first line");
    EXPECT_EQ(status.size(), 10) << "a page does not go on for ever";
    EXPECT_EQ(script("JSON.stringify(answers)").toString(), "[false,null]");
    click("b");
    show("<body>next");
    EXPECT_EQ(script("document.body.innerText").toString().trimmed(), "next");
}

TEST_F(BrowserTest, APageThatDoesNotAnswerIsStopped) {
    show("<script>setTimeout(() => { for (;;) ; })</script>");
    expectStoppedAndGoOn();
    status.clear();
    browser.Navigate(write("preview.htm", "<script>for (;;) alert('again');</script>"));
    expectStoppedAndGoOn();
}

TEST_F(BrowserTest, TheNextPageIsShownWhenTheOneBeforeWasStopped) {
    show("<script>setTimeout(() => { alert('on and on'); for (;;) ; })</script>");
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return hasSaid("プレビューのページからのメッセージ: on and on"); }, Patience));
    show("<body>next");
    EXPECT_TRUE(hasSaid("プレビューのページが応答しないため、停止しました。"));
    EXPECT_EQ(script("document.body.innerText").toString().trimmed(), "next");
}

TEST_F(BrowserTest, PagesOfTheProgramFollowTheThemeAndThoseOfAuthorsDoNot) {
    using controls::ThemeMode;
    const QByteArray page = "<!DOCTYPE html><html><head><script>"
                            "var atFirst = document.documentElement.className;"
                            "</script></head><body>text</body></html>";
    const auto background = [this] { return browser.view()->page()->backgroundColor(); };
    const QColor light = controls::themeColour(controls::Colour::Paper, false);
    const QColor dark = controls::themeColour(controls::Colour::Paper, true);
    controls::theme().setMode(ThemeMode::Dark);
    QSignalSpy shown(&browser, &browser::Browser::NavigateComplete);
    browser.Navigate(write("preview.htm", page), {}, ui::Browser::Colours::OfTheme);
    ASSERT_TRUE(shown.wait(Patience));
    EXPECT_EQ(script("atFirst").toString(), "dark") << "ahead of anything that is painted";
    EXPECT_EQ(background(), dark);
    controls::theme().setMode(ThemeMode::Light);
    EXPECT_TRUE(becomes("document.documentElement.className === ''"));
    EXPECT_EQ(background(), light);
    controls::theme().setMode(ThemeMode::Dark);
    EXPECT_TRUE(becomes("document.documentElement.className === 'dark'"));

    show(page);
    EXPECT_EQ(script("atFirst").toString(), "");
    EXPECT_EQ(background(), light);
    controls::theme().setMode(ThemeMode::Light);
    controls::theme().setMode(ThemeMode::Dark);
    EXPECT_EQ(script("document.documentElement.className").toString(), "");
    EXPECT_EQ(background(), light);
    controls::theme().setMode(ThemeMode::Automatic);
}

TEST_F(BrowserTest, APageIsPrintedWhenItIsThere) {
    const QString file = folder.filePath("out.pdf");
    QSignalSpy printed(&browser, &browser::Browser::NavigateComplete);
    browser.Navigate(write("preview.htm", "<p style='break-after: page'>1</p>"
                                          "<p style='break-after: page'>2</p><p>3</p>"));
    ScriptedPrinter printer;
    printer.answer(file);
    browser.print("doc.xml");
    const auto pages = [&] {
        QFile pdf(file);
        if (!pdf.open(QIODevice::ReadOnly))
            return 0;
        const QString text = QString::fromLatin1(pdf.readAll());
        static const QRegularExpression page("/Type\\s*/Page\\b");
        return text.contains("%%EOF") ? int(text.count(page)) : 0;
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return pages() == 3; }, Patience)) << pages();
}

TEST_F(BrowserTest, PaperIsWhiteInADarkTheme) {
    controls::theme().setMode(controls::ThemeMode::Dark);
    QSignalSpy shown(&browser, &browser::Browser::NavigateComplete);
    browser.Navigate(write("preview.htm", "<!DOCTYPE html><p>text</p>"), {},
                     ui::Browser::Colours::OfTheme);
    ASSERT_TRUE(shown.wait(Patience));
    const QString file = folder.filePath("out.pdf");
    ScriptedPrinter printer;
    printer.answer(file);
    browser.print("doc.xml");
    const QColor dark = controls::themeColour(controls::Colour::Paper, true);
    const auto isDone = [&] {
        return QFileInfo(file).size() > 0 && browser.view()->page()->backgroundColor() == dark;
    };
    ASSERT_TRUE(QTest::qWaitFor(isDone, Patience)) << "and the screen is dark again";
    ASSERT_EQ(
        QProcess::execute("pdftoppm", {"-r", "20", "-singlefile", file, folder.filePath("page")}),
        0);
    const QImage page(folder.filePath("page.ppm"));
    ASSERT_FALSE(page.isNull());
    EXPECT_EQ(page.pixelColor(page.width() / 2, page.height() / 2), QColor(Qt::white));
    controls::theme().setMode(controls::ThemeMode::Automatic);
}

TEST_F(BrowserTest, APageIsPaintedAsItWillBePrinted) {
    const QPageLayout paper(QPageSize(QPageSize::A5), QPageLayout::Portrait,
                            QMarginsF(20, 20, 20, 20));
    browser::PdfPages pages(browser);
    QSignalSpy laidOut(&pages, &controls::PreviewPages::laidOut);
    QSignalSpy painted(&pages, &controls::PreviewPages::painted);
    QSignalSpy failed(&pages, &controls::PreviewPages::failed);
    pages.layOut(paper);
    EXPECT_EQ(failed.size(), 1) << "there is no page yet";
    show("<body><p style='break-after: page'>1</p><p style='color: red'>two");
    pages.layOut(paper);
    ASSERT_TRUE(QTest::qWaitFor([&] { return laidOut.size() == 1; }, Patience));
    EXPECT_EQ(laidOut[0][0].toInt(), 2);
    // The first one is given up.
    pages.paint(0, 72);
    pages.paint(1, 72);
    ASSERT_TRUE(QTest::qWaitFor([&] { return painted.size() == 1; }, Patience));
    EXPECT_EQ(painted[0][0].toInt(), 1);
    const auto sheet = painted[0][1].value<QImage>();
    EXPECT_NEAR(sheet.width(), 420, 1);
    EXPECT_NEAR(sheet.height(), 595, 1);
    const auto isRed = [&](int x, int y) {
        const QColor color = sheet.pixelColor(x, y);
        return color.red() > 200 && color.green() < 100;
    };
    int red = 0;
    for (int at = 0; at < sheet.width() * sheet.height(); ++at)
        red += isRed(at % sheet.width(), at / sheet.width());
    EXPECT_GT(red, 5);
    EXPECT_EQ(sheet.pixelColor(5, 5), QColor(Qt::white)) << "the margin";
}

} // namespace

} // namespace quillon::test
