#include "bench/edit_bench.h"

#include "app/main_window/frm_main.h"
#include "bench/own_memory.h"
#include "bench/report.h"
#include "platform/xml/query/node_path.h"
#include "platform/xml/query/xpath.h"
#include "view/controls/path_box.h"

#include <QClipboard>
#include <QGuiApplication>

namespace quillon::bench {

namespace {

void measureQueries(Table &table, app::frmMain &form) {
    app::Editor &editor = form.editor();
    const auto query = [&editor](const char16_t *expression) {
        return [&editor, expression] {
            return !xml::selectNodes(editor.state.m_DOM.node(), QString::fromUtf16(expression))
                        .empty();
        };
    };
    const auto simple = query(u"(//qty)[position() <= 100000]");
    const double before = ownMegabytes("VmRSS");
    table.row("query with up to 100,000 hits, first", bestOf(1, simple), "ms", 800);
    table.row("query with up to 100,000 hits, again", bestOf(3, simple), "ms", 300);
    table.row("query that compares every value", bestOf(3, query(u"//item[qty='3']")), "ms", 800);
    table.row("memory that they have added", ownMegabytes("VmRSS") - before, "MB", 100);
    table.row("query that only libxml2 can answer",
              bestOf(1, query(u"(//qty[sum(.) > 0])[position() <= 100000]")), "ms", 4000);
    ui::PathBox &box = *form.findChild<controls::PathBox *>();
    editor.selection.ShowNode(editor.tree.nodes().Item(1), true);
    box.setText(QStringLiteral("(//qty)[position() <= 100000]"));
    table.row("show 100,000 hits in the tree and the list",
              bestOf(3,
                     [&] {
                         editor.pathQuery.SelectByPath();
                         QCoreApplication::processEvents();
                     }),
              "ms", 0);
}

} // namespace

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
    table.row("undo", bestOf(3, [&] { editor.history.UndoCommand(); }), "ms", 60);
    table.row("redo", bestOf(3, [&] { editor.history.RedoCommand(); }), "ms", 60);
    measureQueries(table, form);
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
