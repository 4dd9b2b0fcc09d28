#include "bench/open_bench.h"

#include "app/start_up.h"
#include "app/window.h"
#include "bench/check_bench.h"
#include "bench/edit_bench.h"
#include "bench/report.h"
#include "platform/controls/error_boundary.h"

#include <QTemporaryDir>

#include <array>
#include <cstdlib>
#include <cstring>
#include <sys/resource.h>

namespace quillon::bench {

namespace {

/// The first text node of a document, in document order.
xml::Node firstText(const xml::DOMDocument40 &document) {
    xml::Node node = document.documentElement();
    while (node && node.nodeType() != xml::NodeType::Text)
        node = node.hasChildNodes() ? node.firstChild() : node.nextSibling();
    return node;
}

controls::TreeItem itemOf(app::Editor &editor, controls::TreeView &tvw, const xml::Node &node) {
    controls::TreeItem found;
    editor.builder.registry().forEach([&](quint32 sequence, quint32 number) {
        if (number == node.number())
            found = tvw.nodes().bySequence(sequence);
    });
    return found;
}

double keystroke(app::frmMain &form) {
    app::Editor &editor = form.editor();
    auto &tvw = *form.findChild<controls::TreeView *>(QStringLiteral("tvw"));
    auto &pane = *form.findChild<controls::TextBox *>(QStringLiteral("txtEdit"));
    const controls::TreeItem item = itemOf(editor, tvw, firstText(editor.state.m_DOM));
    editor.selection.ShowNode(item, true);
    QCoreApplication::processEvents();
    QString text = pane.Text();
    return bestOf(20, [&] {
        text += QLatin1Char('x');
        pane.setText(text);
        QCoreApplication::processEvents();
    });
}

} // namespace

int openAndPrint(int argc, char **argv, const char *task, const char *path) {
    app::prepareProcess();
    QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    const auto start = std::chrono::steady_clock::now();
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    controls::Application application(argc, argv);
    auto *form = new app::frmMain(true, {folder.path(), {}, {}});
    form->ClearStatus();
    form->OpenFile(QString::fromLocal8Bit(path));
    form->UpdateStatus(QString::fromLocal8Bit(path));
    form->show();
    QCoreApplication::processEvents();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    if (std::strcmp(task, "--edit") == 0)
        measureEditing(*form, QString::fromLocal8Bit(path));
    else if (std::strcmp(task, "--check") == 0)
        measureChecking(*form, QString::fromLocal8Bit(path));
    else
        std::printf("%f %f %f\n", took.count(), double(usage.ru_maxrss) / 1024, keystroke(*form));
    std::fflush(stdout);
    // Taking everything down again is not part of any figure.
    std::_Exit(0);
}

void measureIn(const std::string &program, const std::string &task, const std::string &path) {
    if (std::system(("'" + program + "' " + task + " '" + path + "'").c_str()) != 0)
        std::fprintf(stderr, "%s %s failed\n", task.c_str(), path.c_str());
}

OpenFigures measureOpening(const std::string &program, const std::string &path) {
    OpenFigures best{1e300, 1e300, 1e300};
    for (int run = 0; run < 3; ++run) {
        const std::string command = "'" + program + "' --open '" + path + "'";
        FILE *const output = ::popen(command.c_str(), "r");
        OpenFigures figures;
        if (!output || std::fscanf(output, "%lf %lf %lf", &figures.milliseconds,
                                   &figures.peakMegabytes, &figures.keystrokeMilliseconds) != 3)
            std::fprintf(stderr, "opening %s failed\n", path.c_str());
        if (output)
            ::pclose(output);
        best.milliseconds = std::min(best.milliseconds, figures.milliseconds);
        best.peakMegabytes = std::min(best.peakMegabytes, figures.peakMegabytes);
        best.keystrokeMilliseconds =
            std::min(best.keystrokeMilliseconds, figures.keystrokeMilliseconds);
    }
    return best;
}

} // namespace quillon::bench
