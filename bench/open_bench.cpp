#include "bench/open_bench.h"

#include "app/main_window/window.h"
#include "app/start_up/start_up.h"
#include "bench/candidate_bench.h"
#include "bench/chain_bench.h"
#include "bench/check_bench.h"
#include "bench/edit_bench.h"
#include "bench/hit_bench.h"
#include "bench/live_bench.h"
#include "bench/part_bench.h"
#include "bench/search_bench.h"
#include "view/controls/application.h"
#include "view/controls/desktop_dialogs.h"

#include <QTemporaryDir>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/resource.h>
#include <sys/wait.h>

namespace quillon::bench {

namespace {

/// The first text node of a document, in document order.
xml::Node firstText(const xml::DOMDocument40 &document) {
    xml::Node node = document.documentElement();
    while (node && node.nodeType() != xml::NodeType::Text)
        node = node.hasChildNodes() ? node.firstChild() : node.nextSibling();
    return node;
}

double keystroke(app::frmMain &form) {
    app::Editor &editor = form.editor();
    auto &pane = *form.findChild<controls::TextBox *>(QStringLiteral("txtEdit"));
    const xml::Node text = firstText(editor.state.m_DOM);
    if (!text)
        return NotMeasured;
    editor.selection.ShowNode(editor.builder.itemOf(text), true);
    QCoreApplication::processEvents();
    QString typed = pane.Text();
    return bestOf(20, [&] {
        typed += QLatin1Char('x');
        pane.setText(typed);
        QCoreApplication::processEvents();
        return text.text() == typed;
    });
}

} // namespace

void openAndPrint(int argc, char **argv, const char *task, const char *path) {
    app::prepareProcess();
    QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    const auto start = std::chrono::steady_clock::now();
    controls::Application application(argc, argv);
    controls::DesktopDialogs dialogs;
    ui::setDialogs(&dialogs);
    if (std::strcmp(task, "--parts") == 0) {
        Table parts;
        const bool done = measureParts(parts, QString::fromLocal8Bit(path));
        std::_Exit(!done ? EXIT_FAILURE : parts.good() ? EXIT_SUCCESS : BadRows);
    }
    auto *form = new app::frmMain({folder.path(), {}, {}});
    form->ClearStatus();
    if (!form->OpenFile(QString::fromLocal8Bit(path)))
        std::_Exit(EXIT_FAILURE);
    // The process of a preview would count among those whose memory is measured there.
    if (std::strcmp(task, "--check") != 0)
        form->UpdateStatus(QString::fromLocal8Bit(path));
    form->show();
    QCoreApplication::processEvents();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    Table table;
    if (std::strcmp(task, "--edit") == 0)
        measureEditing(table, *form, QString::fromLocal8Bit(path));
    else if (std::strcmp(task, "--search") == 0)
        measureSearching(table, *form);
    else if (std::strcmp(task, "--live") == 0)
        measureLive(table, *form);
    else if (std::strcmp(task, "--hits") == 0)
        measureHits(table, *form);
    else if (std::strcmp(task, "--candidates") == 0)
        measureCandidates(table, *form);
    else if (std::strcmp(task, "--check") == 0)
        measureChecking(table, *form, QString::fromLocal8Bit(path));
    else if (std::strcmp(task, "--chain") == 0)
        measureChain(table, *form);
    else
        std::printf("%f %f %f\n", took.count(), double(usage.ru_maxrss) / 1024, keystroke(*form));
    std::fflush(stdout);
    // Taking everything down again is not part of any figure.
    std::_Exit(table.good() ? EXIT_SUCCESS : BadRows);
}

void measureIn(Table &table, const std::string &program, const std::string &task,
               const std::string &path) {
    const int status = std::system(("'" + program + "' " + task + " '" + path + "'").c_str());
    if (WIFEXITED(status) && WEXITSTATUS(status) == BadRows)
        table.addBadRows();
    else if (status != EXIT_SUCCESS)
        table.failedRow("the rest of what " + task + " measures");
}

OpenFigures measureOpening(const std::string &program, const std::string &path) {
    const std::string command = "'" + program + "' --open '" + path + "'";
    OpenFigures best;
    for (int run = 0; run < 3; ++run) {
        FILE *const output = ::popen(command.c_str(), "r");
        if (!output)
            return {};
        OpenFigures figures;
        const int read = std::fscanf(output, "%lf %lf %lf", &figures.milliseconds,
                                     &figures.peakMegabytes, &figures.keystrokeMilliseconds);
        if (::pclose(output) != EXIT_SUCCESS || read != 3)
            return {};
        // Of the best one so far, which is none ahead of the first, and this one.
        best.milliseconds = std::fmin(best.milliseconds, figures.milliseconds);
        best.peakMegabytes = std::fmin(best.peakMegabytes, figures.peakMegabytes);
        best.keystrokeMilliseconds =
            std::fmin(best.keystrokeMilliseconds, figures.keystrokeMilliseconds);
    }
    return best;
}

} // namespace quillon::bench
