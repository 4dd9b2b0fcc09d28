#include "bench/dom_bench.h"
#include "bench/open_bench.h"
#include "bench/order_file.h"
#include "bench/report.h"
#include "tests/support/own_surroundings.h"

#include <QString>
#include <QTemporaryDir>

#include <cstdio>
#include <cstring>
#include <fstream>

namespace {

struct Input {
    const char *title;
    std::string content;
    /// Limits for opening; 0 for none.
    double milliseconds;
    double megabytes;
    bool isOrders = true;
    bool isChain = false;
};

std::string write(const QTemporaryDir &folder, const char *name, const std::string &content) {
    const std::string path = folder.filePath(QString::fromLatin1(name)).toStdString();
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

} // namespace

int main(int argc, char **argv) {
    if (argc == 3) {
        int programOnly = 1;
        quillon::bench::openAndPrint(programOnly, argv, argv[1], argv[2]);
    }
    if (argc != 1) {
        std::puts("quillon_bench: measures on files it makes itself and prints a table. Figures\n"
                  "are the best of several runs; compare those of one table with each other. The\n"
                  "exit code is 1 when a figure misses its limit or could not be measured.");
        return argc == 2 && std::strcmp(argv[1], "--help") == 0 ? 0 : 2;
    }
    const quillon::test::OwnSurroundings surroundings;
    const QTemporaryDir folder;
    quillon::bench::Table table;
    const Input inputs[] = {
        {"0.1 MB of order records", quillon::bench::orderRecords(100'000), 1000, 0},
        {"0.6 MB of order records", quillon::bench::orderRecords(600'000), 1000, 0},
        {"7.7 MB of order records", quillon::bench::orderRecords(7'700'000), 0, 0},
        // For each megabyte as much as 1.3 s and 500 MB are for 67.
        {"77 MB of order records", quillon::bench::orderRecords(77'000'000), 1500, 575},
        {"97 MB of entries of a dictionary", quillon::bench::dictionaryEntries(97'000'000), 1700,
         600, false},
        {"1,000,000 children of one element", quillon::bench::flatDocument(1'000'000), 0, 0, false},
        {"20,000 nested elements", quillon::bench::deepDocument(20'000), 0, 0, false, true},
        {"100,000 nested elements", quillon::bench::deepDocument(100'000), 0, 0, false},
    };
    for (const Input &input : inputs) {
        std::printf("%s (%.1f MB)\n", input.title, double(input.content.size()) / 1e6);
        const bool isOrders = input.isOrders;
        const std::string path = write(folder, "input.xml", input.content);
        quillon::bench::measureDom(table, path, isOrders);
        const auto figures = quillon::bench::measureOpening(argv[0], path);
        table.row("start and open, until the window is idle", figures.milliseconds, "ms",
                  input.milliseconds);
        table.row("peak memory with the file open", figures.peakMegabytes, "MB", input.megabytes);
        if (isOrders)
            table.row("one keystroke in a text node's pane", figures.keystrokeMilliseconds, "ms",
                      16);
        quillon::bench::measureIn(table, argv[0], "--parts", path);
        if (input.isChain)
            quillon::bench::measureIn(table, argv[0], "--chain", path);
        if (isOrders)
            quillon::bench::measureIn(table, argv[0], "--edit", path);
        if (isOrders)
            quillon::bench::measureIn(table, argv[0], "--search", path);
        if (isOrders)
            quillon::bench::measureIn(table, argv[0], "--hits", path);
        if (isOrders)
            quillon::bench::measureIn(table, argv[0], "--candidates", path);
        if (isOrders)
            quillon::bench::measureIn(table, argv[0], "--live", path);
        if (isOrders)
            quillon::bench::measureIn(table, argv[0], "--check", path);
    }
    return table.good() ? 0 : 1;
}
