#include "bench/open_bench.h"

#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <gtest/gtest.h>

namespace quillon::bench {

namespace {

/// Lines of the table, as the work prints them.
template <typename Work>
std::string printed(Work &&work) {
    testing::internal::CaptureStdout();
    work();
    return testing::internal::GetCapturedStdout();
}

TEST(Table, IsGoodWhenEveryLineHasItsFigureWithinItsLimit) {
    const struct {
        double figure;
        double limit;
        const char *end;
        bool good;
    } cases[] = {
        {2, 0, "2.000 ms \n", true},
        {0, 0, "0.000 ms \n", true},
        {2, 2, "2.000 ms  limit 2 ok\n", true},
        {2.5, 2, "2.500 ms  limit 2 MISSED\n", false},
        {NotMeasured, 2, " FAILED\n", false},
        {NotMeasured, 0, " FAILED\n", false},
        {1.0 / 0.0, 0, " FAILED\n", false},
    };
    for (const auto &c : cases) {
        Table table;
        const std::string line = printed([&] { table.row("work", c.figure, "ms", c.limit); });
        EXPECT_TRUE(line.ends_with(c.end)) << line;
        EXPECT_EQ(table.good(), c.good) << line;
        printed([&] { table.row("another", 1, "ms", 2); });
        EXPECT_EQ(table.good(), c.good) << "whatever follows";
    }
}

TEST(Table, APartHasAllItsFiguresOrNone) {
    Table table;
    EXPECT_TRUE(printed([&] { table.part("work", 2, 30, 4); })
                    .ends_with("2.000 ms     +30.0 MB, passing     +4.0 MB\n"));
    EXPECT_TRUE(table.good());
    EXPECT_TRUE(printed([&] { table.part("work", 2, 30, NotMeasured); }).ends_with("FAILED\n"));
    EXPECT_FALSE(table.good());
}

TEST(Table, WorkThatIsNotDoneIsNotMeasured) {
    int runs = 0;
    EXPECT_TRUE(std::isnan(bestOf(3, [&] { return ++runs != 2; })));
    EXPECT_EQ(runs, 2);
    EXPECT_GE(bestOf(3, [&] { ++runs; }), 0);
    EXPECT_EQ(runs, 5);
}

class OtherProcess : public testing::Test {
protected:
    /// A program that does what some lines of shell do.
    std::string program(const QByteArray &lines) {
        QFile file(folder.filePath("program"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("#!/bin/sh\n" + lines + "\n");
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file.fileName().toStdString();
    }
    QTemporaryDir folder;
};

TEST_F(OtherProcess, ThatDiesHasNoFigures) {
    const OpenFigures figures = measureOpening(program("echo 3 2 nan"), "input.xml");
    EXPECT_EQ(figures.milliseconds, 3);
    EXPECT_EQ(figures.peakMegabytes, 2);
    EXPECT_TRUE(std::isnan(figures.keystrokeMilliseconds));
    for (const char *lines : {"", "echo 3 2", "kill -SEGV $$", "echo 3 2 1; exit 1",
                              "echo 3 2 1; kill -SEGV $$", "mkdir \"$0.ran\" && echo 3 2 1"}) {
        const OpenFigures none = measureOpening(program(lines), "input.xml");
        EXPECT_TRUE(std::isnan(none.milliseconds) && std::isnan(none.peakMegabytes)) << lines;
    }
}

TEST_F(OtherProcess, TellsWhetherItsLinesAreGood) {
    const struct {
        const char *lines;
        const char *added;
        bool good;
    } cases[] = {
        {"[ \"$1 $2\" = '--edit input.xml' ]", "", true},
        {"exit 3", "", false},
        {"exit 1", "FAILED\n", false},
        {"kill -SEGV $$", "FAILED\n", false},
    };
    for (const auto &c : cases) {
        Table table;
        const std::string added =
            printed([&] { measureIn(table, program(c.lines), "--edit", "input.xml"); });
        EXPECT_TRUE(added.ends_with(c.added)) << added;
        EXPECT_EQ(added.empty(), *c.added == '\0') << added;
        EXPECT_EQ(table.good(), c.good) << c.lines;
    }
}

} // namespace

} // namespace quillon::bench
