#include "view/controls/progress_box.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QLabel>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace quillon::controls {

namespace {

/// Work without an end of its own; false when it was not stopped in time.
bool isStopped(const runtime::Progress &progress, double done) {
    const QDeadlineTimer deadline(20'000);
    while (!deadline.hasExpired()) {
        if (!progress(done))
            return true;
    }
    return false;
}

TEST(ProgressBox, ABoxTellsHowFarItIsAndCanStopIt) {
    QWidget window;
    window.show();
    ProgressBox longWork(window);
    QTimer user;
    int bar = -1;
    QObject::connect(&user, &QTimer::timeout, [&] {
        auto *box = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        if (!box)
            return;
        EXPECT_EQ(box->findChild<QLabel *>()->text(), "検証しています...");
        EXPECT_EQ(box->findChild<QPushButton *>()->text(), "中止");
        bar = box->findChild<QProgressBar *>()->value() * 100 / box->maximum();
        QTest::keyClick(box, Qt::Key_Escape);
    });
    user.start(0);
    bool stopped = false;
    bool innerHadBox = true;
    longWork.run(
        "検証しています...", ui::LongWork::Stop::Offered, [&](const runtime::Progress &progress) {
            stopped = isStopped(progress, 0.25);
            longWork.run("x", ui::LongWork::Stop::Offered,
                         [&](const runtime::Progress &inner) { innerHadBox = bool(inner); });
        });
    EXPECT_TRUE(stopped);
    EXPECT_EQ(bar, 24);
    EXPECT_FALSE(innerHadBox);
    EXPECT_FALSE(QApplication::activeModalWidget());
}

TEST(ProgressBox, WhatIsNotToBeStoppedGoesOnWhenTheBoxIsClosed) {
    QWidget window;
    window.show();
    QTimer user;
    int seen = 0;
    QObject::connect(&user, &QTimer::timeout, [&] {
        if (auto *box = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget())) {
            ++seen;
            EXPECT_FALSE(box->findChild<QPushButton *>());
            box->close();
        }
    });
    user.start(0);
    ProgressBox(window).run("x", ui::LongWork::Stop::NotOffered,
                            [&](const runtime::Progress &progress) {
                                const QDeadlineTimer deadline(20'000);
                                while (seen == 0 && !deadline.hasExpired())
                                    EXPECT_TRUE(progress(0.1));
                                EXPECT_TRUE(progress(0.1));
                                EXPECT_TRUE(QApplication::activeModalWidget());
                            });
    EXPECT_GT(seen, 0);
}

} // namespace

} // namespace quillon::controls
