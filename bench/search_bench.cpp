#include "bench/search_bench.h"

#include "app/main_window/frm_main.h"
#include "bench/report.h"
#include "platform/xml/dom/part_walk.h"
#include "search/text_search.h"

#include <QCoreApplication>

namespace quillon::bench {

namespace {

constexpr unsigned EveryPart = ~0U;

void measureFinding(Table &table, app::Editor &editor) {
    const struct {
        const char *work;
        QString pattern;
        search::PatternOptions options;
        double limit;
    } searches[] = {
        {"find a text: all places", QStringLiteral("営業所"), {}, 400},
        {"find a text that nearly all values have", QStringLiteral("-"), {}, 0},
        {"find a text by wildcards",
         QStringLiteral("第*所"),
         {.kind = search::PatternKind::Wildcards},
         0},
        {"find a text, ignoring case and width",
         QStringLiteral("エイギョウショ"),
         {.matchCase = false, .matchWidth = false},
         0},
        {"find a regular expression: all places",
         QStringLiteral("第(\\d+)営業所$"),
         {.kind = search::PatternKind::RegularExpression},
         1500},
    };
    for (const auto &one : searches) {
        const search::SearchRequest request{one.pattern, {}, one.options, EveryPart};
        table.row(one.work, bestOf(3, [&] { editor.findAndReplace.findAll(request); }), "ms",
                  one.limit);
    }
}

} // namespace

void measureSearching(Table &table, app::frmMain &form) {
    app::Editor &editor = form.editor();
    const xml::Node record = editor.state.m_DOM.documentElement().firstChild();
    editor.selection.ShowNode(editor.builder.itemOf(record), true);
    measureFinding(table, editor);

    constexpr std::size_t Count = 100'000;
    const QString what = QStringLiteral("A-");
    const search::TextPattern pattern(what, {});
    std::vector<search::Hit> hits =
        search::TextSearch(pattern, xml::part_kind::Text).findAll({editor.state.m_DOM.node()}, {});
    hits.resize(std::min(hits.size(), Count));
    std::vector<search::Change> changes;
    const auto prepare = [&] {
        // The state to come back to, in which the record can be seen.
        editor.history.takeSnapshot();
        changes.assign(hits.size(), {QStringLiteral("品番-")});
        QCoreApplication::processEvents();
    };
    const search::SearchRequest request{what, QStringLiteral("品番-"), {}, EveryPart};
    table.row("plan the replacing of a text",
              bestOf(3, [&] { editor.findAndReplace.planAll(request); }), "ms", 0);
    editor.hits.clear();
    const double replace = bestOf(
        1,
        [&] {
            const bool done = editor.replacing.replace(hits, changes, {}).made == hits.size();
            QCoreApplication::processEvents();
            return done;
        },
        prepare);
    const double undo = bestOf(1, [&] {
        editor.history.UndoCommand();
        QCoreApplication::processEvents();
    });
    table.row("replace up to 100,000 values", replace, "ms", 1000);
    table.row("undo that", undo, "ms", 500);
}

} // namespace quillon::bench
