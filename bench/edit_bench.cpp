#include "bench/edit_bench.h"

#include "app/main_window/frm_main.h"
#include "bench/report.h"
#include "platform/xml/query/node_path.h"
#include "platform/xml/query/xpath.h"

#include <QClipboard>
#include <QGuiApplication>

namespace quillon::bench {

void measureEditing(Table &table, app::frmMain &form, const QString &path) {
    app::Editor &editor = form.editor();
    const auto selectRecord = [&] {
        const xml::Node record = editor.state.m_DOM.documentElement().childNodes().item(100);
        editor.selection.ShowNode(editor.builder.itemOf(record), true);
        QCoreApplication::processEvents();
    };
    const auto row1 = [&](const char *work, double limit, auto &&command) {
        table.row(work,
                  bestOf(
                      5,
                      [&] {
                          command();
                          QCoreApplication::processEvents();
                      },
                      selectRecord),
                  "ms", limit);
    };
    row1("move one record down", 20, [&] { editor.nodeCommands.mnuNodeMoveDown_Click(); });
    row1("delete one record", 20, [&] { editor.nodeCommands.mnuEditCut_Click(); });
    row1("paste one record", 20, [&] { editor.nodeCommands.mnuEditPaste_Click(); });
    table.row("undo", bestOf(3, [&] { editor.history.UndoCommand(); }), "ms", 1500);
    table.row("redo", bestOf(3, [&] { editor.history.RedoCommand(); }), "ms", 1500);
    const QString query = QStringLiteral("(//qty)[position() <= 100000]");
    const auto hits = [&] { return !xml::selectNodes(editor.state.m_DOM.node(), query).empty(); };
    table.row("query with up to 100,000 hits, first", bestOf(1, hits), "ms", 4000);
    table.row("query with up to 100,000 hits, again", bestOf(3, hits), "ms", 1500);
    const xml::Node lastRecord = editor.state.m_DOM.documentElement().lastChild();
    // About 100,000 siblings take a third of it.
    table.row("path of a node, among 300,000 siblings",
              bestOf(3, [&] { return !xml::pathTo(lastRecord.firstChild()).isEmpty(); }), "ms",
              300);
    const QString copy = path + QStringLiteral(".copy");
    table.row("save", bestOf(3, [&] { editor.state.m_DOM.save(copy); }), "ms", 0);
    table.row("expand everything",
              bestOf(1,
                     [&] {
                         editor.builder.ExpandSubtree(editor.tree.nodes().Item(1));
                         QCoreApplication::processEvents();
                     }),
              "ms", 0);
}

} // namespace quillon::bench
