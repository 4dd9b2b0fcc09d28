#pragma once

#include "tests/support/patience.h"
#include "tests/support/scripted_dialogs.h"
#include "view/browser/browser.h"

#include <QDesktopServices>
#include <QFile>
#include <QNetworkDatagram>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QUdpSocket>
#include <QWebEnginePage>
#include <QWebEngineView>

#include <gtest/gtest.h>

namespace quillon::test {

/// The rest of the world, on the loopback: counts who comes by TCP or UDP.
class Listener {
public:
    Listener() {
        EXPECT_TRUE(tcp_.listen(QHostAddress::LocalHost));
        EXPECT_TRUE(udp_.bind(QHostAddress::LocalHost, tcp_.serverPort()));
        QObject::connect(&tcp_, &QTcpServer::newConnection, [this] {
            while (QTcpSocket *visitor = tcp_.nextPendingConnection()) {
                visits.append("TCP");
                visitor->disconnectFromHost();
            }
        });
        QObject::connect(&udp_, &QUdpSocket::readyRead, [this] {
            while (udp_.hasPendingDatagrams()) {
                udp_.receiveDatagram();
                visits.append("UDP");
            }
        });
    }
    /// "127.0.0.1:" and the port.
    QByteArray host() const { return "127.0.0.1:" + QByteArray::number(tcp_.serverPort()); }

    QStringList visits;

private:
    QTcpServer tcp_;
    QUdpSocket udp_;
};

/// The user's desktop, which only records what it is to open.
class Desktop : public QObject {
    Q_OBJECT

public:
    QStringList opened;

    Q_INVOKABLE void open(const QUrl &url) { opened.append(url.toString()); }
};

/// What a script says in a page that is not ours.
inline QVariant runScript(QWebEnginePage &page, const QString &code) {
    QVariant result;
    bool done = false;
    page.runJavaScript(code, [&](const QVariant &value) {
        result = value;
        done = true;
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return done; }, Patience)) << code.toStdString();
    return result;
}

/// A browser pane with a real browser, pages of the test, and a desktop that only records.
class BrowserFixture : public testing::Test {
protected:
    BrowserFixture() {
        browser.resize(400, 300);
        browser.show();
        QDesktopServices::setUrlHandler("http", &desktop, "open");
    }
    ~BrowserFixture() override { QDesktopServices::unsetUrlHandler("http"); }

    QString write(const QString &name, const QByteArray &bytes) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    /// Shows a page and waits until it is there.
    void show(const QByteArray &page, const QString &name = "preview.htm",
              const QString &subject = {}) {
        QSignalSpy shown(&browser, &browser::Browser::NavigateComplete);
        browser.Navigate(write(name, page), subject);
        ASSERT_TRUE(shown.wait(Patience));
    }
    QVariant script(const QString &code) { return runScript(*browser.view()->page(), code); }
    /// Waits until an expression of the page is true.
    bool becomes(const QString &expression) {
        return QTest::qWaitFor([&] { return script(expression).toBool(); }, Patience);
    }
    /// A click of the user's in the middle of an element.
    void click(const QString &id) {
        // The picture on the screen must have come as far as the page.
        script("new Promise((done) => requestAnimationFrame(done))");
        const QVariantList at = script("(() => { const r = document.getElementById('" + id +
                                       "').getBoundingClientRect();"
                                       "return [r.x + r.width / 2, r.y + r.height / 2]; })()")
                                    .toList();
        ASSERT_EQ(at.size(), 2);
        QTest::mouseClick(browser.view()->focusProxy(), Qt::LeftButton, {},
                          QPointF(at[0].toDouble(), at[1].toDouble()).toPoint());
    }

    Desktop desktop;
    ScriptedDialogs dialogs;
    QTemporaryDir folder;
    browser::Browser browser;
};

} // namespace quillon::test
