#include "platform/xml/engine/background_child.h"
#include "resources/child_process_texts.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <array>
#include <atomic>
#include <csignal>
#include <gtest/gtest.h>
#include <unistd.h>

namespace quillon::xml {

namespace {

namespace texts = resources::child_process_texts;
using namespace std::chrono_literals;

QByteArray endless() {
    for (std::atomic<unsigned> rounds = 0;; ++rounds) {
    }
}

struct BackgroundChildTest : testing::Test {
    BackgroundChildTest() {
        QObject::connect(&child, &BackgroundChild::finished, [this](const QByteArray &result) {
            told.push_back(QString::fromUtf8(result));
            loop.quit();
        });
        QObject::connect(&child, &BackgroundChild::failed, [this](const runtime::Error &error) {
            told.push_back(error.description());
            loop.quit();
        });
    }

    /// What is told first.
    QString outcome() {
        loop.exec();
        return told.takeFirst();
    }

    int count = 0;
    QCoreApplication application{count, nullptr};
    BackgroundChild child;
    QStringList told;
    QEventLoop loop;
};

TEST_F(BackgroundChildTest, TellsWhatTheWorkComesTo) {
    const QByteArray large(3'000'000, 'x');
    const std::vector<std::pair<std::function<QByteArray()>, QString>> cases = {
        {[&] { return large; }, QString::fromLatin1(large)},
        {[]() -> QByteArray { throw runtime::Error(1, QStringLiteral("だめ")); },
         QStringLiteral("だめ")},
        {[]() -> QByteArray { std::abort(); }, texts::Died.toString()},
        {endless, texts::TimeLimit.toString()},
    };
    for (const auto &[work, expected] : cases) {
        child.start(work, {200ms});
        EXPECT_TRUE(child.isRunning());
        EXPECT_EQ(outcome(), expected);
        EXPECT_FALSE(child.isRunning());
    }
}

TEST_F(BackgroundChildTest, SaysNothingOfWhatIsGivenUpAndEndsIt) {
    std::array<int, 2> ends;
    ASSERT_EQ(::pipe(ends.data()), 0);
    child.start([&] {
        const pid_t self = ::getpid();
        if (::write(ends[1], &self, sizeof self) != sizeof self)
            ::_exit(1);
        return endless();
    });
    pid_t first = 0;
    ASSERT_EQ(::read(ends[0], &first, sizeof first), ssize_t(sizeof first));
    // The pipe that the work has inherited is closed when it is no more.
    ::close(ends[1]);
    child.start([] { return QByteArray("second"); });
    char byte = 0;
    EXPECT_EQ(::read(ends[0], &byte, 1), 0);
    EXPECT_EQ(outcome(), "second");
    EXPECT_TRUE(told.isEmpty());
    ::close(ends[0]);
}

TEST_F(BackgroundChildTest, MayBeStartedAnewByWhoIsTold) {
    int rounds = 0;
    QObject::connect(&child, &BackgroundChild::finished, [&] {
        if (++rounds < 3)
            child.start([] { return QByteArray("again"); });
        else
            loop.exit(7);
    });
    child.start([] { return QByteArray("once"); });
    while (rounds < 3)
        loop.exec();
    EXPECT_EQ(told, (QStringList{"once", "again", "again"}));
}

} // namespace

} // namespace quillon::xml
