#include "bench/chain_bench.h"

#include "app/main_window/frm_main.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <limits>

namespace quillon::bench {

namespace {

/// Longer than what follows an edit waits before it begins.
constexpr int FollowMs = 4'000;

/// The longest in milliseconds that an event had to wait, until nothing is to come.
double longestWait() {
    QElapsedTimer sinceBeat;
    double longest = 0;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, [&] {
        longest = std::max(longest, double(sinceBeat.nsecsElapsed()) / 1e6);
        sinceBeat.restart();
    });
    heart.setTimerType(Qt::PreciseTimer);
    sinceBeat.start();
    heart.start(1);
    QElapsedTimer total;
    total.start();
    while (total.elapsed() < FollowMs)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    return longest;
}

} // namespace

void measureChain(Table &table, app::frmMain &form) {
    app::Editor &editor = form.editor();
    auto &pane = *form.findChild<controls::TextBox *>(QStringLiteral("txtEdit"));
    xml::Node deepest = editor.state.m_DOM.documentElement();
    while (deepest.hasChildNodes())
        deepest = deepest.firstChild();
    editor.selection.ShowNode(editor.builder.itemOf(deepest), true);
    longestWait();
    QString typed = pane.Text();
    const auto type = [&] {
        pane.setText(typed += QLatin1Char('x'));
        QCoreApplication::processEvents();
        return deepest.text() == typed;
    };
    table.row("one keystroke at the end of a chain", bestOf(5, type), "ms", 16);
    longestWait();
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < 2; ++i) {
        pane.setText(typed += QLatin1Char('x'));
        best = std::min(best, longestWait());
    }
    table.row("longest wait after a keystroke there", best, "ms", 100);
}

} // namespace quillon::bench
