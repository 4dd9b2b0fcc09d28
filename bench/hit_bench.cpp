#include "bench/hit_bench.h"

#include "app/main_window/frm_main.h"
#include "bench/report.h"

#include <QCoreApplication>
#include <QScrollBar>

namespace quillon::bench {

namespace {

constexpr std::size_t MostHits = 1'000'000;

/// The first character of every text.
class Texts final : public xml::NodeVisitor {
public:
    void enter(quint32 number, xml::NodeType kind) override {
        if (kind == xml::NodeType::Text && hits.size() < MostHits)
            hits.push_back({number, search::Part::Value, 0, 1});
    }
    void leave() override {}

    std::vector<search::Hit> hits;
};

} // namespace

void measureHits(Table &table, app::frmMain &form) {
    app::Editor &editor = form.editor();
    auto &list = *form.findChild<controls::RowTable *>(QStringLiteral("hitTable"));
    auto &pane = *form.findChild<controls::TextBox *>(QStringLiteral("txtEdit"));
    Texts texts;
    xml::visitSubtree(editor.state.m_DOM.node(), texts);
    if (texts.hits.empty())
        return table.failedRow("the list of hits");
    form.mnuViewPanel_Click(true);
    const auto row = [&](const char *work, double limit, auto &&command) {
        table.row(work,
                  bestOf(3,
                         [&] {
                             command();
                             QCoreApplication::processEvents();
                         }),
                  "ms", limit);
    };
    row("list up to 1,000,000 hits", 200, [&] {
        search::Hits hits{search::HitSource::Text, QStringLiteral("text"), texts.hits};
        hits.findAgain = [](const xml::Node &node, search::Part part) {
            return std::vector<search::Hit>{{node.number(), part, 0, 1}};
        };
        editor.hits.show(std::move(hits));
    });
    double place = 0;
    row("scroll that list to another place", 50, [&] {
        place += 0.23;
        list.verticalScrollBar()->setValue(int(place * list.verticalScrollBar()->maximum()));
    });
    row("sort it by kind", 1000, [&] { editor.hits.sort(search::HitOrder::Kind, {}); });
    row("sort it by path", 1000, [&] { editor.hits.sort(search::HitOrder::Path, {}); });
    row("sort it by text", 3000, [&] { editor.hits.sort(search::HitOrder::Text, {}); });
    editor.hits.sort(search::HitOrder::Document, Qt::AscendingOrder);
    row("go to the next hit", 200, [&] { editor.hitNavigation.mnuViewNextHit_Click(); });
    QString typed = pane.Text();
    table.row("one keystroke beside that list",
              bestOf(20,
                     [&] {
                         pane.setText(typed += QLatin1Char('x'));
                         QCoreApplication::processEvents();
                     }),
              "ms", 16);
    table.row("follow an edit with it, when idle",
              bestOf(
                  3, [&] { editor.hits.sweepAll(); }, [&] { editor.hits.documentChanged(); }),
              "ms", 500);
}

} // namespace quillon::bench
